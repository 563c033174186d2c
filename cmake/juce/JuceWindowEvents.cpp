#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1

#include <juce_gui_basics/juce_gui_basics.h>

#include "JuceInternals.h"
#include "JuceWindowEvents.h"

void DeliverJuceWindowEvents()
{
    const auto* windows = juce::XWindowSystem::getInstanceWithoutCreating();
    if (windows != nullptr && windows->getDisplay() != nullptr)
        juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd(ConnectionNumber(windows->getDisplay()));
}
