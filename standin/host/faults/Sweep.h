#pragma once
// Fails each host call of an operation in turn, each time on a fresh host.

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "standin/host/core/Host.h"

namespace standin
{
/// Which call a run of the sweep made to fail.
struct SweptFault
{
    std::size_t ordinal = 0; ///< From 1; 0 in the clean run, which fails nothing.
    FaultLength length = FaultLength::once;
    A_Err error = errGeneric;
    std::string call; ///< The line of that call in the clean run; empty in the clean run itself.

    /// For SCOPED_TRACE and messages.
    std::string Text() const;
};

/// `make` builds a scenario (anything with a member `host` of type Host) in a std::unique_ptr,
/// `run` performs the operation on it, `check` looks at the outcome. The clean run comes first and
/// counts the calls of `run`; then each ordinal is failed once for each of `lengths`. Gives the
/// number of calls that were swept: a sweep over nothing gives 0, and that is worth a test.
template <class Make, class Run, class Check>
std::size_t SweepFaults(Make make, Run run, Check check,
                        const std::vector<FaultLength>& lengths = {FaultLength::once,
                                                                   FaultLength::functionForGood,
                                                                   FaultLength::everythingForGood},
                        A_Err error = errGeneric)
{
    std::vector<std::string> calls;
    {
        auto scenario = make();
        scenario->host.ClearTrace();
        run(*scenario);
        calls = scenario->host.CallTexts();
        check(*scenario, SweptFault{});
    }
    for (const FaultLength length : lengths)
    {
        for (std::size_t ordinal = 1; ordinal <= calls.size(); ++ordinal)
        {
            auto scenario = make();
            scenario->host.ClearTrace();
            scenario->host.Faults().FailCall(ordinal, length, error);
            run(*scenario);
            check(*scenario, SweptFault{ordinal, length, error, calls[ordinal - 1]});
        }
    }
    return calls.size();
}
} // namespace standin
