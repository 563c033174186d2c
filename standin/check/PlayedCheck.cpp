#include "standin/check/PlayedCheck.h"

#include "standin/check/Trial.h"
#include "standin/script/Parser.h"
#include "standin/script/Player.h"

#include <sstream>

namespace standin::check
{
void PlayCheck(Trial& trial, const std::string& name, const std::string& text)
{
    std::istringstream lines(text);
    const std::vector<script::Step> steps = script::BindPhrases(script::ParseScenario(lines, name));
    script::PlayOptions options;
    options.bundleFile = trial.File();
    options.display = user::DisplayChoice::own;
    options.pictures.clear();
    options.onStep = [&](const script::Statement& statement) { trial.At(statement.text); };
    const script::Outcome outcome = script::PlayScenario(steps, options);
    if (!outcome.IsWell())
    {
        trial.At("");
        trial.Fail(outcome.failure);
    }
    for (const script::Step& step : steps)
        if (step.phrase->kind == script::Phrase::Kind::expectation)
            trial.Require(true, "");
}
} // namespace standin::check
