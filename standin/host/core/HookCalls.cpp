#include "standin/host/core/HookCalls.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <utility>

#include "standin/host/core/StackChanges.h"
#include "standin/host/sensors/AtWork.h"
#include "standin/host/sensors/FindingIds.h"

namespace standin
{
namespace
{
HookResult catchAll(const std::function<A_Err()>& body)
{
    HookResult result;
    try
    {
        const Working plugin(AtWork::plugin);
        result.error = body();
        return result;
    }
    catch (int number)
    {
        result.thrownNumber = number;
        result.thrown = "the integer " + std::to_string(number);
    }
    catch (const std::exception& exception)
    {
        result.thrown = std::string("an exception: ") + exception.what();
    }
    catch (...)
    {
        result.thrown = "something that is no exception";
    }
    result.error = errGeneric;
    return result;
}

void reportLeaks(HostParts& parts, int hookDepth)
{
    for (const Reference& reference : parts.sensors.references.ExpireFrom(hookDepth))
    {
        ++parts.sensors.leakedReferences;
        const bool isEffect = reference.kind == ReferenceKind::effect;
        const std::string suffix =
            reference.kind == ReferenceKind::parameterStream ? "." + std::to_string(reference.parameter) : "";
        Finding finding;
        finding.id = finding::leakedReference;
        finding.sentence = std::string("The reference to ") + (isEffect ? "effect " : "stream ") +
                           parts.project.LabelOf(reference.owner) + suffix +
                           " was not disposed of when the hook returned.";
        for (const CallRecord& record : parts.sensors.trace.Records())
        {
            if (record.ordinal != reference.ordinal)
                continue;
            finding.call = record.Text();
            finding.function = record.function;
        }
        parts.sensors.findings.Add(std::move(finding));
    }
}

void reportThrown(HostParts& parts, const HookResult& result)
{
    if (result.thrown.empty())
        return;
    Finding finding;
    finding.id = finding::exceptionLeftHook;
    finding.sentence = "A hook was left by " + result.thrown + ".";
    parts.sensors.findings.Add(std::move(finding));
}

void reportError(HostParts& parts, const HookCall& call, const HookResult& result)
{
    if (*call.name == '\0' || result.error == errNone || !result.thrown.empty())
        return;
    Finding finding;
    finding.id = finding::errorLeftHook;
    finding.sentence = std::string("The ") + call.name + " of plug-in " + std::to_string(call.pluginId) +
                       " returned the error " + std::to_string(result.error) + ".";
    finding.function = call.name;
    parts.sensors.findings.Add(std::move(finding));
}

/// What no slot was filled in gets the host's defaults; what only some were filled in was forgotten.
void reportPanelFunctions(HostParts& parts, const PanelFunctions& functions)
{
    void* const slots[] = {functions.getSnapSizes, functions.populateFlyout, functions.doFlyoutCommand};
    const auto unset = std::count(std::begin(slots), std::end(slots), nullptr);
    const bool isWell =
        unset == 0 || (unset == 3 && parts.options.unsetPanelFunctions == UnsetPanelFunctions::areDefaults);
    if (isWell)
        return;
    Finding finding;
    finding.id = finding::panelFunctions;
    finding.sentence =
        "The create panel hook has left " + std::to_string(unset) + " of the panel's three functions unset.";
    finding.function = finding.hook = "CreatePanelHook";
    parts.sensors.findings.Add(std::move(finding));
}
} // namespace

HookResult RunHook(HostParts& parts, const HookCall& call, const std::function<A_Err()>& body)
{
    const HookKind outerKind = std::exchange(parts.sensors.hookKind, call.kind);
    const A_long outerPlugin = std::exchange(parts.plugins.runningPlugin, call.pluginId);
    const std::string outerHook = parts.sensors.findings.SetHook(call.name);
    const int depth = ++parts.sensors.hookDepth;
    HookResult result = catchAll(body);
    reportThrown(parts, result);
    reportError(parts, call, result);
    reportLeaks(parts, depth);
    if (depth == 1)
        EndUndoGroupsOfHook(parts);
    --parts.sensors.hookDepth;
    (void)parts.sensors.findings.SetHook(outerHook);
    parts.plugins.runningPlugin = outerPlugin;
    parts.sensors.hookKind = outerKind;
    return result;
}

HookResult FirstBad(const HookResult& first, const HookResult& second)
{
    return first.error != errNone || !first.thrown.empty() ? first : second;
}

void DestroyContainer(HostParts& parts, Panel& panel)
{
    if (panel.container == nullptr)
        return;
    parts.plugins.provider->DestroyContainer(panel.container);
    panel.container = nullptr;
}

HookResult ChangePanelState(HostParts& parts, Panel& panel, PanelState state)
{
    HookResult result;
    if (state != PanelState::absent && panel.container == nullptr)
    {
        panel.container = parts.plugins.provider->MakeContainer(panel.matchName);
        panel.handle = reinterpret_cast<PanelH>(&panel);
        panel.functions = {};
        panel.formerRefcons.push_back(std::exchange(panel.panelRefcon, nullptr));
        ++panel.created;
        result = RunHook(parts, {HookKind::ordinary, panel.pluginId, "CreatePanelHook"},
                         [&]
                         {
                             return panel.hook(parts.plugins.hooks.globalRefcons[panel.pluginId],
                                               panel.refcon, panel.container, panel.handle, &panel.functions,
                                               &panel.panelRefcon);
                         });
        reportPanelFunctions(parts, panel.functions);
    }
    panel.state = state;
    if (panel.container != nullptr)
        parts.plugins.provider->ShowContainer(
            panel.container, state == PanelState::frontmost ? Visibility::visible : Visibility::hidden);
    if (state == PanelState::absent && parts.options.closedPanel == ClosedPanel::destroysView)
        DestroyContainer(parts, panel);
    return result;
}
} // namespace standin
