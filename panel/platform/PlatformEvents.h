#pragma once
// What a platform does around the host's calls, where the host's run loop does not do it.
// On macOS all of this is empty.

#include "tree/Tree.h"

/// Called at the start of every idle hook, on the host's main thread, before the pass; not by an idle hook
/// that runs inside a pass. Delivers what waits for the panel: window events, timers, messages, the
/// container's new size, keys. Bounded, and safe to be entered again from inside itself. `tree` may be null.
void DispatchPlatformEvents(ValueTreesDemo* tree);

/// Held for the length of every host call that may reach the user interface: errors that the panel's own
/// connections to the window server meet are dropped; all others go to whoever handled them before.
class PlatformErrorScope
{
public:
    PlatformErrorScope();
    ~PlatformErrorScope();

    PlatformErrorScope(const PlatformErrorScope&) = delete;
    PlatformErrorScope& operator=(const PlatformErrorScope&) = delete;

private:
    [[maybe_unused]] void* formerHandler; ///< No platform but X11 has one.
};
