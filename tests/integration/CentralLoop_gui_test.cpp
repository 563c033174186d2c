// Both ways of the central loop, on the real tree in a real window.

#include "tests/integration/PanelSession.h"
#include "tests/support/OutputOf.h"

namespace standin
{
namespace
{
using testing::ElementsAre;
using testing::HasSubstr;

class CentralLoop : public PanelSession
{
protected:
    void OpenLayerWithThreeObjects()
    {
        Add("QVK VORTSRC Lamps", "A", "lamp");
        Add("QVK VORTSRC Routes", "B", "route");
        Add("QVK VORTREN Dots", "C", "dots");
        OpenPanel();
        product.host.ClearTrace();
    }

    std::string OutputOfIdle()
    {
        return OutputOf([this] { Idle(); });
    }
};
} // namespace

TEST_F(CentralLoop, ARenameReachesTheLayerInThreePasses)
{
    OpenLayerWithThreeObjects();

    // The user selects the row, opens the editor, types and presses Return.
    ClickRow("route");
    Settle();
    ASSERT_EQ(Shape(), "Layer(lamp route* dots)");
    Key("Return");
    ASSERT_TRUE(panelator->tree->treeView.renameEditor->isVisible());
    TypeName("way");
    const std::uint64_t layerHash = panelator->layerHash;
    const std::uint64_t treeHash = panelator->treeHash;
    PressKey("Return");

    // The pass that sees the tree changed: the hash of the layer stands still, and the layer is written to.
    product.host.ClearTrace();
    const std::string first = OutputOfIdle();
    EXPECT_FALSE(panelator->tree->treeView.renameEditor->isVisible());
    EXPECT_THAT(first, HasSubstr("Hash Mismatch\nLayer Item - lamp\nLayer Item - route\nLayer Item - dots\n"
                                 "Tree Item - lamp\nTree Item - way\nTree Item - dots\n"));
    EXPECT_EQ(panelator->layerHash, layerHash);
    EXPECT_NE(panelator->treeHash, treeHash);
    EXPECT_EQ(product.host.NameOf("B"), "way");
    EXPECT_EQ(product.host.UndoNames().back(), "Rename Effect(s)");
    EXPECT_THAT(product.host.CallTexts(),
                testing::Contains("DynamicStream 2 AEGP_SetStreamName(stream B, \"way\")"));

    // The pass that sees the layer changed: the tree is rebuilt, its state restored, the selection pushed.
    EXPECT_EQ(OutputOfIdle(), "State Changed\n");
    EXPECT_NE(panelator->layerHash, layerHash);
    EXPECT_EQ(Shape(), "Layer(lamp way* dots)");
    EXPECT_TRUE(product.host.Effect("A").groupHidden);
    EXPECT_FALSE(product.host.Effect("B").groupHidden);
    const auto treeNow =
        CalcItemsHash(static_cast<std::uint64_t>(product.layerId), GetItemsFromTree(panelator->tree));
    EXPECT_EQ(panelator->treeHash, treeNow);

    // The pass that finds nothing to do.
    product.host.ClearTrace();
    EXPECT_EQ(OutputOfIdle(), "");
    EXPECT_THAT(product.host.CallTexts(), testing::Not(testing::Contains(HasSubstr("AEGP_StartUndoGroup"))));

    // Undo in the host brings the old name back into the tree.
    EXPECT_TRUE(product.host.Undo());
    Settle();
    EXPECT_EQ(TreeNames(), (std::vector<std::string>{"lamp", "route", "dots"}));
}

TEST_F(CentralLoop, AClickOnABoxSwitchesTheEffect)
{
    OpenLayerWithThreeObjects();
    ClickBox("route");
    Settle();
    EXPECT_TRUE(IsActive("A"));
    EXPECT_FALSE(IsActive("B"));
    EXPECT_TRUE(IsActive("C"));
    EXPECT_EQ(Shape(), "Layer(lamp route* dots)");
}

TEST_F(CentralLoop, GroupDragsAreToldToTheEffect)
{
    OpenLayerWithThreeObjects();
    product.host.Effect("A").family.group = 3;
    Settle();
    ASSERT_EQ(Shape(), "Layer(Group 3(lamp) route dots)");

    DragRowBelow("dots", "lamp");
    Settle();
    EXPECT_EQ(GroupOf("C"), 3);
    EXPECT_EQ(Shape(), "Layer(Group 3(lamp dots*) route)");
    EXPECT_EQ(Stack(), "A C B");

    DragRowAbove("dots", "Group 3");
    Settle();
    EXPECT_EQ(GroupOf("C"), 0) << "an object that is told group -1 answers 0 from then on";
    EXPECT_EQ(Shape(), "Layer(dots* Group 3(lamp) route)");
    EXPECT_EQ(Stack(), "C A B");
}

TEST_F(CentralLoop, ADragAtTheTopReordersTheStack)
{
    OpenLayerWithThreeObjects();
    DragRowAbove("dots", "lamp");
    Settle();
    EXPECT_EQ(Stack(), "C A B");
    EXPECT_EQ(Shape(), "Layer(dots* lamp route)");
}

TEST_F(CentralLoop, ANewGroupChangesNothingOnTheLayer)
{
    OpenLayerWithThreeObjects();
    const ProjectState before = product.host.State();
    const std::uint64_t treeHash = panelator->treeHash;
    const std::string output = OutputOf(
        [this]
        {
            ClickButton("Add Group");
            Settle();
        });
    EXPECT_THAT(output, HasSubstr("State Changed"));
    EXPECT_THAT(output, testing::Not(HasSubstr("Hash Mismatch")));
    EXPECT_EQ(Shape(), "Layer(Group 1 lamp route dots)");
    EXPECT_EQ(panelator->treeHash, treeHash);
    EXPECT_EQ(product.host.State().FindLayer(product.layerId)->effects.size(), 3u);
    EXPECT_EQ(GroupOf("A"), 0);
    EXPECT_TRUE(product.host.UndoNames().empty());
    EXPECT_EQ(before.layers.front().effects.front().customName, product.host.Effect("A").customName);
}

TEST_F(CentralLoop, TheDeleteKeyIsOneUndoStep)
{
    OpenLayerWithThreeObjects();
    ClickRow("route");
    Key("Delete");
    Settle();
    EXPECT_EQ(Stack(), "A C");
    EXPECT_EQ(Shape(), "Layer(lamp dots)");
    EXPECT_EQ(product.host.UndoNames().back(), "Delete Effect(s)");
    EXPECT_TRUE(product.host.Undo());
    Settle();
    EXPECT_EQ(Stack(), "A B C");
    EXPECT_THAT(TreeNames(), ElementsAre("lamp", "route", "dots"));
}

TEST_F(CentralLoop, TheMainEffectIsAddedWithoutAMenu)
{
    OpenPanel();
    ASSERT_EQ(Shape(), "");
    ClickButton("Add Vortan");
    Settle();
    ASSERT_EQ(product.host.State().FindLayer(product.layerId)->effects.size(), 1u);
    EXPECT_THAT(TreeNames(), ElementsAre("Vortan"));
}

TEST_F(CentralLoop, ASelectionShowsItsEffectsHidesOthers)
{
    OpenLayerWithThreeObjects();
    ClickRow("route");
    Settle();
    EXPECT_TRUE(product.host.Effect("A").groupHidden);
    EXPECT_FALSE(product.host.Effect("B").groupHidden);
    EXPECT_TRUE(product.host.Effect("C").groupHidden);

    Key("Control+a");
    Settle();
    EXPECT_EQ(Shape(), "Layer(lamp* route* dots*)");
    EXPECT_FALSE(product.host.Effect("A").groupHidden);
    EXPECT_FALSE(product.host.Effect("C").groupHidden);
}

TEST_F(CentralLoop, EachLayerGetsItsSelectionBack)
{
    OpenLayerWithThreeObjects();
    const int second = product.host.AddLayer(product.compId, "Layer 2");
    (void)product.host.AddEffect(second, "QVK VORTEFF Jitter", "J");
    const int third = product.host.AddLayer(product.compId, "Layer 3");
    (void)product.host.AddEffect(third, "QVK VORTEFF Placement", "P");

    ClickRow("route");
    Settle();
    product.host.User().SelectLayers({second});
    Settle();
    ClickRow("Vortan Jitter Effector");
    Settle();
    product.host.User().SelectLayers({third});
    Settle();
    ASSERT_EQ(Shape(), "Layer(Vortan Placement)");

    product.host.User().SelectLayers({product.layerId});
    Settle();
    EXPECT_EQ(Shape(), "Layer(lamp route* dots)");
    product.host.User().SelectLayers({second});
    Settle();
    EXPECT_EQ(Shape(), "Layer(Vortan Jitter Effector*)");
}

TEST_F(CentralLoop, WhatTheHostChangesComesIntoTheTree)
{
    OpenLayerWithThreeObjects();
    product.host.User().Rename("B", "from the host");
    product.host.User().Reorder("C", 0);
    Settle();
    EXPECT_THAT(TreeNames(), ElementsAre("dots", "lamp", "from the host"));
    product.host.User().Delete("A");
    Settle();
    EXPECT_THAT(TreeNames(), ElementsAre("dots", "from the host"));
}

TEST_F(CentralLoop, NamesThatAreNoTextStayUntouched)
{
    const std::string bytes("\xff\xc0\xaf\xed\xa0\x80 z", 8);
    Add("QVK VORTSRC Lamps", "A", bytes);
    Add("QVK VORTSRC Routes", "B", "");
    Add("QVK VORTSRC GEO", "C", std::string(120, 'w'));
    Add("QVK VORTREN Dots", "D", "");
    OpenPanel();
    EXPECT_THAT(TreeNames(), ElementsAre(bytes, "", std::string(120, 'w'), ""));
    EXPECT_EQ(product.host.NameOf("A"), bytes);
    EXPECT_TRUE(product.host.UndoNames().empty());
}
} // namespace standin
