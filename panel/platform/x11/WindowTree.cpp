#include "panel/platform/x11/WindowTree.h"

#include <X11/Xatom.h>

namespace
{
/// A window manager puts this property on every window that it manages.
bool isManaged(Display* display, Window window)
{
    const Atom state = XInternAtom(display, "WM_STATE", True);
    if (state == None)
        return false;
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    (void)XGetWindowProperty(display, window, state, 0, 0, False, AnyPropertyType, &type, &format, &count,
                             &left, &data);
    if (data != nullptr)
        XFree(data);
    return type != None;
}
} // namespace

Window FindParent(Display* display, Window window)
{
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned int count = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count) == 0)
        return None;
    if (children != nullptr)
        XFree(children);
    return parent;
}

Window FindTopWindow(Display* display, Window window)
{
    Window top = window;
    while (!isManaged(display, top))
    {
        const Window parent = FindParent(display, top);
        if (parent == None || FindParent(display, parent) == None)
            break;
        top = parent;
    }
    return top;
}

bool IsInside(Display* display, Window window, Window ancestor)
{
    for (Window at = window; at != None; at = FindParent(display, at))
    {
        if (at == ancestor)
            return true;
    }
    return false;
}

bool IsOnScreen(Display* display, Window window)
{
    XWindowAttributes attributes;
    return window != None && XGetWindowAttributes(display, window, &attributes) != 0 &&
           attributes.map_state == IsViewable;
}
