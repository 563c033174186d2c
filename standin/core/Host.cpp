#include "standin/core/Host.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "standin/core/HostParts.h"
#include "standin/core/StackChanges.h"
#include "standin/sensors/FindingIds.h"
#include "standin/suites/SuiteDescription.h"

namespace standin
{
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
        currentHost->parts->Report(finding::nestedHost, "A second host was made while this one lives.");
        throw std::logic_error("a stand-in host lives already");
    }
    parts = std::make_unique<HostParts>(*this, options);
    parts->nextPlugin = PluginId() + 1;
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
    parts->project.items.push_back({parts->nextItem, ItemKind::composition, name});
    if (parts->selection.frontComp == 0)
        parts->selection.frontComp = parts->nextItem;
    return parts->nextItem++;
}

int Host::AddFootage(const std::string& name)
{
    parts->project.items.push_back({parts->nextItem, ItemKind::footage, name});
    return parts->nextItem++;
}

int Host::AddFolder(const std::string& name)
{
    parts->project.items.push_back({parts->nextItem, ItemKind::folder, name});
    return parts->nextItem++;
}

int Host::AddLayer(int compId, const std::string& name)
{
    Layer layer;
    layer.id = parts->nextLayer++;
    layer.compId = compId;
    layer.name = name;
    parts->project.layers.push_back(layer);
    return layer.id;
}

A_long Host::Install(InstalledEffect effect)
{
    if (effect.key == 0)
        effect.key = parts->nextKey;
    parts->nextKey = std::max(parts->nextKey, effect.key) + 3;
    parts->installed.push_back(std::move(effect));
    return parts->installed.back().key;
}

int Host::AddEffect(int layerId, const std::string& matchName, const std::string& label)
{
    const InstalledEffect* entry = FindInstalled(matchName);
    if (entry == nullptr)
        throw std::logic_error("no effect \"" + matchName + "\" is installed");
    const int effectId = PlaceEffect(*parts, layerId, *entry);
    if (!label.empty())
        parts->project.FindEffect(effectId)->label = label;
    return effectId;
}

// Looking.

ProjectState& Host::State() { return parts->project; }

EffectInstance& Host::Effect(const std::string& label) { return existing(parts->project, label); }

std::string Host::StackText(int layerId) const
{
    const Layer* layer = std::as_const(parts->project).FindLayer(layerId);
    std::string text;
    for (const EffectInstance& effect : layer != nullptr ? layer->effects : std::vector<EffectInstance>())
        text += (text.empty() ? "" : " ") + effect.label;
    return text;
}

std::string Host::NameOf(const std::string& label) { return parts->NameOf(Effect(label)); }

const std::vector<InstalledEffect>& Host::InstalledEffects() const { return parts->installed; }

const InstalledEffect* Host::FindInstalled(A_long key) const
{
    const auto found = std::find_if(parts->installed.begin(), parts->installed.end(),
                                    [key](const InstalledEffect& effect) { return effect.key == key; });
    return found == parts->installed.end() ? nullptr : &*found;
}

const InstalledEffect* Host::FindInstalled(const std::string& matchName) const
{
    const auto found =
        std::find_if(parts->installed.begin(), parts->installed.end(),
                     [&](const InstalledEffect& effect) { return effect.matchName == matchName; });
    return found == parts->installed.end() ? nullptr : &*found;
}

bool Host::IsOpen(const std::string& label) { return parts->twirledOpen[Effect(label).id]; }

const ViewEvents& Host::ViewLog() const { return parts->viewLog; }

void Host::ClearViewLog() { parts->viewLog.clear(); }

EffectRuntime& Host::RuntimeOf(int effectId) { return parts->runtimes[effectId]; }

void Host::SetIdentitySource(std::function<Identity()> source) { parts->identitySource = std::move(source); }

Identity Host::MakeIdentity() { return parts->identitySource(); }

// Handles.

void* Host::LayerHandle(int layerId)
{
    if (layerId == 0)
        return nullptr;
    Reference reference;
    reference.kind = ReferenceKind::layer;
    reference.owner = layerId;
    return parts->references.HandOut(reference);
}

void* Host::ItemHandle(int itemId)
{
    if (itemId == 0)
        return nullptr;
    Reference reference;
    reference.kind = ReferenceKind::item;
    reference.owner = itemId;
    return parts->references.HandOut(reference);
}

void* Host::EffectReference(const std::string& label)
{
    Reference reference;
    reference.kind = ReferenceKind::effect;
    reference.owner = Effect(label).id;
    reference.layer = parts->project.FindLayerOfEffect(reference.owner)->id;
    return parts->HandOut(reference);
}

void* Host::StreamReference(const std::string& label, A_long parameter)
{
    Reference reference;
    reference.kind = parameter == 0 ? ReferenceKind::groupStream : ReferenceKind::parameterStream;
    reference.owner = Effect(label).id;
    reference.layer = parts->project.FindLayerOfEffect(reference.owner)->id;
    reference.parameter = parameter;
    return parts->HandOut(reference);
}

void* Host::GroupStreamReference(const std::string& label) { return StreamReference(label, 0); }

// The user.

UserActions& Host::User() { return parts->user; }

bool Host::Undo() { return parts->user.Undo(); }

bool Host::Redo() { return parts->user.Redo(); }

std::vector<std::string> Host::UndoNames() const { return parts->undo.UndoNames(); }

std::vector<std::string> Host::RedoNames() const { return parts->undo.RedoNames(); }

int Host::OpenUndoGroups() const { return parts->undo.OpenGroups(); }

int Host::UndoGroupsLeftOpen() const { return parts->undoGroupsLeftOpen; }

// Sensors.

CallTrace& Host::Trace() { return parts->trace; }

std::vector<std::string> Host::CallTexts(SuiteTraffic traffic) const { return parts->trace.Texts(traffic); }

void Host::ClearTrace() { parts->trace.Clear(); }

FaultPlan& Host::Faults() { return parts->faults; }

IdlePlan& Host::Idles() { return parts->idles; }

FindingLog& Host::Findings() { return parts->findings; }

std::vector<Finding> Host::TakeFindings() { return parts->findings.Take(); }

void Host::Expect(const std::string& id, const std::string& function, const std::string& reason)
{
    parts->findings.Expect(id, function, reason);
}

std::string Host::FindingsReport() const { return parts->findings.Report(); }

int Host::SuiteCount(const std::string& name, A_long version) const
{
    return parts->suiteCounts.Count(name, version);
}

void Host::CheckSuiteBalance()
{
    for (const SuiteCounts::Held& held : parts->suiteCounts.AllHeld())
        parts->Report(finding::unbalancedSuite, "\"" + held.name + "\" version " +
                                                    std::to_string(held.version) + " is still held " +
                                                    std::to_string(held.count) + " times.");
}

void Host::CheckMemoryBalance()
{
    for (const auto& [block, note] : parts->blocks.all)
        parts->findings.Add(
            {finding::leakedBlock, "Memory of the host was not given back.", note.call, note.function, ""});
    parts->blocks.FreeAll();
}

int Host::LiveReferences() const { return parts->references.CountLive(); }

int Host::LeakedReferences() const { return parts->leakedReferences; }
} // namespace standin
