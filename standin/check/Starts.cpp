// How the bundle starts when things are not as usual.

#include "standin/check/Scene.h"
#include "standin/check/Trial.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/sensors/FindingIds.h"

namespace standin::check::bundles
{
namespace
{
const char* textOf(Withheld how)
{
    switch (how)
    {
    case Withheld::asError:
        return "with an error";
    case Withheld::asNullTable:
        return "with a null table";
    case Withheld::asPoisonedPointer:
        return "with an error and a pointer that must not be used";
    }
    return "";
}

/// A host forgets the hooks of a plug-in that has failed to load.
void forget(Scene& scene) { scene.host.ForgetHooks(); }

void startWithout(Trial& trial, const char* suite, A_long version, int number, Withheld how)
{
    trial.At(std::string("PanelEntryPointFunc, and \"") + suite + "\" is refused " + textOf(how));
    Scene scene(trial.File());
    scene.host.Expect(finding::exceptionLeftHook, "", "a missing suite is an integer that reaches the host")
        .In("EntryPoint")
        .Times(1);
    scene.host.Faults().Withhold(suite, version, how);
    const LoadedPlugin plugin = scene.bundle.LoadPanel(scene.host);
    trial.RequireEqual(plugin.result.thrownNumber.value_or(0), number,
                       "the integer that left the entry point");
    trial.Require(plugin.globalRefcon == nullptr, "a controller was handed out all the same");
    trial.Require(scene.Published(Scene::panelSuite) == nullptr, "the panel suite is published all the same");
    scene.host.CheckSuiteBalance();
    trial.RequireNoFindings(scene.host);
    forget(scene);
}
} // namespace

void EntriesInEitherOrder(Trial& trial)
{
    for (const EntryOrder order : {EntryOrder::idleSuiteFirst, EntryOrder::panelFirst})
    {
        trial.At(order == EntryOrder::idleSuiteFirst ? "EffectorAEGP first" : "PanelEntryPointFunc first");
        Scene scene(trial.File());
        scene.bundle.LoadAll(scene.host, order);
        const void* const idle = scene.Published(Scene::idleSuite);
        const void* const panel = scene.Published(Scene::panelSuite);
        trial.Require(idle != nullptr && panel != nullptr, "a suite is not published");
        trial.Require(WordOf(idle, 0) != WordOf(panel, 0), "the two plug-ins share their memory");
        static int calls = 0;
        calls = 0;
        (void)scene.sibling.QueueIdleFunction([](int, void*, void*) { return ++calls; }, nullptr);
        trial.RequireEqual(scene.host.RunIdle().error, errNone, "the result of the idle hooks");
        trial.RequireEqual(calls, 1, "the number of calls of a queued function");
        trial.RequireEqual<std::size_t>(scene.host.MenuItems().size(), 1, "the number of menu entries");
        scene.Quit();
        trial.RequireNoFindings(scene.host);
    }
}

void StartWithoutSuites(Trial& trial)
{
    constexpr int noPanelSuite = 13;
    constexpr int noSuite = 516;
    for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
    {
        startWithout(trial, "AEGP Workspace Panel Suite", 1, noPanelSuite, how);
        startWithout(trial, "AEGP Command Suite", 1, noSuite, how);
        startWithout(trial, "AEGP Register Suite", 6, noSuite, how);
        startWithout(trial, "SP Suites Suite", 2, noSuite, how);
    }
}

void StartRefused(Trial& trial)
{
    {
        trial.At("AEGP_RegisterIdleHook fails");
        Scene scene(trial.File());
        constexpr A_Err refused = 77;
        scene.host.Expect(finding::errorLeftHook, "EntryPoint", "the start returns the error that it met")
            .In("EntryPoint")
            .Times(1);
        scene.host.Faults().FailFunction("AEGP_RegisterIdleHook", 1, FaultLength::once, refused);
        const LoadedPlugin plugin = scene.bundle.LoadIdleSuite(scene.host);
        trial.RequireEqual(plugin.result.error, refused, "the result of EffectorAEGP");
        trial.RequireEqual<std::size_t>(scene.host.Alerts().size(), 1, "the number of alerts");
        trial.RequireEqual(scene.host.Alerts().front().text,
                           std::string("Vort AEGP : Could not register Plugin Suite."), "the alert");
        scene.host.CheckSuiteBalance();
        trial.RequireNoFindings(scene.host);
    }
    {
        trial.At("AEGP_GetUniqueCommand fails");
        Scene scene(trial.File());
        scene.host
            .Expect(finding::unknownCommand, "AEGP_InsertMenuCommand",
                    "the menu entry is put in with whatever the command number holds")
            .In("EntryPoint")
            .Times(1);
        scene.host.Faults().FailFunction("AEGP_GetUniqueCommand");
        const LoadedPlugin plugin = scene.bundle.LoadPanel(scene.host);
        trial.RequireEqual(plugin.result.error, errNone, "the result of PanelEntryPointFunc");
        trial.Require(scene.Published(Scene::panelSuite) == nullptr,
                      "the panel suite is published although there is no command");
        trial.RequireNoFindings(scene.host);
    }
}

void CommandHook(Trial& trial)
{
    Scene scene(trial.File());
    const LoadedPlugin plugin = scene.bundle.LoadPanel(scene.host);
    trial.RequireEqual<std::size_t>(scene.host.PluginsView().hooks.command.size(), 1,
                                    "the number of command hooks");
    const auto& hook = scene.host.PluginsView().hooks.command.front();
    const auto run = [&](A_long command, A_Boolean already, A_Boolean handled)
    {
        (void)scene.TakeCalls();
        const HookResult result = scene.host.RunInHook(
            [&] { return hook.hook(plugin.globalRefcon, hook.refcon, command, 1, already, &handled); });
        trial.RequireEqual(result.error, errNone, "the result of the command hook");
        return static_cast<int>(handled);
    };
    for (const A_long foreign : {0, 77, 1002})
    {
        trial.At("command " + std::to_string(foreign) + ", which is somebody else's");
        trial.RequireEqual(run(foreign, 0, 0), 0, "the handled flag");
        trial.RequireEqual(run(foreign, 1, 1), 1, "the handled flag");
        trial.RequireLines(scene.TakeCalls(), {}, "the host calls");
    }
    trial.At("command 1001, its own");
    scene.host.Faults().FailFunction("AEGP_ToggleVisibility", 1, FaultLength::functionForGood);
    trial.RequireEqual(run(hook.command, 0, 0), 1, "the handled flag");
    trial.RequireLines(scene.TakeCalls(SuiteTraffic::leftOut),
                       {R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                        "Layer 5 AEGP_GetActiveLayer() -> layer 1", "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
                        R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel") = 1)"},
                       "the host calls");
    trial.RequireNoFindings(scene.host);
}
} // namespace standin::check::bundles
