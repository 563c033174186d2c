#include "standin/host/core/Host.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "standin/host/core/HostParts.h"
#include "standin/host/core/StackChanges.h"
#include "standin/host/sensors/FindingIds.h"
#include "standin/host/suites/SuiteDescription.h"

namespace standin
{
HostParts& PartsOf(Host& host) { return *host.parts; }

const Project& Host::ProjectView() const { return parts->project; }

const Plugins& Host::PluginsView() const { return parts->plugins; }

const Sensors& Host::SensorsView() const { return parts->sensors; }

void Host::ForgetHistory() { parts->history.Forget(); }

void Host::Publish(const std::string& name, A_long version, const void* table)
{
    parts->plugins.published[{name, version}] = {table, PluginId()};
}

void Host::ForgetHooks() { parts->plugins.hooks = {}; }

void Host::Uninstall(const std::string& matchName)
{
    auto& installed = parts->project.installed;
    const auto found =
        std::find_if(installed.begin(), installed.end(),
                     [&](const InstalledEffect& entry) { return entry.matchName == matchName; });
    if (found == installed.end())
        throw std::logic_error("no effect " + matchName + " is installed");
    installed.erase(found);
}

namespace
{
Host* currentHost = nullptr;

EffectInstance& existing(ProjectState& project, const std::string& label)
{
    EffectInstance* effect = project.FindEffect(label);
    if (effect == nullptr)
        throw std::logic_error("no effect is labelled \"" + label + "\"");
    return *effect;
}
} // namespace

Host::Host(HostOptions options)
{
    if (currentHost != nullptr)
    {
        currentHost->parts->sensors.Report(finding::nestedHost,
                                           "A second host was made while this one lives.");
        throw std::logic_error("a stand-in host lives already");
    }
    parts = std::make_unique<HostParts>(*this, options);
    parts->plugins.nextId = PluginId() + 1;
    currentHost = this;
}

Host::~Host() { currentHost = nullptr; }

Host* Host::Current() { return currentHost; }

void* Host::BasicSuite() { return const_cast<AnyFunction*>(DescriptionOf(SuiteId::basic).table.data()); }

A_long Host::PluginId() const { return 7; }

HostOptions& Host::Options() { return parts->options; }

// Building.

int Host::AddComposition(const std::string& name)
{
    parts->project.state.items.push_back({parts->project.nextItem, ItemKind::composition, name});
    if (parts->project.selection.frontComp == 0)
        parts->project.selection.frontComp = parts->project.nextItem;
    return parts->project.nextItem++;
}

int Host::AddFootage(const std::string& name)
{
    parts->project.state.items.push_back({parts->project.nextItem, ItemKind::footage, name});
    return parts->project.nextItem++;
}

int Host::AddFolder(const std::string& name)
{
    parts->project.state.items.push_back({parts->project.nextItem, ItemKind::folder, name});
    return parts->project.nextItem++;
}

int Host::AddLayer(int compId, const std::string& name)
{
    Layer layer;
    layer.id = parts->project.nextLayer++;
    layer.compId = compId;
    layer.name = name;
    parts->project.state.layers.push_back(layer);
    return layer.id;
}

A_long Host::Install(InstalledEffect effect)
{
    if (effect.key == 0)
        effect.key = parts->project.nextKey;
    parts->project.nextKey = std::max(parts->project.nextKey, effect.key) + 3;
    parts->project.installed.push_back(std::move(effect));
    return parts->project.installed.back().key;
}

int Host::AddEffect(int layerId, const std::string& matchName, const std::string& label)
{
    const InstalledEffect* entry = FindInstalled(matchName);
    if (entry == nullptr)
        throw std::logic_error("no effect \"" + matchName + "\" is installed");
    const int effectId = PlaceEffect(*parts, layerId, *entry);
    if (!label.empty())
        parts->project.state.FindEffect(effectId)->label = label;
    return effectId;
}

// Looking.

ProjectState& Host::State() { return parts->project.state; }

EffectInstance& Host::Effect(const std::string& label) { return existing(parts->project.state, label); }

std::string Host::StackText(int layerId) const
{
    const Layer* layer = std::as_const(parts->project.state).FindLayer(layerId);
    std::string text;
    for (const EffectInstance& effect : layer != nullptr ? layer->effects : std::vector<EffectInstance>())
        text += (text.empty() ? "" : " ") + effect.label;
    return text;
}

std::string Host::NameOf(const std::string& label) { return parts->project.NameOf(Effect(label)); }

const std::vector<InstalledEffect>& Host::InstalledEffects() const { return parts->project.installed; }

const InstalledEffect* Host::FindInstalled(A_long key) const
{
    const auto found = std::find_if(parts->project.installed.begin(), parts->project.installed.end(),
                                    [key](const InstalledEffect& effect) { return effect.key == key; });
    return found == parts->project.installed.end() ? nullptr : &*found;
}

const InstalledEffect* Host::FindInstalled(const std::string& matchName) const
{
    const auto found =
        std::find_if(parts->project.installed.begin(), parts->project.installed.end(),
                     [&](const InstalledEffect& effect) { return effect.matchName == matchName; });
    return found == parts->project.installed.end() ? nullptr : &*found;
}

bool Host::IsOpen(const std::string& label) { return parts->project.twirledOpen[Effect(label).id]; }

const ViewEvents& Host::ViewLog() const { return parts->project.viewLog; }

void Host::ClearViewLog() { parts->project.viewLog.clear(); }

EffectRuntime& Host::RuntimeOf(int effectId) { return parts->project.runtimes[effectId]; }

void Host::SetIdentitySource(std::function<Identity()> source)
{
    parts->project.identitySource = std::move(source);
}

Identity Host::MakeIdentity() { return parts->project.identitySource(); }

// Handles.

void* Host::LayerHandle(int layerId)
{
    if (layerId == 0)
        return nullptr;
    Reference reference;
    reference.kind = ReferenceKind::layer;
    reference.owner = layerId;
    return parts->sensors.references.HandOut(reference);
}

void* Host::ItemHandle(int itemId)
{
    if (itemId == 0)
        return nullptr;
    Reference reference;
    reference.kind = ReferenceKind::item;
    reference.owner = itemId;
    return parts->sensors.references.HandOut(reference);
}

void* Host::EffectReference(const std::string& label)
{
    Reference reference;
    reference.kind = ReferenceKind::effect;
    reference.owner = Effect(label).id;
    reference.layer = parts->project.state.FindLayerOfEffect(reference.owner)->id;
    return parts->HandOut(reference);
}

void* Host::StreamReference(const std::string& label, A_long parameter)
{
    Reference reference;
    reference.kind = parameter == 0 ? ReferenceKind::groupStream : ReferenceKind::parameterStream;
    reference.owner = Effect(label).id;
    reference.layer = parts->project.state.FindLayerOfEffect(reference.owner)->id;
    reference.parameter = parameter;
    return parts->HandOut(reference);
}

void* Host::GroupStreamReference(const std::string& label) { return StreamReference(label, 0); }

// The user.

UserActions& Host::User() { return parts->user; }

bool Host::Undo() { return parts->user.Undo(); }

bool Host::Redo() { return parts->user.Redo(); }

std::vector<std::string> Host::UndoNames() const { return parts->history.UndoNames(); }

std::vector<std::string> Host::RedoNames() const { return parts->history.RedoNames(); }

int Host::OpenUndoGroups() const { return parts->history.OpenGroups(); }

int Host::UndoGroupsLeftOpen() const { return parts->history.groupsLeftOpen; }

// Sensors.

CallTrace& Host::Trace() { return parts->sensors.trace; }

std::vector<std::string> Host::CallTexts(SuiteTraffic traffic) const
{
    return parts->sensors.trace.Texts(traffic);
}

void Host::ClearTrace() { parts->sensors.trace.Clear(); }

FaultPlan& Host::Faults() { return parts->sensors.faults; }

IdlePlan& Host::Idles() { return parts->sensors.idles; }

FindingLog& Host::Findings() { return parts->sensors.findings; }

std::vector<Finding> Host::TakeFindings() { return parts->sensors.findings.Take(); }

std::vector<std::string> Host::TakeFindingIds()
{
    std::vector<std::string> ids;
    for (const Finding& finding : TakeFindings())
        ids.push_back(finding.id);
    std::sort(ids.begin(), ids.end());
    return ids;
}

ExpectedFinding& Host::Expect(const std::string& id, const std::string& function, const std::string& reason)
{
    return parts->sensors.findings.Expect(id, function, reason);
}

std::string Host::FindingsReport() const { return parts->sensors.findings.Report(); }

int Host::SuiteCount(const std::string& name, A_long version) const
{
    return parts->sensors.suites.Count(name, version);
}

void Host::CheckSuiteBalance()
{
    for (const SuiteCounts::Held& held : parts->sensors.suites.AllHeld())
        parts->sensors.findings.Add({finding::unbalancedSuite,
                                     "The suite is still held, so many times: " + held.Text() + ".", "",
                                     held.Text(), ""});
}

void Host::CheckMemoryBalance()
{
    for (const auto& [block, note] : parts->plugins.blocks.all)
        parts->sensors.findings.Add(
            {finding::leakedBlock, "Memory of the host was not given back.", note.call, note.function, ""});
    parts->plugins.blocks.FreeAll();
}

int Host::LiveReferences() const { return parts->sensors.references.CountLive(); }

int Host::LeakedReferences() const { return parts->sensors.leakedReferences; }
} // namespace standin
