#pragma once
// How often the host idles, from the times that it is told.

#include <deque>

namespace standin::desktop
{
class IdleMeter
{
public:
    /// An idle pass ran at this time, in seconds since whatever moment; times never go back.
    void Tick(double now);
    /// Passes in the second before `now`.
    int PerSecond(double now) const;

private:
    std::deque<double> ticks;
};
} // namespace standin::desktop
