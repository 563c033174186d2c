// What a pass does, depending on whether the layer changed, whether the tree changed, and whether the two
// differ.

#include "tests/panel/PanelTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PassOutcome : public PanelTest
{
protected:
    PassOutcome()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }
};

// ---- The layer is unchanged

TEST_F(PassOutcome, NothingChangedSoNothingHappens)
{
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), QuietTree()}));
    EXPECT_EQ(pass.printed, "");
}

TEST_F(PassOutcome, AFailedBeginKeepsNoOtherPassOut)
{
    host.Expect(finding::exceptionLeftHook, "", "there is no basic suite to ask");
    SPBasicSuite* const basic = std::exchange(bench.Inbox().basicSuite, nullptr);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.result.thrownNumber, 516);
    bench.Inbox().basicSuite = basic;
    EXPECT_EQ(bench.Pass().calls, Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), QuietTree()}));
}

TEST_F(PassOutcome, AChangedTreeStatePushesTheSelection)
{
    bench.SelectInTree({"B"});
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), QuietTree(),
                                    SelectionPush(three, {1})}));
    EXPECT_EQ(pass.printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "") << "the new state is the cached one";
}

TEST_F(PassOutcome, AnEqualTouchedTreeIsAcceptedSilently)
{
    host.Faults().FailFunction("AEGP_SetStreamName");
    host.Expect(finding::undoGroupLeftOpen, "AEGP_StartUndoGroup", "a failed rename leaves its group open");
    host.Expect(finding::nestedUndoGroup, "AEGP_StartUndoGroup", "the order's group is opened inside it");
    bench.TreeItem("B").name = "X";
    (void)bench.Pass();
    const std::uint64_t refused = bench.plugin->treeHash;
    bench.TreeItem("X").name = "B";

    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(),
                                    NoAddsAndDeletes(),
                                    three.Read(),
                                    {"Tree GetItemsFromTree(tree)"},
                                    three.Read(),
                                    {"Tree GetItemsFromTree(tree)", "Tree DidLayerStateChange(1)"}}));
    EXPECT_EQ(pass.printed, "");
    EXPECT_NE(bench.plugin->treeHash, refused);
    EXPECT_EQ(bench.Pass().calls, Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), QuietTree()}));
}

TEST_F(PassOutcome, AnEditIsReportedAndCarriedOut)
{
    bench.TreeItem("B").name = "X";
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(),
                                    NoAddsAndDeletes(),
                                    three.Read(),
                                    {"Tree GetItemsFromTree(tree)"},
                                    three.Read(),
                                    {"Tree GetItemsFromTree(tree)"},
                                    RenameChange(three, 1, "X"),
                                    ReorderInPlace(three, ""),
                                    {"Tree DidLayerStateChange(1)"}}));
    EXPECT_EQ(pass.printed, "Hash Mismatch\n"
                            "Layer Item - A\nLayer Item - B\nLayer Item - C\n"
                            "Tree Item - A\nTree Item - X\nTree Item - C\n");
    EXPECT_EQ(host.NameOf("B"), "X");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect(s)"));
}

TEST_F(PassOutcome, AMismatchIsReportedBeforeTheChange)
{
    // The messages of the pass's two readings are 1 to 4; the fifth is the first of the change.
    std::string printed;
    bench.ActInMessage("A", 5, [&] { printed = bench.PrintedSoFar(); });
    bench.TreeItem("B").name = "X";
    (void)bench.Pass();
    EXPECT_EQ(printed, "Hash Mismatch\n"
                       "Layer Item - A\nLayer Item - B\nLayer Item - C\n"
                       "Tree Item - A\nTree Item - X\nTree Item - C\n");
}

// ---- The layer changed

TEST_F(PassOutcome, AForcedRefreshKeepsTheTreesHash)
{
    bench.Inbox().refreshPending = 1;
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), three.Read(),
                                    TreeRebuild("A B C"), QuietTree(), SelectionPush(three, {})}));
    EXPECT_EQ(pass.printed, "State Changed\n");
}

TEST_F(PassOutcome, AnOutsideEffectRebuildsWithoutChangingTheHash)
{
    bench.Add("ADBE Fill", "X");
    TracedStack rows = three;
    rows.effects.push_back(
        {"X", "00000000-0000-0000-0000-000000000000", "ADBE Fill", bench.on.Key("ADBE Fill"), -1});
    const std::uint64_t treeHash = bench.plugin->treeHash;

    const PassRecord pass = bench.Pass();
    const Calls head = Sequence(
        {PassHead(), NoAddsAndDeletes(), rows.Read(), rows.Read(), TreeRebuild("A B C X"), QuietTree()});
    ASSERT_GT(pass.calls.size(), head.size());
    EXPECT_EQ(Calls(pass.calls.begin(), pass.calls.begin() + static_cast<std::ptrdiff_t>(head.size())), head);
    EXPECT_EQ(pass.printed, "State Changed\n");
    EXPECT_EQ(bench.plugin->treeHash, treeHash);
    EXPECT_FALSE(host.Effect("X").groupHidden) << "an outside effect is never put out of sight";
}

TEST_F(PassOutcome, AChangedLayerRebuildsAndTakesItsHash)
{
    host.User().Rename("B", "B2");
    TracedStack rows = three;
    rows.effects[1].name = "B2";
    const std::uint64_t treeHash = bench.plugin->treeHash;

    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(),
                                    NoAddsAndDeletes(),
                                    rows.Read(),
                                    rows.Read(),
                                    TreeRebuild("A B2 C"),
                                    {"Tree GetItemsFromTree(tree)"},
                                    rows.Read(),
                                    {"Tree GetItemsFromTree(tree)", "Tree DidLayerStateChange(1)"},
                                    SelectionPush(rows, {})}));
    EXPECT_EQ(pass.printed, "State Changed\n");
    EXPECT_NE(bench.plugin->treeHash, treeHash);
    EXPECT_EQ(bench.Pass().calls, Sequence({PassHead(), NoAddsAndDeletes(), rows.Read(), QuietTree()}));
}

TEST_F(PassOutcome, AChangeBetweenReadingsIsUndone)
{
    // Five messages: two in each of the first two readings, then the first of the third.
    host.User().Rename("A", "A2");
    bench.ActInMessage("A", 5, [&] { host.Effect("B").customName = "moved"; });
    TracedStack rows = three;
    rows.effects[0].name = "A2";
    TracedStack moved = rows;
    moved.effects[1].name = "moved";

    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(),
                                    NoAddsAndDeletes(),
                                    rows.Read(),
                                    rows.Read(),
                                    TreeRebuild("A2 B C"),
                                    {"Tree GetItemsFromTree(tree)"},
                                    moved.Read(),
                                    {"Tree GetItemsFromTree(tree)"},
                                    RenameChange(moved, 1, "B"),
                                    ReorderInPlace(moved, ""),
                                    {"Tree DidLayerStateChange(1)"},
                                    SelectionPush(rows, {})}));
    EXPECT_EQ(pass.printed, "Hash Mismatch\n"
                            "Layer Item - A2\nLayer Item - moved\nLayer Item - C\n"
                            "Tree Item - A2\nTree Item - B\nTree Item - C\n"
                            "State Changed\n");
    EXPECT_EQ(host.NameOf("B"), "B");
    EXPECT_EQ(bench.Pass().calls, Sequence({PassHead(), NoAddsAndDeletes(), rows.Read(), QuietTree()}));
}

TEST_F(PassOutcome, TheStoredHashIsTheFirstReadings)
{
    // The third message is the first of the second reading: the tree gets the new name, the hash the old.
    host.User().Rename("A", "A2");
    bench.ActInMessage("A", 3, [&] { host.Effect("B").customName = "moved"; });
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A2 moved C");

    const PassRecord next = bench.Pass();
    EXPECT_EQ(next.printed, "State Changed\n") << "the next pass sees the layer changed once more";
    EXPECT_EQ(bench.TreeText(), "A2 moved C");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(PassOutcome, TheStateTableIsAskedAfterLayerChanges)
{
    bench.Inbox().refreshPending = 1;
    const Calls calls = bench.Pass().calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Tree DidLayerStateChange(1)"), 1);
}

TEST_F(PassOutcome, TheCachedSelectionReturnsAfterARebuild)
{
    bench.SelectInTree({"B", "C"});
    (void)bench.Pass();
    host.User().Rename("A", "A2");
    TracedStack rows = three;
    rows.effects[0].name = "A2";
    const PassRecord pass = bench.Pass();
    const Calls push = SelectionPush(rows, {2, 1});
    ASSERT_GT(pass.calls.size(), push.size());
    EXPECT_EQ(Calls(pass.calls.end() - static_cast<std::ptrdiff_t>(push.size()), pass.calls.end()), push);
    EXPECT_TRUE(host.Effect("A").groupHidden);
    EXPECT_FALSE(host.Effect("B").groupHidden);
    EXPECT_FALSE(host.Effect("C").groupHidden);
}

TEST_F(PassOutcome, MainAndKitKeepTheirVisibilityUnlessSelected)
{
    bench.Add("QVK VORTAN TWO", "M");
    bench.Add("QVK VORTKIT", "K");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n") << "the main effect is not touched";
    EXPECT_TRUE(host.Effect("A").groupHidden);
    EXPECT_FALSE(host.Effect("M").groupHidden);
    EXPECT_FALSE(host.Effect("K").groupHidden);

    host.Effect("M").groupHidden = true;
    host.Effect("K").groupHidden = true;
    bench.SelectInTree({"M"});
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_FALSE(host.Effect("M").groupHidden);
    EXPECT_TRUE(host.Effect("K").groupHidden);
}

TEST_F(PassOutcome, AFirstPassBuildsTheTreeAsUsual)
{
    bench.plugin->layerHash = 0;
    bench.plugin->treeHash = 0;
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls, Sequence({PassHead(),
                                    NoAddsAndDeletes(),
                                    three.Read(),
                                    three.Read(),
                                    TreeRebuild("A B C"),
                                    {"Tree GetItemsFromTree(tree)"},
                                    three.Read(),
                                    {"Tree GetItemsFromTree(tree)", "Tree DidLayerStateChange(1)"},
                                    SelectionPush(three, {})}));
}
} // namespace
} // namespace standin
