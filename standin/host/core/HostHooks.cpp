// The part of Host that deals with plug-ins: their entry points, their hooks, menus and panels.

#include <algorithm>
#include <utility>

#include "standin/host/core/HookCalls.h"
#include "standin/host/core/Host.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/sensors/FindingIds.h"

namespace standin
{
namespace
{
void idleOfEffects(HostParts& parts)
{
    std::vector<int> effectIds;
    for (const Layer& layer : parts.project.state.layers)
        for (const EffectInstance& effect : layer.effects)
            effectIds.push_back(effect.id);
    for (const int effectId : effectIds)
    {
        const EffectInstance* effect = parts.project.state.FindEffect(effectId);
        if (effect == nullptr)
            continue;
        ++parts.project.runtimes[effectId].idles;
        parts.project.BehaviourOf(*effect).OnIdle({parts.host, effectId});
    }
}

HookResult oneIdlePass(HostParts& parts)
{
    HookResult worst;
    idleOfEffects(parts);
    for (const RegisteredHook<IdleHook>& hook : parts.plugins.hooks.idle)
    {
        A_long maxSleep = 2; // The host resets it before each call.
        worst = FirstBad(worst, RunHook(parts, {HookKind::ordinary, hook.pluginId, "IdleHook"},
                                        [&] {
                                            return hook.hook(parts.plugins.hooks.globalRefcons[hook.pluginId],
                                                             hook.refcon, &maxSleep);
                                        }));
    }
    return worst;
}

constexpr A_long commandZero = 0;

/// True if a hook took the command.
bool runCommandHooks(HostParts& parts, A_long command)
{
    A_Boolean handled = 0;
    const std::vector<RegisteredHook<CommandHook>> hooks = parts.plugins.hooks.command;
    for (const RegisteredHook<CommandHook>& hook : hooks)
    {
        if (hook.command != 0 && hook.command != command && command != commandZero)
            continue;
        const A_Boolean already = handled;
        (void)RunHook(parts, {HookKind::ordinary, hook.pluginId, "CommandHook"},
                      [&]
                      {
                          return hook.hook(parts.plugins.hooks.globalRefcons[hook.pluginId], hook.refcon,
                                           command, hook.priority, already, &handled);
                      });
    }
    return handled != 0;
}
/// It belongs to no hook, so none may take it.
void sendCommandZero(HostParts& parts)
{
    if (!runCommandHooks(parts, commandZero))
        return;
    Finding finding;
    finding.id = finding::foreignCommand;
    finding.sentence = "A command hook took the command 0, which is nobody's.";
    finding.function = finding.hook = "CommandHook";
    parts.sensors.findings.Add(std::move(finding));
}

template <class List>
void removeHooksOf(A_long pluginId, List& list)
{
    list.erase(
        std::remove_if(list.begin(), list.end(), [=](const auto& hook) { return hook.pluginId == pluginId; }),
        list.end());
}

/// What the entry point has published stays: a suite cannot be withdrawn.
void removeAllHooksOf(HostParts& parts, A_long pluginId)
{
    removeHooksOf(pluginId, parts.plugins.hooks.command);
    removeHooksOf(pluginId, parts.plugins.hooks.updateMenu);
    removeHooksOf(pluginId, parts.plugins.hooks.idle);
    removeHooksOf(pluginId, parts.plugins.hooks.death);
    parts.plugins.panels.RemoveOf(pluginId);
}
} // namespace

HookResult Host::runHook(Where where, const std::function<A_Err()>& body)
{
    const HookKind kind = where == Where::hook ? HookKind::ordinary : HookKind::entryPoint;
    return RunHook(*parts, {kind, PluginId()}, body);
}

LoadedPlugin Host::loadEntry(EntryPoint entry)
{
    LoadedPlugin plugin;
    plugin.id = parts->plugins.nextId++;
    constexpr A_long driverMajor = 114;
    plugin.result =
        RunHook(*parts, {HookKind::entryPoint, plugin.id, "EntryPoint"},
                [&] { return entry(BasicSuite(), driverMajor, 0, plugin.id, &plugin.globalRefcon); });
    parts->plugins.hooks.globalRefcons[plugin.id] = plugin.globalRefcon;
    if (plugin.result.error != errNone && parts->options.failedEntry == FailedEntry::takesHooksAway)
        removeAllHooksOf(*parts, plugin.id);
    return plugin;
}

HookResult Host::RunIdle(IdleMode mode)
{
    HookResult worst;
    const bool isStopped =
        parts->plugins.openDialogs > 0 && parts->options.idleInDialogs == IdleInDialogs::stops;
    if (parts->plugins.hasQuit || mode == IdleMode::starved || isStopped)
        return worst;
    const int passes = mode == IdleMode::burst ? parts->options.burstLength : 1;
    for (int i = 0; i < passes; ++i)
        worst = FirstBad(worst, oneIdlePass(*parts));
    return worst;
}

HookResult Host::UpdateMenus(WindowType active)
{
    HookResult worst;
    if (parts->plugins.hasQuit)
        return worst;
    parts->plugins.menus.Reset();
    for (const RegisteredHook<UpdateMenuHook>& hook : parts->plugins.hooks.updateMenu)
        worst =
            FirstBad(worst, RunHook(*parts, {HookKind::ordinary, hook.pluginId, "UpdateMenuHook"},
                                    [&]
                                    {
                                        return hook.hook(parts->plugins.hooks.globalRefcons[hook.pluginId],
                                                         hook.refcon, static_cast<A_char>(active));
                                    }));
    return worst;
}

void Host::OpenDialog() { ++parts->plugins.openDialogs; }

void Host::CloseDialog() { --parts->plugins.openDialogs; }

HookResult Host::PressKey()
{
    if (parts->plugins.hasQuit || parts->plugins.openDialogs > 0)
        return {};
    constexpr int keysPerCommandZero = 3;
    ++parts->plugins.keysHeard;
    if (parts->options.commandZero == CommandZero::comesNowAndThen &&
        parts->plugins.keysHeard % keysPerCommandZero == 0)
        sendCommandZero(*parts);
    return parts->options.keyUpdate == KeyUpdate::updatesMenus ? UpdateMenus() : HookResult{};
}

bool Host::ChooseMenuItem(const std::string& name)
{
    if (parts->plugins.openDialogs > 0)
        return false;
    (void)UpdateMenus();
    const MenuItem* item = parts->plugins.menus.FindByName(name);
    return item != nullptr && item->enabled && RunCommand(item->command);
}

bool Host::RunCommand(A_long command)
{
    if (parts->plugins.hasQuit)
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
    if (parts->plugins.hasQuit)
        return;
    parts->plugins.hasQuit = true;
    const auto destroyContainers = [this]
    {
        for (Panel& panel : parts->plugins.panels.All())
            DestroyContainer(*parts, panel);
    };
    if (parts->options.deathOrder == DeathOrder::containersFirst)
        destroyContainers();
    for (const RegisteredHook<DeathHook>& hook : parts->plugins.hooks.death)
        (void)RunHook(*parts, {HookKind::death, hook.pluginId, "DeathHook"},
                      [&]
                      { return hook.hook(parts->plugins.hooks.globalRefcons[hook.pluginId], hook.refcon); });
    destroyContainers();
    CheckSuiteBalance();
    CheckMemoryBalance();
}

const std::vector<MenuItem>& Host::MenuItems() const { return parts->plugins.menus.Items(); }

const std::vector<Alert>& Host::Alerts() const { return parts->plugins.alerts; }

std::vector<std::string> Host::AlertTexts() const
{
    std::vector<std::string> texts;
    for (const Alert& alert : Alerts())
        texts.push_back(alert.text);
    return texts;
}

const Panel* Host::FindPanel(const std::string& matchName) const
{
    return std::as_const(parts->plugins.panels).Find(matchName);
}

HookResult Host::SetPanelState(const std::string& matchName, PanelState state)
{
    Panel* panel = parts->plugins.panels.Find(matchName);
    if (panel == nullptr || parts->plugins.hasQuit)
        return {};
    return ChangePanelState(*parts, *panel, state);
}

HookResult Host::OpenAnotherPanel(const std::string& matchName)
{
    const Panel* first = parts->plugins.panels.Find(matchName);
    if (first == nullptr || parts->plugins.hasQuit)
        return {};
    Panel another;
    another.pluginId = first->pluginId;
    another.matchName = another.title = matchName;
    another.hook = first->hook;
    another.refcon = first->refcon;
    another.paintBackground = first->paintBackground;
    return ChangePanelState(*parts, parts->plugins.panels.Add(another), PanelState::frontmost);
}

void Host::SetContainerProvider(ContainerProvider* provider)
{
    parts->plugins.provider = provider != nullptr ? provider : &parts->plugins.ownProvider;
}

void Host::SetBackgroundColour(PF_App_Color colour) { parts->plugins.background = colour; }
} // namespace standin
