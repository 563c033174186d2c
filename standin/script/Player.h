#pragma once
// Plays a scenario in this process.

#include "standin/script/Phrase.h"
#include "standin/user/WindowSession.h"

#include <map>

namespace standin::script
{
struct PlayOptions
{
    std::string bundleFile;
    user::DisplayChoice display = user::DisplayChoice::environmentOrOwn;
    std::string traceFile;      ///< Gets each line with its host calls, at the end. Empty for none.
    std::string pictures = "."; ///< The folder for pictures. Empty for no picture of a failure.
    /// Told of each line before it is carried out.
    std::function<void(const Statement&)> onStep = [](const Statement&) {};
    /// Told of what the scenario says.
    std::function<void(const std::string&)> onSay = [](const std::string&) {};
    /// By pattern, what is done in place of a phrase's own act, on a host whose windows a user can work in.
    std::map<std::string, Act> otherwise;
};

struct Outcome
{
    std::string failure; ///< Empty if all went as expected; else it begins with file and line.
    int steps = 0;       ///< Lines that went as they should.

    bool IsWell() const { return failure.empty(); }
};

/// The statements of a file, ready to be played. Throws ScenarioError, even if the file is empty.
std::vector<Step> ReadScenario(const std::string& file);

/// Plays on a host and a bundle that are there already.
Outcome PlayOn(Stage& stage, const std::vector<Step>& steps, const PlayOptions& options);

/// Throws what the constructor of WindowSession throws. The process can play no second one.
Outcome PlayScenario(const std::vector<Step>& steps, const PlayOptions& options);
} // namespace standin::script
