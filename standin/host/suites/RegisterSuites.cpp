// "AEGP Register Suite" 6, "AEGP Workspace Panel Suite" 1 and "SP Suites Suite" 2: what a plug-in
// registers and publishes, and its panels.

#include "standin/host/core/HookCalls.h"
#include "standin/host/suites/Entry.h"
#include "standin/host/suites/Resolve.h"
#include "standin/host/suites/Suites.h"

namespace standin
{
namespace
{
/// Registering is for the entry point alone, under an id that the host knows.
bool mayRegister(HostParts& parts, A_long pluginId)
{
    if (parts.sensors.hookKind != HookKind::entryPoint)
        parts.sensors.Report(finding::outsideEntryPoint, "Hooks are registered in the entry point only.");
    return CheckPlugin(parts, pluginId) && parts.sensors.hookKind == HookKind::entryPoint;
}

template <class List, class Hook>
A_Err addHook(HostParts& parts, List& list, A_long pluginId, Hook hook, void* refcon, A_long command = 0,
              A_u_long priority = 0)
{
    if (!mayRegister(parts, pluginId))
        return errParameter;
    list.push_back({pluginId, hook, refcon, command, priority});
    return errNone;
}

A_Err registerCommandHook(HostParts& parts, PluginArg id, NumberArg<A_u_long> priority,
                          NumberArg<A_long> command, KeptArg<CommandHook> hook, KeptArg<void*> refcon)
{
    if (!parts.plugins.menus.MayBeHooked(command.value))
    {
        parts.sensors.Report(finding::unknownCommand,
                             "The command " + std::to_string(command.value) + " was never handed out.");
        return errParameter;
    }
    return addHook(parts, parts.plugins.hooks.command, id.value, hook.value, refcon.value, command.value,
                   priority.value);
}

A_Err registerUpdateMenuHook(HostParts& parts, PluginArg id, KeptArg<UpdateMenuHook> hook,
                             KeptArg<void*> refcon)
{
    return addHook(parts, parts.plugins.hooks.updateMenu, id.value, hook.value, refcon.value);
}

A_Err registerDeathHook(HostParts& parts, PluginArg id, KeptArg<DeathHook> hook, KeptArg<void*> refcon)
{
    return addHook(parts, parts.plugins.hooks.death, id.value, hook.value, refcon.value);
}

A_Err registerIdleHook(HostParts& parts, PluginArg id, KeptArg<IdleHook> hook, KeptArg<void*> refcon)
{
    return addHook(parts, parts.plugins.hooks.idle, id.value, hook.value, refcon.value);
}

using PanelName = TextArg<A_u_char>;

Panel* findPanel(HostParts& parts, PanelName name)
{
    Panel* panel = parts.plugins.panels.Find(name.Text());
    if (panel == nullptr)
        parts.sensors.Report(finding::unknownPanel, "No panel is registered under this name.");
    return panel;
}

A_Err registerCreatePanelHook(HostParts& parts, PluginArg id, PanelName name, KeptArg<CreatePanelHook> hook,
                              KeptArg<void*> refcon, NumberArg<A_Boolean> paintBackground)
{
    if (!mayRegister(parts, id.value) || parts.plugins.panels.Find(name.Text()) != nullptr)
        return errParameter;
    Panel panel;
    panel.pluginId = id.value;
    panel.matchName = panel.title = name.Text();
    panel.hook = hook.value;
    panel.refcon = refcon.value;
    panel.paintBackground = paintBackground.value != 0;
    parts.plugins.panels.Add(panel);
    return errNone;
}

A_Err toggleVisibility(HostParts& parts, PanelName name)
{
    Panel* panel = findPanel(parts, name);
    if (panel == nullptr)
        return errParameter;
    const bool close = panel->state == PanelState::frontmost;
    return ChangePanelState(parts, *panel, close ? PanelState::absent : PanelState::frontmost).error;
}

A_Err isShown(HostParts& parts, PanelName name, OutNumber<A_Boolean> tabIsShown,
              OutNumber<A_Boolean> isFrontmost)
{
    if (findPanel(parts, name) == nullptr)
        return errParameter;
    const PanelState state = parts.plugins.panels.StateOf(name.Text());
    const bool behindCounts = parts.options.tabBehind == TabBehind::isShown;
    const bool frontmost = state == PanelState::frontmost;
    *tabIsShown.value = frontmost || (behindCounts && state == PanelState::behind) ? 1 : 0;
    *isFrontmost.value = frontmost ? 1 : 0;
    return errNone;
}

A_Err addSuite(HostParts& parts, KeptArg<void*>, KeptArg<void*>, TextArg<char> name,
               NumberArg<A_long> version, NumberArg<A_long> internalVersion, KeptArg<const void*> table,
               OutPointer out)
{
    if (internalVersion.value < 1)
        return errBadInternalVersion;
    const std::pair<std::string, A_long> key{name.Text(), version.value};
    if (FindSuite(key.first, key.second) != nullptr || parts.plugins.published.count(key) != 0)
    {
        parts.sensors.Report(finding::duplicateSuite, "A suite of this name and version exists already.");
        return errSuiteExists;
    }
    parts.plugins.published[key] = {table.value, parts.plugins.runningPlugin};
    *out.value = &parts.plugins.published.find(key)->second;
    return errNone;
}
} // namespace

SuiteDescription DescribeRegisterSuite()
{
    return SuiteBuilder<SuiteId::register6, 12>("AEGP Register Suite", 6, "AEGP_RegisterSuite5")
        .Slot<0, registerCommandHook>("AEGP_RegisterCommandHook", Access::writesHost)
        .Slot<1, registerUpdateMenuHook>("AEGP_RegisterUpdateMenuHook", Access::writesHost)
        .Slot<2, registerDeathHook>("AEGP_RegisterDeathHook", Access::writesHost)
        .Slot<8, registerIdleHook>("AEGP_RegisterIdleHook", Access::writesHost)
        .Done();
}

SuiteDescription DescribePanelSuite()
{
    return SuiteBuilder<SuiteId::panel1, 5>("AEGP Workspace Panel Suite", 1, "AEGP_PanelSuite1")
        .Slot<0, registerCreatePanelHook>("AEGP_RegisterCreatePanelHook", Access::writesHost)
        .Slot<3, toggleVisibility>("AEGP_ToggleVisibility", Access::runsHooks)
        .Slot<4, isShown>("AEGP_IsShown", Access::reads)
        .Done();
}

SuiteDescription DescribeSuitesSuite()
{
    return SuiteBuilder<SuiteId::suites2, 14>("SP Suites Suite", 2, "SPSuitesSuite")
        .Slot<2, addSuite>("AddSuite", Access::writesHost)
        .Done();
}
} // namespace standin
