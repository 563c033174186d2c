#include "tests/x11/support/TinyWindowManager.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <chrono>
#include <poll.h>
#include <stdexcept>
#include <thread>

namespace standin
{
namespace
{
/// How long the manager waits before it passes a click on: longer than a host's idle interval.
constexpr auto thinkingTime = std::chrono::milliseconds(40);
constexpr int lookForLostFocusMs = 10;

int ignoreError(Display*, XErrorEvent*) { return 0; }

class Manager
{
public:
    Manager() : display(XOpenDisplay(nullptr)), root(DefaultRootWindow(display))
    {
        (void)XSetErrorHandler(&ignoreError);
        (void)XSelectInput(display, root, SubstructureRedirectMask);
        Window ignored = None;
        Window* windows = nullptr;
        unsigned count = 0;
        (void)XQueryTree(display, root, &ignored, &ignored, &windows, &count);
        for (unsigned i = 0; i < count; ++i)
            manage(windows[i]);
        (void)XFree(windows);
        (void)XSync(display, False);
    }

    [[noreturn]] void Run()
    {
        for (;;)
        {
            while (XPending(display) != 0)
                handleNext();
            rescueFocus();
            (void)XFlush(display);
            pollfd readable{ConnectionNumber(display), POLLIN, 0};
            (void)poll(&readable, 1, lookForLostFocusMs);
        }
    }

private:
    void manage(Window window)
    {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display, window, &attributes) == 0 || attributes.override_redirect != False)
            return;
        const Atom state = XInternAtom(display, "WM_STATE", False);
        const long normal[] = {1, None};
        (void)XChangeProperty(display, window, state, state, 32, PropModeReplace,
                              reinterpret_cast<const unsigned char*>(normal), 2);
        (void)XGrabButton(display, AnyButton, AnyModifier, window, True, ButtonPressMask, GrabModeSync,
                          GrabModeAsync, None, None);
    }

    void handleNext()
    {
        XEvent event;
        (void)XNextEvent(display, &event);
        if (event.type == MapRequest)
        {
            manage(event.xmaprequest.window);
            (void)XMapWindow(display, event.xmaprequest.window);
        }
        if (event.type == ButtonPress)
            handleClick(event.xbutton);
    }

    void handleClick(const XButtonEvent& click)
    {
        lastFocused = click.window;
        (void)XSetInputFocus(display, click.window, RevertToPointerRoot, click.time);
        std::this_thread::sleep_for(thinkingTime);
        (void)XAllowEvents(display, ReplayPointer, click.time);
    }

    void rescueFocus()
    {
        Window focused = None;
        int revert = 0;
        (void)XGetInputFocus(display, &focused, &revert);
        if (lastFocused != None && (focused == None || focused == PointerRoot || focused == root))
            (void)XSetInputFocus(display, lastFocused, RevertToPointerRoot, CurrentTime);
    }

    Display* display;
    Window root;
    Window lastFocused = None;
};

int runManager()
{
    Manager manager;
    process::Tell("manages", "");
    manager.Run();
}
} // namespace

TinyWindowManager::TinyWindowManager() : manager(&runManager)
{
    while (manager.Told().empty())
    {
        if (manager.IsDone())
            throw std::runtime_error("the window manager did not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}
} // namespace standin
