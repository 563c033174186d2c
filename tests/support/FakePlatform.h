#pragma once
// The arguments of the last panel that the fake platform made.

#include "host/HostSuites.h"

class ValueTreesDemo;
struct _TreeStateTable_Internal;

/// Pointers to compare, not to follow: the host may have taken its container back.
struct PanelMade
{
    const void* basicSuite = nullptr;
    const void* panelH = nullptr;
    const void* view = nullptr;
    const void* functions = nullptr;
    _TreeStateTable_Internal** stateTable = nullptr;
    ValueTreesDemo** tree = nullptr;
};

/// Written when a panel is made, before anything in it can fail.
PanelMade& LastPanelMade();
