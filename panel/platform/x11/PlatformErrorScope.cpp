#include "panel/platform/PlatformEvents.h"
#include "tree/TreeX11.h"

#include <X11/Xlib.h>

namespace
{
/// Whoever handled errors before the outermost of the scopes that are open now, which nest when a hook runs
/// inside another. Xlib has one handler for the whole program, so this stands here once.
struct FormerHandler
{
    XErrorHandler handler = nullptr;
    int scopes = 0;
};

FormerHandler& formerHandlerOfHost()
{
    static FormerHandler former;
    return former;
}

int handleError(Display* display, XErrorEvent* error)
{
    const XErrorHandler host = formerHandlerOfHost().handler;
    return display == GetTreeDisplay() || host == nullptr ? 0 : host(display, error);
}
} // namespace

PlatformErrorScope::PlatformErrorScope() : formerHandler(nullptr)
{
    const XErrorHandler former = XSetErrorHandler(&handleError);
    if (formerHandlerOfHost().scopes++ == 0)
        formerHandlerOfHost().handler = former;
    formerHandler = reinterpret_cast<void*>(former);
}

/// The host may have set another handler inside the call, for good: that one stays.
PlatformErrorScope::~PlatformErrorScope()
{
    --formerHandlerOfHost().scopes;
    const XErrorHandler present = XSetErrorHandler(reinterpret_cast<XErrorHandler>(formerHandler));
    if (present != &handleError)
        (void)XSetErrorHandler(present);
}
