#include "panel/platform/PanelatorUI.h"

PanelatorUI::PanelatorUI(SPBasicSuite* basicSuite, AEGP_PanelH hostPanel, PlatformView hostView,
                         AEGP_PanelFunctions1*)
    : view(hostView), panelH(hostPanel), appSuite(basicSuite), panelSuite(basicSuite)
{
}

PanelatorUI::~PanelatorUI() = default;
