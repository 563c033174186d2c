// What the user does in the tree goes to the layer, unless the layer changed too.

#include "tests/panel/PanelTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FromTree : public PanelTest
{
protected:
    FromTree()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }

    std::string Mismatch(const std::string& treeNames) const
    {
        std::string text = "Hash Mismatch\nLayer Item - A\nLayer Item - B\nLayer Item - C\n";
        for (const char name : treeNames)
            text += name == ' ' ? "" : std::string("Tree Item - ") + name + "\n";
        return text;
    }

    std::string NamesOnLayer()
    {
        std::string names;
        for (const EffectInstance& effect : host.State().FindLayer(bench.on.layerId)->effects)
            names += (names.empty() ? "" : " ") + host.NameOf(effect.label);
        return names;
    }
};

// ---- One edit, two passes

TEST_F(FromTree, ARenameTakesOnePassAndIsConfirmed)
{
    bench.TreeItem("B").name = "X";
    EXPECT_EQ(bench.Pass().printed, Mismatch("A X C"));
    EXPECT_EQ(NamesOnLayer(), "A X C");

    const PassRecord second = bench.Pass();
    EXPECT_EQ(second.printed, "State Changed\n");
    EXPECT_THAT(second.calls, ::testing::Contains("Tree RefreshTree([A X C])"));
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect(s)"));
}

TEST_F(FromTree, AReorderTakesOnePassAndIsConfirmed)
{
    bench.MoveInTree("C", 0);
    EXPECT_EQ(bench.Pass().printed, Mismatch("C A B"));
    EXPECT_EQ(StackText(), "C A B");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Reorder Effect(s)"));
}

TEST_F(FromTree, AGroupTakesOnePassAndIsConfirmed)
{
    bench.TreeItem("B").group = 2;
    EXPECT_EQ(bench.Pass().printed, Mismatch("A B C") + "Setting Group: B\n");
    EXPECT_EQ(host.Effect("B").family.group, 2);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(FromTree, ASwitchTakesOnePassAndIsConfirmed)
{
    bench.TreeItem("B").active = 0;
    EXPECT_EQ(bench.Pass().printed, Mismatch("A B C"));
    EXPECT_EQ(host.Effect("B").flags & effectActive, 0);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(FromTree, AnUndoOfTheEditReachesTheTree)
{
    bench.TreeItem("B").name = "X";
    bench.Settle();
    host.Undo();
    bench.Settle();
    EXPECT_EQ(bench.TreeText(), "A B C");
    EXPECT_EQ(NamesOnLayer(), "A B C");
}

TEST_F(FromTree, TheSelectionSurvivesTheConfirmingRebuild)
{
    bench.SelectInTree({"C"});
    bench.Settle();
    bench.TreeItem("B").name = "X";
    bench.Settle();
    EXPECT_THAT(bench.Tree()->selectedUuids, ElementsAre(c.uuid));
    EXPECT_FALSE(host.Effect("C").groupHidden);
    EXPECT_TRUE(host.Effect("A").groupHidden);
}

// ---- Adds and deletes

Calls writesOf(const Calls& calls)
{
    Calls writes;
    for (const std::string& call : calls)
    {
        for (const char* word :
             {"Tree Get", "ApplyEffect", "ReorderEffect", "DeleteLayerEffect", "UndoGroup"})
        {
            if (call.find(word) != std::string::npos)
                writes.push_back(call);
        }
    }
    return writes;
}

TEST_F(FromTree, AddsComeFirstThenDeletesThenTheReading)
{
    const int rays = bench.on.Key("QVK VORTREN Rays");
    const int panes = bench.on.Key("QVK VORTREN Panes");
    bench.Tree()->keysToBeAdded = {rays, panes};
    bench.DeleteInTree("B");
    const PassRecord pass = bench.Pass();
    const Calls writes = writesOf(pass.calls);
    const std::string raysKey = std::to_string(rays);
    const std::string panesKey = std::to_string(panes);
    EXPECT_THAT(Calls(writes.begin(), writes.begin() + 11),
                ElementsAre("Tree GetKeysToBeAddedToLayer(tree)",
                            "Effect 1 AEGP_ApplyEffect(id 8, layer 1, " + raysKey + ") -> effect e4",
                            "Effect 1 AEGP_ReorderEffect(effect e4, 3)",
                            "Effect 1 AEGP_ApplyEffect(id 8, layer 1, " + panesKey + ") -> effect e5",
                            "Effect 1 AEGP_ReorderEffect(effect e5, 4)", "Tree GetEffectsToBeRemoved(tree)",
                            "Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")",
                            "Effect 3 AEGP_ReorderEffect(effect B, 0)",
                            "Effect 3 AEGP_DeleteLayerEffect(effect B)", "Utility 3 AEGP_EndUndoGroup()",
                            "Tree GetItemsFromTree(tree)"));
    EXPECT_EQ(pass.printed, "State Changed\n") << "the reading saw both, so the layer's side won";
    EXPECT_EQ(bench.TreeText(), "A C Vortan Rays Renderer Vortan Panes Renderer");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(FromTree, AnAddShowsInTheSamePass)
{
    bench.Tree()->keysToBeAdded = {bench.on.Key("QVK VORTSRC Solids")};
    (void)bench.Pass();
    EXPECT_EQ(bench.TreeText(), "A Vortan Solids Object B C");
    EXPECT_EQ(StackText(), "A e4 B C");
}

TEST_F(FromTree, ADeleteIsOneUndoStep)
{
    bench.DeleteInTree("A");
    bench.DeleteInTree("C");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(StackText(), "B");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Delete Effect(s)"));
    host.Undo();
    bench.Settle();
    EXPECT_EQ(bench.TreeText(), "A B C");
}

TEST_F(FromTree, ARefusedAddIsDroppedSilently)
{
    bench.Tree()->keysToBeAdded = {bench.on.Key("QVK VORTSRC Solids")};
    host.Faults().FailFunction("AEGP_ApplyEffect");
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_THAT(bench.Tree()->keysToBeAdded, IsEmpty());
    EXPECT_EQ(StackText(), "A B C");
}

// ---- Both sides

TEST_F(FromTree, AnEditIsDiscardedIfTheLayerChanged)
{
    bench.TreeItem("B").name = "X";
    host.User().Rename("A", "A2");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A2 B C");
    EXPECT_EQ(NamesOnLayer(), "A2 B C");
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect"));
}

TEST_F(FromTree, ARenameIsDiscardedAfterADelete)
{
    bench.DeleteInTree("A");
    bench.TreeItem("B").name = "X";
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "B C");
    EXPECT_EQ(NamesOnLayer(), "B C");
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Delete Effect(s)"));
}

TEST_F(FromTree, TheSameChangeTwiceIsNoMismatch)
{
    bench.TreeItem("B").name = "X";
    host.User().Rename("B", "X");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "");
}

// ---- Refused edits

TEST_F(FromTree, ARefusedEditStaysUntilEitherSideChanges)
{
    host.Expect(finding::undoGroupLeftOpen, "AEGP_StartUndoGroup", "a failed rename leaves its group open");
    host.Expect(finding::nestedUndoGroup, "AEGP_StartUndoGroup", "the order's group is opened inside it");
    host.Faults().FailFunction("AEGP_SetStreamName");
    bench.TreeItem("B").name = "X";
    EXPECT_EQ(bench.Pass().printed, Mismatch("A X C"));
    EXPECT_EQ(NamesOnLayer(), "A B C");
    for (int pass = 0; pass < 3; ++pass)
    {
        EXPECT_EQ(bench.Pass().printed, "") << "nothing changed on the layer, and nothing tries again";
        EXPECT_EQ(bench.TreeText(), "A X C");
    }
    host.User().SetActive("C", Switch::off);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A B C");
}

TEST_F(FromTree, ARefusedEditIsRetriedWithTheNext)
{
    host.Expect(finding::undoGroupLeftOpen, "AEGP_StartUndoGroup", "a failed rename leaves its group open");
    host.Expect(finding::nestedUndoGroup, "AEGP_StartUndoGroup", "the order's group is opened inside it");
    host.Faults().FailFunction("AEGP_SetStreamName");
    bench.TreeItem("B").name = "X";
    (void)bench.Pass();
    bench.TreeItem("C").active = 0;
    EXPECT_EQ(bench.Pass().printed, Mismatch("A X C"));
    EXPECT_EQ(NamesOnLayer(), "A X C");
    EXPECT_EQ(host.Effect("C").flags & effectActive, 0);
}

TEST_F(FromTree, APartlyRefusedEditIsCorrectedNextPass)
{
    host.Expect(finding::undoGroupLeftOpen, "AEGP_StartUndoGroup", "a failed rename leaves its group open");
    host.Expect(finding::nestedUndoGroup, "AEGP_StartUndoGroup", "the order's group is opened inside it");
    host.Faults().FailFunction("AEGP_SetStreamName");
    bench.TreeItem("B").name = "X";
    bench.TreeItem("C").active = 0;
    EXPECT_EQ(bench.Pass().printed, Mismatch("A X C"));
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A B C") << "the name was refused";
    EXPECT_EQ(bench.TreeItem("C").active, 0) << "the switch went through";
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(FromTree, ARigidObjectStaysInItsRefusedGroup)
{
    host.Effect("B").family.rigidity = Rigidity::rigid;
    bench.Settle();
    bench.TreeItem("B").group = 2;
    EXPECT_EQ(bench.Pass().printed, Mismatch("A B C") + "Setting Group: B\n");
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_EQ(bench.TreeItem("B").group, 2);
}

// ---- The tree's state

TEST_F(FromTree, AChangeOfSelectionReachesTheLayerOnce)
{
    bench.SelectInTree({"A", "C"});
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_FALSE(host.Effect("A").groupHidden);
    EXPECT_TRUE(host.Effect("B").groupHidden);
    EXPECT_FALSE(host.Effect("C").groupHidden);
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_THAT(host.UndoNames(), IsEmpty());
}

TEST_F(FromTree, AChangeOfOpennessPushesTheSelectionAgain)
{
    bench.Tree()->openness = "all closed";
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.plugin->stateTable->states.at(1), "open:all closed\n");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(FromTree, AnEditAndASelectionTakeOnePass)
{
    bench.TreeItem("B").name = "X";
    bench.SelectInTree({"X"});
    EXPECT_EQ(bench.Pass().printed, Mismatch("A X C") + "State Changed\n");
    EXPECT_EQ(NamesOnLayer(), "A X C");
    EXPECT_FALSE(host.Effect("B").groupHidden);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_THAT(bench.Tree()->selectedUuids, ElementsAre(b.uuid));
    EXPECT_EQ(bench.Pass().printed, "");
}
} // namespace
} // namespace standin
