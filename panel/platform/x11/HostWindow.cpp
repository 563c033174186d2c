#include "panel/platform/x11/HostWindow.h"

#include "panel/platform/x11/WindowTree.h"

HostWindow::HostWindow(Display* connection, Window hostContainer)
    : display(connection), container(hostContainer), top(FindTopWindow(connection, hostContainer))
{
}

void HostWindow::NoteFocus(Window focused)
{
    if (focused == lastNoted)
        return;
    lastNoted = focused;
    if (focused != None && focused != PointerRoot && IsInside(display, focused, findTop()))
        lastFocused = focused;
}

/// The container may have moved to another window of the host since; one that has gone leaves its last.
Window HostWindow::findTop()
{
    if (FindParent(display, container) != None)
        top = FindTopWindow(display, container);
    return top;
}

Window HostWindow::findKeyboardOwner()
{
    const Window currentTop = findTop();
    const bool mayHaveIt =
        lastFocused != None && IsOnScreen(display, lastFocused) && IsInside(display, lastFocused, currentTop);
    return mayHaveIt ? lastFocused : currentTop;
}

void HostWindow::TakeKeyboardBack(Time time)
{
    const Window owner = findKeyboardOwner();
    if (!IsOnScreen(display, owner))
        return;
    (void)XSetInputFocus(display, owner, RevertToParent, time);
    lastNoted = None;
}

/// Like the server's own key events: the first window that wants them, from the one that has the keyboard up.
Window HostWindow::findReceiver(Window first, long eventMask)
{
    for (Window at = first; at != None; at = FindParent(display, at))
    {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display, at, &attributes) == 0 || at == DefaultRootWindow(display))
            break;
        if ((attributes.all_event_masks & eventMask) != 0)
            return at;
        if ((attributes.do_not_propagate_mask & eventMask) != 0)
            break;
    }
    return first;
}

void HostWindow::PassOn(XKeyEvent event)
{
    const long eventMask = event.type == KeyPress ? KeyPressMask : KeyReleaseMask;
    event.window = findReceiver(findKeyboardOwner(), eventMask);
    event.subwindow = None;
    (void)XTranslateCoordinates(display, event.root, event.window, event.x_root, event.y_root, &event.x,
                                &event.y, &event.subwindow);
    event.subwindow = None;
    XEvent sent;
    sent.xkey = event;
    (void)XSendEvent(display, event.window, False, eventMask, &sent);
}
