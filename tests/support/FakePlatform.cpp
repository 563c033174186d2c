// The platform side of a panel without a window: what the platform would do goes into the log of the fake
// tree.

#include "tests/support/FakePlatform.h"

#include "panel/PanelContents.h"
#include "panel/platform/PanelatorUI_Plat.h"
#include "panel/platform/PlatformEvents.h"
#include "tests/support/FakeTree.h"

PanelMade& LastPanelMade()
{
    static PanelMade made;
    return made;
}

PanelatorUI_Plat::PanelatorUI_Plat(SPBasicSuite* basicSuite, AEGP_PanelH hostPanel, PlatformView hostView,
                                   AEGP_PanelFunctions1* functions, _TreeStateTable_Internal** stateTable,
                                   ValueTreesDemo** tree)
    : PanelatorUI(basicSuite, hostPanel, hostView, functions)
{
    LastPanelMade() = {basicSuite, hostPanel, hostView, functions, stateTable, tree};
    addToDesktop(CreatePanelContents(basicSuite, stateTable, tree), nullptr, 0, 0, hostView);
}

void DispatchPlatformEvents(ValueTreesDemo*) { TreeLog().Add("DispatchPlatformEvents()"); }

PlatformErrorScope::PlatformErrorScope() : formerHandler(nullptr) {}
PlatformErrorScope::~PlatformErrorScope() = default;
