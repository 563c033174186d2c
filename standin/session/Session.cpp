#include "standin/session/Session.h"

#include "standin/family/Family.h"
#include "standin/session/Typing.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace standin
{
namespace
{
using Clock = std::chrono::steady_clock;
constexpr auto betweenIdles = std::chrono::milliseconds(4);
constexpr auto settleLimit = std::chrono::seconds(30);
constexpr int quietPasses = 8;
/// On a busy machine little happens in a second: nobody gives up before so many passes.
constexpr int leastPasses = 50;
constexpr int panelHeight = 460;

std::unique_ptr<Xvfb> serverFor(DisplayChoice choice)
{
    const char* const display = std::getenv("DISPLAY");
    if (choice == DisplayChoice::environmentOrOwn && display != nullptr && *display != '\0')
        return nullptr;
    try
    {
        constexpr int roomForMenus = 200;
        return std::make_unique<Xvfb>(Dock::width + 2 * Dock::left + roomForMenus,
                                      panelHeight + Dock::stripHeight + 2 * Dock::top);
    }
    catch (const std::runtime_error& error)
    {
        throw Session::DisplayMissing(error.what());
    }
}

/// Throws the error that says that the display is not there.
XTestInput makeUser()
{
    const char* const display = std::getenv("DISPLAY");
    try
    {
        return XTestInput();
    }
    catch (const std::runtime_error& error)
    {
        throw Session::DisplayMissing(std::string("display ") + (display == nullptr ? "" : display) + ": " +
                                      error.what());
    }
}

/// Whether a pass did anything but look.
bool didSomething(const std::vector<std::string>& calls)
{
    constexpr const char* doing[] = {"AEGP_GetLayerParentComp", "AEGP_StartUndoGroup", "AEGP_ApplyEffect",
                                     "AEGP_SetEffectFlags",     "AEGP_ReorderEffect",  "AEGP_DoCommand",
                                     "AEGP_SetStreamName"};
    return std::any_of(calls.begin(), calls.end(),
                       [&](const std::string& call)
                       {
                           return std::any_of(std::begin(doing), std::end(doing),
                                              [&](const char* name)
                                              { return call.find(name) != std::string::npos; });
                       });
}
} // namespace

Session::Session(const std::string& bundleFile, DisplayChoice display)
    : server(serverFor(display)), user(makeUser()), dock(panelHeight), bundle(bundleFile)
{
    InstallFamily(host);
    host.SetContainerProvider(&dock);
    const Place rest = dock.EmptyPlace();
    user.move(rest.x, rest.y);
}

Session::~Session() { End(); }

void Session::End()
{
    if (ended)
        return;
    ended = true;
    dock.Obey(host.Options());
    if (host.FindPanel(panelName) != nullptr)
        host.Expect("unbalanced-suite", "",
                    "the panel and its controller hold their suites until the host ends");
    host.Quit();
    Bundle::KeepMemoryOf(host);
    dock.HandleEvents();
    collect();
}

void Session::collect()
{
    hearKeys();
    for (std::string& line : output.TakeLines())
        printed.push_back(std::move(line));
    for (std::string& call : host.CallTexts())
        calls.push_back(std::move(call));
    host.ClearTrace();
}

void Session::Idle()
{
    hearKeys();
    const HookResult result = host.RunIdle();
    if (!result.thrown.empty())
        thrown = result.thrown;
    dock.HandleEvents();
}

/// The keys that have reached the host since the last pass stand for menu items, or not.
void Session::hearKeys()
{
    dock.Obey(host.Options());
    for (std::string& key : dock.TakeKeys())
    {
        (void)host.PressKey();
        hostKeys.push_back(std::move(key));
    }
}

void Session::Settle()
{
    const auto end = Clock::now() + settleLimit;
    int quiet = 0;
    std::vector<std::uint32_t> picture;
    while (quiet < quietPasses)
    {
        collect();
        Idle();
        auto now = PanelPicture().pixels;
        const bool moved = didSomething(host.CallTexts(SuiteTraffic::leftOut)) || now != picture;
        quiet = moved ? 0 : quiet + 1;
        picture = std::move(now);
        if (Clock::now() > end)
            throw std::runtime_error("the panel never comes to rest");
        std::this_thread::sleep_for(betweenIdles);
    }
    collect();
}

bool Session::IdleUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const auto end = Clock::now() + limit;
    for (int passes = 0; !condition(); ++passes)
    {
        if (Clock::now() > end && passes >= leastPasses)
            return false;
        Idle();
        std::this_thread::sleep_for(betweenIdles);
    }
    return true;
}

void Session::IdleFor(std::chrono::milliseconds duration)
{
    const auto end = Clock::now() + duration;
    (void)IdleUntil([end] { return Clock::now() >= end; }, duration + std::chrono::seconds(1));
}

Place Session::OnScreen(Place inPanel) const
{
    const Area area = dock.ContainerOnScreen();
    return {area.x + inPanel.x, area.y + inPanel.y};
}

void Session::Click(Place inPanel, const std::vector<std::string>& modifiers, unsigned button)
{
    press(inPanel, modifiers, button);
    user.release(button);
    letGoOfModifiers();
}

void Session::Press(Place inPanel, const std::vector<std::string>& modifiers)
{
    press(inPanel, modifiers, 1);
}

void Session::Release()
{
    user.release();
    letGoOfModifiers();
}

void Session::press(Place inPanel, const std::vector<std::string>& modifiers, unsigned button)
{
    const Place at = OnScreen(inPanel);
    avoidDoubleClick();
    user.move(at.x, at.y);
    for (const std::string& modifier : modifiers)
        user.keyDown(ModifierKey(modifier));
    heldModifiers = modifiers;
    user.press(button);
    host.User().Activate(ActivePanel::ours);
}

void Session::letGoOfModifiers()
{
    for (const std::string& modifier : heldModifiers)
        user.keyUp(ModifierKey(modifier));
    heldModifiers.clear();
    lastClick = Clock::now();
}

void Session::avoidDoubleClick() const
{
    constexpr auto doubleClick = std::chrono::milliseconds(450);
    const auto since = Clock::now() - lastClick;
    if (since < doubleClick)
        std::this_thread::sleep_for(doubleClick - since);
}

void Session::DoubleClick(Place inPanel)
{
    const Place at = OnScreen(inPanel);
    avoidDoubleClick();
    user.move(at.x, at.y);
    user.doubleClick();
    host.User().Activate(ActivePanel::ours);
    lastClick = Clock::now();
}

void Session::Move(Place from, Place to)
{
    constexpr int steps = 8;
    const Place start = OnScreen(from);
    const Place end = OnScreen(to);
    for (int i = 1; i <= steps; ++i)
    {
        user.move(start.x + (end.x - start.x) * i / steps, start.y + (end.y - start.y) * i / steps);
        Idle();
    }
}

void Session::Drag(Place from, Place to)
{
    Press(from);
    Idle();
    Move(from, to);
    // What is dragged hangs at the pointer in a window of its own, which takes its time to fade.
    if (!IdleUntil([this] { return !dock.PopUps().empty(); }))
        throw std::runtime_error("nothing comes along with the pointer");
    Settle();
    Release();
    if (!IdleUntil([this] { return dock.PopUps().empty(); }))
        throw std::runtime_error("what was dragged stays at the pointer");
    Settle();
}

void Session::Wheel(Place inPanel, int notches)
{
    constexpr unsigned wheelUp = 4;
    constexpr unsigned wheelDown = 5;
    const Place at = OnScreen(inPanel);
    user.move(at.x, at.y);
    for (int i = 0; i < std::abs(notches); ++i)
    {
        user.press(notches > 0 ? wheelDown : wheelUp);
        user.release(notches > 0 ? wheelDown : wheelUp);
    }
}

void Session::ClickOnHost()
{
    const Place at = dock.EmptyPlace();
    user.move(at.x, at.y);
    user.press();
    user.release();
    host.User().ActivateLast();
    dock.Obey(host.Options());
    dock.HandleEvents();
}

const std::vector<std::string>& Session::Printed()
{
    collect();
    return printed;
}

const std::vector<std::string>& Session::Calls()
{
    collect();
    return calls;
}

const std::vector<std::string>& Session::HostKeys()
{
    collect();
    return hostKeys;
}

void Session::Forget()
{
    collect();
    printed.clear();
    calls.clear();
    hostKeys.clear();
}
} // namespace standin
