#pragma once
// A view for a host that sends key equivalents to its panels. Nothing makes one today.

#import <AppKit/AppKit.h>

@interface PluginView : NSView
@end
