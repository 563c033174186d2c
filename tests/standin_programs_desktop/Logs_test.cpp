// What the desktop keeps of calls, messages, idle passes and printed lines.

#include "standin/desktop/model/CallLog.h"
#include "standin/desktop/model/IdleMeter.h"
#include "standin/desktop/model/MessageLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
using namespace desktop;

namespace
{
using testing::ElementsAre;

std::vector<std::string> textsOf(const std::vector<CallLine>& lines)
{
    std::vector<std::string> texts;
    for (const CallLine& line : lines)
        texts.push_back(line.text);
    return texts;
}
} // namespace

TEST(CallLogTest, EqualPassesAreCounted)
{
    CallLog log;
    log.Add("Idle pass", {"A() -> 1", "B()"});
    log.Add("Idle pass", {"A() -> 1", "B()"});
    log.Add("Idle pass", {"A() -> 2"});
    log.Add("Idle pass", {});
    EXPECT_THAT(textsOf(log.Lines("")), ElementsAre("Idle pass: 1 call", "A() -> 2",
                                                    "Idle pass: 2 calls, 2 times", "A() -> 1", "B()"));
}

TEST(CallLogTest, TheFilterIgnoresCaseAndEmptyGroups)
{
    CallLog log;
    log.Add("Idle pass", {"Layer AEGP_GetActiveLayer() -> layer 1"});
    log.Add("Update menus", {"Command AEGP_EnableCommand(1001)", "Command AEGP_CheckMarkMenuCommand(1001)"});
    EXPECT_THAT(textsOf(log.Lines("enable")),
                ElementsAre("Update menus: 2 calls", "Command AEGP_EnableCommand(1001)"));
    EXPECT_TRUE(log.Lines("nothing like it").empty());
}

TEST(CallLogTest, SuiteTrafficCanBeLeftOut)
{
    CallLog log;
    log.Add("Idle pass", {"Basic AcquireSuite(\"S\", 1)", "A()", "Basic ReleaseSuite(\"S\", 1)"});
    log.Add("Update menus", {"Basic AcquireSuite(\"S\", 1) = 1399219812"});
    EXPECT_THAT(textsOf(log.Lines("", SuiteTraffic::leftOut)), ElementsAre("Idle pass: 3 calls", "A()"));
    EXPECT_EQ(log.Lines("", SuiteTraffic::included).size(), 6u);
}

TEST(CallLogTest, FailedCallsDifferFromAnsweredOnes)
{
    CallLog log;
    log.Add("Idle pass", {"Stream 4 AEGP_GetStreamName(stream B, 1) = 1", "A(\") = x\") -> (1)"});
    const std::vector<CallLine> lines = log.Lines("");
    EXPECT_EQ(lines.at(1).kind, CallLine::Kind::failedCall);
    EXPECT_EQ(lines.at(2).kind, CallLine::Kind::call);
}

TEST(CallLogTest, TheOldestGroupsGoFirst)
{
    CallLog log(3);
    log.Add("a", {"1", "2"});
    log.Add("b", {"3"});
    log.Add("c", {"4"});
    EXPECT_EQ(log.Text(), "b: 1 call\n  3\nc: 1 call\n  4\n");
}

TEST(MessageLogTest, ARepeatedMessageIsOneCountedLine)
{
    MessageLog log(2);
    log.Add(MessageKind::printed, "State Changed");
    log.Add(MessageKind::printed, "State Changed");
    log.Add(MessageKind::alert, "State Changed");
    ASSERT_EQ(log.All().size(), 2u);
    EXPECT_EQ(log.All().front().times, 2);
    log.Add(MessageKind::note, "third");
    EXPECT_EQ(log.All().front().kind, MessageKind::alert) << "only the newest two are kept";
}

TEST(IdleMeterTest, ThePassesOfTheLastSecondAreCounted)
{
    IdleMeter meter;
    for (int i = 0; i < 60; ++i)
        meter.Tick(i / 30.0);
    EXPECT_EQ(meter.PerSecond(2.0), 29) << "the one at 1.0 is a second old and counts no more";
    EXPECT_EQ(meter.PerSecond(10.0), 0);
}
} // namespace standin
