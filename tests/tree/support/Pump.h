#pragma once
// Running JUCE's messages in a test, as a host's idle hook does.

#include <functional>

namespace standin
{
/// Delivers what is waiting: messages, timers, window events, repaints.
void pump();

/// Pumps until the condition holds. False if it does not hold within the limit, which is generous.
bool pumpUntil(const std::function<bool()>& condition);

/// Pumps for a while: only for showing that something does not happen.
void pumpFor(int milliseconds);
} // namespace standin
