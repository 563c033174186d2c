#include "panel/platform/x11/InputExtension.h"

int FindInputExtension(Display* display)
{
    int opcode = -1;
    int firstEvent = 0;
    int firstError = 0;
    int major = 2;
    int minor = 1; // The first that reports raw presses while a client has grabbed the pointer.
    const bool isThere =
        XQueryExtension(display, "XInputExtension", &opcode, &firstEvent, &firstError) != 0 &&
        XIQueryVersion(display, &major, &minor) == Success;
    return isThere ? opcode : -1;
}

void SelectInputEvents(Display* display, Window window, std::initializer_list<int> events)
{
    unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
    for (const int event : events)
        bits[event >> 3] = static_cast<unsigned char>(bits[event >> 3] | 1 << (event & 7));
    XIEventMask mask = {XIAllMasterDevices, sizeof bits, bits};
    (void)XISelectEvents(display, window, &mask, 1);
}
