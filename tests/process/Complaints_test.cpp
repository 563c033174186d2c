#include "standin/process/Complaints.h"

#include "standin/process/Child.h"

#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

namespace standin::process
{
namespace
{
constexpr const char* assertion = "JUCE Assertion failure in juce_Component.cpp:1520";
constexpr const char* leak = "*** Leaked objects detected: 1 instance(s) of class Row";

void writeLeak() { (void)std::fprintf(stderr, "%s\n", leak); }

TEST(Complaints, AreFoundAmongOtherLinesEachOnce)
{
    const std::string printed =
        std::string("JUCE v7.0.5\n") + assertion + "\n" + leak + "\nother\n" + assertion + "\n";
    EXPECT_EQ(ComplaintsIn(printed), std::string(assertion) + "\n" + leak);
}

TEST(Complaints, AreNotFoundWhereThereAreNone)
{
    EXPECT_EQ(ComplaintsIn(""), "");
    EXPECT_EQ(ComplaintsIn("JUCE v7.0.5\nCopy Button\n"), "");
}

TEST(Complaints, AtTheEndOfTheProcessAreIncluded)
{
    Child child(
        []
        {
            (void)std::atexit(&writeLeak);
            LeaveWithLeakReports();
            return 1;
        },
        Streams::kept);
    child.Wait();
    EXPECT_EQ(child.ExitCode(), 0);
    EXPECT_EQ(ComplaintsIn(child.Errors()), leak);
}
} // namespace
} // namespace standin::process
