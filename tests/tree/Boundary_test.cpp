#include "tests/tree/support/MacWindow.h"
#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Boundary : public TreeTest
{
};

/// A row that is none of the tree's own.
class ForeignRow : public juce::TreeViewItem
{
public:
    bool mightContainSubItems() override { return false; }
    juce::String getUniqueName() const override { return "foreign"; }
};
} // namespace

TEST_F(Boundary, ToleratesNoWidgetWhereItSaysSo)
{
    DeleteTreeWidget(nullptr);
    ClearTree(nullptr);
    RefreshTree(nullptr, {object(1, "a")});
    AddObject(nullptr, VN_OBJECT_GEOMETRY, 1, "g");
    EXPECT_THAT(GetItemsFromTree(nullptr), IsEmpty());
    EXPECT_THAT(GetKeysToBeAddedToLayer(nullptr), IsEmpty());
    EXPECT_THAT(GetEffectsToBeRemoved(nullptr), IsEmpty());
    DeleteTreeStateTable(nullptr);
    CacheLayerTreeState(nullptr, 1, panel);
}

TEST_F(Boundary, ClearsATreeThatIsClearAlready)
{
    ClearTree(panel);
    ClearTree(panel);
    EXPECT_EQ(root(), nullptr);
}

TEST_F(Boundary, ClearsTheWholeTree)
{
    RefreshTree(panel, {object(1, "a", 1)});
    ClearTree(panel);
    EXPECT_EQ(root(), nullptr);
    EXPECT_THAT(GetItemsFromTree(panel), IsEmpty());
    EXPECT_THAT(GetSelectedTreeItems(panel), IsEmpty());
}

TEST_F(Boundary, RefreshesFullyOpenAndUnselected)
{
    RefreshTree(panel, {object(1, "a", 1), object(2, "b"), external("x"), object(3, "r", -1)});
    EXPECT_EQ(shape(), "Layer(Group 1(a) b x r)");
    EXPECT_FALSE(view().areItemsOpenByDefault());
    EXPECT_EQ(static_cast<int>(root()->getNode()["select"]), 0);
}

TEST_F(Boundary, WritesNothingWhileItRefreshes)
{
    EXPECT_EQ(OutputOf([this] { RefreshTree(panel, {object(1, "a"), object(2, "b"), object(3, "c")}); }), "");
}

TEST_F(Boundary, LetsGoOfAClearedDocument)
{
    RefreshTree(panel, {object(1, "a")});
    (void)HashTreeItems(panel, 0);
    const juce::ValueTree document = root()->getNode();
    ClearTree(panel);
    EXPECT_EQ(document.getReferenceCount(), 1);
}

TEST_F(Boundary, PutsTheWidgetIntoItsContainer)
{
    const MacWindow window(JuceGeneration::seven);
    EXPECT_EQ(window.panel->getBounds(), juce::Rectangle<int>(0, 0, 400, 420));
    EXPECT_TRUE(window.panel->isVisible());
    EXPECT_EQ(window.panel->getPeer()->getStyleFlags(), juce::ComponentPeer::windowIsSemiTransparent);
}

TEST_F(Boundary, DeletesNoRowThatHasNoParent)
{
    ClearTree(panel);
    juce::ValueTree alone = ValueTreesDemo::createTree("Object", "alone");
    alone.setProperty(TreeIds::uuid, juce::String(uuidOf(1)), nullptr);
    view().showRootItem(new ValueTreeItem(alone, false));
    root()->setSelected(true, true);
    view().deleteSelectedItems();
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
    EXPECT_EQ(shape(), "alone*");
}

TEST_F(Boundary, RefreshesOpenAndClosedWhateverTheDefault)
{
    view().setDefaultOpenness(true);
    RefreshTree(panel, {object(1, "a", 1), object(2, "b")});
    EXPECT_FALSE(view().areItemsOpenByDefault());
    EXPECT_EQ(shape(), "Layer(Group 1(a) b)");
    for (const char* name : {"Layer", "Group 1", "a", "b"})
        EXPECT_TRUE(row(name).isOpen()) << name;
}

TEST_F(Boundary, RefreshReplacesTheWholeContents)
{
    RefreshTree(panel, {object(1, "a", 1), object(2, "b")});
    select({"a", "b"});
    row("Group 1").setOpen(false);
    RefreshTree(panel, {object(3, "c", 1)});
    EXPECT_EQ(shape(), "Layer(Group 1(c))");
    EXPECT_THAT(GetSelectedTreeItems(panel), IsEmpty());
}

TEST_F(Boundary, RefreshWithNothingLeavesNoRow)
{
    RefreshTree(panel, {object(1, "a")});
    RefreshTree(panel, {});
    EXPECT_EQ(root(), nullptr);
    EXPECT_THAT(GetItemsFromTree(panel), IsEmpty());
}

TEST_F(Boundary, RefreshShowsTheWidget)
{
    EXPECT_FALSE(panel->isVisible());
    RefreshTree(panel, {});
    EXPECT_TRUE(panel->isVisible());
    panel->setVisible(false);
    RefreshTree(panel, {object(1, "a")});
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(Boundary, HandsKeysOverOnce)
{
    AddObject(panel, VN_OBJECT_VORTAN, 5, "Vortan");
    (void)OutputOf(
        [this]
        {
            panel->vortanButton.clicked();
            panel->vortanButton.clicked();
        });
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), ElementsAre(5, 5));
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
}

TEST_F(Boundary, HandsRemovalsOverOnce)
{
    RefreshTree(panel, {object(1, "a"), object(2, "b")});
    select({"b"});
    view().deleteSelectedItems();
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(2)));
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(Boundary, KeepsRequestsOverARebuild)
{
    RefreshTree(panel, {object(1, "a")});
    select({"a"});
    view().deleteSelectedItems();
    RefreshTree(panel, {});
    ClearTree(panel);
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(1)));
}

TEST_F(Boundary, KeepsTheObjectsGivenDoublesIncluded)
{
    std::string name = "first";
    AddObject(panel, VN_OBJECT_GEOMETRY, 1, name.c_str());
    name = "other";
    AddObject(panel, VN_OBJECT_GEOMETRY, 1, "first");
    ASSERT_EQ(panel->objectEntries.size(), 2u);
    EXPECT_EQ(panel->objectEntries[0].name, "first");
    EXPECT_EQ(panel->objectEntries[0].type, VN_OBJECT_GEOMETRY);
    EXPECT_EQ(panel->objectEntries[1].key, 1);
}

TEST_F(Boundary, ReadsTheSelectionRowByRow)
{
    RefreshTree(panel, {object(1, "a", 1), object(2, "b", 1), object(3, "c"), external("x")});
    EXPECT_THAT(GetSelectedTreeItems(panel), IsEmpty());
    select({"c", "b"});
    EXPECT_THAT(namesOf(GetSelectedTreeItems(panel)), ElementsAre("b", "c"));
    select({"Group 1"});
    EXPECT_THAT(namesOf(GetSelectedTreeItems(panel)), ElementsAre("a", "b"));
    select({"Layer"});
    EXPECT_THAT(namesOf(GetSelectedTreeItems(panel)), ElementsAre("a", "b", "c"));
    select({"x"});
    EXPECT_THAT(GetSelectedTreeItems(panel), IsEmpty());
    select({"Group 1", "b", "x"});
    EXPECT_THAT(namesOf(GetSelectedTreeItems(panel)), ElementsAre("a", "b", "b"));
}

TEST_F(Boundary, FindsNothingInAForeignRow)
{
    RefreshTree(panel, {object(1, "a")});
    ClearTree(panel);
    view().setRootItem(new ForeignRow);
    view().getRootItem()->setSelected(true, true);
    EXPECT_THAT(GetItemsFromTree(panel), IsEmpty());
    EXPECT_THAT(GetSelectedTreeItems(panel), IsEmpty());
    view().renameItem();
    EXPECT_FALSE(view().renameEditor->isVisible());
    view().deleteSelectedItems();
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(Boundary, SetsTheBackgroundFromFourChannels)
{
    SetBGColor(panel, 1.0f, 0.5f, 0.0f, 0.25f);
    EXPECT_EQ(panel->bgColour, juce::Colour::fromFloatRGBA(1.0f, 0.5f, 0.0f, 0.25f));
}

TEST_F(Boundary, ShowsAMessage)
{
    NotifyMsg(panel, "Hello");
    EXPECT_TRUE(panel->notifyLabel.isVisible());
    EXPECT_EQ(panel->notifyLabel.getText(), "Hello");
    NotifyMsg(panel, "");
    EXPECT_TRUE(panel->notifyLabel.isVisible());
}

TEST_F(Boundary, StartsAndEndsJuceOverAndOver)
{
    deleteWidget();
    for (int i = 0; i < 3; ++i)
    {
        JuceGlobalShutDown();
        JuceGlobalInit();
        panel = CreateTreeWidget(false);
        RefreshTree(panel, {object(1, "a", 1)});
        deleteWidget();
    }
}

TEST_F(Boundary, HashesTheItemsThatTheTreeHasNow)
{
    EXPECT_EQ(HashTreeItems(nullptr, 5), 5u);
    EXPECT_EQ(HashTreeItems(panel, 5), 5u);
    const std::vector<ObjectItem> first = {object(1, "a", 0), object(2, "b", 1)};
    const std::vector<ObjectItem> second = {object(2, "b", 1), object(3, "c", 0)};
    for (const auto& items : {first, second, first})
    {
        RefreshTree(panel, items);
        for (const std::uint64_t seed : {5u, 0u, 6u, 5u})
            EXPECT_EQ(HashTreeItems(panel, seed), CalcItemsHash(seed, GetItemsFromTree(panel)));
    }
    ClearTree(panel);
    EXPECT_EQ(HashTreeItems(panel, 5), 5u);
}

TEST_F(Boundary, HashesTheOrderButNotTheSelection)
{
    RefreshTree(panel, {object(1, "a", 0), object(2, "b", 0)});
    const auto start = HashTreeItems(panel, 0);
    select({"a"});
    EXPECT_EQ(HashTreeItems(panel, 0), start);
    node("a").getParent().moveChild(0, 1, nullptr);
    EXPECT_NE(HashTreeItems(panel, 0), start);
    EXPECT_EQ(HashTreeItems(panel, 0), CalcItemsHash(0, GetItemsFromTree(panel)));
    node("Layer").appendChild(node("a").createCopy(), nullptr);
    EXPECT_EQ(HashTreeItems(panel, 0), CalcItemsHash(0, GetItemsFromTree(panel)));
}

// What each of the user's edits leaves behind for the idle pass.

TEST_F(Boundary, ItemsShowEditsOfBoxNameAndPlace)
{
    RefreshTree(panel, {object(1, "a", 0), object(2, "b", 1)});
    auto hash = [this]
    {
        const auto hashOfTree = HashTreeItems(panel, 0);
        EXPECT_EQ(hashOfTree, CalcItemsHash(0, GetItemsFromTree(panel)));
        return hashOfTree;
    };
    const auto start = hash();

    node("a").setProperty("active", 0, nullptr);
    const auto afterBox = hash();
    EXPECT_NE(afterBox, start);

    select({"a"});
    view().renameItem();
    view().renameEditor->setText("renamed", false);
    view().renameEditor->returnPressed();
    const auto afterName = hash();
    EXPECT_NE(afterName, afterBox);

    drop("Group 1", 0);
    const auto afterDrop = hash();
    EXPECT_NE(afterDrop, afterName);

    view().deleteSelectedItems();
    EXPECT_NE(hash(), afterDrop);
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("b"));
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(1)));
}
