// The first entry point with a host that fails it. A failure after the utility suite was acquired is
// reported to the user; an earlier one goes through a null pointer, which is kept on purpose and has to
// happen in the optimised program too.

#include "host/IdleSuite.h"
#include "standin/core/Host.h"
#include "standin/sensors/FindingIds.h"

#include <csignal>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

#if defined(__SANITIZE_ADDRESS__)
// The sanitizer sees the access coming and names it.
constexpr const char* deathByNullTable = "null pointer of type 'const struct AEGP_UtilitySuite3'";
#else
constexpr const char* deathByNullTable = "a read at address 0";
#endif

/// The report is slot 0 of the utility suite, so a call through a null table reads at address 0.
[[noreturn]] void tellAddress(int, siginfo_t* info, void*)
{
    const char* text = info->si_addr == nullptr ? "a read at address 0\n" : "a read somewhere else\n";
    (void)!write(STDERR_FILENO, text, std::strlen(text));
    _exit(3);
}

class IdleSuiteEntryFault : public ::testing::Test
{
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "fast"); }

    void TearDown() override { EXPECT_EQ(host.FindingsReport(), ""); }

    /// Loads the entry point in a process of its own that says where it dies.
    void LoadAndDie()
    {
        struct sigaction action = {};
        action.sa_sigaction = &tellAddress;
        action.sa_flags = SA_SIGINFO;
        sigaction(SIGSEGV, &action, nullptr);
        (void)host.Load(&EffectorAEGP);
        std::exit(0); // It lived, which fails the test.
    }

    std::vector<std::string> AlertTexts() const
    {
        std::vector<std::string> texts;
        for (const Alert& alert : host.Alerts())
            texts.push_back(alert.text);
        return texts;
    }

    Host host;
};

using IdleSuiteEntryDeathTest = IdleSuiteEntryFault;

TEST_F(IdleSuiteEntryFault, AFailureToRegisterTheHookIsReportedAndReturned)
{
    host.Faults().FailFunction("AEGP_RegisterIdleHook", 1, FaultLength::once, A_Err_ALLOC);
    const LoadedPlugin loaded = host.Load(&EffectorAEGP);
    EXPECT_EQ(loaded.result.error, A_Err_ALLOC);
    EXPECT_THAT(AlertTexts(), ElementsAre("Vort AEGP : Could not register Plugin Suite."));
    EXPECT_EQ(host.Alerts().at(0).pluginId, 8);
    EXPECT_THAT(host.CallTexts(),
                ElementsAre("Basic AcquireSuite(SP Suites Suite, 2)",
                            "Suites 2 AddSuite(null, null, \"Vortan Idle Suite v1\", 1, 1)",
                            "Basic ReleaseSuite(SP Suites Suite, 2)", "Basic AcquireSuite(SP Suites Suite, 2)",
                            "Basic ReleaseSuite(SP Suites Suite, 2)",
                            "Basic AcquireSuite(AEGP Register Suite, 6)",
                            "Basic AcquireSuite(AEGP Utility Suite, 7)",
                            "Register 6 AEGP_RegisterIdleHook(8) = 4",
                            "Utility 7 AEGP_ReportInfo(\"Vort AEGP : Could not register Plugin Suite.\")",
                            "Basic ReleaseSuite(AEGP Register Suite, 6)",
                            "Basic ReleaseSuite(AEGP Utility Suite, 7)"));
    EXPECT_NE(loaded.globalRefcon, nullptr) << "the blocks stay allocated";
    host.CheckSuiteBalance();
}

TEST_F(IdleSuiteEntryFault, AFailureToRegisterOutlivesTheResultsOfTheReleases)
{
    host.Faults().FailFunction("AEGP_RegisterIdleHook", 1, FaultLength::once, A_Err_ALLOC);
    host.Faults().FailFunction("ReleaseSuite", 3, FaultLength::functionForGood, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_ALLOC);
}

TEST_F(IdleSuiteEntryFault, AReleaseOfTheRegisterSuiteThatFailsIsReturnedWithoutAReport)
{
    host.Faults().FailFunction("ReleaseSuite", 3, FaultLength::once, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_STRUCT);
    EXPECT_THAT(AlertTexts(), IsEmpty());
    EXPECT_EQ(host.CallTexts().back(), "Basic ReleaseSuite(AEGP Utility Suite, 7)");
}

TEST_F(IdleSuiteEntryFault, AReleaseOfTheUtilitySuiteThatFailsIsReturnedWithoutAReport)
{
    host.Faults().FailFunction("ReleaseSuite", 4, FaultLength::once, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_STRUCT);
    EXPECT_THAT(AlertTexts(), IsEmpty());
}

TEST_F(IdleSuiteEntryFault, OfTwoReleasesThatFailTheFirstIsReturned)
{
    host.Faults().FailFunction("ReleaseSuite", 3, FaultLength::once, A_Err_STRUCT);
    host.Faults().FailFunction("ReleaseSuite", 4, FaultLength::once, A_Err_PARAMETER);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_STRUCT);
}

TEST_F(IdleSuiteEntryFault, AReportThatFailsDoesNotHideTheFirstError)
{
    host.Faults().FailFunction("AEGP_RegisterIdleHook", 1, FaultLength::once, A_Err_ALLOC);
    host.Faults().FailFunction("AEGP_ReportInfo", 1, FaultLength::once, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_ALLOC);
    host.CheckSuiteBalance();
}

TEST_F(IdleSuiteEntryDeathTest, WithoutTheSuiteForPublishingTheReportGoesThroughANullTable)
{
    host.Faults().Withhold("SP Suites Suite", 2);
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryDeathTest, APublishingThatFailsIsReportedThroughANullTable)
{
    host.Faults().FailFunction("AddSuite");
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryDeathTest, AFirstReleaseThatFailsIsReportedThroughANullTable)
{
    host.Faults().FailFunction("ReleaseSuite", 1);
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryDeathTest, ASecondAcquireThatFailsIsReportedThroughANullTable)
{
    host.Faults().FailFunction("AcquireSuite", 2);
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryDeathTest, ASecondReleaseThatFailsIsReportedThroughANullTable)
{
    host.Faults().FailFunction("ReleaseSuite", 2);
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryDeathTest, WithoutTheRegisterSuiteTheReportGoesThroughANullTable)
{
    host.Faults().Withhold("AEGP Register Suite", 6);
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryDeathTest, WithoutTheUtilitySuiteTheReportGoesThroughANullTable)
{
    host.Faults().Withhold("AEGP Utility Suite", 7);
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryDeathTest, AUtilitySuiteWithoutATableAndAHookThatCannotBeRegisteredEndAtTheNullTable)
{
    host.Faults().Withhold("AEGP Utility Suite", 7, Withheld::asNullTable);
    host.Faults().FailFunction("AEGP_RegisterIdleHook");
    EXPECT_DEATH(LoadAndDie(), deathByNullTable);
}

TEST_F(IdleSuiteEntryFault, AUtilitySuiteWithoutATableIsNotMissedWhileAllGoesWell)
{
    host.Faults().Withhold("AEGP Utility Suite", 7, Withheld::asNullTable);
    const LoadedPlugin loaded = host.Load(&EffectorAEGP);
    EXPECT_EQ(loaded.result.thrown, "");
    EXPECT_THAT(AlertTexts(), IsEmpty());
}
} // namespace
} // namespace standin
