#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
const juce::KeyPress deleteKey(juce::KeyPress::deleteKey);
const juce::KeyPress backspaceKey(juce::KeyPress::backspaceKey);
const juce::KeyPress returnKey(juce::KeyPress::returnKey);
const juce::KeyPress escapeKey(juce::KeyPress::escapeKey);

class TreeKeys : public TreeTest
{
protected:
    TreeKeys()
    {
        RefreshTree(panel,
                    {object(1, "a"), object(2, "b", 1), object(3, "c", 1), object(4, "d", 1), external("x")});
    }

    CustomTextEditor& editor() { return *view().renameEditor; }

    /// The output of the key, followed by its result.
    std::string press(const juce::KeyPress& key)
    {
        bool isConsumed = false;
        const std::string output = OutputOf([&] { isConsumed = pressKey(key); });
        return output + (isConsumed ? "consumed" : "not consumed");
    }

    void openEditorOn(const std::string& name)
    {
        select({name});
        ASSERT_EQ(press(returnKey), "Key Pressed\nReturn Key Pressed\nEdit Button\nconsumed");
    }
};

constexpr const char* whole = "Layer(a Group 1(b c d) x)";
} // namespace

TEST_F(TreeKeys, DeleteTakesTheSelectedObject)
{
    select({"a"});
    EXPECT_EQ(press(deleteKey), "Key Pressed\nconsumed");
    EXPECT_EQ(shape(), "Layer(Group 1(b c d) x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(1)));
}

TEST_F(TreeKeys, BackspaceDeletesAsWell)
{
    select({"c"});
    EXPECT_EQ(press(backspaceKey), "Key Pressed\nconsumed");
    EXPECT_EQ(shape(), "Layer(a Group 1(b d) x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(3)));
}

TEST_F(TreeKeys, DeleteWithoutSelectionIsConsumedAndDoesNothing)
{
    EXPECT_EQ(press(deleteKey), "Key Pressed\nconsumed");
    EXPECT_EQ(shape(), whole);
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(TreeKeys, DeleteLeavesTheLayerRow)
{
    select({"Layer"});
    EXPECT_EQ(press(deleteKey), "Key Pressed\nconsumed");
    EXPECT_EQ(shape(), "Layer*(a Group 1(b c d) x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(TreeKeys, DeleteTakesAGroupWithAllItsObjects)
{
    select({"Group 1"});
    EXPECT_EQ(press(deleteKey), "Key Pressed\nconsumed");
    EXPECT_EQ(shape(), "Layer(a x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(2), uuidOf(3), uuidOf(4)));
}

TEST_F(TreeKeys, DeleteTakesTheObjectsOfAClosedGroup)
{
    row("Group 1").setOpen(false);
    select({"Group 1"});
    (void)press(deleteKey);
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(2), uuidOf(3), uuidOf(4)));
}

TEST_F(TreeKeys, DeleteListsNoUuidTwice)
{
    select({"Group 1", "c"});
    (void)press(deleteKey);
    EXPECT_EQ(shape(), "Layer(a x)");
    // The object goes first, and no longer counts under its group.
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(3), uuidOf(2), uuidOf(4)));
}

TEST_F(TreeKeys, DeleteGoesFromTheLastToTheFirst)
{
    select({"Layer", "a", "b", "d"});
    (void)press(deleteKey);
    EXPECT_EQ(shape(), "Layer*(Group 1(c) x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(4), uuidOf(2), uuidOf(1)));
}

TEST_F(TreeKeys, DeletingAnOutsideRowAsksForNoRemoval)
{
    select({"x"});
    (void)press(deleteKey);
    EXPECT_EQ(shape(), "Layer(a Group 1(b c d))");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(TreeKeys, DeleteAddsToWhatIsWaiting)
{
    select({"a"});
    (void)press(deleteKey);
    select({"b"});
    (void)press(deleteKey);
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(1), uuidOf(2)));
}

TEST_F(TreeKeys, CutCopyAndPasteAreSwallowed)
{
    select({"a"});
    EXPECT_EQ(press(commandKey('x')), "Key Pressed\nCut Button\nconsumed");
    EXPECT_EQ(press(commandKey('c')), "Key Pressed\nCopy Button\nconsumed");
    EXPECT_EQ(press(commandKey('v')), "Key Pressed\nPaste Button\nconsumed");
    EXPECT_EQ(shape(), "Layer(a* Group 1(b c d) x)");
    EXPECT_FALSE(panel->notifyLabel.isVisible());
    EXPECT_EQ(panel->notifyLabel.getText(), "");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(TreeKeys, SelectAllSelectsOpenRowsButTheRoot)
{
    EXPECT_EQ(press(commandKey('a')), "Key Pressed\nSelect All Button\nconsumed");
    EXPECT_EQ(shape(), "Layer(a* Group 1*(b* c* d*) x*)");
}

TEST_F(TreeKeys, SelectAllAddsToASelectedRoot)
{
    select({"Layer"});
    (void)press(commandKey('a'));
    EXPECT_EQ(shape(), "Layer*(a* Group 1*(b* c* d*) x*)");
}

TEST_F(TreeKeys, SelectAllLeavesOutWhatIsClosed)
{
    row("Group 1").setOpen(false);
    (void)press(commandKey('a'));
    row("Group 1").setOpen(true);
    EXPECT_EQ(shape(), "Layer(a* Group 1*(b c d) x*)");
}

TEST_F(TreeKeys, SelectAllWithoutARootBreaksNothing)
{
    ClearTree(panel);
    EXPECT_EQ(press(commandKey('a')), "Key Pressed\nSelect All Button\nconsumed");
    EXPECT_THAT(GetSelectedTreeItems(panel), IsEmpty());
}

TEST_F(TreeKeys, CountModifiersExactly)
{
    const auto shiftCommand = juce::ModifierKeys::commandModifier | juce::ModifierKeys::shiftModifier;
    select({"a"});
    for (const char letter : {'x', 'c', 'v', 'a'})
    {
        EXPECT_EQ(press(juce::KeyPress(letter, shiftCommand, 0)), "Key Pressed\nnot consumed");
        EXPECT_EQ(press(juce::KeyPress(letter)), "Key Pressed\nnot consumed");
    }
    EXPECT_EQ(press(juce::KeyPress(juce::KeyPress::deleteKey, juce::ModifierKeys::shiftModifier, 0)),
              "Key Pressed\nnot consumed");
    EXPECT_EQ(press(juce::KeyPress(juce::KeyPress::returnKey, juce::ModifierKeys::commandModifier, 0)),
              "Key Pressed\nnot consumed");
    EXPECT_EQ(shape(), "Layer(a* Group 1(b c d) x)");
}

TEST_F(TreeKeys, TakeLettersInEitherCase)
{
    EXPECT_EQ(press(juce::KeyPress('C', juce::ModifierKeys::commandModifier, 3)),
              "Key Pressed\nCopy Button\nconsumed");
}

TEST_F(TreeKeys, ArrowsMoveTheSelectionAndAreNotConsumed)
{
    select({"a"});
    EXPECT_EQ(press(juce::KeyPress(juce::KeyPress::downKey)), "Key Pressed\nnot consumed");
    EXPECT_THAT(selectedNames(), ElementsAre("Group 1"));
    EXPECT_EQ(press(juce::KeyPress(juce::KeyPress::leftKey)), "Key Pressed\nnot consumed");
    EXPECT_EQ(shape(), "Layer(a Group 1*+ x)");
    EXPECT_EQ(press(juce::KeyPress(juce::KeyPress::upKey)), "Key Pressed\nnot consumed");
    EXPECT_THAT(selectedNames(), ElementsAre("a"));
}

TEST_F(TreeKeys, AnyOtherKeyIsNotConsumed)
{
    EXPECT_EQ(press(juce::KeyPress('q')), "Key Pressed\nnot consumed");
    EXPECT_EQ(press(juce::KeyPress(juce::KeyPress::F5Key)), "Key Pressed\nnot consumed");
    EXPECT_EQ(press(escapeKey), "Key Pressed\nnot consumed");
}

TEST_F(TreeKeys, ReturnOpensTheEditorOverTheRow)
{
    openEditorOn("c");
    EXPECT_TRUE(editor().isVisible());
    EXPECT_EQ(editor().getText(), "c");
    EXPECT_TRUE(static_cast<bool>(editor().onRename));
    EXPECT_EQ(editor().getPosition(), row("c").getItemPosition(true).getPosition());
    EXPECT_EQ(editor().getWidth(), 200);
    EXPECT_EQ(editor().getHeight(), 20);
}

TEST_F(TreeKeys, ReturnShowsTheNameNotItsPaintedForm)
{
    RefreshTree(panel, {object(1, "Vortan Jitter Effector 2")});
    openEditorOn("Vortan Jitter Effector 2");
    EXPECT_EQ(editor().getText(), "Vortan Jitter Effector 2");
}

TEST_F(TreeKeys, ReturnWithNothingSelectedIsNotConsumed)
{
    EXPECT_EQ(press(returnKey), "Key Pressed\nReturn Key Pressed\nEdit Button\nnot consumed");
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(shape(), whole);
}

TEST_F(TreeKeys, ReturnRefusesSilentlyWhatIsNotOneObject)
{
    const std::vector<std::vector<std::string>> selections = {{"a", "b"}, {"Group 1"}, {"x"}, {"Layer"}};
    for (const auto& names : selections)
    {
        select(names);
        EXPECT_EQ(press(returnKey), "Key Pressed\nReturn Key Pressed\nEdit Button\nconsumed");
        EXPECT_FALSE(editor().isVisible());
        EXPECT_FALSE(static_cast<bool>(editor().onRename));
        EXPECT_FALSE(panel->notifyLabel.isVisible());
    }
    // Return has no other meaning there: the group is as open as it was.
    EXPECT_TRUE(row("Group 1").isOpen());
}

TEST_F(TreeKeys, ReturnRefusesAnObjectWithoutAnIdentity)
{
    node("a").removeProperty("uuid", nullptr);
    select({"a"});
    (void)press(returnKey);
    EXPECT_FALSE(editor().isVisible());
    node("a").setProperty("uuid", ZERO_UUID_TEXT, nullptr);
    (void)press(returnKey);
    EXPECT_FALSE(editor().isVisible());
}

TEST_F(TreeKeys, ReturnInTheEditorRenames)
{
    openEditorOn("c");
    editor().setText("new name", false);
    EXPECT_TRUE(editor().keyPressed(returnKey));
    EXPECT_FALSE(editor().isVisible());
    EXPECT_FALSE(static_cast<bool>(editor().onRename));
    EXPECT_EQ(shape(), "Layer(a Group 1(b new name* d) x)");
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "b", "new name", "d"));
}

TEST_F(TreeKeys, EscapeInTheEditorChangesNothing)
{
    openEditorOn("c");
    editor().setText("new name", false);
    EXPECT_TRUE(editor().keyPressed(escapeKey));
    EXPECT_FALSE(editor().isVisible());
    EXPECT_FALSE(static_cast<bool>(editor().onRename));
    EXPECT_EQ(shape(), "Layer(a Group 1(b c* d) x)");
}

TEST_F(TreeKeys, RenameTakesTheTextAsItStands)
{
    openEditorOn("c");
    editor().setText("", false);
    editor().returnPressed();
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "b", "", "d"));
    openEditorOn("a");
    editor().setText("  d ", false);
    editor().returnPressed();
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("  d ", "b", "", "d"));
}

TEST_F(TreeKeys, RenameOfAVanishedObjectIsDropped)
{
    openEditorOn("c");
    RefreshTree(panel, {object(1, "a")});
    editor().setText("new name", false);
    editor().returnPressed();
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(shape(), "Layer(a)");
    openEditorOn("a");
    ClearTree(panel);
    editor().returnPressed();
    EXPECT_EQ(shape(), "");
}

TEST_F(TreeKeys, RenameFindsTheObjectAfterARebuild)
{
    openEditorOn("c");
    RefreshTree(panel, {object(3, "c"), object(1, "a")});
    editor().setText("new name", false);
    editor().returnPressed();
    EXPECT_EQ(shape(), "Layer(new name a)");
}

TEST_F(TreeKeys, RenameUnderAClosedRowIsDropped)
{
    openEditorOn("c");
    row("Group 1").setOpen(false);
    editor().setText("new name", false);
    editor().returnPressed();
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "b", "c", "d"));
}

TEST_F(TreeKeys, ASecondRenameReplacesTheFirst)
{
    openEditorOn("a");
    const auto first = editor().getPosition();
    openEditorOn("d");
    EXPECT_NE(editor().getPosition(), first);
    EXPECT_EQ(editor().getText(), "d");
    editor().setText("new name", false);
    editor().returnPressed();
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "b", "c", "new name"));
}

TEST_F(TreeKeys, ReturnInAnEditorWithoutARenameThrows)
{
    EXPECT_THROW(editor().returnPressed(), std::bad_function_call);
}

TEST_F(TreeKeys, TheEditorCoversItsRowAfterARebuild)
{
    std::vector<ObjectItem> items;
    for (int i = 1; i <= 30; ++i)
        items.push_back(object(i, "row " + std::to_string(i), i <= 10 ? 1 : 0));
    RefreshTree(panel, items);
    pump();
    view().getViewport()->setViewPosition(0, 100);
    // Closing the group makes the rows below it move up, which JUCE lays out only with the next message.
    row("Group 1").setOpen(false);
    openEditorOn("row 15");
    const auto position = editor().getPosition();
    pump();
    EXPECT_EQ(row("row 15").getItemPosition(true).getPosition(), position);
    EXPECT_EQ(view().getViewport()->getViewPositionY(), 100);
    EXPECT_EQ(position.y, 20 * 6 - 100);
}

TEST_F(TreeKeys, TheEditorIsColouredAndSelectsItsText)
{
    EXPECT_EQ(editor().findColour(0x1000202), juce::Colours::lightskyblue);
    EXPECT_EQ(editor().findColour(0x1000206), juce::Colours::lightgrey);
    EXPECT_EQ(editor().findColour(0x1000203), juce::Colours::black);
    EXPECT_FALSE(editor().isVisible());
    EXPECT_EQ(editor().getParentComponent(), &view());
    EXPECT_EQ(editor().getPasswordCharacter(), 0u);
}

TEST_F(TreeKeys, AClickBelowTheRowsClearsTheSelection)
{
    select({"a", "b"});
    const auto now = juce::Time::getCurrentTime();
    view().mouseDown(juce::MouseEvent(juce::Desktop::getInstance().getMainMouseSource(), {5.0f, 5.0f}, {},
                                      0.0f, 0.0f, 0.0f, 0.0f, 0.0f, &view(), &view(), now, {5.0f, 5.0f}, now,
                                      1, false));
    EXPECT_EQ(shape(), whole);
}

TEST_F(TreeKeys, SelectionBelowRowsThatAreNotMeantStays)
{
    view().selectAllItems(&row("Group 1"));
    EXPECT_EQ(shape(), "Layer(a Group 1(b* c* d*) x)");
    view().selectAllItems(nullptr);
    EXPECT_EQ(shape(), "Layer(a Group 1(b* c* d*) x)");
}
