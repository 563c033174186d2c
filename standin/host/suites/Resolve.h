#pragma once
// From a handle that a plug-in passes to what it stands for. Whatever is wrong with the handle is a
// finding of the running call, and gives null.

#include "standin/host/core/HostParts.h"

namespace standin
{
Layer* ResolveLayer(HostParts& parts, LayerH layer);
const Item* ResolveItem(HostParts& parts, ItemH item);
EffectInstance* ResolveEffect(HostParts& parts, EffectRefH effect);

/// A stream and its effect. `parameter` is 0 for the effect's own group.
struct ResolvedStream
{
    EffectInstance* effect = nullptr;
    A_long parameter = 0;
    const Reference* reference = nullptr;

    explicit operator bool() const { return effect != nullptr; }
};

ResolvedStream ResolveStream(HostParts& parts, StreamRefH stream);

A_Err DisposeEffectReference(HostParts& parts, EffectRefH effect);
A_Err DisposeStreamReference(HostParts& parts, StreamRefH stream);
/// The disposal was made to fail by a fault, and nobody is to blame for the reference any more.
void ExcuseReference(HostParts& parts, const void* handle);

/// False, with a finding, for an id that this host has not handed out, or to another plug-in.
bool CheckPlugin(HostParts& parts, A_long pluginId);
/// False, with a finding, for a time whose scale is 0.
bool CheckTime(HostParts& parts, const A_Time& time);
} // namespace standin
