// Which items of the two lists are compared with each other, and the order of the four steps.

#include "standin/family/Liars.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using LayerEffectChangesPartners = StackTest;

/// Differs from its effect in all that can be changed.
void changeAll(ObjectItem& item, const std::string& name)
{
    item.name = name;
    item.group = 3;
    item.active = 0;
}

/// The calls of one pass over a stack that nothing but the order's own moves touches.
std::string onlyInPlace(StackScene& stack, const std::string& labels)
{
    std::string text =
        ReadIdentities(stack, labels) + "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n";
    int index = 0;
    for (const std::string& label : Words(labels))
    {
        text += MoveEffect(label, index, index);
        ++index;
    }
    return text + "Utility 3 AEGP_EndUndoGroup()\n";
}

TEST_F(LayerEffectChangesPartners, AnItemIsNamedGroupedSwitchedMoved)
{
    StackScene& stack = Make("A B");
    Items tree = stack.Tree("B A");
    changeAll(ItemNamed(tree, "B"), "Front");
    const std::string reading = ReadIdentities(stack, "A B");
    std::string expected = reading + RenameEffect("B", 1, "Front") + reading + TellGroup(stack, "A B", 1, 3) +
                           reading + SwitchEffect("B", 1, 0);

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "Setting Group: Front\n");

    expected += ReadIdentities(stack, "A B") + "Utility 3 AEGP_StartUndoGroup(\"\")\n" +
                MoveEffect("B", 1, 0) + MoveEffect("A", 1, 1) + "Utility 3 AEGP_EndUndoGroup()\n";
    EXPECT_EQ(stack.Calls(), expected);
    EXPECT_EQ(stack.Report(), "B: Front, group 3, off\nA: A, group 0, on\n");
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][Change Group][Switch Effect Off][]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
}

TEST_F(LayerEffectChangesPartners, EachStepCoversTheWholeListFirst)
{
    StackScene& stack = Make("A B");
    Items tree = stack.Tree("A B");
    changeAll(tree[0], "One");
    changeAll(tree[1], "Two");

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "Setting Group: One\nSetting Group: Two\n");

    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][Rename Effect(s)][Change Group][Change Group]"
                             "[Switch Effect Off][Switch Effect Off]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesPartners, AZeroIdentityHasNoPartner)
{
    StackScene& stack = Make("Z A");
    Items tree = stack.Tree("0 A");
    changeAll(tree[0], "Front");

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "");

    EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "Z A") +
                                 "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n" +
                                 MoveEffect("A", 1, 1) + "Utility 3 AEGP_EndUndoGroup()\n");
    EXPECT_EQ(stack.Report(), "Z: Z, group 0, on\nA: A, group 0, on\n");
}

TEST_F(LayerEffectChangesPartners, AnUnknownIdentityHasNoPartner)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A ?");
    changeAll(tree[1], "Front");

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(tree); }), "");

    EXPECT_EQ(stack.Calls(), onlyInPlace(stack, "A"));
}

TEST_F(LayerEffectChangesPartners, AnIdentityOutsideTheListHasNoPartner)
{
    StackScene& stack = Make("A B");
    Items layerItems = stack.LayerItems();
    layerItems.pop_back();
    Items tree = stack.Tree("A B");
    changeAll(tree[1], "Front");

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(layerItems, tree); }), "");

    EXPECT_EQ(stack.Calls(), onlyInPlace(stack, "A B"));
}

TEST_F(LayerEffectChangesPartners, IdentitiesAreComparedByLengthAndBytes)
{
    StackScene& stack = Make("A");
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    const Items layerItems = stack.LayerItems();
    const std::string uuid = layerItems[0].uuid;
    ASSERT_EQ(uuid, "01010101-0101-0101-0101-010100000001");
    for (const std::string& other :
         {uuid + " ", uuid.substr(0, 35), std::string(), std::string("01010101-0101-0101-0101-010100000002"),
          uuid + std::string(1, '\0')})
    {
        Items tree = layerItems;
        tree[0].uuid = other;
        changeAll(tree[0], "Front");

        EXPECT_EQ(OutputOf([&] { (void)stack.Change(layerItems, tree); }), "");

        EXPECT_EQ(stack.Calls(), ReadIdentities(stack, "A") +
                                     "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n"
                                     "Utility 3 AEGP_EndUndoGroup()\n")
            << other;
    }
}

TEST_F(LayerEffectChangesPartners, AnIdentityInCapitalsIsAnother)
{
    StackScene& stack = Make("A");
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    stack.host.Effect("A").family.uuid = IdentityOf(0xAB);
    const Items layerItems = stack.LayerItems();
    Items tree = layerItems;
    tree[0].uuid = "ABABABAB-ABAB-ABAB-ABAB-ABABABABABAB";
    tree[0].name = "Front";

    (void)stack.Change(layerItems, tree);

    EXPECT_EQ(stack.host.NameOf("A"), "A");
}

TEST_F(LayerEffectChangesPartners, OfLayerTwinsTheFirstIsThePartner)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("B").family.uuid = stack.host.Effect("A").family.uuid;
    const Items layerItems = stack.LayerItems();
    Items tree = {layerItems[1]}; // Named B, as the second; the first of this identity is named A.

    (void)stack.Change(layerItems, tree);

    EXPECT_EQ(stack.Report(), "A: B, group 0, on\nB: B, group 0, on\n")
        << "the search takes the first effect";
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)]");
}

TEST_F(LayerEffectChangesPartners, AgreementWithTheFirstTwinIsAgreement)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("B").family.uuid = stack.host.Effect("A").family.uuid;
    stack.host.Effect("B").family.group = 4;
    stack.host.Effect("B").flags = 0;
    const Items layerItems = stack.LayerItems();

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(layerItems, {layerItems[0]}); }), "");

    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 4, off\n");
    EXPECT_EQ(stack.Steps(), "");
}

TEST_F(LayerEffectChangesPartners, OfEffectTwinsTheFirstIsChanged)
{
    StackScene& stack = Make("A B");
    stack.host.Effect("B").family.uuid = stack.host.Effect("A").family.uuid;
    const Items layerItems = stack.LayerItems();
    Items tree = {layerItems[0]};
    changeAll(tree[0], "Front");

    (void)OutputOf([&] { (void)stack.Change(layerItems, tree); });

    EXPECT_EQ(stack.Report(), "A: Front, group 3, off\nB: B, group 0, on\n");
}

TEST_F(LayerEffectChangesPartners, TreeTwinsAreCarriedOutInTurn)
{
    StackScene& stack = Make("A");
    Items tree = stack.Tree("A A");
    tree[0].name = "One";
    tree[1].name = "Two";
    stack.host.Expect("index-out-of-range", "AEGP_ReorderEffect", "the second item aims behind the stack");

    (void)stack.Change(tree);

    EXPECT_EQ(stack.host.NameOf("A"), "Two");
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][Rename Effect(s)]");
}

TEST_F(LayerEffectChangesPartners, TheMatchNameIsNotCompared)
{
    StackScene& stack = Make("A B");
    const Items layerItems = stack.LayerItems();
    ASSERT_EQ(layerItems[0].tag, "QVK VORTSRC Routes");

    (void)stack.Change(layerItems, stack.Tree("A B"));

    EXPECT_EQ(stack.Calls(), onlyInPlace(stack, "A B"));
}

TEST_F(LayerEffectChangesPartners, TheLayersListServesForComparingAlone)
{
    // The list says that B is already named Front; the tree agrees with the list, so nobody is renamed.
    StackScene& stack = Make("A B");
    Items layerItems = stack.LayerItems();
    changeAll(layerItems[1], "Front");
    Items tree = stack.Tree("A B");
    changeAll(tree[1], "Front");

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(layerItems, tree); }), "");

    EXPECT_EQ(stack.Calls(), onlyInPlace(stack, "A B"));
}

TEST_F(LayerEffectChangesPartners, AnEffectHidingItsIdentityCountsAsGone)
{
    StackScene& stack = Make("A B");
    const Items layerItems = stack.LayerItems();
    Items tree = stack.Tree("A B");
    changeAll(tree[1], "Front");
    stack.host.Effect("B").behaviour = FailsWith(errGeneric);

    EXPECT_EQ(OutputOf([&] { (void)stack.Change(layerItems, tree); }), "Setting Group: Front\n");

    EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
    EXPECT_EQ(stack.Steps(), "");
}
} // namespace
} // namespace standin
