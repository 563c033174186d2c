#include "tests/tree/support/TreeGuiTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Drag : public TreeGuiTest
{
protected:
    // The upper edge of a row inserts before it, the lower edge after it, its middle into it.
    Place above(const std::string& name) { return at(name, {60, 2}); }
    Place below(const std::string& name) { return at(name, {60, 18}); }
    Place onto(const std::string& name) { return at(name, {60, 10}); }
};
} // namespace

TEST_F(Drag, IntoAGroupGivesTheObjectItsNumber)
{
    show({object(1, "a"), object(2, "b", 4), object(3, "c", 4)});
    const std::string output = OutputOf([this] { drag(textOf("a"), above("c")); });
    EXPECT_EQ(output, "Items: 1\nMoving Item: a\n");
    EXPECT_EQ(shape(), "Layer(Group 4(b a* c))");
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(4, 4, 4));
}

TEST_F(Drag, OntoAnEmptyGroupGoesIntoIt)
{
    show({object(1, "a")});
    panel->AddNewGroup(root());
    drag(textOf("a"), onto("Group 1"));
    EXPECT_EQ(shape(), "Layer(Group 1(a*))");
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(1));
}

TEST_F(Drag, OutOfAGroupTakesTheNumberAway)
{
    show({object(1, "a", 1), object(2, "b", 1), object(3, "c")});
    drag(textOf("a"), below("c"));
    EXPECT_EQ(shape(), "Layer(Group 1(b) c a*)");
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(1, 0, -1));
}

TEST_F(Drag, ReordersDownwards)
{
    show({object(1, "a"), object(2, "b"), object(3, "c"), object(4, "d")});
    drag(textOf("a"), below("c"));
    EXPECT_EQ(shape(), "Layer(b c a* d)");
}

TEST_F(Drag, ReordersUpwards)
{
    show({object(1, "a"), object(2, "b"), object(3, "c"), object(4, "d")});
    drag(textOf("d"), above("b"));
    EXPECT_EQ(shape(), "Layer(a d* b c)");
}

TEST_F(Drag, BelowAllRowsGoesToTheEnd)
{
    show({object(1, "a"), object(2, "b"), object(3, "c", 1)});
    drag(textOf("a"), inView({100, 200}));
    EXPECT_EQ(shape(), "Layer(b Group 1(c) a*)");
}

TEST_F(Drag, ArrivesWhereSeenInAScrolledTree)
{
    std::vector<ObjectItem> items;
    for (int i = 1; i <= 60; ++i)
        items.push_back(object(i, "row " + std::to_string(i)));
    show(items);
    view().getViewport()->setViewPosition(0, 407);
    drag(textOf("row 23"), above("row 30"));
    const auto names = namesOf(GetItemsFromTree(panel));
    EXPECT_EQ(names[27], "row 29");
    EXPECT_EQ(names[28], "row 23");
    EXPECT_EQ(names[29], "row 30");
    EXPECT_EQ(names[22], "row 24");
}

TEST_F(Drag, TakesTheWholeSelectionInItsOrder)
{
    show({object(1, "a"), object(2, "b"), object(3, "c"), object(4, "d"), object(5, "e", 1)});
    Click(textOf("a"));
    Click(textOf("c"), {"Control"});
    Click(textOf("d"), {"Control"});
    const std::string output = OutputOf([this] { drag(textOf("c"), below("e")); });
    EXPECT_EQ(output, "Items: 3\nMoving Item: d\nMoving Item: c\nMoving Item: a\n");
    // Right below the last row, and right of its indent: still in the group.
    EXPECT_EQ(shape(), "Layer(b Group 1(e a* c* d*))");
}

TEST_F(Drag, OfRigidObjectsIntoAGroupIsRefused)
{
    show({object(1, "r", -1), object(2, "b", 1), object(3, "c", 1)});
    EXPECT_EQ(OutputOf([this] { drag(textOf("r"), above("c")); }), "");
    EXPECT_EQ(shape(), "Layer(r* Group 1(b c))");
}

TEST_F(Drag, OfARigidObjectAtTheTopWorks)
{
    show({object(1, "r", -1), object(2, "b"), object(3, "c")});
    drag(textOf("r"), below("b"));
    EXPECT_EQ(shape(), "Layer(b r* c)");
    EXPECT_TRUE(node("r").hasProperty("rigid"));
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(0, -1, 0));
}

TEST_F(Drag, OfAGroupIntoAGroupIsRefused)
{
    show({object(1, "a", 1), object(2, "b", 2), object(3, "c", 2)});
    EXPECT_EQ(OutputOf([this] { drag(textOf("Group 1"), above("c")); }), "");
    EXPECT_EQ(shape(), "Layer(Group 1*(a) Group 2(b c))");
}

TEST_F(Drag, OfAGroupMovesItsObjectsToo)
{
    show({object(1, "a", 1), object(2, "b"), object(3, "c")});
    drag(textOf("Group 1"), below("b"));
    EXPECT_EQ(shape(), "Layer(b Group 1*(a) c)");
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(0, 1, 0));
}

TEST_F(Drag, OfOutsideRowsAndTheLayerIsRefused)
{
    show({external("x"), object(1, "a"), object(2, "b")});
    EXPECT_EQ(OutputOf([this] { drag(textOf("x"), below("a")); }), "");
    EXPECT_EQ(OutputOf([this] { drag(textOf("Layer"), below("a")); }), "");
    EXPECT_EQ(shape(), "Layer*(x a b)");
}

TEST_F(Drag, OntoAnObjectsRowGoesBesideIt)
{
    show({object(1, "a"), object(2, "b"), object(3, "c")});
    // An object takes no drop, so its middle is as good as its edge.
    drag(textOf("a"), at("c", {60, 9}));
    EXPECT_EQ(shape(), "Layer(b a* c)");
}

TEST_F(Drag, OntoTheLayerRowGoesToTheTop)
{
    show({object(1, "a"), object(2, "b")});
    drag(textOf("b"), onto("Layer"));
    EXPECT_EQ(shape(), "Layer(b* a)");
}

TEST_F(Drag, OutsideThePanelMovesNothing)
{
    show({object(1, "a"), object(2, "b")});
    StartDrag(textOf("a"), {hostX + panelWidth + 40, hostY + 200});
    EXPECT_EQ(OutputOf([this] { Drop(); }), "");
    EXPECT_EQ(shape(), "Layer(a* b)");
}

TEST_F(Drag, EndsWithEscape)
{
    show({object(1, "a"), object(2, "b"), object(3, "c")});
    StartDrag(textOf("a"), below("b"));
    ASSERT_TRUE(panel->isDragAndDropActive());
    PressKey("Escape");
    EXPECT_TRUE(pumpUntil([this] { return !panel->isDragAndDropActive(); }));
    EXPECT_EQ(OutputOf([this] { Release(); }), "");
    EXPECT_EQ(shape(), "Layer(a* b c)");
}

TEST_F(Drag, GivesTheKeyboardBackToTheTree)
{
    show({object(1, "a"), object(2, "b"), object(3, "c")});
    drag(textOf("a"), below("b"));
    EXPECT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    pumpFor(400);
    EXPECT_TRUE(view().hasKeyboardFocus(false));
    PressKey("Delete");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(b c)"; }));
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(1)));
}

TEST_F(Drag, ReturnsTheKeyboardAfterEscapeOrOutsideDrop)
{
    show({object(1, "a"), object(2, "b"), object(3, "c")});
    StartDrag(textOf("a"), below("b"));
    PressKey("Escape");
    EXPECT_TRUE(pumpUntil([this] { return !panel->isDragAndDropActive(); }));
    Release();
    pumpFor(300);
    EXPECT_TRUE(view().hasKeyboardFocus(false));

    StartDrag(textOf("a"), {hostX + panelWidth + 40, hostY + 200});
    Drop();
    pumpFor(300);
    EXPECT_TRUE(view().hasKeyboardFocus(false));
}

TEST_F(Drag, LeavesTheHostAKeyboardItTook)
{
    show({object(1, "a"), object(2, "b"), object(3, "c")});
    StartDrag(textOf("a"), below("b"));
    Release();
    // The picture of the row still fades.
    clickOnHost();
    EXPECT_TRUE(pumpUntil([this] { return !panel->isDragAndDropActive(); }));
    pumpFor(300);
    EXPECT_EQ(hands.focusedWindow(), host.Frame());
}
