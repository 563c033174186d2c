#include "tests/support/PassCalls.h"

#include <algorithm>

namespace standin
{
Calls PassHead()
{
    return {"Tree DispatchPlatformEvents()",
            "Panel 1 AEGP_IsShown(\"Vortan Object Panel\") -> 1, 1",
            "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)",
            "Item 3 AEGP_GetActiveItem() -> item 101",
            "Item 3 AEGP_GetItemID(item 101) -> 101",
            "Layer 5 AEGP_GetActiveLayer() -> layer 1",
            "Layer 5 AEGP_GetLayerID(layer 1) -> 1"};
}

Calls NoAddsAndDeletes()
{
    return {"Tree GetKeysToBeAddedToLayer(tree)", "Tree GetEffectsToBeRemoved(tree)"};
}

Calls TreeRebuild(const std::string& names)
{
    return {"Tree RefreshTree([" + names + "])", "Tree ApplyLayerTreeState(1)",
            "Tree CacheLayerTreeState(1)"};
}

Calls QuietTree() { return {"Tree GetItemsFromTree(tree)", "Tree DidLayerStateChange(1)"}; }

Calls RenameChange(const TracedStack& stack, int index, const std::string& name)
{
    return Sequence({stack.ReadIdentities(), stack.Rename(index, name)});
}

Calls ReorderInPlace(const TracedStack& stack, const std::string& undoName)
{
    std::vector<Calls> groups = {stack.ReadIdentities(),
                                 {"Utility 3 AEGP_StartUndoGroup(\"" + undoName + "\")"}};
    for (int index = 0; index < static_cast<int>(stack.effects.size()); ++index)
        groups.push_back(stack.Move(stack.effects[static_cast<std::size_t>(index)].label, index, index));
    groups.push_back({"Utility 3 AEGP_EndUndoGroup()"});
    return Sequence(groups);
}

Calls SelectionPush(const TracedStack& stack, const std::vector<int>& selected)
{
    const int count = static_cast<int>(stack.effects.size());
    std::vector<Calls> groups = {{"Tree GetSelectedTreeItems(tree)"},
                                 stack.Read(),
                                 stack.Count(),
                                 {"Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101"}};
    for (int index = 0; index < count; ++index)
        groups.push_back(stack.ReadMatchName(index));
    for (int index = 0; index < count; ++index)
    {
        if (std::count(selected.begin(), selected.end(), index) == 0)
            groups.push_back(stack.Hide(index));
    }
    for (const int index : selected)
        groups.push_back(stack.Show(index));
    groups.push_back({"Tree CacheLayerTreeState(1)"});
    return Sequence(groups);
}
} // namespace standin
