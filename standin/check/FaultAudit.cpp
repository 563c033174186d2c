#include "standin/check/FaultAudit.h"

#include "standin/host/sensors/FindingIds.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>

namespace standin::check
{
namespace
{
constexpr int missingSuite = 516;
constexpr int missingPanelSuite = 13;
constexpr const char* outOfMemory = "an exception: std::bad_alloc";

/// An undo group as the trace shows it, up to its end, the next start, or the end of the run.
struct UndoChain
{
    std::string name;
    bool ended = false;
    bool endRefused = false; ///< The host was asked to end it, and a fault refused.
    bool reorders = false;
    std::optional<std::string> failed; ///< The first call inside that failed.
};

/// A fault may let a call say that all went well.
bool hasGoneWrong(const CallRecord& call) { return call.error != errNone || call.struck; }

bool isAcquireThatFailed(const CallRecord& call)
{
    return call.function == "AcquireSuite" && hasGoneWrong(call);
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

/// What is thrown for want of the suite that was missing last.
int numberFor(const std::vector<CallRecord>& calls)
{
    const auto missing = std::find_if(calls.rbegin(), calls.rend(), isAcquireThatFailed);
    const bool isPanelSuite =
        missing != calls.rend() && missing->head.find("\"AEGP Workspace Panel Suite\"") != std::string::npos;
    return isPanelSuite ? missingPanelSuite : missingSuite;
}

bool hasFailed(const std::vector<CallRecord>& calls, const std::set<std::string>& functions)
{
    return std::any_of(calls.begin(), calls.end(),
                       [&](const CallRecord& call)
                       { return hasGoneWrong(call) && functions.count(call.function) != 0; });
}

/// What a fault can cause besides its direct effect.
struct Consequences
{
    OutValues outs = OutValues::untouched;
    std::set<std::string> struck; ///< The functions, and of the basic suite the calls.
    bool suiteMissing = false;
    bool isOutOfMemory = false;
    bool groupLeft = false;
    bool startRefused = false;
    bool readingFailed = false;
};

/// Whose first call with the answer of the struck function the host refuses.
struct Refusal
{
    const char* struck;
    std::optional<OutValues> outs; ///< None for any.
    const char* finding;
    const char* function; ///< Empty for any.
};

constexpr const char* utilityForAlerts = "Basic AcquireSuite(\"AEGP Utility Suite\", 11)";

/// An answer of null that comes with no error is used. So is a handle that comes with an error, for its
/// disposal, and where the error is not looked at.
const Refusal refusals[] = {
    {"AEGP_GetLayerEffectByIndex", OutValues::null, finding::nullReference, "AEGP_GetEffectFlags"},
    {"AEGP_GetLayerEffectByIndex", OutValues::null, finding::nullReference, "AEGP_SetEffectFlags"},
    {"AEGP_GetLayerEffectByIndex", OutValues::null, finding::nullReference, "AEGP_GetNewEffectStreamByIndex"},
    {"AEGP_GetNewEffectStreamByIndex", OutValues::null, finding::nullReference, "AEGP_GetNewParentStreamRef"},
    {"AEGP_GetNewEffectStreamByIndex", OutValues::null, finding::nullReference, "AEGP_GetDynamicStreamFlags"},
    {"AEGP_GetNewParentStreamRef", OutValues::null, finding::nullReference, "AEGP_GetStreamName"},
    {"AEGP_GetNewParentStreamRef", OutValues::null, finding::nullReference, "AEGP_SetStreamName"},
    {"AEGP_GetNewParentStreamRef", OutValues::null, finding::nullReference, "AEGP_SetDynamicStreamFlag"},
    {"AEGP_GetInstalledKeyFromLayerEffect", OutValues::null, finding::unknownKey, "AEGP_GetEffectMatchName"},
    {"AEGP_ConvertLayerToCompTime", OutValues::null, finding::timeScale, "AEGP_EffectCallGeneric"},
    {"AEGP_GetUniqueCommand", std::nullopt, finding::unknownCommand, ""},

    // The start looks at no error of the calls that register, and so a menu entry or a panel that the host
    // has refused is used all the same: each pass asks about it, and the menus' update enables it.
    {"AEGP_InsertMenuCommand", OutValues::untouched, finding::unknownCommand, "AEGP_CheckMarkMenuCommand"},
    {"AEGP_InsertMenuCommand", OutValues::untouched, finding::unknownCommand, "AEGP_EnableCommand"},
    {"AEGP_RegisterCreatePanelHook", OutValues::untouched, finding::unknownPanel, "AEGP_IsShown"},

    {"AEGP_GetLayerEffectByIndex", OutValues::garbage, finding::foreignReference, "AEGP_DisposeEffect"},
    {"AEGP_GetLayerEffectByIndex", OutValues::garbage, finding::foreignReference, "AEGP_ReorderEffect"},
    {"AEGP_GetLayerEffectByIndex", OutValues::garbage, finding::foreignReference, "AEGP_DeleteLayerEffect"},
    {"AEGP_GetLayerEffectByIndex", OutValues::garbage, finding::foreignReference,
     "AEGP_GetInstalledKeyFromLayerEffect"},
    {"AEGP_ApplyEffect", OutValues::garbage, finding::foreignReference, "AEGP_DisposeEffect"},
    {"AEGP_GetNewEffectStreamByIndex", OutValues::garbage, finding::foreignReference, "AEGP_DisposeStream"},
    {"AEGP_GetNewParentStreamRef", OutValues::garbage, finding::foreignReference, "AEGP_DisposeStream"},
    {"AEGP_GetLayerNumEffects", OutValues::garbage, finding::indexOutOfRange, "AEGP_GetLayerEffectByIndex"},
    {"AEGP_GetActiveItem", OutValues::garbage, finding::foreignReference, "AEGP_GetItemID"},
    {"AEGP_GetActiveLayer", OutValues::garbage, finding::foreignReference, ""},

    // A full idle queue looks at the pointer and not at the error, and releases what it could not get.
    {utilityForAlerts, OutValues::garbage, finding::poisonedTable, ""},
    {utilityForAlerts, std::nullopt, finding::overReleasedSuite, "ReleaseSuite"},

    // The entry point of the idle suite returns the first error.
    {"AEGP_RegisterIdleHook", std::nullopt, finding::errorLeftHook, ""},
    {R"(Basic ReleaseSuite("AEGP Register Suite", 6))", std::nullopt, finding::errorLeftHook, ""},
    {R"(Basic ReleaseSuite("AEGP Utility Suite", 7))", std::nullopt, finding::errorLeftHook, ""},
};

bool isRefusal(const Finding& finding, const Consequences& is)
{
    return std::any_of(std::begin(refusals), std::end(refusals),
                       [&](const Refusal& row)
                       {
                           return is.struck.count(row.struck) != 0 && (!row.outs || *row.outs == is.outs) &&
                                  finding.id == row.finding &&
                                  (*row.function == '\0' || finding.function == row.function);
                       });
}

bool isKept(const Finding& finding, const Consequences& is)
{
    if (isRefusal(finding, is))
        return true;
    if (is.isOutOfMemory &&
        (finding.id == finding::exceptionLeftHook || finding.id == finding::undoGroupLeftOpen))
        return true;
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
    // Where the identities could not be read, or the tree was emptied, there is no order to write.
    if (finding.id == finding::emptyUndoGroup)
        return is.readingFailed || is.isOutOfMemory;
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
                                [](const CallRecord& call) { return hasGoneWrong(call); })
                        ? 1
                        : 0;
    const bool isSuiteMissing = std::any_of(run.calls.begin(), run.calls.end(), isAcquireThatFailed);
    for (const HookResult& result : run.results)
        if (!result.thrown.empty() && !(run.isOutOfMemory && result.thrown == outOfMemory))
        {
            trial.Require(isSuiteMissing, "a hook was left by " + result.thrown);
            trial.RequireEqual(result.thrownNumber.value_or(0), numberFor(run.calls),
                               "the number that left a hook for want of a suite");
        }
    const int leftBefore = tally.left;
    // Both end the pass where it stands.
    auditChains(trial, chainsOf(run.calls), isSuiteMissing || run.isOutOfMemory, tally);
    Consequences of;
    of.isOutOfMemory = run.isOutOfMemory;
    of.outs = run.how.outs;
    for (const CallRecord& call : run.calls)
        if (call.struck)
            of.struck.insert(call.suite.empty() ? call.head : call.function);
    of.suiteMissing = isSuiteMissing;
    of.groupLeft = tally.left > leftBefore;
    of.startRefused = hasFailed(run.calls, {"AEGP_StartUndoGroup"});
    of.readingFailed =
        hasFailed(run.calls, {"AEGP_IsShown", "AEGP_GetActiveItem", "AEGP_GetActiveLayer",
                              "AEGP_ConvertLayerToCompTime", "AEGP_GetLayerNumEffects",
                              "AEGP_GetLayerEffectByIndex", "AEGP_GetEffectFlags", "AEGP_EffectCallGeneric"});
    for (const Finding& finding : run.findings)
        trial.Require(isKept(finding, of), finding.Text());
    AuditProject(trial, run, tally);
}

void AuditProject(Trial& trial, const FaultyRun& run, FaultTally& tally)
{
    const ProjectFates fates = JudgeProject(run.project, run.calls, run.isOutOfMemory);
    trial.Require(fates.violation.empty(), fates.violation);
    for (const Allowance* row : fates.needed)
        ++tally.allowed[row];
}
} // namespace standin::check
