#include "standin/checks/PlayedCheck.h"

#include "standin/checks/Trial.h"
#include "standin/scenario/Parser.h"
#include "standin/scenario/Player.h"

#include <sstream>

namespace standin
{
void PlayCheck(Trial& trial, const std::string& name, const std::string& text)
{
    std::istringstream lines(text);
    const std::vector<Step> steps = BindPhrases(ParseScenario(lines, name));
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
} // namespace standin
