#pragma once
// What a fault may have made of the project. Each thing is as it was or as the change was to leave it, and
// what the rules of the operations let happen beyond that stands in one table, for the call that failed.

#include "standin/host/core/Host.h"

#include <map>
#include <string>
#include <vector>

namespace standin::check
{
/// What a user sees of an effect.
struct SeenEffect
{
    int id = 0;
    A_long key = 0;
    bool ofFamily = false;
    std::string name;
    int group = 0;
    A_long flags = 0;
    bool hidden = false;
    std::vector<bool> hiddenParameters;
};

struct SeenProject
{
    std::map<int, std::vector<SeenEffect>> layers; ///< By id; each stack from the top.
    ProjectState rest;                             ///< Without the effects.
};

SeenProject SeeProject(Host& host);
/// A line for each effect, with all that undo brings back.
std::vector<std::string> UndoableLines(const SeenProject& project);

/// A project before a change, what the change makes of it on a sound host, and what a fault made of it.
struct ComparedProject
{
    SeenProject before;
    SeenProject wanted;
    SeenProject after;
};

/// Something that is neither as it was nor as it was to become.
enum class Fate
{
    nameRepeated, ///< It has the name of an effect above it, or none.
    nameGarbled,  ///< It has a name that the host gave together with the error.
    switchedOff,  ///< With every object below it.
    switchedOffAlone,
    leftGroup,
    hiddenWrongly,      ///< Hidden or shown: an effect of the family.
    hiddenAfterRefusal, ///< The same where a new name or a deletion was refused.
    parameterHidden,
    outsiderHidden, ///< Hidden or shown: an effect from outside.
    orderMixed,     ///< An order that the steps of the change give when one of them goes wrong.
    orderOfRows,    ///< The order of the panel's rows, the objects of a group together.
    newElsewhere    ///< An effect that was added stands at another place.
};

/// A row of the table: where this function fails, this may come of it.
struct Allowance
{
    const char* function;
    Fate fate;
    const char* reason;
};

const std::vector<Allowance>& Allowances();
const char* TextOf(Fate fate);

/// What has become of a project.
struct ProjectFates
{
    std::string violation;                ///< Empty if all is as it was, as it was to become, or allowed.
    std::vector<const Allowance*> needed; ///< The rows without which there would be one.
};

/// `calls` are those of the run; the rows of the functions that a fault struck, or that were refused a suite,
/// apply, and with `isOutOfMemory` those of operator new.
ProjectFates JudgeProject(const ComparedProject& compared, const std::vector<CallRecord>& calls,
                          bool isOutOfMemory = false);
} // namespace standin::check
