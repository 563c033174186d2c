#pragma once
// A check judges a built file as a black box: it loads it into a stand-in host of its own and looks at one
// thing. Each is a row of Checks.cmake, if it judges a bundle, or of EffectChecks.cmake, if it judges an
// effect, and is run in a process of its own.

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace standin::check
{
class Trial;

struct Check
{
    const char* id;       ///< What the user calls it: "idle-queue-order".
    const char* sentence; ///< What holds of the file when it passes, as one whole sentence.
    /// Returns if all is well, and throws what Trial::Fail throws, or anything else, if not.
    void (*run)(Trial& trial);
    std::chrono::minutes timeout{1};
};

/// A kind of file that is judged, and by what.
struct CheckBook
{
    const char* command; ///< What the user calls: "check".
    const char* kind;    ///< What is judged: "bundle".
    /// In the order in which they are listed and reported.
    std::vector<Check> checks;
    /// Loads the file and no more. Throws if it is none of the kind.
    void (*load)(const std::string& file);

    /// Null for an id that no check has.
    const Check* Find(const std::string& id) const;
};

/// The checks of bundles.
const CheckBook& BundleChecks();

/// What the runs of one judgement have in common.
struct CheckJob
{
    std::string file; ///< What is judged.
    const CheckBook* book = &BundleChecks();
    std::uint64_t seed = 1;
};
} // namespace standin::check
