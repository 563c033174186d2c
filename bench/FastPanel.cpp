#include "bench/FastPanel.h"

#include "panel/platform/PanelatorUI_Plat.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"

namespace standin
{
namespace
{
constexpr AEGP_PluginID pluginId = 8;
constexpr int passesToRest = 6;
} // namespace

FastPanel::FastPanel(void* container)
{
    AEGP_GlobalRefcon refcon = nullptr;
    (void)PanelEntryPointFunc(host.Basic(), 1, 0, pluginId, &refcon);
    plugin = static_cast<Panelator*>(refcon);
    panelRefcon = host.CreatePanel(container);
    host.Set(FastHost::Panel::frontmost);
}

FastPanel::~FastPanel()
{
    host.Die();
    delete static_cast<PanelatorUI_Plat*>(panelRefcon);
    delete plugin->publishedSuite.panelRef;
    delete plugin;
}

void FastPanel::Settle()
{
    for (int pass = 0; pass < passesToRest; ++pass)
        Idle();
}

void FastPanel::ShowLayer(int effects)
{
    ClearTreeState(plugin->stateTable);
    host.ShowLayer(++layers, effects);
    Settle();
}

juce::ValueTree FastPanel::document()
{
    return dynamic_cast<ValueTreeItem&>(*Tree().treeView.getRootItem()).getNode();
}

void FastPanel::RenameInTree(int object, const std::string& name)
{
    document().getChild(object).setProperty(TreeIds::name, juce::String(name), nullptr);
}

void FastPanel::ReverseInTree()
{
    juce::ValueTree layer = document();
    for (int i = 0; i < layer.getNumChildren(); ++i)
        layer.moveChild(layer.getNumChildren() - 1, i, nullptr);
}

void FastPanel::DeleteHalfInTree()
{
    CustomTreeView& view = Tree().treeView;
    view.clearSelectedItems();
    juce::TreeViewItem& root = *view.getRootItem();
    for (int i = 0; i < root.getNumSubItems(); i += 2)
        root.getSubItem(i)->setSelected(true, false);
    view.deleteSelectedItems();
}

void FastPanel::SelectInTree(int objects)
{
    juce::TreeViewItem& root = *Tree().treeView.getRootItem();
    Tree().treeView.clearSelectedItems();
    for (int i = 0; i < objects; ++i)
        root.getSubItem(i)->setSelected(true, false);
}
} // namespace standin
