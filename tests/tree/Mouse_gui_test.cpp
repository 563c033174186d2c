#include "tests/tree/support/TreeGuiTest.h"

#include <functional>
#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Mouse : public TreeGuiTest
{
protected:
    std::vector<int> actives() { return activesOf(GetItemsFromTree(panel)); }

    static std::vector<ObjectItem> manyItems(int count)
    {
        std::vector<ObjectItem> items;
        for (int i = 1; i <= count; ++i)
            items.push_back(object(i, "row " + std::to_string(i), i <= 3 ? 1 : 0));
        return items;
    }

    /// On the screen: "--" for an empty box, "#-" for a half, "##" for a full one.
    std::string boxOnScreen(const std::string& name)
    {
        const auto picture = hands.screen();
        std::string text;
        for (const int x : {4, 7})
        {
            const Place pixel = at(name, {x, 10});
            text += picture.at(pixel.x, pixel.y) == 0xcccccc ? "#" : "-";
        }
        return text;
    }

    bool waitForBox(const std::string& name, const std::string& look)
    {
        return pumpUntil([&] { return boxOnScreen(name) == look; });
    }

    void wheel(Place at, int notches)
    {
        Wheel(at, notches);
        pump();
    }
};
} // namespace

TEST_F(Mouse, ClickOnABoxTogglesTheObject)
{
    show({object(1, "a", 0, 1), object(2, "b", 0, 1)});
    Click(boxOf("b"));
    EXPECT_THAT(actives(), ElementsAre(1, 0));
    EXPECT_EQ(shape(), "Layer(a b*)");
    Click(boxOf("b"));
    EXPECT_THAT(actives(), ElementsAre(1, 1));
}

TEST_F(Mouse, ClickOnANonzeroBoxSwitchesItOff)
{
    show({object(1, "a", 0, 7)});
    Click(boxOf("a"));
    EXPECT_THAT(actives(), ElementsAre(0));
    Click(boxOf("a"));
    EXPECT_THAT(actives(), ElementsAre(1));
}

TEST_F(Mouse, ClickHitsTheBoxFromEdgeToEdge)
{
    show({object(1, "a", 0, 1)});
    int expected = 1;
    for (const Place hit : {Place{2, 6}, Place{9, 6}, Place{2, 13}, Place{9, 13}})
    {
        Click(at("a", hit));
        expected = 1 - expected;
        EXPECT_THAT(actives(), ElementsAre(expected)) << hit.x << ", " << hit.y;
    }
    for (const Place miss : {Place{1, 10}, Place{10, 10}, Place{5, 5}, Place{5, 14}, Place{30, 10}})
    {
        Click(at("a", miss));
        EXPECT_THAT(actives(), ElementsAre(expected)) << miss.x << ", " << miss.y;
    }
}

TEST_F(Mouse, ClicksOnBoxesWorkInAScrolledTree)
{
    show(manyItems(60));
    for (const int y : {0, 1, 7, 110, 333, 900})
    {
        view().getViewport()->setViewPosition(0, y);
        pump();
        const int index = (view().getViewport()->getViewPositionY() + 60) / 20;
        auto* item = dynamic_cast<ValueTreeItem*>(view().getItemOnRow(index));
        juce::ValueTree clicked = item->getNode();
        const std::string name = clicked["name"].toString().toStdString();
        if (clicked.hasType("Group"))
            continue;
        const int before = clicked["active"];
        Click(boxOf(name));
        EXPECT_EQ(static_cast<int>(clicked["active"]), 1 - before) << name << " at " << y;
        Click(textOf(name));
        EXPECT_EQ(static_cast<int>(clicked["active"]), 1 - before) << name << " at " << y;
    }
}

TEST_F(Mouse, ClickOnAGroupsBoxTogglesAllObjects)
{
    show({object(1, "a", 1, 1), object(2, "b", 1, 0), object(3, "c", 1, 1), object(4, "d", 0, 1)});
    Click(boxOf("Group 1"));
    EXPECT_THAT(actives(), ElementsAre(0, 0, 0, 1));
    Click(boxOf("Group 1"));
    EXPECT_THAT(actives(), ElementsAre(1, 1, 1, 1));
    Click(boxOf("Group 1"));
    EXPECT_THAT(actives(), ElementsAre(0, 0, 0, 1));
}

TEST_F(Mouse, ClickOnAnEmptyGroupsBoxChangesNothing)
{
    show({object(1, "a", 0, 1)});
    panel->AddNewGroup(root());
    Click(boxOf("Group 1"));
    EXPECT_EQ(shape(), "Layer(Group 1* a)");
    EXPECT_THAT(actives(), ElementsAre(1));
}

TEST_F(Mouse, ClickOnAnOutsideBoxChangesNothing)
{
    show({external("x"), object(1, "a", 0, 1)});
    const auto before = CalcItemsHash(0, GetItemsFromTree(panel));
    Click(boxOf("x"));
    EXPECT_EQ(static_cast<int>(node("x")["active"]), 1);
    EXPECT_EQ(CalcItemsHash(0, GetItemsFromTree(panel)), before);
    Click(boxOf("x"));
    EXPECT_EQ(static_cast<int>(node("x")["active"]), 0);
}

TEST_F(Mouse, ClickOnAnOutsideBoxIsSeen)
{
    show({external("x"), object(1, "a")});
    Click(boxOf("x"));
    EXPECT_TRUE(waitForBox("x", "##"));
    // The selection stays as it is now, so that nothing but the box is painted anew.
    Click(boxOf("x"));
    EXPECT_TRUE(waitForBox("x", "--"));
}

TEST_F(Mouse, GroupsBoxIsRepaintedWithItsObjects)
{
    show({object(1, "a", 1), object(2, "b", 1)});
    EXPECT_TRUE(waitForBox("Group 1", "##"));
    node("a").setProperty("active", 0, nullptr);
    EXPECT_TRUE(waitForBox("Group 1", "#-"));
    EXPECT_TRUE(waitForBox("a", "--"));
    node("b").setProperty("active", 0, nullptr);
    EXPECT_TRUE(waitForBox("Group 1", "--"));
}

TEST_F(Mouse, ClickOnTheLayerRowHitsNoBox)
{
    show({object(1, "a", 0, 1)});
    for (const Place place : {Place{0, 0}, Place{2, 6}, Place{6, 10}})
        Click(at("Layer", place));
    EXPECT_EQ(shape(), "Layer*(a)");
    EXPECT_FALSE(root()->getNode().hasProperty("active"));
    EXPECT_THAT(actives(), ElementsAre(1));
}

TEST_F(Mouse, ClickOnASelectedBoxTogglesOneRow)
{
    show({object(1, "a", 0, 1), object(2, "b", 0, 1), object(3, "c", 0, 1)});
    Click(textOf("a"));
    Click(textOf("c"), {"Shift"});
    ASSERT_THAT(selectedNames(), ElementsAre("a", "b", "c"));
    Press(boxOf("b"));
    EXPECT_THAT(actives(), ElementsAre(1, 0, 1));
    EXPECT_THAT(selectedNames(), ElementsAre("a", "b", "c"));
    Release();
    EXPECT_THAT(selectedNames(), ElementsAre("b"));
}

TEST_F(Mouse, ClickOnABoxKeepsTheSelection)
{
    show({object(1, "a", 0, 1)});
    Click(boxOf("a"));
    ASSERT_THAT(actives(), ElementsAre(0));
    // JUCE selects before it tells the row; here it tells it alone.
    view().clearSelectedItems();
    auto* rows = view().getViewport()->getViewedComponent();
    const auto place = row("a").getItemPosition(false).getPosition().toFloat() + juce::Point(6.0f, 10.0f);
    const auto now = juce::Time::getCurrentTime();
    row("a").itemClicked(juce::MouseEvent(juce::Desktop::getInstance().getMainMouseSource(), {6.0f, 10.0f},
                                          {}, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, rows, rows, now, place, now, 1,
                                          false));
    EXPECT_THAT(actives(), ElementsAre(0));
    row("a").setSelected(true, true);
    row("a").itemClicked(juce::MouseEvent(juce::Desktop::getInstance().getMainMouseSource(), {6.0f, 10.0f},
                                          {}, 0.0f, 0.0f, 0.0f, 0.0f, 0.0f, rows, rows, now, place, now, 1,
                                          false));
    EXPECT_THAT(actives(), ElementsAre(1));
}

TEST_F(Mouse, ClickSelectsOneRow)
{
    show({object(1, "a"), object(2, "b")});
    Click(textOf("a"));
    EXPECT_EQ(shape(), "Layer(a* b)");
    Click(textOf("b"));
    EXPECT_EQ(shape(), "Layer(a b*)");
    EXPECT_THAT(namesOf(GetSelectedTreeItems(panel)), ElementsAre("b"));
}

TEST_F(Mouse, ControlClickAddsAndTakesAway)
{
    show({object(1, "a"), object(2, "b"), object(3, "c")});
    Click(textOf("a"));
    Click(textOf("c"), {"Control"});
    EXPECT_EQ(shape(), "Layer(a* b c*)");
    Click(textOf("a"), {"Control"});
    EXPECT_EQ(shape(), "Layer(a b c*)");
}

TEST_F(Mouse, ShiftClickSelectsARange)
{
    show({object(1, "a"), object(2, "b", 1), object(3, "c")});
    Click(textOf("a"));
    Click(textOf("c"), {"Shift"});
    EXPECT_EQ(shape(), "Layer(a* Group 1*(b*) c*)");
}

TEST_F(Mouse, ClickBelowTheRowsClearsTheSelection)
{
    show({object(1, "a"), object(2, "b")});
    Click(textOf("a"));
    Click(inView({100, 200}));
    EXPECT_EQ(shape(), "Layer(a b)");
}

TEST_F(Mouse, ClickOnThePanelClearsTheSelection)
{
    show({object(1, "a"), object(2, "b")});
    Click(textOf("a"));
    Click(OnScreen({300, 40}));
    EXPECT_EQ(shape(), "Layer(a b)");
}

TEST_F(Mouse, ClickOnTheTriangleClosesAndOpens)
{
    show({object(1, "a", 1), object(2, "b")});
    Click(openBoxOf("Group 1"));
    EXPECT_EQ(shape(), "Layer(Group 1+ b)");
    Click(openBoxOf("Group 1"));
    EXPECT_EQ(shape(), "Layer(Group 1(a) b)");
}

TEST_F(Mouse, DoubleClickKeepsItsUsualMeaning)
{
    show({object(1, "a", 1), object(2, "b", 0, 1)});
    juce::MouseEvent::setDoubleClickTimeout(5000);
    Click(textOf("Group 1"));
    Click(textOf("Group 1"));
    EXPECT_EQ(shape(), "Layer(Group 1*+ b)");
    Click(textOf("b"));
    Click(textOf("b"));
    EXPECT_EQ(shape(), "Layer(Group 1+ b*)");
    EXPECT_FALSE(view().renameEditor->isVisible());
}

TEST_F(Mouse, WheelScrollsAndClicksHitVisibleRows)
{
    show(manyItems(60));
    wheel(textOf("row 5"), 6);
    ASSERT_TRUE(pumpUntil([this] { return view().getViewport()->getViewPositionY() > 0; }));
    pumpFor(100);
    auto* item = dynamic_cast<ValueTreeItem*>(view().getItemAt(70));
    ASSERT_NE(item, nullptr);
    const std::string name = item->getNode()["name"].toString().toStdString();
    const int before = node(name)["active"];
    Click(boxOf(name));
    EXPECT_EQ(static_cast<int>(node(name)["active"]), 1 - before);
}

TEST_F(Mouse, WheelOverATriangleIsSurvived)
{
    show(manyItems(60));
    Point(openBoxOf("Group 1"));
    wheel(openBoxOf("Group 1"), 30);
    ASSERT_TRUE(pumpUntil([this] { return view().getViewport()->getViewPositionY() > 200; }));
    const Place elsewhere = inView({150, 60});
    Point(elsewhere);
    Point(elsewhere + Place{10, 40});
    pump();
}

TEST_F(Mouse, ShrinkingUnderAHoveredTriangleIsSurvived)
{
    std::vector<ObjectItem> items = manyItems(60);
    items[12].group = 2;
    show(items);
    Point(openBoxOf("Group 2"));
    panel->setSize(panelWidth, 150);
    pump();
    Point(OnScreen({200, 120}));
    Point(OnScreen({210, 125}));
    pump();
}

TEST_F(Mouse, RebuildUnderAHoveredTriangleIsSurvived)
{
    show({object(1, "a", 1), object(2, "b", 1)});
    for (int i = 0; i < 4; ++i)
    {
        const Place triangle = openBoxOf("Group 1");
        Point(triangle);
        show({object(1, "a", 1), object(2, "b", 1)});
        Point(triangle + Place{100, 3});
        pump();
    }
    Point(openBoxOf("Group 1"));
    ClearTree(panel);
    Point(OnScreen({200, 200}));
    pump();
}

TEST_F(Mouse, ButtonActsOnThePress)
{
    show({object(1, "a")});
    const std::string pressed = OutputOf([this] { Press(centreOf(panel->groupButton)); });
    EXPECT_EQ(pressed, "button clicked\n");
    EXPECT_EQ(shape(), "Layer(Group 1 a)");
    EXPECT_EQ(OutputOf([this] { Release(); }), "");
    EXPECT_EQ(shape(), "Layer(Group 1 a)");
}

TEST_F(Mouse, FirstClickAnywhereGivesTheTreeTheKeyboard)
{
    const std::vector<std::function<Place()>> places = {
        [this] { return textOf("row 1"); },
        [this] { return centreOf(panel->geometryButton); },
        [this] {
            return OnScreen({300, 40});
        },
        [this] {
            return inView({100, 200});
        },
        [this] { return centreOf(view().getViewport()->getVerticalScrollBar()); },
    };
    for (const auto& place : places)
    {
        // A new panel has never had the focus anywhere.
        deleteWidget();
        panel = CreateTreeWidget(false);
        addToDesktop(panel, nullptr, panelWidth, panelHeight, host.FrameHandle());
        show(manyItems(60));
        clickOnHost();
        ASSERT_FALSE(hasFocus());
        (void)OutputOf([&] { Click(place()); });
        EXPECT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }))
            << place().x << ", " << place().y;
    }
}

TEST_F(Mouse, ClickOnAButtonLeavesTheTreesKeyboard)
{
    show({object(1, "a"), object(2, "b")});
    Click(textOf("b"));
    ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    Click(centreOf(panel->groupButton));
    pumpFor(50);
    EXPECT_TRUE(view().hasKeyboardFocus(false));
    PressKey("Delete");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(Group 1 a)"; }));
}

TEST_F(Mouse, SelectionFromOutsideTakesNoFocus)
{
    clickOnHost();
    pump();
    const auto focused = hands.focusedWindow();
    ASSERT_EQ(focused, host.Frame());
    auto* table = CreateTreeStateTable();
    const std::vector<ObjectItem> items = {object(1, "a"), object(2, "b")};
    show(items);
    select({"b"});
    CacheLayerTreeState(table, 1, panel);
    show(items);
    ApplyLayerTreeState(table, 1, panel);
    pumpFor(200);
    EXPECT_THAT(selectedNames(), ElementsAre("b"));
    EXPECT_FALSE(hasFocus());
    EXPECT_EQ(hands.focusedWindow(), focused);
    DeleteTreeStateTable(table);
}
