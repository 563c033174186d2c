#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;

namespace
{
class Rows : public TreeTest
{
protected:
    void build(const std::vector<ObjectItem>& items) { RefreshTree(panel, items); }
};
} // namespace

TEST_F(Rows, OpenThemselvesWhenTheyAreMade)
{
    build({object(1, "a", 1), object(2, "b", 0), object(3, "c", 1)});
    EXPECT_EQ(shape(), "Layer(Group 1(a c) b)");
    EXPECT_TRUE(row("Layer").isOpen());
    EXPECT_TRUE(row("Group 1").isOpen());
    EXPECT_TRUE(row("a").isOpen());
}

TEST_F(Rows, AreTwentyPixelsHigh)
{
    build({object(1, "a")});
    EXPECT_EQ(row("a").getItemHeight(), 20);
}

TEST_F(Rows, MightContainSubItemsOnlyWithChildNodes)
{
    build({object(1, "a", 1)});
    EXPECT_TRUE(row("Layer").mightContainSubItems());
    EXPECT_TRUE(row("Group 1").mightContainSubItems());
    EXPECT_FALSE(row("a").mightContainSubItems());
}

TEST_F(Rows, AreNamedByTheirNode)
{
    build({object(1, "a name / with a stroke")});
    EXPECT_EQ(row("a name / with a stroke").getUniqueName(), "a name / with a stroke");
    EXPECT_EQ(row("Layer").getUniqueName(), "Layer");
}

TEST_F(Rows, WithoutANameAreNamedByANoncharacter)
{
    build({object(1, "")});
    EXPECT_EQ(row("").getUniqueName().toStdString(), "\xef\xb7\x90");
}

TEST_F(Rows, ComeBackSelectedByTheirNode)
{
    build({object(1, "a"), object(2, "b")});
    node("b").setProperty("select", 1, nullptr);
    node("Layer").addChild(ValueTreesDemo::createTree("Object", "new"), 0, nullptr);
    EXPECT_EQ(shape(), "Layer(new a b*)");
}

TEST_F(Rows, ComeBackSelectedWithTheirGroup)
{
    build({object(1, "a", 1), object(2, "b", 1)});
    select({"Layer", "Group 1", "a"});
    panel->AddNewGroup(root());
    EXPECT_EQ(shape(), "Layer*(Group 1*(a* b) Group 2)");
}

TEST_F(Rows, RememberTheirSelectionInTheNode)
{
    build({object(1, "a"), object(2, "b")});
    row("a").setSelected(true, true);
    EXPECT_EQ(static_cast<int>(node("a")["select"]), 1);
    row("b").setSelected(true, true);
    EXPECT_EQ(static_cast<int>(node("a")["select"]), 0);
    EXPECT_EQ(static_cast<int>(node("b")["select"]), 1);
}

TEST_F(Rows, OfAClosedGroupGoAndComeBack)
{
    build({object(1, "a", 1), object(2, "b", 1), object(3, "c")});
    select({"a", "c"});
    row("Group 1").setOpen(false);
    EXPECT_EQ(shape(), "Layer(Group 1+ c*)");
    EXPECT_EQ(row("Group 1").getNumSubItems(), 0);
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(namesOf(GetSelectedTreeItems(panel)), ElementsAre("c"));
    row("Group 1").setOpen(true);
    EXPECT_EQ(shape(), "Layer(Group 1(a* b) c*)");
    EXPECT_THAT(namesOf(GetSelectedTreeItems(panel)), ElementsAre("a", "c"));
}

TEST_F(Rows, CountTheActiveObjectsOfAGroup)
{
    build({object(1, "a", 1, 1), object(2, "b", 1, 0), object(3, "c", 1, 5), object(4, "d")});
    int total = 7;
    int active = 7;
    ValueTreeItem::getGroupActiveItems(node("Group 1"), total, active);
    EXPECT_EQ(total, 3);
    EXPECT_EQ(active, 2);
    ValueTreeItem::getGroupActiveItems(node("a"), total, active);
    EXPECT_EQ(total, 0);
    EXPECT_EQ(active, 0);
    ValueTreeItem::getGroupActiveItems(node("Layer"), total, active);
    EXPECT_EQ(total, 0);
}

TEST_F(Rows, CountOnlyDirectObjectsOfTheGroup)
{
    build({object(1, "a", 1), object(2, "b", 2)});
    node("Group 1").appendChild(ValueTreesDemo::createTree("External", "x"), nullptr);
    const juce::ValueTree inner = node("Group 2");
    node("Layer").removeChild(inner, nullptr);
    node("Group 1").addChild(inner, 0, nullptr);
    int total = 0;
    int active = 0;
    ValueTreeItem::getGroupActiveItems(node("Group 1"), total, active);
    EXPECT_EQ(total, 1);
    ValueTreeItem::flipGroupItems(node("Group 1"), false);
    EXPECT_EQ(static_cast<int>(node("a")["active"]), 0);
    EXPECT_EQ(static_cast<int>(node("b")["active"]), 1);
    EXPECT_FALSE(node("x").hasProperty("active"));
}

TEST_F(Rows, FlipNothingButGroups)
{
    build({object(1, "a", 0, 1)});
    ValueTreeItem::flipGroupItems(node("Layer"), false);
    ValueTreeItem::flipGroupItems(node("a"), false);
    EXPECT_EQ(static_cast<int>(node("a")["active"]), 1);
}

TEST_F(Rows, AreBuiltFastAtAnyDepth)
{
    build({object(1, "a")});
    juce::ValueTree outermost = ValueTreesDemo::createTree("Group", "outermost");
    juce::ValueTree at = outermost;
    for (int depth = 0; depth < 60; ++depth)
    {
        at.appendChild(ValueTreesDemo::createTree("Group", "inner"), nullptr);
        at = at.getChild(0);
    }
    at.appendChild(ValueTreesDemo::createTree("Object", "deepest"), nullptr);
    node("Layer").appendChild(outermost, nullptr);
    EXPECT_EQ(view().getNumRowsInTree(), 1 + 1 + 61 + 1);
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "deepest"));
}

TEST_F(Rows, FollowANodeThatIsAdded)
{
    build({object(1, "a", 1)});
    node("Group 1").appendChild(ValueTreesDemo::createTree("Object", "new"), nullptr);
    EXPECT_EQ(shape(), "Layer(Group 1(a new))");
}

TEST_F(Rows, OpenForANodeThatIsAdded)
{
    build({object(1, "a", 1)});
    row("Group 1").setOpen(false);
    node("Group 1").appendChild(ValueTreesDemo::createTree("Object", "new"), nullptr);
    EXPECT_EQ(shape(), "Layer(Group 1(a new))");
}

TEST_F(Rows, FollowANodeThatIsRemoved)
{
    build({object(1, "a", 1), object(2, "b", 1)});
    select({"b"});
    node("Group 1").removeChild(0, nullptr);
    EXPECT_EQ(shape(), "Layer(Group 1(b*))");
}

TEST_F(Rows, FollowAChangeOfOrder)
{
    build({object(1, "a"), object(2, "b"), object(3, "c")});
    select({"c"});
    node("Layer").moveChild(2, 0, nullptr);
    EXPECT_EQ(shape(), "Layer(c* a b)");
}

TEST_F(Rows, BelowOtherNodesStayWhenOneChanges)
{
    build({object(1, "a", 1), object(2, "b", 2)});
    row("Group 2").setOpen(false);
    node("Group 1").appendChild(ValueTreesDemo::createTree("Object", "new"), nullptr);
    EXPECT_EQ(shape(), "Layer(Group 1(a new) Group 2+)");
}

TEST_F(Rows, TakeTheirNameFromTheirEditor)
{
    build({object(1, "a")});
    juce::TextEditor editor;
    editor.setText("typed", false);
    editor.addListener(&row("a"));
    (void)editor.keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    ASSERT_TRUE(pumpUntil([&] { return !editor.isVisible(); }));
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("typed"));
    editor.setText("again", false);
    editor.setVisible(true);
    // By now the row listens no more.
    (void)editor.keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    pump();
    EXPECT_TRUE(editor.isVisible());
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("typed"));
    row("typed").textEditorFocusLost(editor);
    EXPECT_FALSE(editor.isVisible());
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("again"));
}

TEST_F(Rows, FindSelectedRowsAtAnyDepth)
{
    build({object(1, "a", 1), object(2, "b"), external("x")});
    select({"x", "b", "Layer", "a"});
    juce::OwnedArray<juce::ValueTree> nodes;
    ValueTreeItem::getSelectedTreeViewItems(view(), nodes);
    std::vector<std::string> names;
    for (const auto* found : nodes)
        names.push_back(found->getProperty("name").toString().toStdString());
    EXPECT_THAT(names, ElementsAre("Layer", "a", "b", "x"));
}
