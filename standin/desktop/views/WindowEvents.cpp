#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1

#include <juce_gui_basics/juce_gui_basics.h>

#include "standin/desktop/views/WindowEvents.h"

#include <JuceInternals.h>

namespace standin::desktop
{
void DeliverWindowEvents()
{
    if (const auto* windows = juce::XWindowSystem::getInstanceWithoutCreating())
        juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd(ConnectionNumber(windows->getDisplay()));
}
} // namespace standin::desktop
