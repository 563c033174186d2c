// A cleared tree stays empty while the layer is unchanged, unless the panel's own command restores
// it: the pass never forgets its hashes on a clear. That is kept on purpose.

#include "tests/panel/PanelTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* emptyTreeMismatch = "Hash Mismatch\nLayer Item - A\nLayer Item - B\nLayer Item - C\n";

class ClearedTree : public PanelTest
{
protected:
    ClearedTree()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }

    /// The calls of a pass that finds the tree empty and the layer as it was.
    Calls PassOverEmptyTree() const
    {
        return Sequence({PassHead(),
                         NoAddsAndDeletes(),
                         three.Read(),
                         {"Tree GetItemsFromTree(tree)"},
                         three.Read(),
                         {"Tree GetItemsFromTree(tree)"},
                         three.ReadIdentities(),
                         {"Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")",
                          "Utility 3 AEGP_EndUndoGroup()", "Tree DidLayerStateChange(1)"}});
    }
};

TEST_F(ClearedTree, StaysEmptyForAnItemThatComesBack)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    host.User().OpenComposition(0);
    (void)bench.Pass();
    host.User().OpenComposition(bench.on.compId);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, PassOverEmptyTree());
    EXPECT_EQ(pass.printed, emptyTreeMismatch);
    EXPECT_EQ(StackText(), "A B C");
    EXPECT_THAT(host.UndoNames(), IsEmpty());
    EXPECT_EQ(bench.plugin->treeHash, 1u) << "the bare id of the layer";
    for (int later = 0; later < 3; ++later)
    {
        EXPECT_EQ(bench.Pass().calls, Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), QuietTree()}));
        EXPECT_EQ(bench.TreeText(), "");
    }
}

TEST_F(ClearedTree, StaysEmptyIfThePanelIsShownOtherwise)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.Hide();
    (void)bench.Pass();
    bench.Show();
    const PassRecord pass = bench.Pass();
    // The state that is cached for the layer is that of a full tree, so the empty selection is pushed once.
    EXPECT_EQ(pass.calls, Sequence({PassOverEmptyTree(), SelectionPush(three, {})}));
    EXPECT_EQ(pass.printed, std::string(emptyTreeMismatch) + "State Changed\n");
    EXPECT_EQ(StackText(), "A B C");
    for (int later = 0; later < 3; ++later)
    {
        EXPECT_EQ(bench.Pass().printed, "");
        EXPECT_EQ(bench.TreeText(), "");
    }
}

TEST_F(ClearedTree, IsFilledAgainWhenTheLayerNextChanges)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.Hide();
    (void)bench.Pass();
    bench.Show();
    (void)bench.Pass();
    host.User().Rename("B", "X");
    (void)bench.Pass();
    EXPECT_EQ(bench.TreeText(), "A X C");
}

TEST_F(ClearedTree, IsFilledAgainByARefreshRequest)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    host.User().OpenComposition(0);
    (void)bench.Pass();
    host.User().OpenComposition(bench.on.compId);
    (void)bench.Pass();
    RefreshPanel(&bench.Inbox());
    (void)bench.Pass();
    EXPECT_EQ(bench.TreeText(), "A B C");
}

TEST_F(ClearedTree, IsFilledAgainByTheMenuEntry)
{
    ASSERT_TRUE(bench.Choose());
    bench.Settle();
    EXPECT_FALSE(bench.Tree()->hasRoot);
    ASSERT_TRUE(bench.Choose());
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A B C");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(ClearedTree, AnEmptyLayerShownAgainIsNoMismatch)
{
    for (const char* label : {"A", "B", "C"})
        host.User().Delete(label);
    bench.Settle();
    bench.Hide();
    (void)bench.Pass();
    bench.Show();
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(ClearedTree, ARecreatedPanelDoesNotResetTheHashes)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    host.Options().closedPanel = ClosedPanel::destroysView;
    const std::uint64_t layerHash = bench.plugin->layerHash;
    bench.Hide();
    (void)bench.Pass();
    bench.Show();
    EXPECT_EQ(bench.plugin->layerHash, layerHash);
    EXPECT_EQ(bench.Pass().printed, emptyTreeMismatch) << "the new state table has no state for the layer";
    EXPECT_EQ(bench.TreeText(), "");
}

TEST_F(ClearedTree, APanelInTheBackgroundKeepsItsTree)
{
    bench.Cover();
    (void)bench.Pass();
    bench.Show();
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_EQ(bench.TreeText(), "A B C");
}

TEST_F(ClearedTree, AnEditInTheBackgroundWaits)
{
    bench.Cover();
    bench.TreeItem("B").name = "X";
    (void)bench.Pass();
    EXPECT_EQ(host.NameOf("B"), "B");
    bench.Show();
    (void)bench.Pass();
    EXPECT_EQ(host.NameOf("B"), "X");
}

// ---- Effects from outside the family

/// An outside effect has no counterpart in the tree, so a layer that holds one never equals its tree, and the
/// first pass that compares the two lets the outside effects sink below the family's. Kept.
class OutsideEffects : public PanelTest
{
};

TEST_F(OutsideEffects, AboveTheFamilySinkAtTheFirstShowing)
{
    bench.Add("ADBE Fill", "X");
    bench.AddThree();
    bench.Show();
    EXPECT_EQ(bench.Pass().printed, "Hash Mismatch\n"
                                    "Layer Item - X\nLayer Item - A\nLayer Item - B\nLayer Item - C\n"
                                    "Tree Item - A\nTree Item - B\nTree Item - C\n"
                                    "State Changed\n");
    EXPECT_EQ(StackText(), "A B C X");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Reorder Effect(s)"));
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(OutsideEffects, BelowTheFamilyMismatchAndMoveNothing)
{
    bench.AddThree();
    bench.Add("ADBE Fill", "X");
    bench.Show();
    EXPECT_EQ(bench.Pass().printed, "Hash Mismatch\n"
                                    "Layer Item - A\nLayer Item - B\nLayer Item - C\nLayer Item - X\n"
                                    "Tree Item - A\nTree Item - B\nTree Item - C\n"
                                    "State Changed\n");
    EXPECT_EQ(StackText(), "A B C X");
    EXPECT_THAT(host.UndoNames(), IsEmpty());
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(OutsideEffects, AloneOnALayerMismatchOnce)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.Add("ADBE Fill", "X");
    bench.Show();
    EXPECT_EQ(bench.Pass().printed, "Hash Mismatch\nLayer Item - X\nState Changed\n");
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_TRUE(bench.Tree()->hasRoot);
    EXPECT_THAT(bench.Tree()->objects, IsEmpty());
}

TEST_F(OutsideEffects, SinkAgainOnlyWithTheNextComparison)
{
    bench.Add("ADBE Fill", "X");
    bench.AddThree();
    bench.ShowAndSettle();
    host.Undo();
    EXPECT_EQ(StackText(), "X A B C");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n") << "the tree hashes as before, so nothing is compared";
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_EQ(StackText(), "X A B C");
    bench.TreeItem("B").active = 0;
    bench.Settle();
    EXPECT_EQ(StackText(), "A B C X");
}
} // namespace
} // namespace standin
