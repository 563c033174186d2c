#include "panel/Panelator.h"

#include "host/PrintLine.h"
#include "panel/PanelVisibility.h"
#include "panel/platform/PanelatorUI_Plat.h"
#include "panel/platform/PlatformEvents.h"

namespace
{
Panelator* panelatorOf(AEGP_GlobalRefcon refcon) { return static_cast<Panelator*>(refcon); }
} // namespace

Panelator::Panelator(SPBasicSuite* hostBasicSuite, AEGP_PluginID id)
    : basicSuite(hostBasicSuite),
      pluginId(id),
      suites(hostBasicSuite),
      panelSuite(hostBasicSuite),
      matchName(PANEL_STRINGS[PANEL_NAME_ROW].text)
{
    const A_Err commandError = insertMenuEntry();
    fillPublishedSuite();
    registerHooks();
    publishSuite(commandError);
}

/// Goes on without a command: the entry and the hooks are then set up with whatever `command` holds.
A_Err Panelator::insertMenuEntry()
{
    const A_Err commandError = suites.CommandSuite1()->AEGP_GetUniqueCommand(&command);
    if (commandError != A_Err_NONE)
        PrintLine("Command Not Found");
    (void)suites.CommandSuite1()->AEGP_InsertMenuCommand(command, matchName, AEGP_Menu_WINDOW,
                                                         AEGP_MENU_INSERT_SORTED);
    return commandError;
}

/// Kept: the inbox is never freed, also if the constructor throws later on. The host hands it to the hooks,
/// and siblings hold it, for as long as the host lives.
void Panelator::fillPublishedSuite()
{
    auto* panelRef = new VnPanelRef;
    panelRef->pluginId = pluginId;
    panelRef->basicSuite = basicSuite;
    publishedSuite = {panelRef, &OpenPanel, &RefreshPanel, &PanelNotify};
}

void Panelator::registerHooks()
{
    VnPanelRef* panelRef = publishedSuite.panelRef;
    const AEGP_RegisterSuite5* registering = suites.RegisterSuite5();
    (void)registering->AEGP_RegisterCommandHook(pluginId, AEGP_HP_BeforeAE, command, &S_CommandHook,
                                                panelRef);
    (void)registering->AEGP_RegisterUpdateMenuHook(pluginId, &S_UpdateMenuHook, nullptr);
    (void)registering->AEGP_RegisterIdleHook(pluginId, &S_IdleHook, panelRef);
    (void)registering->AEGP_RegisterDeathHook(pluginId, &S_DeathHook, nullptr);
    constexpr A_Boolean paintBackground = 0;
    (void)panelSuite->AEGP_RegisterCreatePanelHook(pluginId, HostText(matchName), &S_CreatePanelHook, this,
                                                   paintBackground);
}

void Panelator::publishSuite(A_Err commandError)
{
    const AEGP_SuiteHandler publishing(basicSuite);
    if (commandError == A_Err_NONE)
    {
        void* suiteRef = nullptr;
        (void)publishing.SuitesSuite()->AddSuite(nullptr, nullptr, VN_PANEL_SUITE_NAME, 1, 1, &publishedSuite,
                                                 &suiteRef);
    }
    JuceGlobalInit();
}

A_Err Panelator::S_CommandHook(AEGP_GlobalRefcon globalRefcon, AEGP_CommandRefcon refcon,
                               AEGP_Command command, AEGP_HookPriority hookPriority, A_Boolean alreadyHandled,
                               A_Boolean* handled)
{
    const PlatformErrorScope errors;
    panelatorOf(globalRefcon)
        ->CommandHook(command, hookPriority, alreadyHandled, handled, static_cast<VnPanelRef*>(refcon));
    return A_Err_NONE;
}

A_Err Panelator::S_UpdateMenuHook(AEGP_GlobalRefcon globalRefcon, AEGP_UpdateMenuRefcon,
                                  AEGP_WindowType windowType)
{
    panelatorOf(globalRefcon)->UpdateMenuHook(windowType);
    return A_Err_NONE;
}

A_Err Panelator::S_IdleHook(AEGP_GlobalRefcon globalRefcon, AEGP_IdleRefcon refcon, A_long*)
{
    Panelator* panelator = panelatorOf(globalRefcon);
    if (panelator->excludesPasses)
        return A_Err_NONE;
    const PlatformErrorScope errors;
    DispatchPlatformEvents(panelator->tree);
    panelator->IdleHook(static_cast<VnPanelRef*>(refcon));
    return A_Err_NONE;
}

A_Err Panelator::S_DeathHook(AEGP_GlobalRefcon globalRefcon, AEGP_DeathRefcon)
{
    const PlatformErrorScope errors;
    Panelator* panelator = panelatorOf(globalRefcon);
    if (panelator->tree != nullptr)
    {
        ClearTree(panelator->tree);
        DeleteTreeWidget(panelator->tree);
        panelator->tree = nullptr;
    }
    if (panelator->stateTable != nullptr)
    {
        DeleteTreeStateTable(panelator->stateTable);
        panelator->stateTable = nullptr;
    }
    JuceGlobalShutDown();
    return A_Err_NONE;
}

A_Err Panelator::S_CreatePanelHook(AEGP_GlobalRefcon globalRefcon, AEGP_CreatePanelRefcon refcon,
                                   AEGP_PlatformViewRef view, AEGP_PanelH panelH,
                                   AEGP_PanelFunctions1* functions, AEGP_PanelRefcon* outRefcon)
{
    const PlatformErrorScope errors;
    Panelator* owner = panelatorOf(refcon);
    *outRefcon = new PanelatorUI_Plat(panelatorOf(globalRefcon)->basicSuite, panelH,
                                      reinterpret_cast<PlatformView>(view), functions, &owner->stateTable,
                                      &owner->tree);
    return A_Err_NONE;
}

void Panelator::CommandHook(AEGP_Command chosen, AEGP_HookPriority, A_Boolean, A_Boolean* handled,
                            VnPanelRef* panelRef)
{
    if (chosen != command)
        return;
    PrintLine("Make Panel Visible");
    // Kept: the answer is not used.
    (void)AskVisibility(*panelSuite, matchName, {1, 1});

    // A hide takes the tree away, so its state is saved first. Kept: while the panel is hidden there is no
    // root row, and an empty state replaces the one that was saved at the hide.
    AEGP_LayerH layer = nullptr;
    (void)suites.LayerSuite1()->AEGP_GetActiveLayer(&layer);
    if (layer != nullptr)
    {
        AEGP_LayerIDVal layerId = 0;
        (void)suites.LayerSuite1()->AEGP_GetLayerID(layer, &layerId);
        CacheLayerTreeState(stateTable, layerId, tree);
    }
    (void)panelSuite->AEGP_ToggleVisibility(HostText(matchName));
    if (panelRef != nullptr)
        panelRef->refreshPending = 1;
    *handled = 1;
}

void Panelator::UpdateMenuHook(AEGP_WindowType)
{
    (void)suites.CommandSuite1()->AEGP_EnableCommand(command);
    (void)suites.CommandSuite1()->AEGP_CheckMarkMenuCommand(
        command, AskVisibility(*panelSuite, matchName).IsInFront() ? 1 : 0);
}

A_Err PanelEntryPointFunc(SPBasicSuite* basicSuite, A_long, A_long, AEGP_PluginID id, AEGP_GlobalRefcon* out)
{
    const PlatformErrorScope errors;
    *out = new Panelator(basicSuite, id);
    return A_Err_NONE;
}
