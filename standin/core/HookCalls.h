#pragma once
// How the host calls hooks: each as a hook of its own, with what it threw caught and what it left
// behind reported.

#include <functional>

#include "standin/core/HostParts.h"

namespace standin
{
HookResult RunHook(HostParts& parts, HookKind kind, const std::function<A_Err()>& body);

/// `first` unless it is well, else `second`.
HookResult FirstBad(const HookResult& first, const HookResult& second);

/// Opens, covers, brings to the front or closes a panel. Runs the create hook if there is no view.
HookResult ChangePanelState(HostParts& parts, Panel& panel, PanelState state);
void DestroyContainer(HostParts& parts, Panel& panel);
} // namespace standin
