// What a check says and counts.

#include "standin/check/CheckAlone.h"
#include "standin/check/Trial.h"
#include "standin/host/core/Host.h"

#include <gmock/gmock.h>
#include <set>

using testing::HasSubstr;
using testing::MatchesRegex;

namespace standin
{
using namespace check;

namespace
{
class TrialTest : public testing::Test
{
protected:
    template <class Action>
    std::string FailureOf(Action action)
    {
        try
        {
            action();
        }
        catch (const CheckFailure& failure)
        {
            return failure.what();
        }
        return "no failure";
    }

    std::vector<std::string> places;
    int seedsAsked = 0;
    Trial trial{"bundle.so", 7, [this](const std::string& place) { places.push_back(place); },
                [this] { ++seedsAsked; }};
};

TEST_F(TrialTest, HasLookedAtNothingToBeginWith)
{
    EXPECT_EQ(trial.Looked(), 0);
    EXPECT_EQ(trial.File(), "bundle.so");
}

TEST_F(TrialTest, CountsWhatHolds)
{
    trial.Require(true, "never said");
    trial.RequireEqual(2, 2, "the sum");
    trial.RequireLines({"a"}, {"a"}, "the lines");
    trial.RequireNoFindings(Host());
    EXPECT_EQ(trial.Looked(), 4);
}

TEST_F(TrialTest, FailsWithWhatWasFoundAndThePlace)
{
    trial.At("the second click");
    EXPECT_EQ(FailureOf([this] { trial.Require(false, "it is red"); }), "it is red\nat: the second click");
    EXPECT_EQ(FailureOf([this] { trial.RequireEqual(1, 2, "the sum"); }),
              "the sum is 1 and should be 2\nat: the second click");
    EXPECT_EQ(FailureOf([this] { trial.RequireEqual(std::string("a"), std::string("b"), "the name"); }),
              "the name is \"a\" and should be \"b\"\nat: the second click");
    EXPECT_EQ(places, std::vector<std::string>{"the second click"});
    EXPECT_EQ(trial.Looked(), 0);
}

TEST_F(TrialTest, TellsTheFirstLineThatDiffers)
{
    EXPECT_THAT(FailureOf(
                    [this] {
                        trial.RequireLines({"a", "x"}, {"a", "b"}, "the lines");
                    }),
                HasSubstr("the lines: number 2 is \"x\" and should be \"b\""));
    EXPECT_THAT(FailureOf(
                    [this] {
                        trial.RequireLines({"a"}, {"a", "b"}, "the lines");
                    }),
                HasSubstr("number 2 is nothing more and should be \"b\""));
    EXPECT_THAT(FailureOf([this] { trial.RequireLines({"a"}, {}, "the lines"); }),
                HasSubstr("number 1 is \"a\" and should be nothing more"));
}

TEST_F(TrialTest, FailsForAFindingThatNobodyExpected)
{
    Host host;
    host.Findings().Add({"stale-reference", "It was stale.", "", "", ""});
    EXPECT_THAT(FailureOf([&] { trial.RequireNoFindings(host); }),
                HasSubstr("stale-reference: It was stale."));
}

TEST_F(TrialTest, TellsOnceThatTheSeedIsUsed)
{
    EXPECT_FALSE(trial.IsSeedUsed());
    EXPECT_EQ(trial.Seed(), 7u);
    EXPECT_EQ(trial.Seed(), 7u);
    EXPECT_TRUE(trial.IsSeedUsed());
    EXPECT_EQ(seedsAsked, 1);
}

TEST_F(TrialTest, ACheckThatLooksAtNothingFails)
{
    EXPECT_THROW(RunCheck({"blind", "It holds.", [](Trial&) {}}, trial), std::logic_error);
    RunCheck({"looking", "It holds.", [](Trial& given) { given.Require(true, ""); }}, trial);
    EXPECT_EQ(trial.Looked(), 1);
}

TEST(CheckTable, HoldsEachIdOnceWithOneWholeSentence)
{
    std::set<std::string> ids;
    for (const Check& check : BundleChecks().checks)
    {
        EXPECT_TRUE(ids.insert(check.id).second) << check.id;
        EXPECT_THAT(check.id, MatchesRegex("[a-z]+(-[a-z]+)*"));
        EXPECT_THAT(check.sentence, MatchesRegex("[A-Z][^.]*\\.")) << check.id;
        EXPECT_EQ(BundleChecks().Find(check.id), &check);
        EXPECT_NE(check.run, nullptr);
    }
    EXPECT_GT(ids.size(), 50u);
    EXPECT_EQ(BundleChecks().Find("no-such-check"), nullptr);
}
} // namespace
} // namespace standin
