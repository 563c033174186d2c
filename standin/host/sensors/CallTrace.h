#pragma once
// Every call that came through a table of the host, in the order in which the calls began.

#include <cstddef>
#include <string>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
/// One call. Its line reads like
///   Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3
///   Stream 4 AEGP_GetStreamName(stream B, 1) = 1
/// with the out-values of a call that succeeded, or the error number of one that failed.
struct CallRecord
{
    std::string suite; ///< The full name; empty for the basic suite.
    A_long version = 0;
    A_long slot = 0;
    std::string function;
    std::string head;    ///< The line up to and with the closing bracket.
    std::string answers; ///< The out-values, separated by ", "; empty if there are none.
    A_Err error = errNone;
    std::size_t ordinal = 0; ///< From 1, since the host was made.
    bool hasOutValues = false;
    bool struck = false; ///< A fault made it fail.

    std::string Text() const;
};

enum class SuiteTraffic
{
    included,
    leftOut ///< Without AcquireSuite and ReleaseSuite.
};

class CallTrace
{
public:
    /// 0 keeps everything.
    explicit CallTrace(std::size_t limit);

    /// Puts the call at the end and gives its ordinal.
    std::size_t Begin(CallRecord record);
    void End(std::size_t ordinal, A_Err error, std::string answers, bool struck = false);

    const std::vector<CallRecord>& Records() const { return records; }
    std::vector<std::string> Texts(SuiteTraffic traffic) const;
    void Clear() { records.clear(); }
    /// Lets go of the calls, and of the room that most of them together needed.
    void ClearWithRoom() { std::vector<CallRecord>().swap(records); }
    /// All calls since the host was made, also those that were cleared.
    std::size_t Count() const { return count; }

private:
    std::size_t limit;
    std::size_t count = 0;
    std::vector<CallRecord> records;
};

/// Whether a call, by its text, does more to the project than look at it.
bool DoesWork(const std::string& call);
} // namespace standin
