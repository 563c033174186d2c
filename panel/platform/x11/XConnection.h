#pragma once
// A connection of the panel's own to the X server. Errors on it are the panel's business alone: see
// PlatformErrorScope.

#include <X11/Xlib.h>

class XConnection
{
public:
    /// Stays closed if the server cannot be reached.
    XConnection();
    ~XConnection();

    XConnection(const XConnection&) = delete;
    XConnection& operator=(const XConnection&) = delete;

    /// Null while closed.
    Display* Get() const { return display; }

private:
    Display* display;
};

/// Whether an error on this connection is the panel's: one of the above, or JUCE's.
bool IsPanelConnection(Display* display);
