#pragma once
// How the panel's own events are delivered, where the host's run loop does not do it.

/// Called at the start of every idle hook, on the host's main thread, before the pass. Delivers what waits
/// for the panel: window events, timers, messages. Bounded, and safe to be entered again from inside itself.
/// Does nothing on macOS, where the host's run loop delivers them.
void DispatchPlatformEvents();
