// How findings are compared with what is expected.

#include "tests/standin/PluginTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;

void deleteNothing(Host& host, int times)
{
    InHook(host,
           [&](Client& client)
           {
               for (int i = 0; i < times; ++i)
                   (void)client.Delete(nullptr);
           });
}

TEST(Findings, AnExpectedOneComesOnce)
{
    Host host;
    host.Expect("null-reference", "AEGP_DeleteLayerEffect", "kept on purpose").Times(1);
    deleteNothing(host, 1);
    EXPECT_EQ(host.FindingsReport(), "");
    deleteNothing(host, 1);
    EXPECT_EQ(host.Findings().All().size(), 2u);
    EXPECT_EQ(
        host.FindingsReport(),
        "null-reference: The effect reference is null. [Effect 3 AEGP_DeleteLayerEffect(effect null)]\n");
}

TEST(Findings, AnUncountedExpectedOneMayComeOften)
{
    Host host;
    host.Expect("null-reference", "AEGP_DeleteLayerEffect", "kept on purpose");
    deleteNothing(host, 2);
    EXPECT_EQ(host.FindingsReport(), "");
}

TEST(Findings, AnExpectedOneComesAsOftenAsSaid)
{
    Host host;
    host.Expect("null-reference", "AEGP_DeleteLayerEffect", "kept on purpose").Times(3);
    deleteNothing(host, 2);
    EXPECT_EQ(host.FindingsReport(),
              "missing-finding: The finding null-reference of AEGP_DeleteLayerEffect was "
              "expected 3 times and came 2 times: kept on purpose\n");
    deleteNothing(host, 1);
    EXPECT_EQ(host.FindingsReport(), "");
}

TEST(Findings, TheSameIdInAnotherFunctionCounts)
{
    Host host;
    host.Expect("null-reference", "AEGP_DeleteLayerEffect", "kept on purpose");
    deleteNothing(host, 1);
    host.RunInHook([&] { (void)Client(host).Reorder(nullptr, 0); });
    EXPECT_EQ(host.FindingsReport(), "null-reference: The effect reference is null. "
                                     "[Effect 1 AEGP_ReorderEffect(effect null, 0)]\n");
}

TEST(Findings, AnExpectedOneThatDoesNotAppearCounts)
{
    Host host;
    host.Expect("null-reference", "AEGP_DeleteLayerEffect", "kept on purpose");
    EXPECT_EQ(host.FindingsReport(), "missing-finding: The finding null-reference of AEGP_DeleteLayerEffect "
                                     "was expected at least once and "
                                     "came 0 times: kept on purpose\n");
}

/// Each hook of the plug-in is left by an integer.
class FindingsOfHooks : public testing::Test
{
protected:
    FindingsOfHooks()
    {
        (void)host.Load(&TestPlugin::Entry);
        plugin.inHook = [](const std::string&) { throw 7; };
    }

    Host host;
    TestPlugin plugin{host};
};

TEST_F(FindingsOfHooks, AnExpectedOneComesInItsHook)
{
    host.Expect("exception-left-hook", "", "kept on purpose").In("IdleHook");
    (void)host.RunIdle();
    EXPECT_EQ(host.FindingsReport(), "");
    (void)host.UpdateMenus();
    EXPECT_EQ(host.FindingsReport(),
              "exception-left-hook: A hook was left by the integer 7. [in the UpdateMenuHook]\n");
}

TEST_F(FindingsOfHooks, OneOutsideAHookIsAnother)
{
    host.Expect("exception-left-hook", "", "kept on purpose").In("IdleHook");
    host.RunInHook([]() { throw 13; });
    EXPECT_EQ(host.FindingsReport(), "exception-left-hook: A hook was left by the integer 13.\n"
                                     "missing-finding: The finding exception-left-hook in the IdleHook was "
                                     "expected at least once and came 0 "
                                     "times: kept on purpose\n");
}

TEST(Findings, EachHeldSuiteIsExpectedByItself)
{
    Host host;
    const void* table = nullptr;
    InHook(host,
           [&](Client& client)
           {
               (void)client.Acquire("AEGP Item Suite", 3, &table);
               (void)client.Acquire("AEGP Item Suite", 3, &table);
           });
    host.Expect("unbalanced-suite", "AEGP Item Suite 3: 1", "kept on purpose");
    host.CheckSuiteBalance();
    EXPECT_THAT(FindingsOf(host), ElementsAre("unbalanced-suite"));
}

TEST(Findings, TheOriginStandsInEachFinding)
{
    Host host;
    host.Findings().SetOrigin("line 12");
    host.RunInHook([]() { throw 13; });
    EXPECT_EQ(host.FindingsReport(), "exception-left-hook: A hook was left by the integer 13. (line 12)\n");
}
} // namespace
} // namespace standin
