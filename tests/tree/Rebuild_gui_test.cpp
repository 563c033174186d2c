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
        click(textOf("b"));
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
        pressAt(textOf(name));
        RefreshTree(panel, others);
        EXPECT_EQ(shape(), "Layer(p q Group 2(s))");
        pump();
        moveTo(panel->localPointToGlobal(Point(200, 300)));
        pump();
        EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("p", "q", "s"));
        endDrag(); // The new tree has a row "Layer" as well.
        expectRowsGone();
    }
    expectUsable();
}

TEST_F(Rebuild, UnderAHeldButtonWithoutAMove)
{
    pressAt(textOf("b"));
    RefreshTree(panel, items);
    pump();
    RefreshTree(panel, others);
    pump();
    EXPECT_GT(view().getRetiredRows().size(), 0);
    releaseButton();
    expectRowsGone();
    EXPECT_EQ(shape(), "Layer(p q Group 2(s))");
    expectUsable();
}

TEST_F(Rebuild, UnderAHeldButtonInASelection)
{
    click(textOf("a"));
    clickHolding("Shift_L", textOf("c"));
    pressAt(textOf("b"));
    RefreshTree(panel, items);
    pump();
    releaseButton();
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, UnderAHeldButtonOnATriangle)
{
    pressAt(openBoxOf("Group 1"));
    RefreshTree(panel, items);
    pump();
    moveTo(textOf("a"));
    releaseButton();
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, InTheMiddleOfADrag)
{
    startDrag(textOf("a"), at("c", {60, 2}));
    ASSERT_TRUE(panel->isDragAndDropActive());
    RefreshTree(panel, others);
    pump();
    select({"q"});
    moveTo(at("q", {60, 3}));
    moveTo(at("s", {60, 3}));
    // What was dragged is gone, and what is selected now was not.
    EXPECT_EQ(marks(), 0);
    EXPECT_EQ(outputOf([this] { endDrag(); }), "");
    EXPECT_EQ(shape(), "Layer(p q* Group 2(s))");
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, DuringADragOverAndOver)
{
    startDrag(textOf("a"), at("c", {60, 2}));
    for (int i = 0; i < 5; ++i)
    {
        RefreshTree(panel, i % 2 == 0 ? others : items);
        pump();
        moveTo(panel->localPointToGlobal(Point(80, 120 + 10 * i)));
        pumpFor(120);
    }
    (void)outputOf([this] { endDrag(); });
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
        startDrag(textOf(dragged), at("c", {60, 2}));
        ASSERT_TRUE(panel->isDragAndDropActive());
        std::vector<ObjectItem> after = others;
        after.push_back(object(dragged == std::string("a") ? 1 : 2, dragged));
        RefreshTree(panel, after);
        select({"s"});
        pump();
        // The row that stands there now takes the drop, and is marked before.
        const char* standsThere = dragged == std::string("a") ? "p" : "Group 2";
        ASSERT_EQ(row(standsThere).getItemPosition(true).getY(), oldTop);
        moveTo(at(standsThere, {60, 2}));
        EXPECT_EQ(marks(), 2);
        EXPECT_EQ(outputOf([this] { endDrag(); }), "Items: 1\nMoving Item: " + std::string(dragged) + "\n");
        EXPECT_EQ(shape(),
                  dragged == std::string("a") ? "Layer(a* p q Group 2(s))" : "Layer(p q b* Group 2(s))");
        expectRowsGone();
    }
    expectUsable();
}

TEST_F(Rebuild, DuringADragWithTheStateRestored)
{
    auto* table = CreateTreeStateTable();
    startDrag(textOf("a"), at("c", {60, 2}));
    CacheLayerTreeState(table, 1, panel);
    RefreshTree(panel, items);
    ApplyLayerTreeState(table, 1, panel);
    DeleteTreeStateTable(table);
    pump();
    moveTo(at("b", {60, 3}));
    // The same object is selected again, so the drop goes on as if nothing had been.
    EXPECT_EQ(outputOf([this] { endDrag(); }), "Items: 1\nMoving Item: a\n");
    EXPECT_EQ(shape(), "Layer(Group 1(a* b c) x)");
    expectRowsGone();
}

TEST_F(Rebuild, ClearUnderAHeldButton)
{
    pressAt(textOf("b"));
    ClearTree(panel);
    EXPECT_EQ(root(), nullptr);
    EXPECT_THAT(GetItemsFromTree(panel), IsEmpty());
    pump();
    moveTo(panel->localPointToGlobal(Point(200, 300)));
    releaseButton();
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, ClearInTheMiddleOfADrag)
{
    startDrag(textOf("a"), at("c", {60, 2}));
    EXPECT_EQ(marks(), 2);
    ClearTree(panel);
    EXPECT_EQ(marks(), 0);
    pump();
    moveTo(panel->localPointToGlobal(Point(80, 150)));
    EXPECT_EQ(outputOf([this] { endDrag(); }), "");
    EXPECT_EQ(root(), nullptr);
    expectRowsGone();
    expectUsable();
}

TEST_F(Rebuild, ClearAndRefreshUnderOneHeldButton)
{
    pressAt(textOf("b"));
    ClearTree(panel);
    pump();
    RefreshTree(panel, others);
    pump();
    releaseButton();
    expectRowsGone();
    EXPECT_EQ(shape(), "Layer(p q Group 2(s))");
}

TEST_F(Rebuild, DeleteUnderAHeldButton)
{
    pressAt(textOf("b"));
    ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    key("Delete");
    EXPECT_TRUE(pumpUntil([this] { return shape() == "Layer(a Group 1(c) x)"; }));
    moveTo(panel->localPointToGlobal(Point(200, 300)));
    releaseButton();
    pump();
    expectUsable();
}

TEST_F(Rebuild, WidgetDeletedUnderAHeldButton)
{
    pressAt(textOf("b"));
    ClearTree(panel);
    DeleteTreeWidget(panel);
    panel = nullptr;
    pump();
    hands.release();
    pumpFor(100);
}

TEST_F(Rebuild, WidgetDeletedInTheMiddleOfADrag)
{
    startDrag(textOf("a"), at("c", {60, 2}));
    ASSERT_TRUE(panel->isDragAndDropActive());
    DeleteTreeWidget(panel);
    panel = nullptr;
    pump();
    hands.release();
    pumpFor(300);
}

TEST_F(Rebuild, WidgetDeletedWithRetiredRows)
{
    startDrag(textOf("a"), at("c", {60, 2}));
    RefreshTree(panel, others);
    pump();
    ASSERT_GT(view().getRetiredRows().size(), 0);
    DeleteTreeWidget(panel);
    panel = nullptr;
    pump();
    hands.release();
    pumpFor(100);
}

TEST_F(Rebuild, WidgetDeletedDuringARename)
{
    click(textOf("b"));
    ASSERT_TRUE(pumpUntil([this] { return view().hasKeyboardFocus(false); }));
    key("Return");
    ASSERT_TRUE(pumpUntil([this] { return view().renameEditor->hasKeyboardFocus(false); }));
    deleteWidget();
    pumpFor(50);
}
