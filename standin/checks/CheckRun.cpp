#include "standin/checks/CheckRun.h"

#include "standin/checks/CheckAlone.h"

#include <algorithm>
#include <memory>
#include <thread>

namespace standin
{
namespace
{
constexpr auto betweenLooks = std::chrono::milliseconds(5);

std::chrono::seconds limitOf(Pace pace, const CheckRunOptions& options)
{
    const auto own = std::chrono::seconds(pace == Pace::brisk ? 60 : 180);
    return options.limit.value_or(own);
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
            begun.push_back(
                std::make_unique<SeparateCheck>(options.job, next.id, limitOf(next.pace, options)));
        }
    }

    bool IsDone(std::size_t index) const { return index < begun.size() && begun[index]->IsDone(); }
    CheckOutcome Outcome(std::size_t index) const { return begun[index]->Outcome(); }

private:
    const std::vector<Check>& checks;
    const CheckRunOptions& options;
    std::vector<std::unique_ptr<SeparateCheck>> begun;
};
} // namespace

std::size_t RunChecks(const std::vector<Check>& checks, const CheckRunOptions& options,
                      const OnOutcome& onOutcome)
{
    Queue queue(checks, options);
    std::size_t told = 0;
    while (told < checks.size())
    {
        queue.Begin();
        if (!queue.IsDone(told))
        {
            std::this_thread::sleep_for(betweenLooks);
            continue;
        }
        onOutcome(checks[told], queue.Outcome(told));
        ++told;
    }
    return told;
}

CheckOutcome TryToLoad(const CheckRunOptions& options)
{
    SeparateCheck process(options.job, onlyLoad, limitOf(Pace::brisk, options));
    while (!process.IsDone())
        std::this_thread::sleep_for(betweenLooks);
    return process.Outcome();
}
} // namespace standin
