#pragma once
// Which calls fail. A call that is made to fail does nothing and gives the fault's error code; what it leaves
// in its out-values is the fault's choice. AcquireSuite and ReleaseSuite are calls like any other.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "standin/host/core/Abi.h"
#include "standin/host/faults/CallChoice.h"

namespace standin
{
/// How long a fault lasts once it has struck.
using FaultLength = CallSpan;

/// What a call that is made to fail leaves in the places for its answers.
enum class OutValues
{
    untouched,
    null,   ///< Null, zero or an empty text.
    garbage ///< A handle that nobody has handed out, the number 77, the text "garbage", a poisoned table.
};

/// What a call does that is made to fail. The error may be none: the call then says that all went well.
struct FailedCall
{
    A_Err error = errGeneric;
    OutValues outs = OutValues::untouched;
};

/// How a withheld suite is refused.
enum class Withheld
{
    asError,           ///< The not-found error and a null pointer.
    asNullTable,       ///< Success with a null pointer.
    asPoisonedPointer, ///< The not-found error, and the out-pointer points at what must not be called.
};

class FaultPlan
{
public:
    /// Forgets every fault and counts calls from 0 again.
    void Disarm();

    /// The `ordinal`-th call from now on fails, counted from 1.
    void FailCall(std::size_t ordinal, FaultLength length = FaultLength::once, A_Err error = errGeneric);
    void FailCall(std::size_t ordinal, FaultLength length, FailedCall how);

    /// The `nth` call from now on of a named function fails, counted from 1, whatever its suite.
    void FailFunction(const std::string& function, std::size_t nth = 1,
                      FaultLength length = FaultLength::once, A_Err error = errGeneric);
    /// The same for one suite; version 0 means any.
    void FailFunction(const std::string& suite, A_long version, const std::string& function,
                      std::size_t nth = 1, FaultLength length = FaultLength::once, A_Err error = errGeneric);
    void FailFunction(const std::string& suite, A_long version, const std::string& function, std::size_t nth,
                      FaultLength length, FailedCall how);

    /// From now on the suite is missing; version 0 means any.
    void Withhold(const std::string& suite, A_long version = 0, Withheld how = Withheld::asError);
    void GiveBack(const std::string& suite, A_long version = 0);

    /// Calls since the last Disarm, or since the host was made.
    std::size_t CallsCounted() const { return calls; }
    /// The call that the first fault struck, if one did.
    const std::optional<CallPoint>& Struck() const { return struck; }

    // For the host.
    /// Counts a call; how it has to fail, or none.
    std::optional<FailedCall> Strike(const CallPoint& call);
    std::optional<Withheld> IsWithheld(const std::string& suite, A_long version) const;

private:
    struct Fault
    {
        CallChoice calls;
        FailedCall how;
    };
    struct WithheldSuite
    {
        std::string name;
        A_long version;
        Withheld how;
    };

    std::size_t calls = 0;
    std::vector<Fault> faults;
    std::vector<WithheldSuite> withheld;
    std::optional<CallPoint> struck;
};
} // namespace standin
