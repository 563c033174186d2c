#include "host/SuiteHelper.h"

#include "host/SuiteHandler.h"
#include "standin/host/core/Host.h"
#include "tests/host/HandMadeBasic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <type_traits>

using namespace standin;
using ::testing::ElementsAre;

namespace
{
using PanelHelper = SuiteHelper<AEGP_PanelSuite1, AssertAndThrowOnMissingSuite<AEGP_PanelSuite1>>;
using AppHelper = SuiteHelper<PFAppSuite4, AssertAndThrowOnMissingSuite<PFAppSuite4>>;

/// An owner that asks for many suites and cannot do without any of them.
struct Owner
{
    explicit Owner(const SPBasicSuite* basic) : handler(basic), layers(handler.LayerSuite1()), panels(basic)
    {
    }

    AEGP_SuiteHandler handler;
    const AEGP_LayerSuite1* layers;
    PanelHelper panels;
};

struct DoWithout
{
    static void OnMissingSuite() {}
};
} // namespace

static_assert(!std::is_copy_constructible_v<PanelHelper>, "a copy would release a second time");
static_assert(!std::is_copy_assignable_v<PanelHelper>, "a copy would release a second time");
static_assert(std::is_nothrow_destructible_v<PanelHelper>, "no exception leaves the destructor");
static_assert(sizeof(PanelHelper) == 2 * sizeof(void*), "the suite and the basic suite");

TEST(SuiteHelper, HoldsThePanelSuiteForItsWholeLife)
{
    HandMadeBasic basic;
    {
        const PanelHelper panels(basic.Suite());
        EXPECT_EQ(panels.operator->(), basic.table);
        EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Workspace Panel Suite 1"));
    }
    EXPECT_THAT(basic.calls,
                ElementsAre("acquire AEGP Workspace Panel Suite 1", "release AEGP Workspace Panel Suite 1"));
}

TEST(SuiteHelper, HoldsTheAppSuiteForItsWholeLife)
{
    HandMadeBasic basic;
    {
        const AppHelper app(basic.Suite());
        EXPECT_EQ(app.operator->(), basic.table);
    }
    EXPECT_THAT(basic.calls, ElementsAre("acquire PF AE App Suite 6", "release PF AE App Suite 6"));
}

TEST(SuiteHelper, Throws13ForARefusedSuite)
{
    HandMadeBasic basic;
    basic.acquireResult = 0x53214664;
    basic.table = nullptr;
    EXPECT_EQ(ThrownBy([&] { PanelHelper panels(basic.Suite()); }), 13);
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Workspace Panel Suite 1"));
}

TEST(SuiteHelper, LooksAtTheErrorNotThePointer)
{
    HandMadeBasic basic;
    basic.acquireResult = -108;
    EXPECT_EQ(ThrownBy([&] { AppHelper app(basic.Suite()); }), 13);
    EXPECT_THAT(basic.calls, ElementsAre("acquire PF AE App Suite 6"));
}

TEST(SuiteHelper, TakesSuccessWithANullTableForMissing)
{
    HandMadeBasic basic;
    basic.table = nullptr;
    EXPECT_EQ(ThrownBy([&] { AppHelper app(basic.Suite()); }), 13);
    EXPECT_THAT(basic.calls, ElementsAre("acquire PF AE App Suite 6"));
}

TEST(SuiteHelper, ThatIsMissingUnwindsTheHandlerBesideIt)
{
    Host host;
    host.Faults().Withhold("AEGP Workspace Panel Suite");
    host.Expect("exception-left-hook", "", "a missing suite leaves the hook as an integer");
    const HookResult result =
        host.RunInHook([&] { Owner owner(static_cast<SPBasicSuite*>(host.BasicSuite())); });
    EXPECT_EQ(result.thrownNumber, 13);
    EXPECT_EQ(host.SuiteCount("AEGP Layer Suite", 5), 0);
    host.CheckSuiteBalance();
    EXPECT_EQ(host.FindingsReport(), "");
}

TEST(SuiteHelper, UnderAReturningPolicyIsEmpty)
{
    HandMadeBasic basic;
    basic.acquireResult = 1;
    {
        const SuiteHelper<PFAppSuite4, DoWithout> app(basic.Suite());
        EXPECT_EQ(app.operator->(), nullptr);
    }
    EXPECT_THAT(basic.calls, ElementsAre("acquire PF AE App Suite 6"));
}

TEST(SuiteHelperDeathTest, TerminatesWhenAReleaseThrowsInItsDestructor)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto destroyWithThrowingRelease = []
    {
        HandMadeBasic basic;
        basic.thrownByRelease = 13;
        try
        {
            const PanelHelper panels(basic.Suite());
        }
        catch (...)
        {
        }
    };
    EXPECT_EXIT(destroyWithThrowingRelease(), ::testing::KilledBySignal(SIGABRT), "");
}

TEST(SuiteHelper, FindsBothSuitesAndLeavesNone)
{
    Host host;
    const HookResult result = host.RunInHook(
        [&]
        {
            const PanelHelper panels(static_cast<SPBasicSuite*>(host.BasicSuite()));
            const AppHelper app(static_cast<SPBasicSuite*>(host.BasicSuite()));
            EXPECT_EQ(host.SuiteCount("AEGP Workspace Panel Suite", 1), 1);
            EXPECT_EQ(host.SuiteCount("PF AE App Suite", 6), 1);
        });
    EXPECT_EQ(result.thrown, "");
    host.CheckSuiteBalance();
    EXPECT_EQ(host.FindingsReport(), "");
}
