#pragma once
// Keeps what is written to standard output, and lets a test look at it while it is still being written.

#include <string>

namespace standin::OutputCapture
{
/// One capture at a time.
void Start();
/// All that was written since Start.
std::string SoFar();
/// The part of it that does not wait in a buffer of the program any more.
std::string Flushed();
/// Gives standard output back.
std::string Stop();
} // namespace standin::OutputCapture
