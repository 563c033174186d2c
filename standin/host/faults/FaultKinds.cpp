#include "standin/host/faults/FaultKinds.h"

#include "standin/host/faults/AllocationPlan.h"

#include <utility>

namespace standin
{
namespace
{
constexpr auto idle = FaultKind::Happens::idleInside;

std::vector<FaultKind> makeKinds()
{
    const std::pair<const char*, FailedCall> hows[] = {
        {"error", {errGeneric, OutValues::untouched}},
        {"other-error", {errAlloc, OutValues::untouched}},
        {"error-and-null", {errGeneric, OutValues::null}},
        {"error-and-garbage", {errGeneric, OutValues::garbage}},
        {"success-and-null", {errNone, OutValues::null}},
    };
    const std::pair<const char*, FaultLength> lengths[] = {
        {"once", FaultLength::once},
        {"function", FaultLength::functionForGood},
        {"all", FaultLength::everythingForGood},
    };
    std::vector<FaultKind> kinds;
    for (const auto& [how, call] : hows)
        for (const auto& [length, span] : lengths)
            // A host on which nothing works any more says so.
            if (call.error != errNone || span != FaultLength::everythingForGood)
                kinds.push_back({std::string(how) + "-" + length, FaultKind::Happens::failure, span, call});
    kinds.push_back({"idle-inside", idle});
    kinds.push_back({"no-memory", FaultKind::Happens::noMemory});
    return kinds;
}
} // namespace

bool FaultKind::AppliesTo(const CallRecord& call) const
{
    return happens != Happens::failure || how.outs == OutValues::untouched || call.hasOutValues;
}

void FaultKind::Arm(Host& host, std::size_t ordinal) const
{
    if (happens == idle)
        host.Idles().InCall(ordinal);
    else if (happens == Happens::noMemory)
        FailAllocation(ordinal);
    else
        host.Faults().FailCall(ordinal, length, how);
}

bool FaultKind::WasMet(Host& host) const
{
    return happens == idle                ? host.Idles().TimesIdled() > 0
           : happens == Happens::noMemory ? HasAllocationFailed()
                                          : host.Faults().Struck().has_value();
}

void FaultKind::Disarm(Host& host)
{
    host.Faults().Disarm();
    host.Idles().Clear();
    FailAllocation(0);
}

const std::vector<FaultKind>& FaultKinds()
{
    static const std::vector<FaultKind> kinds = makeKinds();
    return kinds;
}
} // namespace standin
