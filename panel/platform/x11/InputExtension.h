#pragma once
// The X input extension, whose events any client may select on any window.

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>
#include <initializer_list>

/// The opcode of the extension, -1 if the server lacks it or has a version that is too old.
int FindInputExtension(Display* display);

/// Selects these events of all masters on a window, and no others that this connection has selected there
/// before.
void SelectInputEvents(Display* display, Window window, std::initializer_list<int> events);
