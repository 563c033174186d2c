// The idle pass may rebuild or clear the tree at any time, also while the user holds a button down.

#include "tests/tree/support/TreeGuiTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Rebuild : public TreeGuiTest
{
protected:
    Rebuild() { show(items); }

    void expectRowsGone()
    {
        EXPECT_TRUE(pumpUntil([this] { return view().getRetiredRows().size() == 0; }));
    }

    void expectUsable()
    {
        show(items);
        Click(textOf("b"));
        EXPECT_THAT(selectedNames(), ElementsAre("b"));
        drag(textOf("a"), at("c", {60, 2}));
        EXPECT_EQ(shape(), "Layer(Group 1(b a* c) x)");
    }

    /// What a drag shows of its target: the place where the row would go, and a frame around its new parent.
    int marks() { return view().getNumChildComponents() - 2; }

    const std::vector<ObjectItem> items = {object(1, "a"), object(2, "b", 1), object(3, "c", 1),
                                           external("x")};
    const std::vector<ObjectItem> others = {object(7, "p"), object(8, "q"), object(9, "s", 2)};
};
} // namespace

TEST_F(Rebuild, UnderAHeldButtonOnARow)
{
    for (const char* name : {"Layer", "a", "Group 1", "b", "x"})
    {
        show(items);
        Press(textOf(name));
        RefreshTree(panel, others);
        EXPECT_EQ(shape(), "Layer(p q Group 2(s))");
        pump();
        Point(OnScreen({200, 300}));
        pump();
        EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("p", "q", "s"));
        Drop(); // The new tree has a row "Layer" as well.
        expectRowsGone();
    }
    expectUsable();
}

TEST_F(Rebuild, UnderAHeldButtonWithoutAMove)
{
    Press(textOf("b"));
    RefreshTree(panel, items);
    pump();
    RefreshTree(panel, others);
    pump();
    EXPECT_GT(view().getRetiredRows().size(), 0);
    Release();
    expectRowsGone();
    EXPECT_EQ(shape(), "Layer(p q Group 2(s))");
    expectUsable();
}

TEST_F(Rebuild, UnderAHeldButtonInASelection)
{
    Click(textOf("a"));
    Click(textOf("c"), {"Shift"});
    Press(textOf("b"));
    RefreshTree(panel, items);
    pump();
    Release();
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, UnderAHeldButtonOnATriangle)
{
    Press(openBoxOf("Group 1"));
    RefreshTree(panel, items);
    pump();
    Point(textOf("a"));
    Release();
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, InTheMiddleOfADrag)
{
    StartDrag(textOf("a"), at("c", {60, 2}));
    ASSERT_TRUE(panel->isDragAndDropActive());
    RefreshTree(panel, others);
    pump();
    select({"q"});
    Point(at("q", {60, 3}));
    Point(at("s", {60, 3}));
    // What was dragged is gone, and what is selected now was not.
    EXPECT_EQ(marks(), 0);
    EXPECT_EQ(OutputOf([this] { Drop(); }), "");
    EXPECT_EQ(shape(), "Layer(p q* Group 2(s))");
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, DuringADragOverAndOver)
{
    StartDrag(textOf("a"), at("c", {60, 2}));
    for (int i = 0; i < 5; ++i)
    {
        RefreshTree(panel, i % 2 == 0 ? others : items);
        pump();
        Point(OnScreen({80, 120 + 10 * i}));
        pumpFor(120);
    }
    (void)OutputOf([this] { Drop(); });
    expectRowsGone();
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("p", "q", "s"));
    expectUsable();
}

TEST_F(Rebuild, DuringADragDroppedOnItsOldPlace)
{
    for (const char* dragged : {"a", "b"})
    {
        show(items);
        const int oldTop = row(dragged).getItemPosition(true).getY();
        StartDrag(textOf(dragged), at("c", {60, 2}));
        ASSERT_TRUE(panel->isDragAndDropActive());
        std::vector<ObjectItem> after = others;
        after.push_back(object(dragged == std::string("a") ? 1 : 2, dragged));
        RefreshTree(panel, after);
        select({"s"});
        pump();
        // The row that stands there now takes the drop, and is marked before.
        const char* standsThere = dragged == std::string("a") ? "p" : "Group 2";
        ASSERT_EQ(row(standsThere).getItemPosition(true).getY(), oldTop);
        Point(at(standsThere, {60, 2}));
        EXPECT_EQ(marks(), 2);
        EXPECT_EQ(OutputOf([this] { Drop(); }), "Items: 1\nMoving Item: " + std::string(dragged) + "\n");
        EXPECT_EQ(shape(),
                  dragged == std::string("a") ? "Layer(a* p q Group 2(s))" : "Layer(p q b* Group 2(s))");
        expectRowsGone();
    }
    expectUsable();
}

TEST_F(Rebuild, DuringADragWithTheStateRestored)
{
    auto* table = CreateTreeStateTable();
    StartDrag(textOf("a"), at("c", {60, 2}));
    CacheLayerTreeState(table, 1, panel);
    RefreshTree(panel, items);
    ApplyLayerTreeState(table, 1, panel);
    DeleteTreeStateTable(table);
    pump();
    Point(at("b", {60, 3}));
    // The same object is selected again, so the drop goes on as if nothing had been.
    EXPECT_EQ(OutputOf([this] { Drop(); }), "Items: 1\nMoving Item: a\n");
    EXPECT_EQ(shape(), "Layer(Group 1(a* b c) x)");
    expectRowsGone();
}

TEST_F(Rebuild, ClearUnderAHeldButton)
{
    Press(textOf("b"));
    ClearTree(panel);
    EXPECT_EQ(root(), nullptr);
    EXPECT_THAT(GetItemsFromTree(panel), IsEmpty());
    pump();
    Point(OnScreen({200, 300}));
    Release();
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, ClearInTheMiddleOfADrag)
{
    StartDrag(textOf("a"), at("c", {60, 2}));
    EXPECT_EQ(marks(), 2);
    ClearTree(panel);
    EXPECT_EQ(marks(), 0);
    pump();
    Point(OnScreen({80, 150}));
    EXPECT_EQ(OutputOf([this] { Drop(); }), "");
    EXPECT_EQ(root(), nullptr);
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, ClearAndRefreshUnderOneHeldButton)
{
    Press(textOf("b"));
    ClearTree(panel);
    pump();
    RefreshTree(panel, others);
    pump();
    Release();
    expectRowsGone();
    EXPECT_EQ(shape(), "Layer(p q Group 2(s))");
}

TEST_F(Rebuild, DeleteUnderAHeldButton)
{
    Press(textOf("b"));
    ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    PressKey("Delete");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(a Group 1(c) x)"; }));
    Point(OnScreen({200, 300}));
    Release();
    pump();
    expectUsable();
}

TEST_F(Rebuild, WidgetDeletedUnderAHeldButton)
{
    Press(textOf("b"));
    ClearTree(panel);
    DeleteTreeWidget(panel);
    panel = nullptr;
    pump();
    Release();
    pumpFor(100);
}

TEST_F(Rebuild, WidgetDeletedInTheMiddleOfADrag)
{
    StartDrag(textOf("a"), at("c", {60, 2}));
    ASSERT_TRUE(panel->isDragAndDropActive());
    DeleteTreeWidget(panel);
    panel = nullptr;
    pump();
    Release();
    pumpFor(300);
}

TEST_F(Rebuild, WidgetDeletedWithRetiredRows)
{
    StartDrag(textOf("a"), at("c", {60, 2}));
    RefreshTree(panel, others);
    pump();
    ASSERT_GT(view().getRetiredRows().size(), 0);
    DeleteTreeWidget(panel);
    panel = nullptr;
    pump();
    Release();
    pumpFor(100);
}

TEST_F(Rebuild, WidgetDeletedDuringARename)
{
    Click(textOf("b"));
    ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    PressKey("Return");
    ASSERT_TRUE(pumpUntil([this] { return view().renameEditor->hasKeyboardFocus(false); }));
    deleteWidget();
    pumpFor(50);
}
