#pragma once
// Catches what the code under test throws. Objective-C++ of this platform unwinds C++ exceptions but does
// not catch them, so these functions are plain C++.

#include <functional>

namespace standin
{
/// The integer that the action throws, or 0 if it throws none.
int CatchInteger(const std::function<void()>& action);

bool ThrowsOutOfRange(const std::function<void()>& action);
} // namespace standin
