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

bool isObject(const StackModel& model, int id)
{
    const ModelStack rows = InRowOrder(model);
    const ModelEffect* effect = FindEffect(rows, id);
    return effect != nullptr && effect->kind != ModelKind::outside;
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

bool isPossibleInHost(const WalkState& state, const WalkStep& step)
{
    const StackModel& model = state.model;
    const ModelEffect* const effect = FindEffect(model.Stack(), step.id);
    switch (step.deed)
    {
    case Deed::apply:
        return hasRoom(state);
    case Deed::duplicate:
        return effect != nullptr && hasRoom(state);
    case Deed::move:
        return effect != nullptr && static_cast<std::size_t>(step.number) < model.Stack().size();
    case Deed::putIntoGroup:
        return effect != nullptr && effect->kind != ModelKind::outside &&
               step.number <= static_cast<int>(mostGroups) && rowCount(model) < mostRows;
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
    default: // A rename, a deletion or a switch.
        return effect != nullptr;
    }
}

bool isPossibleInPanel(const WalkState& state, const WalkStep& step)
{
    const StackModel& model = state.model;
    const bool isIt = isObject(model, step.id);
    const bool isOther = isObject(model, step.otherId);
    const std::optional<std::size_t> group = GroupRow(model, step.text);
    switch (step.deed)
    {
    case Deed::dragToEnd:
        return isIt && (PlaceOf(model, step.id).groupRow >= 0 ||
                        PlaceOf(model, step.id).index + 1 != model.Rows().size());
    case Deed::dragAbove:
    case Deed::dragBelow:
        return isIt && isOther && step.id != step.otherId;
    case Deed::dragIntoGroup:
        return isIt && group.has_value() && PlaceOf(model, step.id).groupRow != static_cast<int>(*group);
    case Deed::clickGroupBox:
        return group.has_value() && !model.Rows()[*group].objects.empty();
    case Deed::deleteGroup:
    case Deed::dragGroupToEnd:
        return group.has_value();
    case Deed::dragGroupAbove:
        return group.has_value() && isOther && PlaceOf(model, step.otherId).groupRow < 0;
    case Deed::addFromMenu:
        return hasRoom(state) && !model.Rows().empty() && ApplicableOf(step.text)->button != nullptr;
    case Deed::addGroup:
        return !model.Rows().empty() && rowCount(model) < mostRows && GroupTitles(model).size() < mostGroups;
    default: // A rename, a deletion or a click on a box.
        return isIt;
    }
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
    if (step.deed < Deed::renameRow)
        return isPossibleInHost(state, step);
    return !state.isCovered && isPossibleInPanel(state, step);
}
} // namespace standin
