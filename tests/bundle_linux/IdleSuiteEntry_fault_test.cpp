// EffectorAEGP of the built bundle with a host that fails it. A failure before the utility suite is there is
// reported through a null table, which has to happen in every build.

#include "tests/bundle_linux/BundleTest.h"
#include "tests/support/Sanitized.h"

#include <csignal>
#include <cstdlib>
#include <unistd.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr const char* alert = "Vort AEGP : Could not register Plugin Suite.";

/// What the dying program says.
#if defined(VORTAN_TESTS_ARE_SANITIZED)
constexpr const char* death =
    "member access within null pointer of type 'const (struct )?AEGP_UtilitySuite3'";
#else
constexpr const char* death = "a read at address 0";
#endif

[[noreturn]] void tellWhereItDies(int, siginfo_t* info, void*)
{
    const std::string text = info->si_addr == nullptr ? "a read at address 0" : "a read somewhere else";
    (void)!write(STDERR_FILENO, text.data(), text.size());
    _exit(3);
}

class IdleSuiteEntryFault : public BundleTest
{
protected:
    IdleSuiteEntryFault() { GTEST_FLAG_SET(death_test_style, "fast"); }

    /// In a process of its own.
    void loadAndDie()
    {
        struct sigaction action = {};
        action.sa_sigaction = &tellWhereItDies;
        action.sa_flags = SA_SIGINFO;
        (void)sigaction(SIGSEGV, &action, nullptr);
        (void)LoadIdleSuite();
        std::exit(0); // It lived, which fails the test.
    }

    void expectOverRelease()
    {
        host.Expect("over-released-suite", "ReleaseSuite",
                    "both are released also when they were not acquired")
            .In("EntryPoint");
    }

    void failCall(std::size_t ordinal) { host.Faults().FailCall(ordinal, FaultLength::once, A_Err{4}); }
};

using IdleSuiteEntryDeathTest = IdleSuiteEntryFault;
} // namespace

// The calls, one by one: the trace of the entry that goes well has ten.

TEST_F(IdleSuiteEntryDeathTest, SevenFailuresReportThroughANullTable)
{
    for (std::size_t ordinal = 1; ordinal <= 7; ++ordinal)
    {
        SCOPED_TRACE(ordinal);
        host.Faults().Disarm();
        failCall(ordinal);
        EXPECT_DEATH(loadAndDie(), death);
    }
}

TEST_F(IdleSuiteEntryFault, TheEighthFailureIsReportedAndReturned)
{
    host.Expect("error-left-hook", "EntryPoint", "the start returns the error").In("EntryPoint");
    failCall(8);
    const LoadedPlugin plugin = LoadIdleSuite();
    EXPECT_EQ(plugin.result.error, 4);
    EXPECT_THAT(AlertTexts(), ElementsAre(alert));
    EXPECT_EQ(host.Alerts().at(0).pluginId, plugin.id);
    EXPECT_NE(plugin.globalRefcon, nullptr);
    EXPECT_NE(Published(idleSuiteName), nullptr) << "it was published before";
    host.CheckSuiteBalance();
}

TEST_F(IdleSuiteEntryFault, TheNinthFailureIsReturnedInSilence)
{
    host.Expect("error-left-hook", "EntryPoint", "the start returns the error").In("EntryPoint");
    failCall(9);
    EXPECT_EQ(LoadIdleSuite().result.error, 4);
    EXPECT_THAT(AlertTexts(), IsEmpty());
    EXPECT_EQ(host.RunIdle().error, errNone);
}

TEST_F(IdleSuiteEntryFault, TheTenthFailureIsReturnedInSilence)
{
    host.Expect("error-left-hook", "EntryPoint", "the start returns the error").In("EntryPoint");
    failCall(10);
    EXPECT_EQ(LoadIdleSuite().result.error, 4);
    EXPECT_THAT(AlertTexts(), IsEmpty());
}

// The suites, one by one.

TEST_F(IdleSuiteEntryDeathTest, MissingSuitesAreReportedThroughANullTable)
{
    const std::pair<const char*, A_long> suites[] = {
        {"SP Suites Suite", 2}, {"AEGP Register Suite", 6}, {"AEGP Utility Suite", 7}};
    for (const auto& [name, version] : suites)
    {
        SCOPED_TRACE(name);
        host.Faults().Withhold(name, version);
        EXPECT_DEATH(loadAndDie(), death);
        host.Faults().GiveBack(name, version);
    }
}

TEST_F(IdleSuiteEntryFault, APublishingSuiteWithoutTableIsPassedOver)
{
    // The release of what was not acquired is made to succeed, so that nothing else goes wrong.
    static EntryPoint entry;
    entry = Entry("EffectorAEGP");
    host.Faults().Withhold("SP Suites Suite", 2, Withheld::asNullTable);
    const LoadedPlugin plugin = host.Load(
        +[](void* basicSuite, A_long major, A_long minor, A_long id, void** out)
        {
            static BasicSlots patient;
            static BasicSlots own;
            own = *static_cast<BasicSlots*>(basicSuite);
            patient = own;
            patient.release = [](const char* name, A_long version)
            { return name == std::string("SP Suites Suite") ? errNone : own.release(name, version); };
            return entry(&patient, major, minor, id, out);
        });
    EXPECT_EQ(plugin.result.error, errNone);
    EXPECT_THAT(AlertTexts(), IsEmpty());
    EXPECT_THAT(TakeCalls(), ElementsAre(R"(Basic AcquireSuite("SP Suites Suite", 2))",
                                         R"(Basic AcquireSuite("SP Suites Suite", 2))",
                                         R"(Basic AcquireSuite("AEGP Register Suite", 6))",
                                         R"(Basic AcquireSuite("AEGP Utility Suite", 7))",
                                         "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
                                         R"(Basic ReleaseSuite("AEGP Register Suite", 6))",
                                         R"(Basic ReleaseSuite("AEGP Utility Suite", 7))"));
    EXPECT_EQ(Published(idleSuiteName), nullptr);
}

TEST_F(IdleSuiteEntryFault, AUtilitySuiteWithoutTableIsNotMissed)
{
    host.Faults().Withhold("AEGP Utility Suite", 7, Withheld::asNullTable);
    expectOverRelease();
    host.Expect("error-left-hook", "EntryPoint", "the start returns the error").In("EntryPoint");
    EXPECT_EQ(LoadIdleSuite().result.error, errSuiteOverReleased) << "the result of its release";
    EXPECT_NE(Published(idleSuiteName), nullptr);
    EXPECT_THAT(AlertTexts(), IsEmpty());
    EXPECT_EQ(host.RunIdle().error, errNone);
}

TEST_F(IdleSuiteEntryFault, ARegisterSuiteWithoutTableIsReportedMissing)
{
    host.Faults().Withhold("AEGP Register Suite", 6, Withheld::asNullTable);
    expectOverRelease();
    host.Expect("error-left-hook", "EntryPoint", "the start returns the error").In("EntryPoint");
    EXPECT_EQ(LoadIdleSuite().result.error, 13);
    EXPECT_THAT(AlertTexts(), ElementsAre(alert));
}
