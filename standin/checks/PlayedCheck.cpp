#include "standin/checks/PlayedCheck.h"

#include "standin/checks/Trial.h"
#include "standin/scenario/Parser.h"
#include "standin/scenario/Player.h"

#include <sstream>

namespace standin
{
namespace
{
constexpr const char* threeObjects = R"(composition "Comp 1"
layer "Solid 1"
effect "Vortan Sheets Object" named "lamp"
effect "Vortan Route Object" named "route"
effect "Vortan Dots Renderer" named "dots"
open the panel
expect rows "Layer" "- lamp" "- route" "- dots"
)";
} // namespace

void PlayCheck(Trial& trial, const std::string& name, const std::string& lines)
{
    std::istringstream text(lines);
    const std::vector<Step> steps = BindPhrases(ParseScenario(text, name));
    PlayOptions options;
    options.bundleFile = trial.File();
    options.display = DisplayChoice::own;
    options.pictures.clear();
    options.onStep = [&](const Statement& statement) { trial.At(statement.text); };
    const Outcome outcome = PlayScenario(steps, options);
    if (!outcome.IsWell())
    {
        trial.At("");
        trial.Fail(outcome.failure);
    }
    for (const Step& step : steps)
        if (step.phrase->kind == Phrase::Kind::expectation)
            trial.Require(true, "");
}

void PlayCheckWithThreeObjects(Trial& trial, const std::string& name, const std::string& lines)
{
    PlayCheck(trial, name, threeObjects + lines);
}
} // namespace standin
