// "AEGP Utility Suite" 3, 7 and 11: alerts and undo groups. "PF AE App Suite" 6: the colour of the
// host's own interface.

#include <algorithm>

#include "standin/host/core/StackChanges.h"
#include "standin/host/suites/Entry.h"
#include "standin/host/suites/Resolve.h"
#include "standin/host/suites/Suites.h"

namespace standin
{
namespace
{
/// One alert is open at a time, and none where no hook of the ordinary kind runs.
void waitForAnswer(HostParts& parts)
{
    const bool waits = parts.options.alertReturn == AlertReturn::isWhenAnswered &&
                       parts.plugins.openDialogs == 0 && parts.sensors.hookKind == HookKind::ordinary;
    if (!waits)
        return;
    parts.host.OpenDialog();
    for (int pass = 0; pass < parts.options.alertLength; ++pass)
        (void)parts.host.RunIdle();
    parts.host.CloseDialog();
}

A_Err reportInfo(HostParts& parts, PluginArg id, TextArg<char> text)
{
    if (!CheckPlugin(parts, id.value))
        return errParameter;
    parts.plugins.alerts.push_back({id.value, text.Text()});
    waitForAnswer(parts);
    return errNone;
}

A_Err getInitFuncVersion(HostParts&, OutNumber<A_short> major, OutNumber<A_short> minor)
{
    *major.value = 114;
    *minor.value = 0;
    return errNone;
}

A_Err startUndoGroup(HostParts& parts, NullableTextArg name)
{
    if (name.value == nullptr)
    {
        parts.sensors.Report(finding::nullUndoName, "A null name crashes newer hosts.");
        return errParameter;
    }
    if (parts.history.OpenGroups() > parts.history.excusedLevels)
        parts.sensors.Report(finding::nestedUndoGroup,
                             "The undo group \"" + parts.history.OpenName() + "\" is still open.");
    parts.history.StartGroup(name.Text(), parts.project.state, parts.sensors.running.back().head);
    return errNone;
}

A_Err endUndoGroup(HostParts& parts)
{
    if (parts.history.OpenGroups() == 1 && parts.history.IsOpenGroupEmpty(parts.project.state))
        parts.sensors.Report(finding::emptyUndoGroup,
                             "Nothing is in the undo group \"" + parts.history.OpenName() + "\".");
    if (parts.history.EndGroup(parts.project.state))
    {
        parts.history.excusedLevels = std::min(parts.history.excusedLevels, parts.history.OpenGroups());
        return errNone;
    }
    parts.sensors.Report(finding::undoGroupMismatch, "No undo group is open.");
    return errGeneric;
}

A_Err excuseEnd(HostParts& parts)
{
    if (parts.history.excusedLevels < parts.history.OpenGroups())
        ++parts.history.excusedLevels;
    return errNone;
}

template <int startSlot, SuiteId suite, int slotCount>
SuiteDescription describeUtility(SuiteBuilder<suite, slotCount> builder)
{
    return builder.template Slot<0, reportInfo>("AEGP_ReportInfo", Access::writesHost)
        .template Slot<1, getInitFuncVersion>("AEGP_GetDriverPluginInitFuncVersion", Access::reads)
        .template Slot<startSlot, startUndoGroup>("AEGP_StartUndoGroup", Access::writesHost)
        .template Slot<startSlot + 1, endUndoGroup, excuseEnd>("AEGP_EndUndoGroup", Access::writesHost)
        .Done();
}

A_Err getBgColor(HostParts& parts, OutColour colour)
{
    *colour.value = parts.plugins.background;
    return errNone;
}
} // namespace

SuiteDescription DescribeUtilitySuite3()
{
    return describeUtility<5>(
        SuiteBuilder<SuiteId::utility3, 9>("AEGP Utility Suite", 3, "AEGP_UtilitySuite1"));
}

SuiteDescription DescribeUtilitySuite7()
{
    return describeUtility<5>(
        SuiteBuilder<SuiteId::utility7, 25>("AEGP Utility Suite", 7, "AEGP_UtilitySuite3"));
}

SuiteDescription DescribeUtilitySuite11()
{
    return describeUtility<6>(
        SuiteBuilder<SuiteId::utility11, 31>("AEGP Utility Suite", 11, "AEGP_UtilitySuite5"));
}

SuiteDescription DescribeAppSuite()
{
    return SuiteBuilder<SuiteId::app6, 11>("PF AE App Suite", 6, "PFAppSuite4")
        .Slot<0, getBgColor>("PF_AppGetBgColor", Access::reads)
        .Done();
}
} // namespace standin
