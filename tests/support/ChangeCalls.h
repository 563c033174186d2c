#pragma once
// The host calls of which changing and selecting a layer's effects consist, as the trace writes them: one
// line a call, without the suites' acquires and releases. Each function spells out one group of calls; a test
// puts the groups together. `labels` are those of a stack from the top down; `index` counts from its top.

#include "tests/support/StackScene.h"

#include <string>

namespace standin
{
/// The identity is asked of the effect at `index`.
std::string AskIdentity(StackScene& scene, const std::string& labels, int index);

/// The group is asked of the effect at `index`.
std::string AskGroup(StackScene& scene, const std::string& labels, int index);

/// The effect at `index` is told a group.
std::string TellGroup(StackScene& scene, const std::string& labels, int index, int group);

/// The layer is counted and every effect is asked for its identity.
std::string ReadIdentities(StackScene& scene, const std::string& labels);

/// The item list is made of the layer.
std::string ReadLayer(StackScene& scene, const std::string& labels);

/// One rename with its undo group, behind the reading of the identities.
std::string RenameEffect(const std::string& label, int index, const std::string& name);

/// One switching of the active state, behind the reading of the identities.
std::string SwitchEffect(const std::string& label, int index, int active);

/// One move within the order's undo group.
std::string MoveEffect(const std::string& label, int from, int to);

/// The match name is asked of the host.
std::string AskMatchName(StackScene& scene, const std::string& label, int index);

std::string HideCalls(StackScene& scene, const std::string& label, int index);
std::string ShowCalls(StackScene& scene, const std::string& label, int index);
std::string TwirlOpenCalls(const std::string& label, int index);
std::string TwirlClosedCalls(const std::string& label, int index);
} // namespace standin
