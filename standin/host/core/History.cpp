#include "standin/host/core/History.h"

#include <algorithm>

namespace standin
{
namespace
{
/// The youngest effect of the same kind that was on the layer before this one; 0 for none.
int olderTwinOf(const Layer& layer, const EffectInstance& effect)
{
    int twin = 0;
    for (const EffectInstance& other : layer.effects)
        if (other.key == effect.key && other.id < effect.id)
            twin = std::max(twin, other.id);
    return twin;
}

void removeOlderTwin(ProjectState& state, int effectId)
{
    Layer* layer = state.FindLayerOfEffect(effectId);
    if (layer == nullptr)
        return;
    const int twin = olderTwinOf(*layer, *state.FindEffect(effectId));
    auto& effects = layer->effects;
    effects.erase(std::remove_if(effects.begin(), effects.end(),
                                 [twin](const EffectInstance& effect) { return effect.id == twin; }),
                  effects.end());
}

bool hasOlderTwin(ProjectState state, int effectId)
{
    const Layer* layer = state.FindLayerOfEffect(effectId);
    return layer != nullptr && olderTwinOf(*layer, *state.FindEffect(effectId)) != 0;
}
} // namespace

void History::StartGroup(const std::string& name, const ProjectState& now, std::string call)
{
    if (depth++ > 0)
        return;
    openName = name;
    openCall = std::move(call);
    openBefore = now;
    openIsAsked = false;
    applied.clear();
    reordered.clear();
}

bool History::IsOpenGroupEmpty(const ProjectState& now) const
{
    const bool mayChangeNothing = options.emptyGroup == EmptyGroup::asksForNothing && openIsAsked;
    return !mayChangeNothing && openBefore == now;
}

bool History::EndGroup(const ProjectState& now)
{
    if (depth == 0)
        return false;
    if (--depth == 0)
        push(openName, openBefore, now);
    return true;
}

void History::CloseAllGroups(const ProjectState& now)
{
    depth = std::min(depth, 1);
    (void)EndGroup(now);
}

void History::Change(const std::string& name, const ProjectState& before, const ProjectState& now)
{
    if (depth > 0 || before == now)
        return;
    push(name, before, now);
    applied.clear();
    reordered.clear();
}

void History::push(const std::string& name, const ProjectState& before, const ProjectState& now)
{
    if (before == now && options.unchangedGroup == UnchangedGroup::leavesNothing)
        return;
    steps.erase(steps.begin() + static_cast<std::ptrdiff_t>(done), steps.end());
    Step step{name, before, now, {}};
    std::set_intersection(applied.begin(), applied.end(), reordered.begin(), reordered.end(),
                          std::back_inserter(step.appliedAndReordered));
    steps.push_back(std::move(step));
    if (steps.size() > options.undoLevels)
        steps.pop_front();
    done = steps.size();
}

void History::ChangeAllCopies(const std::function<void(ProjectState&)>& change)
{
    for (Step& step : steps)
    {
        change(step.before);
        change(step.after);
    }
    change(openBefore);
}

ProjectState History::stateBefore(const Step& step) const
{
    if (options.twinUndo == TwinUndo::sound)
        return step.before;
    for (const int effectId : step.appliedAndReordered)
    {
        if (!hasOlderTwin(step.after, effectId))
            continue;
        ProjectState state = step.after;
        removeOlderTwin(state, effectId);
        return state;
    }
    return step.before;
}

std::optional<ProjectState> History::Undo()
{
    if (done == 0)
        return std::nullopt;
    return stateBefore(steps[--done]);
}

std::optional<ProjectState> History::Redo()
{
    if (done == steps.size())
        return std::nullopt;
    return steps[done++].after;
}

void History::Forget()
{
    steps.clear();
    done = 0;
    depth = 0;
    applied.clear();
    reordered.clear();
}

std::vector<std::string> History::UndoNames() const
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < done; ++i)
        names.push_back(steps[i].name);
    return names;
}

std::vector<std::string> History::RedoNames() const
{
    std::vector<std::string> names;
    for (std::size_t i = done; i < steps.size(); ++i)
        names.push_back(steps[i].name);
    return names;
}
} // namespace standin
