#pragma once
// The project that is open, with what the host itself knows about its effects.

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "standin/host/core/Behaviour.h"
#include "standin/host/core/ProjectState.h"
#include "standin/host/core/Selection.h"

namespace standin
{
/// One line of what the user sees happen to the streams: "open B", "close B", "reveal B", "reveal B.1".
using ViewEvents = std::vector<std::string>;

struct Project
{
    Project();

    ProjectState state; ///< What undo brings back.
    std::vector<InstalledEffect> installed;
    Selection selection;
    std::map<int, bool> twirledOpen; ///< By effect id. Twirls are no part of undo.
    ViewEvents viewLog;
    std::map<int, EffectRuntime> runtimes;
    std::map<int, std::string> lastLabels; ///< Of effects that a reference was handed out for.
    std::function<Identity()> identitySource;
    int nextItem = 101;
    int nextLayer = 1;
    int nextEffect = 1;
    A_long nextKey = 201;

    std::string LabelOf(int effectId);
    const InstalledEffect* InstalledOf(const EffectInstance& effect) const;
    const Behaviour& BehaviourOf(const EffectInstance& effect) const;
    std::string NameOf(const EffectInstance& effect) const;
};
} // namespace standin
