#include "tests/tree/support/TreeGuiTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Keys : public TreeGuiTest
{
protected:
    Keys() { show({object(1, "a"), object(2, "b", 1), object(3, "c", 1), external("x")}); }

    CustomTextEditor& editor() { return *view().renameEditor; }

    void clickAndFocus(const std::string& name)
    {
        Click(textOf(name));
        ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    }

    /// What the key writes, once all of it has been seen.
    std::string outputOfKey(const std::function<void()>& send, const std::function<bool()>& isDone)
    {
        return OutputOf(
            [&]
            {
                send();
                EXPECT_TRUE(pumpUntil(isDone));
                pumpFor(50);
            });
    }
};
} // namespace

TEST_F(Keys, ReachTheTreeOnce)
{
    clickAndFocus("a");
    EXPECT_EQ(
        outputOfKey([this] { PressKey("Delete"); }, [this] { return shape() == "Layer(Group 1(b c) x)"; }),
        "Key Pressed\n");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(1)));
}

TEST_F(Keys, ArriveWithAnAnswerOfTheServer)
{
    clickAndFocus("a");
    hands.key("Down");
    // A question to the server; what it has sent before its answer is in Xlib's queue after that.
    EXPECT_TRUE(panel->getPeer()->isFocused());
    (void)OutputOf([] { pump(); });
    EXPECT_THAT(selectedNames(), ElementsAre("Group 1"));
}

TEST_F(Keys, ThatAreNotConsumedReachTheTreeOnce)
{
    clickAndFocus("a");
    EXPECT_EQ(outputOfKey([this] { PressKey("Down"); },
                          [this] { return selectedNames() == std::vector<std::string>{"Group 1"}; }),
              "Key Pressed\n");
    EXPECT_EQ(OutputOf(
                  [this]
                  {
                      PressKey("F5");
                      pumpFor(200);
                  }),
              "Key Pressed\n");
}

TEST_F(Keys, ReturnAndTypingRename)
{
    clickAndFocus("b");
    EXPECT_EQ(outputOfKey([this] { PressKey("Return"); }, [this] { return editor().isVisible(); }),
              "Key Pressed\nReturn Key Pressed\nEdit Button\n");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    EXPECT_EQ(editor().getHighlightedText(), "b");
    // All of it is selected, so typing replaces it.
    const std::string output = OutputOf(
        [this]
        {
            TypeText("new name");
            EXPECT_TRUE(pumpUntil([this] { return editor().getText() == "new name"; }));
            PressKey("Return");
            EXPECT_TRUE(pumpUntil([this] { return !editor().isVisible(); }));
        });
    EXPECT_EQ(output, "");
    EXPECT_EQ(shape(), "Layer(a Group 1(new name* c) x)");
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "new name", "c"));
    // The tree has the keyboard back.
    EXPECT_TRUE(view().hasKeyboardFocus(false));
}

TEST_F(Keys, EscapeLeavesTheNameAsItWas)
{
    clickAndFocus("b");
    PressKey("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    TypeText("new");
    ASSERT_TRUE(pumpUntil([this] { return editor().getText() == "new"; }));
    PressKey("Escape");
    EXPECT_TRUE(pumpUntil([this] { return !editor().isVisible(); }));
    EXPECT_EQ(shape(), "Layer(a Group 1(b* c) x)");
    EXPECT_TRUE(view().hasKeyboardFocus(false));
}

TEST_F(Keys, DeleteInTheEditorEditsItsText)
{
    clickAndFocus("b");
    PressKey("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    const std::string output = OutputOf(
        [this]
        {
            PressKey("Delete");
            EXPECT_TRUE(pumpUntil([this] { return editor().getText().isEmpty(); }));
            PressKey("Delete");
            PressKey("Control+a");
            pumpFor(100);
        });
    EXPECT_EQ(output, "");
    EXPECT_EQ(shape(), "Layer(a Group 1(b* c) x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(Keys, EditorStaysOpenWhenTheUserClicksElsewhere)
{
    clickAndFocus("b");
    PressKey("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    TypeText("new");
    ASSERT_TRUE(pumpUntil([this] { return editor().getText() == "new"; }));
    Click(textOf("a"));
    EXPECT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    EXPECT_TRUE(editor().isVisible());
    clickOnHost();
    EXPECT_TRUE(pumpUntil([this] { return !hasFocus(); }));
    EXPECT_TRUE(editor().isVisible());
    // Back into the editor, its rename is still of the row that it was opened over.
    Click(centreOf(editor()));
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    PressKey("Return");
    EXPECT_TRUE(pumpUntil([this] { return !editor().isVisible(); }));
    EXPECT_EQ(shape(), "Layer(a* Group 1(new c) x)");
}

TEST_F(Keys, EditorKeepsTheKeyboardOverARebuild)
{
    clickAndFocus("b");
    PressKey("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    auto* table = CreateTreeStateTable();
    CacheLayerTreeState(table, 1, panel);
    RefreshTree(panel, {object(1, "a"), object(2, "b", 1), object(4, "d")});
    ApplyLayerTreeState(table, 1, panel);
    DeleteTreeStateTable(table);
    pumpFor(100);
    EXPECT_TRUE(editor().hasKeyboardFocus(false));
    TypeText("new");
    PressKey("Return");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(a Group 1(new*) d)"; })) << shape();
}

TEST_F(Keys, StayWithAHostThatHasThem)
{
    clickAndFocus("a");
    clickOnHost();
    ASSERT_TRUE(pumpUntil([this] { return !hasFocus(); }));
    const std::string output = OutputOf(
        [this]
        {
            PressKey("Delete");
            pumpFor(200);
        });
    EXPECT_EQ(output, "");
    EXPECT_EQ(shape(), "Layer(a* Group 1(b c) x)");
}
