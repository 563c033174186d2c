#include "bench/Measure.h"

#include "bench/FastHost.h"

#include <algorithm>
#include <chrono>

namespace standin
{
namespace
{
using Clock = std::chrono::steady_clock;

int mostSamples = 1000;

double nanosecondsOf(const Steps& steps)
{
    steps.prepare();
    const auto start = Clock::now();
    steps.run();
    const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
    return taken.count() / steps.times;
}

/// What it takes when nothing else gets in between.
double leastOf(const std::vector<double>& values) { return *std::min_element(values.begin(), values.end()); }

/// Of one time. The second run, since the first may fill what is kept from then on.
void count(const Steps& steps, Result& result)
{
    steps.prepare();
    steps.run();
    steps.prepare();
    const std::uint64_t calls = FastHost::Calls();
    const Taken taken = TakenBy(steps.run);
    const auto times = static_cast<std::uint64_t>(steps.times);
    result.calls = (FastHost::Calls() - calls) / times;
    result.taken = {taken.allocations / times, taken.bytes / times};
}

bool makeTheSameCalls(FastHost& host, const Measurement& what)
{
    what.subject.prepare();
    const std::vector<int> subject = host.CallsOf(what.subject.run);
    what.floor.prepare();
    return subject == host.CallsOf(what.floor.run);
}

void measure(benchmark::State& state, const Measurement& what, FastHost& host)
{
    Result result;
    result.group = what.group;
    result.name = what.name;
    result.count = what.count;
    if (what.calls == Calls::theSame && !makeTheSameCalls(host, what))
        return state.SkipWithError("the floor does not make the same calls");
    count(what.subject, result);

    std::vector<double> times;
    std::vector<double> floors;
    for (auto _ : state)
    {
        times.push_back(nanosecondsOf(what.subject));
        state.SetIterationTime(times.back() * 1e-9);
        if (what.floor.run)
            floors.push_back(nanosecondsOf(what.floor));
    }
    result.time = leastOf(times);
    result.floor = floors.empty() ? 0 : leastOf(floors);
    state.counters["least_ns"] = result.time;
    state.counters["floor_ns"] = result.floor;
    state.counters["ratio"] = result.Ratio();
    state.counters["calls"] = static_cast<double>(result.calls);
    state.counters["allocations"] = static_cast<double>(result.taken.allocations);
    state.counters["bytes"] = static_cast<double>(result.taken.bytes);
    Results().push_back(result);
}
} // namespace

std::vector<Result>& Results()
{
    static std::vector<Result> results;
    return results;
}

void LimitSamples(int most) { mostSamples = most; }

void Register(FastHost& host, const Measurement& what)
{
    const std::string number = what.count < 0 ? "" : "/" + std::to_string(what.count);
    benchmark::RegisterBenchmark((what.group + "/" + what.name + number).c_str(),
                                 [&host, what](benchmark::State& state) { measure(state, what, host); })
        ->UseManualTime()
        ->Iterations(std::min(what.samples, mostSamples));
}
} // namespace standin
