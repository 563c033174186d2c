// The first entry point with a host that fails it. A failure after the utility suite was acquired is
// reported to the user; an earlier one goes through a null pointer, which is kept on purpose and has to
// happen in the optimised program too.

#include "host/IdleSuite.h"
#include "standin/host/core/Host.h"
#include "standin/host/sensors/FindingIds.h"
#include "tests/host/FailingBasic.h"
#include "tests/support/Sanitized.h"

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

/// What the dying program says: that it called through a null table, and after which call to the host.
std::string deathAfter(const std::string& lastCall)
{
#if defined(VORTAN_TESTS_ARE_SANITIZED)
    (void)lastCall; // The sanitizer sees the access coming, and names it alone.
    return "member access within null pointer of type 'const (struct )?AEGP_UtilitySuite3'";
#else
    return "a read at address 0 after " + lastCall;
#endif
}

/// The report is slot 0 of the utility suite, so a call through a null table reads at address 0.
[[noreturn]] void tellWhereItDies(int, siginfo_t* info, void*)
{
    const std::string place = info->si_addr == nullptr ? "a read at address 0" : "a read somewhere else";
    const std::string text = place + " after " + Host::Current()->CallTexts().back() + "\n";
    (void)!write(STDERR_FILENO, text.data(), text.size());
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
        LoadAndDieWith([this] { return host.Load(&EffectorAEGP); });
    }

    template <class Loading>
    void LoadAndDieWith(Loading load)
    {
        struct sigaction action = {};
        action.sa_sigaction = &tellWhereItDies;
        action.sa_flags = SA_SIGINFO;
        sigaction(SIGSEGV, &action, nullptr);
        (void)load();
        std::exit(0); // It survived, which fails the test.
    }

    /// Loads the entry point with a basic suite that hands the suite out and says that it failed.
    LoadedPlugin LoadWithFailing(const std::string& suite)
    {
        const FailingBasic failing(host, suite);
        return host.Load(+[](SPBasicSuite*, A_long, A_long, AEGP_PluginID id, AEGP_GlobalRefcon* out)
                         { return EffectorAEGP(FailingBasic::Current().Basic(), 0, 0, id, out); });
    }

    Host host;
};

/// The calls of a start that reports to the user, with these before the report.
std::vector<std::string> reportedStart(const std::vector<std::string>& registration)
{
    std::vector<std::string> calls = {
        R"(Basic AcquireSuite("SP Suites Suite", 2))",
        R"(Suites 2 AddSuite(null, null, "Vortan Idle Suite v1", 1, 1, table))",
        R"(Basic ReleaseSuite("SP Suites Suite", 2))",
        R"(Basic AcquireSuite("SP Suites Suite", 2))",
        R"(Basic ReleaseSuite("SP Suites Suite", 2))",
        R"(Basic AcquireSuite("AEGP Register Suite", 6))",
        R"(Basic AcquireSuite("AEGP Utility Suite", 7))",
        R"(Utility 7 AEGP_ReportInfo(id 8, "Vort AEGP : Could not register Plugin Suite."))",
        R"(Basic ReleaseSuite("AEGP Register Suite", 6))",
        R"(Basic ReleaseSuite("AEGP Utility Suite", 7))"};
    calls.insert(calls.begin() + 7, registration.begin(), registration.end());
    return calls;
}

using IdleSuiteEntryDeathTest = IdleSuiteEntryFault;

TEST_F(IdleSuiteEntryFault, AFailedRegistrationIsReportedAndReturned)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Faults().FailFunction("AEGP_RegisterIdleHook", 1, FaultLength::once, A_Err_ALLOC);
    const LoadedPlugin loaded = host.Load(&EffectorAEGP);
    EXPECT_EQ(loaded.result.error, A_Err_ALLOC);
    EXPECT_THAT(host.AlertTexts(), ElementsAre("Vort AEGP : Could not register Plugin Suite."));
    EXPECT_EQ(host.Alerts().at(0).pluginId, 8);
    EXPECT_EQ(host.CallTexts(), reportedStart({"Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon) = 4"}));
    EXPECT_NE(loaded.globalRefcon, nullptr) << "the blocks stay allocated";
    host.CheckSuiteBalance();
}

TEST_F(IdleSuiteEntryFault, AFailedRegistrationOutlivesTheReleases)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Faults().FailFunction("AEGP_RegisterIdleHook", 1, FaultLength::once, A_Err_ALLOC);
    host.Faults().FailFunction("ReleaseSuite", 3, FaultLength::functionForGood, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_ALLOC);
}

TEST_F(IdleSuiteEntryFault, AFailedRegisterSuiteReleaseIsReturnedUnreported)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Faults().FailFunction("ReleaseSuite", 3, FaultLength::once, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_STRUCT);
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
    EXPECT_EQ(host.CallTexts().back(), R"(Basic ReleaseSuite("AEGP Utility Suite", 7))");
}

TEST_F(IdleSuiteEntryFault, AFailedUtilitySuiteReleaseIsReturnedUnreported)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Faults().FailFunction("ReleaseSuite", 4, FaultLength::once, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_STRUCT);
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
}

TEST_F(IdleSuiteEntryFault, OfTwoFailedReleasesTheFirstIsReturned)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Faults().FailFunction("ReleaseSuite", 3, FaultLength::once, A_Err_STRUCT);
    host.Faults().FailFunction("ReleaseSuite", 4, FaultLength::once, A_Err_PARAMETER);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_STRUCT);
}

TEST_F(IdleSuiteEntryFault, AFailedReportKeepsTheFirstError)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Faults().FailFunction("AEGP_RegisterIdleHook", 1, FaultLength::once, A_Err_ALLOC);
    host.Faults().FailFunction("AEGP_ReportInfo", 1, FaultLength::once, A_Err_STRUCT);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_ALLOC);
    host.CheckSuiteBalance();
}

TEST_F(IdleSuiteEntryDeathTest, WithoutThePublishingSuiteTheReportCrashes)
{
    host.Faults().Withhold("SP Suites Suite", 2);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic AcquireSuite.*SP Suites Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, AFailedPublishingCrashesTheReport)
{
    host.Faults().FailFunction("AddSuite");
    EXPECT_DEATH(LoadAndDie(), deathAfter("Suites 2 AddSuite"));
}

TEST_F(IdleSuiteEntryDeathTest, AFailedFirstReleaseCrashesTheReport)
{
    host.Faults().FailFunction("ReleaseSuite", 1);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic ReleaseSuite.*SP Suites Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, AFailedSecondAcquireCrashesTheReport)
{
    host.Faults().FailFunction("AcquireSuite", 2);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic AcquireSuite.*SP Suites Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, AFailedSecondReleaseCrashesTheReport)
{
    host.Faults().FailFunction("ReleaseSuite", 2);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic ReleaseSuite.*SP Suites Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, WithoutTheRegisterSuiteTheReportCrashes)
{
    host.Faults().Withhold("AEGP Register Suite", 6);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic AcquireSuite.*AEGP Register Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, WithoutTheUtilitySuiteTheReportCrashes)
{
    host.Faults().Withhold("AEGP Utility Suite", 7);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic AcquireSuite.*AEGP Utility Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, ANullUtilityTableCrashesAFailedRegistration)
{
    host.Faults().Withhold("AEGP Utility Suite", 7, Withheld::asNullTable);
    host.Faults().FailFunction("AEGP_RegisterIdleHook");
    EXPECT_DEATH(LoadAndDie(), deathAfter("Register 6 AEGP_RegisterIdleHook"));
}

TEST_F(IdleSuiteEntryDeathTest, APublishingSuiteWithErrorIsNotUsed)
{
    EXPECT_DEATH(LoadAndDieWith([this] { return LoadWithFailing("SP Suites Suite"); }),
                 deathAfter("Basic AcquireSuite.*SP Suites Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, ARegisterSuiteWithErrorIsNotUsed)
{
    EXPECT_DEATH(LoadAndDieWith([this] { return LoadWithFailing("AEGP Register Suite"); }),
                 deathAfter("Basic AcquireSuite.*AEGP Register Suite"));
}

TEST_F(IdleSuiteEntryDeathTest, APoisonedSuiteIsNotUsed)
{
    host.Faults().Withhold("SP Suites Suite", 2, Withheld::asPoisonedPointer);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic AcquireSuite.*SP Suites Suite"));
    host.Faults().GiveBack("SP Suites Suite", 2);
    host.Faults().Withhold("AEGP Register Suite", 6, Withheld::asPoisonedPointer);
    EXPECT_DEATH(LoadAndDie(), deathAfter("Basic AcquireSuite.*AEGP Register Suite"));
}

TEST_F(IdleSuiteEntryFault, AUtilitySuiteWithErrorServesTheReport)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    const LoadedPlugin loaded = LoadWithFailing("AEGP Utility Suite");
    EXPECT_EQ(loaded.result.error, FailingBasic::ERROR_GIVEN);
    EXPECT_THAT(host.AlertTexts(), ElementsAre("Vort AEGP : Could not register Plugin Suite."));
    EXPECT_EQ(host.CallTexts(), reportedStart({}));
    host.CheckSuiteBalance();
}

TEST_F(IdleSuiteEntryFault, APoisonedUtilitySuiteIsCalled)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Expect(finding::poisonedTable, "", "the report is made through the pointer as it stands");
    host.Expect(finding::overReleasedSuite, "ReleaseSuite", "released also when it was never acquired");
    host.Faults().Withhold("AEGP Utility Suite", 7, Withheld::asPoisonedPointer);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, errSuiteNotFound);
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
}

TEST_F(IdleSuiteEntryFault, ANullUtilityTableIsNotMissed)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Expect(finding::overReleasedSuite, "ReleaseSuite", "released also when it was never acquired");
    host.Faults().Withhold("AEGP Utility Suite", 7, Withheld::asNullTable);
    const LoadedPlugin loaded = host.Load(&EffectorAEGP);
    EXPECT_EQ(loaded.result.thrown, "");
    EXPECT_EQ(loaded.result.error, errSuiteOverReleased) << "the result of that release";
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
}

TEST_F(IdleSuiteEntryFault, ANullPublishingTableIsSkipped)
{
    // The release of what was not acquired is made to succeed, so that nothing else goes wrong.
    struct Patient
    {
        static SPErr Release(const char* name, std::int32_t version)
        {
            auto* basic = static_cast<SPBasicSuite*>(Host::Current()->BasicSuite());
            const bool isSuites = std::string(name) == "SP Suites Suite";
            return isSuites ? 0 : basic->ReleaseSuite(name, version);
        }
    };
    host.Faults().Withhold("SP Suites Suite", 2, Withheld::asNullTable);
    const LoadedPlugin loaded =
        host.Load(+[](SPBasicSuite* basicSuite, A_long, A_long, AEGP_PluginID id, AEGP_GlobalRefcon* out)
                  {
                      static SPBasicSuite patient;
                      patient = *basicSuite;
                      patient.ReleaseSuite = &Patient::Release;
                      return EffectorAEGP(&patient, 0, 0, id, out);
                  });
    EXPECT_EQ(loaded.result.error, A_Err_NONE);
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
    EXPECT_THAT(host.CallTexts(), ElementsAre(R"(Basic AcquireSuite("SP Suites Suite", 2))",
                                              R"(Basic AcquireSuite("SP Suites Suite", 2))",
                                              R"(Basic AcquireSuite("AEGP Register Suite", 6))",
                                              R"(Basic AcquireSuite("AEGP Utility Suite", 7))",
                                              "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
                                              R"(Basic ReleaseSuite("AEGP Register Suite", 6))",
                                              R"(Basic ReleaseSuite("AEGP Utility Suite", 7))"));
}

TEST_F(IdleSuiteEntryFault, ANullRegisterTableIsReportedAsMissing)
{
    host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error");
    host.Expect(finding::overReleasedSuite, "ReleaseSuite", "released also when it was never acquired");
    host.Faults().Withhold("AEGP Register Suite", 6, Withheld::asNullTable);
    EXPECT_EQ(host.Load(&EffectorAEGP).result.error, A_Err_MISSING_SUITE);
    EXPECT_THAT(host.AlertTexts(), ElementsAre("Vort AEGP : Could not register Plugin Suite."));
}
} // namespace
} // namespace standin
