// "Vortan Panel Suite v1", and what its requests do at the next idle while the panel is closed.

#include "standin/check/Scene.h"
#include "standin/check/Trial.h"

namespace standin::check::bundles
{
namespace
{
struct PanelWords
{
    void* panelRef;
    int (*openPanel)(void* panelRef, unsigned char force);
    int (*refreshPanel)(void* panelRef);
    int (*panelNotify)(void* panelRef, const char* text);
};

const std::vector<std::string>& closedPass()
{
    static const std::vector<std::string> calls{R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                                                "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)"};
    return calls;
}

/// A host with the panel suite published. The panel's command does nothing, so that it stays closed.
struct SuiteScene : Scene
{
    explicit SuiteScene(Trial& theTrial) : Scene(theTrial.File()), trial(theTrial)
    {
        plugin = bundle.LoadPanel(host);
        host.Faults().FailFunction("AEGP_DoCommand", 1, FaultLength::functionForGood);
        published = static_cast<const PanelWords*>(Published(panelSuite));
        trial.Require(published != nullptr, "\"Vortan Panel Suite v1\" is not published");
        (void)TakeCalls();
    }

    const PanelWords& Table() const { return *published; }
    /// The host calls of what a sibling does inside a hook.
    template <class Action>
    std::vector<std::string> CallsOf(Action action)
    {
        (void)TakeCalls();
        const HookResult result = host.RunInHook(action);
        trial.RequireEqual(result.thrown, std::string(), "what left the function");
        return TakeCalls();
    }
    std::vector<std::string> IdleCalls()
    {
        (void)TakeCalls();
        trial.RequireEqual(host.RunIdle().thrown, std::string(), "what left the idle hook");
        return TakeCalls(SuiteTraffic::leftOut);
    }

    Trial& trial;
    LoadedPlugin plugin;
    const PanelWords* published = nullptr;
};

std::vector<std::string> withCommand()
{
    std::vector<std::string> calls{"Command 1 AEGP_DoCommand(1001) = 1"};
    calls.insert(calls.end(), closedPass().begin(), closedPass().end());
    return calls;
}
} // namespace

void PanelSuiteTable(Trial& trial)
{
    SuiteScene scene(trial);
    for (int word = 0; word < 4; ++word)
        trial.Require(WordOf(scene.published, word) != nullptr,
                      "word " + std::to_string(word) + " of the panel suite's table is 0");
    const PanelWords& table = scene.Table();
    const auto quiet = scene.CallsOf(
        [&]
        {
            trial.RequireEqual(table.refreshPanel(table.panelRef), 0, "the result of RefreshPanel");
            trial.RequireEqual(table.panelNotify(table.panelRef, "one"), 0, "the result of PanelNotify");
            trial.RequireEqual(table.panelNotify(nullptr, "two"), 0, "the result of PanelNotify to nobody");
            trial.RequireEqual(table.openPanel(table.panelRef, 1), 0, "the result of a forced OpenPanel");
            trial.RequireEqual(table.openPanel(table.panelRef, 255), 0, "the result of a forced OpenPanel");
        });
    trial.RequireLines(quiet, {}, "the host calls of requests that only write down");
    const auto asking = scene.CallsOf(
        [&] { trial.RequireEqual(table.openPanel(table.panelRef, 0), 0, "the result of OpenPanel"); });
    trial.RequireLines(asking,
                       {R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1))",
                        R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                        R"(Basic ReleaseSuite("AEGP Workspace Panel Suite", 1))"},
                       "the host calls of OpenPanel without force");
    trial.RequireNoFindings(scene.host);
}

void PanelSuiteRequests(Trial& trial)
{
    SuiteScene scene(trial);
    const PanelWords& table = scene.Table();
    trial.RequireLines(scene.IdleCalls(), closedPass(), "the idle of a closed panel");
    for (const int force : {0, 1})
    {
        trial.At("OpenPanel with force " + std::to_string(force));
        (void)scene.CallsOf([&]
                            { (void)table.openPanel(table.panelRef, static_cast<unsigned char>(force)); });
        trial.RequireLines(scene.IdleCalls(), withCommand(), "the idle after a request to open");
        trial.RequireLines(scene.IdleCalls(), closedPass(), "the idle after that");
    }
    trial.At("two requests in one interval");
    (void)scene.CallsOf(
        [&]
        {
            (void)table.openPanel(table.panelRef, 1);
            (void)table.openPanel(table.panelRef, 1);
        });
    trial.RequireLines(scene.IdleCalls(), withCommand(), "the idle after two requests to open");
    trial.RequireLines(scene.IdleCalls(), closedPass(), "the idle after that");
    trial.At("RefreshPanel and PanelNotify");
    (void)scene.CallsOf(
        [&]
        {
            (void)table.refreshPanel(table.panelRef);
            (void)table.panelNotify(table.panelRef, "text");
        });
    trial.RequireLines(scene.IdleCalls(), closedPass(), "the idle after requests that need no host");
    trial.RequireNoFindings(scene.host);
}

void ClosedPanelIdle(Trial& trial)
{
    Scene scene(trial.File());
    scene.bundle.LoadAll(scene.host);
    for (int i = 0; i < 5; ++i)
        (void)scene.host.AddEffect(scene.layer, "QVK VORTSRC Lamps");
    constexpr int passes = 100;
    (void)scene.host.RunIdle();
    for (int i = 0; i < passes; ++i)
    {
        scene.host.ClearTrace();
        (void)scene.host.RunIdle();
        trial.RequireLines(scene.TakeCalls(), closedPass(),
                           "the calls of idle pass " + std::to_string(i + 1) + " with a closed panel");
    }
    trial.RequireNoFindings(scene.host);
}
} // namespace standin::check::bundles
