#pragma once
// Every way in which a sweep lets one host call go wrong.

#include "standin/core/Host.h"

#include <string>
#include <vector>

namespace standin
{
struct FaultKind
{
    enum class Happens
    {
        failure,
        idleInside ///< The call does its work, and the host idles before it returns.
    };

    std::string name; ///< "garbage-once"
    Happens happens = Happens::failure;
    FaultLength length = FaultLength::once;
    FailedCall how = {};

    /// Some kinds only make a difference to a call that gives answers.
    bool AppliesTo(const CallRecord& call) const;
    /// From the `ordinal`-th call from now on, counted from 1.
    void Arm(Host& host, std::size_t ordinal) const;
    bool WasMet(Host& host) const;
};

const std::vector<FaultKind>& FaultKinds();
} // namespace standin
