#pragma once
// One measurement: what something costs, beside its floor. The two take turns, so that whatever else the
// machine does falls on both, and the least of each is compared: a long sample is interrupted more often than
// a short one.

#include "tests/support/CountedAllocations.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace standin
{
class FastHost;

struct Result
{
    std::string group; ///< A table of the page.
    std::string name;  ///< A row of it.
    int count = 0;     ///< Effects, rows or items; -1 where there is no such number.
    double time = 0;   ///< In nanoseconds.
    double floor = 0;  ///< Likewise; 0 without a floor.
    std::uint64_t calls = 0;
    Taken taken;

    double Ratio() const { return floor > 0 ? time / floor : 0; }
};

/// All results of this run, in order.
std::vector<Result>& Results();

struct Steps
{
    std::function<void()> run;
    std::function<void()> prepare = [] {}; ///< Before each run, and not timed.
    int times = 1;                         ///< How often a run does what is measured.
};

/// Whether subject and floor have to make the same host calls, which is looked at once.
enum class Calls
{
    theSame,
    none
};

struct Measurement
{
    std::string group;
    std::string name;
    int count = -1;
    Steps subject;
    Steps floor; ///< Without a floor `run` is empty.
    Calls calls = Calls::theSame;
    int samples = 101;
};

/// No measurement takes more samples than that; for a short run.
void LimitSamples(int most);

/// Registers it under "group/name/count". What it refers to has to live until the benchmarks have run.
void Register(FastHost&, const Measurement&);
} // namespace standin
