#pragma once
// The changes of a layer's effects, as the suites and the user make them: each is an undo step of
// its own, or part of the open group, and makes stale what it makes stale.

#include <string>

#include "standin/host/core/HostParts.h"

namespace standin
{
/// Runs `change` on the project as one step with this name.
template <class Change>
void ChangeProject(HostParts& parts, const char* stepName, Change change)
{
    if (parts.history.OpenGroups() > 0)
    {
        change(parts.project.state);
        return;
    }
    const ProjectState before = parts.project.state;
    change(parts.project.state);
    parts.history.Change(stepName, before, parts.project.state);
}

/// The parameters of an effect as it is installed.
std::vector<Parameter> FreshParameters(const InstalledEffect& entry);

/// Puts an effect at the end of the stack without an undo step, as setting up a project does.
int PlaceEffect(HostParts& parts, int layerId, const InstalledEffect& entry);

/// Gives the new instance's id. The layer and the key must exist.
int ApplyEffect(HostParts& parts, int layerId, A_long key);
int DuplicateEffect(HostParts& parts, int effectId);
void DeleteEffect(HostParts& parts, int effectId);
/// `index` lies in the stack with the effect in it.
void ReorderEffect(HostParts& parts, int effectId, A_long index);
void RenameEffect(HostParts& parts, int effectId, const std::string& name);
void SetEffectFlags(HostParts& parts, int effectId, A_long flags);

enum class Undoable
{
    no,
    yes
};

void SetEffectGroup(HostParts& parts, int effectId, std::int16_t group, Undoable undoable);
/// All of it at once, as an effect that comes in a module hands it over.
void SetFamilyData(HostParts& parts, int effectId, const FamilyData& data, Undoable undoable);
void SetEffectIdentity(HostParts& parts, int effectId, const Identity& identity);

/// `parameter` 0 is the effect's own stream group. Un-hiding opens and reveals.
void SetStreamHidden(HostParts& parts, int effectId, A_long parameter, Switch hidden, Undoable undoable);

/// Undo and redo. False if there is nothing to do. An open group is closed first and reported.
bool UndoStep(HostParts& parts);
bool RedoStep(HostParts& parts);

/// Reports what is open, unless a fault kept it open, and closes it as the options have it.
void EndUndoGroupsOfHook(HostParts& parts);
} // namespace standin
