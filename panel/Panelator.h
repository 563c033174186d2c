#pragma once
// The panel controller: one object per run of the host, the global refcon of all its hooks.

#include "host/SuiteHandler.h"
#include "host/SuiteHelper.h"
#include "panel/VnPanelRef.h"
#include "tree/Tree.h"

class Panelator
{
public:
    /// `hostBasicSuite` must outlive the object. Throws the integer 13 if the host has no panel suite and
    /// 516 if `hostBasicSuite` is null.
    Panelator(SPBasicSuite* hostBasicSuite, AEGP_PluginID id);

    /// The host's idle callback: `globalRefcon` is the Panelator, `refcon` its VnPanelRef. Leaves
    /// `maxSleep` alone. Returns 0. Lets the integers of missing suites go on to the host.
    static A_Err S_IdleHook(AEGP_GlobalRefcon globalRefcon, AEGP_IdleRefcon refcon, A_long* maxSleep);

    /// One pass of the main loop: carries out what siblings and the tree asked for, compares the active
    /// layer with the tree and carries a difference across. The layer wins when both changed. Must not be
    /// entered again from inside itself.
    void IdleHook(VnPanelRef* panelRef);

    SPBasicSuite* basicSuite;
    AEGP_PluginID pluginId;
    AEGP_SuiteHandler suites;
    AEGP_Command command = 0; ///< The command of the Window menu entry.
    SuiteHelper<AEGP_PanelSuite1, AssertAndThrowOnMissingSuite<AEGP_PanelSuite1>> panelSuite;
    const char* matchName;
    std::uint64_t layerHash = 0;                    ///< The layer side as last mirrored into the tree.
    std::uint64_t treeHash = 0;                     ///< The tree side as last examined.
    _TreeStateTable_Internal* stateTable = nullptr; ///< Made with the panel; null until then.
    ValueTreesDemo* tree = nullptr;                 ///< Made with the panel; null until then.
};
