// "AEGP Effect Suite" 1 and 3: a layer's effects, and the installed ones.

#include "standin/host/core/StackChanges.h"
#include "standin/host/suites/Entry.h"
#include "standin/host/suites/Resolve.h"
#include "standin/host/suites/Suites.h"

namespace standin
{
namespace
{
using LayerArg = HandleArg<LayerH>;
using EffectArg = HandleArg<EffectRefH>;
using OutEffect = OutHandle<EffectRefH>;

void* handOutEffect(HostParts& parts, int effectId, int layerId)
{
    Reference reference;
    reference.kind = ReferenceKind::effect;
    reference.owner = effectId;
    reference.layer = layerId;
    return parts.HandOut(reference);
}

A_Err getLayerNumEffects(HostParts& parts, LayerArg layer, OutNumber<A_long> count)
{
    const Layer* found = ResolveLayer(parts, layer.value);
    if (found == nullptr)
        return errParameter;
    *count.value = static_cast<A_long>(found->effects.size());
    return errNone;
}

bool isIndexOf(const Layer& layer, A_long index)
{
    return index >= 0 && index < static_cast<A_long>(layer.effects.size());
}

A_Err refuseIndex(HostParts& parts, const Layer& layer, A_long index)
{
    parts.sensors.Report(finding::indexOutOfRange, "Index " + std::to_string(index) +
                                                       " is not in a stack of " +
                                                       std::to_string(layer.effects.size()) + ".");
    return errParameter;
}

A_Err getLayerEffectByIndex(HostParts& parts, PluginArg id, LayerArg layer, NumberArg<A_long> index,
                            OutEffect out)
{
    const bool knownPlugin = CheckPlugin(parts, id.value);
    const Layer* found = ResolveLayer(parts, layer.value);
    if (!knownPlugin || found == nullptr)
        return errParameter;
    if (!isIndexOf(*found, index.value))
        return refuseIndex(parts, *found, index.value);
    out.Give(handOutEffect(parts, found->effects[static_cast<std::size_t>(index.value)].id, found->id));
    return errNone;
}

A_Err getInstalledKeyFromLayerEffect(HostParts& parts, EffectArg effect, OutNumber<A_long> key)
{
    const EffectInstance* found = ResolveEffect(parts, effect.value);
    if (found == nullptr)
        return errParameter;
    *key.value = found->key;
    return errNone;
}

A_Err getEffectFlags(HostParts& parts, EffectArg effect, OutNumber<A_long> flags)
{
    const EffectInstance* found = ResolveEffect(parts, effect.value);
    if (found == nullptr)
        return errParameter;
    *flags.value = found->flags;
    return errNone;
}

A_Err setEffectFlags(HostParts& parts, EffectArg effect, NumberArg<A_long> mask, NumberArg<A_long> value)
{
    const EffectInstance* found = ResolveEffect(parts, effect.value);
    if (found == nullptr)
        return errParameter;
    if ((mask.value & ~effectActive) != 0)
    {
        parts.sensors.Report(finding::readOnlyFlag, "Only the active flag of an effect can be set.");
        return errParameter;
    }
    SetEffectFlags(parts, found->id, (found->flags & ~mask.value) | (value.value & mask.value));
    return errNone;
}

A_Err reorderEffect(HostParts& parts, EffectArg effect, NumberArg<A_long> index)
{
    const EffectInstance* found = ResolveEffect(parts, effect.value);
    if (found == nullptr)
        return errParameter;
    const Layer& layer = *parts.project.state.FindLayerOfEffect(found->id);
    if (!isIndexOf(layer, index.value))
        return refuseIndex(parts, layer, index.value);
    ReorderEffect(parts, found->id, index.value);
    return errNone;
}

A_Err callGeneric(HostParts& parts, const PluginArg& id, const EffectArg& effect, const TimeArg& time,
                  const MessageArg& extra)
{
    const bool knownPlugin = CheckPlugin(parts, id.value);
    const EffectInstance* found = ResolveEffect(parts, effect.value);
    const bool hasTime = CheckTime(parts, *time.value);
    if (!knownPlugin || found == nullptr || !hasTime)
        return errParameter;
    ++parts.project.runtimes[found->id].messages;
    if ((found->flags & effectMissing) != 0)
        return errNone;
    try
    {
        return parts.project.BehaviourOf(*found).OnGeneralCommand({parts.host, found->id}, *time.value,
                                                                  extra.value);
    }
    catch (int)
    {
        return errGeneric; // The host keeps what an effect throws away from its callers.
    }
}

A_Err effectCallGeneric1(HostParts& parts, PluginArg id, EffectArg effect, TimeArg time, MessageArg extra)
{
    return callGeneric(parts, id, effect, time, extra);
}

A_Err effectCallGeneric3(HostParts& parts, PluginArg id, EffectArg effect, TimeArg time,
                         NumberArg<A_long> command, MessageArg extra)
{
    if (command.value != completelyGeneral)
        return errParameter;
    return callGeneric(parts, id, effect, time, extra);
}

A_Err disposeEffect(HostParts& parts, EffectArg effect)
{
    return DisposeEffectReference(parts, effect.value);
}

A_Err excuseDisposal(HostParts& parts, EffectArg effect)
{
    ExcuseReference(parts, effect.value);
    return errNone;
}

A_Err refuseKey(HostParts& parts, A_long key)
{
    parts.sensors.Report(finding::unknownKey,
                         "No effect with the key " + std::to_string(key) + " is installed.");
    return errParameter;
}

A_Err applyEffect(HostParts& parts, PluginArg id, LayerArg layer, NumberArg<A_long> key, OutEffect out)
{
    const bool knownPlugin = CheckPlugin(parts, id.value);
    const Layer* found = ResolveLayer(parts, layer.value);
    if (!knownPlugin || found == nullptr)
        return errParameter;
    if (parts.host.FindInstalled(key.value) == nullptr)
        return refuseKey(parts, key.value);
    const int layerId = found->id;
    const int effectId = ApplyEffect(parts, layerId, key.value);
    out.Give(handOutEffect(parts, effectId, layerId));
    return errNone;
}

A_Err deleteLayerEffect(HostParts& parts, EffectArg effect)
{
    const EffectInstance* found = ResolveEffect(parts, effect.value);
    if (found == nullptr)
        return errParameter;
    const bool clears = parts.options.deletedSelection == DeletedSelection::clearsAll &&
                        parts.project.selection.effect == found->id;
    DeleteEffect(parts, found->id);
    if (clears)
        parts.project.selection.layers.clear();
    return errNone;
}

A_Err getNumInstalledEffects(HostParts& parts, OutNumber<A_long> count)
{
    *count.value = static_cast<A_long>(parts.project.installed.size());
    return errNone;
}

A_Err getNextInstalledEffect(HostParts& parts, NumberArg<A_long> key, OutNumber<A_long> next)
{
    std::size_t position = 0;
    if (key.value != 0)
    {
        const InstalledEffect* found = parts.host.FindInstalled(key.value);
        if (found == nullptr)
            return refuseKey(parts, key.value);
        position = static_cast<std::size_t>(found - parts.project.installed.data()) + 1;
    }
    const bool atEnd = position >= parts.project.installed.size();
    if (atEnd && parts.options.walkEnd == WalkEnd::isError)
        return errGeneric;
    *next.value = atEnd ? 0 : parts.project.installed[position].key;
    return errNone;
}

A_Err getEffectMatchName(HostParts& parts, NumberArg<A_long> key, OutText name)
{
    const InstalledEffect* found = parts.host.FindInstalled(key.value);
    if (found == nullptr)
        return refuseKey(parts, key.value);
    if (found->matchNameEnding == InstalledEffect::MatchNameEnding::notTerminated)
        name.GiveUnterminated(found->matchName);
    else
        name.Give(found->matchName, parts.options.nameLimit == NameLimit::roomy ? 127 : 47);
    return errNone;
}

template <SuiteId suite, int slotCount>
void describeCommon(SuiteBuilder<suite, slotCount>& builder)
{
    builder.template Slot<0, getLayerNumEffects>("AEGP_GetLayerNumEffects", Access::reads)
        .template Slot<1, getLayerEffectByIndex>("AEGP_GetLayerEffectByIndex", Access::reads)
        .template Slot<2, getInstalledKeyFromLayerEffect>("AEGP_GetInstalledKeyFromLayerEffect",
                                                          Access::reads)
        .template Slot<4, getEffectFlags>("AEGP_GetEffectFlags", Access::reads)
        .template Slot<5, setEffectFlags>("AEGP_SetEffectFlags", Access::writesProject)
        .template Slot<6, reorderEffect>("AEGP_ReorderEffect", Access::writesProject)
        .template Slot<8, disposeEffect, excuseDisposal>("AEGP_DisposeEffect", Access::writesHost)
        .template Slot<9, applyEffect>("AEGP_ApplyEffect", Access::writesProject)
        .template Slot<10, deleteLayerEffect>("AEGP_DeleteLayerEffect", Access::writesProject)
        .template Slot<11, getNumInstalledEffects>("AEGP_GetNumInstalledEffects", Access::reads)
        .template Slot<12, getNextInstalledEffect>("AEGP_GetNextInstalledEffect", Access::reads)
        .template Slot<14, getEffectMatchName>("AEGP_GetEffectMatchName", Access::reads);
}
} // namespace

SuiteDescription DescribeEffectSuite1()
{
    SuiteBuilder<SuiteId::effect1, 16> builder("AEGP Effect Suite", 1, "AEGP_EffectSuite1");
    describeCommon(builder);
    return builder.Slot<7, effectCallGeneric1>("AEGP_EffectCallGeneric", Access::runsHooks).Done();
}

SuiteDescription DescribeEffectSuite3()
{
    SuiteBuilder<SuiteId::effect3, 17> builder("AEGP Effect Suite", 3, "AEGP_EffectSuite3");
    describeCommon(builder);
    return builder.Slot<7, effectCallGeneric3>("AEGP_EffectCallGeneric", Access::runsHooks).Done();
}
} // namespace standin
