#include "tree/platform/Platform.h"

#include "tree/platform/x11/HostLoop.h"
#include "tree/platform/x11/TreeX11.h"

#include <X11/Xlib.h>

#include <utility>

namespace
{
/// What CallFromHostLoop was given last.
void (*waitingForHost)() = nullptr;
} // namespace

// JUCE looks these names up without making them, and goes on with none. A server that no window manager
// has run on answers that with an error, which ends the host. So they are made here, before JUCE looks.
void PrepareForJuce()
{
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return;
    for (const char* name : {"WM_PROTOCOLS", "WM_STATE", "_NET_WM_STATE"})
        (void)XInternAtom(display, name, False);
    (void)XCloseDisplay(display);
}

void EmbedView(PanelBase&, void*) {}

// What JUCE knows is what has been delivered so far; the X server knows better.
bool IsKeyboardElsewhere()
{
    Display* display = GetTreeDisplay();
    if (display == nullptr)
        return false;
    Window focused = None;
    int revertTo = 0;
    (void)XGetInputFocus(display, &focused, &revertTo);
    const bool isNobodys = focused == None || focused == PointerRoot || focused == DefaultRootWindow(display);
    return !isNobodys && !IsTreeWindow(focused);
}

void CallFromHostLoop(void (*function)()) { waitingForHost = function; }

void RunWhatWaitsForHost()
{
    if (void (*function)() = std::exchange(waitingForHost, nullptr))
        function();
}
