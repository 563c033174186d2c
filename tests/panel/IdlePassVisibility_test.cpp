// How far a pass goes: the panel's tab, the tree, the active item, the active layer.

#include "tests/panel/PanelTest.h"

#include <utility>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PassVisibility : public PanelTest
{
protected:
    PassVisibility() { bench.AddThree(); }

    bool IsTicked() const { return host.MenuItems().at(0).ticked; }
};

// ---- Without a panel

TEST_F(PassVisibility, BeforeTheFirstOpeningThePassEndsEarly)
{
    EXPECT_THAT(bench.Pass(SuiteTraffic::included).calls,
                ElementsAre("Tree DispatchPlatformEvents()",
                            R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                            "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)", "Tree ClearTree(null)"));
}

TEST_F(PassVisibility, AShownPanelWithoutTreeIsAlwaysReported)
{
    bench.ShowAndSettle();
    ValueTreesDemo* const tree = std::exchange(bench.plugin->tree, nullptr);
    for (int pass = 0; pass < 2; ++pass)
    {
        const PassRecord record = bench.Pass(SuiteTraffic::included);
        EXPECT_THAT(record.calls, ElementsAre("Tree DispatchPlatformEvents()",
                                              R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
                                              "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)"));
        EXPECT_EQ(record.printed, "no tree found\n");
    }
    bench.plugin->tree = tree;
}

// ---- Hidden, and behind another tab

TEST_F(PassVisibility, AHiddenPanelLosesTreeAndMark)
{
    bench.ShowAndSettle();
    EXPECT_TRUE(IsTicked());
    bench.Hide();
    EXPECT_EQ(bench.Pass().printed, "");
    EXPECT_FALSE(bench.Tree()->hasRoot);
    EXPECT_FALSE(IsTicked());
}

TEST_F(PassVisibility, ABackgroundPanelLosesOnlyItsMark)
{
    bench.ShowAndSettle();
    bench.Cover();
    (void)bench.Pass();
    EXPECT_EQ(bench.TreeText(), "A B C");
    EXPECT_FALSE(IsTicked());
    bench.Show();
    (void)bench.Pass();
    EXPECT_TRUE(IsTicked());
}

TEST_F(PassVisibility, ATabReportedAsHiddenHasNoTree)
{
    host.Options().tabBehind = TabBehind::isNotShown;
    bench.ShowAndSettle();
    bench.Cover();
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls.at(1), R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)");
    EXPECT_EQ(pass.calls.back(), "Tree ClearTree(tree)");
    EXPECT_FALSE(bench.Tree()->hasRoot);
}

TEST_F(PassVisibility, APanelOfUnknownStateCountsAsHidden)
{
    bench.ShowAndSettle();
    host.Faults().FailFunction("AEGP_IsShown");
    EXPECT_THAT(bench.Pass().calls,
                ElementsAre("Tree DispatchPlatformEvents()",
                            R"(Panel 1 AEGP_IsShown("Vortan Object Panel") = 1)",
                            "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)", "Tree ClearTree(tree)"));
}

TEST_F(PassVisibility, AMarkThatCannotBeSetChangesNothing)
{
    bench.ShowAndSettle();
    host.Faults().FailFunction("AEGP_CheckMarkMenuCommand");
    const PassRecord pass = bench.Pass();
    Calls expected = Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), QuietTree()});
    expected[2] = "Command 1 AEGP_CheckMarkMenuCommand(1001, 1) = 1";
    EXPECT_EQ(pass.calls, expected);
}

// ---- No active item

TEST_F(PassVisibility, WithoutAnItemTreeAndStatesGo)
{
    bench.ShowAndSettle();
    bench.plugin->stateTable->states[77] = "another layer";
    host.User().OpenComposition(0);
    for (int pass = 0; pass < 2; ++pass)
    {
        const PassRecord record = bench.Pass(SuiteTraffic::included);
        EXPECT_THAT(record.calls, ElementsAre("Tree DispatchPlatformEvents()",
                                              R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
                                              "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)",
                                              "Item 3 AEGP_GetActiveItem() -> item null",
                                              "Tree ClearTree(tree)", "Tree ClearTreeState(table)"));
        EXPECT_EQ(record.printed, "No active item\n");
    }
    EXPECT_FALSE(bench.Tree()->hasRoot);
    EXPECT_THAT(bench.plugin->stateTable->states, IsEmpty());
}

TEST_F(PassVisibility, AnUnreadableItemCountsAsNone)
{
    bench.ShowAndSettle();
    host.Faults().FailFunction("AEGP_GetActiveItem");
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls.at(3), "Item 3 AEGP_GetActiveItem() = 1");
    EXPECT_EQ(pass.calls.back(), "Tree ClearTreeState(table)");
    EXPECT_EQ(pass.printed, "No active item\n");
}

TEST_F(PassVisibility, PassesWithoutAnItemKeepTheHashes)
{
    bench.ShowAndSettle();
    const std::uint64_t layerHash = bench.plugin->layerHash;
    const std::uint64_t treeHash = bench.plugin->treeHash;
    host.User().OpenComposition(0);
    (void)bench.Pass();
    bench.Hide();
    (void)bench.Pass();
    EXPECT_EQ(bench.plugin->layerHash, layerHash);
    EXPECT_EQ(bench.plugin->treeHash, treeHash);
}

// ---- An active item without an active layer

class PassWithoutLayer : public PassVisibility
{
protected:
    PassWithoutLayer()
    {
        bench.ShowAndSettle();
        host.User().SelectLayers({});
    }

    const Calls head = {"Tree DispatchPlatformEvents()",
                        R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
                        "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)",
                        "Item 3 AEGP_GetActiveItem() -> item 101",
                        "Item 3 AEGP_GetItemID(item 101) -> 101",
                        "Layer 5 AEGP_GetActiveLayer() -> layer null"};
};

TEST_F(PassWithoutLayer, TheTreeIsEmptyAndNoLayerTouched)
{
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls,
              Sequence({head,
                        {"Tree RefreshTree([])", "Tree ApplyLayerTreeState(0)", "Tree CacheLayerTreeState(0)",
                         "Tree GetItemsFromTree(tree)", "Tree GetItemsFromTree(tree)",
                         "Tree GetSelectedTreeItems(tree)", "Tree CacheLayerTreeState(0)"}}));
    EXPECT_EQ(pass.printed, "State Changed\n");
    EXPECT_FALSE(bench.Tree()->hasRoot);
}

TEST_F(PassWithoutLayer, TheNextPassIsQuiet)
{
    (void)bench.Pass();
    const PassRecord pass = bench.Pass(SuiteTraffic::included);
    EXPECT_THAT(
        pass.calls,
        ElementsAre("Tree DispatchPlatformEvents()", R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
                    "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)", "Item 3 AEGP_GetActiveItem() -> item 101",
                    "Item 3 AEGP_GetItemID(item 101) -> 101", R"(Basic AcquireSuite("AEGP Layer Suite", 5))",
                    "Layer 5 AEGP_GetActiveLayer() -> layer null", "Tree GetItemsFromTree(tree)",
                    R"(Basic ReleaseSuite("AEGP Layer Suite", 5))"));
    EXPECT_EQ(pass.printed, "");
}

TEST_F(PassWithoutLayer, AddsAndDeletesWaitForALayer)
{
    bench.Tree()->keysToBeAdded = {bench.on.Key("QVK VORTREN Rays")};
    bench.Tree()->effectsToBeRemoved = {a.uuid};
    (void)bench.Pass();
    EXPECT_EQ(bench.Tree()->keysToBeAdded.size(), 1u);
    EXPECT_EQ(bench.Tree()->effectsToBeRemoved.size(), 1u);
    EXPECT_EQ(StackText(), "A B C");

    host.User().SelectLayers({bench.on.layerId});
    (void)bench.Pass();
    EXPECT_THAT(bench.Tree()->keysToBeAdded, IsEmpty());
    EXPECT_THAT(bench.Tree()->effectsToBeRemoved, IsEmpty());
    EXPECT_EQ(StackText(), "B C e4");
}

TEST_F(PassWithoutLayer, AnUnreadableLayerCountsAsNone)
{
    host.User().SelectLayers({bench.on.layerId});
    host.Faults().FailFunction("AEGP_GetActiveLayer");
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls.at(5), "Layer 5 AEGP_GetActiveLayer() = 1");
    EXPECT_EQ(pass.calls.at(6), "Tree RefreshTree([])");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n") << "the layer is back at once";
    EXPECT_EQ(bench.TreeText(), "A B C");
}

TEST_F(PassWithoutLayer, TwoSelectedLayersAreNoActiveLayer)
{
    const int second = host.AddLayer(bench.on.compId, "Layer 2");
    host.User().SelectLayers({bench.on.layerId, second});
    EXPECT_EQ(bench.Pass().calls.at(6), "Tree RefreshTree([])");
}

TEST_F(PassWithoutLayer, AFootageItemShowsTheEmptyState)
{
    const int footage = host.AddFootage("Clip");
    host.User().OpenFootage(footage);
    host.User().Activate(ActivePanel::footage);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls.at(4), "Item 3 AEGP_GetItemID(item 102) -> 102");
    EXPECT_EQ(pass.calls.at(6), "Tree RefreshTree([])");
}

TEST_F(PassWithoutLayer, TheStateOfALayerSurvives)
{
    host.User().SelectLayers({bench.on.layerId});
    bench.SelectInTree({"B"});
    bench.Settle();
    host.User().SelectLayers({});
    bench.Settle();
    host.User().SelectLayers({bench.on.layerId});
    bench.Settle();
    EXPECT_EQ(bench.TreeText(), "A B C");
    EXPECT_THAT(bench.Tree()->selectedUuids, ElementsAre(b.uuid));
}

// ---- Ids that cannot be had

TEST_F(PassVisibility, ALayerWithoutIdIsReadButStateless)
{
    bench.ShowAndSettle();
    host.Faults().FailFunction("AEGP_GetLayerID");
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls.at(6), "Layer 5 AEGP_GetLayerID(layer 1) = 1");
    EXPECT_THAT(pass.calls, ::testing::Contains("Tree ApplyLayerTreeState(0)"));
    EXPECT_THAT(pass.calls, ::testing::Not(::testing::Contains("Tree DidLayerStateChange(0)")));
    EXPECT_EQ(bench.TreeText(), "A B C");
    bench.Settle();
}

TEST_F(PassVisibility, AnItemWithoutIdLooksLikeAnother)
{
    bench.ShowAndSettle();
    host.Faults().FailFunction("AEGP_GetItemID");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Pass().printed, "");
}
} // namespace
} // namespace standin
