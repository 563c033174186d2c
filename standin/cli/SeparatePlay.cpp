#include "standin/cli/SeparatePlay.h"

#include "standin/process/CapturedOutput.h"
#include "standin/process/Child.h"
#include "standin/process/Complaints.h"
#include "standin/process/ExitCodes.h"

#include <cstdio>
#include <unistd.h>

namespace standin::cli
{
namespace
{
/// Gives the verdict, and what it is said with.
std::pair<int, std::string> play(const std::vector<script::Step>& steps, const script::PlayOptions& options)
{
    try
    {
        const script::Outcome outcome = script::PlayScenario(steps, options);
        process::Tell("steps", std::to_string(outcome.steps));
        return {outcome.IsWell() ? exit_code::well : exit_code::failed, outcome.failure};
    }
    catch (const user::DisplayMissing& error)
    {
        return {exit_code::noDisplay, error.what()};
    }
    catch (const std::exception& error)
    {
        return {exit_code::noBundle, error.what()};
    }
}

int playInside(const std::vector<script::Step>& steps, script::PlayOptions options, StepsShown shown,
               int terminal)
{
    options.onStep = [&](const script::Statement& statement)
    {
        process::Tell("place", statement.Place() + statement.text);
        if (shown == StepsShown::yes)
            (void)dprintf(terminal, "  %4d  %s\n", statement.line, statement.text.c_str());
    };
    const auto [verdict, message] = play(steps, options);
    process::Tell("message", message);
    process::Tell("verdict", std::to_string(verdict));
    if (verdict == exit_code::well)
        process::LeaveWithLeakReports();
    return 0;
}
} // namespace

SeparateOutcome PlaySeparately(const std::vector<script::Step>& steps, const script::PlayOptions& options,
                               std::chrono::seconds timeout, StepsShown shown)
{
    const int terminal = dup(STDOUT_FILENO);
    process::FlushOutput();
    process::Child child([&] { return playInside(steps, options, shown, terminal); }, process::Streams::kept,
                         timeout);
    child.Wait();
    (void)close(terminal);
    process::WriteAll(STDOUT_FILENO, child.Output());
    process::WriteAll(STDERR_FILENO, child.Errors());
    const process::Report report(child.Told());
    const int played = report.Number("steps");
    if (child.ExitCode() == 0 && report.Has("verdict"))
    {
        const int verdict = report.Number("verdict");
        const std::string complaints = process::ComplaintsIn(child.Errors());
        if (verdict == exit_code::well && !complaints.empty())
            return {exit_code::failed, played,
                    "the scenario has ended, and the panel's toolkit says:\n" + complaints};
        return {verdict, played, report.Text("message")};
    }
    const std::string place = report.Has("place") ? report.Text("place") : "before the first line";
    const bool isLate = child.HowEnded() == process::Ending::timedOut;
    return {isLate ? exit_code::timeOut : exit_code::crashed, played, place + "\n  " + child.EndText()};
}
} // namespace standin::cli
