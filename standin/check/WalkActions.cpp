#include "standin/check/WalkActions.h"

#include "standin/check/WalkRows.h"
#include "standin/script/Parser.h"
#include "standin/user/eyes/DisplayNames.h"

#include <algorithm>
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
bool isOutside(const ModelEffect& effect) { return effect.kind == ModelKind::outside; }

bool isEffectShown(State state, int effect) { return effect != 0 && state.model.IsShown(effect); }
bool hasRow(State state, Step step) { return isEffectShown(state, step.id); }
bool hasObject(State state, Step step)
{
    return hasRow(state, step) && state.model.FindRow(step.id)->IsObject();
}
bool hasRoot(State state, Step) { return state.model.HasRoot(); }
bool isShown(State state) { return state.model.Tab() == TabPlace::inFront; }
bool isHeadless(State state, Step) { return state.isHeadless; }
bool isAnythingSelected(State state)
{
    const std::vector<const ModelRow*> all = state.model.ShownRows();
    return std::any_of(all.begin(), all.end(), [](const ModelRow* row) { return row->isSelected; });
}

bool hasGroup(State state, Step step) { return GroupRow(state.model, step.text).has_value(); }
int groupOf(State state, Step step) { return *GroupRow(state.model, step.text); }

bool hasRoomForARow(State state) { return RowCount(state.model) < mostRows; }
bool hasRoom(State state)
{
    return state.model.Stack().size() + state.model.AddsWaiting() < mostEffects && hasRoomForARow(state);
}

/// Whether a drag that starts on this row may end there. What is taken along is not asked about: so rigid and
/// outside effects get into groups, and groups into each other.
bool mayDrop(State state, int dragged, int parent)
{
    const ModelRow& row = *state.model.FindRow(dragged);
    return row.IsObject() ? parent == 0 || !row.effect.isRigid : row.IsGroup() && parent == 0;
}

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

bool canDragBeside(State state, Step step)
{
    const bool isThere = isEffectShown(state, step.otherId) &&
                         (state.isHeadless || state.model.FindRow(step.otherId)->IsObject());
    return isThere && hasObject(state, step) && step.id != step.otherId &&
           mayDrop(state, step.id, PlaceOf(state.model, step.otherId).parent);
}

/// Behind what is below it.
StackModel::Target into(State state, int parent)
{
    return {parent, state.model.FindRow(parent)->rows.size()};
}

Selecting selectingOf(Step step)
{
    constexpr Selecting kinds[] = {Selecting::alone, Selecting::toggled, Selecting::range};
    return kinds[step.number % 3];
}

std::string withKey(Step step)
{
    constexpr const char* keys[] = {"", " with Control", " with Shift"};
    return keys[step.number % 3];
}

constexpr auto host = WalkAction::Place::host;
constexpr auto panel = WalkAction::Place::panel;
constexpr auto title = WalkAction::Text::groupTitle;
constexpr auto newName = WalkAction::Text::newName;
constexpr auto oddName = WalkAction::Text::oddName;
constexpr auto applicable = WalkAction::Text::applicable;
/// Around the passes there are calls in which an idle is a pass like any other: it may do what waits.
constexpr const char* noIdlesInside = "idle inside no call";
constexpr const char* panelName = "Vortan Object Panel";
} // namespace

const std::vector<WalkAction>& WalkActions()
{
    // A row stays a row.
    // clang-format off
    static const std::vector<WalkAction> rows{
        // In the host.
        {"apply", host, applicable, true, {1, 0, 1, 1}, [](State s, Step) { return s.model.ActiveLayer() >= 0 && hasRoom(s); },
         [](State, Step a) -> Lines { return {"apply " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.Apply(fresh(a)); }},
        {"rename", host, newName, true, {1, 0, 1, 1}, &hasEffect,
         [](State s, Step a) -> Lines { return {"rename " + inHost(s, a) + " to " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.Rename(a.id, a.text); }},
        {"move", host, title, true, {1, 0, 1, 1},
         [](State s, Step a) { return hasEffect(s, a) && static_cast<std::size_t>(a.number) < s.model.Stack().size(); },
         [](State s, Step a) -> Lines { return {"move " + inHost(s, a) + " to place " + std::to_string(a.number + 1)}; },
         [](WalkState& s, Step a) { s.model.Move(a.id, a.number); }},
        {"delete", host, title, true, {1, 0, 1, 1}, &hasEffect,
         [](State s, Step a) -> Lines { return {"delete " + inHost(s, a)}; },
         [](WalkState& s, Step a) { s.model.Delete(a.id); }},
        {"duplicate", host, title, true, {1, 0, 1, 1}, [](State s, Step a) { return hasEffect(s, a) && hasRoom(s); },
         [](State s, Step a) -> Lines { return {"duplicate " + inHost(s, a)}; },
         [](WalkState& s, Step a) { s.model.Duplicate(a.id, a.newId); }},
        {"switch", host, title, true, {1, 0, 1, 1}, &hasEffect,
         [](State s, Step a) -> Lines
         { return {(otherPower(s, a) == Power::on ? "turn on " : "turn off ") + inHost(s, a)}; },
         [](WalkState& s, Step a) { s.model.Switch(a.id, otherPower(s, a)); }},
        {"put into group", host, title, true, {1, 0, 1, 1},
         [](State s, Step a)
         {
             return hasEffect(s, a) && !isOutside(*effectOf(s, a)) && !effectOf(s, a)->isRigid &&
                    a.number <= static_cast<int>(mostGroups) && hasRoomForARow(s);
         },
         [](State s, Step a) -> Lines { return {"put " + inHost(s, a) + " into group " + std::to_string(a.number)}; },
         [](WalkState& s, Step a) { s.model.PutIntoGroup(a.id, a.number); }},
        {"undo", host, title, true, {2, 1, 3, 3}, [](State s, Step) { return !s.model.UndoNames().empty(); },
         [](State, Step) -> Lines { return {"undo"}; }, [](WalkState& s, Step) { s.model.Undo(); }},
        {"redo", host, title, true, {1, 1, 2, 2}, [](State s, Step) { return !s.model.RedoNames().empty(); },
         [](State, Step) -> Lines { return {"redo"}; }, [](WalkState& s, Step) { s.model.Redo(); }},
        {"select layer", host, title, true, {1, 0, 1, 1},
         [](State s, Step a) { return a.number < StackModel::layerCount && a.number != s.model.ActiveLayer(); },
         [](State, Step a) -> Lines { return {"select layer " + script::Quoted(layerNames[a.number])}; },
         [](WalkState& s, Step a) { s.model.SelectLayer(a.number); }},

        // What keeps changes from the panel. While the idle is held, several things fall into one interval.
        {"cover", host, title, false, {0, 0, 1, 1}, [](State s, Step) { return s.model.Tab() == TabPlace::inFront; },
         [](State, Step) -> Lines { return {"cover the panel"}; },
         [](WalkState& s, Step) { s.model.PutTab(TabPlace::covered); }},
        {"uncover", host, title, false, {0, 0, 2, 2}, [](State s, Step) { return s.model.Tab() != TabPlace::inFront; },
         [](State, Step) -> Lines { return {"open the panel"}; },
         [](WalkState& s, Step) { s.model.PutTab(TabPlace::inFront); }},
        {"hold", host, title, true, {0, 0, 3, 3}, [](State s, Step) { return s.model.Tab() == TabPlace::inFront && !s.isHeld; },
         [](State, Step) -> Lines { return {"hold idle"}; }, [](WalkState& s, Step) { s.isHeld = true; }},
        {"go on", host, title, true, {0, 0, 2, 2}, [](State s, Step) { return s.isHeld; },
         [](State, Step) -> Lines { return {"go on"}; }, [](WalkState& s, Step) { s.isHeld = false; }},

        // In the panel. Of this only the click on a box can do without the host's idle.
        {"rename row", panel, newName, false, {0, 1, 1, 1}, &hasObject,
         [](State s, Step a) -> Lines
         { return {"click row " + row(s, a), "press Return", "type " + script::Quoted(a.text), "press Return"}; },
         [](WalkState& s, Step a) { s.model.RenameRow(a.id, a.text); }},
        {"click box", panel, title, true, {0, 1, 2, 2}, &hasObject,
         [](State s, Step a) -> Lines { return {"click box of " + row(s, a)}; },
         [](WalkState& s, Step a) { s.model.ClickBox(a.id); }},
        {"click group box", panel, title, true, {0, 1, 2, 2},
         [](State s, Step a) { return hasGroup(s, a) && !s.model.FindRow(groupOf(s, a))->rows.empty(); },
         [](State, Step a) -> Lines { return {"click box of " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.ClickBox(groupOf(s, a)); }},
        {"drag into group", panel, title, false, {0, 2, 2, 2},
         [](State s, Step a)
         {
             return hasObject(s, a) && hasGroup(s, a) && PlaceOf(s.model, a.id).parent != groupOf(s, a) &&
                    mayDrop(s, a.id, groupOf(s, a));
         },
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " into " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.MoveRow(a.id, into(s, groupOf(s, a))); }},
        {"drag above", panel, title, false, {0, 1, 1, 1}, &canDragBeside,
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " above " + otherRow(s, a)}; },
         [](WalkState& s, Step a) { s.model.MoveRow(a.id, beside(s, a, 0)); }},
        {"drag below", panel, title, false, {0, 1, 1, 1}, &canDragBeside,
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " below " + otherRow(s, a)}; },
         [](WalkState& s, Step a) { s.model.MoveRow(a.id, beside(s, a, 1)); }},
        {"drag to end", panel, title, false, {0, 1, 1, 1},
         [](State s, Step a)
         {
             return hasObject(s, a) && (PlaceOf(s.model, a.id).parent != 0 ||
                                        PlaceOf(s.model, a.id).index + 1 != s.model.Root().rows.size());
         },
         [](State s, Step a) -> Lines { return {"drag row " + row(s, a) + " to the end"}; },
         [](WalkState& s, Step a) { s.model.MoveRow(a.id, into(s, 0)); }},
        {"drag group above", panel, title, false, {0, 1, 1, 1},
         [](State s, Step a)
         {
             return hasGroup(s, a) && isEffectShown(s, a.otherId) && s.model.FindRow(a.otherId)->IsObject() &&
                    PlaceOf(s.model, a.otherId).parent == 0;
         },
         [](State s, Step a) -> Lines { return {"drag row " + script::Quoted(a.text) + " above " + otherRow(s, a)}; },
         [](WalkState& s, Step a) { s.model.MoveRow(groupOf(s, a), PlaceOf(s.model, a.otherId)); }},
        {"drag group to end", panel, title, false, {0, 1, 1, 1}, &hasGroup,
         [](State, Step a) -> Lines { return {"drag row " + script::Quoted(a.text) + " to the end"}; },
         [](WalkState& s, Step a) { s.model.MoveRow(groupOf(s, a), into(s, 0)); }},
        {"delete row", panel, title, false, {0, 1, 1, 1}, &hasObject,
         [](State s, Step a) -> Lines { return {"click row " + row(s, a), "press Delete"}; },
         [](WalkState& s, Step a) { s.model.DeleteRow(a.id); }},
        {"delete group", panel, title, false, {0, 1, 1, 1}, &hasGroup,
         [](State, Step a) -> Lines { return {"click row " + script::Quoted(a.text), "press Delete"}; },
         [](WalkState& s, Step a) { s.model.DeleteRow(groupOf(s, a)); }},
        {"add from menu", panel, applicable, false, {0, 1, 1, 1},
         [](State s, Step a)
         { return hasRoom(s) && s.model.OffersObjects() && ApplicableOf(a.text)->button != nullptr; },
         [](State, Step a) -> Lines
         {
             return {"choose " + script::Quoted(user::DisplayNameOf(a.text)) + " from " + script::Quoted(ApplicableOf(a.text)->button)};
         },
         [](WalkState& s, Step a) { s.model.AddFromMenu(fresh(a)); }},
        {"add group", panel, title, false, {0, 1, 1, 1},
         [](State s, Step)
         { return s.model.OffersObjects() && hasRoomForARow(s) && GroupTitles(s.model).size() < mostGroups; },
         [](State, Step) -> Lines { return {"click button \"Add Group\""}; },
         [](WalkState& s, Step) { s.model.AddEmptyGroup(); }},

        // What walks without a screen do besides.
        {"rename oddly", host, oddName, true, {0, 0, 0, 1}, &hasEffect,
         [](State s, Step a) -> Lines { return {"rename " + inHost(s, a) + " to " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.Rename(a.id, a.text); }},
        {"put into any group", host, title, true, {0, 0, 0, 2},
         [](State s, Step a) { return hasEffect(s, a) && !isOutside(*effectOf(s, a)) && !effectOf(s, a)->isRigid; },
         [](State s, Step a) -> Lines { return {"put " + inHost(s, a) + " into group " + std::to_string(a.number)}; },
         [](WalkState& s, Step a) { s.model.PutIntoGroup(a.id, a.number); }},
        {"select no layer", host, title, true, {0, 0, 0, 1}, [](State s, Step) { return s.model.ActiveLayer() >= 0; },
         [](State, Step) -> Lines { return {"select no layer"}; }, [](WalkState& s, Step) { s.model.SelectLayer(-1); }},
        {"close item", host, title, true, {0, 0, 0, 1}, [](State s, Step) { return s.model.HasItem(); },
         [](State, Step) -> Lines { return {"close all compositions"}; },
         [](WalkState& s, Step) { s.model.CloseItem(); }},
        {"open item", host, title, true, {0, 0, 0, 3}, [](State s, Step) { return !s.model.HasItem(); },
         [](State, Step) -> Lines { return {"open composition \"Comp 1\""}; },
         [](WalkState& s, Step) { s.model.OpenItem(); }},
        {"close panel", host, title, false, {0, 0, 0, 1}, [](State s, Step) { return isShown(s); },
         [](State, Step) -> Lines { return {"close the panel"}; },
         [](WalkState& s, Step) { s.model.PutTab(TabPlace::closed); }},
        {"choose panel", host, title, false, {0, 0, 0, 2}, &isHeadless,
         [](State, Step) -> Lines { return {noIdlesInside, "choose " + script::Quoted(panelName) + " in the Window menu"}; },
         [](WalkState& s, Step) { s.model.ChooseEntry(); }},
        {"sibling opens", host, title, false, {0, 0, 0, 2}, &isHeadless,
         [](State, Step) -> Lines { return {noIdlesInside, "a sibling opens the panel"}; },
         [](WalkState& s, Step) { s.model.RequestOpening(false); }},
        {"sibling opens by force", host, title, false, {0, 0, 0, 1}, &isHeadless,
         [](State, Step) -> Lines { return {noIdlesInside, "a sibling opens the panel by force"}; },
         [](WalkState& s, Step) { s.model.RequestOpening(true); }},
        {"sibling refreshes", host, title, true, {0, 0, 0, 2}, &isHeadless,
         [](State, Step) -> Lines { return {noIdlesInside, "a sibling refreshes the panel"}; },
         [](WalkState& s, Step) { s.model.RequestRefresh(); }},
        {"sibling notifies", host, newName, true, {0, 0, 0, 1}, &isHeadless,
         [](State, Step a) -> Lines { return {noIdlesInside, "a sibling notifies " + script::Quoted(a.text)}; }, [](WalkState&, Step) {}},
        {"click row", panel, title, true, {0, 0, 0, 5}, &hasRow,
         [](State s, Step a) -> Lines { return {"click row " + row(s, a) + withKey(a)}; },
         [](WalkState& s, Step a) { s.model.ClickRow(a.id, selectingOf(a)); }},
        {"click group", panel, title, true, {0, 0, 0, 3}, &hasGroup,
         [](State, Step a) -> Lines { return {"click row " + script::Quoted(a.text) + withKey(a)}; },
         [](WalkState& s, Step a) { s.model.ClickRow(groupOf(s, a), selectingOf(a)); }},
        {"click layer", panel, title, true, {0, 0, 0, 1}, &hasRoot,
         [](State, Step a) -> Lines { return {"click row \"Layer\"" + withKey(a)}; },
         [](WalkState& s, Step a) { s.model.ClickRow(0, selectingOf(a)); }},
        {"click beside", panel, title, true, {0, 0, 0, 1}, &hasRoot,
         [](State, Step) -> Lines { return {"click the panel"}; }, [](WalkState& s, Step) { s.model.ClickBeside(); }},
        {"select all", panel, title, true, {0, 0, 0, 1}, &hasRoot,
         [](State, Step) -> Lines { return {"click row \"Layer\"", "press Control+a"}; },
         [](WalkState& s, Step)
         {
             s.model.ClickRow(0, Selecting::alone);
             s.model.PressSelectAll();
         }},
        {"delete selection", panel, title, true, {0, 0, 0, 1}, [](State s, Step) { return isAnythingSelected(s); },
         [](State, Step) -> Lines { return {"press Delete"}; }, [](WalkState& s, Step) { s.model.PressDelete(); }},
        {"rename row oddly", panel, oddName, true, {0, 0, 0, 2}, &hasObject,
         [](State s, Step a) -> Lines
         { return {"click row " + row(s, a), "press Return", "type " + script::Quoted(a.text), "press Return"}; },
         [](WalkState& s, Step a) { s.model.RenameRow(a.id, a.text); }},
        {"add main", panel, title, true, {0, 0, 0, 3}, [](State s, Step) { return !s.model.OffersObjects() && s.model.AddsWaiting() == 0; },
         [](State, Step) -> Lines { return {"click button \"Add Vortan\""}; },
         [](WalkState& s, Step a) { s.model.AddMain({a.newId, ModelKind::main, "Vortan", 0, Power::on}); }},

        // Rows that open and close. A closed layer leaves little to do, so it is opened soon.
        {"click triangle", panel, title, true, {0, 0, 0, 4}, &hasGroup,
         [](State, Step a) -> Lines { return {"click triangle of " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.ClickTriangle(groupOf(s, a)); }},
        {"click triangle of effect", panel, title, true, {0, 0, 0, 1}, &hasRow,
         [](State s, Step a) -> Lines { return {"click triangle of " + row(s, a)}; },
         [](WalkState& s, Step a) { s.model.ClickTriangle(a.id); }},
        {"close layer", panel, title, true, {0, 0, 0, 1}, [](State s, Step) { return s.model.HasRoot() && s.model.Root().isOpen; },
         [](State, Step) -> Lines { return {"click triangle of \"Layer\""}; },
         [](WalkState& s, Step) { s.model.ClickTriangle(0); }},
        {"open layer", panel, title, true, {0, 0, 0, 5}, [](State s, Step) { return s.model.HasRoot() && !s.model.Root().isOpen; },
         [](State, Step) -> Lines { return {"click triangle of \"Layer\""}; },
         [](WalkState& s, Step) { s.model.ClickTriangle(0); }},
        {"double click group", panel, title, true, {0, 0, 0, 1}, &hasGroup,
         [](State, Step a) -> Lines { return {"double click row " + script::Quoted(a.text)}; },
         [](WalkState& s, Step a) { s.model.DoubleClickRow(groupOf(s, a)); }},
        {"double click row", panel, title, true, {0, 0, 0, 1}, &hasRow,
         [](State s, Step a) -> Lines { return {"double click row " + row(s, a)}; },
         [](WalkState& s, Step a) { s.model.DoubleClickRow(a.id); }},

        // A button that stays down while the host goes on.
        {"press row", panel, title, true, {0, 0, 0, 3}, &hasRow,
         [](State s, Step a) -> Lines { return {"hold the button on row " + row(s, a) + withKey(a)}; },
         [](WalkState& s, Step a) { s.model.Press(a.id, StackModel::Part::text, selectingOf(a)); }},
        {"press group", panel, title, true, {0, 0, 0, 2}, &hasGroup,
         [](State, Step a) -> Lines { return {"hold the button on row " + script::Quoted(a.text) + withKey(a)}; },
         [](WalkState& s, Step a) { s.model.Press(groupOf(s, a), StackModel::Part::text, selectingOf(a)); }},
        {"press box", panel, title, true, {0, 0, 0, 2}, &hasObject,
         [](State s, Step a) -> Lines { return {"hold the button on box of " + row(s, a) + withKey(a)}; },
         [](WalkState& s, Step a) { s.model.Press(a.id, StackModel::Part::box, selectingOf(a)); }},
        {"press group box", panel, title, true, {0, 0, 0, 1}, &hasGroup,
         [](State, Step a) -> Lines { return {"hold the button on box of " + script::Quoted(a.text) + withKey(a)}; },
         [](WalkState& s, Step a) { s.model.Press(groupOf(s, a), StackModel::Part::box, selectingOf(a)); }},
        {"let go", host, title, true, {0, 0, 0, 8}, [](State s, Step) { return s.model.IsPressed(); },
         [](State, Step) -> Lines { return {"let go"}; }, [](WalkState& s, Step) { s.model.LetGo(); }},
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
