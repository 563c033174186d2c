#pragma once
// What the public headers of JUCE do not offer on Linux, under the names that each major version uses: the
// header of its event loop's inner side, and the function that delivers one batch of messages and window
// events. Whoever links `juce` has it.

#include <juce_events/juce_events.h>

#if JUCE_MAJOR_VERSION < 8
#include <juce_events/native/juce_linux_EventLoopInternal.h>

namespace juce
{
// JUCE's own plug-in wrappers declare it in this way; no header does.
extern bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
} // namespace juce

/// False if there was nothing to deliver.
inline bool DispatchJuceMessages() { return juce::dispatchNextMessageOnSystemQueue(true); }
#else
#include <juce_events/native/juce_EventLoopInternal_linux.h>

namespace juce::detail
{
extern bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
} // namespace juce::detail

inline bool DispatchJuceMessages() { return juce::detail::dispatchNextMessageOnSystemQueue(true); }
#endif
