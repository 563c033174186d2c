#include "standin/desktop/model/IdleMeter.h"

#include <algorithm>

namespace standin::desktop
{
void IdleMeter::Tick(double now)
{
    ticks.push_back(now);
    while (ticks.front() <= now - 1)
        ticks.pop_front();
}

int IdleMeter::PerSecond(double now) const
{
    return static_cast<int>(
        std::count_if(ticks.begin(), ticks.end(), [now](double tick) { return tick > now - 1; }));
}
} // namespace standin::desktop
