#include "standin/checks/CheckAlone.h"

#include "standin/checks/CheckReport.h"
#if STANDIN_HAS_SCREEN
#include "standin/x11/Xvfb.h"
#endif

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace standin
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

/// What the check found becomes its word.
Word judge(const CheckBook& book, const std::string& id, Trial& trial, std::string& found)
{
    try
    {
        runInside(book, id, trial);
        return Word::passed;
    }
    catch (const CheckFailure& failure)
    {
        found = failure.what();
        return Word::failed;
    }
#if STANDIN_HAS_SCREEN
    catch (const DisplayMissing& missing)
    {
        found = missing.what();
        return Word::noDisplay;
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
    return id == onlyLoad ? Word::noBundle : Word::failed;
}
} // namespace

void RunCheck(const Check& check, Trial& trial)
{
    check.run(trial);
    if (trial.Looked() == 0)
        throw std::logic_error("the check has looked at nothing");
}

void RunCheckAlone(const CheckBook& book, const std::string& file, const std::string& id, std::uint64_t seed)
{
    // The X server of a check must not hold the pipe open, nor may a check outlive who judges.
    (void)fcntl(reportDescriptor, F_SETFD, FD_CLOEXEC);
#ifdef __linux__
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
    const ReportWriter writer(reportDescriptor);
    Trial trial(
        file, seed, [&](const std::string& place) { writer.Place(place); }, [&] { writer.SeedUsed(); });
    std::string found;
    const Word word = judge(book, id, trial, found);
    writer.End(trial, word, found);
    // A check that looks at the end of the process has said so by its place.
    if (trial.Place() == endOfProcess)
        std::exit(0); // NOLINT(concurrency-mt-unsafe)
    _exit(0);
}
} // namespace standin
