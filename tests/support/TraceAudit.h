#pragma once
// The rules that a sweep of faults checks a trace against: a chain of calls with an undo group goes exactly
// as far as its first error, what was taken is disposed of in the fixed order, and these findings follow from
// what was missing.

#include "standin/host/sensors/CallTrace.h"

#include <string>
#include <vector>

namespace standin
{
/// The calls of one kind of chain after the start of its undo group, as the trace begins their lines:
/// "Utility 3 AEGP_EndUndoGroup". The last one closes the group.
using ChainSteps = std::vector<std::string>;

struct TraceAudit
{
    /// What is wrong with the trace; empty if nothing is.
    std::string violation;
    int chains = 0;            ///< Undo groups that were opened.
    int leftOpen = 0;          ///< Those that an error left open before their last call was reached.
    bool suiteMissing = false; ///< An acquire failed, so that 516 is on its way to the host.
    /// The findings about references that had to be kept because their disposing suite was missing: id and
    /// function, sorted.
    std::vector<std::string> referenceFindings;
    /// The same about undo groups that were opened inside one that an error had left open, or with nothing in
    /// them since an error before had left nothing to do.
    std::vector<std::string> groupFindings;
};

/// Looks at every chain whose undo group is called `groupName` and whose calls are one of `kinds`.
TraceAudit AuditTrace(const std::vector<CallRecord>& records, const std::string& groupName,
                      const std::vector<ChainSteps>& kinds);

/// Whether the trace line of the record begins with `start`.
bool Begins(const CallRecord& record, const std::string& start);
} // namespace standin
