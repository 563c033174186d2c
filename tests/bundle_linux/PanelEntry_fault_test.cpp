// PanelEntryPointFunc of the built bundle with a host that fails it.

#include "standin/core/HostParts.h"
#include "tests/bundle_linux/BundleTest.h"

using namespace standin;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{
class PanelEntryFault : public BundleTest
{
protected:
    void expectNothingRegistered()
    {
        EXPECT_THAT(host.Parts().plugins.hooks.idle, IsEmpty());
        EXPECT_THAT(host.Parts().plugins.hooks.command, IsEmpty());
        EXPECT_THAT(host.Parts().plugins.hooks.updateMenu, IsEmpty());
        EXPECT_THAT(host.Parts().plugins.hooks.death, IsEmpty());
        EXPECT_EQ(host.FindPanel(panelName), nullptr);
    }

    void failCall(std::size_t ordinal) { host.Faults().FailCall(ordinal, FaultLength::once, A_Err{4}); }
};

/// How the suite is refused makes no difference.
const Withheld everyWay[] = {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer};
} // namespace

TEST_F(PanelEntryFault, WithoutThePanelSuiteThrowsThirteenAndRegistersNothing)
{
    for (const Withheld how : everyWay)
    {
        host.Faults().Withhold("AEGP Workspace Panel Suite", 1, how);
        ExpectLoadThrows(13);
        EXPECT_THAT(TakeCalls(), ElementsAre(HasSubstr("AcquireSuite(\"AEGP Workspace Panel Suite\", 1)")));
        host.Faults().GiveBack("AEGP Workspace Panel Suite", 1);
    }
    expectNothingRegistered();
    EXPECT_THAT(host.MenuItems(), IsEmpty());
    host.CheckSuiteBalance();
}

TEST_F(PanelEntryFault, WithoutTheCommandSuiteThrows516AndRegistersNothing)
{
    for (const Withheld how : everyWay)
    {
        host.Faults().Withhold("AEGP Command Suite", 1, how);
        ExpectLoadThrows(516);
        EXPECT_EQ(TakeCalls().back(), R"(Basic ReleaseSuite("AEGP Workspace Panel Suite", 1))");
        host.Faults().GiveBack("AEGP Command Suite", 1);
    }
    expectNothingRegistered();
    host.CheckSuiteBalance();
}

TEST_F(PanelEntryFault, WithoutTheRegisterSuiteThrows516AfterTheMenuEntry)
{
    host.Faults().Withhold("AEGP Register Suite", 6);
    ExpectLoadThrows(516);
    EXPECT_EQ(host.MenuItems().size(), 1u);
    expectNothingRegistered();
    host.CheckSuiteBalance();
}

TEST_F(PanelEntryFault, WithoutTheSuiteForPublishingThrows516AfterTheHooks)
{
    host.Options().failedEntry = FailedEntry::leavesHooks;
    host.Faults().Withhold("SP Suites Suite", 2);
    ExpectLoadThrows(516);
    EXPECT_EQ(host.Parts().plugins.hooks.idle.size(), 1u);
    EXPECT_EQ(Published(panelSuiteName), nullptr);
    host.CheckSuiteBalance();
}

TEST_F(PanelEntryFault, WithoutACommandSaysSoAndDoesNotPublish)
{
    LoadedPlugin plugin;
    host.Faults().FailFunction("AEGP_GetUniqueCommand");
    host.Expect("unknown-command", "AEGP_InsertMenuCommand",
                "the entry is made with whatever the command holds")
        .In("EntryPoint");
    EXPECT_EQ(OutputOf([&] { plugin = LoadPanel(); }), "Command Not Found\n");
    EXPECT_EQ(plugin.result.error, errNone);
    const auto calls = TakeCalls();
    EXPECT_THAT(calls, Contains(HasSubstr("AEGP_InsertMenuCommand(0, \"Vortan Object Panel\", 7, -2)")));
    EXPECT_THAT(calls, Contains(HasSubstr("AEGP_RegisterCommandHook(id 8, 1, 0, hook, refcon)")));
    EXPECT_THAT(calls, Contains(HasSubstr("AEGP_RegisterCreatePanelHook")));
    EXPECT_THAT(calls, Not(Contains(HasSubstr("SP Suites Suite"))));
    EXPECT_EQ(Published(panelSuiteName), nullptr);
}

// Every call of the entry that goes well, failed one by one.

namespace
{
struct FailedCall
{
    std::size_t ordinal;
    int thrown; ///< 0 for nothing.
};

class PanelEntryCall : public PanelEntryFault, public testing::WithParamInterface<FailedCall>
{
};
} // namespace

TEST_P(PanelEntryCall, ThatFailsIsAMissingSuiteOrIsPassedOver)
{
    failCall(GetParam().ordinal);
    if (GetParam().thrown != 0)
    {
        ExpectLoadThrows(GetParam().thrown);
        return host.CheckSuiteBalance();
    }
    LoadedPlugin plugin;
    EXPECT_EQ(OutputOf([&] { plugin = LoadPanel(); }), "");
    EXPECT_EQ(plugin.result.error, errNone);
    EXPECT_NE(plugin.globalRefcon, nullptr);
    EXPECT_EQ(TakeCalls().size(), 13u);
    EXPECT_EQ(Published(panelSuiteName) != nullptr, GetParam().ordinal != 12);
}

INSTANTIATE_TEST_SUITE_P(Ordinal, PanelEntryCall,
                         testing::Values(FailedCall{1, 13}, FailedCall{2, 516}, FailedCall{4, 0},
                                         FailedCall{5, 516}, FailedCall{6, 0}, FailedCall{7, 0},
                                         FailedCall{8, 0}, FailedCall{9, 0}, FailedCall{10, 0},
                                         FailedCall{11, 516}, FailedCall{12, 0}, FailedCall{13, 0}),
                         [](const auto& call) { return "Call" + std::to_string(call.param.ordinal); });
