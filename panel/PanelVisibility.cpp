#include "panel/PanelVisibility.h"

const A_u_char* HostText(const char* text) { return reinterpret_cast<const A_u_char*>(text); }

PanelVisibility AskVisibility(const AEGP_PanelSuite1& suite, const char* matchName, PanelVisibility preset)
{
    (void)suite.AEGP_IsShown(HostText(matchName), &preset.shown, &preset.frontmost);
    return preset;
}
