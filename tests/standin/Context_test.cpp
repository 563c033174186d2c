// Suites held and not held; calls outside a hook, from another thread, out of a hook by exception.

#include <stdexcept>
#include <thread>

#include "tests/standin/Client.h"
#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Basic
{
    A_Err (*acquire)(const char*, A_long, const void**);
    A_Err (*release)(const char*, A_long);
    A_long (*isEqual)(const char*, const char*);
    A_Err (*allocate)(std::size_t, void**);
    A_Err (*free)(void*);
    A_Err (*reallocate)(void*, std::size_t, void**);
    A_Err (*undefined)();
};

class Context : public LayerTest
{
protected:
    const Basic& basic() { return *static_cast<const Basic*>(host.BasicSuite()); }
    const void* poison = this;
};

TEST_F(Context, SuitesAreCountedPerNameAndVersion)
{
    host.RunInHook(
        [&]
        {
            EXPECT_EQ(basic().acquire(effectSuite, 1, &poison), errNone);
            EXPECT_EQ(basic().acquire(effectSuite, 1, &poison), errNone);
            EXPECT_EQ(basic().acquire(effectSuite, 3, &poison), errNone);
            EXPECT_EQ(host.SuiteCount(effectSuite, 1), 2);
            EXPECT_EQ(host.SuiteCount(effectSuite, 3), 1);
            EXPECT_EQ(basic().release(effectSuite, 1), errNone);
            EXPECT_EQ(basic().release(effectSuite, 1), errNone);
            EXPECT_EQ(basic().release(effectSuite, 3), errNone);
        });
    EXPECT_EQ(host.SuiteCount(effectSuite, 1), 0);
    EXPECT_THAT(FindingsOf(host), IsEmpty());
}

TEST_F(Context, AnUnknownNameOrVersionIsNotFound)
{
    host.RunInHook(
        [&]
        {
            EXPECT_EQ(basic().acquire("AEGP Effect suite", 1, &poison), 0x53214664);
            EXPECT_EQ(poison, nullptr);
            poison = this;
            EXPECT_EQ(basic().acquire(effectSuite, 2, &poison), 0x53214664);
            EXPECT_EQ(poison, nullptr);
        });
}

TEST_F(Context, AFailedAcquireCanLeaveThePointerAlone)
{
    host.Options().failedAcquire = FailedAcquire::leavesPointerAlone;
    host.RunInHook([&] { EXPECT_EQ(basic().acquire(effectSuite, 2, &poison), 0x53214664); });
    EXPECT_EQ(poison, this);
}

TEST_F(Context, ASuiteThatIsStillHeldIsReported)
{
    host.RunInHook([&] { (void)basic().acquire(layerSuite, 5, &poison); });
    host.CheckSuiteBalance();
    const std::vector<Finding> findings = host.TakeFindings();
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].Text(),
              "unbalanced-suite: The suite is still held, so many times: AEGP Layer Suite 5: 1.");
    EXPECT_EQ(findings[0].function, "AEGP Layer Suite 5: 1");
    host.RunInHook([&] { (void)basic().release(layerSuite, 5); });
}

TEST_F(Context, AReleaseTooManyIsReported)
{
    host.RunInHook([&] { EXPECT_EQ(basic().release(layerSuite, 5), 0x5352656C); });
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("over-released-suite in Basic ReleaseSuite(\"AEGP Layer Suite\", 5)"));
    EXPECT_EQ(host.SuiteCount(layerSuite, 5), 0);
}

TEST_F(Context, AReleasePreventedByFaultKeepsTheBalance)
{
    host.Faults().FailFunction("ReleaseSuite");
    host.RunInHook(
        [&]
        {
            (void)basic().acquire(layerSuite, 5, &poison);
            EXPECT_EQ(basic().release(layerSuite, 5), errGeneric);
        });
    EXPECT_EQ(host.SuiteCount(layerSuite, 5), 0);
}

TEST_F(Context, AnUnusedSuiteIsReportedIfAskedFor)
{
    const auto acquireAndRelease = [&]
    {
        (void)basic().acquire(utilitySuite, 7, &poison);
        (void)basic().release(utilitySuite, 7);
    };
    host.RunInHook(acquireAndRelease);
    EXPECT_THAT(FindingsOf(host), IsEmpty());
    host.Options().unusedAcquire = UnusedAcquire::isFinding;
    host.RunInHook(acquireAndRelease);
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("unused-suite in Basic ReleaseSuite(\"AEGP Utility Suite\", 7)"));
    inHook([&](Client& client)
           { EXPECT_EQ(client.Call(utilitySuite, 3, 0, host.PluginId(), "Hello"), errNone); });
    EXPECT_THAT(FindingsOf(host), IsEmpty());
}

TEST_F(Context, TheRestOfTheBasicSuiteWorks)
{
    host.RunInHook(
        [&]
        {
            EXPECT_EQ(basic().isEqual("a", "a"), 1);
            EXPECT_EQ(basic().isEqual("a", "b"), 0);
            void* block = nullptr;
            EXPECT_EQ(basic().allocate(16, &block), errNone);
            EXPECT_NE(block, nullptr);
            EXPECT_EQ(basic().reallocate(block, 32, &block), errNone);
            EXPECT_EQ(basic().free(block), errNone);
            EXPECT_EQ(basic().undefined(), 0x21494D50);
        });
    EXPECT_EQ(host.CallTexts().front(), "Basic IsEqual(\"a\", \"a\") -> 1");
}

TEST_F(Context, CallsOutsideHooksAreReportedAndRefused)
{
    const void* table = nullptr;
    EXPECT_NE(basic().acquire(effectSuite, 1, &table), errNone);
    EXPECT_EQ(table, nullptr);
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("outside-hook in Basic AcquireSuite(\"AEGP Effect Suite\", 1)"));

    host.RunInHook([&] { (void)basic().acquire(effectSuite, 1, &table); });
    using GetCount = A_Err (*)(void*, A_long*);
    A_long count = -1;
    const auto* slots = static_cast<const GetCount*>(table);
    EXPECT_NE(slots[0](host.LayerHandle(layer), &count), errNone);
    EXPECT_EQ(count, -1);
    EXPECT_THAT(FindingsOf(host), ElementsAre("outside-hook in Effect 1 AEGP_GetLayerNumEffects(layer 1)"));
    host.RunInHook([&] { (void)basic().release(effectSuite, 1); });
}

TEST_F(Context, CallsFromOtherThreadsAreReportedAndRefused)
{
    inHook(
        [&](Client& client)
        {
            A_long count = -1;
            void* handle = host.LayerHandle(layer);
            (void)client.NumEffects(handle);
            std::thread(
                [&]
                {
                    EXPECT_NE(client.Call(effectSuite, 1, 0, handle, &count), errNone);
                    EXPECT_NE(basic().release(effectSuite, 1), errNone);
                })
                .join();
            EXPECT_EQ(count, -1);
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("wrong-thread in Effect 1 AEGP_GetLayerNumEffects(...)",
                                              "wrong-thread in Basic ReleaseSuite(...)"));
}

TEST_F(Context, ReservedSlotsFromOtherThreadsAreReported)
{
    inHook(
        [&](Client& client)
        {
            (void)client.NumEffects(host.LayerHandle(layer));
            std::thread([&] { (void)client.Call(effectSuite, 1, 3); }).join();
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("wrong-thread in Effect 1 slot 3(...)"));
}

TEST_F(Context, AThrownIntegerIsReportedWithItsValue)
{
    const HookResult result = host.RunInHook([]() -> A_Err { throw 516; });
    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_EQ(result.error, errGeneric);
    const std::vector<Finding> findings = host.TakeFindings();
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].Text(), "exception-left-hook: A hook was left by the integer 516.");
}

TEST_F(Context, AnExceptionIsReportedWithItsText)
{
    const HookResult result = host.RunInHook([]() { throw std::runtime_error("out of ideas"); });
    EXPECT_FALSE(result.thrownNumber);
    EXPECT_EQ(result.thrown, "an exception: out of ideas");
    EXPECT_EQ(FindingsOf(host).size(), 1u);
}

TEST_F(Context, AHooksErrorComesBack)
{
    EXPECT_EQ(host.RunInHook([]() -> A_Err { return 4; }).error, 4);
    EXPECT_EQ(host.RunInHook([] {}).error, errNone);
}

TEST_F(Context, LeaksBeforeAnExceptionAreReported)
{
    host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
    inHook(
        [&](Client& client)
        {
            (void)client.EffectAt(host.LayerHandle(layer), 0);
            throw 13;
        });
    EXPECT_THAT(
        FindingsOf(host),
        ElementsAre("exception-left-hook",
                    "leaked-reference in Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A"));
}

TEST_F(Context, ASecondHostIsRefusedAndReported)
{
    EXPECT_THROW(Host(), std::logic_error);
    EXPECT_THAT(FindingsOf(host), ElementsAre("nested-host"));
    EXPECT_EQ(Host::Current(), &host);
}

TEST(WithoutHost, ACallIsRefused)
{
    void* table = nullptr;
    {
        Host host;
        table = host.BasicSuite();
    }
    EXPECT_EQ(Host::Current(), nullptr);
    const void* suite = nullptr;
    EXPECT_NE(static_cast<const Basic*>(table)->acquire(effectSuite, 1, &suite), errNone);
}
} // namespace
} // namespace standin
