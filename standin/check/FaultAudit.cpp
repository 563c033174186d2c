#include "standin/check/FaultAudit.h"

#include "standin/host/sensors/FindingIds.h"

#include <algorithm>
#include <optional>
#include <set>

namespace standin::check
{
namespace
{
constexpr int missingSuite = 516;

/// An undo group as the trace shows it, up to its end, the next start, or the end of the run.
struct UndoChain
{
    std::string name;
    bool ended = false;
    bool endRefused = false; ///< The host was asked to end it, and a fault refused.
    bool reorders = false;
    std::optional<std::string> failed; ///< The first call inside that failed.
};

bool isAcquireThatFailed(const CallRecord& call)
{
    return call.function == "AcquireSuite" && call.error != errNone;
}

/// Failures that a chain looks at. The others' results are dropped on purpose.
bool isLookedAt(const CallRecord& call)
{
    return call.error != errNone && call.function != "AEGP_DeleteLayerEffect" &&
           call.function != "ReleaseSuite" && call.function.find("Dispose") == std::string::npos;
}

std::string nameInQuotes(const std::string& head)
{
    const std::size_t begin = head.find('"');
    const std::size_t end = head.rfind('"');
    return begin == std::string::npos ? "" : head.substr(begin + 1, end - begin - 1);
}

std::vector<UndoChain> chainsOf(const std::vector<CallRecord>& calls)
{
    std::vector<UndoChain> chains;
    bool inside = false;
    for (const CallRecord& call : calls)
    {
        if (call.function == "AEGP_StartUndoGroup")
        {
            inside = call.error == errNone;
            if (inside)
                chains.push_back({nameInQuotes(call.head), false, false, false, {}});
        }
        else if (inside && call.function == "AEGP_EndUndoGroup")
        {
            (call.error == errNone ? chains.back().ended : chains.back().endRefused) = true;
            inside = false;
        }
        else if (inside)
        {
            chains.back().reorders = chains.back().reorders || call.function == "AEGP_ReorderEffect";
            if (isLookedAt(call) && !chains.back().failed)
                chains.back().failed = call.Text();
        }
    }
    return chains;
}

/// Kept: the group of a rename, of a deletion, and of a hide or show ends only when all went well; the one
/// of the order ends in any case.
bool staysOpenAfterFailure(const UndoChain& chain)
{
    if (chain.name == "Rename Effect(s)" || chain.name == "Delete Effect(s)")
        return true;
    return chain.name.empty() && !chain.reorders;
}

void auditChains(Trial& trial, const std::vector<UndoChain>& chains, bool isSuiteMissing, FaultTally& tally)
{
    for (const UndoChain& chain : chains)
    {
        const std::string group = "the undo group \"" + chain.name + "\"";
        const bool mayStay = isSuiteMissing || chain.endRefused;
        if (chain.failed && staysOpenAfterFailure(chain))
        {
            trial.Require(!chain.ended, group + " was ended although this had failed: " + *chain.failed);
            ++tally.left;
        }
        else if (!mayStay)
            trial.Require(chain.ended, group + " was not ended" +
                                           (chain.failed ? " after this had failed: " + *chain.failed : ""));
    }
}

bool hasFailed(const std::vector<CallRecord>& calls, const std::set<std::string>& functions)
{
    return std::any_of(calls.begin(), calls.end(),
                       [&](const CallRecord& call)
                       { return call.error != errNone && functions.count(call.function) != 0; });
}

/// What a fault can bring about, beside what it does by itself.
struct Consequences
{
    bool suiteMissing = false;
    bool groupLeft = false;
    bool startRefused = false;
    bool readingFailed = false;
};

bool isKept(const Finding& finding, const Consequences& is)
{
    // An effect whose reference could not be had is still asked for its name, and still moved and deleted.
    if (finding.id == finding::nullReference)
        return finding.function == "AEGP_GetInstalledKeyFromLayerEffect" ||
               finding.function == "AEGP_ReorderEffect" || finding.function == "AEGP_DeleteLayerEffect";
    if (finding.id == finding::unknownKey)
        return finding.function == "AEGP_GetEffectMatchName";
    if (finding.id == finding::undoGroupLeftOpen)
        return is.groupLeft || is.suiteMissing;
    // The next group of the pass is opened inside the one that was left.
    if (finding.id == finding::nestedUndoGroup)
        return is.groupLeft;
    // Where the identities could not be read there is no order to write.
    if (finding.id == finding::emptyUndoGroup)
        return is.readingFailed;
    // The group of the order is ended whatever became of its start.
    if (finding.id == finding::undoGroupMismatch)
        return is.startRefused;
    // What is disposed of through a suite that is missing cannot be.
    if (finding.id == finding::leakedReference || finding.id == finding::disposeOrder ||
        finding.id == finding::exceptionLeftHook)
        return is.suiteMissing;
    return false;
}
} // namespace

void AuditFaultyRun(Trial& trial, const FaultyRun& run, FaultTally& tally)
{
    ++tally.runs;
    tally.struck += std::any_of(run.calls.begin(), run.calls.end(),
                                [](const CallRecord& call) { return call.error != errNone; })
                        ? 1
                        : 0;
    const bool isSuiteMissing = std::any_of(run.calls.begin(), run.calls.end(), isAcquireThatFailed);
    for (const HookResult& result : run.results)
        if (!result.thrown.empty())
        {
            trial.Require(isSuiteMissing, "a hook was left by " + result.thrown);
            trial.RequireEqual(result.thrownNumber.value_or(0), missingSuite,
                               "the number that left a hook for want of a suite");
        }
    const int leftBefore = tally.left;
    auditChains(trial, chainsOf(run.calls), isSuiteMissing, tally);
    Consequences of;
    of.suiteMissing = isSuiteMissing;
    of.groupLeft = tally.left > leftBefore;
    of.startRefused = hasFailed(run.calls, {"AEGP_StartUndoGroup"});
    of.readingFailed =
        hasFailed(run.calls, {"AEGP_ConvertLayerToCompTime", "AEGP_GetLayerNumEffects",
                              "AEGP_GetLayerEffectByIndex", "AEGP_GetEffectFlags", "AEGP_EffectCallGeneric"});
    for (const Finding& finding : run.findings)
        trial.Require(isKept(finding, of), finding.Text());
}
} // namespace standin::check
