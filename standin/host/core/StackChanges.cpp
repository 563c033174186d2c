#include "standin/host/core/StackChanges.h"

#include <algorithm>
#include <stdexcept>

#include "standin/host/sensors/FindingIds.h"

namespace standin
{
namespace
{
std::ptrdiff_t positionOf(const Layer& layer, int effectId)
{
    const auto found =
        std::find_if(layer.effects.begin(), layer.effects.end(),
                     [effectId](const EffectInstance& effect) { return effect.id == effectId; });
    return found - layer.effects.begin();
}

std::ptrdiff_t landingPlace(const HostParts& parts, const Layer& layer)
{
    const auto end = static_cast<std::ptrdiff_t>(layer.effects.size());
    switch (parts.options.applyPlace)
    {
    case ApplyPlace::start:
        return 0;
    case ApplyPlace::afterSelected:
        return std::min(end, positionOf(layer, parts.project.selection.effect) + 1);
    case ApplyPlace::end:
        break;
    }
    return end;
}

EffectInstance makeInstance(HostParts& parts, const InstalledEffect& entry)
{
    EffectInstance effect;
    effect.id = parts.project.nextEffect++;
    effect.label = "e" + std::to_string(effect.id);
    effect.key = entry.key;
    effect.parameters = FreshParameters(entry);
    return effect;
}

/// A change that stays out of undo: it is made in every copy as well.
template <class Change>
void changeEverywhere(HostParts& parts, int effectId, Change change)
{
    const auto changeIn = [&](ProjectState& project)
    {
        if (EffectInstance* effect = project.FindEffect(effectId))
            change(*effect);
    };
    changeIn(parts.project.state);
    parts.history.ChangeAllCopies(changeIn);
}

template <class Change>
void changeFamily(HostParts& parts, int effectId, Undoable undoable, Change change)
{
    if (undoable == Undoable::no)
        changeEverywhere(parts, effectId, [&](EffectInstance& effect) { change(effect.family); });
    else
        ChangeProject(parts, "Change Group",
                      [&](ProjectState& project) { change(project.FindEffect(effectId)->family); });
}

bool& hiddenFlag(EffectInstance& effect, A_long parameter)
{
    return parameter == 0 ? effect.groupHidden
                          : effect.parameters.at(static_cast<std::size_t>(parameter)).hidden;
}

void logTwirl(HostParts& parts, int effectId, bool open)
{
    if (parts.project.twirledOpen[effectId] == open)
        return;
    parts.project.twirledOpen[effectId] = open;
    parts.project.viewLog.push_back((open ? "open " : "close ") + parts.project.LabelOf(effectId));
}

/// Un-hiding a parameter opens its effect and scrolls to it; un-hiding an effect's own group shows
/// the effect folded.
void reveal(HostParts& parts, int effectId, A_long parameter)
{
    const UnhidingTwirl twirl = parts.options.unhidingTwirl;
    const bool opens =
        twirl == UnhidingTwirl::alwaysOpens || (twirl == UnhidingTwirl::opensByParameter && parameter != 0);
    logTwirl(parts, effectId, opens);
    const std::string suffix = parameter == 0 ? "" : "." + std::to_string(parameter);
    parts.project.viewLog.push_back("reveal " + parts.project.LabelOf(effectId) + suffix);
}

void restore(HostParts& parts, ProjectState state)
{
    parts.project.state = std::move(state);
    parts.sensors.references.EverythingChanged();
}

void reportOpenGroup(HostParts& parts, const std::string& when)
{
    ++parts.history.groupsLeftOpen;
    Finding finding;
    finding.id = finding::undoGroupLeftOpen;
    finding.sentence = "The undo group \"" + parts.history.OpenName() + "\" is still open when " + when + ".";
    finding.call = parts.history.OpenCall();
    finding.function = "AEGP_StartUndoGroup";
    parts.sensors.findings.Add(std::move(finding));
}

void closeUndoGroups(HostParts& parts, const std::string& when)
{
    if (parts.history.OpenGroups() == 0)
        return;
    if (parts.history.OpenGroups() > parts.history.excusedLevels && !parts.history.isOpenGroupReported)
        reportOpenGroup(parts, when);
    parts.history.isOpenGroupReported = false;
    parts.history.excusedLevels = 0;
    parts.history.CloseAllGroups(parts.project.state);
}

/// Before an undo. The user is told of a group that has outlived its hook.
void fixUndoGroups(HostParts& parts, const std::string& when)
{
    if (parts.history.OpenGroups() > 0 && parts.sensors.hookDepth == 0)
        parts.plugins.Alarm("undo group mismatch, will attempt to fix");
    closeUndoGroups(parts, when);
}
} // namespace

std::vector<Parameter> FreshParameters(const InstalledEffect& entry)
{
    std::vector<Parameter> parameters;
    parameters.reserve(static_cast<std::size_t>(entry.parameterCount));
    for (int i = 0; i < entry.parameterCount; ++i)
        parameters.push_back({i == 0 ? "Input" : "Parameter " + std::to_string(i), false});
    return parameters;
}

int PlaceEffect(HostParts& parts, int layerId, const InstalledEffect& entry)
{
    Layer* layer = parts.project.state.FindLayer(layerId);
    if (layer == nullptr)
        throw std::logic_error("there is no layer " + std::to_string(layerId));
    const EffectInstance effect = makeInstance(parts, entry);
    layer->effects.push_back(effect);
    parts.project.BehaviourOf(effect).OnApplied({parts.host, effect.id});
    return effect.id;
}

int ApplyEffect(HostParts& parts, int layerId, A_long key)
{
    const InstalledEffect* entry = parts.host.FindInstalled(key);
    if (entry == nullptr || parts.project.state.FindLayer(layerId) == nullptr)
        throw std::logic_error("applying needs an installed effect and a layer");
    const EffectInstance effect = makeInstance(parts, *entry);
    ChangeProject(parts, "Apply Effect",
                  [&](ProjectState& project)
                  {
                      Layer& layer = *project.FindLayer(layerId);
                      layer.effects.insert(layer.effects.begin() + landingPlace(parts, layer), effect);
                      parts.project.BehaviourOf(effect).OnApplied({parts.host, effect.id});
                  });
    parts.history.NoteApplied(effect.id);
    parts.sensors.references.LayerChanged(layerId);
    parts.project.selection.effectControls = layerId;
    return effect.id;
}

int DuplicateEffect(HostParts& parts, int effectId)
{
    const int layerId = parts.project.state.FindLayerOfEffect(effectId)->id;
    EffectInstance copy = *parts.project.state.FindEffect(effectId);
    copy.id = parts.project.nextEffect++;
    copy.label = "e" + std::to_string(copy.id);
    ChangeProject(parts, "Duplicate Effect",
                  [&](ProjectState& project)
                  {
                      Layer& layer = *project.FindLayer(layerId);
                      layer.effects.insert(layer.effects.begin() + positionOf(layer, effectId) + 1, copy);
                      if (parts.options.duplicateIdentity == DuplicateIdentity::isFresh)
                          parts.project.BehaviourOf(copy).OnApplied({parts.host, copy.id});
                  });
    parts.sensors.references.LayerChanged(layerId);
    return copy.id;
}

void DeleteEffect(HostParts& parts, int effectId)
{
    const int layerId = parts.project.state.FindLayerOfEffect(effectId)->id;
    (void)parts.project.LabelOf(effectId);
    ChangeProject(parts, "Delete Effect",
                  [&](ProjectState& project)
                  {
                      Layer& layer = *project.FindLayer(layerId);
                      layer.effects.erase(layer.effects.begin() + positionOf(layer, effectId));
                  });
    parts.sensors.references.LayerChanged(layerId);
}

void ReorderEffect(HostParts& parts, int effectId, A_long index)
{
    const int layerId = parts.project.state.FindLayerOfEffect(effectId)->id;
    ChangeProject(parts, "Reorder Effect",
                  [&](ProjectState& project)
                  {
                      auto& effects = project.FindLayer(layerId)->effects;
                      const auto from = effects.begin() + positionOf(*project.FindLayer(layerId), effectId);
                      const auto to = effects.begin() + index;
                      if (from < to)
                          std::rotate(from, from + 1, to + 1);
                      else
                          std::rotate(to, from, from + 1);
                  });
    parts.history.NoteReordered(effectId);
    parts.sensors.references.LayerChanged(layerId);
}

void RenameEffect(HostParts& parts, int effectId, const std::string& name)
{
    ChangeProject(parts, "Rename Effect",
                  [&](ProjectState& project)
                  {
                      EffectInstance& effect = *project.FindEffect(effectId);
                      if (name.empty() && parts.options.emptyName == EmptyName::resetsToDefault)
                          effect.customName.reset();
                      else
                          effect.customName = name;
                  });
}

void SetEffectFlags(HostParts& parts, int effectId, A_long flags)
{
    const bool on = (flags & effectActive) != 0;
    ChangeProject(parts, on ? "Switch Effect On" : "Switch Effect Off",
                  [&](ProjectState& project) { project.FindEffect(effectId)->flags = flags; });
}

void SetEffectGroup(HostParts& parts, int effectId, std::int16_t group, Undoable undoable)
{
    changeFamily(parts, effectId, undoable, [group](FamilyData& family) { family.group = group; });
}

void SetFamilyData(HostParts& parts, int effectId, const FamilyData& data, Undoable undoable)
{
    changeFamily(parts, effectId, undoable, [&](FamilyData& family) { family = data; });
}

void SetEffectIdentity(HostParts& parts, int effectId, const Identity& identity)
{
    changeEverywhere(parts, effectId, [&](EffectInstance& effect) { effect.family.uuid = identity; });
}

void SetStreamHidden(HostParts& parts, int effectId, A_long parameter, Switch hidden, Undoable undoable)
{
    const bool hide = hidden == Switch::on;
    const bool wasHidden = hiddenFlag(*parts.project.state.FindEffect(effectId), parameter);
    if (undoable == Undoable::no)
        changeEverywhere(parts, effectId,
                         [=](EffectInstance& effect) { hiddenFlag(effect, parameter) = hide; });
    else
        ChangeProject(parts, hide ? "Hide Stream" : "Show Stream",
                      [&](ProjectState& project)
                      { hiddenFlag(*project.FindEffect(effectId), parameter) = hide; });
    const bool reveals = parts.project.state.FindEffect(effectId)->revealing == Revealing::isWanted;
    if (wasHidden && !hide && reveals)
        reveal(parts, effectId, parameter);
}

bool UndoStep(HostParts& parts)
{
    fixUndoGroups(parts, "the user undoes");
    std::optional<ProjectState> state = parts.history.Undo();
    if (state)
        restore(parts, std::move(*state));
    return state.has_value();
}

bool RedoStep(HostParts& parts)
{
    fixUndoGroups(parts, "the user redoes");
    std::optional<ProjectState> state = parts.history.Redo();
    if (state)
        restore(parts, std::move(*state));
    return state.has_value();
}

void EndUndoGroupsOfHook(HostParts& parts)
{
    if (parts.options.groupAtReturn == GroupAtReturn::isClosed)
        return closeUndoGroups(parts, "the hook returns");
    if (parts.history.OpenGroups() > parts.history.excusedLevels && !parts.history.isOpenGroupReported)
    {
        reportOpenGroup(parts, "the hook returns");
        parts.history.isOpenGroupReported = true;
    }
}
} // namespace standin
