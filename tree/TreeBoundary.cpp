// The widget functions of the public header: plain data on one side, JUCE components on the other.

#include "tree/NameText.h"
#include "tree/Tree.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"
#include "tree/ValueTreesDemo.h"

#include <utility>

namespace
{
/// Invalid for a tree without a root row.
juce::ValueTree documentOf(const ValueTreesDemo& tree)
{
    const auto* root = dynamic_cast<ValueTreeItem*>(tree.treeView.getRootItem());
    return root != nullptr ? root->getNode() : juce::ValueTree();
}
} // namespace

ValueTreesDemo* CreateTreeWidget(bool hideToolbar) { return new ValueTreesDemo(hideToolbar); }

void DeleteTreeWidget(ValueTreesDemo* tree) { delete tree; }

void ClearTree(ValueTreesDemo* tree)
{
    if (tree != nullptr && tree->treeView.getRootItem() != nullptr)
    {
        tree->treeView.discardRootItem();
        tree->documentWatch.forget();
    }
}

void RefreshTree(ValueTreesDemo* tree, const std::vector<ObjectItem>& items)
{
    if (tree == nullptr)
        return;
    CustomTreeView& view = tree->treeView;
    view.discardRootItem();
    if (!items.empty())
    {
        view.showRootItem(ValueTreesDemo::CreateTreeFromItems(items, -1));
        view.setDefaultOpenness(false);
        view.clearSelectedItems();
    }
    tree->showToolbar(items.empty() ? ValueTreesDemo::Toolbar::forEmptyLayer
                                    : ValueTreesDemo::Toolbar::forObjects);
    tree->setVisible(true);
}

void NotifyMsg(ValueTreesDemo* tree, const std::string& text)
{
    tree->notifyLabel.setText(ShownText(TextFromBytes(text)), juce::sendNotification);
}

void SetBGColor(ValueTreesDemo* tree, float red, float green, float blue, float alpha)
{
    tree->setBGColor(juce::Colour::fromFloatRGBA(red, green, blue, alpha));
}

std::vector<ObjectItem> GetItemsFromTree(ValueTreesDemo* tree)
{
    std::vector<ObjectItem> items;
    if (tree != nullptr)
        getTreeItems(documentOf(*tree), items);
    return items;
}

std::uint64_t HashTreeItems(ValueTreesDemo* tree, std::uint64_t seed)
{
    return tree != nullptr ? tree->documentWatch.itemsHash(documentOf(*tree), seed) : seed;
}

std::vector<ObjectItem> GetSelectedTreeItems(ValueTreesDemo* tree)
{
    juce::OwnedArray<juce::ValueTree> selected;
    ValueTreeItem::getSelectedTreeViewItems(tree->treeView, selected);
    std::vector<ObjectItem> items;
    for (const auto* node : selected)
        getTreeItems(*node, items);
    return items;
}

void AddObject(ValueTreesDemo* tree, VN_OBJECT_TYPE type, int key, const char* name)
{
    if (tree != nullptr)
        tree->objectEntries.push_back({type, key, name});
}

std::vector<int> GetKeysToBeAddedToLayer(ValueTreesDemo* tree)
{
    return tree != nullptr ? std::exchange(tree->keysToBeAdded, {}) : std::vector<int>();
}

std::vector<std::string> GetEffectsToBeRemoved(ValueTreesDemo* tree)
{
    return tree != nullptr ? std::exchange(tree->treeView.effectsToBeRemoved, {})
                           : std::vector<std::string>();
}
