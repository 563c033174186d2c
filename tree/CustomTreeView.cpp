#include "tree/CustomTreeView.h"

#include "host/PrintLine.h"
#include "tree/NameText.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"

#include <algorithm>

namespace
{
bool isCommandKey(const juce::KeyPress& key, int letter)
{
    // Ctrl stands for Command where there is no Command key. Letter case does not count, the modifiers
    // count exactly.
    return key == juce::KeyPress(letter, juce::ModifierKeys::commandModifier, 0);
}

/// Comparing with a bare code asks for no modifier at all.
bool isDeleteKey(const juce::KeyPress& key)
{
    return key == juce::KeyPress::deleteKey || key == juce::KeyPress::backspaceKey;
}

/// What the panel writes about a command that it takes and does not carry out; null for any other key.
const char* refusedCommand(const juce::KeyPress& key)
{
    if (isCommandKey(key, 'x'))
        return "Cut Button";
    if (isCommandKey(key, 'c'))
        return "Copy Button";
    return isCommandKey(key, 'v') ? "Paste Button" : nullptr;
}

// What JUCE leaves to the right of the start of the furthest row.
constexpr int roomBehindIndent = 50;

int levelsBelow(const juce::TreeViewItem& row)
{
    int levels = 0;
    for (int i = 0; i < row.getNumSubItems(); ++i)
        levels = std::max(levels, 1 + levelsBelow(*row.getSubItem(i)));
    return levels;
}

ValueTreeItem* getTreeItemByUUID(ValueTreeItem* row, std::string uuid)
{
    if (row == nullptr || nodeUuid(row->getNode()) == uuid)
        return row;
    for (int i = 0; i < row->getNumSubItems(); ++i)
        if (auto* found = getTreeItemByUUID(dynamic_cast<ValueTreeItem*>(row->getSubItem(i)), uuid))
            return found;
    return nullptr;
}

void renameItemInTreeByUUID(juce::TreeView* view, std::string uuid, std::string newName)
{
    if (uuid == ZERO_UUID_TEXT)
        return;
    if (auto* row = getTreeItemByUUID(dynamic_cast<ValueTreeItem*>(view->getRootItem()), uuid))
    {
        juce::ValueTree node = row->getNode();
        node.setProperty(TreeIds::name, TextFromBytes(newName), nullptr);
    }
}
} // namespace

CustomTreeView::CustomTreeView()
    : juce::TreeView(juce::String()),
      renameEditor(std::make_unique<CustomTextEditor>(clickFocus)),
      retiredRows(*this),
      heldPress(*this)
{
    addAndMakeVisible(*renameEditor);
    renameEditor->setSize(200, 20);
    renameEditor->setColour(juce::TextEditor::highlightColourId, juce::Colours::lightskyblue);
    renameEditor->setColour(juce::TextEditor::focusedOutlineColourId, juce::Colours::lightgrey);
    // The highlight is light, whatever colour the look and feel has for text on it.
    renameEditor->setColour(juce::TextEditor::highlightedTextColourId, juce::Colours::black);
    renameEditor->setVisible(false);
    renameEditor->setSelectAllWhenFocused(true);

    // Otherwise the viewport takes the focus of a click, and hands each key on twice.
    getViewport()->setWantsKeyboardFocus(false);
    // Rows paint their own highlight, whatever the look and feel fills behind them.
    for (const int id : {selectedItemBackgroundColourId, oddItemsColourId, evenItemsColourId})
        setColour(id, juce::Colours::transparentBlack);
    getViewport()->getViewedComponent()->addComponentListener(this);
}

CustomTreeView::~CustomTreeView() { getViewport()->getViewedComponent()->removeComponentListener(this); }

void CustomTreeView::mouseDown(const juce::MouseEvent&) { clearSelectedItems(); }

bool CustomTreeView::keyPressed(const juce::KeyPress& key)
{
    return keyDeliveries.once(key, [this, &key] { return actOnKey(key); });
}

bool CustomTreeView::actOnKey(const juce::KeyPress& key)
{
    PrintLine("Key Pressed");
    if (isDeleteKey(key))
    {
        deleteSelectedItems();
        return true;
    }
    if (const char* line = refusedCommand(key))
    {
        PrintLine(line);
        return true; // Kept: swallowed without a message.
    }
    if (isCommandKey(key, 'a'))
    {
        PrintLine("Select All Button");
        selectAllItems(getRootItem());
        return true;
    }
    if (key == juce::KeyPress::returnKey)
    {
        PrintLine("Return Key Pressed");
        PrintLine("Edit Button");
        if (getNumSelectedItems() > 0)
        {
            renameItem();
            return true;
        }
    }
    // Kept: false also for a key that the base class used.
    (void)juce::TreeView::keyPressed(key);
    return false;
}

void CustomTreeView::deleteSelectedItems()
{
    juce::OwnedArray<juce::ValueTree> selected;
    ValueTreeItem::getSelectedTreeViewItems(*this, selected);
    // Backwards, an object that is selected with its group goes first and does not count twice.
    for (int i = selected.size(); --i >= 0;)
        if (!selected.getUnchecked(i)->hasType(TreeIds::Layer))
            deleteNode(*selected.getUnchecked(i));
}

void CustomTreeView::deleteNode(juce::ValueTree node)
{
    std::vector<ObjectItem> items;
    getTreeItems(node, items);
    juce::ValueTree parent = node.getParent();
    if (!parent.isValid())
        return;
    parent.removeChild(node, nullptr);
    for (const ObjectItem& item : items)
        effectsToBeRemoved.push_back(item.uuid);
}

void CustomTreeView::selectAllItems(juce::TreeViewItem* row)
{
    if (row == nullptr)
        return;
    for (int i = 0; i < row->getNumSubItems(); ++i)
    {
        auto* subRow = row->getSubItem(i);
        subRow->setSelected(true, false, juce::sendNotification);
        selectAllItems(subRow);
    }
}

// Kept: the three refusals are silent.
void CustomTreeView::renameItem()
{
    if (getNumSelectedItems() != 1)
        return;
    const auto* row = dynamic_cast<ValueTreeItem*>(getSelectedItem(0));
    if (row == nullptr || !row->getNode().hasType(TreeIds::Object))
        return;
    const std::string uuid = nodeUuid(row->getNode());
    if (uuid == ZERO_UUID_TEXT)
        return;

    const juce::String name = row->getNode().getProperty(TreeIds::name, "").toString();
    const juce::String editable = EditableText(name);
    // A name that the editor cannot hold as it is stays untouched unless the user edits it.
    renameEditor->onRename = [this, uuid, before = BytesFromText(editable),
                              oldName = BytesFromText(name)](const std::string& newName)
    { renameItemInTreeByUUID(this, uuid, newName == before ? oldName : newName); };
    renameEditor->setVisible(true);
    renameEditor->setText(editable, true);
    layOutNow(getViewport()->getViewPosition());
    renameEditor->setTopLeftPosition(row->getItemPosition(true).getPosition());
    if (renameEditor->isShowing())
        renameEditor->grabKeyboardFocus();
}

bool CustomTreeView::isInterestedInDragSource(const SourceDetails&) { return heldPress.canDrop(); }

void CustomTreeView::itemDropped(const SourceDetails& details)
{
    heldPress.prepareDrop();
    juce::TreeView::itemDropped(details);
}

void CustomTreeView::showRootItem(juce::TreeViewItem* root)
{
    setRootItem(root);
    noteStateChange();
}

void CustomTreeView::discardRootItem()
{
    noteStateChange();
    // The marks of a drag point at rows.
    itemDragExit(SourceDetails(juce::var(), this, {}));

    std::unique_ptr<juce::TreeViewItem> root(getRootItem());
    setRootItem(nullptr);
    if (RetiredRows::isAnyButtonDown())
        retiredRows.keep(std::move(root));
}

void CustomTreeView::layOutNow(juce::Point<int> viewPosition)
{
    // Setting a root is what makes JUCE lay out without delay.
    auto* root = getRootItem();
    setRootItem(nullptr);
    setRootItem(root);
    scrollNow(viewPosition);
}

void CustomTreeView::scrollNow(juce::Point<int> viewPosition)
{
    if (const auto* root = getRootItem())
    {
        // The bar at the side has come meanwhile, and JUCE would make room for it with the next message.
        auto* rows = getViewport()->getViewedComponent();
        const int widestIndent = root->getItemPosition(false).getX() + levelsBelow(*root) * getIndentSize();
        const int width = widestIndent + roomBehindIndent;
        rows->setSize(std::max(getViewport()->getMaximumVisibleWidth(), width), rows->getHeight());
    }
    getViewport()->setViewPosition(viewPosition);
}

void CustomTreeView::layOutIfStale()
{
    const auto* root = getRootItem();
    const int rowHeight = root != nullptr ? root->getItemHeight() : 0;
    if (getViewport()->getViewedComponent()->getHeight() != getNumRowsInTree() * rowHeight)
        layOutNow(getViewport()->getViewPosition());
}

void CustomTreeView::resized()
{
    forgetHoveredBox();
    juce::TreeView::resized();
}

void CustomTreeView::focusGained(FocusChangeType cause) { clickFocus.gained(*this, cause); }

void CustomTreeView::focusLost(FocusChangeType) { clickFocus.lost(*this); }

// Called ahead of the viewport, which drops the components of rows that scroll out of sight.
void CustomTreeView::componentMovedOrResized(juce::Component&, bool, bool) { forgetHoveredBox(); }

// JUCE remembers the row whose open/close box is under the mouse by a bare pointer, and does not forget
// it when it drops that row's component. A mouse that leaves makes it forget.
void CustomTreeView::forgetHoveredBox()
{
    auto* rows = getViewport()->getViewedComponent();
    const juce::Point<float> outside(-1.0f, -1.0f);
    const auto now = juce::Time::getCurrentTime();
    rows->mouseExit(
        juce::MouseEvent(juce::Desktop::getInstance().getMainMouseSource(), outside, {},
                         juce::MouseInputSource::defaultPressure, juce::MouseInputSource::defaultOrientation,
                         juce::MouseInputSource::defaultRotation, juce::MouseInputSource::defaultTiltX,
                         juce::MouseInputSource::defaultTiltY, rows, rows, now, outside, now, 1, false));
}
