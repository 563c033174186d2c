#include "panel/platform/PlatformEvents.h"

// The host's run loop delivers everything, and there is no window server whose errors would end the host.

void DispatchPlatformEvents(ValueTreesDemo*) {}

PlatformErrorScope::PlatformErrorScope() : formerHandler(nullptr) {}

PlatformErrorScope::~PlatformErrorScope() = default;
