#pragma once
// The panel's own native view. It lies inside JUCE's view, covers it, and watches the process's events:
// the keys that the tree needs are taken from the host and sent up the responder chain, to JUCE.

#import <AppKit/AppKit.h>

// The classes of all plug-ins in the host's process share one space of names.
__attribute__((objc_runtime_name("VortanSurfaceView")))
@interface SurfaceView : NSView
{
@private
    /// The token of the local event monitor. Set exactly while the view has a window.
    id _eventMonitor;
    /// The panel holds the keyboard: the last click in a key window fell inside this view.
    BOOL _eventFocus;
}
@end
