// What the state table restores of rows and scroll position when the tree has changed meanwhile.

#include "tests/tree/support/StateTableTest.h"

#include <gtest/gtest.h>

using namespace standin;

TEST_F(StateTable, LeavesUnknownRowsAlone)
{
    RefreshTree(panel, {object(1, "a", 1), object(2, "b", 2)});
    row("Group 2").setOpen(false);
    cache(1);
    RefreshTree(panel, {object(1, "a", 1), object(2, "b", 2), object(3, "c", 3), object(4, "d")});
    apply(1);
    EXPECT_EQ(shape(), "Layer(Group 1(a) Group 2+ Group 3(c) d)");
}

TEST_F(StateTable, GivesItsStateToTheFirstNamesake)
{
    RefreshTree(panel, {object(1, "same"), object(2, "b")});
    row("same").setOpen(false);
    cache(1);
    RefreshTree(panel, {object(1, "same"), object(2, "b"), object(3, "same")});
    apply(1);
    EXPECT_FALSE(root()->getSubItem(0)->isOpen());
    EXPECT_TRUE(root()->getSubItem(2)->isOpen());
}

TEST_F(StateTable, RestoresTheRemainingRows)
{
    RefreshTree(panel, {object(1, "a", 1), object(2, "b", 2), object(3, "c")});
    row("Group 2").setOpen(false);
    select({"a", "c", "Group 2"});
    cache(1);
    RefreshTree(panel, {object(3, "c"), object(2, "b", 2)});
    apply(1);
    EXPECT_EQ(shape(), "Layer(c* Group 2*+)");
}

TEST_F(StateTable, RestoresAClosedLayerRow)
{
    RefreshTree(panel, {object(1, "a", 1)});
    root()->setOpen(false);
    cache(1);
    RefreshTree(panel, {object(1, "a", 1)});
    apply(1);
    EXPECT_EQ(shape(), "Layer+");
    cache(1);
    EXPECT_FALSE(didChange(1));
}

TEST_F(StateTable, KeepsAGroupWithSelectedObjectClosed)
{
    RefreshTree(panel, {object(1, "a", 1)});
    select({"a"});
    row("Group 1").setOpen(false);
    cache(1);
    RefreshTree(panel, {object(1, "a", 1)});
    apply(1);
    EXPECT_EQ(shape(), "Layer(Group 1+)");
}

TEST_F(StateTable, PutsEqualNamesOntoTheFirst)
{
    const std::vector<ObjectItem> items = {object(1, "same"), object(2, "same")};
    RefreshTree(panel, items);
    root()->getSubItem(1)->setSelected(true, true);
    cache(1);
    RefreshTree(panel, items);
    apply(1);
    EXPECT_TRUE(root()->getSubItem(0)->isSelected());
    EXPECT_FALSE(root()->getSubItem(1)->isSelected());
}

TEST_F(StateTable, RestoresATreeScrolledToItsEnd)
{
    const auto items = manyItems("a", 40);
    show(1, items);
    scrollTo(10000);
    const int end = scrolledTo();
    cache(1);
    show(1, items);
    EXPECT_EQ(scrolledTo(), end);
    EXPECT_FALSE(didChange(1));
    pump();
    EXPECT_EQ(scrolledTo(), end);
    EXPECT_FALSE(didChange(1));
    EXPECT_FALSE(view().getViewport()->getHorizontalScrollBar().isVisible());
}

TEST_F(StateTable, RestoresATreeInATooNarrowPanel)
{
    panel->setBounds(0, 0, 90, 260);
    const auto items = manyItems("a", 40);
    show(1, items);
    pump();
    scrollTo(10000);
    const int end = scrolledTo();
    cache(1);
    show(1, items);
    EXPECT_EQ(scrolledTo(), end);
    pump();
    EXPECT_EQ(scrolledTo(), end);
    EXPECT_FALSE(didChange(1));
}

TEST_F(StateTable, SeesTheScrollPositionOfPresentRows)
{
    RefreshTree(panel, manyItems("a", 16));
    scrollTo(10000);
    ASSERT_GT(scrolledTo(), 60);
    // Closing makes the tree too short for this position; JUCE would notice with the next message.
    row("Group 1").setOpen(false);
    cache(1);
    pump();
    EXPECT_FALSE(didChange(1));
}

TEST_F(StateTable, LimitsAScrollPositionWithoutRows)
{
    show(1, manyItems("a", 40));
    scrollTo(500);
    cache(1);
    show(1, manyItems("a", 5));
    EXPECT_EQ(scrolledTo(), 0);
    pump();
    EXPECT_EQ(scrolledTo(), 0);
    EXPECT_FALSE(didChange(1));
}

TEST_F(StateTable, GivesTheFirstNamesakeTheFirstState)
{
    show(1, {object(1, "Group 2"), object(2, "x", 2)});
    root()->getSubItem(1)->setOpen(false);
    cache(1);
    show(1, {object(1, "new"), object(2, "x", 2)});
    EXPECT_TRUE(row("Group 2").isOpen()) << "it has taken the state of the object of its name";
}
