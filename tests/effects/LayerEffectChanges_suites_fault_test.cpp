// A suite that is missing, from the start or from the middle on, sends the integer 516 to the host. What was
// done stays done, what was taken is given back as far as it can be.

#include "effects/LayerEffectChanges.h"
#include "standin/family/Liars.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
struct MissingSuite
{
    const char* name;
    A_long version; ///< 0 for all versions.
    const char* nameOfA;
    std::vector<std::string> found;
};

const char* const left = "exception-left-hook ";
const char* const open = "undo-group-left-open AEGP_StartUndoGroup";

/// Each suite that a rename needs, in the order of first use.
const std::vector<MissingSuite> missingInRename = {
    {"AEGP Effect Suite", 1, "A", {left}},
    {"AEGP Layer Suite", 5, "A", {left}},
    {"AEGP Effect Suite", 3, "A", {left, "leaked-reference AEGP_GetLayerEffectByIndex"}},
    {"AEGP Utility Suite", 3, "A", {left}},
    {"AEGP Stream Suite", 4, "A", {left, open}},
    {"AEGP Dynamic Stream Suite", 2, "A", {left, open}},
    {"AEGP Stream Suite",
     7,
     "Front",
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
        SCOPED_TRACE(std::string(missing.name) + " " + std::to_string(missing.version));
        StackScene stack("A");
        Items tree = stack.Tree("A");
        tree[0].name = "Front";
        stack.host.Faults().Withhold(missing.name, missing.version, GetParam());

        const HookResult result = stack.Change(tree);

        EXPECT_EQ(result.thrownNumber, 516);
        EXPECT_EQ(stack.host.NameOf("A"), missing.nameOfA);
        EXPECT_EQ(stack.Found(), missing.found) << stack.CallsWithSuites();
    }
}

TEST_P(LayerEffectChangesMissingSuite, ThrowsThroughTheOtherSteps)
{
    for (const char* edit : {"group", "active", "order"})
    {
        for (const MissingSuite& missing : missingInRename)
        {
            const std::string name = missing.name;
            const bool isNeeded = name == "AEGP Effect Suite" || name == "AEGP Layer Suite" ||
                                  (name == "AEGP Utility Suite" && edit == std::string("order"));
            if (!isNeeded)
                continue;
            SCOPED_TRACE(edit + (" " + name) + " " + std::to_string(missing.version));
            StackScene stack("A B");
            Items tree = stack.Tree("B A");
            if (edit == std::string("group"))
                tree[0].group = 2;
            else if (edit == std::string("active"))
                tree[0].active = 0;
            stack.host.Faults().Withhold(name, missing.version, GetParam());

            HookResult result;
            (void)OutputOf([&] { result = stack.Change(tree); });

            EXPECT_EQ(result.thrownNumber, 516);
            EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
            EXPECT_EQ(stack.Found(), missing.found) << stack.CallsWithSuites();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EachRefusal, LayerEffectChangesMissingSuite,
                         ::testing::Values(Withheld::asError, Withheld::asNullTable,
                                           Withheld::asPoisonedPointer));

TEST(LayerEffectChangesMissingSuites, BothMissingLeakTheParameterStream)
{
    StackScene stack("A");
    Items tree = stack.Tree("A");
    tree[0].name = "Front";
    stack.host.Faults().Withhold("AEGP Dynamic Stream Suite", 2);
    stack.host.Faults().Withhold("AEGP Stream Suite", 7);

    EXPECT_EQ(stack.Change(tree).thrownNumber, 516);

    EXPECT_EQ(stack.Found(), (std::vector<std::string>{
                                 "dispose-order AEGP_DisposeEffect",
                                 left,
                                 "leaked-reference AEGP_GetNewEffectStreamByIndex",
                                 open,
                             }));
    EXPECT_EQ(stack.host.CallTexts(SuiteTraffic::leftOut).back(), "Effect 1 AEGP_DisposeEffect(effect A)")
        << "the effect is given back all the same, and last";
}

TEST(LayerEffectChangesMissingSuites, ANullBasicSuiteIsUnusedWithoutLayer)
{
    StackScene stack("A B");
    Items tree = stack.Tree("B A");
    ItemNamed(tree, "A").name = "One"; // Neither a rename nor the order asks for suites without a layer.
    const Items layerItems = stack.LayerItems();
    stack.host.ClearTrace();

    const HookResult result =
        stack.host.RunInHook([&] { LayerEffectChanges(stack.Id(), nullptr, nullptr, layerItems, tree); });

    EXPECT_EQ(result.thrown, "");
    EXPECT_EQ(stack.CallsWithSuites(), "");
    EXPECT_EQ(stack.host.FindingsReport(), "");
}

TEST(LayerEffectChangesMissingSuites, ANullBasicSuiteThrowsBeforeAnyCall)
{
    StackScene stack("A");
    for (const char* edit : {"name", "group", "active", "order"})
    {
        SCOPED_TRACE(edit);
        Items tree = stack.Tree("A");
        const Items layerItems = stack.LayerItems();
        if (edit == std::string("name"))
            tree[0].name = "Front";
        else if (edit == std::string("group"))
            tree[0].group = 2;
        else if (edit == std::string("active"))
            tree[0].active = 0;
        stack.host.ClearTrace();

        const AEGP_LayerH layer = stack.Layer();
        HookResult result;
        (void)OutputOf(
            [&]
            {
                result = stack.host.RunInHook(
                    [&] { LayerEffectChanges(stack.Id(), nullptr, layer, layerItems, tree); });
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
        StackScene stack("A B");
        stack.host.Effect("A").behaviour =
            ActsInMessage([&](Host& host) { host.Faults().Withhold(suite); }, 2);
        Items tree = stack.Tree("B A");
        tree[0].name = "One";
        tree[1].name = "Two";

        EXPECT_EQ(stack.Change(tree).thrownNumber, 516);

        EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: One, group 0, on\n")
            << "neither the second rename nor the order";
        EXPECT_EQ(stack.Steps(), "[Rename Effect(s)]");
        EXPECT_EQ(stack.Found(), (std::vector<std::string>{left, open}));
        EXPECT_TRUE(stack.UndoBringsBackTheStart());
    }
}

TEST(LayerEffectChangesMissingSuites, LostBeforeTheOrderKeepsOtherChanges)
{
    StackScene stack("A B");
    stack.host.Effect("A").behaviour =
        ActsInMessage([](Host& host) { host.Faults().Withhold("AEGP Utility Suite"); }, 4);
    Items tree = stack.Tree("B A");
    ItemNamed(tree, "A").group = 4;
    ItemNamed(tree, "A").active = 0;

    HookResult result;
    EXPECT_EQ(OutputOf([&] { result = stack.Change(tree); }), "Setting Group: A\n");

    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_EQ(stack.Report(), "A: A, group 4, off\nB: B, group 0, on\n");
    EXPECT_EQ(stack.Found(), std::vector<std::string>{left});
}
} // namespace
} // namespace standin
