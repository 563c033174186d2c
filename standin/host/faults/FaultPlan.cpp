#include "standin/host/faults/FaultPlan.h"

#include <algorithm>

namespace standin
{
void FaultPlan::Disarm() { *this = FaultPlan(); }

void FaultPlan::FailCall(std::size_t ordinal, FaultLength length, A_Err error)
{
    FailCall(ordinal, length, FailedCall{error});
}

void FaultPlan::FailCall(std::size_t ordinal, FaultLength length, FailedCall how)
{
    faults.push_back({{ordinal, length}, how});
}

void FaultPlan::FailFunction(const std::string& function, std::size_t nth, FaultLength length, A_Err error)
{
    faults.push_back({{function, nth, length}, {error}});
}

void FaultPlan::FailFunction(const std::string& suite, A_long version, const std::string& function,
                             std::size_t nth, FaultLength length, A_Err error)
{
    FailFunction(suite, version, function, nth, length, FailedCall{error});
}

void FaultPlan::FailFunction(const std::string& suite, A_long version, const std::string& function,
                             std::size_t nth, FaultLength length, FailedCall how)
{
    faults.push_back({{suite, version, function, nth, length}, how});
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

std::optional<FailedCall> FaultPlan::Strike(const CallPoint& call)
{
    ++calls;
    std::optional<FailedCall> how;
    for (Fault& fault : faults)
        if (fault.calls.Picks(call) && !how)
            how = fault.how;
    if (how && !struck)
        struck = call;
    return how;
}

std::optional<Withheld> FaultPlan::IsWithheld(const std::string& suite, A_long version) const
{
    for (const WithheldSuite& entry : withheld)
        if (entry.name == suite && (entry.version == 0 || entry.version == version))
            return entry.how;
    return std::nullopt;
}
} // namespace standin
