#pragma once
// Questions about how windows lie in one another. Each costs round trips to the server.

#include <X11/Xlib.h>

/// The parent of a window; None for a root window and for one that has gone.
Window FindParent(Display* display, Window window);

/// The top window around `window`: the one that a window manager manages, or without a manager the one that
/// lies on the root. `window` itself if it has gone.
Window FindTopWindow(Display* display, Window window);

/// Whether `window` is `ancestor` or lies in it at any depth.
bool IsInside(Display* display, Window window, Window ancestor);

/// Whether the window and all that it lies in are mapped. False for one that has gone.
bool IsOnScreen(Display* display, Window window);
