#pragma once
// Every way in which a sweep lets one host call go wrong.

#include "standin/host/core/Host.h"

#include <string>
#include <vector>

namespace standin
{
struct FaultKind
{
    enum class Happens
    {
        failure,
        idleInside, ///< The call does its work, and the host idles before it returns.
        noMemory    ///< Not a call, but an allocation of the plug-in's fails.
    };

    std::string name; ///< "garbage-once"
    Happens happens = Happens::failure;
    FaultLength length = FaultLength::once;
    FailedCall how = {};

    /// Some kinds only make a difference to a call that gives answers.
    bool AppliesTo(const CallRecord& call) const;
    /// The `ordinal`-th call from now on, or allocation, counted from 1.
    void Arm(Host& host, std::size_t ordinal) const;
    bool WasMet(Host& host) const;
    static void Disarm(Host& host);
};

const std::vector<FaultKind>& FaultKinds();
} // namespace standin
