#include "standin/core/HookCalls.h"

#include <exception>

#include "standin/core/StackChanges.h"
#include "standin/sensors/FindingIds.h"

namespace standin
{
namespace
{
HookResult catchAll(const std::function<A_Err()>& body)
{
    HookResult result;
    try
    {
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
    for (const Reference& reference : parts.references.ExpireFrom(hookDepth))
    {
        ++parts.leakedReferences;
        const bool isEffect = reference.kind == ReferenceKind::effect;
        const std::string suffix =
            reference.kind == ReferenceKind::parameterStream ? "." + std::to_string(reference.parameter) : "";
        Finding finding;
        finding.id = finding::leakedReference;
        finding.sentence = std::string("The reference to ") + (isEffect ? "effect " : "stream ") +
                           parts.LabelOf(reference.owner) + suffix +
                           " was not disposed of when the hook returned.";
        for (const CallRecord& record : parts.trace.Records())
        {
            if (record.ordinal != reference.ordinal)
                continue;
            finding.call = record.Text();
            finding.function = record.function;
        }
        parts.findings.Add(std::move(finding));
    }
}

void reportThrown(HostParts& parts, const HookResult& result)
{
    if (result.thrown.empty())
        return;
    Finding finding;
    finding.id = finding::exceptionLeftHook;
    finding.sentence = "A hook was left by " + result.thrown + ".";
    parts.findings.Add(std::move(finding));
}
} // namespace

HookResult RunHook(HostParts& parts, HookKind kind, const std::function<A_Err()>& body)
{
    const HookKind outer = parts.hookKind;
    parts.hookKind = kind;
    const int depth = ++parts.hookDepth;
    HookResult result = catchAll(body);
    reportThrown(parts, result);
    reportLeaks(parts, depth);
    if (depth == 1)
        CloseUndoGroups(parts, "the hook returns");
    --parts.hookDepth;
    parts.hookKind = outer;
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
    parts.provider->DestroyContainer(panel.container);
    panel.container = nullptr;
}

HookResult ChangePanelState(HostParts& parts, Panel& panel, PanelState state)
{
    HookResult result;
    if (state != PanelState::absent && panel.container == nullptr)
    {
        panel.container = parts.provider->MakeContainer(panel.matchName);
        panel.handle = reinterpret_cast<PanelH>(&panel);
        panel.functions = {};
        panel.panelRefcon = nullptr;
        ++panel.created;
        result = RunHook(parts, HookKind::ordinary,
                         [&]
                         {
                             return panel.hook(parts.hooks.globalRefcons[panel.pluginId], panel.refcon,
                                               panel.container, panel.handle, &panel.functions,
                                               &panel.panelRefcon);
                         });
    }
    panel.state = state;
    if (panel.container != nullptr)
        parts.provider->ShowContainer(panel.container, state == PanelState::frontmost ? Visibility::visible
                                                                                      : Visibility::hidden);
    if (state == PanelState::absent && parts.options.closedPanel == ClosedPanel::destroysView)
        DestroyContainer(parts, panel);
    return result;
}
} // namespace standin
