#include "panel/Panelator.h"

Panelator::Panelator(SPBasicSuite* hostBasicSuite, AEGP_PluginID id)
    : basicSuite(hostBasicSuite),
      pluginId(id),
      suites(hostBasicSuite),
      panelSuite(hostBasicSuite),
      matchName("Vortan Object Panel")
{
}

A_Err Panelator::S_IdleHook(AEGP_GlobalRefcon globalRefcon, AEGP_IdleRefcon refcon, A_long*)
{
    static_cast<Panelator*>(globalRefcon)->IdleHook(static_cast<VnPanelRef*>(refcon));
    return A_Err_NONE;
}
