// A name that differs in the tree is given to the effect's own stream group on the layer.

#include "standin/host/family/Liars.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesNames = StackTest;

TEST_F(LayerEffectChangesNames, ADifferentNameIsOneStreamUndoStep)
{
    const TracedStack traced = Make("A B").Traced();
    ExpectChange("A B=Front",
                 traced.AfterReading(
                     {{"Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\")",
                       "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                       "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 1) -> stream B.1",
                       "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream B.1) -> stream B",
                       "DynamicStream 2 AEGP_SetStreamName(stream B, \"Front\")",
                       "Utility 3 AEGP_EndUndoGroup()", "Stream 7 AEGP_DisposeStream(stream B.1)",
                       "Stream 7 AEGP_DisposeStream(stream B)", "Effect 1 AEGP_DisposeEffect(effect B)"},
                      traced.OrderInPlace("")}),
                 "A B=Front", "[Rename Effect(s)]");
}

TEST_F(LayerEffectChangesNames, ARenameHoldsItsOwnSuites)
{
    (void)Make("A").ChangeTo("A=Front");

    EXPECT_EQ(scene->CallsWithSuites(),
              "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Basic AcquireSuite(\"AEGP Layer Suite\", 5)\n"
              "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Effect 1 AEGP_GetEffectFlags(effect A) -> 1\n"
              "Basic AcquireSuite(\"AEGP Effect Suite\", 3)\n"
              "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 5 uuid "
              "00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001\n"
              "Effect 3 AEGP_DisposeEffect(effect A)\n"
              "Basic AcquireSuite(\"AEGP Utility Suite\", 3)\n"
              "Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\")\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Basic AcquireSuite(\"AEGP Stream Suite\", 4)\n"
              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1\n"
              "Basic AcquireSuite(\"AEGP Dynamic Stream Suite\", 2)\n"
              "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A\n"
              "DynamicStream 2 AEGP_SetStreamName(stream A, \"Front\")\n"
              "Utility 3 AEGP_EndUndoGroup()\n"
              "Basic AcquireSuite(\"AEGP Stream Suite\", 7)\n"
              "Stream 7 AEGP_DisposeStream(stream A.1)\n"
              "Stream 7 AEGP_DisposeStream(stream A)\n"
              "Effect 1 AEGP_DisposeEffect(effect A)\n"
              "Basic ReleaseSuite(\"AEGP Dynamic Stream Suite\", 2)\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
              "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
              "Basic ReleaseSuite(\"AEGP Stream Suite\", 4)\n"
              "Basic ReleaseSuite(\"AEGP Stream Suite\", 7)\n"
              "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)\n"
              "Basic AcquireSuite(\"AEGP Effect Suite\", 1)\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Basic AcquireSuite(\"AEGP Layer Suite\", 5)\n"
              "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100\n"
              "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Effect 1 AEGP_GetEffectFlags(effect A) -> 1\n"
              "Basic AcquireSuite(\"AEGP Effect Suite\", 3)\n"
              "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 5 uuid "
              "00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001\n"
              "Effect 3 AEGP_DisposeEffect(effect A)\n"
              "Basic AcquireSuite(\"AEGP Utility Suite\", 3)\n"
              "Utility 3 AEGP_StartUndoGroup(\"\")\n"
              "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
              "Effect 1 AEGP_ReorderEffect(effect A, 0)\n"
              "Effect 1 AEGP_DisposeEffect(effect A)\n"
              "Utility 3 AEGP_EndUndoGroup()\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)\n"
              "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)\n"
              "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)\n"
              "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)\n");
}

TEST_F(LayerEffectChangesNames, TwoRenamesAreTwoStepsInTreeOrder)
{
    LabelledStack& stack = Make("A B C", EveryGroupShows());
    const TracedStack traced = stack.Traced();

    (void)stack.ChangeTo("C=tree A=layer B");

    ExpectCalls(traced.AfterReading(
        {traced.Rename("C", "tree"), traced.Rename("A", "layer"), traced.Order("", "C 2>0 A 1>1 B 2>2")}));
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][Rename Effect(s)][]");
    for (const char* undone : {"A=layer B C=tree", "A B C=tree", "A B C"})
    {
        EXPECT_TRUE(stack.host.Undo());
        EXPECT_EQ(stack.Text(), undone);
    }
}

TEST_F(LayerEffectChangesNames, RenameAndMoveAreNamedAndUnnamedSteps)
{
    const TracedStack traced = Make("A B").Traced();
    ExpectChange("B A=Front",
                 traced.AfterReading({traced.Rename("A", "Front"), traced.Order("", "B 1>0 A 1>1")}),
                 "B A=Front", "[Rename Effect(s)][]");
}

TEST_F(LayerEffectChangesNames, AnEmptyNameGoesToTheHost)
{
    const TracedStack traced = Make("A").Traced();
    ExpectChange("A=", traced.AfterReading({traced.Rename("A", ""), traced.OrderInPlace("")}),
                 "A=", "[Rename Effect(s)]");
}

TEST_F(LayerEffectChangesNames, AnEmptyNameCanBringBackTheDefault)
{
    HostOptions options;
    options.emptyName = EmptyName::resetsToDefault;
    (void)Make("A", options).ChangeTo("A=");
    EXPECT_EQ(scene->host.NameOf("A"), "Vortan Route Object");
    EXPECT_TRUE(scene->UndoBringsBackTheStart());
}

struct NameRow
{
    const char* test;
    std::string name;
    std::string onLayer;
};

void PrintTo(const NameRow& row, std::ostream* out) { *out << row.test; }

class LayerEffectChangesName : public StackTest, public ::testing::WithParamInterface<NameRow>
{
};

TEST_P(LayerEffectChangesName, OnTheLayer)
{
    LabelledStack& stack = Make("A");
    Items tree = stack.Tree("A");
    tree[0].name = GetParam().name;

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.NameOf("A"), GetParam().onLayer);
    EXPECT_EQ(stack.host.ViewLog(), ViewEvents());
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

const std::string notUtf8 = "caf\xE9 \xFF\xFE \xC3\x28 \x01\x7F";
const std::string longName(100000, 'x');

INSTANTIATE_TEST_SUITE_P(Names, LayerEffectChangesName,
                         ::testing::ValuesIn(std::vector<NameRow>{
                             {"NonUtf8BytesGoUnchanged", notUtf8, notUtf8},
                             {"AVeryLongNameGoesUncut", longName, longName},
                             {"ANameEndsAtItsFirstZeroByte", std::string("Fro\0nt", 6), "Fro"},
                             {"PercentSignsAreNoFormat", "100% %s %n", "100% %s %n"}}),
                         [](const auto& row) { return row.param.test; });

TEST_F(LayerEffectChangesNames, ARenameFindsTheEffectsPresentIndex)
{
    LabelledStack& stack = Make("A B C");
    const Items before = stack.LayerItems();
    const Items tree = stack.Tree("A=Front B C");
    stack.host.User().Reorder("A", 2);

    (void)stack.ChangeTo(before, tree);

    EXPECT_EQ(stack.Text(), "A=Front B C");
}

TEST_F(LayerEffectChangesNames, ReorderInsideAMessageRenamesAnotherEffect)
{
    LabelledStack& stack = Make("A B C");
    // The place of B is known by then, and is A's from here on.
    stack.host.Effect("C").behaviour = ActsInMessage([](Host& host) { host.User().Reorder("C", 0); });

    (void)stack.ChangeTo("A B=Shaker C");

    EXPECT_EQ(stack.host.NameOf("A"), "Shaker");
    EXPECT_EQ(stack.host.NameOf("B"), "B");
}

TEST_F(LayerEffectChangesNames, AnEffectThatLeftIsNotRenamed)
{
    LabelledStack& stack = Make("A B", EveryGroupShows());
    const Items before = stack.LayerItems();
    const Items tree = stack.Tree("A B=Front");
    stack.host.User().Delete("B");

    (void)stack.ChangeTo(before, tree);

    const TracedStack left = stack.Traced();
    ExpectCalls(left.AfterReading({{}, left.OrderInPlace("")}));
    EXPECT_EQ(stack.Steps(), "[Delete Effect][]") << "the difference was met, so the order has no name";
}

TEST_F(LayerEffectChangesNames, ANullLayerMakesNoHostCall)
{
    LabelledStack& stack = Make("A B");

    EXPECT_EQ(stack.ChangeOn(nullptr, stack.LayerItems(), stack.Tree("B A=Front")).thrown, "");

    EXPECT_EQ(stack.CallsWithSuites(), "");
    EXPECT_EQ(stack.Text(), "A B");
    EXPECT_EQ(stack.Steps(), "");
}
} // namespace
} // namespace standin
