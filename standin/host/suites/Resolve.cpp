#include "standin/host/suites/Resolve.h"

#include "standin/host/sensors/FindingIds.h"

namespace standin
{
namespace
{
enum class Wanted
{
    layer,
    item,
    effect,
    stream
};

const char* wordFor(Wanted wanted)
{
    switch (wanted)
    {
    case Wanted::layer:
        return "layer handle";
    case Wanted::item:
        return "item handle";
    case Wanted::effect:
        return "effect reference";
    case Wanted::stream:
        break;
    }
    return "stream reference";
}

bool isKind(ReferenceKind kind, Wanted wanted)
{
    switch (wanted)
    {
    case Wanted::layer:
        return kind == ReferenceKind::layer;
    case Wanted::item:
        return kind == ReferenceKind::item;
    case Wanted::effect:
        return kind == ReferenceKind::effect;
    case Wanted::stream:
        break;
    }
    return kind == ReferenceKind::parameterStream || kind == ReferenceKind::groupStream;
}

/// A reference of the right kind that this host gave away, in whatever state; null with a finding.
Reference* findOfKind(HostParts& parts, const void* handle, Wanted wanted)
{
    const std::string word = wordFor(wanted);
    if (handle == nullptr)
    {
        parts.sensors.Report(finding::nullReference, "The " + word + " is null.");
        return nullptr;
    }
    Reference* reference = parts.sensors.references.Find(handle);
    if (reference == nullptr)
        parts.sensors.Report(finding::foreignReference,
                             "The " + word + " is none that this host has handed out.");
    else if (!isKind(reference->kind, wanted))
        parts.sensors.Report(finding::wrongKind, "The handle is no " + word + ".");
    return reference != nullptr && isKind(reference->kind, wanted) ? reference : nullptr;
}

/// The same, and fit for use.
Reference* findUsable(HostParts& parts, const void* handle, Wanted wanted)
{
    Reference* reference = findOfKind(parts, handle, wanted);
    if (reference == nullptr)
        return nullptr;
    const std::string word = wordFor(wanted);
    if (reference->state == ReferenceState::disposed || reference->state == ReferenceState::excused)
    {
        parts.sensors.Report(finding::disposedReference, "The " + word + " has been disposed of.");
        return nullptr;
    }
    if (reference->state == ReferenceState::expired)
    {
        parts.sensors.Report(finding::staleReference,
                             "The " + word + " was handed out in a hook that has returned.");
        return nullptr;
    }
    if (parts.sensors.references.IsStale(*reference))
    {
        parts.sensors.Report(finding::staleReference,
                             "The layer's stack has changed since the " + word + " was handed out.");
        return nullptr;
    }
    return reference;
}

void reportGone(HostParts& parts, Wanted wanted)
{
    parts.sensors.Report(finding::staleReference,
                         "What the " + std::string(wordFor(wanted)) + " stands for is gone.");
}

A_Err dispose(HostParts& parts, const void* handle, Wanted wanted)
{
    Reference* reference = findOfKind(parts, handle, wanted);
    if (reference == nullptr)
        return errParameter;
    if (reference->state != ReferenceState::live)
    {
        parts.sensors.Report(finding::doubleDispose,
                             "The " + std::string(wordFor(wanted)) + " is disposed of once more.");
        return errParameter;
    }
    parts.sensors.references.Settle(*reference, ReferenceState::disposed);
    return errNone;
}
} // namespace

Layer* ResolveLayer(HostParts& parts, LayerH layer)
{
    const Reference* reference = findUsable(parts, layer, Wanted::layer);
    if (reference == nullptr)
        return nullptr;
    Layer* found = parts.project.state.FindLayer(reference->owner);
    if (found == nullptr)
        reportGone(parts, Wanted::layer);
    return found;
}

const Item* ResolveItem(HostParts& parts, ItemH item)
{
    const Reference* reference = findUsable(parts, item, Wanted::item);
    if (reference == nullptr)
        return nullptr;
    const Item* found = parts.project.state.FindItem(reference->owner);
    if (found == nullptr)
        reportGone(parts, Wanted::item);
    return found;
}

EffectInstance* ResolveEffect(HostParts& parts, EffectRefH effect)
{
    const Reference* reference = findUsable(parts, effect, Wanted::effect);
    if (reference == nullptr)
        return nullptr;
    EffectInstance* found = parts.project.state.FindEffect(reference->owner);
    if (found == nullptr)
        reportGone(parts, Wanted::effect);
    return found;
}

ResolvedStream ResolveStream(HostParts& parts, StreamRefH stream)
{
    const Reference* reference = findUsable(parts, stream, Wanted::stream);
    if (reference == nullptr)
        return {};
    EffectInstance* effect = parts.project.state.FindEffect(reference->owner);
    if (effect == nullptr)
        reportGone(parts, Wanted::stream);
    return {effect, reference->parameter, reference};
}

A_Err DisposeEffectReference(HostParts& parts, EffectRefH effect)
{
    if (effect != nullptr && parts.sensors.references.HasLiveStreams(effect))
        parts.sensors.Report(finding::disposeOrder,
                             "A stream that was had through the effect is still to be disposed of.");
    Reference* reference = parts.sensors.references.Find(effect);
    if (parts.options.disposeDeleted == DisposeDeleted::isRefused && reference != nullptr &&
        reference->state == ReferenceState::live &&
        parts.project.state.FindEffect(reference->owner) == nullptr)
    {
        parts.sensors.references.Settle(*reference, ReferenceState::excused);
        return errParameter;
    }
    return dispose(parts, effect, Wanted::effect);
}

A_Err DisposeStreamReference(HostParts& parts, StreamRefH stream)
{
    return dispose(parts, stream, Wanted::stream);
}

void ExcuseReference(HostParts& parts, const void* handle)
{
    Reference* reference = parts.sensors.references.Find(handle);
    if (reference != nullptr && reference->state == ReferenceState::live)
        parts.sensors.references.Settle(*reference, ReferenceState::excused);
}

bool CheckPlugin(HostParts& parts, A_long pluginId)
{
    const std::string id = "The plug-in id " + std::to_string(pluginId);
    if (!parts.plugins.IsPlugin(pluginId))
        parts.sensors.Report(finding::wrongPluginId, id + " was never handed out.");
    else if (!parts.MayUseId(pluginId))
        parts.sensors.Report(finding::wrongPluginId, id + " is another's than that of plug-in " +
                                                         std::to_string(parts.plugins.runningPlugin) +
                                                         ", whose hook runs.");
    else
        return true;
    return false;
}

bool CheckTime(HostParts& parts, const A_Time& time)
{
    if (time.scale != 0)
        return true;
    parts.sensors.Report(finding::timeScale, "The scale of the time is 0.");
    return false;
}
} // namespace standin
