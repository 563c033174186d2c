#include "standin/scenario/Player.h"

#include "standin/scenario/Parser.h"
#include "standin/scenario/Stage.h"
#include "standin/screen/Png.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace standin
{
namespace
{
/// How long an expectation may take to come true. On a busy machine little happens in a second, so nobody
/// gives up before so many looks.
constexpr auto patience = std::chrono::seconds(5);
constexpr int leastLooks = 50;

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
    Play(Stage& theStage, const std::string& traceFile) : stage(theStage)
    {
        if (!traceFile.empty())
            trace.open(traceFile, std::ios::app);
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
            return step.phrase->act(stage, step.arguments);
        case Phrase::Kind::action:
            return act(step);
        case Phrase::Kind::expectation:
            return expect(step);
        }
    }

private:
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
        step.phrase->act(stage, step.arguments);
        if (stage.held == IdleHeld::no)
            stage.session.Settle();
    }

    void expect(const Step& step)
    {
        const auto end = std::chrono::steady_clock::now() + patience;
        std::string found = step.phrase->check(stage, step.arguments);
        for (int looks = 1; !found.empty() && stage.held == IdleHeld::no &&
                            (std::chrono::steady_clock::now() < end || looks < leastLooks);
             ++looks)
        {
            stage.session.IdleFor(std::chrono::milliseconds(20));
            found = step.phrase->check(stage, step.arguments);
        }
        if (!found.empty())
            throw StageError(found);
    }

    Stage& stage;
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
    WritePng(stage.session.dock.Picture(stage.session.dock.WholeScreen()), file);
    return "\n  the screen at that moment: " + file;
}

std::string whatIsFoundAtTheEnd(Stage& stage, const Statement& last)
{
    stage.session.End();
    const std::string report = stage.host().FindingsReport();
    if (!report.empty())
        return last.Place() + "the scenario has ended, and this was found:\n" + report;
    if (stage.session.dock.Errors() != 0)
        return last.Place() + "the X server has told the host of " +
               std::to_string(stage.session.dock.Errors()) + " errors";
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
    Outcome outcome;
    Stage stage(options.bundleFile, options.display);
    stage.pictures = options.pictures;
    stage.folder = std::filesystem::path(steps.front().statement.file).parent_path().string();
    if (!loadsByItself(steps))
        stage.session.bundle.LoadAll(stage.host());
    Play play(stage, options.traceFile);
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
} // namespace standin
