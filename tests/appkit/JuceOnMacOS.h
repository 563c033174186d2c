#pragma once
// Included before the tree's sources: JUCE's headers as they are on this system, and from there on the
// sources' own choice of platform is macOS.

#include <juce_gui_basics/juce_gui_basics.h>

#undef JUCE_LINUX
#undef JUCE_MAC
#define JUCE_MAC 1
