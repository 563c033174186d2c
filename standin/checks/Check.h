#pragma once
// A check judges a built file as a black box: it loads it into a stand-in host of its own and looks at one
// thing. The table in Checks.cpp is the one list of those that judge a bundle, and that in EffectChecks.cpp
// of those that judge an effect. Each has a file of its own, or shares one with checks of the same family,
// and is run in a process of its own.

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
    const char* sentence; ///< What holds of the file when it passes, as one whole sentence.
    /// Returns if all is well, and throws what Trial::Fail throws, or anything else, if not.
    void (*run)(Trial& trial);
    Pace pace = Pace::brisk;
};

/// All checks of this build, in the order in which they are listed and reported.
const std::vector<Check>& AllChecks();

/// A kind of file that is judged, and by what.
struct CheckBook
{
    const char* command;      ///< What the user calls: "check".
    const char* aloneCommand; ///< What `standin` calls itself with to run one check in a process.
    const char* kind;         ///< What is judged: "bundle".
    const std::vector<Check>* checks;
    /// Loads the file and no more. Throws if it is none of the kind.
    void (*load)(const std::string& file);

    /// Null for an id that no check has.
    const Check* Find(const std::string& id) const;
};

/// The checks of bundles.
const CheckBook& BundleChecks();
} // namespace standin
