#include "effects/LayerEffectChanges.h"

#include "effects/EffectChain.h"
#include "effects/EffectMessages.h"
#include "host/PrintLine.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace
{
/// Where the changes go, as every step needs it.
struct Target
{
    int pluginId;
    SPBasicSuite* basicSuite;
    AEGP_LayerH layer;
};

/// By identity, the first layer item that has it. An outside effect has no partner.
using Partners = std::unordered_map<std::string_view, const ObjectItem*>;

Partners partnersAmong(const std::vector<ObjectItem>& layerItems)
{
    Partners partners(layerItems.size());
    for (const ObjectItem& item : layerItems)
        if (item.uuid != ZERO_UUID_TEXT)
            partners.emplace(item.uuid, &item);
    return partners;
}

/// Calls `change` with each tree item whose partner differs from it in `field`. Returns whether one did.
template <class Field, class Change>
bool forEachDifference(const Partners& partners, const std::vector<ObjectItem>& treeItems, Field field,
                       Change change)
{
    bool met = false;
    for (const ObjectItem& treeItem : treeItems)
    {
        const auto partner = partners.find(treeItem.uuid);
        if (partner == partners.end() || partner->second->*field == treeItem.*field)
            continue;
        change(treeItem);
        met = true;
    }
    return met;
}

void renameEffect(const Target& target, const ObjectItem& item)
{
    if (target.layer == nullptr)
        return;
    AEGP_SuiteHandler suites(target.basicSuite);
    const int index = FindUuid(ReadStackUuids(target.pluginId, &suites, target.layer), item.uuid);
    if (index < 0)
        return;
    // Kept: an error after the start of the undo group leaves it open.
    EffectChain chain(suites, target.pluginId);
    chain.Call(&AEGP_UtilitySuite1::AEGP_StartUndoGroup, "Rename Effect(s)")
        .TakeEffect<AEGP_EffectSuite1>(target.layer, index)
        .TakeParamStream()
        .TakeGroupStream()
        .Call(&AEGP_DynamicStreamSuite2::AEGP_SetStreamName, chain.groupStream, item.name.c_str())
        .Call(&AEGP_UtilitySuite1::AEGP_EndUndoGroup);
    (void)chain.Finish();
}

void changeGroup(const Target& target, const ObjectItem& item)
{
    PrintLine("Setting Group: " + item.name);
    SetEffectGroup(target.pluginId, target.basicSuite, target.layer, item.uuid, item.group);
}

void changeActiveState(const Target& target, const ObjectItem& item)
{
    // Kept: unlike a rename, this does not ask whether there is a layer.
    AEGP_SuiteHandler suites(target.basicSuite);
    const int index = FindUuid(ReadStackUuids(target.pluginId, &suites, target.layer), item.uuid);
    if (index < 0)
        return;
    EffectChain chain(suites, target.pluginId);
    chain.TakeEffect<AEGP_EffectSuite1>(target.layer, index)
        .Call(&AEGP_EffectSuite1::AEGP_SetEffectFlags, chain.effect, AEGP_EffectFlags_ACTIVE,
              item.active != 0 ? 1 : 0);
    (void)chain.Finish();
}

/// Follows in `stackUuids` the move of the entry at `from` to `to`.
void followMove(std::vector<std::string>& stackUuids, int from, int to)
{
    const auto begin = stackUuids.begin();
    if (from < to)
    {
        // Kept: this lands one short of where the host puts the effect. It takes a position that was
        // passed without a move, or two effects of one identity, to come here. A position past the end
        // of the stack shifts all there is.
        const auto end = begin + std::min(to, static_cast<int>(stackUuids.size()));
        std::rotate(begin + from, begin + from + 1, end);
    }
    else
    {
        std::rotate(begin + to, begin + from, begin + from + 1);
    }
}

void moveEffect(const Target& target, const AEGP_SuiteHandler& suites, int from, int to)
{
    EffectChain chain(suites, target.pluginId);
    chain.TakeEffect<AEGP_EffectSuite1>(target.layer, from);
    // Kept: the move is requested even without an effect, and if the effect is in place already.
    (void)suites.EffectSuite1()->AEGP_ReorderEffect(chain.effect, to);
    (void)chain.Finish();
}

/// Two effects may have one identity, and outside effects all have the same.
bool areAllDistinct(const std::vector<std::string>& stackUuids)
{
    std::unordered_set<std::string_view> met;
    for (const std::string& uuid : stackUuids)
        if (uuid != ZERO_UUID_TEXT && !met.insert(uuid).second)
            return false;
    return true;
}

/// Each wanted identity goes to its position in the list. Kept: one that is not on the layer counts as a
/// position all the same.
void reorderEffects(const Target& target, const std::vector<std::string>& wanted, bool isOnlyChange)
{
    if (target.layer == nullptr)
        return;
    AEGP_SuiteHandler suites(target.basicSuite);
    std::vector<std::string> stackUuids = ReadStackUuids(target.pluginId, &suites, target.layer);
    // Kept: after any other change the step has no name.
    const char* undoName = isOnlyChange ? "Reorder Effect(s)" : "";
    (void)suites.UtilitySuite1()->AEGP_StartUndoGroup(undoName);
    const bool areDistinct = areAllDistinct(stackUuids);
    for (int place = 0; place < static_cast<int>(wanted.size()); ++place)
    {
        const auto index = static_cast<std::size_t>(place);
        const std::string& uuid = wanted[index];
        // Most effects are in place, and need no search.
        const bool isThere = areDistinct && index < stackUuids.size() && stackUuids[index] == uuid;
        const int from = uuid == ZERO_UUID_TEXT ? -1 : isThere ? place : FindUuid(stackUuids, uuid);
        if (from < 0)
            continue;
        moveEffect(target, suites, from, place);
        followMove(stackUuids, from, place);
    }
    // Kept: closed whatever happened, also if the group could not be opened.
    (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();
}
} // namespace

void LayerEffectChanges(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer,
                        const std::vector<ObjectItem>& layerItems, const std::vector<ObjectItem>& treeItems)
{
    const Target target = {pluginId, basicSuite, layer};
    const Partners partners = partnersAmong(layerItems);
    const auto carryOut = [&](auto field, auto change)
    {
        return forEachDifference(partners, treeItems, field,
                                 [&](const ObjectItem& item) { change(target, item); });
    };
    const bool names = carryOut(&ObjectItem::name, renameEffect);
    const bool groups = carryOut(&ObjectItem::group, changeGroup);
    const bool actives = carryOut(&ObjectItem::active, changeActiveState);

    std::vector<std::string> wanted;
    wanted.reserve(treeItems.size());
    for (const ObjectItem& item : treeItems)
        wanted.push_back(item.uuid);
    reorderEffects(target, wanted, !names && !groups && !actives);
}
