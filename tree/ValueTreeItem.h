#pragma once
// One row of the tree: a thin view on one node of the document. It paints the node, turns clicks on its
// check box into changes of the node, takes part in drag and drop, and follows the document.
//
// The document is the truth. Any structural change below a node deletes the rows of all its children and
// makes new ones, so no row pointer outlives a change: whoever moves or deletes works on node handles.

#include <juce_data_structures/juce_data_structures.h>
#include <juce_gui_basics/juce_gui_basics.h>

class ValueTreeItem : public juce::TreeViewItem,
                      public juce::TextEditor::Listener,
                      public juce::ValueTree::Listener
{
public:
    /// Makes the row and, since every row opens itself, all rows below it.
    ValueTreeItem(const juce::ValueTree& node, bool isRowSelected);
    ~ValueTreeItem() override;

    bool mightContainSubItems() override;
    juce::String getUniqueName() const override;
    void itemOpennessChanged(bool isNowOpen) override;
    void paintItem(juce::Graphics&, int width, int height) override;
    void itemClicked(const juce::MouseEvent&) override;
    void itemSelectionChanged(bool isNowSelected) override;
    juce::var getDragSourceDescription() override;
    bool isInterestedInDragSource(const juce::DragAndDropTarget::SourceDetails&) override;
    void itemDropped(const juce::DragAndDropTarget::SourceDetails&, int insertIndex) override;

    void textEditorFocusLost(juce::TextEditor&) override;
    void textEditorReturnKeyPressed(juce::TextEditor&) override;

    void valueTreePropertyChanged(juce::ValueTree&, const juce::Identifier&) override;
    void valueTreeChildAdded(juce::ValueTree& parent, juce::ValueTree& child) override;
    void valueTreeChildRemoved(juce::ValueTree& parent, juce::ValueTree& child, int index) override;
    void valueTreeChildOrderChanged(juce::ValueTree& parent, int oldIndex, int newIndex) override;
    void valueTreeParentChanged(juce::ValueTree&) override;

    /// Counts the objects that stand directly in a group, and those of them that are switched on.
    /// Both are 0 for a node that is no group.
    static void getGroupActiveItems(const juce::ValueTree& node, int& total, int& active);

    /// Switches all objects that stand directly in a group on or off.
    static void flipGroupItems(const juce::ValueTree& node, bool shouldBeActive);

    /// Appends a handle for the node of each selected row, from the top. What stands under a closed row
    /// has no row and is not seen.
    static void getSelectedTreeViewItems(juce::TreeView&, juce::OwnedArray<juce::ValueTree>& out);

    /// Moves the nodes, in their order, to `insertIndex` below the new parent. The index counts the
    /// parent's children as they are before the move.
    static void moveItems(juce::TreeView&, const juce::OwnedArray<juce::ValueTree>& nodes,
                          juce::ValueTree newParent, int insertIndex);

    const juce::ValueTree& getNode() const { return rowTree; }

private:
    void refreshSubItems();
    bool hasRowOfEachChild() const;
    void childrenChanged(const juce::ValueTree& parent);
    void noteStateChange() const;
    void paintCheckBox(juce::Graphics&) const;

    juce::ValueTree rowTree;
    bool rowSelected;
    juce::Colour textColour;
    juce::Colour checkColour;
    bool rowEnabled;
    juce::Rectangle<int> checkBounds;
};
