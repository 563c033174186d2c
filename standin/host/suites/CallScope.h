#pragma once
// What happens around every call that comes through a table, in one place: is there a host, is this
// its thread, does a hook run, is a fault due, does the host idle inside; and the call's line in the trace.

#include <optional>
#include <string>

#include "standin/host/core/HostParts.h"
#include "standin/host/sensors/AtWork.h"
#include "standin/host/suites/SuiteDescription.h"

namespace standin
{
class CallScope
{
public:
    explicit CallScope(SuiteId suite, int slot);
    ~CallScope();
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

    /// False if the call cannot even be looked at: no host lives, or this is another thread.
    bool IsOpen() const { return parts != nullptr; }
    HostParts& Parts() { return *parts; }

    /// Starts the line of the trace; `arguments` are those between the brackets.
    void Begin(const std::string& arguments, bool hasOutValues = false);
    /// Whether the call may go on. If not, its error is set, and WasStruck tells a fault apart.
    bool MayProceed();
    bool WasStruck() const { return struck.has_value(); }
    /// What the fault leaves in the out-values.
    OutValues OutsOfFault() const { return struck ? struck->outs : OutValues::untouched; }
    /// Lets the host idle inside the call, if it is one in which it does. The call has done its work.
    void IdleIfDue();

    A_Err Error() const { return error; }
    void SetError(A_Err newError) { error = newError; }
    void SetAnswers(std::string text) { answers = std::move(text); }

private:
    const Working host{AtWork::host}; ///< Before all that the host does for the call.
    const SuiteDescription& suite;
    const SlotDescription& slot;
    HostParts* parts = nullptr;
    bool begun = false;
    std::optional<FailedCall> struck;
    A_Err error = errNone;
    std::string answers;
};

/// What a reserved slot does: a finding that names suite, version and slot.
A_Err SpringTrap(SuiteId suite, int slot);

/// What every slot does of a table that a failed acquire left.
A_Err SpringPoison();
/// Such a table, as long as the longest there is.
const void* PoisonTable();
} // namespace standin
