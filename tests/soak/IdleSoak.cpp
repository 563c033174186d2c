// The part without a screen: what reaches a pass from the host's side and from siblings.

#include "tests/soak/Soak.h"

#include "standin/check/Scene.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/project/ProjectFile.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <set>

namespace standin
{
using namespace check;

namespace
{
constexpr int looksOfARun = 24;

/// Counts the views of panels, which are the windows of a host without a screen.
class CountedContainers : public ContainerProvider
{
public:
    void* MakeContainer(const std::string& panelName) override
    {
        void* container = ContainerProvider::MakeContainer(panelName);
        alive.insert(container);
        return container;
    }
    void DestroyContainer(void* container) override
    {
        alive.erase(container);
        ContainerProvider::DestroyContainer(container);
    }
    int Alive() const { return static_cast<int>(alive.size()); }

private:
    std::set<void*> alive;
};

/// The objects of panels that were made anew, which live until the host ends. They are reachable from here,
/// so that a leak checker, which looks when the program has ended, tells them from what is lost. The list has
/// its room from the beginning.
std::vector<const void*>& keptPanels()
{
    constexpr std::size_t mostPanels = 100000;
    static auto* const panels = new std::vector<const void*>;
    panels->reserve(mostPanels);
    return *panels;
}

int queuedFunction(int, void*, void*) { return 0; }

class IdleSoak
{
public:
    explicit IdleSoak(const SoakPlan& soakPlan) : plan(soakPlan), scene(plan.bundleFile, options())
    {
        ExpectKeptFindings(scene.host);
        scene.host.SetContainerProvider(&containers);
        scene.bundle.LoadAll(scene.host);
        buildProject();
        open();
        saved = ProjectOf(scene.host);
    }

    ~IdleSoak() { scene.Quit(); }
    IdleSoak(const IdleSoak&) = delete;
    IdleSoak& operator=(const IdleSoak&) = delete;

    SoakResult Run();

private:
    static HostOptions options()
    {
        HostOptions chosen;
        chosen.closedPanel = ClosedPanel::destroysView;
        chosen.traceLimit = 1;
        return chosen;
    }

    void buildProject();
    void open() { show(PanelState::frontmost); }
    void show(PanelState state);
    void note(const HookResult& hook) { result.findings += hook.thrown.empty() ? "" : hook.thrown + "\n"; }
    void idle(int passes);
    void round();
    void look();
    std::vector<std::function<void()>> edits();

    SoakPlan plan;
    CountedContainers containers;
    Scene scene;
    int otherLayer = 0;
    ProjectFile saved;
    SoakResult result;
};

void IdleSoak::buildProject()
{
    Host& host = scene.host;
    otherLayer = host.AddLayer(host.State().FindLayer(scene.layer)->compId, "Other");
    for (const char* label : {"lamp", "mast", "lens"})
        (void)host.AddEffect(scene.layer, "QVK VORTSRC Lamps", label);
    (void)host.AddEffect(scene.layer, "QVK VORTREN Dots", "dots");
    (void)host.AddEffect(otherLayer, "QVK VORTEFF Jitter", "shake");
    host.Effect("lens").family.group = 1;
}

/// What is done in a round. After it the project is opened anew, so an edit need not be taken back.
std::vector<std::function<void()>> IdleSoak::edits()
{
    Host& host = scene.host;
    UserActions& user = host.User();
    Sibling& sibling = scene.sibling;
    return {
        [&] { user.Rename("lamp", "torch"); },
        [&] { user.Reorder("lamp", 2); },
        [&] { user.SetActive("mast", Switch::off); },
        [&] { user.SetGroup("mast", 1); },
        [&] { user.SetGroup("lens", 0); },
        [&] { (void)user.Apply(scene.layer, "QVK VORTEFF Jitter"); },
        [&] { (void)user.Duplicate("mast"); },
        [&] { user.Delete("lens"); },
        [&] { (void)user.Undo(); },
        [&] { (void)user.Redo(); },
        [&] { (void)sibling.NotifyPanel("Saved"); },
        [&] { (void)sibling.RefreshPanel(); },
        [&] { (void)sibling.QueueIdleFunction(&queuedFunction, nullptr); },
        [&] { user.SelectLayers({otherLayer}); },
        [&] { user.SetActive("shake", Switch::off); },
        [&] { user.SelectLayers({}); },
        [&] { user.SelectLayers({scene.layer}); },
        [&] { user.SelectEffect("mast"); },
        [&] { show(PanelState::behind); },
        [&] { user.Rename("dots", "points"); },
        [&] { (void)sibling.OpenPanel(Force::ifNotUp); },
        [&] { show(PanelState::absent); },
        [&] { open(); },
        [&] { (void)host.UpdateMenus(); },
    };
}

void IdleSoak::show(PanelState state)
{
    note(scene.host.SetPanelState(Scene::panelName, state));
    const Panel& panel = *scene.host.FindPanel(Scene::panelName);
    if (keptPanels().empty() || keptPanels().back() != panel.panelRefcon)
        keptPanels().push_back(panel.panelRefcon);
}

void IdleSoak::idle(int passes)
{
    for (int i = 0; i < passes; ++i)
        note(scene.host.RunIdle());
    result.passes += passes;
}

void IdleSoak::round()
{
    constexpr int passesBetweenEdits = 8;
    for (const auto& edit : edits())
    {
        edit();
        ++result.edits;
        idle(passesBetweenEdits);
    }
    MakeLeak(plan.leak, scene.host, nullptr);
    if (plan.leak == Leak::window)
        (void)containers.MakeContainer("leaked");
    result.findings += TakeUnexpected(scene.host);
    ReplaceProject(scene.host, saved);
    PartsOf(scene.host).project.lastLabels.clear();
    scene.host.ClearViewLog();
    idle(passesBetweenEdits);
}

void IdleSoak::look()
{
    Holdings held = HoldingsOf(scene.host);
    held.windows = containers.Alive();
    result.looks.push_back(held);
}

SoakResult IdleSoak::Run()
{
    // The stand-in keeps so many records of references whole that these have to be filled up first.
    constexpr int roundsToWarmUp = 10;
    for (int i = 0; i < roundsToWarmUp; ++i)
        round();
    const long long each = std::max(1LL, (plan.passes - result.passes) / looksOfARun);
    result.looks.reserve(looksOfARun);
    while (result.looks.size() < looksOfARun)
    {
        const long long next = result.passes + each;
        while (result.passes < next)
            round();
        look();
    }
    scene.Quit();
    result.findings += TakeUnexpected(scene.host);
    return std::move(result);
}
} // namespace

SoakResult SoakIdle(const SoakPlan& plan)
{
    // A display that is not there: JUCE is not to find anybody else's.
    (void)setenv("DISPLAY", ":65535", 1);
    return IdleSoak(plan).Run();
}
} // namespace standin
