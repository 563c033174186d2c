#include "tests/appkit/VirtualScreen.h"

#include "standin/user/x11/Xvfb.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <stdexcept>

namespace
{
/// The connection stays open to the end: GNUstep has one of its own, and the server ends after both.
Display* openDisplay()
{
    static const standin::user::Xvfb server(standin::screenWidth, standin::screenHeight);
    static Display* const display = XOpenDisplay(server.displayName().c_str());
    if (display == nullptr)
        throw std::runtime_error("the screen " + server.displayName() + " does not open");
    return display;
}
} // namespace

namespace standin
{
void OpenVirtualScreen() { (void)openDisplay(); }

void MovePointer(int x, int y)
{
    XTestFakeMotionEvent(openDisplay(), 0, x, y, CurrentTime);
    XSync(openDisplay(), False);
}

void ClickLeftButton()
{
    XTestFakeButtonEvent(openDisplay(), 1, True, CurrentTime);
    XTestFakeButtonEvent(openDisplay(), 1, False, CurrentTime);
    XSync(openDisplay(), False);
}

void TapKey(unsigned long keysym)
{
    const KeyCode code = XKeysymToKeycode(openDisplay(), keysym);
    XTestFakeKeyEvent(openDisplay(), code, True, CurrentTime);
    XTestFakeKeyEvent(openDisplay(), code, False, CurrentTime);
    XSync(openDisplay(), False);
}

void WaitUntilShown(void* connection) { XSync(static_cast<Display*>(connection), False); }
} // namespace standin
