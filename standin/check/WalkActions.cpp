#include "standin/check/WalkActions.h"

#include "standin/check/WalkRows.h"
#include "standin/script/Parser.h"
#include "standin/user/eyes/DisplayNames.h"

#include <stdexcept>

namespace standin::check
{
namespace
{
using State = const WalkState&;
using Step = const WalkStep&;
using Lines = WalkAction::Lines;

constexpr const char* layerNames[] = {"Solid 1", "Solid 2"};

/// A name with the number that tells it from others of the same name: "lamp#2".
std::string reference(const ModelStack& among, int id)
{
    const std::string shown = user::DisplayNameOf(FindEffect(among, id)->name);
    int nth = 0;
    int all = 0;
    for (const ModelEffect& effect : among)
    {
        all += user::DisplayNameOf(effect.name) == shown ? 1 : 0;
        if (effect.id == id)
            nth = all;
    }
    return script::Quoted(nth == 1 ? shown : shown + "#" + std::to_string(nth));
}

std::string inHost(State state, Step step) { return reference(state.model.Stack(), step.id); }
std::string row(State state, Step step) { return reference(InRowOrder(state.model), step.id); }
std::string otherRow(State state, Step step) { return reference(InRowOrder(state.model), step.otherId); }

const ModelEffect* effectOf(State state, Step step) { return FindEffect(state.model.Stack(), step.id); }
bool hasEffect(State state, Step step) { return effectOf(state, step) != nullptr; }

bool isObject(const StackModel& model, int id)
{
    const ModelStack rows = InRowOrder(model);
    const ModelEffect* effect = FindEffect(rows, id);
    return effect != nullptr && effect->kind != ModelKind::outside;
}
bool hasObject(State state, Step step) { return isObject(state.model, step.id); }
bool hasTwoObjects(State state, Step step)
{
    return hasObject(state, step) && isObject(state.model, step.otherId) && step.id != step.otherId;
}

bool hasGroup(State state, Step step) { return GroupRow(state.model, step.text).has_value(); }
std::size_t groupOf(State state, Step step) { return GroupRow(state.model, step.text).value_or(0); }

bool hasRoomForARow(State state) { return RowCount(state.model) < mostRows; }
bool hasRoom(State state) { return state.model.Stack().size() < mostEffects && hasRoomForARow(state); }

ModelEffect fresh(Step step) { return {step.newId, ApplicableOf(step.text)->kind, step.text, 0, Power::on}; }

Power otherPower(State state, Step step)
{
    return effectOf(state, step)->power == Power::on ? Power::off : Power::on;
}

/// Beside the other's row, among the rows that it stands among.
StackModel::Target beside(State state, Step step, std::size_t below)
{
    StackModel::Target target = PlaceOf(state.model, step.otherId);
    target.index += below;
    return target;
}

constexpr auto host = WalkAction::Place::host;
constexpr auto panel = WalkAction::Place::panel;
constexpr auto title = WalkAction::Text::groupTitle;
constexpr auto newName = WalkAction::Text::newName;
constexpr auto applicable = WalkAction::Text::applicable;
} // namespace

const std::vector<WalkAction>& WalkActions()
{
    // A row stays a row.
    // clang-format off
    static const std::vector<WalkAction> rows{
        // In the host.
        {"apply", host, applicable, true, {1, 0, 1}, [](State s, Step) { return hasRoom(s); },
         [](State, Step a) -> Lines { return {"apply " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.Apply(fresh(a)); }},
        {"rename", host, newName, true, {1, 0, 1}, &hasEffect,
         [](State s, Step a) -> Lines { return {"rename " + inHost(s, a) + " to " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.Rename(a.id, a.text); }},
        {"move", host, title, true, {1, 0, 1},
         [](State s, Step a) { return hasEffect(s, a) && static_cast<std::size_t>(a.number) < s.model.Stack().size(); },
         [](State s, Step a) -> Lines { return {"move " + inHost(s, a) + " to place " + std::to_string(a.number + 1)}; },
         [](WalkState& s, Step a) { s.model.Move(a.id, a.number); }},
        {"delete", host, title, true, {1, 0, 1}, &hasEffect,
         [](State s, Step a) -> Lines { return {"delete " + inHost(s, a)}; },
         [](WalkState& s, Step a) { s.model.Delete(a.id); }},
        {"duplicate", host, title, true, {1, 0, 1}, [](State s, Step a) { return hasEffect(s, a) && hasRoom(s); },
         [](State s, Step a) -> Lines { return {"duplicate " + inHost(s, a)}; },
         [](WalkState& s, Step a) { s.model.Duplicate(a.id, a.newId); }},
        {"switch", host, title, true, {1, 0, 1}, &hasEffect,
         [](State s, Step a) -> Lines
         { return {(otherPower(s, a) == Power::on ? "turn on " : "turn off ") + inHost(s, a)}; },
         [](WalkState& s, Step a) { s.model.Switch(a.id, otherPower(s, a)); }},
        {"put into group", host, title, true, {1, 0, 1},
         [](State s, Step a)
         {
             return hasEffect(s, a) && effectOf(s, a)->kind != ModelKind::outside &&
                    a.number <= static_cast<int>(mostGroups) && hasRoomForARow(s);
         },
         [](State s, Step a) -> Lines { return {"put " + inHost(s, a) + " into group " + std::to_string(a.number)}; },
         [](WalkState& s, Step a) { s.model.PutIntoGroup(a.id, a.number); }},
        {"undo", host, title, true, {2, 1, 3}, [](State s, Step) { return !s.model.UndoNames().empty(); },
         [](State, Step) -> Lines { return {"undo"}; }, [](WalkState& s, Step) { s.model.Undo(); }},
        {"redo", host, title, true, {1, 1, 2}, [](State s, Step) { return !s.model.RedoNames().empty(); },
         [](State, Step) -> Lines { return {"redo"}; }, [](WalkState& s, Step) { s.model.Redo(); }},
        {"select layer", host, title, true, {1, 0, 1},
         [](State s, Step a) { return a.number < StackModel::layerCount && a.number != s.model.ActiveLayer(); },
         [](State, Step a) -> Lines { return {"select layer " + script::Quoted(layerNames[a.number])}; },
         [](WalkState& s, Step a) { s.model.SelectLayer(a.number); }},

        // What keeps changes from the panel. While the idle is held, several things fall into one interval.
        {"cover", host, title, false, {0, 0, 1}, [](State s, Step) { return !s.isCovered; },
         [](State, Step) -> Lines { return {"cover the panel"}; }, [](WalkState& s, Step) { s.isCovered = true; }},
        {"uncover", host, title, false, {0, 0, 2}, [](State s, Step) { return s.isCovered; },
         [](State, Step) -> Lines { return {"open the panel"}; }, [](WalkState& s, Step) { s.isCovered = false; }},
        {"hold", host, title, true, {0, 0, 3}, [](State s, Step) { return !s.isCovered && !s.isHeld; },
         [](State, Step) -> Lines { return {"hold idle"}; }, [](WalkState& s, Step) { s.isHeld = true; }},
        {"go on", host, title, true, {0, 0, 2}, [](State s, Step) { return s.isHeld; },
         [](State, Step) -> Lines { return {"go on"}; }, [](WalkState& s, Step) { s.isHeld = false; }},

        // In the panel. Of this only the click on a box can do without the host's idle.
        {"rename row", panel, newName, false, {0, 1, 1}, &hasObject,
         [](State s, Step a) -> Lines
         { return {"click row " + row(s, a), "press Return", "type " + script::Quoted(a.text), "press Return"}; },
         [](WalkState& s, Step a) { s.model.RenameRow(a.id, a.text); }},
        {"click box", panel, title, true, {0, 1, 2}, &hasObject,
         [](State s, Step a) -> Lines { return {"click box of " + row(s, a)}; },
         [](WalkState& s, Step a) { s.model.ClickBox(a.id); }},
        {"click group box", panel, title, true, {0, 1, 2},
         [](State s, Step a) { return hasGroup(s, a) && !s.model.Rows()[groupOf(s, a)].objects.empty(); },
         [](State, Step a) -> Lines { return {"click box of " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.ClickGroupBox(groupOf(s, a)); }},
        {"drag into group", panel, title, false, {0, 2, 2},
         [](State s, Step a)
         {
             return hasObject(s, a) && hasGroup(s, a) &&
                    PlaceOf(s.model, a.id).groupRow != static_cast<int>(groupOf(s, a));
         },
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " into " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a)
         {
             const std::size_t group = groupOf(s, a);
             s.model.MoveRow(a.id, {static_cast<int>(group), s.model.Rows()[group].objects.size()});
         }},
        {"drag above", panel, title, false, {0, 1, 1}, &hasTwoObjects,
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " above " + otherRow(s, a)}; },
         [](WalkState& s, Step a) { s.model.MoveRow(a.id, beside(s, a, 0)); }},
        {"drag below", panel, title, false, {0, 1, 1}, &hasTwoObjects,
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " below " + otherRow(s, a)}; },
         [](WalkState& s, Step a) { s.model.MoveRow(a.id, beside(s, a, 1)); }},
        {"drag to end", panel, title, false, {0, 1, 1},
         [](State s, Step a)
         {
             return hasObject(s, a) && (PlaceOf(s.model, a.id).groupRow >= 0 ||
                                        PlaceOf(s.model, a.id).index + 1 != s.model.Rows().size());
         },
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " to the end"}; },
         [](WalkState& s, Step a) { s.model.MoveRow(a.id, {-1, s.model.Rows().size()}); }},
        {"drag group above", panel, title, false, {0, 1, 1},
         [](State s, Step a)
         { return hasGroup(s, a) && isObject(s.model, a.otherId) && PlaceOf(s.model, a.otherId).groupRow < 0; },
         [](State s, Step a) -> Lines { return {"drag row " + script::Quoted(a.text) + " above " + otherRow(s, a)}; },
         [](WalkState& s, Step a) { s.model.MoveGroupRow(groupOf(s, a), PlaceOf(s.model, a.otherId).index); }},
        {"drag group to end", panel, title, false, {0, 1, 1}, &hasGroup,
         [](State, Step a) -> Lines { return {"drag row " + script::Quoted(a.text) + " to the end"}; },
         [](WalkState& s, Step a) { s.model.MoveGroupRow(groupOf(s, a), s.model.Rows().size()); }},
        {"delete row", panel, title, false, {0, 1, 1}, &hasObject,
         [](State s, Step a) -> Lines { return {"click row " + row(s, a), "press Delete"}; },
         [](WalkState& s, Step a) { s.model.DeleteRow(a.id); }},
        {"delete group", panel, title, false, {0, 1, 1}, &hasGroup,
         [](State, Step a) -> Lines { return {"click row " + script::Quoted(a.text), "press Delete"}; },
         [](WalkState& s, Step a) { s.model.DeleteGroupRow(groupOf(s, a)); }},
        {"add from menu", panel, applicable, false, {0, 1, 1},
         [](State s, Step a)
         { return hasRoom(s) && !s.model.Rows().empty() && ApplicableOf(a.text)->button != nullptr; },
         [](State, Step a) -> Lines
         {
             return {"choose " + script::Quoted(user::DisplayNameOf(a.text)) + " from " + script::Quoted(ApplicableOf(a.text)->button)};
         },
         [](WalkState& s, Step a) { s.model.AddFromMenu(fresh(a)); }},
        {"add group", panel, title, false, {0, 1, 1},
         [](State s, Step)
         { return !s.model.Rows().empty() && hasRoomForARow(s) && GroupTitles(s.model).size() < mostGroups; },
         [](State, Step) -> Lines { return {"click button \"Add Group\""}; },
         [](WalkState& s, Step) { s.model.AddEmptyGroup(); }},
    };
    // clang-format on
    return rows;
}

const WalkAction& WalkActionOf(const std::string& name)
{
    for (const WalkAction& action : WalkActions())
        if (action.name == name)
            return action;
    throw std::out_of_range("a walk has no action " + name);
}
} // namespace standin::check
