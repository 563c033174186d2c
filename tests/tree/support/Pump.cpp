#include "tests/tree/support/Pump.h"

#include "standin/user/User.h"

#include <JuceInternals.h>
#include <JuceWindowEvents.h>

namespace
{
constexpr int mostMessages = 1000;
} // namespace

namespace standin
{
using namespace user;

void pump()
{
    for (int i = 0; i < mostMessages; ++i)
    {
        DeliverJuceWindowEvents();
        if (!DispatchJuceMessages())
            return;
    }
}

bool pumpUntil(const std::function<bool()>& condition)
{
    pump();
    return WaitUntil(condition, &pump);
}

void pumpFor(int milliseconds) { WaitFor(std::chrono::milliseconds(milliseconds), &pump); }
} // namespace standin
