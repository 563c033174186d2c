#include "panel/PanelSuite.h"

#include "host/SuiteHelper.h"
#include "panel/PanelVisibility.h"

// Kept: nothing reads the last two rows.
const PanelString PANEL_STRINGS[4] = {
    {0, ""},
    {1, "Vortan Object Panel"},
    {2, "Object Control Panel for Vortan."},
    {3, "Error enabling Vortan Object Panel."},
};

int OpenPanel(VnPanelRef* ref, unsigned char force)
{
    if (force != 0)
    {
        ref->openPending = 1;
        return A_Err_NONE;
    }
    const SuiteHelper<AEGP_PanelSuite1> panels(ref->basicSuite);
    if (!AskVisibility(*panels, PANEL_STRINGS[PANEL_NAME_ROW].text).IsInFront())
        ref->openPending = 1;
    return A_Err_NONE;
}

int RefreshPanel(VnPanelRef* ref)
{
    ref->refreshPending = 1;
    return A_Err_NONE;
}

int PanelNotify(VnPanelRef* ref, const char* text)
{
    if (ref == nullptr)
        return A_Err_NONE;
    // A null text is no text.
    ref->notifyText = text == nullptr ? "" : text;
    ref->notifyPending = 1;
    return A_Err_NONE;
}
