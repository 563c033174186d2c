#include "standin/host/suites/CallScope.h"

#include <cstdio>

#include "standin/host/sensors/FindingIds.h"

namespace standin
{
namespace
{
/// The host whose thread this is. Null, with a finding where there is somebody to take it, otherwise.
HostParts* hostForCall(const std::string& callee, const std::string& function)
{
    Host* host = Host::Current();
    if (host == nullptr)
    {
        std::fprintf(stderr, "stand-in: %s was called while no host lives\n", callee.c_str());
        return nullptr;
    }
    if (PartsOf(*host).thread == std::this_thread::get_id())
        return &PartsOf(*host);
    PartsOf(*host).sensors.findings.Add({finding::wrongThread,
                                         "The call came from a thread that is not the host's main one.",
                                         callee + "(...)", function, ""});
    return nullptr;
}
} // namespace

CallScope::CallScope(SuiteId suiteId, int slotNumber)
    : suite(DescriptionOf(suiteId)),
      slot(*suite.FindSlot(slotNumber)),
      parts(hostForCall(suite.ShortName() + " " + slot.function, slot.function))
{
}

CallScope::~CallScope()
{
    if (!begun)
        return;
    parts->sensors.trace.End(parts->sensors.running.back().ordinal, error, answers, WasStruck());
    parts->sensors.running.pop_back();
}

void CallScope::Begin(const std::string& arguments, bool hasOutValues)
{
    CallRecord record;
    record.hasOutValues = hasOutValues;
    record.suite = suite.name;
    record.version = suite.version;
    record.slot = slot.slot;
    record.function = slot.function;
    record.head = suite.ShortName() + " " + slot.function + "(" + arguments + ")";
    const std::string head = record.head;
    parts->sensors.running.push_back({parts->sensors.trace.Begin(std::move(record)), slot.function, head});
    parts->sensors.suites.Used(suite.name, suite.version);
    if (slot.access == Access::writesProject)
        parts->history.NoteWrite();
    begun = true;
}

bool CallScope::MayProceed()
{
    const std::optional<FailedCall> fault =
        parts->sensors.faults.Strike({suite.name, suite.version, slot.function});
    if (parts->sensors.hookDepth == 0)
    {
        parts->sensors.Report(finding::outsideHook, "The call came while the host was running no hook.");
        parts->plugins.Alarm("internal verification failure: no current context");
        error = errGeneric;
    }
    else if (!suite.name.empty() && parts->sensors.suites.Count(suite.name, suite.version) == 0)
    {
        parts->sensors.Report(finding::releasedTable,
                              "Nobody holds the suite: its last holder has released it.");
        error = errNotImplemented;
    }
    else if (fault)
    {
        struck = fault;
        error = fault->error;
        // What the fault has kept the caller from cannot be held against it.
        parts->history.NoteWrite();
    }
    else if (parts->sensors.hookKind == HookKind::death &&
             parts->options.suitesAtDeath == SuitesAtDeath::fail)
        error = errGeneric;
    return error == errNone && !struck;
}

void CallScope::IdleIfDue()
{
    if (parts->sensors.idles.IsIdling() || parts->sensors.hookDepth == 0 ||
        parts->sensors.hookKind != HookKind::ordinary)
        return;
    const bool isDue = parts->sensors.idles.IsDue({suite.name, suite.version, slot.function});
    if (!isDue && parts->options.idleInCalls == IdleInCalls::never)
        return;
    parts->sensors.idles.Begin();
    (void)parts->host.RunIdle();
    parts->sensors.idles.End();
}

A_Err SpringTrap(SuiteId suiteId, int slot)
{
    const SuiteDescription& suite = DescriptionOf(suiteId);
    const std::string callee = suite.ShortName() + " slot " + std::to_string(slot);
    if (HostParts* parts = hostForCall(callee, callee))
        parts->sensors.findings.Add({finding::reservedSlot,
                                     "Slot " + std::to_string(slot) + " of \"" + suite.name + "\" version " +
                                         std::to_string(suite.version) + " is reserved and was called.",
                                     callee, callee, ""});
    return errNotImplemented;
}

A_Err SpringPoison()
{
    if (HostParts* parts = hostForCall("poisoned slot", "poisoned slot"))
        parts->sensors.Report(finding::poisonedTable,
                              "A function was called in a table whose acquire had failed.");
    return errNotImplemented;
}

const void* PoisonTable()
{
    static const std::vector<AnyFunction> table(40, reinterpret_cast<AnyFunction>(&SpringPoison));
    return table.data();
}
} // namespace standin
