#include "standin/checks/WalkStep.h"

#include "standin/checks/WalkRows.h"

#include <algorithm>
#include <optional>

namespace standin
{
namespace
{
using Deed = WalkStep::Deed;

constexpr const char* newNames[] = {"lantern", "The Way (2)", "kite", "north", "a b c", "Walls", "x"};
// All rows stay in view.
constexpr std::size_t mostEffects = 8;
constexpr std::size_t mostGroups = 4;
constexpr std::size_t mostRows = 15;

constexpr Deed hostDeeds[] = {Deed::apply,     Deed::rename,     Deed::move,         Deed::remove,
                              Deed::duplicate, Deed::switchOver, Deed::putIntoGroup, Deed::undo,
                              Deed::undo,      Deed::redo,       Deed::selectLayer};
constexpr Deed panelDeeds[] = {
    Deed::renameRow,      Deed::clickBox,      Deed::clickGroupBox, Deed::dragIntoGroup,
    Deed::dragAbove,      Deed::dragBelow,     Deed::dragToEnd,     Deed::dragGroupAbove,
    Deed::dragGroupToEnd, Deed::deleteRow,     Deed::deleteGroup,   Deed::addFromMenu,
    Deed::addGroup,       Deed::dragIntoGroup, Deed::undo,          Deed::redo};
constexpr Deed intervalDeeds[] = {Deed::cover, Deed::uncover, Deed::uncover,
                                  Deed::hold,  Deed::goOn,    Deed::goOn};

std::vector<Deed> deedsOf(WalkKind kind)
{
    std::vector<Deed> deeds;
    if (kind != WalkKind::panel)
        deeds.insert(deeds.end(), std::begin(hostDeeds), std::end(hostDeeds));
    if (kind != WalkKind::host)
        deeds.insert(deeds.end(), std::begin(panelDeeds), std::end(panelDeeds));
    if (kind == WalkKind::mixed)
        deeds.insert(deeds.end(), std::begin(intervalDeeds), std::end(intervalDeeds));
    return deeds;
}

/// The generator's own distributions differ between libraries; a seed has to give the same walk everywhere.
std::size_t below(std::mt19937& random, std::size_t count) { return random() % count; }

template <class List>
auto any(std::mt19937& random, const List& list)
{
    return *(std::begin(list) + static_cast<std::ptrdiff_t>(below(random, std::size(list))));
}

bool isObject(const WalkState& state, int id)
{
    const ModelStack rows = InRowOrder(state.model);
    const ModelEffect* effect = FindEffect(rows, id);
    return !state.isCovered && effect != nullptr && effect->kind != ModelKind::outside;
}

std::size_t rowCount(const StackModel& model)
{
    return 1 + InRowOrder(model).size() + GroupTitles(model).size();
}

bool hasRoom(const WalkState& state)
{
    return state.model.Stack().size() < mostEffects && rowCount(state.model) < mostRows;
}

/// Of what is done in the panel only the click on a box can do without the host's idle.
bool isPossibleWhileHeld(Deed deed)
{
    if (deed == Deed::clickBox || deed == Deed::clickGroupBox)
        return true;
    return deed < Deed::renameRow && deed != Deed::cover && deed != Deed::uncover;
}
} // namespace

WalkState WalkBegin()
{
    const ModelStack first{{1, ModelKind::geometry, "lamp", 0, Power::on},
                           {2, ModelKind::geometry, "route", 0, Power::on},
                           {3, ModelKind::renderer, "dots", 0, Power::on},
                           {4, ModelKind::main, "Vortan", 0, Power::on}};
    const ModelStack second{{5, ModelKind::effector, "pulse", 2, Power::on},
                            {6, ModelKind::geometry, "sheet", 2, Power::on},
                            {7, ModelKind::outside, "Gaussian Blur", 0, Power::on}};
    WalkState state{StackModel({first, second})};
    state.model.Settle();
    (void)state.model.TakeWrites();
    return state;
}

std::vector<std::string> WalkBeginLines()
{
    return {"composition \"Comp 1\"",
            "layer \"Solid 2\"",
            "effect \"Vortan Pulse Effector\" named \"pulse\"",
            "effect \"Vortan Sheets Object\" named \"sheet\"",
            "effect \"Gaussian Blur\"",
            "\"pulse\" is in group 2",
            "\"sheet\" is in group 2",
            "layer \"Solid 1\"",
            "effect \"Vortan Sheets Object\" named \"lamp\"",
            "effect \"Vortan Route Object\" named \"route\"",
            "effect \"Vortan Dots Renderer\" named \"dots\"",
            "effect \"Vortan\"",
            "open the panel"};
}

WalkStep DrawStep(std::mt19937& random, const WalkState& state, WalkKind kind, int newId)
{
    const std::vector<Deed> deeds = deedsOf(kind);
    const ModelStack& stack = state.model.Stack();
    const std::vector<std::string> titles = GroupTitles(state.model);
    for (;;)
    {
        WalkStep step;
        step.deed = any(random, deeds);
        step.newId = newId;
        if (!stack.empty())
        {
            step.id = any(random, stack).id;
            step.otherId = any(random, stack).id;
        }
        step.number = static_cast<int>(below(random, mostEffects));
        const bool isNew = step.deed == Deed::apply || step.deed == Deed::addFromMenu;
        const bool isName = step.deed == Deed::rename || step.deed == Deed::renameRow;
        if (isNew)
            step.text = any(random, Applicables()).defaultName;
        else if (isName)
            step.text = any(random, newNames);
        else if (!titles.empty())
            step.text = any(random, titles);
        if (IsPossible(state, step))
            return step;
    }
}

bool IsPossible(const WalkState& state, const WalkStep& step)
{
    if (state.isHeld && !isPossibleWhileHeld(step.deed))
        return false;
    const StackModel& model = state.model;
    const bool exists = FindEffect(model.Stack(), step.id) != nullptr;
    const std::optional<std::size_t> group = GroupRow(model, step.text);
    const bool isGroup = !state.isCovered && group.has_value();
    switch (step.deed)
    {
    case Deed::apply:
        return hasRoom(state);
    case Deed::rename:
    case Deed::remove:
    case Deed::switchOver:
        return exists;
    case Deed::duplicate:
        return exists && hasRoom(state);
    case Deed::move:
        return exists && static_cast<std::size_t>(step.number) < model.Stack().size();
    case Deed::putIntoGroup:
        return exists && step.number <= static_cast<int>(mostGroups) &&
               FindEffect(model.Stack(), step.id)->kind != ModelKind::outside && rowCount(model) < mostRows;
    case Deed::undo:
        return !model.UndoNames().empty();
    case Deed::redo:
        return !model.RedoNames().empty();
    case Deed::selectLayer:
        return step.number < StackModel::layerCount && step.number != model.ActiveLayer();
    case Deed::cover:
        return !state.isCovered;
    case Deed::uncover:
        return state.isCovered;
    case Deed::hold:
        return !state.isCovered && !state.isHeld;
    case Deed::goOn:
        return state.isHeld;
    case Deed::renameRow:
    case Deed::clickBox:
    case Deed::deleteRow:
        return isObject(state, step.id);
    case Deed::dragToEnd:
        return isObject(state, step.id) && PlaceOf(model, step.id).index + 1 != model.Rows().size();
    case Deed::dragAbove:
    case Deed::dragBelow:
        return isObject(state, step.id) && isObject(state, step.otherId) && step.id != step.otherId;
    case Deed::dragIntoGroup:
        return isGroup && isObject(state, step.id) &&
               PlaceOf(model, step.id).groupRow != static_cast<int>(*group);
    case Deed::clickGroupBox:
        return isGroup && !model.Rows()[*group].objects.empty();
    case Deed::deleteGroup:
    case Deed::dragGroupToEnd:
        return isGroup;
    case Deed::dragGroupAbove:
        return isGroup && isObject(state, step.otherId) && PlaceOf(model, step.otherId).groupRow < 0;
    case Deed::addFromMenu:
        return !state.isCovered && hasRoom(state) && !model.Rows().empty() &&
               ApplicableOf(step.text)->button != nullptr;
    case Deed::addGroup:
        return !state.isCovered && !model.Rows().empty() && rowCount(model) < mostRows &&
               GroupTitles(model).size() < mostGroups;
    }
    return false;
}
} // namespace standin
