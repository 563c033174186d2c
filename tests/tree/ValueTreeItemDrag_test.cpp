#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;

namespace
{
class RowsInADrag : public TreeTest
{
protected:
    void build(const std::vector<ObjectItem>& items) { RefreshTree(panel, items); }

    bool isInterested(const std::string& target, const std::string& dragged)
    {
        return row(target).isInterestedInDragSource({juce::String(dragged), &view(), {}});
    }

    void move(const std::vector<std::string>& names, juce::ValueTree newParent, int insertIndex)
    {
        select(names);
        juce::OwnedArray<juce::ValueTree> nodes;
        ValueTreeItem::getSelectedTreeViewItems(view(), nodes);
        ValueTreeItem::moveItems(view(), nodes, newParent, insertIndex);
    }
};
} // namespace

TEST_F(RowsInADrag, DescribeWhatIsDragged)
{
    build({object(1, "a", 1), object(2, "r", -1), external("x")});
    EXPECT_EQ(row("a").getDragSourceDescription().toString(), "Object");
    EXPECT_EQ(row("r").getDragSourceDescription().toString(), "RigidObject");
    EXPECT_EQ(row("Group 1").getDragSourceDescription().toString(), "Group");
    EXPECT_EQ(row("x").getDragSourceDescription().toString(), "External");
    EXPECT_EQ(row("Layer").getDragSourceDescription().toString(), "Layer");
}

TEST_F(RowsInADrag, AreRigidByThePresenceOfTheMark)
{
    build({object(1, "a")});
    node("a").setProperty("rigid", 0, nullptr);
    EXPECT_EQ(row("a").getDragSourceDescription().toString(), "RigidObject");
}

TEST_F(RowsInADrag, TakeTheDropsOfTheTable)
{
    build({object(1, "a", 1), external("x")});
    const std::vector<std::string> dragged = {"Object", "RigidObject", "Group", "External", "Layer",
                                              "",       "other"};
    const auto answers = [&](const std::string& target)
    {
        std::vector<bool> result;
        for (const auto& description : dragged)
            result.push_back(isInterested(target, description));
        return result;
    };
    EXPECT_THAT(answers("Group 1"), ElementsAre(true, false, false, false, false, false, false));
    EXPECT_THAT(answers("Layer"), ElementsAre(true, true, true, false, false, false, false));
    EXPECT_THAT(answers("a"), ElementsAre(false, false, false, false, false, false, false));
    EXPECT_THAT(answers("x"), ElementsAre(false, false, false, false, false, false, false));
}

TEST_F(RowsInADrag, TakeNoDropOutsideTheirView)
{
    build({object(1, "a"), object(2, "b", 1)});
    select({"a"});
    const std::unique_ptr<juce::TreeViewItem> left(view().getRootItem());
    const juce::DragAndDropTarget::SourceDetails details("Object", &view(), {});
    ASSERT_TRUE(left->isInterestedInDragSource(details));
    view().setRootItem(nullptr);
    EXPECT_FALSE(left->isInterestedInDragSource(details));
    EXPECT_FALSE(left->getSubItem(1)->isInterestedInDragSource(details));
    EXPECT_EQ(OutputOf([&] { left->itemDropped(details, 0); }), "");
}

TEST_F(RowsInADrag, StartNoneOnceTheyHaveLeftTheirView)
{
    build({object(1, "a")});
    ValueTreeItem outside(node("a"), false);
    EXPECT_TRUE(outside.getDragSourceDescription().isVoid());
}

TEST_F(RowsInADrag, TakeAnObjectIntoAGroup)
{
    build({object(1, "a", 1), object(2, "b")});
    select({"b"});
    drop("Group 1", 0);
    EXPECT_EQ(shape(), "Layer(Group 1(b* a))");
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(1, 1));
}

TEST_F(RowsInADrag, GiveAnUngroupedObjectTheNumberMinusOne)
{
    build({object(1, "a", 1), object(2, "b", 1)});
    select({"a"});
    drop("Layer", 1);
    EXPECT_EQ(shape(), "Layer(Group 1(b) a*)");
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(1, -1));
    EXPECT_FALSE(node("a").hasProperty("rigid"));
}

TEST_F(RowsInADrag, KeepARigidObjectRigidWhenItMoves)
{
    build({object(1, "r", -1), object(2, "b"), object(3, "c")});
    select({"r"});
    drop("Layer", 3, "RigidObject");
    EXPECT_EQ(shape(), "Layer(b c r*)");
    EXPECT_TRUE(node("r").hasProperty("rigid"));
    EXPECT_EQ(row("r").getDragSourceDescription().toString(), "RigidObject");
}

TEST_F(RowsInADrag, MoveEverySelectedRowWhateverItIs)
{
    build({object(1, "a", 1), object(2, "r", -1), external("x"), object(3, "b", 2)});
    select({"a", "r", "x"});
    drop("Group 2", 1);
    EXPECT_EQ(shape(), "Layer(Group 1 Group 2(b a* r* x*))");
    EXPECT_EQ(static_cast<int>(node("x")["group"]), 2);
}

TEST_F(RowsInADrag, KeepTheOrderOfWhatMoves)
{
    build({object(1, "a"), object(2, "b"), object(3, "c"), object(4, "d"), object(5, "e")});
    move({"a", "c", "e"}, node("Layer"), 3);
    EXPECT_EQ(shape(), "Layer(b a* c* e* d)");
}

TEST_F(RowsInADrag, MoveDownToTheIndexCountedBefore)
{
    build({object(1, "a"), object(2, "b"), object(3, "c"), object(4, "d")});
    move({"a"}, node("Layer"), 3);
    EXPECT_EQ(shape(), "Layer(b c a* d)");
    move({"d"}, node("Layer"), 0);
    EXPECT_EQ(shape(), "Layer(d* b c a)");
    move({"b"}, node("Layer"), 4);
    EXPECT_EQ(shape(), "Layer(d c a b*)");
}

TEST_F(RowsInADrag, StayWhenDroppedOnThemselves)
{
    build({object(1, "a"), object(2, "b"), object(3, "c")});
    move({"b"}, node("Layer"), 1);
    EXPECT_EQ(shape(), "Layer(a b* c)");
    move({"b"}, node("Layer"), 2);
    EXPECT_EQ(shape(), "Layer(a b* c)");
}

TEST_F(RowsInADrag, ListWhatTheyMoveFromTheLast)
{
    build({object(1, "a"), object(2, "b", 1), object(3, "c")});
    select({"a", "b", "c"});
    EXPECT_EQ(OutputOf([this] { drop("Layer", 0); }),
              "Items: 3\nMoving Item: c\nMoving Item: b\nMoving Item: a\n");
    EXPECT_EQ(shape(), "Layer(a* b* c* Group 1)");
}

TEST_F(RowsInADrag, SayThatTheyMoveNothing)
{
    build({object(1, "a"), object(2, "b", 1)});
    view().clearSelectedItems();
    EXPECT_EQ(OutputOf([this] { drop("Group 1", 0); }), "Items: 0\n");
    EXPECT_EQ(shape(), "Layer(a Group 1(b))");
}

TEST_F(RowsInADrag, NameTheRootButLeaveIt)
{
    build({object(1, "a"), object(2, "b")});
    select({"Layer", "b"});
    EXPECT_EQ(OutputOf([this] { drop("Layer", 0); }), "Items: 2\nMoving Item: b\nMoving Item: Layer\n");
    EXPECT_EQ(shape(), "Layer*(b* a)");
}

TEST_F(RowsInADrag, LeaveAGroupThatIsDroppedIntoItself)
{
    build({object(1, "a", 1), object(2, "b")});
    select({"Group 1"});
    drop("Group 1", 0);
    EXPECT_EQ(shape(), "Layer(Group 1*(a) b)");
    node("Group 1").appendChild(ValueTreesDemo::createTree("Group", "inner"), nullptr);
    select({"Group 1"});
    drop("inner", 0);
    EXPECT_EQ(shape(), "Layer(Group 1*(a inner) b)");
    EXPECT_EQ(static_cast<int>(node("Group 1")["group"]), 1);
}

TEST_F(RowsInADrag, LetAGroupFollowIntoAnotherGroup)
{
    build({object(1, "a", 1), object(2, "b"), object(3, "c", 2)});
    select({"Group 1", "b"});
    drop("Group 2", 0);
    EXPECT_EQ(shape(), "Layer(Group 2(Group 1*(a) b* c))");
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(1, 2, 2));
    // The moved group carries the number of its new parent.
    EXPECT_EQ(static_cast<int>(node("Group 1")["group"]), 2);
}

TEST_F(RowsInADrag, LoseTheNumberOfAReorderedGroup)
{
    build({object(1, "a", 1), object(2, "b")});
    select({"Group 1"});
    drop("Layer", 2, "Group");
    EXPECT_EQ(shape(), "Layer(b Group 1*(a))");
    EXPECT_EQ(static_cast<int>(node("Group 1")["group"]), -1);
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(0, 1));
    RefreshTree(panel, GetItemsFromTree(panel));
    EXPECT_EQ(static_cast<int>(node("Group 1")["group"]), 1);
}

TEST_F(RowsInADrag, OpenAClosedGroupThatTakesADrop)
{
    build({object(1, "a", 1), object(2, "b")});
    row("Group 1").setOpen(false);
    select({"b"});
    drop("Group 1", 0);
    EXPECT_EQ(shape(), "Layer(Group 1(b* a))");
}

TEST_F(RowsInADrag, SurviveADropThatDeletesThem)
{
    build({object(1, "a"), object(2, "b", 1), object(3, "c", 2)});
    select({"a", "c"});
    // Moving "a" rebuilds all rows at the top, the group's among them, while the group takes the drop.
    drop("Group 1", 1);
    EXPECT_EQ(shape(), "Layer(Group 1(b a* c*) Group 2)");
}

TEST_F(RowsInADrag, MoveWithoutANewParentToNowhere)
{
    build({object(1, "a"), object(2, "b")});
    move({"a"}, juce::ValueTree(), 0);
    EXPECT_EQ(shape(), "Layer(b)");
}

TEST_F(RowsInADrag, TakeTheirMarksAlong)
{
    build({object(1, "a"), object(2, "b")});
    const int before = view().getNumChildComponents();
    view().itemDragMove({"Object", &view(), {30, 30}});
    EXPECT_GT(view().getNumChildComponents(), before);
    RefreshTree(panel, {object(1, "a")});
    EXPECT_EQ(view().getNumChildComponents(), before);
}
