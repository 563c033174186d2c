#include "standin/check/Walk.h"
#include "standin/check/WalkActions.h"
#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

namespace standin
{
using namespace check;
using namespace script;

namespace
{
/// All lines of a walk.
std::vector<std::string> script(const std::vector<WalkStep>& steps, WalkKind kind = WalkKind::mixed)
{
    std::vector<std::string> lines = WalkBeginLines();
    WalkState state = WalkBegin(kind);
    for (const WalkStep& step : steps)
    {
        for (const std::string& line : LinesOf(state, step))
            lines.push_back(line);
        (void)CarryOut(state, step);
    }
    return lines;
}

TEST(WalkStepTest, EachSeedGivesItsOwnWalk)
{
    const auto walk = script(DrawWalk(WalkKind::mixed, 7, 40));
    EXPECT_EQ(walk, script(DrawWalk(WalkKind::mixed, 7, 40)));
    EXPECT_NE(walk, script(DrawWalk(WalkKind::mixed, 8, 40)));
}

TEST(WalkStepTest, WalksOfAllSeedsTogetherDoEverything)
{
    std::set<const WalkAction*> done;
    for (unsigned seed = 1; seed <= 40; ++seed)
        for (const WalkStep& step : DrawWalk(WalkKind::loop, seed, 40))
            done.insert(step.action);
    EXPECT_EQ(done.size(), WalkActions().size());
}

TEST(WalkStepTest, WalksOnAScreenDoAllTheyShare)
{
    std::set<const WalkAction*> done;
    for (unsigned seed = 1; seed <= 20; ++seed)
        for (const WalkStep& step : DrawWalk(WalkKind::mixed, seed, 40))
            done.insert(step.action);
    std::set<const WalkAction*> shared;
    for (const WalkAction& action : WalkActions())
        if (action.shares[static_cast<int>(WalkKind::mixed)] > 0)
            shared.insert(&action);
    EXPECT_EQ(done, shared);
}

TEST(WalkStepTest, TheHostIdlesInsideAllKindsOfCalls)
{
    std::set<std::string> kinds;
    for (unsigned seed = 1; seed <= 20; ++seed)
        for (const WalkStep& step : DrawWalk(WalkKind::mixed, seed, 40))
            kinds.insert(step.idlesInside);
    EXPECT_EQ(kinds.size(), 9u) << "six functions, each call, no call, and the same as before";
}

TEST(WalkStepTest, WhereTheHostIdlesStandsBeforeTheStep)
{
    WalkStep step;
    step.action = &WalkActionOf("delete");
    step.id = 2;
    step.idlesInside = "each call of AEGP_ReorderEffect";
    EXPECT_THAT(LinesOf(WalkBegin(), step),
                testing::ElementsAre("idle inside no call", "idle inside each call of AEGP_ReorderEffect",
                                     "delete \"route\""));
}

TEST(WalkStepTest, CallsFailOnlyWhereALayerIsShown)
{
    int failing = 0;
    for (unsigned seed = 1; seed <= 40; ++seed)
    {
        WalkState state = WalkBegin(WalkKind::loop);
        for (const WalkStep& step : DrawWalk(WalkKind::loop, seed, 40))
        {
            if (!step.fault.empty())
            {
                ++failing;
                EXPECT_TRUE(state.model.HasItem() && state.model.ActiveLayer() >= 0 && !state.isHeld);
                EXPECT_EQ(state.model.Tab(), TabPlace::inFront);
            }
            (void)CarryOut(state, step);
        }
    }
    EXPECT_GT(failing, 20);
}

TEST(WalkStepTest, EveryWalkLineIsInTheLanguage)
{
    int read = 0;
    for (unsigned seed = 1; seed <= 20; ++seed)
        for (const std::string& line : script(DrawWalk(WalkKind::loop, seed, 40), WalkKind::loop))
        {
            std::istringstream text(line);
            EXPECT_NO_THROW(read += static_cast<int>(BindPhrases(ParseScenario(text, "walk")).size()))
                << line;
        }
    EXPECT_GT(read, 800);
}

TEST(WalkStepTest, HostWalksLeaveThePanelAlone)
{
    for (const WalkStep& step : DrawWalk(WalkKind::host, 3, 100))
        EXPECT_EQ(step.action->place, WalkAction::Place::host) << step.action->name;
}

TEST(WalkStepTest, ImpossibleStepsAreLeftOut)
{
    std::vector<WalkStep> steps = DrawWalk(WalkKind::mixed, 5, 40);
    EXPECT_EQ(script(PossibleSteps(steps)), script(steps));
    WalkStep deletion;
    deletion.action = &WalkActionOf("delete");
    deletion.id = 2;
    WalkStep rename;
    rename.action = &WalkActionOf("rename");
    rename.id = 2;
    rename.text = "gone";
    EXPECT_EQ(PossibleSteps({rename, deletion}).size(), 2U);
    EXPECT_EQ(PossibleSteps({deletion, rename}).size(), 1U);
}

TEST(WalkStepTest, TheSecondOfANameIsCalledSo)
{
    WalkState state = WalkBegin();
    WalkStep copy;
    copy.action = &WalkActionOf("duplicate");
    copy.id = 3;
    copy.newId = 100;
    (void)CarryOut(state, copy);
    WalkStep deletion;
    deletion.action = &WalkActionOf("delete");
    deletion.id = 100;
    EXPECT_THAT(LinesOf(state, deletion), ::testing::ElementsAre("delete \"dots#2\""));
}
} // namespace
} // namespace standin
