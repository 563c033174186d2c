#include "standin/faults/FaultPlan.h"

#include <algorithm>

namespace standin
{
void FaultPlan::Disarm() { *this = FaultPlan(); }

void FaultPlan::FailCall(std::size_t ordinal, FaultLength length, A_Err error)
{
    Fault fault;
    fault.countdown = ordinal;
    fault.length = length;
    fault.error = error;
    faults.push_back(fault);
}

void FaultPlan::FailFunction(const std::string& function, std::size_t nth, FaultLength length, A_Err error)
{
    Fault fault;
    fault.function = function;
    fault.countdown = nth;
    fault.length = length;
    fault.error = error;
    faults.push_back(fault);
}

void FaultPlan::FailFunction(const std::string& suite, A_long version, const std::string& function,
                             std::size_t nth, FaultLength length, A_Err error)
{
    FailFunction(function, nth, length, error);
    faults.back().suite = suite;
    faults.back().version = version;
}

void FaultPlan::Withhold(const std::string& suite, A_long version, Withheld how)
{
    withheld.push_back({suite, version, how});
}

void FaultPlan::GiveBack(const std::string& suite, A_long version)
{
    withheld.erase(std::remove_if(withheld.begin(), withheld.end(),
                                  [&](const WithheldSuite& entry) {
                                      return entry.name == suite &&
                                             (version == 0 || entry.version == version);
                                  }),
                   withheld.end());
}

bool FaultPlan::matches(const Fault& fault, const FaultPoint& point)
{
    return (fault.function.empty() || fault.function == point.function) &&
           (!fault.suite || *fault.suite == point.suite) &&
           (fault.version == 0 || fault.version == point.version);
}

bool FaultPlan::strikes(Fault& fault, const FaultPoint& point)
{
    if (fault.active)
        return fault.length == FaultLength::everythingForGood ||
               (fault.lasting.suite == point.suite && fault.lasting.version == point.version &&
                fault.lasting.function == point.function);
    if (fault.countdown == 0 || !matches(fault, point) || --fault.countdown > 0)
        return false;
    fault.active = fault.length != FaultLength::once;
    fault.lasting = point;
    return true;
}

std::optional<A_Err> FaultPlan::Strike(const FaultPoint& point)
{
    ++calls;
    std::optional<A_Err> error;
    for (Fault& fault : faults)
        if (strikes(fault, point) && !error)
            error = fault.error;
    if (error && !struck)
        struck = point;
    return error;
}

std::optional<Withheld> FaultPlan::IsWithheld(const std::string& suite, A_long version) const
{
    for (const WithheldSuite& entry : withheld)
        if (entry.name == suite && (entry.version == 0 || entry.version == version))
            return entry.how;
    return std::nullopt;
}
} // namespace standin
