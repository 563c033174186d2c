// A suite that is missing, from the start or from the middle on, sends the integer 516 to the host. What was
// done stays done, and what was taken is given back as far as possible.

#include "effects/LayerEffectChanges.h"
#include "standin/host/family/Liars.h"
#include "tests/effects/FaultOutcome.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using Texts = std::vector<std::string>;

const char* const left = "exception-left-hook ";
const char* const open = "undo-group-left-open AEGP_StartUndoGroup";

/// Each suite that a rename needs, in the order of first use.
const std::vector<MissingSuite> missingInRename = {
    {"AEGP Effect Suite", 1, {left}},
    {"AEGP Layer Suite", 5, {left}},
    {"AEGP Effect Suite", 3, {left, "leaked-reference AEGP_GetLayerEffectByIndex"}},
    {"AEGP Utility Suite", 3, {left}},
    {"AEGP Stream Suite", 4, {left, open}},
    {"AEGP Dynamic Stream Suite", 2, {left, open}},
    {"AEGP Stream Suite",
     7,
     {"dispose-order AEGP_DisposeEffect", left, "leaked-reference AEGP_GetNewEffectStreamByIndex",
      "leaked-reference AEGP_GetNewParentStreamRef"}},
};

class LayerEffectChangesMissingSuite : public ::testing::TestWithParam<Withheld>
{
};

TEST_P(LayerEffectChangesMissingSuite, ThrowsThroughARename)
{
    for (const MissingSuite& missing : missingInRename)
    {
        SCOPED_TRACE(missing.Text());
        LabelledStack stack("A");
        stack.host.Faults().Withhold(missing.name, missing.version, GetParam());

        EXPECT_EQ(stack.ChangeTo("A=Front").thrownNumber, 516);

        const bool isLast = missing.version == 7;
        EXPECT_EQ(stack.Text(), isLast ? "A=Front" : "A");
        EXPECT_EQ(stack.Found(), missing.found) << stack.CallsWithSuites();
    }
}

TEST_P(LayerEffectChangesMissingSuite, ThrowsThroughTheOtherSteps)
{
    for (const std::string tree : {"B@2 A", "B! A", "B A"})
    {
        for (std::size_t needed = 0; needed < (tree == "B A" ? 4 : 3); ++needed)
        {
            const MissingSuite& missing = missingInRename[needed];
            SCOPED_TRACE(tree + " without " + missing.Text());
            LabelledStack stack("A B");
            stack.host.Faults().Withhold(missing.name, missing.version, GetParam());

            EXPECT_EQ(stack.ChangeTo(tree).thrownNumber, 516);

            EXPECT_EQ(stack.Text(), "A B");
            EXPECT_EQ(stack.Found(), missing.found) << stack.CallsWithSuites();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EachRefusal, LayerEffectChangesMissingSuite,
                         ::testing::Values(Withheld::asError, Withheld::asNullTable,
                                           Withheld::asPoisonedPointer));

TEST(LayerEffectChangesMissingSuites, BothMissingLeakTheParameterStream)
{
    LabelledStack stack("A");
    stack.host.Faults().Withhold("AEGP Dynamic Stream Suite", 2);
    stack.host.Faults().Withhold("AEGP Stream Suite", 7);

    EXPECT_EQ(stack.ChangeTo("A=Front").thrownNumber, 516);

    EXPECT_EQ(stack.Found(), (Texts{"dispose-order AEGP_DisposeEffect", left,
                                    "leaked-reference AEGP_GetNewEffectStreamByIndex", open}));
    EXPECT_EQ(stack.CallList().back(), "Effect 1 AEGP_DisposeEffect(effect A)")
        << "the effect is given back all the same, and last";
}

TEST(LayerEffectChangesMissingSuites, ANullBasicSuiteIsUnusedWithoutLayer)
{
    LabelledStack stack("A B");
    // Neither a rename nor the order asks for suites without a layer.
    const Items tree = stack.Tree("B A=One");

    const HookResult result = stack.host.RunInHook(
        [&] { LayerEffectChanges(stack.Id(), nullptr, nullptr, stack.LayerItems(), tree); });

    EXPECT_EQ(result.thrown, "");
    EXPECT_EQ(stack.CallsWithSuites(), "");
    EXPECT_EQ(stack.host.FindingsReport(), "");
}

TEST(LayerEffectChangesMissingSuites, ANullBasicSuiteThrowsBeforeAnyCall)
{
    LabelledStack stack("A");
    for (const char* tree : {"A=Front", "A@2", "A!", "A"})
    {
        SCOPED_TRACE(tree);
        const Items treeItems = stack.Tree(tree);
        const AEGP_LayerH layer = stack.Layer();
        stack.host.ClearTrace();
        HookResult result;
        (void)OutputOf(
            [&]
            {
                result = stack.host.RunInHook(
                    [&] { LayerEffectChanges(stack.Id(), nullptr, layer, stack.LayerItems(), treeItems); });
            });

        EXPECT_EQ(result.thrownNumber, 516);
        EXPECT_EQ(stack.CallsWithSuites(), "");
    }
}

TEST(LayerEffectChangesMissingSuites, LostBetweenRenamesKeepsTheFirst)
{
    for (const char* suite : {"AEGP Stream Suite", "AEGP Dynamic Stream Suite"})
    {
        SCOPED_TRACE(suite);
        LabelledStack stack("A B");
        stack.host.Effect("A").behaviour =
            ActsInMessage([&](Host& host) { host.Faults().Withhold(suite); }, 2);

        EXPECT_EQ(stack.ChangeTo("B=One A=Two").thrownNumber, 516);

        EXPECT_EQ(stack.Text(), "A B=One") << "neither the second rename nor the order";
        EXPECT_EQ(stack.Steps(), "[Rename Effect(s)]");
        EXPECT_EQ(stack.Found(), (Texts{left, open}));
        EXPECT_TRUE(stack.UndoBringsBackTheStart());
    }
}

TEST(LayerEffectChangesMissingSuites, LostBeforeTheOrderKeepsOtherChanges)
{
    LabelledStack stack("A B");
    stack.host.Effect("A").behaviour =
        ActsInMessage([](Host& host) { host.Faults().Withhold("AEGP Utility Suite"); }, 4);

    EXPECT_EQ(stack.ChangeTo("B A@4!").thrownNumber, 516);

    EXPECT_EQ(stack.TakePrinted(), "Setting Group: A\n");
    EXPECT_EQ(stack.Text(), "A@4! B");
    EXPECT_EQ(stack.Found(), Texts{left});
}
} // namespace
} // namespace standin
