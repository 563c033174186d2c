#include "panel/platform/PlatformEvents.h"
#include "tree/platform/x11/TreeX11.h"

#include <X11/Xlib.h>

namespace
{
/// The host's handler that a scope has found last. Scopes nest when a hook runs inside another, and the host
/// may have set a handler of its own in between. Xlib has one handler for the whole program, so this stands
/// here once.
XErrorHandler& handlerOfHost()
{
    static XErrorHandler handler = nullptr;
    return handler;
}

int handleError(Display* display, XErrorEvent* error)
{
    const XErrorHandler host = handlerOfHost();
    return display == GetTreeDisplay() || host == nullptr ? 0 : host(display, error);
}
} // namespace

PlatformErrorScope::PlatformErrorScope() : formerHandler(nullptr)
{
    const XErrorHandler former = XSetErrorHandler(&handleError);
    if (former != &handleError)
        handlerOfHost() = former;
    formerHandler = reinterpret_cast<void*>(former);
}

/// The host may have replaced its handler inside the call: the new one stays.
PlatformErrorScope::~PlatformErrorScope()
{
    const XErrorHandler present = XSetErrorHandler(reinterpret_cast<XErrorHandler>(formerHandler));
    if (present != &handleError)
        (void)XSetErrorHandler(present);
}
