#pragma once
// The two NSEvent methods that GNUstep lacks, declared as macOS declares them. Installed
// monitors are kept in a list, and the tests pass events to their blocks as AppKit's event loop does.

#import <AppKit/AppKit.h>

using EventHandler = NSEvent* (^)(NSEvent*);

@interface NSEvent (Monitors)
+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(EventHandler)handler;
+ (void)removeMonitor:(id)monitor;
@end
