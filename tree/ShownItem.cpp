#include "tree/ShownItem.h"

#include "tree/TreeModel.h"

#include <vector>

namespace
{
juce::var keyOf(const juce::ValueTree& node)
{
    // A group's name is made of its number, and keeps it while a move has taken the number away.
    return node.getProperty(node.hasType(TreeIds::Object) ? TreeIds::uuid : TreeIds::name);
}

using Nodes = std::vector<juce::ValueTree>;

void appendNodes(const juce::ValueTree& node, const juce::Identifier& type, const juce::var& key, Nodes& out)
{
    if (node.hasType(type) && keyOf(node) == key)
        out.push_back(node);
    for (const auto& child : node)
        appendNodes(child, type, key, out);
}

Nodes nodesLike(const juce::ValueTree& document, const juce::Identifier& type, const juce::var& key)
{
    Nodes nodes;
    appendNodes(document, type, key, nodes);
    return nodes;
}

juce::ValueTree documentOf(const juce::TreeView& view)
{
    const auto* root = dynamic_cast<const ValueTreeItem*>(view.getRootItem());
    return root != nullptr ? root->getNode() : juce::ValueTree();
}

ValueTreeItem* rowOf(const juce::ValueTree& node, juce::TreeViewItem* item)
{
    auto* row = dynamic_cast<ValueTreeItem*>(item);
    if (row == nullptr || row->getNode() == node)
        return row;
    for (int i = 0; i < row->getNumSubItems(); ++i)
        if (auto* found = rowOf(node, row->getSubItem(i)))
            return found;
    return nullptr;
}
} // namespace

ShownItem::ShownItem(const ValueTreeItem& row) : node(row.getNode()), key(keyOf(node)), place(0), count(0)
{
    for (const auto& other : nodesLike(node.getRoot(), node.getType(), key))
    {
        if (other == node)
            place = count;
        ++count;
    }
}

bool ShownItem::isInDocumentOf(const juce::TreeView& view) const
{
    return node.getRoot() == documentOf(view);
}

ValueTreeItem* ShownItem::findRow(const juce::TreeView& view) const
{
    const juce::ValueTree shown = isInDocumentOf(view) ? node : nodeIn(documentOf(view));
    return shown.isValid() ? rowOf(shown, view.getRootItem()) : nullptr;
}

juce::ValueTree ShownItem::nodeIn(const juce::ValueTree& document) const
{
    const Nodes nodes = nodesLike(document, node.getType(), key);
    if (static_cast<int>(nodes.size()) == count)
        return nodes[static_cast<std::size_t>(place)];
    // Nothing tells which of the outside effects of one name has come or gone. Of one identity, every search
    // finds the upper object.
    return nodes.empty() || node.hasType(TreeIds::External) ? juce::ValueTree() : nodes.front();
}

bool ShownItem::operator==(const ShownItem& other) const
{
    return node == other.node ||
           (node.getType() == other.node.getType() && key == other.key && place == other.place);
}
