#include "tests/x11/support/PanelInHost.h"

#include "standin/family/Family.h"
#include "standin/family/Sibling.h"

#include <chrono>
#include <thread>
#include <utility>

namespace standin
{
namespace
{
using Clock = std::chrono::steady_clock;
constexpr auto limit = std::chrono::seconds(30);
constexpr auto betweenIdles = std::chrono::milliseconds(5);
constexpr int stillIdles = 30;
} // namespace

PanelInHost::PanelInHost(HostOptions options) : host(options), bundle(VORTAN_BUNDLE)
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
    host.Expect("unbalanced-suite", "", "the panel and its controller hold their suites until the host ends");
    host.Quit();
}

void PanelInHost::Open()
{
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
    Settle();
    rootChildrenBefore = window.ChildrenOfRoot();
}

HookResult PanelInHost::CreateWith(void* view, PanelFunctions& functions)
{
    const auto* panel = host.FindPanel(panelName);
    void* refcon = nullptr;
    return host.RunInHook(
        [&] { return panel->hook(panel->refcon, panel->refcon, view, panel->handle, &functions, &refcon); });
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

bool PanelInHost::IdleUntil(const std::function<bool()>& condition)
{
    const auto end = Clock::now() + limit;
    while (Clock::now() < end)
    {
        Idle();
        if (condition())
            return true;
        std::this_thread::sleep_for(betweenIdles);
    }
    return false;
}

void PanelInHost::IdleFor(int milliseconds)
{
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (Clock::now() < end)
    {
        Idle();
        std::this_thread::sleep_for(betweenIdles);
    }
}

void PanelInHost::Settle()
{
    int still = 0;
    auto picture = user.screen().pixels;
    EXPECT_TRUE(IdleUntil(
        [&]
        {
            auto now = user.screen().pixels;
            still = now == picture ? still + 1 : 0;
            picture = std::move(now);
            return still == stillIdles;
        }));
}

void PanelInHost::Point(Place place) { user.move(place.x, place.y); }

void PanelInHost::Press(Place place, unsigned button)
{
    Point(place);
    user.press(button);
}

void PanelInHost::Click(Place place, unsigned button)
{
    Press(place, button);
    user.release(button);
}

void PanelInHost::ClickInto(Place place)
{
    Click(place);
    EXPECT_TRUE(IdleUntil([this] { return PanelHasFocus(); }));
    Idle();
}

void PanelInHost::TypeWith(const std::vector<std::string>& modifiers, const std::string& key)
{
    for (const auto& modifier : modifiers)
        user.keyDown(modifier);
    user.key(key);
    for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
        user.keyUp(*modifier);
}

bool PanelInHost::PanelHasFocus()
{
    const unsigned long panel = window.PanelWindow();
    return panel != 0 && user.focusedWindow() == panel;
}

void PanelInHost::OpenMenu()
{
    Click(Button(0));
    EXPECT_TRUE(IdleUntil([this] { return IsMenuOpen(); }));
    // The menu takes no choice in its first quarter of a second, and would close within this time if it
    // believed that nobody looks at it.
    IdleFor(400);
    EXPECT_TRUE(IsMenuOpen());
}

Place PanelInHost::MenuEntry(int index)
{
    const Place button = Button(0);
    return {button.x + 20, button.y + 21 + 22 * index};
}

std::string PanelInHost::OutputOf(const std::function<void()>& action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}
} // namespace standin
