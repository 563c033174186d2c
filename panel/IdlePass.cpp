#include "panel/IdlePass.h"

#include "effects/EffectPlacement.h"
#include "effects/EffectRemoval.h"
#include "effects/EffectSelection.h"
#include "effects/LayerEffectChanges.h"
#include "effects/LayerItems.h"
#include "host/PrintLine.h"
#include "panel/PanelVisibility.h"

void Panelator::IdleHook(VnPanelRef* panelRef)
{
    if (!excludesPasses)
        IdlePass(*this, *panelRef).Run();
}

IdlePass::IdlePass(Panelator& panelator, VnPanelRef& panelRef)
    : panel(panelator), requests(panelRef), others(panelator.excludesPasses), suites(panelRef.basicSuite)
{
}

void IdlePass::Run()
{
    takeRefreshRequest();
    runOpenRequest();
    others.Begin();
    if (examinePanel() == Outcome::passIsOver)
        return;
    showNotification();
    if (findActiveItem() == Outcome::passIsOver)
        return;
    findActiveLayer();
    carryOutAddsAndDeletes();
    compareLayer();
    if (layerChanged)
        rebuildTree();
    compareTree();
    lookForTreeStateChange();
    if (layerChanged)
        pushSelection();
}

/// The request is consumed here, whatever becomes of the pass.
void IdlePass::takeRefreshRequest()
{
    force = requests.refreshPending != 0;
    requests.refreshPending = 0;
}

void IdlePass::runOpenRequest()
{
    if (requests.openPending == 0)
        return;
    (void)panel.suites.CommandSuite1()->AEGP_DoCommand(panel.command);
    // Kept: the flag is flipped. A host that idles inside the command has had it cleared by the inner pass,
    // and runs the command once more at the next one.
    requests.openPending ^= 1;
}

/// A hidden panel loses its tree; one behind another tab keeps it, and neither does any further work.
IdlePass::Outcome IdlePass::examinePanel()
{
    const PanelVisibility visibility = AskVisibility(*panel.panelSuite, panel.matchName);
    (void)panel.suites.CommandSuite1()->AEGP_CheckMarkMenuCommand(panel.command,
                                                                  visibility.IsInFront() ? 1 : 0);
    if (visibility.shown == 0)
        ClearTree(panel.tree);
    if (!visibility.IsInFront())
        return Outcome::passIsOver;
    if (panel.tree == nullptr)
    {
        PrintLine("no tree found");
        return Outcome::passIsOver;
    }
    return Outcome::goOn;
}

void IdlePass::showNotification()
{
    if (requests.notifyPending == 0)
        return;
    NotifyMsg(panel.tree, requests.notifyText);
    requests.notifyText.clear();
    requests.notifyPending = 0;
}

IdlePass::Outcome IdlePass::findActiveItem()
{
    (void)panel.suites.ItemSuite1()->AEGP_GetActiveItem(&item);
    if (item != nullptr)
        return Outcome::goOn;
    // Kept: the stored hashes stay as they are, so an item that comes back with an unchanged layer finds the
    // tree empty and leaves it so.
    ClearTree(panel.tree);
    ClearTreeState(panel.stateTable);
    PrintLine("No active item");
    return Outcome::passIsOver;
}

void IdlePass::findActiveLayer()
{
    (void)panel.suites.ItemSuite1()->AEGP_GetItemID(item, &itemId);
    (void)suites.LayerSuite1()->AEGP_GetActiveLayer(&layer);
    if (layer != nullptr)
        (void)suites.LayerSuite1()->AEGP_GetLayerID(layer, &layerId);
}

/// Comes before either side is read, so that the reads see it. Without a layer the requests wait in the tree.
void IdlePass::carryOutAddsAndDeletes()
{
    if (layer == nullptr)
        return;
    for (const int key : GetKeysToBeAddedToLayer(panel.tree))
        (void)ApplyEffectToLayerIdleFn(panel.pluginId, panel.basicSuite, key, layer);
    const std::vector<std::string> uuids = GetEffectsToBeRemoved(panel.tree);
    (void)RemoveMultipleEffectsByUUID(panel.pluginId, panel.basicSuite, uuids, layer);
}

/// The ids are part of the layer's hash: another item or layer is a change, also with equal contents.
void IdlePass::compareLayer()
{
    const std::uint64_t seed = CombineHash(CombineHash(0, SignExtend(itemId)), SignExtend(layerId));
    currentLayerHash = CalcItemsHash(seed, readLayer());
    layerChanged = force || currentLayerHash != panel.layerHash;
}

void IdlePass::rebuildTree()
{
    // Kept: the layer wins. What was edited in the tree in the same interval goes with its contents.
    RefreshTree(panel.tree, readLayer());
    ApplyLayerTreeState(panel.stateTable, layerId, panel.tree);
    CacheLayerTreeState(panel.stateTable, layerId, panel.tree);
    panel.layerHash = currentLayerHash;
}

void IdlePass::compareTree()
{
    const std::uint64_t treeNow = HashTreeItems(panel.tree, SignExtend(layerId));
    if (treeNow == panel.treeHash)
        return;
    const std::vector<ObjectItem>& layerItems = readLayer();
    const std::vector<ObjectItem> treeItems = GetItemsFromTree(panel.tree);
    if (CalcItemsHash(0, layerItems) != CalcItemsHash(0, treeItems))
    {
        reportMismatch(layerItems, treeItems);
        LayerEffectChanges(panel.pluginId, panel.basicSuite, layer, layerItems, treeItems);
    }
    // Kept: also noted if the host refused the change, so that the edit stays in the tree until a side
    // changes.
    panel.treeHash = treeNow;
}

void IdlePass::reportMismatch(const std::vector<ObjectItem>& layerItems,
                              const std::vector<ObjectItem>& treeItems) const
{
    std::string lines = "Hash Mismatch";
    for (const ObjectItem& layerItem : layerItems)
        lines += "\nLayer Item - " + layerItem.name;
    for (const ObjectItem& treeItem : treeItems)
        lines += "\nTree Item - " + treeItem.name;
    PrintLine(lines);
}

void IdlePass::lookForTreeStateChange()
{
    if (layerId == 0)
        return;
    const bool stateChanged = DidLayerStateChange(panel.stateTable, layerId, panel.tree);
    layerChanged = layerChanged || stateChanged;
}

void IdlePass::pushSelection()
{
    PrintLine("State Changed");
    const std::vector<ObjectItem> selected = GetSelectedTreeItems(panel.tree);
    SelectEffectsFromItems(panel.pluginId, panel.basicSuite, layer, true, false, selected);
    CacheLayerTreeState(panel.stateTable, layerId, panel.tree);
}

const std::vector<ObjectItem>& IdlePass::readLayer()
{
    ReadItemsFromLayer(panel.pluginId, panel.basicSuite, layer, panel.layerItems);
    return panel.layerItems;
}
