#include "standin/user/WindowSession.h"

#include "standin/host/family/Family.h"
#include "standin/host/family/KeptSuites.h"

#include <cstdlib>
#include <iterator>
#include <utility>

namespace standin::user
{
namespace
{
std::unique_ptr<Xvfb> serverFor(DisplayChoice choice)
{
    const char* const display = std::getenv("DISPLAY");
    if (choice == DisplayChoice::environmentOrOwn && display != nullptr && *display != '\0')
        return nullptr;
    constexpr int roomForMenus = 200;
    const Area frame = HostLayout{}.frame;
    return std::make_unique<Xvfb>(frame.width + 2 * frame.x + roomForMenus, frame.height + 2 * frame.y);
}

void append(std::vector<std::string>& all, std::vector<std::string> more)
{
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}
} // namespace

WindowSession::WindowSession(const std::string& bundleFile, DisplayChoice display)
    : Session(ownHost, serverFor(display)), bundle(bundleFile)
{
    InstallFamily(host);
    window.Obey(host.Options());
    host.SetContainerProvider(&window);
    Point(HostPlace());
}

WindowSession::~WindowSession() { End(); }

void WindowSession::End()
{
    if (std::exchange(ended, true))
        return;
    window.Obey(host.Options());
    ExpectKeptSuites(host);
    host.Quit();
    Bundle::KeepMemoryOf(host);
    window.HandleEvents();
    collect();
}

void WindowSession::collect()
{
    hearKeys();
    append(heard.printed, output.TakeLines());
    append(heard.calls, host.CallTexts());
    host.ClearTrace();
}

/// The keys that have reached the host since the last pass stand for menu items, or not.
void WindowSession::hearKeys()
{
    window.Obey(host.Options());
    for (std::string& key : window.TakeKeys())
    {
        (void)host.PressKey();
        heard.keys.push_back(std::move(key));
    }
}

void WindowSession::pressed(Place at)
{
    window.Obey(host.Options());
    if (PanelArea().Holds(at))
        host.User().Activate(ActivePanel::ours);
    else
        host.User().ActivateLast();
}

void WindowSession::Idle()
{
    hearKeys();
    const HookResult result = host.RunIdle();
    if (!result.thrown.empty())
        heard.thrown = result.thrown;
    window.HandleEvents();
}
} // namespace standin::user
