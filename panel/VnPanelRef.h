#pragma once
// The inbox of the idle pass: sibling effects write to it through the panel suite's functions, and only
// the pass acts on it.

#include "host/HostSuites.h"

#include <string>

struct VnPanelRef
{
    AEGP_PluginID pluginId = 0;
    SPBasicSuite* basicSuite = nullptr;
    std::uint8_t refreshPending = 0; ///< Rebuild the tree at the next idle.
    std::uint8_t openPending = 0;    ///< 0 or 1: run the panel's command at the next idle.
    std::uint8_t notifyPending = 0;  ///< `notifyText` waits to be shown.
    std::string notifyText;
};
