#pragma once
// What a loaded bundle keeps until the host ends, and never frees: its controller, the record of its panel
// suite, its panels. A test that ends before its program does frees them, so that the leak checker sees only
// other leaks. The blocks of the first entry point are plain memory, of which LeakSuppressions.cpp tells the
// checker.

#include "standin/host/core/Host.h"

#include <vector>

namespace standin
{
/// Made after the bundle's panel plug-in was loaded, and before a panel. One lives at a time.
class KeptBlocks
{
public:
    KeptBlocks(Host& host, const LoadedPlugin& panelPlugin);
    KeptBlocks(const KeptBlocks&) = delete;
    KeptBlocks& operator=(const KeptBlocks&) = delete;

    /// After the host has quit.
    void Free();

private:
    static A_Err createPanel(void* global, void* refcon, void* container, PanelH panel,
                             PanelFunctions* functions, void** outRefcon);

    Host& host;
    LoadedPlugin plugin;
    CreatePanelHook createHook = nullptr; ///< The bundle's own. The host calls the one above instead.
    std::vector<void*> panels;            ///< The refcons of all that were made.
};
} // namespace standin
