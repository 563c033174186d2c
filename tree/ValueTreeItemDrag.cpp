// The row's side of drag and drop, and the move that a drop ends in.

#include "tree/NameText.h"

#include "host/PrintLine.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"

namespace
{
constexpr const char* rigidObject = "RigidObject";

bool canMove(const juce::ValueTree& node, const juce::ValueTree& newParent)
{
    return node.getParent().isValid() && node != newParent && !newParent.isAChildOf(node);
}

void moveNode(juce::ValueTree node, juce::ValueTree newParent, int insertIndex)
{
    node.getParent().removeChild(node, nullptr);
    int number = -1;
    if (newParent.isValid() && newParent.hasType(TreeIds::Group))
        number = newParent.getProperty(TreeIds::group, -1);
    // Kept: a group that is reordered at the top loses its number here; the next rebuild restores it.
    node.setProperty(TreeIds::group, number, nullptr);
    if (newParent.isValid())
        newParent.addChild(node, insertIndex, nullptr);
}

void appendSelected(juce::TreeViewItem* item, juce::OwnedArray<juce::ValueTree>& out)
{
    if (item == nullptr)
        return;
    const auto* row = dynamic_cast<ValueTreeItem*>(item);
    if (row != nullptr && row->isSelected())
        out.add(new juce::ValueTree(row->getNode()));
    for (int i = 0; i < item->getNumSubItems(); ++i)
        appendSelected(item->getSubItem(i), out);
}
} // namespace

juce::var ValueTreeItem::getDragSourceDescription()
{
    // A row that has left its view under a held button starts no drag.
    if (getOwnerView() == nullptr)
        return {};
    if (rowTree.hasType(TreeIds::Object) && rowTree.hasProperty(TreeIds::rigid))
        return juce::String(rigidObject);
    return rowTree.getType().toString();
}

bool ValueTreeItem::isInterestedInDragSource(const juce::DragAndDropTarget::SourceDetails& details)
{
    // A row that has left its view under a drag takes nothing: its document is not on display any more.
    if (getOwnerView() == nullptr)
        return false;
    const juce::String dragged = details.description.toString();
    const bool isObject = dragged == TreeIds::Object.toString();
    if (rowTree.hasType(TreeIds::Group))
        return isObject;
    if (rowTree.hasType(TreeIds::Layer))
        return isObject || dragged == rigidObject || dragged == TreeIds::Group.toString();
    return false;
}

void ValueTreeItem::itemDropped(const juce::DragAndDropTarget::SourceDetails&, int insertIndex)
{
    juce::TreeView* const view = getOwnerView();
    if (view == nullptr)
        return;
    juce::OwnedArray<juce::ValueTree> nodes;
    getSelectedTreeViewItems(*view, nodes);
    // The move may delete this row, so nothing of it is used from here on.
    moveItems(*view, nodes, rowTree, insertIndex);
}

void ValueTreeItem::getSelectedTreeViewItems(juce::TreeView& view, juce::OwnedArray<juce::ValueTree>& out)
{
    appendSelected(view.getRootItem(), out);
}

void ValueTreeItem::moveItems(juce::TreeView& view, const juce::OwnedArray<juce::ValueTree>& nodes,
                              juce::ValueTree newParent, int insertIndex)
{
    PrintLine("Items: " + std::to_string(nodes.size()));
    if (nodes.isEmpty())
        return;
    // Kept: the state is taken and not used. Rows open themselves, so nothing is restored from it.
    const std::unique_ptr<juce::XmlElement> openness = view.getOpennessState(false);

    // Backwards at one insert index, the nodes keep their order.
    for (int i = nodes.size(); --i >= 0;)
    {
        const juce::ValueTree node = *nodes.getUnchecked(i);
        PrintLine("Moving Item: " + BytesFromText(node.getProperty(TreeIds::name, "").toString()));
        if (!canMove(node, newParent))
            continue;
        if (node.getParent() == newParent && newParent.indexOf(node) < insertIndex)
            --insertIndex;
        moveNode(node, newParent, insertIndex);
    }
}
