#pragma once
// How the host calls hooks: each as a hook of its own, with what it threw caught and what it left
// behind reported.

#include <functional>

#include "standin/host/core/HostParts.h"

namespace standin
{
/// What is called, and on whose behalf.
struct HookCall
{
    HookKind kind = HookKind::ordinary;
    A_long pluginId = 0;
    /// As findings call it: "IdleHook". Empty for a body that no plug-in has registered, whose result is
    /// its caller's own business.
    const char* name = "";
};

HookResult RunHook(HostParts& parts, const HookCall& call, const std::function<A_Err()>& body);

/// `first` unless it is well, else `second`.
HookResult FirstBad(const HookResult& first, const HookResult& second);

/// Opens, covers, brings to the front or closes a panel. Runs the create hook if there is no view.
HookResult ChangePanelState(HostParts& parts, Panel& panel, PanelState state);
void DestroyContainer(HostParts& parts, Panel& panel);
} // namespace standin
