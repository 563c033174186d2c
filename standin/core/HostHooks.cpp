// The part of Host that deals with plug-ins: their entry points, their hooks, menus and panels.

#include <algorithm>
#include <utility>

#include "standin/core/HookCalls.h"
#include "standin/core/Host.h"
#include "standin/core/HostParts.h"

namespace standin
{
namespace
{
void idleOfEffects(HostParts& parts)
{
    std::vector<int> effectIds;
    for (const Layer& layer : parts.project.layers)
        for (const EffectInstance& effect : layer.effects)
            effectIds.push_back(effect.id);
    for (const int effectId : effectIds)
    {
        const EffectInstance* effect = parts.project.FindEffect(effectId);
        if (effect == nullptr)
            continue;
        ++parts.runtimes[effectId].idles;
        parts.BehaviourOf(*effect).OnIdle({parts.host, effectId});
    }
}

HookResult oneIdlePass(HostParts& parts)
{
    HookResult worst;
    idleOfEffects(parts);
    for (const RegisteredHook<IdleHook>& hook : parts.hooks.idle)
    {
        A_long maxSleep = 2; // The host resets it before each call.
        worst = FirstBad(worst, RunHook(parts, HookKind::ordinary,
                                        [&] {
                                            return hook.hook(parts.hooks.globalRefcons[hook.pluginId],
                                                             hook.refcon, &maxSleep);
                                        }));
    }
    return worst;
}

/// True if a hook took the command.
bool runCommandHooks(HostParts& parts, A_long command)
{
    A_Boolean handled = 0;
    const std::vector<RegisteredHook<CommandHook>> hooks = parts.hooks.command;
    for (const RegisteredHook<CommandHook>& hook : hooks)
    {
        if (hook.command != 0 && hook.command != command)
            continue;
        const A_Boolean already = handled;
        (void)RunHook(parts, HookKind::ordinary,
                      [&]
                      {
                          return hook.hook(parts.hooks.globalRefcons[hook.pluginId], hook.refcon, command,
                                           hook.priority, already, &handled);
                      });
    }
    return handled != 0;
}
} // namespace

HookResult Host::runHook(const std::function<A_Err()>& body)
{
    return RunHook(*parts, HookKind::ordinary, body);
}

LoadedPlugin Host::loadEntry(EntryPoint entry)
{
    LoadedPlugin plugin;
    plugin.id = parts->nextPlugin++;
    constexpr A_long driverMajor = 114;
    plugin.result =
        RunHook(*parts, HookKind::entryPoint,
                [&] { return entry(BasicSuite(), driverMajor, 0, plugin.id, &plugin.globalRefcon); });
    parts->hooks.globalRefcons[plugin.id] = plugin.globalRefcon;
    return plugin;
}

HookResult Host::RunIdle(IdleMode mode)
{
    HookResult worst;
    if (parts->hasQuit || mode == IdleMode::starved)
        return worst;
    const int passes = mode == IdleMode::burst ? parts->options.burstLength : 1;
    for (int i = 0; i < passes; ++i)
        worst = FirstBad(worst, oneIdlePass(*parts));
    return worst;
}

HookResult Host::UpdateMenus(WindowType active)
{
    HookResult worst;
    if (parts->hasQuit)
        return worst;
    parts->menus.Reset();
    for (const RegisteredHook<UpdateMenuHook>& hook : parts->hooks.updateMenu)
        worst = FirstBad(worst, RunHook(*parts, HookKind::ordinary,
                                        [&] {
                                            return hook.hook(parts->hooks.globalRefcons[hook.pluginId],
                                                             hook.refcon, static_cast<A_char>(active));
                                        }));
    return worst;
}

bool Host::ChooseMenuItem(const std::string& name)
{
    (void)UpdateMenus();
    const MenuItem* item = parts->menus.FindByName(name);
    return item != nullptr && item->enabled && RunCommand(item->command);
}

bool Host::RunCommand(A_long command)
{
    if (parts->hasQuit)
        return false;
    const bool handled = runCommandHooks(*parts, command);
    if (!handled && command == commandUndo)
        return Undo();
    if (!handled && command == commandRedo)
        return Redo();
    return handled;
}

void Host::Quit()
{
    if (parts->hasQuit)
        return;
    parts->hasQuit = true;
    const auto destroyContainers = [this]
    {
        for (Panel& panel : parts->panels.All())
            DestroyContainer(*parts, panel);
    };
    if (parts->options.deathOrder == DeathOrder::containersFirst)
        destroyContainers();
    for (const RegisteredHook<DeathHook>& hook : parts->hooks.death)
        (void)RunHook(*parts, HookKind::death,
                      [&] { return hook.hook(parts->hooks.globalRefcons[hook.pluginId], hook.refcon); });
    destroyContainers();
    CheckSuiteBalance();
}

const std::vector<MenuItem>& Host::MenuItems() const { return parts->menus.Items(); }

const std::vector<Alert>& Host::Alerts() const { return parts->alerts; }

const Panel* Host::FindPanel(const std::string& matchName) const
{
    return std::as_const(parts->panels).Find(matchName);
}

HookResult Host::SetPanelState(const std::string& matchName, PanelState state)
{
    Panel* panel = parts->panels.Find(matchName);
    if (panel == nullptr || parts->hasQuit)
        return {};
    return ChangePanelState(*parts, *panel, state);
}

void Host::SetContainerProvider(ContainerProvider* provider)
{
    parts->provider = provider != nullptr ? provider : &parts->ownProvider;
}

void Host::SetBackgroundColour(PF_App_Color colour) { parts->background = colour; }
} // namespace standin
