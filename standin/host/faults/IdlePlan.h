#pragma once
// Inside which calls the host idles: as when an effect raises an alert in the midst of a message, or a
// suite's plug-in is started by the call that asks for it. The hooks run when the call has done its work,
// before it returns. Calls of the idle inside are not counted, and the host does not idle inside them.

#include <cstddef>
#include <string>
#include <vector>

#include "standin/host/faults/CallChoice.h"

namespace standin
{
class IdlePlan
{
public:
    /// Forgets all choices, and counts from 0 again.
    void Clear();

    /// Inside the `ordinal`-th call from now on, counted from 1.
    void InCall(std::size_t ordinal);
    /// Inside the `first`-th call and each `step`-th after it, up to the `last`-th.
    void InCalls(std::size_t first, std::size_t step, std::size_t last);
    /// Inside the `nth` call from now on of a named function, counted from 1, whatever its suite.
    void InFunction(const std::string& function, std::size_t nth = 1);
    /// Inside each call of a named function from now on.
    void InEachCallOf(const std::string& function);

    /// How often the host has idled inside a call since the last Clear.
    std::size_t TimesIdled() const { return timesIdled; }

    // For the host.
    /// Whether the host is to idle inside this call. Counts it, unless the host idles inside another.
    bool IsDue(const CallPoint& call);
    void Begin();
    void End() { isIdling = false; }
    bool IsIdling() const { return isIdling; }

private:
    std::vector<CallChoice> choices;
    std::vector<std::string> functions; ///< Each call of them.
    std::size_t timesIdled = 0;
    bool isIdling = false;
};
} // namespace standin
