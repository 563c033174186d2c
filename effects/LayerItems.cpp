#include "effects/LayerItems.h"

#include "effects/EffectChain.h"
#include "effects/EffectMessages.h"
#include "effects/NameBuffer.h"

namespace
{
/// What the host itself reports about one effect. The names carry over from effect to effect.
struct HostFacts
{
    NameBuffer matchName;
    NameBuffer name;
    std::int32_t active = 0;
};

/// The steps that read one effect from the host.
void readHostFacts(EffectChain& chain, AEGP_LayerH layer, int index, HostFacts& facts)
{
    AEGP_InstalledEffectKey key = AEGP_InstalledEffectKey_NONE;
    AEGP_EffectFlags flags = 0;
    chain.TakeEffect<AEGP_EffectSuite1>(layer, index)
        .Call(&AEGP_EffectSuite1::AEGP_GetInstalledKeyFromLayerEffect, chain.effect, &key)
        .Call(&AEGP_EffectSuite1::AEGP_GetEffectMatchName, key, facts.matchName.text)
        .TakeParamStream()
        .TakeGroupStream()
        .Call(&AEGP_EffectSuite1::AEGP_GetEffectFlags, chain.effect, &flags);
    if (chain.Error() == A_Err_NONE)
        facts.active = flags & AEGP_EffectFlags_ACTIVE;
    constexpr A_Boolean forceEnglish = 1;
    chain.Call(&AEGP_StreamSuite1::AEGP_GetStreamName, chain.groupStream, forceEnglish, facts.name.text);
}

ObjectItem& itemAt(std::vector<ObjectItem>& items, int index)
{
    return items[static_cast<std::size_t>(index)];
}
} // namespace

void ReadItemsFromLayer(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer,
                        std::vector<ObjectItem>& items)
{
    if (layer == nullptr)
        return items.clear();
    AEGP_SuiteHandler suites(basicSuite);
    A_long count = 0;
    A_Err err = suites.EffectSuite1()->AEGP_GetLayerNumEffects(layer, &count);
    if (count < 1)
        return items.clear();

    items.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        itemAt(items, i).group = AskGroup(pluginId, &suites, layer, MESSAGE_TIME, i, 0);
    for (int i = 0; i < count; ++i)
    {
        const VN_UUID identity = AskIdentity(pluginId, &suites, layer, MESSAGE_TIME, i);
        itemAt(items, i).uuid.assign(GetUUIDStr(identity).text, UUID_TEXT_LENGTH);
    }

    // Kept: the names and the error carry over, so that after a failed read the rest of the list repeats
    // them.
    HostFacts facts;
    for (int i = 0; i < count; ++i)
    {
        facts.active = 0;
        EffectChain chain(suites, pluginId, err);
        readHostFacts(chain, layer, i, facts);
        err = chain.Error();
        ObjectItem& item = itemAt(items, i);
        item.name = facts.name.text;
        item.active = facts.active;
        item.tag = facts.matchName.text;
        (void)chain.Finish();
    }
}

std::vector<ObjectItem> CreateItemsFromLayer(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer, int)
{
    std::vector<ObjectItem> items;
    ReadItemsFromLayer(pluginId, basicSuite, layer, items);
    return items;
}
