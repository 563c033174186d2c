#include "panel/platform/x11/RawPresses.h"

#include <X11/extensions/XInput2.h>

namespace
{
/// The opcode of the extension, -1 if the server lacks it or has a version that is too old.
int findExtension(Display* display)
{
    int opcode = -1;
    int firstEvent = 0;
    int firstError = 0;
    int major = 2;
    int minor = 1; // The first that tells of raw presses while somebody has grabbed the pointer.
    const bool isThere =
        XQueryExtension(display, "XInputExtension", &opcode, &firstEvent, &firstError) != 0 &&
        XIQueryVersion(display, &major, &minor) == Success;
    return isThere ? opcode : -1;
}
} // namespace

RawPresses::RawPresses(Display* connection) : display(connection), opcode(findExtension(connection))
{
    select(Telling::on);
}

void RawPresses::Stop() { select(Telling::off); }

void RawPresses::select(Telling telling) const
{
    if (opcode < 0)
        return;
    unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
    if (telling == Telling::on)
        XISetMask(bits, XI_RawButtonPress);
    XIEventMask mask = {XIAllMasterDevices, sizeof bits, bits};
    (void)XISelectEvents(display, DefaultRootWindow(display), &mask, 1);
}

void RawPresses::Translate(XEvent& event) const
{
    if (event.type != GenericEvent || event.xcookie.extension != opcode ||
        XGetEventData(display, &event.xcookie) == 0)
        return;
    XEvent press = {};
    if (event.xcookie.evtype == XI_RawButtonPress)
    {
        const auto* raw = static_cast<const XIRawEvent*>(event.xcookie.data);
        press.xbutton.type = ButtonPress;
        press.xbutton.display = display;
        press.xbutton.time = raw->time;
        press.xbutton.button = static_cast<unsigned>(raw->detail);
    }
    XFreeEventData(display, &event.xcookie);
    if (press.type == ButtonPress)
        event = press;
}
