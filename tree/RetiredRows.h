#pragma once
// Rows that have left the tree while a mouse button was down. JUCE keeps the component of the row under a
// held button, and goes on asking it for its row, until the button is up again. So the rows live on here
// for that long. They are not drawn. Their component is kept out of the way, since a drop, or a press that
// comes before they are gone, would find it, and not the row that the user sees, where the row stood when it
// left.

#include <juce_gui_basics/juce_gui_basics.h>

#include <memory>
#include <vector>

class RetiredRows : private juce::MouseListener, private juce::ComponentListener, private juce::AsyncUpdater
{
public:
    explicit RetiredRows(juce::TreeView&);
    ~RetiredRows() override;

    static bool isAnyButtonDown();

    /// Takes a root row that the view no longer shows, with all rows below it.
    void keep(std::unique_ptr<juce::TreeViewItem> root);

    int size() const { return static_cast<int>(rows.size()); }

private:
    void mouseUp(const juce::MouseEvent&) override;
    void componentMovedOrResized(juce::Component&, bool wasMoved, bool wasResized) override;
    void handleAsyncUpdate() override;
    void moveHeldRowAway();

    juce::TreeView& view;
    std::vector<std::unique_ptr<juce::TreeViewItem>> rows;
    juce::Component::SafePointer<juce::Component> heldRow;
};
