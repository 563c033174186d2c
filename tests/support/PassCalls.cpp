#include "tests/support/PassCalls.h"

#include <algorithm>

namespace standin
{
namespace
{
constexpr const char* zeroUuid = "00000000-0000-0000-0000-000000000000";

const EffectRow& rowAt(const EffectRows& rows, int index) { return rows.at(static_cast<std::size_t>(index)); }

std::string effectAt(const EffectRows& rows, int index) { return "effect " + rowAt(rows, index).label; }

std::string countCall(const EffectRows& rows)
{
    return "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> " + std::to_string(rows.size());
}

std::string takeCall(const EffectRows& rows, int index)
{
    return "Effect 1 AEGP_GetLayerEffectByIndex(id 8, layer 1, " + std::to_string(index) + ") -> " +
           effectAt(rows, index);
}

Calls message(const EffectRows& rows, int index, const std::string& record)
{
    const std::string effect = effectAt(rows, index);
    return {"Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            countCall(rows),
            takeCall(rows, index),
            "Effect 1 AEGP_GetEffectFlags(" + effect + ") -> " + std::to_string(rowAt(rows, index).flags),
            "Effect 3 AEGP_EffectCallGeneric(id 8, " + effect + ", time 0/100, 17, " + record + "",
            "Effect 3 AEGP_DisposeEffect(" + effect + ")"};
}

/// The head that renaming, hiding and showing have in common.
Calls takeStreams(const EffectRows& rows, int index)
{
    const EffectRow& row = rowAt(rows, index);
    return {takeCall(rows, index),
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 8, effect " + row.label + ", 1) -> stream " +
                row.label + ".1",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 8, stream " + row.label + ".1) -> stream " +
                row.label};
}

Calls disposeStreams(const EffectRow& row)
{
    return {"Stream 7 AEGP_DisposeStream(stream " + row.label + ".1)",
            "Stream 7 AEGP_DisposeStream(stream " + row.label + ")",
            "Effect 1 AEGP_DisposeEffect(effect " + row.label + ")"};
}

Calls readMatchName(const EffectRows& rows, int index)
{
    const EffectRow& row = rowAt(rows, index);
    return {takeCall(rows, index),
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect " + row.label + ") -> " +
                std::to_string(row.key),
            "Effect 1 AEGP_GetEffectMatchName(" + std::to_string(row.key) + ") -> \"" + row.matchName + "\"",
            "Effect 1 AEGP_DisposeEffect(effect " + row.label + ")"};
}

/// The flag calls of one effect, in an undo group of its own.
Calls switchHidden(const EffectRows& rows, int index, const Calls& flagCalls)
{
    const EffectRow& row = rowAt(rows, index);
    return Sequence({{"Utility 3 AEGP_StartUndoGroup(\"\")"},
                     takeStreams(rows, index),
                     {"DynamicStream 2 AEGP_GetDynamicStreamFlags(stream " + row.label + ".1) -> 0"},
                     flagCalls,
                     {"Utility 3 AEGP_EndUndoGroup()"},
                     disposeStreams(row)});
}

Calls hide(const EffectRows& rows, int index)
{
    const std::string& label = rowAt(rows, index).label;
    return switchHidden(rows, index,
                        {"DynamicStream 5 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 0)",
                         "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 1)"});
}

Calls show(const EffectRows& rows, int index)
{
    const std::string& label = rowAt(rows, index).label;
    return switchHidden(rows, index,
                        {"DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 0)",
                         "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, 1)",
                         "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, 0)",
                         "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, 0)"});
}
} // namespace

Calls Sequence(const std::vector<Calls>& groups)
{
    Calls all;
    for (const Calls& group : groups)
        all.insert(all.end(), group.begin(), group.end());
    return all;
}

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

Calls GroupMessage(const EffectRows& rows, int index)
{
    return message(rows, index, "VORT 1 group -1) -> group " + std::to_string(rowAt(rows, index).group));
}

Calls IdentityMessage(const EffectRows& rows, int index)
{
    return message(rows, index,
                   std::string("VORT 5 uuid ") + zeroUuid + ") -> uuid " + rowAt(rows, index).uuid);
}

Calls HostRead(const EffectRows& rows, int index)
{
    const EffectRow& row = rowAt(rows, index);
    return {takeCall(rows, index),
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect " + row.label + ") -> " +
                std::to_string(row.key),
            "Effect 1 AEGP_GetEffectMatchName(" + std::to_string(row.key) + ") -> \"" + row.matchName + "\"",
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 8, effect " + row.label + ", 1) -> stream " +
                row.label + ".1",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 8, stream " + row.label + ".1) -> stream " +
                row.label,
            "Effect 1 AEGP_GetEffectFlags(effect " + row.label + ") -> " + std::to_string(row.flags),
            "Stream 4 AEGP_GetStreamName(stream " + row.label + ", 1) -> \"" + row.name + "\"",
            "Stream 7 AEGP_DisposeStream(stream " + row.label + ".1)",
            "Stream 7 AEGP_DisposeStream(stream " + row.label + ")",
            "Effect 1 AEGP_DisposeEffect(effect " + row.label + ")"};
}

Calls LayerRead(const EffectRows& rows)
{
    const int count = static_cast<int>(rows.size());
    std::vector<Calls> groups = {{countCall(rows)}};
    for (int index = 0; index < count; ++index)
        groups.push_back(GroupMessage(rows, index));
    for (int index = 0; index < count; ++index)
        groups.push_back(IdentityMessage(rows, index));
    for (int index = 0; index < count; ++index)
        groups.push_back(HostRead(rows, index));
    return Sequence(groups);
}

Calls IdentityRead(const EffectRows& rows)
{
    std::vector<Calls> groups = {{countCall(rows)}};
    for (int index = 0; index < static_cast<int>(rows.size()); ++index)
        groups.push_back(IdentityMessage(rows, index));
    return Sequence(groups);
}

Calls TreeRebuild(const std::string& names)
{
    return {"Tree RefreshTree([" + names + "])", "Tree ApplyLayerTreeState(1)",
            "Tree CacheLayerTreeState(1)"};
}

Calls QuietTree() { return {"Tree GetItemsFromTree(tree)", "Tree DidLayerStateChange(1)"}; }

Calls RenameChange(const EffectRows& rows, int index, const std::string& name)
{
    const EffectRow& row = rowAt(rows, index);
    return Sequence({IdentityRead(rows),
                     {"Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\")"},
                     takeStreams(rows, index),
                     {"DynamicStream 2 AEGP_SetStreamName(stream " + row.label + ", \"" + name + "\")",
                      "Utility 3 AEGP_EndUndoGroup()"},
                     disposeStreams(row)});
}

Calls ReorderInPlace(const EffectRows& rows, const std::string& undoName)
{
    std::vector<Calls> groups = {IdentityRead(rows), {"Utility 3 AEGP_StartUndoGroup(\"" + undoName + "\")"}};
    for (int index = 0; index < static_cast<int>(rows.size()); ++index)
    {
        const std::string effect = effectAt(rows, index);
        groups.push_back({takeCall(rows, index),
                          "Effect 1 AEGP_ReorderEffect(" + effect + ", " + std::to_string(index) + ")",
                          "Effect 1 AEGP_DisposeEffect(" + effect + ")"});
    }
    groups.push_back({"Utility 3 AEGP_EndUndoGroup()"});
    return Sequence(groups);
}

Calls SelectionPush(const EffectRows& rows, const std::vector<int>& selected)
{
    const int count = static_cast<int>(rows.size());
    std::vector<Calls> groups = {
        {"Tree GetSelectedTreeItems(tree)"},
        LayerRead(rows),
        {countCall(rows), "Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101"},
    };
    for (int index = 0; index < count; ++index)
        groups.push_back(readMatchName(rows, index));
    for (int index = 0; index < count; ++index)
    {
        if (std::count(selected.begin(), selected.end(), index) == 0)
            groups.push_back(hide(rows, index));
    }
    for (const int index : selected)
        groups.push_back(show(rows, index));
    groups.push_back({"Tree CacheLayerTreeState(1)"});
    return Sequence(groups);
}
} // namespace standin
