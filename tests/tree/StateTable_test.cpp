// What the state table stores, and which changes it notices.

#include "standin/process/ProcessCounts.h"
#include "tests/tree/support/StateTableTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(StateTable, KnowsNothingOfAnUncachedLayer)
{
    RefreshTree(panel, {object(1, "a", 1)});
    select({"a"});
    apply(7);
    EXPECT_EQ(shape(), "Layer(Group 1(a*))");
    EXPECT_FALSE(didChange(7));
}

TEST_F(StateTable, BringsBackEachOfThreeLayers)
{
    const auto first = manyItems("a", 40);
    const auto second = manyItems("b", 40);
    const auto third = manyItems("c", 40);

    show(1, first);
    row("Group 1").setOpen(false);
    select({"a7", "Group 2"});
    scrollTo(123);
    cache(1);

    show(2, second);
    EXPECT_TRUE(row("Group 1").isOpen());
    EXPECT_THAT(selectedNames(), IsEmpty());
    EXPECT_EQ(scrolledTo(), 0);
    row("Group 2").setOpen(false);
    select({"Layer", "b40"});
    scrollTo(300);
    cache(2);

    show(3, third);
    select({"c2"});
    scrollTo(51);
    cache(3);

    show(1, first);
    EXPECT_FALSE(row("Group 1").isOpen());
    EXPECT_TRUE(row("Group 2").isOpen());
    EXPECT_THAT(selectedNames(), ElementsAre("Group 2", "a7"));
    EXPECT_EQ(scrolledTo(), 123);

    show(3, third);
    EXPECT_TRUE(row("Group 1").isOpen());
    EXPECT_TRUE(row("Group 2").isOpen());
    EXPECT_THAT(selectedNames(), ElementsAre("c2"));
    EXPECT_EQ(scrolledTo(), 51);

    show(2, second);
    EXPECT_TRUE(row("Group 1").isOpen());
    EXPECT_FALSE(row("Group 2").isOpen());
    EXPECT_THAT(selectedNames(), ElementsAre("Layer", "b40"));
    EXPECT_EQ(scrolledTo(), 300);

    for (const int layerId : {1, 2, 3})
        EXPECT_EQ(didChange(layerId), layerId != 2);
}

TEST_F(StateTable, AgreesWithTheTreeAfterTheRestore)
{
    const auto items = manyItems("a", 40);
    show(1, items);
    scrollTo(200);
    select({"a20"});
    row("Group 1").setOpen(false);
    cache(1);
    show(1, items);
    EXPECT_FALSE(didChange(1));
    pump();
    EXPECT_FALSE(didChange(1));
    EXPECT_EQ(scrolledTo(), 200);
}

TEST_F(StateTable, IsUsedUpByOneUse)
{
    const auto items = manyItems("a", 10);
    RefreshTree(panel, items);
    select({"a3"});
    cache(1);
    RefreshTree(panel, items);
    apply(1);
    EXPECT_THAT(selectedNames(), ElementsAre("a3"));
    RefreshTree(panel, items);
    apply(1);
    EXPECT_THAT(selectedNames(), IsEmpty());
    EXPECT_FALSE(didChange(1));
    select({"a5"});
    row("Group 1").setOpen(false);
    EXPECT_FALSE(didChange(1));
    cache(1);
    EXPECT_FALSE(didChange(1));
    select({"a6"});
    EXPECT_TRUE(didChange(1));
}

TEST_F(StateTable, NoticesSelectionOpennessAndScrolling)
{
    RefreshTree(panel, manyItems("a", 40));
    pump();
    cache(1);
    EXPECT_FALSE(didChange(1));

    select({"a9"});
    EXPECT_TRUE(didChange(1));
    view().clearSelectedItems();
    EXPECT_FALSE(didChange(1));

    row("Group 2").setOpen(false);
    EXPECT_TRUE(didChange(1));
    row("Group 2").setOpen(true);
    EXPECT_FALSE(didChange(1));

    scrollTo(20);
    EXPECT_TRUE(didChange(1));
    scrollTo(0);
    EXPECT_FALSE(didChange(1));
}

TEST_F(StateTable, NoticesScrollingBackToAnEarlierPlace)
{
    RefreshTree(panel, manyItems("a", 40));
    pump();
    cache(1);
    ASSERT_FALSE(didChange(1));
    scrollTo(20);
    cache(1);
    scrollTo(0);
    EXPECT_TRUE(didChange(1));
}

TEST_F(StateTable, NoticesThatTheLastRowHasGone)
{
    RefreshTree(panel, {object(1, "a")});
    cache(1);
    node("Layer").removeChild(0, nullptr);
    EXPECT_TRUE(didChange(1));
}

TEST_F(StateTable, NoticesEachRowOfAGroup)
{
    for (const char* name : {"a1", "a2", "a4"})
    {
        RefreshTree(panel, manyItems("a", 10));
        cache(1);
        row(name).setOpen(false);
        EXPECT_TRUE(didChange(1)) << name;
    }
}

TEST_F(StateTable, LeavesTheRowsThatItLooksAt)
{
    show(1, manyItems("a", 10));
    const juce::Component::SafePointer<juce::Component> component(view().getItemComponent(&row("a1")));
    select({"a2"});
    ASSERT_TRUE(didChange(1));
    cache(1);
    EXPECT_NE(component, nullptr) << "a button may be down over it";
}

TEST_F(StateTable, TakesAllItsLayersAlong)
{
    show(1, manyItems("a", 200));
    const auto bytesAfterOne = [this]
    {
        auto* other = CreateTreeStateTable();
        for (int layerId = 0; layerId < 20; ++layerId)
            CacheLayerTreeState(other, layerId, panel);
        DeleteTreeStateTable(other);
        return static_cast<long>(process::BytesInUse());
    };
    (void)bytesAfterOne();
    const long before = bytesAfterOne();
    EXPECT_LT(bytesAfterOne() - before, 10000);
}

TEST_F(StateTable, NoticesRenamesReordersAndNewGroups)
{
    RefreshTree(panel, manyItems("a", 10));
    cache(1);
    node("a8").setProperty("name", "renamed", nullptr);
    EXPECT_TRUE(didChange(1));
    cache(1);
    node("Layer").moveChild(2, 4, nullptr);
    EXPECT_TRUE(didChange(1));
    cache(1);
    panel->AddNewGroup(root());
    EXPECT_TRUE(didChange(1));
    cache(1);
    EXPECT_FALSE(didChange(1));
}

TEST_F(StateTable, NoticesWhichOfTwoEqualNamesIsClosed)
{
    RefreshTree(panel, {object(1, "same"), object(2, "same")});
    cache(1);
    root()->getSubItem(0)->setOpen(false);
    EXPECT_TRUE(didChange(1));
}

TEST_F(StateTable, NoticesTheOrderOfClosedRows)
{
    RefreshTree(panel, {object(1, "a", 1), object(2, "b")});
    row("Group 1").setOpen(false);
    cache(1);
    RefreshTree(panel, {object(2, "b"), object(1, "a", 1)});
    row("Group 1").setOpen(false);
    EXPECT_TRUE(didChange(1));
}

TEST_F(StateTable, NoticesTheOrderOfSelectedRows)
{
    RefreshTree(panel, {object(1, "a"), object(2, "b")});
    select({"b", "a"});
    cache(1);
    select({"a", "b"});
    EXPECT_FALSE(didChange(1));
    select({"b"});
    EXPECT_TRUE(didChange(1));
}

TEST_F(StateTable, HoldsNothingForATreeWithoutARoot)
{
    ClearTree(panel);
    cache(1);
    EXPECT_FALSE(didChange(1));
    RefreshTree(panel, {object(1, "a")});
    EXPECT_FALSE(didChange(1));
    select({"a"});
    apply(1);
    EXPECT_EQ(shape(), "Layer(a*)");
}

TEST_F(StateTable, NoticesThatTheTreeHasGone)
{
    RefreshTree(panel, {object(1, "a")});
    cache(1);
    ClearTree(panel);
    EXPECT_TRUE(didChange(1));
    apply(1);
    EXPECT_EQ(root(), nullptr);
}

TEST_F(StateTable, ReplacesWhatItHad)
{
    const auto items = manyItems("a", 10);
    RefreshTree(panel, items);
    select({"a1"});
    cache(1);
    select({"a2"});
    cache(1);
    RefreshTree(panel, items);
    apply(1);
    EXPECT_THAT(selectedNames(), ElementsAre("a2"));
}

TEST_F(StateTable, ReplacesWhatItHadByNothing)
{
    const auto items = manyItems("a", 10);
    RefreshTree(panel, items);
    row("Group 1").setOpen(false);
    select({"a9"});
    cache(1);
    ClearTree(panel);
    cache(1);
    RefreshTree(panel, items);
    EXPECT_FALSE(didChange(1));
    apply(1);
    EXPECT_TRUE(row("Group 1").isOpen());
    EXPECT_THAT(selectedNames(), IsEmpty());
}

TEST_F(StateTable, ForgetsAllLayers)
{
    const auto items = manyItems("a", 10);
    RefreshTree(panel, items);
    for (const int layerId : {1, 2, 3})
        cache(layerId);
    select({"a2"});
    ClearTreeState(table);
    for (const int layerId : {1, 2, 3})
    {
        EXPECT_FALSE(didChange(layerId));
        apply(layerId);
        EXPECT_THAT(selectedNames(), ElementsAre("a2"));
    }
    ClearTreeState(table);
}

TEST_F(StateTable, TakesAnyLayerId)
{
    RefreshTree(panel, {object(1, "a"), object(2, "b")});
    for (const int layerId : {0, -1, 2147483647, -2147483647 - 1})
    {
        select({layerId < 0 ? "a" : "b"});
        cache(layerId);
    }
    view().clearSelectedItems();
    apply(-1);
    EXPECT_THAT(selectedNames(), ElementsAre("a"));
    apply(2147483647);
    EXPECT_THAT(selectedNames(), ElementsAre("b"));
}
