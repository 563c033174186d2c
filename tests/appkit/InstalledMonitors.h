#pragma once
// What the tests ask of the installed event monitors, and how they hand events to them.

#import <AppKit/AppKit.h>

#include <cstddef>

namespace standin
{
std::size_t CountOfMonitors();

/// At least one monitor must be installed.
NSEventMask MaskOfOnlyMonitor();

/// Hands the event to the block of every monitor whose mask fits, as AppKit does before it dispatches an
/// event. Returns the event to dispatch, or nil if a block kept it.
NSEvent* PassThroughMonitors(NSEvent* event);
} // namespace standin
