// Who listens to JUCE's components, and ends before they do, is told nothing any more.

#include "tests/tree/support/Erased.h"
#include "tests/tree/support/HeadlessWindow.h"
#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"
#include "tree/HeldPress.h"
#include "tree/RetiredRows.h"

#include <gtest/gtest.h>

#include <memory>

using namespace standin;

namespace
{
/// A tree view of JUCE's own in a window, with one row.
class Listeners : public TreeTest
{
protected:
    Listeners()
    {
        plain.setSize(200, 200);
        window = std::make_unique<HeadlessWindow>(plain);
    }

    ~Listeners() override { plain.deleteRootItem(); }

    void showRow()
    {
        plain.setRootItem(new ValueTreeItem(ValueTreesDemo::createTree("Object", "row"), false));
        pump();
    }

    juce::TreeView plain{"plain"};
    std::unique_ptr<HeadlessWindow> window;
};

/// Counts the components of rows that are there when it goes.
class LastRow : public juce::TreeViewItem
{
public:
    LastRow(const juce::TreeView& shownIn, int& countToSet) : view(shownIn), count(countToSet) {}
    ~LastRow() override { count = view.getViewport()->getViewedComponent()->getNumChildComponents(); }

    bool mightContainSubItems() override { return false; }
    juce::String getUniqueName() const override { return "last"; }

private:
    const juce::TreeView& view;
    int& count;
};
} // namespace

TEST_F(Listeners, OfAPressAreNoneAfterItsEnd)
{
    Erased<HeldPress> press(plain);
    showRow();
    press.end();
    window->press({50, 10});
    window->moveTo({50, 12});
    window->release();
    plain.getItemComponent(plain.getRootItem())->setSize(10, 10);
    plain.deleteRootItem();
    showRow();
    window->press({50, 10});
    EXPECT_TRUE(plain.getRootItem()->isSelected()) << "JUCE listens to the rows that come";
    window->release();
}

TEST_F(Listeners, OfLeftRowsAreNoneAfterTheirEnd)
{
    Erased<RetiredRows> rows(plain);
    showRow();
    window->press({50, 10});
    const juce::Component::SafePointer<juce::Component> held(plain.getItemComponent(plain.getRootItem()));
    std::unique_ptr<juce::TreeViewItem> root(plain.getRootItem());
    plain.setRootItem(nullptr);
    rows->keep(std::move(root));
    EXPECT_EQ(rows->size(), 1);
    ASSERT_NE(held, nullptr);
    EXPECT_LT(held->getY(), -1000) << "out of the way";
    held->setTopLeftPosition(0, 0);
    EXPECT_LT(held->getY(), -1000) << "it stays there";
    rows.end();
    held->setSize(10, 10);
    window->release();
    pump();
}

TEST_F(Listeners, OfLeftRowsGoWithTheButton)
{
    Erased<RetiredRows> rows(plain);
    int componentsAtItsEnd = -1;
    auto root = std::make_unique<LastRow>(plain, componentsAtItsEnd);
    plain.setRootItem(root.get());
    pump();
    window->press({50, 10});
    plain.setRootItem(nullptr);
    rows->keep(std::move(root));
    rows->keep(nullptr);
    EXPECT_EQ(rows->size(), 1);
    window->release();
    EXPECT_EQ(rows->size(), 1) << "JUCE still handles the release";
    pump();
    EXPECT_EQ(rows->size(), 0);
    EXPECT_EQ(componentsAtItsEnd, 0) << "none may ask for its row any more";
    rows.end();
    window->press({50, 10});
    window->release();
}
