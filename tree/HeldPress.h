#pragma once
// A press on a row, from the button's going down to its coming up. The idle pass may build the tree anew
// meanwhile. JUCE would carry out the rest of the press, which is the click, the double click or the start of
// a drag, at the place and on the row of the press, and with regard to how long the button was down. Here it
// belongs to the item that was pressed, on whatever row shows it by then, and to nothing if none does.
//
// Stands between the rows and the part of JUCE's tree view that listens to them, and hands on to that all but
// drags, releases and double clicks.

#include "tree/ShownItem.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <optional>
#include <vector>

class HeldPress : private juce::MouseListener, private juce::ComponentListener
{
public:
    explicit HeldPress(juce::TreeView&);
    ~HeldPress() override;

    /// Whether a row shows what is being dragged. True as well if no row is pressed.
    bool canDrop() const;

    /// Sees to it that what is being dragged is selected, since a drop moves what is selected.
    void prepareDrop();

private:
    /// What the press makes of the selection, by its modifiers.
    enum class Selecting
    {
        alone,
        toggled,
        range
    };

    struct Press
    {
        ShownItem item;
        juce::ModifierKeys modifiers;
        juce::Point<int> place; ///< from the top left of the row
        Selecting selecting;
        std::vector<ShownItem> range;
        bool wasSelected;
        bool isDoubleClick;
        bool hasDragged;

        /// Otherwise it is on the open/close button, which has acted by then, or left of it.
        bool isOnItem() const { return place.x >= 0; }
    };

    void mouseMove(const juce::MouseEvent&) override;
    void mouseExit(const juce::MouseEvent&) override;
    void mouseDown(const juce::MouseEvent&) override;
    void mouseDrag(const juce::MouseEvent&) override;
    void mouseUp(const juce::MouseEvent&) override;

    void componentChildrenChanged(juce::Component&) override;
    void componentMovedOrResized(juce::Component&, bool wasMoved, bool wasResized) override;

    Press pressOn(const ValueTreeItem&, const juce::MouseEvent&) const;
    std::vector<ShownItem> rangeTo(const ValueTreeItem&) const;
    void select(const Press&, ValueTreeItem& row) const;
    void bringSelectionBack(const Press&, ValueTreeItem& row) const;
    void startDrag(ValueTreeItem& row, const juce::MouseEvent&) const;

    juce::TreeView& view;
    juce::Component& rows;
    std::optional<Press> press;
    std::optional<ShownItem> lastPressed;
};
