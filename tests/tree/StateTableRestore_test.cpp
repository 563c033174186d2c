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

TEST_F(StateTable, FindsRowsThatOthersHaveShifted)
{
    struct
    {
        std::vector<ObjectItem> before;
        std::vector<ObjectItem> after;
        std::string shape;
    } const cases[] = {
        {{object(1, "a"), object(2, "b", 1)},
         {object(1, "a"), object(3, "c"), object(2, "b", 1)},
         "Layer(a c Group 1+)"},
        {{object(1, "a"), object(3, "c"), object(2, "b", 1)},
         {object(1, "a"), object(2, "b", 1)},
         "Layer(a Group 1+)"},
        {{object(1, "a", 2), object(2, "b", 1)},
         {object(2, "b", 1), object(1, "a", 2)},
         "Layer(Group 1+ Group 2(a))"},
    };
    for (const auto& each : cases)
    {
        show(1, each.before);
        row("Group 1").setOpen(false);
        cache(1);
        show(1, each.after);
        EXPECT_EQ(shape(), each.shape);
    }
}

TEST_F(StateTable, GivesNamesakesTheirStatesInOrder)
{
    show(1, {object(1, "m"), object(2, "same")});
    row("same").setOpen(false);
    cache(1);
    show(1, {object(2, "same"), object(3, "same")});
    EXPECT_FALSE(root()->getSubItem(0)->isOpen());
    EXPECT_TRUE(root()->getSubItem(1)->isOpen());

    show(2, {object(1, "same"), object(2, "same")});
    root()->getSubItem(0)->setOpen(false);
    cache(2);
    show(2, {object(3, "x"), object(2, "same")});
    EXPECT_FALSE(row("same").isOpen());
}

TEST_F(StateTable, RestoresEachRowOfAGroup)
{
    const std::vector<ObjectItem> items = {object(1, "a", 1), object(2, "b", 1), object(3, "c", 1)};
    for (const char* name : {"a", "b", "c"})
    {
        show(1, items);
        for (const char* each : {"a", "b", "c"})
            row(each).setOpen(each != std::string(name));
        cache(1);
        show(1, items);
        for (const char* each : {"a", "b", "c"})
            EXPECT_EQ(row(each).isOpen(), each != std::string(name)) << each;
    }
}

TEST_F(StateTable, OpensAGroupToSelectWhatIsInIt)
{
    show(1, {object(1, "Group 1"), object(2, "a", 1), object(3, "z")});
    root()->getSubItem(0)->setOpen(false);
    select({"a"});
    cache(1);
    // The group takes the state of the object of its name, as the first of them does.
    show(1, {object(2, "a", 1), object(3, "z")});
    EXPECT_EQ(shape(), "Layer(Group 1(a*) z)");
}

TEST_F(StateTable, LaysRestoredRowsOutAtOnce)
{
    auto* rows = view().getViewport()->getViewedComponent();
    std::vector<ObjectItem> items = manyItems("a", 40);
    for (auto& item : items)
        item.group = item.group == 2 ? 0 : item.group;
    for (const int width : {40, 60, 80, 100, 120, 300})
        for (const bool isClosed : {false, true})
        {
            SCOPED_TRACE(std::to_string(width) + (isClosed ? ", closed" : ", open"));
            panel->setBounds(0, 0, width, 260);
            show(1, items);
            row("Group 1").setOpen(!isClosed);
            pump();
            view().getViewport()->setViewPosition(10000, 10000);
            cache(1);
            RefreshTree(panel, items);
            apply(1);
            const auto restored = rows->getBounds();
            EXPECT_EQ(rows->getHeight(), 20 * view().getNumRowsInTree());
            pump();
            EXPECT_EQ(rows->getBounds(), restored);
        }
}

TEST_F(StateTable, LeavesTheRowsOfATreeScrolledSideways)
{
    auto* rows = view().getViewport()->getViewedComponent();
    panel->setBounds(0, 0, 60, 260);
    show(1, manyItems("a", 40));
    pump();
    view().getViewport()->setViewPosition(10000, 100);
    const auto before = rows->getBounds();
    ASSERT_LT(before.getX(), 0);
    const juce::Component::SafePointer<juce::Component> component(view().getItemComponent(&row("a5")));
    ASSERT_NE(component, nullptr);
    cache(1);
    apply(1);
    EXPECT_EQ(rows->getBounds(), before);
    EXPECT_NE(component, nullptr) << "it is laid out already";
    cache(1);
    row("a5").setOpen(false);
    EXPECT_TRUE(didChange(1)) << "the state was used up, and stored anew";
}
