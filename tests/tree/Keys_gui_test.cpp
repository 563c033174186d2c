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
        click(textOf(name));
        ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    }

    /// What the key writes, once all of it has been seen.
    std::string outputOfKey(const std::function<void()>& send, const std::function<bool()>& isDone)
    {
        return outputOf(
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
    EXPECT_EQ(outputOfKey([this] { key("Delete"); }, [this] { return shape() == "Layer(Group 1(b c) x)"; }),
              "Key Pressed\n");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), ElementsAre(uuidOf(1)));
}

TEST_F(Keys, ThatAreNotConsumedReachTheTreeOnce)
{
    clickAndFocus("a");
    EXPECT_EQ(outputOfKey([this] { key("Down"); },
                          [this] { return selectedNames() == std::vector<std::string>{"Group 1"}; }),
              "Key Pressed\n");
    EXPECT_EQ(outputOf(
                  [this]
                  {
                      key("F5");
                      pumpFor(200);
                  }),
              "Key Pressed\n");
}

TEST_F(Keys, BackSpaceDeletes)
{
    clickAndFocus("b");
    key("BackSpace");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(a Group 1(c) x)"; }));
}

TEST_F(Keys, SelectAllSelectsAllButTheRoot)
{
    clickAndFocus("a");
    EXPECT_EQ(outputOfKey([this] { keyHolding("Control_L", "a"); },
                          [this] { return shape() == "Layer(a* Group 1*(b* c*) x*)"; }),
              "Key Pressed\nSelect All Button\n");
}

TEST_F(Keys, CutCopyAndPasteAreSwallowed)
{
    clickAndFocus("a");
    const std::string before = shape();
    std::string output = outputOf(
        [this]
        {
            for (const char* letter : {"x", "c", "v"})
                keyHolding("Control_L", letter);
            pumpFor(300);
        });
    EXPECT_EQ(output, "Key Pressed\nCut Button\nKey Pressed\nCopy Button\nKey Pressed\nPaste Button\n");
    EXPECT_EQ(shape(), before);
}

TEST_F(Keys, ReturnAndTypingRename)
{
    clickAndFocus("b");
    EXPECT_EQ(outputOfKey([this] { key("Return"); }, [this] { return editor().isVisible(); }),
              "Key Pressed\nReturn Key Pressed\nEdit Button\n");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    EXPECT_EQ(editor().getHighlightedText(), "b");
    // All of it is selected, so typing replaces it.
    const std::string output = outputOf(
        [this]
        {
            TypeText("new name");
            EXPECT_TRUE(pumpUntil([this] { return editor().getText() == "new name"; }));
            key("Return");
            EXPECT_TRUE(pumpUntil([this] { return !editor().isVisible(); }));
        });
    EXPECT_EQ(output, "");
    EXPECT_EQ(shape(), "Layer(a Group 1(new name* c) x)");
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "new name", "c"));
    // The tree has the keyboard back.
    EXPECT_TRUE(view().hasKeyboardFocus(false));
}

TEST_F(Keys, KeypadEnterRenamesAsWell)
{
    clickAndFocus("b");
    key("KP_Enter");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    TypeText("q");
    key("KP_Enter");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(a Group 1(q* c) x)"; }));
}

TEST_F(Keys, EscapeLeavesTheNameAsItWas)
{
    clickAndFocus("b");
    key("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    TypeText("new");
    ASSERT_TRUE(pumpUntil([this] { return editor().getText() == "new"; }));
    key("Escape");
    EXPECT_TRUE(pumpUntil([this] { return !editor().isVisible(); }));
    EXPECT_EQ(shape(), "Layer(a Group 1(b* c) x)");
    EXPECT_TRUE(view().hasKeyboardFocus(false));
}

TEST_F(Keys, DeleteInTheEditorEditsItsText)
{
    clickAndFocus("b");
    key("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    const std::string output = outputOf(
        [this]
        {
            key("Delete");
            EXPECT_TRUE(pumpUntil([this] { return editor().getText().isEmpty(); }));
            key("Delete");
            keyHolding("Control_L", "a");
            pumpFor(100);
        });
    EXPECT_EQ(output, "");
    EXPECT_EQ(shape(), "Layer(a Group 1(b* c) x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_F(Keys, EditorStaysOpenWhenTheUserClicksElsewhere)
{
    clickAndFocus("b");
    key("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    TypeText("new");
    ASSERT_TRUE(pumpUntil([this] { return editor().getText() == "new"; }));
    click(textOf("a"));
    EXPECT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    EXPECT_TRUE(editor().isVisible());
    clickOnHost();
    EXPECT_TRUE(pumpUntil([this] { return !hasFocus(); }));
    EXPECT_TRUE(editor().isVisible());
    // Back into the editor, its rename is still of the row that it was opened over.
    click(centreOf(editor()));
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    key("Return");
    EXPECT_TRUE(pumpUntil([this] { return !editor().isVisible(); }));
    EXPECT_EQ(shape(), "Layer(a* Group 1(new c) x)");
}

TEST_F(Keys, EditorKeepsTheKeyboardOverARebuild)
{
    clickAndFocus("b");
    key("Return");
    ASSERT_TRUE(pumpUntil([this] { return editor().hasKeyboardFocus(false); }));
    auto* table = CreateTreeStateTable();
    CacheLayerTreeState(table, 1, panel);
    RefreshTree(panel, {object(1, "a"), object(2, "b", 1), object(4, "d")});
    ApplyLayerTreeState(table, 1, panel);
    DeleteTreeStateTable(table);
    pumpFor(100);
    EXPECT_TRUE(editor().hasKeyboardFocus(false));
    TypeText("new");
    key("Return");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(a Group 1(new*) d)"; })) << shape();
}

TEST_F(Keys, StayWithAHostThatHasThem)
{
    clickAndFocus("a");
    clickOnHost();
    ASSERT_TRUE(pumpUntil([this] { return !hasFocus(); }));
    const std::string output = outputOf(
        [this]
        {
            key("Delete");
            pumpFor(200);
        });
    EXPECT_EQ(output, "");
    EXPECT_EQ(shape(), "Layer(a* Group 1(b c) x)");
}
