#include "tests/x11/support/PanelInHost.h"

#include "standin/host/family/Family.h"
#include "standin/host/family/KeptSuites.h"
#include "standin/host/family/Sibling.h"

#include <utility>

namespace standin
{
using namespace user;

PanelInHost::PanelInHost(HostOptions options)
    : User(std::make_unique<Xvfb>(800, 600)), host(options), bundle(VORTAN_BUNDLE)
{
    InstallFamily(host);
    const int comp = host.AddComposition("Comp 1");
    layer = host.AddLayer(comp);
    for (const char* name : {"a", "b", "c"})
    {
        (void)host.AddEffect(layer, "QVK VORTSRC Lamps", name);
        host.Effect(name).customName = name;
    }
    host.User().SelectLayers({layer});
    host.SetContainerProvider(&window);
    EXPECT_EQ(bundle.LoadIdleSuite(host).result.error, errNone);
    const LoadedPlugin panelPlugin = bundle.LoadPanel(host);
    EXPECT_EQ(panelPlugin.result.error, errNone);
    keptBlocks = std::make_unique<KeptBlocks>(host, panelPlugin);
    Point(Desktop());
}

PanelInHost::~PanelInHost()
{
    Die();
    EXPECT_EQ(host.FindingsReport(), "");
    EXPECT_EQ(window.TakeErrors(), 0);
    EXPECT_TRUE(window.HasItsErrorHandler());
    keptBlocks->Free();
}

void PanelInHost::Die()
{
    if (std::exchange(isDead, true))
        return;
    ExpectKeptSuites(host, createdByHand);
    host.Quit();
}

void PanelInHost::Open()
{
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
    Settle();
}

HookResult PanelInHost::CreateWith(void* view, PanelFunctions& functions)
{
    const auto* panel = host.FindPanel(panelName);
    void* refcon = nullptr;
    HookResult result = host.RunInHook(
        [&] { return panel->hook(panel->refcon, panel->refcon, view, panel->handle, &functions, &refcon); });
    createdByHand += result.thrown.empty() ? 1 : 0;
    return result;
}

HookResult PanelInHost::CreateAgain(void* view)
{
    PanelFunctions functions{};
    const HookResult result = CreateWith(view, functions);
    // A new tree is filled by the next change, or when somebody asks for it.
    (void)Sibling(host).RefreshPanel();
    return result;
}

void PanelInHost::Idle()
{
    EXPECT_EQ(host.RunIdle().thrown, "");
    window.HandleEvents();
}

void PanelInHost::Settle()
{
    const ScreenPicture screen = hands.screen();
    EXPECT_TRUE(IdleUntilStill({0, 0, screen.width, screen.height}));
}

void PanelInHost::ClickInto(Place place)
{
    Click(place);
    Idle();
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    Idle();
}

bool PanelInHost::PanelHasFocus()
{
    const unsigned long panel = window.PanelWindow();
    return panel != 0 && hands.focusedWindow() == panel;
}

Place PanelInHost::MenuEntry(int index) { return Button(0) + Place{20, 21 + 22 * index}; }

std::string PanelInHost::OutputUntil(const std::string& awaited, const std::function<void()>& action)
{
    std::string output = OutputOf(action);
    EXPECT_TRUE(IdleUntil(
        [&]
        {
            output += OutputOf([this] { Idle(); });
            return output.find(awaited) != std::string::npos;
        }))
        << awaited << "has not come, but: " << output;
    return output;
}

void PanelInHost::ExpectKeys(const std::vector<std::string>& keys)
{
    constexpr auto noMoreCome = 20ms;
    (void)IdleUntil([&] { return window.KeyCount() >= keys.size(); });
    IdleFor(noMoreCome);
    EXPECT_EQ(window.TakeKeys(), keys);
}
} // namespace standin
