#include "standin/script/Player.h"

#include "standin/script/Parser.h"
#include "standin/script/Stage.h"
#include "standin/user/eyes/Png.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace standin::script
{
namespace
{
bool loadsByItself(const std::vector<Step>& steps)
{
    return std::any_of(steps.begin(), steps.end(),
                       [](const Step& step) { return step.statement.words.front().text == "load"; });
}

void requireExpectations(const std::vector<Step>& steps)
{
    const bool expectsSomething =
        std::any_of(steps.begin(), steps.end(),
                    [](const Step& step) { return step.phrase->kind == Phrase::Kind::expectation; });
    if (!expectsSomething)
        throw ScenarioError(steps.back().statement.Place() +
                            "the scenario ends without having expected anything");
}

class Play
{
public:
    Play(Stage& theStage, const PlayOptions& playOptions) : stage(theStage), options(playOptions)
    {
        if (!options.traceFile.empty())
            trace.open(options.traceFile, std::ios::app);
    }
    ~Play() { writeTrace(); }
    Play(const Play&) = delete;
    Play& operator=(const Play&) = delete;

    void Run(const Step& step)
    {
        stage.host().Findings().SetOrigin(step.statement.file + ":" + std::to_string(step.statement.line));
        for (const std::string& text : step.arguments.texts)
            stage.AddCandidate(text);
        switch (step.phrase->kind)
        {
        case Phrase::Kind::setting:
            return carryOut(step);
        case Phrase::Kind::action:
            return act(step);
        case Phrase::Kind::expectation:
            return expect(step);
        }
    }

private:
    void carryOut(const Step& step)
    {
        const auto other = options.otherwise.find(step.phrase->pattern);
        (other == options.otherwise.end() ? step.phrase->act : other->second)(stage, step.arguments);
    }

    /// The calls since the last time, below the line that began them.
    void writeTrace()
    {
        if (!trace.is_open())
            return;
        trace << traced << "\n";
        for (const std::string& call : stage.session.Calls())
            trace << "    " << call << "\n";
    }

    void act(const Step& step)
    {
        if (stage.held == IdleHeld::no)
        {
            writeTrace();
            stage.session.Forget();
            traced = step.statement.Place() + step.statement.text;
        }
        carryOut(step);
        if (stage.held == IdleHeld::no)
            stage.session.Settle();
    }

    void expect(const Step& step)
    {
        std::string found;
        const auto holds = [&] { return (found = step.phrase->check(stage, step.arguments)).empty(); };
        if (!stage.Await(holds, user::waits::untilExpected))
            throw StageError(found);
    }

    Stage& stage;
    const PlayOptions& options;
    std::ofstream trace;
    std::string traced = "before the first action"; ///< The line whose calls come next.
};

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t");
    return begin == std::string::npos ? "" : text.substr(begin);
}

/// Leaves a picture of what went wrong beside the other pictures.
std::string pictureOfFailure(Stage& stage, const Statement& statement)
{
    if (stage.pictures.empty())
        return "";
    const std::string stem = std::filesystem::path(statement.file).stem().string();
    const std::string file = stage.pictures + "/" + stem + "-line-" + std::to_string(statement.line) + ".png";
    user::WritePng(stage.session.hands.screen(), file);
    return "\n  the screen at that moment: " + file;
}

std::string whatIsFoundAtTheEnd(Stage& stage, const Statement& last)
{
    stage.session.End();
    const std::string report = stage.host().FindingsReport();
    if (!report.empty())
        return last.Place() + "the scenario has ended, and this was found:\n" + report;
    if (const int errors = stage.session.TakeErrors(); errors != 0)
        return last.Place() + "the X server has told the host of " + std::to_string(errors) + " errors";
    return "";
}

/// A line of a scenario that does not go as it should, with what was found instead.
std::string failureText(Stage& stage, const Step& step, const std::exception& error)
{
    return step.statement.Place() + trimmed(step.statement.text) + "\n  " + error.what() +
           pictureOfFailure(stage, step.statement);
}
} // namespace

std::vector<Step> ReadScenario(const std::string& file)
{
    std::ifstream stream(file);
    if (!stream)
        throw ScenarioError(file + ": the file cannot be read");
    std::vector<Step> steps = BindPhrases(ParseScenario(stream, file));
    if (steps.empty())
        throw ScenarioError(file + ":1: there is nothing in this scenario");
    requireExpectations(steps);
    return steps;
}

Outcome PlayScenario(const std::vector<Step>& steps, const PlayOptions& options)
{
    Stage stage(options.bundleFile, options.display);
    if (!loadsByItself(steps))
        stage.session.TheBundle().LoadAll(stage.host());
    return PlayOn(stage, steps, options);
}

Outcome PlayOn(Stage& stage, const std::vector<Step>& steps, const PlayOptions& options)
{
    Outcome outcome;
    stage.pictures = options.pictures;
    stage.tell = options.onSay;
    stage.folder = std::filesystem::path(steps.front().statement.file).parent_path().string();
    Play play(stage, options);
    for (const Step& step : steps)
    {
        options.onStep(step.statement);
        try
        {
            play.Run(step);
        }
        catch (const std::exception& error)
        {
            outcome.failure = failureText(stage, step, error);
            return outcome;
        }
        ++outcome.steps;
    }
    outcome.failure = whatIsFoundAtTheEnd(stage, steps.back().statement);
    return outcome;
}
} // namespace standin::script
