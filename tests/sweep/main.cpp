// Lets every host call of every scenario go wrong in every way, and judges what comes of it.
//
//   fault-sweep [--every K] [--only SCENARIO[/KIND[/N]]]
//
// What cannot be explained is named SCENARIO/KIND/N, with the command that does it again. The last line is
// for scripts.

#include "tests/sweep/FaultRun.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <sstream>

namespace standin
{
using namespace check;

namespace
{
struct SweepChoice
{
    std::size_t every = 1;
    std::string scenario; ///< Empty for all.
    std::string kind;     ///< The same.
    std::size_t ordinal = 0;
};

struct SweepFigures
{
    std::size_t faults = 0;
    std::size_t unexplained = 0;
    std::map<std::string, std::map<std::string, std::size_t>> outcomes; ///< By the kind of the fault.
    FaultTally tally;
};

class Sweeper
{
public:
    explicit Sweeper(SweepChoice theChoice) : choice(std::move(theChoice)) {}

    void Sweep(const SweptScenario& scenario)
    {
        const auto start = std::chrono::steady_clock::now();
        const std::size_t faultsBefore = figures.faults;
        const SoundRun sound = RunSoundly(scenario);
        if (!sound.violation.empty())
            return complain(std::string(scenario.name) + " without a fault", sound.violation);
        for (const FaultKind& kind : FaultKinds())
            if (choice.kind.empty() || choice.kind == kind.name)
                sweep(scenario, kind, sound);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        std::cout << scenario.name << ": " << sound.calls.size() << " calls, "
                  << figures.faults - faultsBefore << " faults, " << static_cast<int>(took.count()) << " s"
                  << std::endl;
    }

    const SweepFigures& Figures() const { return figures; }

    void PrintFigures() const
    {
        for (const FaultKind& kind : FaultKinds())
            printOutcomes(kind.name);
        for (const Allowance& row : Allowances())
        {
            const auto needed = figures.tally.allowed.find(&row);
            const int count = needed == figures.tally.allowed.end() ? 0 : needed->second;
            std::cout << count << "  " << row.function << ": an effect " << TextOf(row.fate) << "\n";
        }
        std::cout << "faults=" << figures.faults << " unexplained=" << figures.unexplained << std::endl;
    }

private:
    void printOutcomes(const std::string& kind) const
    {
        const auto outcomes = figures.outcomes.find(kind);
        if (outcomes == figures.outcomes.end())
            return;
        std::cout << kind << ":";
        for (const auto& [outcome, count] : outcomes->second)
            std::cout << (outcome == outcomes->second.begin()->first ? " " : ", ") << count << " " << outcome;
        std::cout << "\n";
    }

    static std::size_t firstOf(const SweptScenario& scenario, const SoundRun& sound)
    {
        std::size_t first = 1;
        while (!scenario.from.empty() && first <= sound.calls.size() &&
               sound.calls[first - 1].function != scenario.from)
            ++first;
        return first;
    }

    /// Up to the first ordinal that no run meets.
    void sweep(const SweptScenario& scenario, const FaultKind& kind, const SoundRun& sound)
    {
        if (kind.happens == FaultKind::Happens::noMemory)
            return sweepAllocations(scenario, kind, sound);
        for (std::size_t ordinal = firstOf(scenario, sound);; ++ordinal)
        {
            const bool isBehind = ordinal > sound.calls.size();
            if (choice.ordinal != 0 && ordinal != choice.ordinal && !isBehind)
                continue;
            if (!isBehind && (!kind.AppliesTo(sound.calls[ordinal - 1]) || counter++ % choice.every != 0))
                continue;
            if (!strike(scenario, kind, ordinal, sound) || isBehind)
                return;
        }
    }

    /// How many there are shows only when none is met any more.
    void sweepAllocations(const SweptScenario& scenario, const FaultKind& kind, const SoundRun& sound)
    {
        if (choice.ordinal != 0)
            return (void)strike(scenario, kind, choice.ordinal, sound);
        for (std::size_t ordinal = 1; strike(scenario, kind, ordinal, sound); ordinal += choice.every)
        {
        }
    }

    /// Whether the fault was met.
    bool strike(const SweptScenario& scenario, const FaultKind& kind, std::size_t ordinal,
                const SoundRun& sound)
    {
        const std::string name = std::string(scenario.name) + "/" + kind.name + "/" + std::to_string(ordinal);
        const FaultVerdict verdict = RunWithFault(scenario, kind, ordinal, sound, figures.tally);
        if (!verdict.violation.empty())
            complain(name, (ordinal <= sound.texts.size() ? sound.texts[ordinal - 1] + "\n  " : "") +
                               verdict.violation);
        if (verdict.wasMet)
        {
            ++figures.faults;
            ++figures.outcomes[kind.name][verdict.outcome];
        }
        return verdict.wasMet;
    }

    void complain(const std::string& name, const std::string& violation)
    {
        constexpr std::size_t told = 40;
        if (++figures.unexplained <= told)
            std::cout << "UNEXPLAINED " << name << "\n  " << violation << "\n  again: scripts/sweep --only "
                      << name << std::endl;
    }

    SweepChoice choice;
    SweepFigures figures;
    std::size_t counter = 0;
};

/// False if the words make no sense.
bool read(int count, char** words, SweepChoice& choice)
{
    for (int i = 1; i + 1 < count; i += 2)
    {
        const std::string value = words[i + 1];
        if (std::strcmp(words[i], "--every") == 0)
            choice.every = std::strtoul(value.c_str(), nullptr, 10);
        else if (std::strcmp(words[i], "--only") == 0)
        {
            std::istringstream parts(value);
            std::string ordinal;
            std::getline(parts, choice.scenario, '/');
            std::getline(parts, choice.kind, '/');
            std::getline(parts, ordinal);
            choice.ordinal = std::strtoul(ordinal.c_str(), nullptr, 10);
        }
        else
            return false;
    }
    return count % 2 == 1 && choice.every > 0;
}
} // namespace
} // namespace standin

int main(int count, char** words)
{
    standin::SweepChoice choice;
    if (!standin::read(count, words, choice))
    {
        std::cerr << "usage: " << words[0] << " [--every K] [--only SCENARIO[/KIND[/N]]]\n";
        return 2;
    }
    standin::Sweeper sweeper(choice);
    for (const standin::SweptScenario& scenario : standin::SweptScenarios())
        if (choice.scenario.empty() || choice.scenario == scenario.name)
            sweeper.Sweep(scenario);
    sweeper.PrintFigures();
    return sweeper.Figures().unexplained == 0 && sweeper.Figures().faults > 0 ? 0 : 1;
}
