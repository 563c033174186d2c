#include "standin/host/core/UserActions.h"

#include <stdexcept>
#include <utility>

#include "standin/host/core/Host.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/core/StackChanges.h"

namespace standin
{
int UserActions::Apply(int layerId, const std::string& matchName)
{
    const InstalledEffect* entry = host.FindInstalled(matchName);
    if (entry == nullptr)
        throw std::logic_error("no effect \"" + matchName + "\" is installed");
    return ApplyEffect(PartsOf(host), layerId, entry->key);
}

void UserActions::Rename(const std::string& label, const std::string& name)
{
    RenameEffect(PartsOf(host), host.Effect(label).id, name);
}

void UserActions::Reorder(const std::string& label, A_long index)
{
    const int effectId = host.Effect(label).id;
    const std::size_t count = host.State().FindLayerOfEffect(effectId)->effects.size();
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        throw std::logic_error("the stack has no index " + std::to_string(index));
    ReorderEffect(PartsOf(host), effectId, index);
}

void UserActions::Delete(const std::string& label) { DeleteEffect(PartsOf(host), host.Effect(label).id); }

int UserActions::Duplicate(const std::string& label)
{
    return DuplicateEffect(PartsOf(host), host.Effect(label).id);
}

void UserActions::SetActive(const std::string& label, Switch on)
{
    const EffectInstance& effect = host.Effect(label);
    SetEffectFlags(PartsOf(host), effect.id,
                   on == Switch::on ? effect.flags | effectActive : effect.flags & ~effectActive);
}

void UserActions::SetHidden(const std::string& label, Switch on)
{
    SetStreamHidden(PartsOf(host), host.Effect(label).id, 0, on, Undoable::yes);
}

void UserActions::SetGroup(const std::string& label, std::int16_t group)
{
    const EffectInstance& effect = host.Effect(label);
    PartsOf(host).project.BehaviourOf(effect).OnGroupChosen({host, effect.id}, group, Undoable::yes);
}

bool UserActions::Undo() { return UndoStep(PartsOf(host)); }

bool UserActions::Redo() { return RedoStep(PartsOf(host)); }

void UserActions::SelectItems(std::vector<int> itemIds)
{
    PartsOf(host).project.selection.items = std::move(itemIds);
}

void UserActions::SelectLayers(std::vector<int> layerIds)
{
    Selection& selection = PartsOf(host).project.selection;
    selection.layers = std::move(layerIds);
    if (selection.layers.size() == 1)
        selection.effectControls = selection.layers.front();
}

void UserActions::SelectEffect(const std::string& label)
{
    PartsOf(host).project.selection.effect = host.Effect(label).id;
}

void UserActions::SelectEffect(int effectId) { PartsOf(host).project.selection.effect = effectId; }

void UserActions::ToggleTwirl(int effectId)
{
    bool& isOpen = PartsOf(host).project.twirledOpen[effectId];
    isOpen = !isOpen;
}

int UserActions::NewComposition(const std::string& name)
{
    HostParts& parts = PartsOf(host);
    const ProjectState before = parts.project.state;
    const int comp = host.AddComposition(name);
    parts.history.Change("New Composition", before, parts.project.state);
    return comp;
}

int UserActions::NewLayer(int compId, const std::string& name)
{
    HostParts& parts = PartsOf(host);
    const ProjectState before = parts.project.state;
    const int layer = host.AddLayer(compId, name);
    parts.history.Change("New Layer", before, parts.project.state);
    return layer;
}

void UserActions::SelectNoEffect() { PartsOf(host).project.selection.effect = 0; }

void UserActions::Activate(ActivePanel panel)
{
    Selection& selection = PartsOf(host).project.selection;
    if (panel == ActivePanel::ours && selection.panel != ActivePanel::ours)
        selection.panelBefore = selection.panel;
    selection.panel = panel;
}

void UserActions::ActivateLast()
{
    Selection& selection = PartsOf(host).project.selection;
    if (selection.panel == ActivePanel::ours)
        selection.panel = selection.panelBefore;
}

void UserActions::OpenComposition(int itemId) { PartsOf(host).project.selection.frontComp = itemId; }

void UserActions::OpenFootage(int itemId) { PartsOf(host).project.selection.frontFootage = itemId; }

void UserActions::OpenLayer(int layerId) { PartsOf(host).project.selection.layerTab = layerId; }

void UserActions::ShowEffectControls(int layerId)
{
    PartsOf(host).project.selection.effectControls = layerId;
}
} // namespace standin
