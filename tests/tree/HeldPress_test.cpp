// How long a button is held never changes what it does, whatever the idle pass does to the tree meanwhile.

#include "tests/tree/support/HeadlessHands.h"
#include "tests/tree/support/PressTable.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class AHeldPress : public PressTable<HeadlessHands>
{
protected:
    void hold(const Press& press, Meanwhile meanwhile, Clicks clicks = Clicks::one)
    {
        begin(press, clicks);
        happen(meanwhile, press.spot.row);
        finish();
    }
};

class AHeldPressInTheTable : public AHeldPress, public testing::WithParamInterface<PressCase>
{
};
} // namespace

TEST_P(AHeldPressInTheTable, DoesWhatTheQuickOneDoes)
{
    playAll(GetParam(), {{Part::text, "b"},
                         {Part::text, "c"},
                         {Part::text, "Group 1"},
                         {Part::text, "x"},
                         {Part::text, "Layer"},
                         {Part::box, "b"},
                         {Part::box, "c"},
                         {Part::box, "Group 1"},
                         {Part::box, "x"},
                         {Part::openBox, "Group 1"},
                         {Part::openBox, "Layer"},
                         {Part::emptySpace, ""}});
}

INSTANTIATE_TEST_SUITE_P(Each, AHeldPressInTheTable, testing::ValuesIn(EveryPressCase()),
                         [](const auto& each) { return NameOf(each.param); });

// The outcomes of the quick clicks of the table.

TEST_F(AHeldPress, LeavesTheRowOfTheBoxAlone)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::muchTime, Meanwhile::rebuild})
    {
        hold(Press(Part::box, "b", Key::none, {"a", "b", "e"}), meanwhile);
        EXPECT_EQ(shape(), "Layer(a b* Group 1(c d) x e)");
        EXPECT_THAT(activesOf(GetItemsFromTree(panel)), ElementsAre(1, 0, 1, 1, 1));
    }
}

TEST_F(AHeldPress, WithCommandTakesTheRowAway)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::muchTime, Meanwhile::rebuild})
    {
        hold(Press(Part::text, "b", Key::command, {"a", "b", "e"}), meanwhile);
        EXPECT_EQ(shape(), "Layer(a* b Group 1(c d) x e*)");
    }
}

TEST_F(AHeldPress, WithShiftTakesNothingThatNobodyChose)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::muchTime, Meanwhile::rebuild})
    {
        hold(Press(Part::text, "b", Key::shift, {"a", "b"}), meanwhile);
        EXPECT_EQ(shape(), "Layer(a* b* Group 1(c d) x e)");
        view().deleteSelectedItems();
        EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(2), uuidOf(1)));
    }
}

TEST_F(AHeldPress, WithShiftSelectsTheRangeOfThePress)
{
    hold(Press(Part::text, "c", Key::shift, {"a", "c", "e"}), Meanwhile::reorder);
    EXPECT_EQ(shape(), "Layer(e* x Group 1*(d c*) b* a*)");
}

TEST_F(AHeldPress, ClosesTheGroupThatWasPressedTwice)
{
    hold(Press(Part::text, "Group 1", Key::none, {}), Meanwhile::reorder, Clicks::two);
    EXPECT_EQ(shape(), "Layer(e x Group 1*+ b a)");
}

TEST_F(AHeldPress, LeavesARowInItsPlaceAlone)
{
    hold(Press(Part::text, "b", Key::none, {"a", "b"}), Meanwhile::loss);
    EXPECT_EQ(shape(), "Layer(a* Group 1(c d) x e)");
}

// What else happens around a press.

TEST_F(AHeldPress, OfTheOtherButtonKeepsTheSelection)
{
    arrange(Press(Part::text, "b", Key::none, {"a", "b"}));
    press(place, juce::ModifierKeys::rightButtonModifier);
    happen(Meanwhile::rebuild, "b");
    finish();
    EXPECT_EQ(shape(), "Layer(a* b* Group 1(c d) x e)");
}

TEST_F(AHeldPress, ThatWandersIsNoClick)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::rebuild})
    {
        begin(Press(Part::text, "b", Key::none, {"a", "b"}), Clicks::one);
        happen(meanwhile, "b");
        moveTo(place + juce::Point<int>(4, 0));
        finish();
        EXPECT_EQ(shape(), "Layer(a* b* Group 1(c d) x e)");
    }
}

TEST_F(AHeldPress, BelongsToItsRowWhereverReleased)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::rebuild})
    {
        arrange(Press(Part::text, "b", Key::none, {"a", "b"}));
        press(place + juce::Point<int>(0, 9));
        happen(meanwhile, "b");
        moveTo(place + juce::Point<int>(0, 11));
        finish();
        EXPECT_EQ(shape(), "Layer(a b* Group 1(c d) x e)");
    }
}

TEST_F(AHeldPress, IsFollowedByAClickBeforeAnyMessage)
{
    begin(Press(Part::box, "b", Key::none, {"b"}), Clicks::one);
    happen(Meanwhile::rebuild, "b");
    letGo();
    passTime();
    press(place);
    letGo();
    EXPECT_THAT(activesOf(GetItemsFromTree(panel)), ElementsAre(1, 1, 1, 1, 1));
    EXPECT_EQ(shape(), "Layer(a b* Group 1(c d) x e)");
}

TEST_F(AHeldPress, MakesADoubleClickAcrossARebuildBetween)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::rebuild})
    {
        begin(Press(Part::text, "Group 1", Key::none, {}), Clicks::one);
        letGo();
        happen(meanwhile, "Group 1");
        press(place);
        finish();
        EXPECT_EQ(shape(), "Layer(a b Group 1*+ x e)");
    }
}

TEST_F(AHeldPress, MakesADoubleClickAcrossAnInnerRebuild)
{
    begin(Press(Part::text, "Group 1", Key::none, {}), Clicks::one);
    happen(Meanwhile::rebuild, "Group 1");
    letGo();
    press(place);
    finish();
    EXPECT_EQ(shape(), "Layer(a b Group 1*+ x e)");
}

TEST_F(AHeldPress, MakesNoDoubleClickOfTwoItems)
{
    begin(Press(Part::text, "b", Key::none, {}), Clicks::one);
    letGo();
    show({object(1, "a"), object(3, "c", 1), object(2, "b")});
    press(place);
    finish();
    EXPECT_EQ(shape(), "Layer(a Group 1*(c) b)");
}

TEST_F(AHeldPress, MakesNoDoubleClickOfTwoGroups)
{
    begin(Press(Part::text, "Group 1", Key::none, {}), Clicks::one);
    letGo();
    show({object(1, "a"), object(2, "b"), object(6, "f", 2), object(3, "c", 1)});
    press(place);
    finish();
    EXPECT_EQ(shape(), "Layer(a b Group 2*(f) Group 1(c))");
}

TEST_F(AHeldPress, MakesNoDoubleClickWithoutARow)
{
    show({object(1, "a", 1)});
    place = placeOf({Part::text, "Group 1"});
    show({});
    press(place);
    letGo();
    show({object(1, "a", 1)});
    press(place);
    finish();
    EXPECT_EQ(shape(), "Layer(Group 1*(a))");
}

TEST_F(AHeldPress, LeavesARowThatWasDeselectedMeanwhile)
{
    begin(Press(Part::text, "b", Key::none, {}), Clicks::one);
    EXPECT_EQ(shape(), "Layer(a b* Group 1(c d) x e)");
    view().clearSelectedItems();
    finish();
    EXPECT_EQ(shape(), "Layer(a b Group 1(c d) x e)");
}

TEST_F(AHeldPress, WithShiftSelectsTheRemainingRange)
{
    begin(Press(Part::text, "c", Key::shift, {"a", "c", "e"}), Clicks::one);
    show({object(1, "a"), object(3, "c", 1), object(4, "d", 1), external("x"), object(5, "e")});
    finish();
    EXPECT_EQ(shape(), "Layer(a* Group 1*(c* d) x e)");
}

TEST_F(AHeldPress, OfTheOtherButtonDragsNothing)
{
    arrange(Press(Part::text, "b", Key::none, {}));
    press(place, juce::ModifierKeys::rightButtonModifier);
    moveTo(place + juce::Point<int>(0, 100));
    EXPECT_FALSE(panel->isDragAndDropActive());
    finish();
}

TEST_F(AHeldPress, DragsNothingWhereNobodyTakesADrag)
{
    CustomTreeView lonely;
    lonely.setSize(200, 200);
    lonely.setRootItem(ValueTreesDemo::CreateTreeFromItems(items, -1));
    {
        HeadlessWindow around(lonely);
        pump();
        const juce::Point<int> row = lonely.getItemOnRow(1)->getItemPosition(true).getPosition();
        around.press(around.getLocalPoint(&lonely, row + juce::Point<int>(20, 10)));
        around.moveTo(around.getLocalPoint(&lonely, row + juce::Point<int>(20, 100)));
        EXPECT_TRUE(lonely.getItemOnRow(1)->isSelected());
        around.release();
    }
    lonely.discardRootItem();
}

TEST_F(AHeldPress, ThatNeverWasLetsADropThrough)
{
    show(items);
    select({"a"});
    const juce::Point<int> below = placeOf({Part::text, "e"}) + juce::Point<int>(0, 8);
    const juce::DragAndDropTarget::SourceDetails details("Object", &view(), below);
    EXPECT_TRUE(view().isInterestedInDragSource(details));
    view().itemDropped(details);
    pump();
    EXPECT_EQ(shape(), "Layer(b Group 1(c d) x e a*)");
}

TEST_F(AHeldPress, KeepsItsRowThroughAnotherPress)
{
    begin(Press(Part::text, "b", Key::none, {}), Clicks::one);
    RefreshTree(panel, items);
    EXPECT_EQ(view().getRetiredRows().size(), 1);
    letGo();
    press(place);
    pump();
    EXPECT_EQ(view().getRetiredRows().size(), 1) << "a button is down again";
    finish();
    EXPECT_EQ(view().getRetiredRows().size(), 0);
}

TEST_F(AHeldPress, FindsOneOfTheOutsideEffectsNamesakes)
{
    const std::vector<ObjectItem> twins = {external("x"), object(1, "a"), external("x")};
    for (const bool isSameCount : {true, false})
    {
        show(twins);
        for (auto* item : {view().getItemOnRow(1), view().getItemOnRow(3)})
            item->setSelected(true, false);
        press(view().getItemOnRow(3)->getItemPosition(true).getPosition() + juce::Point<int>(20, 10));
        RefreshTree(panel, isSameCount ? twins : std::vector<ObjectItem>{external("x"), object(1, "a")});
        letGo();
        EXPECT_EQ(shape(), isSameCount ? "Layer(x a x*)" : "Layer(x a)");
        passTime();
    }
}

TEST_F(AHeldPress, FindsTheUpperOfTwoOfOneIdentity)
{
    show({object(1, "a"), object(2, "b")});
    select({"a", "b"});
    press(placeOf({Part::text, "b"}));
    RefreshTree(panel, {object(2, "twin"), object(1, "a"), object(2, "b")});
    letGo();
    EXPECT_EQ(shape(), "Layer(twin* a b)");
}

TEST_F(AHeldPress, FindsAGroupThatHadLostItsNumber)
{
    show({object(1, "a"), object(3, "c", 1)});
    node("Group 1").setProperty(TreeIds::group, -1, nullptr);
    select({"a", "Group 1"});
    press(placeOf({Part::text, "Group 1"}));
    RefreshTree(panel, {object(1, "a"), object(3, "c", 1)});
    letGo();
    EXPECT_EQ(shape(), "Layer(a Group 1*(c))");
}

TEST_F(AHeldPress, LeavesAVanishedTreeAlone)
{
    begin(Press(Part::text, "b", Key::command, {"a", "b"}), Clicks::two);
    const juce::ValueTree gone = root()->getNode();
    const juce::ValueTree before = gone.createCopy();
    happen(Meanwhile::reorder, "b");
    finish();
    EXPECT_TRUE(gone.isEquivalentTo(before));
}

TEST_F(AHeldPress, OnAClosedGroupsRowDoesNothing)
{
    begin(Press(Part::text, "c", Key::none, {"a", "c"}), Clicks::one);
    RefreshTree(panel, items);
    select({"a", "e"});
    row("Group 1").setOpen(false);
    pump();
    finish();
    EXPECT_EQ(shape(), "Layer(a* b Group 1+ x e*)");
}

TEST_F(AHeldPress, OnARowScrolledAwayStillCounts)
{
    std::vector<ObjectItem> many;
    for (int i = 1; i <= 60; ++i)
        many.push_back(object(i, "row " + std::to_string(i)));
    show(many);
    select({"row 2", "row 3"});
    press(placeOf({Part::text, "row 2"}));
    std::reverse(many.begin(), many.end());
    RefreshTree(panel, many);
    select({"row 2", "row 3"});
    pump();
    ASSERT_EQ(view().getItemComponent(&row("row 2")), nullptr);
    letGo();
    EXPECT_THAT(selectedNames(), ElementsAre("row 2"));
}
