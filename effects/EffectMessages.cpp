#include "effects/EffectMessages.h"

#include "effects/EffectChain.h"
#include "host/PrintLine.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{
VnEffectMessage makeMessage(VN_MSG_COMMAND command)
{
    // Not by braces, which are only guaranteed to clear the first member of the union.
    VnEffectMessage message = VnEffectMessage();
    message.magic = VN_MSG_MAGIC;
    message.command = command;
    return message;
}

} // namespace

VN_UUID AskIdentity(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time, int index)
{
    VnEffectMessage message = makeMessage(VN_MSG_GET_UUID);
    message.uuid = ZeroUUID();
    (void)PingEffectIndex(pluginId, suites, layer, time, &message, index, 0);
    return message.uuid;
}

int AskGroup(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time, int index,
             int requiredFlags)
{
    VnEffectMessage message = makeMessage(VN_MSG_GET_GROUP);
    message.group = -1;
    (void)PingEffectIndex(pluginId, suites, layer, time, &message, index, requiredFlags);
    return message.group;
}

int PingEffectIndex(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time, void* message,
                    int effectIndex, int requiredFlags)
{
    EffectChain chain(*suites, pluginId);
    A_Time compTime{};
    A_long count = 0;
    chain.Call(&AEGP_LayerSuite1::AEGP_ConvertLayerToCompTime, layer, &time, &compTime)
        .Call(&AEGP_EffectSuite1::AEGP_GetLayerNumEffects, layer, &count);
    if (effectIndex < 0 || effectIndex >= count)
        return chain.Error();

    AEGP_EffectFlags flags = 0;
    chain.TakeEffect<AEGP_EffectSuite1>(layer, effectIndex)
        .Call(&AEGP_EffectSuite1::AEGP_GetEffectFlags, chain.effect, &flags);
    if (requiredFlags != 0 && (flags & requiredFlags) == 0)
        return chain.Finish();

    chain.DisposeEffectWith<AEGP_EffectSuite3>();
    if (chain.effect != nullptr)
        chain.Call(&AEGP_EffectSuite3::AEGP_EffectCallGeneric, pluginId, chain.effect, &compTime,
                   PF_Cmd_COMPLETELY_GENERAL, message);
    return chain.Finish();
}

int GetEffectUUIDs(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time,
                   std::vector<int>* indices, std::vector<std::string>* uuids)
{
    for (const int index : *indices)
        uuids->push_back(GetUUIDStr(AskIdentity(pluginId, suites, layer, time, index)).text);
    return 0;
}

int GetEffectGroups(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time,
                    std::vector<int>* indices, std::vector<int>* groups, int requiredFlags)
{
    for (const int index : *indices)
        groups->push_back(AskGroup(pluginId, suites, layer, time, index, requiredFlags));
    return 0;
}

int SetEffectGroupByUUID(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time,
                         std::string uuid, int group)
{
    if (layer == nullptr)
    {
        PrintLine("LayerH is NULL");
        return 0;
    }
    A_long count = 0;
    (void)suites->EffectSuite1()->AEGP_GetLayerNumEffects(layer, &count);
    std::vector<int> indices(static_cast<std::size_t>(std::max(count, 0)));
    std::iota(indices.begin(), indices.end(), 0);
    std::vector<std::string> uuids;
    (void)GetEffectUUIDs(pluginId, suites, layer, time, &indices, &uuids);

    const int index = FindUuid(uuids, uuid);
    if (index >= 0)
    {
        VnEffectMessage message = makeMessage(VN_MSG_SET_GROUP);
        // Kept: a number of more than 16 bits is truncated to what the message holds.
        message.group = static_cast<std::int16_t>(group);
        (void)PingEffectIndex(pluginId, suites, layer, time, &message, index, 0);
    }
    return 0;
}

void SetEffectGroup(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer, std::string uuid, int group)
{
    AEGP_SuiteHandler suites(basicSuite);
    (void)SetEffectGroupByUUID(pluginId, &suites, layer, MESSAGE_TIME, std::move(uuid), group);
}

std::vector<VN_UUID> ReadIdentities(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, int count)
{
    std::vector<VN_UUID> identities(static_cast<std::size_t>(std::max(count, 0)), ZeroUUID());
    for (std::size_t i = 0; i < identities.size(); ++i)
        identities[i] = AskIdentity(pluginId, suites, layer, MESSAGE_TIME, static_cast<int>(i));
    return identities;
}

std::vector<std::string> ReadStackUuids(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer)
{
    A_long count = 0;
    (void)suites->EffectSuite1()->AEGP_GetLayerNumEffects(layer, &count);
    std::vector<std::string> stackUuids;
    stackUuids.reserve(static_cast<std::size_t>(std::max(count, 0)));
    for (const VN_UUID& identity : ReadIdentities(pluginId, suites, layer, count))
        stackUuids.emplace_back(GetUUIDStr(identity).text, UUID_TEXT_LENGTH);
    return stackUuids;
}

int FindUuid(const std::vector<std::string>& stackUuids, const std::string& uuid)
{
    // Kept: of two effects with one identity the upper one is found, whichever is meant.
    const auto found = std::find(stackUuids.begin(), stackUuids.end(), uuid);
    return found == stackUuids.end() ? -1 : static_cast<int>(found - stackUuids.begin());
}
