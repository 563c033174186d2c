#include "standin/check/CheckAlone.h"

#include "standin/check/Trial.h"
#include "standin/process/Complaints.h"
#include "standin/process/ExitCodes.h"
#if STANDIN_HAS_SCREEN
#include "standin/user/x11/Xvfb.h"
#endif

#include <unistd.h>

namespace standin::check
{
namespace
{
void runInside(const CheckBook& book, const std::string& id, Trial& trial)
{
    if (id == onlyLoad)
    {
        book.load(trial.File());
        trial.Require(true, "");
        return;
    }
    const Check* const check = book.Find(id);
    if (check == nullptr)
        throw std::logic_error("there is no check " + id);
    RunCheck(*check, trial);
}

/// The verdict, and what the check has found.
int judge(const CheckBook& book, const std::string& id, Trial& trial, std::string& found)
{
    try
    {
        runInside(book, id, trial);
        return exit_code::well;
    }
    catch (const CheckFailure& failure)
    {
        found = failure.what();
        return exit_code::failed;
    }
#if STANDIN_HAS_SCREEN
    catch (const user::DisplayMissing& missing)
    {
        found = missing.what();
        return exit_code::noDisplay;
    }
#endif
    catch (const std::exception& error)
    {
        found = error.what() + (trial.Place().empty() ? "" : "\nat: " + trial.Place());
    }
    catch (int number)
    {
        found = "the integer " + std::to_string(number) + " was thrown";
    }
    catch (...)
    {
        found = "something was thrown that is no exception";
    }
    return id == onlyLoad ? exit_code::noBundle : exit_code::failed;
}
} // namespace

void RunCheck(const Check& check, Trial& trial)
{
    check.run(trial);
    if (trial.Looked() == 0)
        throw std::logic_error("the check has looked at nothing");
}

void RunCheckAlone(const CheckJob& job, const std::string& id, int reportTo)
{
    const auto tell = [reportTo](const char* field, const std::string& value)
    { process::Tell(field, value, reportTo); };
    Trial trial(
        job.file, job.seed, [&](const std::string& place) { tell(told::place, place); },
        [&] { tell(told::seed, std::to_string(job.seed)); });
    std::string found;
    const int verdict = judge(*job.book, id, trial, found);
    tell(told::looked, std::to_string(trial.Looked()));
    tell(told::found, found);
    tell(told::verdict, std::to_string(verdict));
    if (verdict != exit_code::well || id == onlyLoad) // How a loaded bundle ends is for the checks to say.
        _exit(0);
    tell(told::place, endOfProcess);
    process::LeaveWithLeakReports();
}
} // namespace standin::check
