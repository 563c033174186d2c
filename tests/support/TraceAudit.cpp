#include "tests/support/TraceAudit.h"

#include <algorithm>
#include <set>

namespace standin
{

namespace
{
constexpr const char* endCall = "Utility 3 AEGP_EndUndoGroup";

bool isTraffic(const CallRecord& record) { return Begins(record, "Basic "); }

/// One walk over the records.
class Walk
{
public:
    Walk(const std::vector<CallRecord>& all, TraceAudit& result) : records(all), audit(result) {}

    /// The next call that is no suite traffic; null at the end, or if the next acquire failed.
    const CallRecord* Peek()
    {
        while (next < records.size() && isTraffic(records[next]))
        {
            if (Begins(records[next], "Basic AcquireSuite") && records[next].error != errNone)
                return nullptr;
            ++next;
        }
        return next < records.size() ? &records[next] : nullptr;
    }
    void Step() { ++next; }
    bool IsAtEnd() const { return next >= records.size(); }

    void Complain(const std::string& what)
    {
        if (!audit.violation.empty())
            return;
        audit.violation = what;
        if (next < records.size())
            audit.violation += " at: " + records[next].Text();
    }

private:
    const std::vector<CallRecord>& records;
    TraceAudit& audit;
    std::size_t next = 0;
};

bool isCallOf(const CallRecord& record, const std::string& function)
{
    return Begins(record, function + "(");
}

/// Whether some kind continues with this record after `taken` calls, all of which match the kind.
bool goesOn(const std::vector<ChainSteps>& kinds, const std::vector<const CallRecord*>& taken,
            const CallRecord& record)
{
    const auto agrees = [&](const ChainSteps& kind)
    {
        for (std::size_t i = 0; i < taken.size(); ++i)
            if (i >= kind.size() || !isCallOf(*taken[i], kind[i]))
                return false;
        return taken.size() < kind.size() && isCallOf(record, kind[taken.size()]);
    };
    return std::any_of(kinds.begin(), kinds.end(), agrees);
}

bool tookSuccessfully(const std::vector<const CallRecord*>& taken, const std::string& function)
{
    return std::any_of(taken.begin(), taken.end(),
                       [&](const CallRecord* record)
                       { return record->function == function && record->error == errNone; });
}

void walkDisposals(Walk& walk, const std::vector<const CallRecord*>& taken)
{
    std::vector<std::string> disposals;
    if (tookSuccessfully(taken, "AEGP_GetNewEffectStreamByIndex"))
        disposals.push_back("Stream 7 AEGP_DisposeStream");
    if (tookSuccessfully(taken, "AEGP_GetNewParentStreamRef"))
        disposals.push_back("Stream 7 AEGP_DisposeStream");
    if (tookSuccessfully(taken, "AEGP_GetLayerEffectByIndex"))
        disposals.push_back("Effect 1 AEGP_DisposeEffect");
    for (const std::string& disposal : disposals)
    {
        const CallRecord* record = walk.Peek();
        if (record == nullptr)
        {
            if (walk.IsAtEnd())
                walk.Complain("nothing is disposed of any more");
            return; // A suite is missing; the reference findings judge the rest.
        }
        if (!isCallOf(*record, disposal))
            return walk.Complain(disposal + " is expected");
        walk.Step();
    }
}

void walkChain(Walk& walk, const std::vector<ChainSteps>& kinds, TraceAudit& audit)
{
    ++audit.chains;
    std::vector<const CallRecord*> taken;
    bool failed = false;
    while (!failed && !(taken.size() > 0 && isCallOf(*taken.back(), endCall)))
    {
        const CallRecord* record = walk.Peek();
        if (record == nullptr)
            break;
        if (!goesOn(kinds, taken, *record))
            return walk.Complain("the chain does not go on like this");
        taken.push_back(record);
        failed = record->error != errNone;
        walk.Step();
    }
    const bool reachedTheEnd = !taken.empty() && isCallOf(*taken.back(), endCall);
    if (!reachedTheEnd)
        ++audit.leftOpen;
    if (!audit.suiteMissing || reachedTheEnd)
        walkDisposals(walk, taken);
}

/// What stands between the brackets.
std::string argumentOf(const CallRecord& record)
{
    const std::size_t bracket = record.head.find('(');
    return record.head.substr(bracket + 1, record.head.size() - bracket - 2);
}

/// Follows each reference from the function that gave it to its disposal.
void auditReferences(const std::vector<CallRecord>& records, TraceAudit& audit)
{
    std::vector<std::pair<std::string, std::string>> held; // What it is called, and by which function.
    std::set<std::string> missing;
    for (const CallRecord& record : records)
    {
        if (Begins(record, "Basic AcquireSuite") && record.error != errNone)
            missing.insert(record.head);
        const bool handsOut = record.function == "AEGP_GetLayerEffectByIndex" ||
                              record.function == "AEGP_GetNewEffectStreamByIndex" ||
                              record.function == "AEGP_GetNewParentStreamRef";
        if (handsOut && record.error == errNone)
            held.emplace_back(record.answers, record.function);
        if (record.function != "AEGP_DisposeEffect" && record.function != "AEGP_DisposeStream")
            continue;
        const auto disposed =
            std::find_if(held.begin(), held.end(),
                         [&](const auto& reference) { return reference.first == argumentOf(record); });
        if (disposed != held.end())
            held.erase(disposed);
        if (record.function == "AEGP_DisposeEffect" && record.error == errNone && !held.empty())
            audit.referenceFindings.push_back("dispose-order AEGP_DisposeEffect");
    }
    for (const auto& [what, function] : held)
    {
        const bool isStream = what.rfind("stream", 0) == 0;
        const bool excused = isStream ? missing.count("Basic AcquireSuite(\"AEGP Stream Suite\", 7)") != 0
                                      : missing.count("Basic AcquireSuite(\"AEGP Effect Suite\", 3)") != 0;
        if (!excused && audit.violation.empty())
            audit.violation = what + " is not disposed of though its suite was to be had";
        audit.referenceFindings.push_back("leaked-reference " + function);
    }
    std::sort(audit.referenceFindings.begin(), audit.referenceFindings.end());
}
bool asksForAChange(const CallRecord& record)
{
    const std::set<std::string> writes = {"AEGP_SetEffectFlags",       "AEGP_ReorderEffect",
                                          "AEGP_ApplyEffect",          "AEGP_DeleteLayerEffect",
                                          "AEGP_SetDynamicStreamFlag", "AEGP_SetStreamName"};
    return record.error != errNone || writes.count(record.function) != 0;
}

/// A group whose end was made to fail stays open without anybody's doing: `excused` of the `open` ones.
void auditGroups(const std::vector<CallRecord>& records, TraceAudit& audit)
{
    int open = 0;
    int excused = 0;
    bool isAsked = false;
    for (const CallRecord& record : records)
    {
        const bool isStart = record.function == "AEGP_StartUndoGroup" && record.error == errNone;
        const bool isEnd = record.function == "AEGP_EndUndoGroup";
        if (isStart && open > excused)
            audit.groupFindings.emplace_back("nested-undo-group AEGP_StartUndoGroup");
        if (isEnd && record.error == errNone && open == 1 && !isAsked)
            audit.groupFindings.emplace_back("empty-undo-group AEGP_EndUndoGroup");
        isAsked = (isAsked && !(isStart && open == 0)) || asksForAChange(record);
        open += isStart ? 1 : 0;
        open -= isEnd && record.error == errNone ? 1 : 0;
        excused = std::min(open, excused + (isEnd && record.error != errNone ? 1 : 0));
    }
}
} // namespace

bool Begins(const CallRecord& record, const std::string& start) { return record.head.rfind(start, 0) == 0; }

TraceAudit AuditTrace(const std::vector<CallRecord>& records, const std::string& groupName,
                      const std::vector<ChainSteps>& kinds)
{
    TraceAudit audit;
    for (const CallRecord& record : records)
        audit.suiteMissing |= Begins(record, "Basic AcquireSuite") && record.error != errNone;
    const std::string start = "Utility 3 AEGP_StartUndoGroup(\"" + groupName + "\")";
    Walk walk(records, audit);
    while (const CallRecord* record = walk.Peek())
    {
        walk.Step();
        if (Begins(*record, start) && record->error == errNone)
            walkChain(walk, kinds, audit);
    }
    auditReferences(records, audit);
    auditGroups(records, audit);
    return audit;
}
} // namespace standin
