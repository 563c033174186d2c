#include "standin/core/UserActions.h"

#include <stdexcept>
#include <utility>

#include "standin/core/Host.h"
#include "standin/core/HostParts.h"
#include "standin/core/StackChanges.h"

namespace standin
{
int UserActions::Apply(int layerId, const std::string& matchName)
{
    const InstalledEffect* entry = host.FindInstalled(matchName);
    if (entry == nullptr)
        throw std::logic_error("no effect \"" + matchName + "\" is installed");
    return ApplyEffect(host.Parts(), layerId, entry->key);
}

void UserActions::Rename(const std::string& label, const std::string& name)
{
    RenameEffect(host.Parts(), host.Effect(label).id, name);
}

void UserActions::Reorder(const std::string& label, A_long index)
{
    const int effectId = host.Effect(label).id;
    const std::size_t count = host.State().FindLayerOfEffect(effectId)->effects.size();
    if (index < 0 || static_cast<std::size_t>(index) >= count)
        throw std::logic_error("the stack has no index " + std::to_string(index));
    ReorderEffect(host.Parts(), effectId, index);
}

void UserActions::Delete(const std::string& label) { DeleteEffect(host.Parts(), host.Effect(label).id); }

int UserActions::Duplicate(const std::string& label)
{
    return DuplicateEffect(host.Parts(), host.Effect(label).id);
}

void UserActions::SetActive(const std::string& label, Switch on)
{
    const EffectInstance& effect = host.Effect(label);
    SetEffectFlags(host.Parts(), effect.id,
                   on == Switch::on ? effect.flags | effectActive : effect.flags & ~effectActive);
}

void UserActions::SetHidden(const std::string& label, Switch on)
{
    SetStreamHidden(host.Parts(), host.Effect(label).id, 0, on, Undoable::yes);
}

void UserActions::SetGroup(const std::string& label, std::int16_t group)
{
    const EffectInstance& effect = host.Effect(label);
    host.Parts().project.BehaviourOf(effect).OnGroupChosen({host, effect.id}, group, Undoable::yes);
}

bool UserActions::Undo() { return UndoStep(host.Parts()); }

bool UserActions::Redo() { return RedoStep(host.Parts()); }

void UserActions::SelectItems(std::vector<int> itemIds)
{
    host.Parts().project.selection.items = std::move(itemIds);
}

void UserActions::SelectLayers(std::vector<int> layerIds)
{
    Selection& selection = host.Parts().project.selection;
    selection.layers = std::move(layerIds);
    if (selection.layers.size() == 1)
        selection.effectControls = selection.layers.front();
}

void UserActions::SelectEffect(const std::string& label)
{
    host.Parts().project.selection.effect = host.Effect(label).id;
}

void UserActions::SelectNoEffect() { host.Parts().project.selection.effect = 0; }

void UserActions::Activate(ActivePanel panel)
{
    Selection& selection = host.Parts().project.selection;
    if (panel == ActivePanel::ours && selection.panel != ActivePanel::ours)
        selection.panelBefore = selection.panel;
    selection.panel = panel;
}

void UserActions::ActivateLast()
{
    Selection& selection = host.Parts().project.selection;
    if (selection.panel == ActivePanel::ours)
        selection.panel = selection.panelBefore;
}

void UserActions::OpenComposition(int itemId) { host.Parts().project.selection.frontComp = itemId; }

void UserActions::OpenFootage(int itemId) { host.Parts().project.selection.frontFootage = itemId; }

void UserActions::OpenLayer(int layerId) { host.Parts().project.selection.layerTab = layerId; }

void UserActions::ShowEffectControls(int layerId) { host.Parts().project.selection.effectControls = layerId; }
} // namespace standin
