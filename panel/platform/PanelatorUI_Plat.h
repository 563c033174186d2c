#pragma once
// The seam between the panel controller and the platform: one source file per platform implements it,
// in panel/platform/mac and panel/platform/x11. The controller sees this header alone.

#include "panel/platform/PanelatorUI.h"
#include "tree/Tree.h"

/// Puts the panel's widget into the container that the host hands over.
class PanelatorUI_Plat : public PanelatorUI
{
public:
    /// `stateTable` and `tree` are the addresses of the controller's own pointers. What they point at is
    /// deleted and replaced by the new panel's; either address may be null.
    /// Throws the integer 13 or 516 if a suite is missing, and std::out_of_range if the menu names of an
    /// effect family are fewer than its keys. The widget and the table are then stored all the same.
    PanelatorUI_Plat(SPBasicSuite*, AEGP_PanelH, PlatformView, AEGP_PanelFunctions1*,
                     _TreeStateTable_Internal** stateTable, ValueTreesDemo** tree);
};
