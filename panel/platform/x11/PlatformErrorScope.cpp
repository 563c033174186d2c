#include "panel/platform/PlatformEvents.h"
#include "panel/platform/x11/XConnection.h"

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
    return IsPanelConnection(display) || host == nullptr ? 0 : host(display, error);
}
} // namespace

PlatformErrorScope::PlatformErrorScope() : formerHandler(nullptr)
{
    const XErrorHandler former = XSetErrorHandler(&handleError);
    if (formerHandlerOfHost().scopes++ == 0)
        formerHandlerOfHost().handler = former;
    formerHandler = reinterpret_cast<void*>(former);
}

PlatformErrorScope::~PlatformErrorScope()
{
    --formerHandlerOfHost().scopes;
    (void)XSetErrorHandler(reinterpret_cast<XErrorHandler>(formerHandler));
}
