#include "standin/check/CheckRun.h"

#include "standin/check/CheckAlone.h"
#include "standin/process/Child.h"
#include "standin/process/Complaints.h"
#include "standin/process/ExitCodes.h"

#include <algorithm>
#include <memory>
#include <thread>

namespace standin::check
{
namespace
{
constexpr auto betweenLooks = std::chrono::milliseconds(5);
constexpr std::chrono::seconds loadTimeout{60};

std::unique_ptr<process::Child> startCheck(const CheckRunOptions& options, const std::string& id,
                                           std::chrono::seconds timeout)
{
    return std::make_unique<process::Child>([job = options.job, id]() -> int { RunCheckAlone(job, id); },
                                            process::Streams::kept, options.timeout.value_or(timeout));
}

/// The end of what the process printed, for the report of a crash.
std::string lastLines(const process::Child& child)
{
    constexpr std::size_t most = 600;
    std::string text = child.Output() + child.Errors();
    text.erase(0, text.size() - std::min(text.size(), most));
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text.empty() ? "" : "\nlast printed: " + text;
}

void addComplaints(const process::Child& child, CheckOutcome& outcome)
{
    const std::string complaints = process::ComplaintsIn(child.Errors());
    if (complaints.empty())
        return;
    outcome.code = outcome.code == exit_code::well ? exit_code::failed : outcome.code;
    outcome.found += (outcome.found.empty() ? "" : "\n") + complaints;
}

CheckOutcome outcomeOf(const process::Child& child)
{
    const process::Report report(child.Told());
    CheckOutcome outcome;
    outcome.looked = report.Number(told::looked);
    outcome.isSeedUsed = report.Has(told::seed);
    outcome.seconds = child.Seconds();
    if (child.ExitCode() == 0 && report.Has(told::verdict))
    {
        outcome.code = report.Number(told::verdict);
        outcome.found = report.Text(told::found);
        addComplaints(child, outcome);
        return outcome;
    }
    const bool isLate = child.HowEnded() == process::Ending::timedOut;
    const bool isEarly = child.HowEnded() == process::Ending::exited;
    outcome.code = isLate ? exit_code::timeOut : exit_code::crashed;
    outcome.ending = isLate ? "too late" : isEarly ? "ended early" : "crashed";
    const std::string place = report.Text(told::place);
    outcome.found = child.EndText() +
                    (isEarly && !report.Has(told::verdict) ? " in the midst of the check" : "") +
                    (place.empty() ? "" : "\nat: " + place) + lastLines(child);
    return outcome;
}

/// The processes of the run: some done, some at work, the rest not begun.
class Queue
{
public:
    Queue(const std::vector<Check>& theChecks, const CheckRunOptions& theOptions)
        : checks(theChecks), options(theOptions)
    {
    }

    void Begin()
    {
        const auto atWork =
            std::count_if(begun.begin(), begun.end(), [](const auto& each) { return !each->IsDone(); });
        for (auto room = options.atATime - atWork; room > 0 && begun.size() < checks.size(); --room)
        {
            const Check& next = checks[begun.size()];
            begun.push_back(startCheck(options, next.id, next.timeout));
        }
    }

    bool IsDone(std::size_t index) const { return index < begun.size() && begun[index]->IsDone(); }
    CheckOutcome Outcome(std::size_t index) const { return outcomeOf(*begun[index]); }

private:
    const std::vector<Check>& checks;
    const CheckRunOptions& options;
    std::vector<std::unique_ptr<process::Child>> begun;
};
} // namespace

std::size_t RunChecks(const std::vector<Check>& checks, const CheckRunOptions& options,
                      const OnOutcome& onOutcome)
{
    Queue queue(checks, options);
    std::size_t handed = 0;
    while (handed < checks.size())
    {
        queue.Begin();
        if (!queue.IsDone(handed))
        {
            std::this_thread::sleep_for(betweenLooks);
            continue;
        }
        onOutcome(checks[handed], queue.Outcome(handed));
        ++handed;
    }
    return handed;
}

CheckOutcome TryToLoad(const CheckRunOptions& options)
{
    const auto child = startCheck(options, onlyLoad, loadTimeout);
    child->Wait();
    return outcomeOf(*child);
}
} // namespace standin::check
