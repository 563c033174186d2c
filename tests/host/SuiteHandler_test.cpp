#include "host/SuiteHandler.h"

#include "standin/host/core/Host.h"
#include "tests/host/HandMadeBasic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <type_traits>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{
/// A suite as the host knows it, and the accessor that is to hand it out.
struct SuiteRow
{
    const char* name;
    int version;
    const void* (*use)(const AEGP_SuiteHandler&);
};

const std::vector<SuiteRow> suiteRows = {
    {"AEGP Command Suite", 1, [](const auto& h) -> const void* { return h.CommandSuite1(); }},
    {"AEGP Dynamic Stream Suite", 2, [](const auto& h) -> const void* { return h.DynamicStreamSuite2(); }},
    {"AEGP Dynamic Stream Suite", 5, [](const auto& h) -> const void* { return h.DynamicStreamSuite4(); }},
    {"AEGP Effect Suite", 1, [](const auto& h) -> const void* { return h.EffectSuite1(); }},
    {"AEGP Effect Suite", 3, [](const auto& h) -> const void* { return h.EffectSuite3(); }},
    {"AEGP Item Suite", 3, [](const auto& h) -> const void* { return h.ItemSuite1(); }},
    {"AEGP Layer Suite", 5, [](const auto& h) -> const void* { return h.LayerSuite1(); }},
    {"AEGP Register Suite", 6, [](const auto& h) -> const void* { return h.RegisterSuite5(); }},
    {"AEGP Stream Suite", 4, [](const auto& h) -> const void* { return h.StreamSuite1(); }},
    {"AEGP Stream Suite", 7, [](const auto& h) -> const void* { return h.StreamSuite2(); }},
    {"AEGP Utility Suite", 3, [](const auto& h) -> const void* { return h.UtilitySuite1(); }},
    {"AEGP Utility Suite", 7, [](const auto& h) -> const void* { return h.UtilitySuite3(); }},
    {"AEGP Utility Suite", 11, [](const auto& h) -> const void* { return h.UtilitySuite5(); }},
    {"PF AE App Suite", 6, [](const auto& h) -> const void* { return h.AppSuite4(); }},
    {"SP Suites Suite", 2, [](const auto& h) -> const void* { return h.SuitesSuite(); }},
};

std::string nameAndVersion(const SuiteRow& row)
{
    return std::string(row.name) + " " + std::to_string(row.version);
}

std::vector<std::string> releasesIn(const std::vector<std::string>& calls)
{
    std::vector<std::string> releases;
    for (const std::string& call : calls)
    {
        if (call.rfind("release ", 0) == 0)
            releases.push_back(call);
    }
    return releases;
}
} // namespace

static_assert(!std::is_copy_constructible_v<AEGP_SuiteHandler>, "a copy would release a second time");
static_assert(!std::is_copy_assignable_v<AEGP_SuiteHandler>, "a copy would release a second time");
static_assert(std::is_nothrow_destructible_v<AEGP_SuiteHandler>, "no exception leaves the destructor");
static_assert(sizeof(AEGP_SuiteHandler) == 16 * sizeof(void*), "the basic suite and one slot per suite");

TEST(SuiteHandler, OverANullBasicSuiteThrows516)
{
    EXPECT_EQ(ThrownBy([] { AEGP_SuiteHandler handler(nullptr); }), 516);
}

TEST(SuiteHandler, WithNothingAcquiredMakesNoHostCall)
{
    HandMadeBasic basic;
    {
        AEGP_SuiteHandler handler(basic.Suite());
        handler.ReleaseAllSuites();
    }
    EXPECT_THAT(basic.calls, IsEmpty());
}

TEST(SuiteHandler, AcquiresEachSuiteByNameAndVersion)
{
    for (const SuiteRow& row : suiteRows)
    {
        HandMadeBasic basic;
        {
            AEGP_SuiteHandler handler(basic.Suite());
            EXPECT_EQ(row.use(handler), basic.table) << nameAndVersion(row);
        }
        EXPECT_THAT(basic.calls,
                    ElementsAre("acquire " + nameAndVersion(row), "release " + nameAndVersion(row)));
    }
}

TEST(SuiteHandler, HandsOutTheFirstTableAgain)
{
    HandMadeBasic basic;
    AEGP_SuiteHandler handler(basic.Suite());
    const void* first = handler.EffectSuite1();
    basic.table = nullptr;
    EXPECT_EQ(handler.EffectSuite1(), first);
    EXPECT_EQ(handler.Get<AEGP_EffectSuite1>(), first);
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Effect Suite 1"));
}

TEST(SuiteHandler, AcquiresAndReleasesBothVersions)
{
    HandMadeBasic basic;
    {
        AEGP_SuiteHandler handler(basic.Suite());
        (void)handler.EffectSuite3();
        (void)handler.EffectSuite1();
    }
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Effect Suite 3", "acquire AEGP Effect Suite 1",
                                         "release AEGP Effect Suite 1", "release AEGP Effect Suite 3"));
}

TEST(SuiteHandler, ReleasesEachSuiteOnceInFixedOrder)
{
    std::vector<std::string> expected;
    for (const SuiteRow& row : suiteRows)
        expected.push_back("release " + nameAndVersion(row));

    HandMadeBasic basic;
    {
        AEGP_SuiteHandler handler(basic.Suite());
        for (const SuiteRow& row : suiteRows)
            (void)row.use(handler);
    }
    EXPECT_EQ(releasesIn(basic.calls), expected);

    basic.calls.clear();
    {
        AEGP_SuiteHandler handler(basic.Suite());
        for (auto row = suiteRows.rbegin(); row != suiteRows.rend(); ++row)
            (void)row->use(handler);
    }
    EXPECT_EQ(releasesIn(basic.calls), expected);
}

TEST(SuiteHandler, Throws516ForARefusedSuite)
{
    for (const SuiteRow& row : suiteRows)
    {
        HandMadeBasic basic;
        basic.acquireResult = 0x53214664;
        basic.table = nullptr;
        AEGP_SuiteHandler handler(basic.Suite());
        EXPECT_EQ(ThrownBy([&] { (void)row.use(handler); }), 516) << nameAndVersion(row);
        EXPECT_THAT(basic.calls, ElementsAre("acquire " + nameAndVersion(row)));
    }
}

TEST(SuiteHandler, LooksAtTheErrorNotThePointer)
{
    HandMadeBasic basic;
    basic.acquireResult = -108;
    {
        AEGP_SuiteHandler handler(basic.Suite());
        EXPECT_EQ(ThrownBy([&] { (void)handler.LayerSuite1(); }), 516);
    }
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Layer Suite 5"));
}

TEST(SuiteHandler, TakesSuccessWithANullTableForMissing)
{
    HandMadeBasic basic;
    basic.table = nullptr;
    {
        AEGP_SuiteHandler handler(basic.Suite());
        EXPECT_EQ(ThrownBy([&] { (void)handler.LayerSuite1(); }), 516);
    }
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Layer Suite 5"));
}

TEST(SuiteHandler, AsksAgainForASuiteThatWasMissing)
{
    HandMadeBasic basic;
    basic.acquireResult = 1;
    AEGP_SuiteHandler handler(basic.Suite());
    EXPECT_EQ(ThrownBy([&] { (void)handler.LayerSuite1(); }), 516);
    basic.acquireResult = 0;
    EXPECT_EQ(handler.LayerSuite1(), basic.table);
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Layer Suite 5", "acquire AEGP Layer Suite 5"));
}

TEST(SuiteHandler, ReleasesWhatItHoldsOnAMissingSuite)
{
    HandMadeBasic basic;
    const int thrown = ThrownBy(
        [&]
        {
            AEGP_SuiteHandler handler(basic.Suite());
            (void)handler.EffectSuite1();
            basic.acquireResult = 1;
            (void)handler.StreamSuite1();
        });
    EXPECT_EQ(thrown, 516);
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Effect Suite 1", "acquire AEGP Stream Suite 4",
                                         "release AEGP Effect Suite 1"));
}

TEST(SuiteHandler, IgnoresTheResultsOfReleasing)
{
    HandMadeBasic basic;
    basic.releaseResult = 0x5352656C;
    {
        AEGP_SuiteHandler handler(basic.Suite());
        (void)handler.EffectSuite1();
        (void)handler.LayerSuite1();
    }
    EXPECT_THAT(releasesIn(basic.calls),
                ElementsAre("release AEGP Effect Suite 1", "release AEGP Layer Suite 5"));
}

TEST(SuiteHandler, ReleasesAgainWhenDestroyed)
{
    HandMadeBasic basic;
    {
        AEGP_SuiteHandler handler(basic.Suite());
        (void)handler.EffectSuite1();
        handler.ReleaseAllSuites();
        handler.ReleaseAllSuites();
        EXPECT_EQ(handler.EffectSuite1(), basic.table);
    }
    EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Effect Suite 1", "release AEGP Effect Suite 1",
                                         "release AEGP Effect Suite 1", "release AEGP Effect Suite 1"));
}

TEST(SuiteHandler, ThrowsTheInteger516OnRequest)
{
    HandMadeBasic basic;
    const AEGP_SuiteHandler handler(basic.Suite());
    EXPECT_EQ(ThrownBy([&] { handler.MissingSuiteError(); }), 516);
    EXPECT_THAT(basic.calls, IsEmpty());
}

TEST(SuiteHandler, SharesNothingWithAnotherHandler)
{
    HandMadeBasic basic;
    {
        AEGP_SuiteHandler outer(basic.Suite());
        (void)outer.LayerSuite1();
        {
            AEGP_SuiteHandler inner(basic.Suite());
            (void)inner.LayerSuite1();
        }
        EXPECT_THAT(basic.calls, ElementsAre("acquire AEGP Layer Suite 5", "acquire AEGP Layer Suite 5",
                                             "release AEGP Layer Suite 5"));
    }
    EXPECT_EQ(basic.calls.size(), 4u);
}

TEST(SuiteHandlerDeathTest, TerminatesWhenAReleaseThrowsInItsDestructor)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto destroyWithThrowingRelease = []
    {
        HandMadeBasic basic;
        basic.thrownByRelease = 13;
        try
        {
            AEGP_SuiteHandler handler(basic.Suite());
            (void)handler.LayerSuite1();
        }
        catch (...)
        {
        }
    };
    EXPECT_EXIT(destroyWithThrowingRelease(), ::testing::KilledBySignal(SIGABRT), "");
}

TEST(SuiteHandler, FindsEverySuiteAndLeavesNone)
{
    Host host;
    const HookResult result = host.RunInHook(
        [&]
        {
            AEGP_SuiteHandler handler(static_cast<SPBasicSuite*>(host.BasicSuite()));
            for (const SuiteRow& row : suiteRows)
            {
                EXPECT_NE(row.use(handler), nullptr);
                EXPECT_EQ(host.SuiteCount(row.name, row.version), 1) << nameAndVersion(row);
            }
        });
    EXPECT_EQ(result.thrown, "");
    for (const SuiteRow& row : suiteRows)
        EXPECT_EQ(host.SuiteCount(row.name, row.version), 0) << nameAndVersion(row);
    host.CheckSuiteBalance();
    EXPECT_EQ(host.FindingsReport(), "");
}

TEST(SuiteHandler, Throws516HoweverASuiteIsWithheld)
{
    for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
    {
        for (const SuiteRow& row : suiteRows)
        {
            Host host;
            host.Faults().Withhold(row.name, row.version, how);
            host.Expect("exception-left-hook", "", "a missing suite leaves the hook as an integer");
            const HookResult result = host.RunInHook(
                [&]
                {
                    AEGP_SuiteHandler handler(static_cast<SPBasicSuite*>(host.BasicSuite()));
                    (void)row.use(handler);
                });
            EXPECT_EQ(result.thrownNumber, 516) << nameAndVersion(row);
            host.CheckSuiteBalance();
            EXPECT_EQ(host.FindingsReport(), "") << nameAndVersion(row);
        }
    }
}
