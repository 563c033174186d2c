#pragma once
// The tree's selection decides which of the family's effects the host shows.

#include "effects/ObjectItem.h"
#include "host/HostSuites.h"

#include <vector>

/// Shows the layer's effects that are in `selected` and puts the family's others out of sight: by hiding
/// them if `useHide`, by twirling them otherwise. Outside effects and an unselected kit effect are left
/// alone, and so is an unselected main effect unless `touchMain`. What goes out of sight goes first, from
/// the top of the stack down; what is shown follows from the bottom up.
/// A null layer changes nothing. Host errors are not reported; an error in one effect leaves its undo group
/// open and stops no other effect. Throws the integer 516 if a suite is missing.
void SelectEffectsFromItems(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer, bool useHide,
                            bool touchMain, const std::vector<ObjectItem>& selected);
