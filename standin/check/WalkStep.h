#pragma once
// One step of a walk: what somebody does in the host or in the panel. The same step is drawn at random,
// carried out in the model, and written as lines of a scenario, which is how it is carried out on the screen.

#include "standin/check/StackModel.h"

#include <random>

namespace standin::check
{
/// Which steps a walk is made of.
enum class WalkKind
{
    host,
    panel,
    mixed,
    loop ///< All that can be done without a screen.
};

struct WalkAction;

struct WalkStep
{
    const WalkAction* action = nullptr; ///< One of WalkActions().
    int id = 0;                         ///< Of the effect that it is done to.
    int newId = 0;                      ///< Of the effect that comes of it.
    int otherId = 0;                    ///< Of the effect beside which it is put.
    int number = 0;                     ///< A place from 0, a group, or a layer from 0.
    std::string text;                   ///< A name, what is applied, or a group's title.
    /// Inside which calls the host idles from this step on, as a scenario says it: "each call of
    /// AEGP_ReorderEffect", "each call", "no call". Empty for the same as before. Nothing may come of it.
    std::string idlesInside{};
    /// Which call fails in the passes after the step, as a scenario says it: "call 2 of AEGP_GetStreamName".
    /// Empty for none. The project is put right afterwards, and the walk goes on from there.
    std::string fault{};
};

/// The model, and what keeps the panel from learning of changes.
struct WalkState
{
    StackModel model;
    bool isHeld = false;     ///< The host does not idle.
    bool isHeadless = false; ///< Without a screen the panel needs no idle to take what the user does.
};

/// Where each walk begins: two layers, the first of them active, and the panel just opened.
WalkState WalkBegin(WalkKind kind = WalkKind::mixed);
/// The lines that make that scene.
std::vector<std::string> WalkBeginLines();

/// A step that is possible now. `newId` is for the effect that may come of it.
WalkStep DrawStep(std::mt19937& random, const WalkState& state, WalkKind kind, int newId);
bool IsPossible(const WalkState& state, const WalkStep& step);
/// The step as lines of a scenario, in the state before it.
std::vector<std::string> LinesOf(const WalkState& state, const WalkStep& step);
/// What brings panel and model to a common ground after a fault: with no layer and no item the panel forgets
/// all that it has seen.
std::vector<std::string> LinesAfterFault(const StackModel& model);
/// The first part of CarryOut: what the user or the host does, without a pass.
void Act(WalkState& state, const WalkStep& step);
/// What the lines after a fault do to the model, up to the last settling, of which the passes are counted.
int RecoverFromFault(StackModel& model);
/// Carries the step out in the model, which is settled afterwards unless the host does not idle. How many
/// idle passes that takes.
int CarryOut(WalkState& state, const WalkStep& step);
} // namespace standin::check
