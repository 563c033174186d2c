#pragma once
// A view for a host that sends key equivalents to its panels. Nothing makes one today.

#import <AppKit/AppKit.h>

// The classes of all plug-ins in the host's process share one space of names.
__attribute__((objc_runtime_name("VortanPluginView")))
@interface PluginView : NSView
@end
