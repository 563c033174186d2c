#pragma once
// The write side of the idle pass: makes a layer's effect stack agree with the tree.

#include "effects/ObjectItem.h"
#include "host/HostSuites.h"

#include <vector>

/// Carries every difference between `layerItems` and `treeItems` to the layer; the tree wins. First all
/// names, then all groups, then all active states, then the order of the stack. Adds and deletes nothing:
/// an item without a partner of the same identity is passed over.
/// `layerItems` serves for comparing alone; effects are found by reading the layer's identities afresh.
/// Each rename is an undo step "Rename Effect(s)". The order is one step, "Reorder Effect(s)" if nothing
/// else differed and nameless otherwise, and is opened and closed also if nothing moves.
/// Host errors are not reported; one item's failure stops no other. A host error inside a rename leaves its
/// undo group open. A null layer writes nothing. Throws the integer 516 if a suite is missing.
void LayerEffectChanges(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer,
                        const std::vector<ObjectItem>& layerItems, const std::vector<ObjectItem>& treeItems);
