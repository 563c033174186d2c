#pragma once
// The events of JUCE's windows on Linux, for a program whose windows JUCE waits for by itself. Whoever links
// `juce` has it.

/// Delivers what Xlib holds already. JUCE looks for its events when something new arrives from the server,
/// and leaves lying what came in along with the answer to a question of its own: an open menu asks one twenty
/// times a second, and whether a component is to be seen is one as well. Without this a key or a click would
/// wait for the next event, which the next question may take in too. Does nothing without a display.
void DeliverJuceWindowEvents();
