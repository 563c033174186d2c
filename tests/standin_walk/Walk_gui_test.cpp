// Walks on the screen, with the bundle as it is built and with one that has a mistake.

#include "standin/check/Walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
using namespace check;

namespace
{
using ::testing::HasSubstr;

WalkPlan planFor(const std::string& bundle)
{
    WalkPlan plan;
    plan.bundleFile = bundle;
    plan.kind = WalkKind::panel;
    plan.seed = 1;
    plan.steps = 4;
    return plan;
}

TEST(WalkGuiTest, ASoundBundleComesToTheEnd)
{
    const WalkOutcome outcome = TakeWalk(planFor(VORTAN_BUNDLE));
    EXPECT_EQ(outcome.failure, "");
    EXPECT_EQ(outcome.stepsDone, 4);
}

TEST(WalkGuiTest, AMistakeIsReportedWithSeedAndScenario)
{
    const WalkOutcome outcome = TakeWalk(planFor(VORTAN_MUTANT));
    EXPECT_THAT(outcome.failure, HasSubstr("the stack of layer \"Solid 1\" should be"));
    EXPECT_THAT(outcome.failure, HasSubstr("seed 1, step 3;"));
    EXPECT_THAT(outcome.failure, HasSubstr("    open the panel\n    drag row \"route\" above \"lamp\""));
}

TEST(WalkGuiTest, AWalkThatTakesTooLongIsEnded)
{
    WalkPlan plan = planFor(VORTAN_BUNDLE);
    plan.steps = 200;
    plan.limit = std::chrono::seconds(2);
    const WalkOutcome outcome = TakeWalk(plan);
    EXPECT_THAT(outcome.failure, HasSubstr("the walk does not end in time"));
    EXPECT_LT(outcome.stepsDone, 200);
}

TEST(WalkGuiTest, WhatIsNoBundleIsSaid)
{
    const WalkOutcome outcome = TakeWalk(planFor(__FILE__));
    EXPECT_EQ(outcome.stepsDone, 0);
    EXPECT_NE(outcome.failure, "");
}
} // namespace
} // namespace standin
