#pragma once
// The native container of a panel in the platform's own type: what the host hands over as an
// AEGP_PlatformViewRef.

#include "host/HostTypes.h"

#if defined(__OBJC__)
@class NSView;
using PlatformView = NSView*;
#elif defined(__APPLE__)
class NSView;
using PlatformView = NSView*;
#else
/// An X11 `Window` id widened into a pointer.
using PlatformView = AEGP_PlatformViewRef;
#endif
