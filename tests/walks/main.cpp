// random-walk: walks without a screen, until so many steps are done. Each walk has its seed; one that fails
// is shortened, and written as a scenario. The last line is for programs.
//
//     random-walk --steps 100000 --seed 1          walks of seed 1, 2, 3 and so on
//     random-walk --steps 200 --length 200 --seed 17   the walk of seed 17 alone

#include "standin/check/ShortenedWalk.h"
#include "tests/walks/LoopWalker.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <unistd.h>

namespace standin::check
{
namespace
{
using Clock = std::chrono::steady_clock;

struct Options
{
    long steps = 10000;
    unsigned seed = 1;
    int length = 200;           ///< Steps of a walk.
    int mostFailures = 5;       ///< It ends after so many.
    std::string scenarioFolder; ///< Where the scenarios of failures are written; empty for nowhere.
};

char currentSeed[64];

/// A walk that crashes has printed its seed before.
void tellSeed(int signal)
{
    (void)!write(STDERR_FILENO, currentSeed, std::strlen(currentSeed));
    std::signal(signal, SIG_DFL);
    (void)std::raise(signal);
}

/// Of all walks.
int faultsMet = 0;

WalkOutcome take(const std::vector<WalkStep>& steps)
{
    WalkOutcome outcome;
    try
    {
        LoopWalker walker;
        for (const WalkStep& step : steps)
        {
            outcome.failure = walker.Take(step);
            if (!outcome.failure.empty())
                return outcome;
            ++outcome.stepsDone;
        }
        faultsMet += walker.Faults();
        outcome.failure = walker.End();
    }
    catch (const std::exception& error)
    {
        outcome.failure = error.what();
    }
    return outcome;
}

void writeScenario(const Options& options, unsigned seed, const ShortenedWalk& walk)
{
    if (options.scenarioFolder.empty())
        return;
    const std::string file = options.scenarioFolder + "/walk-" + std::to_string(seed) + ".scenario";
    std::FILE* const out = std::fopen(file.c_str(), "w");
    if (out == nullptr)
        throw std::runtime_error("cannot write " + file);
    (void)std::fprintf(out, "# Found by a random walk of seed %u.%s\n", seed,
                       AsScenario(walk.Steps(), WalkKind::loop).c_str());
    (void)std::fclose(out);
    std::printf("  written to %s\n", file.c_str());
}

void tellFailure(const Options& options, unsigned seed, const std::vector<WalkStep>& steps,
                 const WalkOutcome& outcome)
{
    constexpr std::chrono::seconds shortening{20};
    ShortenedWalk walk(WalkKind::loop, &take, Clock::now() + shortening);
    walk.Shorten(steps, outcome);
    std::printf("seed %u, step %d: %s\n  made as short as it went: %s\n  as a scenario:%s\n", seed,
                outcome.stepsDone + 1, outcome.failure.c_str(), walk.Failure().c_str(),
                AsScenario(walk.Steps(), WalkKind::loop).c_str());
    writeScenario(options, seed, walk);
}

int run(const Options& options)
{
    const Clock::time_point begin = Clock::now();
    long steps = 0;
    int walks = 0;
    int failures = 0;
    for (unsigned seed = options.seed; steps < options.steps && failures < options.mostFailures; ++seed)
    {
        (void)std::snprintf(currentSeed, sizeof currentSeed, "the walk of seed %u ended the process\n", seed);
        const std::vector<WalkStep> walk = DrawWalk(WalkKind::loop, seed, options.length);
        const WalkOutcome outcome = take(walk);
        steps += outcome.stepsDone;
        ++walks;
        if (outcome.failure.empty())
            continue;
        ++failures;
        tellFailure(options, seed, walk, outcome);
        (void)std::fflush(stdout);
    }
    const std::chrono::duration<double> time = Clock::now() - begin;
    std::printf("seeds %u to %u, %.0f steps per second\n", options.seed,
                options.seed + static_cast<unsigned>(walks) - 1, static_cast<double>(steps) / time.count());
    std::printf("steps=%ld walks=%d faults=%d unexplained=%d\n", steps, walks, faultsMet, failures);
    return failures == 0 ? 0 : 1;
}

Options read(int count, char** words)
{
    Options options;
    for (int i = 1; i < count; i += 2)
    {
        const std::string name = words[i];
        if (i + 1 == count)
            throw std::runtime_error(name + " needs a value");
        const char* const value = words[i + 1];
        if (name == "--steps")
            options.steps = std::atol(value);
        else if (name == "--seed")
            options.seed = static_cast<unsigned>(std::atol(value));
        else if (name == "--length")
            options.length = std::atoi(value);
        else if (name == "--failures")
            options.mostFailures = std::atoi(value);
        else if (name == "--scenarios")
            options.scenarioFolder = value;
        else
            throw std::runtime_error("random-walk knows no " + name);
    }
    if (options.steps < 1 || options.length < 1 || options.mostFailures < 1)
        throw std::runtime_error("steps, length and failures are numbers above 0");
    return options;
}
} // namespace
} // namespace standin::check

int main(int count, char** words)
{
    try
    {
        // Without a display, JUCE tries the machine's first one, which may be another user's.
        (void)setenv("DISPLAY", ":65535", 1);
        std::signal(SIGSEGV, &standin::check::tellSeed);
        std::signal(SIGABRT, &standin::check::tellSeed);
        return standin::check::run(standin::check::read(count, words));
    }
    catch (const std::exception& error)
    {
        (void)std::fprintf(stderr, "random-walk: %s\n", error.what());
        return 2;
    }
}
