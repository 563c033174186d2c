#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1

#include "tests/tree/support/Pump.h"

#include "standin/user/User.h"
#include "tree/platform/x11/TreeX11.h"

#include <JuceInternals.h>
#include <juce_gui_basics/juce_gui_basics.h>

namespace
{
constexpr int mostMessages = 1000;
} // namespace

namespace standin
{
using namespace user;

void deliverReadEvents()
{
    Display* display = GetTreeDisplay();
    if (display != nullptr && XEventsQueued(display, QueuedAlready) > 0)
        juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd(ConnectionNumber(display));
}

void pump()
{
    for (int i = 0; i < mostMessages; ++i)
    {
        deliverReadEvents();
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
