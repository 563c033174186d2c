#pragma once
// The panel controller: one object per run of the host, the global refcon of all its hooks. It registers
// the panel and its menu entry with the host and publishes the panel suite.

#include "host/Export.h"
#include "host/SuiteHandler.h"
#include "host/SuiteHelper.h"
#include "panel/PanelSuite.h"
#include "tree/Tree.h"

class Panelator
{
public:
    /// Registers everything with the host and starts the tree's user interface library.
    /// `hostBasicSuite` must outlive the object. Throws the integer 13 if the host has no panel suite and
    /// 516 if it lacks another. Other host errors are ignored, except that without a command the panel suite
    /// is not published.
    Panelator(SPBasicSuite* hostBasicSuite, AEGP_PluginID id);

    Panelator(const Panelator&) = delete;
    Panelator& operator=(const Panelator&) = delete;

    // The host's callbacks. Each takes the Panelator as the global refcon and returns 0. The integers of
    // missing suites propagate to the host.
    static A_Err S_CommandHook(AEGP_GlobalRefcon globalRefcon, AEGP_CommandRefcon refcon,
                               AEGP_Command command, AEGP_HookPriority hookPriority, A_Boolean alreadyHandled,
                               A_Boolean* handled);
    static A_Err S_UpdateMenuHook(AEGP_GlobalRefcon globalRefcon, AEGP_UpdateMenuRefcon refcon,
                                  AEGP_WindowType windowType);
    /// Delivers what waits for the panel, then IdleHook. Inside a pass it does neither: an event that is
    /// delivered there could change the tree between two of the pass's steps. Leaves `maxSleep` alone.
    static A_Err S_IdleHook(AEGP_GlobalRefcon globalRefcon, AEGP_IdleRefcon refcon, A_long* maxSleep);
    /// Deletes the tree and the state table and ends the user interface library. The object itself stays.
    static A_Err S_DeathHook(AEGP_GlobalRefcon globalRefcon, AEGP_DeathRefcon refcon);
    /// `refcon` is the Panelator whose tree and state table the new panel replaces.
    static A_Err S_CreatePanelHook(AEGP_GlobalRefcon globalRefcon, AEGP_CreatePanelRefcon refcon,
                                   AEGP_PlatformViewRef view, AEGP_PanelH panelH,
                                   AEGP_PanelFunctions1* functions, AEGP_PanelRefcon* outRefcon);

    /// Toggles the panel if `chosen` is its command, and has the next idle rebuild the tree; any other
    /// command leaves `handled` as it is. `panelRef` may be null.
    void CommandHook(AEGP_Command chosen, AEGP_HookPriority hookPriority, A_Boolean alreadyHandled,
                     A_Boolean* handled, VnPanelRef* panelRef);

    /// Enables the menu entry and ticks it while the panel is shown and frontmost.
    void UpdateMenuHook(AEGP_WindowType windowType);

    /// One pass of the main loop: carries out what siblings and the tree asked for, compares the active
    /// layer with the tree and carries a difference across. The layer wins when both changed. Does nothing
    /// inside a pass that has dealt with its open request: what a pass holds of the stack, its indices above
    /// all, would no longer fit what an inner one leaves.
    void IdleHook(VnPanelRef* panelRef);

    SPBasicSuite* basicSuite;
    AEGP_PluginID pluginId;
    AEGP_SuiteHandler suites;
    AEGP_Command command = 0;    ///< The command of the Window menu entry.
    bool excludesPasses = false; ///< A pass runs that lets no other run inside it.
    SuiteHelper<AEGP_PanelSuite1, AssertAndThrowOnMissingSuite<AEGP_PanelSuite1>> panelSuite;
    const char* matchName;
    std::uint64_t layerHash = 0;                    ///< The layer side as last mirrored into the tree.
    std::uint64_t treeHash = 0;                     ///< The tree side as last examined.
    _TreeStateTable_Internal* stateTable = nullptr; ///< Made with the panel; null until then.
    ValueTreesDemo* tree = nullptr;                 ///< Made with the panel; null until then.
    std::vector<ObjectItem> layerItems;             ///< The last reading, whose memory the next one uses.

    /// Held here so that the host's pointer stays valid. Its `panelRef` is never freed, whatever becomes of
    /// the object: the hooks and sibling effects hold it until the host ends.
    VnPanelSuite publishedSuite{};

private:
    A_Err insertMenuEntry();
    void fillPublishedSuite();
    void registerHooks();
    void publishSuite(A_Err commandError);
};

/// Makes the one Panelator and stores it in `*out`. Returns 0. An exception of the constructor propagates to
/// the host.
VORTAN_EXPORT A_Err PanelEntryPointFunc(SPBasicSuite* basicSuite, A_long major, A_long minor,
                                        AEGP_PluginID id, AEGP_GlobalRefcon* out);
