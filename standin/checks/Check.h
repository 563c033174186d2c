#pragma once
// A check judges a bundle as a black box: it loads it into a stand-in host of its own and looks at one thing.
// The table in Checks.cpp is the one list of them. Each has a file of its own, or shares one with checks of
// the same family, and is run in a process of its own.

#include <string>
#include <vector>

namespace standin
{
class Trial;

/// How long a check may take before it counts as hanging, unless the user gives a limit.
enum class Pace
{
    brisk, ///< A minute.
    slow   ///< Three minutes, for sweeps and walks.
};

struct Check
{
    const char* id;       ///< What the user calls it: "idle-queue-order".
    const char* sentence; ///< What holds of the bundle when it passes, as one whole sentence.
    /// Returns if all is well, and throws what Trial::Fail throws, or anything else, if not.
    void (*run)(Trial& trial);
    Pace pace = Pace::brisk;
};

/// All checks of this build, in the order in which they are listed and reported.
const std::vector<Check>& AllChecks();

/// Null for an id that no check has.
const Check* FindCheck(const std::string& id);
} // namespace standin
