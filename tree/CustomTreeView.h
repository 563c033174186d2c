#pragma once
// The tree view of the panel with its keyboard commands: delete, select all, rename, and the refusal of
// cut, copy and paste. It changes the document or fills a list, and never touches the layer.

#include "tree/CustomTextEditor.h"
#include "tree/HeldPress.h"
#include "tree/KeyDeliveries.h"
#include "tree/RetiredRows.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class CustomTreeView : public juce::TreeView, private juce::ComponentListener
{
public:
    CustomTreeView();
    ~CustomTreeView() override;

    /// The tree's own area, outside the rows.
    void mouseDown(const juce::MouseEvent&) override;

    /// True for the panel's own keys only. What the base class makes of any other key stays hidden from
    /// the caller: false also for an arrow key that moved the selection.
    bool keyPressed(const juce::KeyPress&) override;

    void resized() override;
    void focusGained(FocusChangeType) override;
    void focusLost(FocusChangeType) override;

    /// False once the row of a drag is gone, so that nothing is marked and nothing dropped.
    bool isInterestedInDragSource(const SourceDetails&) override;
    void itemDropped(const SourceDetails&) override;

    void deleteSelectedItems();

    /// Selects every row below the given one, not that row itself. Null does nothing.
    void selectAllItems(juce::TreeViewItem* row);

    /// Opens the editor over the one selected row, if that is an object of the family.
    void renameItem();

    /// Makes the row the root, in place of none. The view owns it from now on.
    void showRootItem(juce::TreeViewItem*);

    /// Rows say so when the tree's state has changed: a row was opened, closed, selected or renamed, or rows
    /// came or went.
    void noteStateChange() { ++stateChanges; }

    /// The same number as before as long as the tree's state is the same, but for the scroll position.
    std::uint64_t getStateChanges() const { return stateChanges; }

    /// Takes the root row away and deletes it with all rows below, as soon as that is safe.
    void discardRootItem();

    /// Lays all rows out at once, and brings the given point of them to the view's top left. Otherwise
    /// JUCE lays out with the next message, and row positions are stale until then.
    void layOutNow(juce::Point<int> viewPosition);

    /// The second half of it, for rows that are laid out.
    void scrollNow(juce::Point<int> viewPosition);

    /// Lays out only if rows have come or gone since JUCE laid out last: the scroll position is true
    /// then.
    void layOutIfStale();

    /// For tests, which wait until rows that have left the tree are gone.
    const RetiredRows& getRetiredRows() const { return retiredRows; }

private:
    ClickFocus clickFocus; // Ahead of the editor, which refers to it.

public:
    std::unique_ptr<CustomTextEditor> renameEditor;
    std::vector<std::string> effectsToBeRemoved; ///< uuids, waiting for the next idle pass
    KeyDeliveries keyDeliveries;

private:
    void componentMovedOrResized(juce::Component&, bool wasMoved, bool wasResized) override;
    void forgetHoveredBox();
    bool actOnKey(const juce::KeyPress&);
    void deleteNode(juce::ValueTree node);

    std::uint64_t stateChanges = 0;
    RetiredRows retiredRows;
    HeldPress heldPress;
};
