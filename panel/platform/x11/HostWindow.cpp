#include "panel/platform/x11/HostWindow.h"

#include "panel/platform/x11/WindowTree.h"

HostWindow::HostWindow(Display* connection, Window container)
    : display(connection), top(FindTopWindow(connection, container))
{
}

void HostWindow::NoteFocus(Window focused)
{
    if (belongsToHost(focused))
        lastFocused = focused;
}

bool HostWindow::belongsToHost(Window window) const
{
    return window != None && window != PointerRoot && IsInside(display, window, top);
}

Window HostWindow::target() const
{
    XWindowAttributes attributes;
    const bool isThere = lastFocused != None &&
                         XGetWindowAttributes(display, lastFocused, &attributes) != 0 &&
                         attributes.map_state == IsViewable;
    return isThere ? lastFocused : top;
}

void HostWindow::TakeKeyboardBack() const
{
    XSetInputFocus(display, target(), RevertToParent, CurrentTime);
    XSync(display, False);
}

void HostWindow::PassOn(XKeyEvent event) const
{
    Window child = None;
    event.window = target();
    event.subwindow = None;
    (void)XTranslateCoordinates(display, event.root, event.window, event.x_root, event.y_root, &event.x,
                                &event.y, &child);
    XEvent sent;
    sent.xkey = event;
    // It goes up from the focused window to the first that wants keys, as the server's own key events do.
    constexpr Bool propagate = True;
    (void)XSendEvent(display, event.window, propagate, event.type == KeyPress ? KeyPressMask : KeyReleaseMask,
                     &sent);
    XFlush(display);
}
