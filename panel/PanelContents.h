#pragma once
// What a panel is filled with before a platform shows it: the widget, the state table, the effects that
// the user may add, the host's background colour. The same on every platform.

#include "host/SuiteHandler.h"
#include "tree/Tree.h"

/// Replaces the former panel's widget and table by new ones, and fills the new widget.
/// Either address may be null; what would be stored there is then the platform side's alone.
/// Returns the new widget. Throws the integer 516 if a suite is missing, and std::out_of_range if the menu
/// names of an effect family are fewer than its keys. What was stored by then stays stored.
ValueTreesDemo* CreatePanelContents(SPBasicSuite*, _TreeStateTable_Internal** stateTable,
                                    ValueTreesDemo** tree);
