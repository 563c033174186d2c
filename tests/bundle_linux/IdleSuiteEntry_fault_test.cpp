// EffectorAEGP of the built bundle with a host that fails it before it has the utility suite: the report goes
// through a null table, which has to happen in every build. All other failures are tested in tests/host.

#include "tests/bundle_linux/BundleTest.h"
#include "tests/support/Sanitized.h"

#include <csignal>
#include <cstdlib>
#include <unistd.h>

using namespace standin;

namespace
{
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

class IdleSuiteEntryDeathTest : public BundleTest
{
protected:
    IdleSuiteEntryDeathTest() { GTEST_FLAG_SET(death_test_style, "fast"); }

    /// In a process of its own.
    void loadAndDie()
    {
        struct sigaction action = {};
        action.sa_sigaction = &tellWhereItDies;
        action.sa_flags = SA_SIGINFO;
        (void)sigaction(SIGSEGV, &action, nullptr);
        (void)LoadIdleSuite();
        std::exit(0); // It survived, which fails the test.
    }
};
} // namespace

// The calls, one by one: the trace of the entry that goes well has ten.

TEST_F(IdleSuiteEntryDeathTest, SevenFailuresReportThroughANullTable)
{
    for (std::size_t ordinal = 1; ordinal <= 7; ++ordinal)
    {
        SCOPED_TRACE(ordinal);
        host.Faults().Disarm();
        host.Faults().FailCall(ordinal, FaultLength::once, A_Err{4});
        EXPECT_DEATH(loadAndDie(), death);
    }
}
