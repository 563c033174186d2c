#pragma once
// What a host is made of. For the stand-in's own files; tests go through Host.

#include <map>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "standin/core/Behaviour.h"
#include "standin/core/HookTable.h"
#include "standin/core/Host.h"
#include "standin/core/Selection.h"
#include "standin/core/UndoHistory.h"
#include "standin/sensors/ReferenceRegistry.h"
#include "standin/sensors/SuiteCounts.h"

namespace standin
{
/// A call that is running.
struct RunningCall
{
    std::size_t ordinal = 0;
    std::string function;
    std::string head;
};

/// Which hook runs, as far as it matters.
enum class HookKind
{
    ordinary,
    entryPoint,
    death
};

/// A table that a plug-in has published.
struct PublishedSuite
{
    const void* table = nullptr;
    A_long pluginId = 0; ///< Whose functions these are.
};

/// Memory of the host that a plug-in has allocated.
struct HostBlock
{
    std::string function;
    std::string call; ///< That allocated it.
};

/// Owns what plug-ins have not given back.
class HostBlocks
{
public:
    HostBlocks() = default;
    ~HostBlocks() { FreeAll(); }
    HostBlocks(const HostBlocks&) = delete;
    HostBlocks& operator=(const HostBlocks&) = delete;

    void FreeAll();

    std::map<void*, HostBlock> all;
};

struct HostParts
{
    HostParts(Host& owner, HostOptions hostOptions);

    Host& host;
    HostOptions options;
    std::thread::id thread;

    ProjectState project;
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

    UserActions user;
    UndoHistory undo;
    MenuBar menus;
    PanelDock panels;
    HookTable hooks;
    std::vector<Alert> alerts;
    ContainerProvider ownProvider;
    ContainerProvider* provider = &ownProvider;
    PF_App_Color background{0x2323, 0x2323, 0x2323};
    A_long nextPlugin = 7;
    bool hasQuit = false;

    ReferenceRegistry references;
    SuiteCounts suiteCounts;
    std::map<std::pair<std::string, A_long>, PublishedSuite> published;
    HostBlocks blocks;
    CallTrace trace;
    FaultPlan faults;
    IdlePlan idles;
    FindingLog findings;
    std::vector<RunningCall> running;
    int hookDepth = 0;
    HookKind hookKind = HookKind::ordinary;
    A_long runningPlugin = 0; ///< Whose hook runs; 0 outside any.
    /// Levels of undo groups whose end was made to fail by a fault: that they stay open is not the
    /// caller's doing.
    int excusedUndoLevels = 0;
    // What hooks have left behind, all of them together.
    int undoGroupsLeftOpen = 0;
    bool isOpenGroupReported = false; ///< Of the group that is open now.
    int openDialogs = 0;
    int keysHeard = 0;
    int leakedReferences = 0;

    /// Adds a finding for the innermost running call.
    void Report(const char* id, const std::string& sentence);
    /// Raises an alert of the host's own.
    void Alarm(const std::string& text) { alerts.push_back({0, text}); }
    bool IsPlugin(A_long pluginId) const { return pluginId >= 7 && pluginId < nextPlugin; }
    /// Whether what runs may use this plug-in's id: its hook runs, or somebody holds a suite of its own,
    /// whose functions run under its id in the hooks of others.
    bool MayUseId(A_long pluginId) const;
    std::string LabelOf(int effectId);
    const InstalledEffect* InstalledOf(const EffectInstance& effect) const;
    const Behaviour& BehaviourOf(const EffectInstance& effect) const;
    std::string NameOf(const EffectInstance& effect) const;
    void* HandOut(Reference reference);
};
} // namespace standin
