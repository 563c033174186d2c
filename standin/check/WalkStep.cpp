#include "standin/check/WalkStep.h"

#include "standin/check/WalkActions.h"
#include "standin/check/WalkRows.h"

namespace standin::check
{
namespace
{
constexpr std::size_t numbersOfLoop = 13; ///< Among them two that are no group's.

constexpr const char* newNames[] = {"lantern", "The Way (2)", "kite", "north", "a b c", "Walls", "x"};

constexpr const char* oddNames[] = {"",
                                    " ",
                                    "a/b",
                                    "a\\b",
                                    "\"quoted\"",
                                    "%s%n%d",
                                    "K\xc3\xa4se",
                                    "\xe6\xa1\x86",
                                    "\xf0\x9f\x92\xa1 lamp",
                                    "tab\there",
                                    "Vortan Sheets Object 2",
                                    "Hash Mismatch",
                                    "a name that is longer than thirty-one characters",
                                    "lamp",
                                    "route"};

/// Each action as often as its share of such walks.
std::vector<const WalkAction*> hatOf(WalkKind kind)
{
    std::vector<const WalkAction*> hat;
    for (const WalkAction& action : WalkActions())
        hat.insert(hat.end(), static_cast<std::size_t>(action.shares[static_cast<int>(kind)]), &action);
    return hat;
}

/// The generator's own distributions differ between libraries; a seed has to give the same walk everywhere.
std::size_t below(std::mt19937& random, std::size_t count) { return random() % count; }

template <class List>
auto any(std::mt19937& random, const List& list)
{
    return *(std::begin(list) + static_cast<std::ptrdiff_t>(below(random, std::size(list))));
}

/// Where the panel is at rest and shows a layer, and still does after what the step does, before any pass.
bool mayFail(const WalkState& state, const WalkStep& step)
{
    const auto isPlain = [](const WalkState& at)
    {
        return !at.isHeld && !at.model.IsPressed() && !at.model.IsOpeningWanted() && at.model.HasItem() &&
               at.model.Tab() == TabPlace::inFront && at.model.ActiveLayer() >= 0;
    };
    if (!isPlain(state))
        return false;
    WalkState after = state;
    Act(after, step);
    return isPlain(after);
}

std::string anyText(std::mt19937& random, const WalkState& state, WalkAction::Text text)
{
    switch (text)
    {
    case WalkAction::Text::newName:
        return any(random, newNames);
    case WalkAction::Text::oddName:
        return any(random, oddNames);
    case WalkAction::Text::applicable:
        return any(random, Applicables()).defaultName;
    case WalkAction::Text::groupTitle:
        break;
    }
    const std::vector<std::string> titles = GroupTitles(state.model);
    return titles.empty() ? "" : any(random, titles);
}
} // namespace

WalkState WalkBegin(WalkKind kind)
{
    const ModelStack first{{1, ModelKind::geometry, "lamp", 0, Power::on},
                           {2, ModelKind::geometry, "route", 0, Power::on},
                           {3, ModelKind::renderer, "dots", 0, Power::on},
                           {4, ModelKind::main, "Vortan", 0, Power::on}};
    const ModelStack second{{5, ModelKind::effector, "pulse", 2, Power::on},
                            {6, ModelKind::geometry, "sheet", 2, Power::on},
                            {7, ModelKind::outside, "Gaussian Blur", 0, Power::on},
                            {8, ModelKind::geometry, "rail", -1, Power::on, true}};
    WalkState state{StackModel({first, second})};
    state.isHeadless = kind == WalkKind::loop;
    (void)state.model.Settle();
    (void)state.model.TakeWrites();
    (void)state.model.TakePrinted();
    return state;
}

std::vector<std::string> WalkBeginLines()
{
    return {"composition \"Comp 1\"",
            "layer \"Solid 2\"",
            "effect \"Vortan Pulse Effector\" named \"pulse\"",
            "effect \"Vortan Sheets Object\" named \"sheet\"",
            "effect \"Gaussian Blur\"",
            "effect \"Vortan Route Object\" named \"rail\"",
            "\"rail\" is rigid",
            "\"pulse\" is in group 2",
            "\"sheet\" is in group 2",
            "layer \"Solid 1\" with three objects",
            "effect \"Vortan\"",
            "open the panel"};
}

WalkStep DrawStep(std::mt19937& random, const WalkState& state, WalkKind kind, int newId)
{
    const std::vector<const WalkAction*> hat = hatOf(kind);
    const ModelStack& stack = state.model.Stack();
    for (;;)
    {
        WalkStep step;
        step.action = any(random, hat);
        step.newId = newId;
        if (!stack.empty())
        {
            step.id = any(random, stack).id;
            step.otherId = any(random, stack).id;
        }
        step.number = static_cast<int>(below(random, kind == WalkKind::loop ? numbersOfLoop : mostEffects));
        step.text = anyText(random, state, step.action->text);
        if (IsPossible(state, step))
            return step;
    }
}

bool IsPossible(const WalkState& state, const WalkStep& step)
{
    const WalkAction& action = *step.action;
    if (action.place == WalkAction::Place::panel && state.model.IsPressed())
        return false; // There is one mouse.
    return (action.isPossibleWhileHeld || !state.isHeld ||
            (state.isHeadless && action.place == WalkAction::Place::panel)) &&
           (action.place == WalkAction::Place::host || state.model.Tab() == TabPlace::inFront) &&
           action.isPossible(state, step) && (step.fault.empty() || mayFail(state, step));
}

std::vector<std::string> LinesOf(const WalkState& state, const WalkStep& step)
{
    std::vector<std::string> lines = step.action->lines(state, step);
    if (!step.idlesInside.empty())
        lines.insert(lines.begin(), {"idle inside no call", "idle inside " + step.idlesInside});
    if (step.fault.empty())
        return lines;
    lines.insert(lines.begin(), {"idle inside no call", "hold idle"});
    lines.insert(lines.end(), {"fail " + step.fault, "go on", "all is well again"});
    for (const std::string& line : LinesAfterFault(state.model))
        lines.push_back(line);
    return lines;
}

std::vector<std::string> LinesAfterFault(const StackModel& model)
{
    return {"select no layer", "close all compositions", "open composition \"Comp 1\"",
            "select layer \"Solid " + std::to_string(model.ActiveLayer() + 1) + "\""};
}

void Act(WalkState& state, const WalkStep& step) { step.action->carryOut(state, step); }

int RecoverFromFault(StackModel& model)
{
    const int layer = model.ActiveLayer();
    model.ForgetHistory();
    model.SelectLayer(-1);
    (void)model.Settle();
    model.CloseItem();
    (void)model.Settle();
    model.OpenItem();
    (void)model.Settle();
    (void)model.TakePrinted();
    (void)model.TakeWrites();
    (void)model.TakeEmptyOrder();
    model.SelectLayer(layer);
    return model.Settle();
}

int CarryOut(WalkState& state, const WalkStep& step)
{
    Act(state, step);
    if (state.isHeld)
        return 0;
    const int passes = state.model.Settle();
    return step.fault.empty() ? passes : RecoverFromFault(state.model);
}
} // namespace standin::check
