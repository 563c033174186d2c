#include "tests/tree/support/Pump.h"

#include "tree/platform/x11/JuceInternals.h"

#include <chrono>
#include <thread>

namespace
{
constexpr int mostMessages = 1000;
constexpr auto limit = std::chrono::seconds(20);
constexpr auto nap = std::chrono::milliseconds(2);
} // namespace

namespace standin
{
void pump()
{
    for (int i = 0; i < mostMessages; ++i)
        if (!DispatchJuceMessages())
            return;
}

bool pumpUntil(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    for (;;)
    {
        pump();
        if (condition())
            return true;
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(nap);
    }
}

void pumpFor(int milliseconds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (std::chrono::steady_clock::now() < end)
    {
        pump();
        std::this_thread::sleep_for(nap);
    }
}
} // namespace standin
