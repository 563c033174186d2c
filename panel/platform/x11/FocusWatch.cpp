#include "panel/platform/x11/FocusWatch.h"

#include "panel/platform/x11/InputExtension.h"
#include "tree/platform/x11/TreeX11.h"

namespace
{
/// A focus that moves each time it is asked for is found again with the next event.
constexpr int mostAttempts = 4;

FocusWatch::Focus ask(Display* display)
{
    FocusWatch::Focus focus;
    (void)XGetInputFocus(display, &focus.window, &focus.revert);
    return focus;
}
} // namespace

FocusWatch::FocusWatch(Display* connection)
    : display(connection), hasExtension(FindInputExtension(connection) >= 0)
{
}

/// It may have moved before the window was asked to tell.
FocusWatch::Focus FocusWatch::Find()
{
    Focus focus = ask(display);
    for (int i = 0; i < mostAttempts && focus.window != watched && hasExtension; ++i)
    {
        watch(focus.window);
        focus = ask(display);
    }
    return focus;
}

/// The former window may have gone; the server's complaint about that is dropped like all others.
void FocusWatch::watch(Window window)
{
    const auto isForeign = [this](Window other)
    {
        return other != None && other != PointerRoot && other != DefaultRootWindow(display) &&
               !IsTreeWindow(other);
    };
    if (!hasExtension || display == nullptr)
        return;
    if (isForeign(watched))
        SelectInputEvents(display, watched, {});
    watched = window;
    if (isForeign(watched))
        SelectInputEvents(display, watched, {XI_FocusIn, XI_FocusOut});
}
