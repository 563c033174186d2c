#pragma once
// The one place that decides what the panel component is built on. macOS hosts a component in a native
// view; elsewhere the component's own window goes straight into the host's container.

#include <juce_gui_basics/juce_gui_basics.h>

#if JUCE_MAC
#include <juce_gui_extra/juce_gui_extra.h>
using PanelBase = juce::NSViewComponent;
#else
using PanelBase = juce::Component;
#endif
