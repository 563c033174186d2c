#include "standin/cli/SeparatePlay.h"

#include "standin/cli/ExitCodes.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace standin
{
namespace
{
/// What both processes see, so that the word of the one outlives its end.
struct Board
{
    int steps;
    char place[512];    ///< The line that is being carried out.
    char message[8192]; ///< Written last.
};

void put(char* target, std::size_t size, const std::string& text)
{
    (void)std::snprintf(target, size, "%s", text.c_str());
}

Board* makeBoard()
{
    void* memory = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::runtime_error("no memory to share with the player");
    return static_cast<Board*>(memory);
}

int play(const std::vector<Step>& steps, PlayOptions options, Board& board, StepsShown shown, int terminal)
{
    options.onStep = [&](const Statement& statement)
    {
        put(board.place, sizeof board.place, statement.Place() + statement.text);
        if (shown == StepsShown::yes)
            (void)dprintf(terminal, "  %4d  %s\n", statement.line, statement.text.c_str());
    };
    try
    {
        const Outcome outcome = PlayScenario(steps, options);
        board.steps = outcome.steps;
        put(board.message, sizeof board.message, outcome.failure);
        return outcome.IsWell() ? exit_code::well : exit_code::failed;
    }
    catch (const DisplayMissing& error)
    {
        put(board.message, sizeof board.message, error.what());
        return exit_code::noDisplay;
    }
    catch (const std::exception& error)
    {
        put(board.message, sizeof board.message, error.what());
        return exit_code::noBundle;
    }
}

[[noreturn]] void runChild(const std::vector<Step>& steps, const PlayOptions& options, Board& board,
                           StepsShown shown)
{
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int terminal = dup(STDOUT_FILENO);
    const int code = play(steps, options, board, shown, terminal);
    // What the bundle registered to run at the end of the process is no part of the play.
    _exit(code);
}

/// The status of the child, or nothing when the time is over; it is ended then.
bool waitFor(pid_t child, std::chrono::seconds limit, int& status)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (waitpid(child, &status, WNOHANG) == 0)
    {
        if (std::chrono::steady_clock::now() > end)
        {
            (void)kill(child, SIGKILL);
            (void)waitpid(child, &status, 0);
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

SeparateOutcome outcomeOf(const Board& board, bool inTime, int status, std::chrono::seconds limit)
{
    const std::string place = board.place[0] == '\0' ? "before the first line" : board.place;
    if (!inTime)
        return {exit_code::timeOut, board.steps,
                place + "\n  the scenario took longer than " + std::to_string(limit.count()) + " seconds"};
    if (WIFSIGNALED(status))
        return {exit_code::crashed, board.steps,
                place + "\n  the process has crashed: " + strsignal(WTERMSIG(status))};
    return {WEXITSTATUS(status), board.steps, board.message};
}
} // namespace

SeparateOutcome PlaySeparately(const std::vector<Step>& steps, const PlayOptions& options,
                               std::chrono::seconds limit, StepsShown shown)
{
    Board* const board = makeBoard();
    (void)std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0)
        runChild(steps, options, *board, shown);
    int status = 0;
    const bool inTime = child > 0 && waitFor(child, limit, status);
    const SeparateOutcome outcome = outcomeOf(*board, inTime, status, limit);
    (void)munmap(board, sizeof(Board));
    return outcome;
}
} // namespace standin
