#pragma once
// JUCE includes it and uses nothing of it; the order of bytes comes with it.

#include <libkern/OSByteOrder.h>
