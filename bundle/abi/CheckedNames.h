#pragma once
// Every name of the interface that abi-check compares. Each list calls a macro once per name.

// clang-format off

#define VORTAN_CHECKED_SCALARS(CHECK)                                                                        \
    CHECK(A_long) CHECK(A_u_long) CHECK(A_short) CHECK(A_u_short) CHECK(A_char) CHECK(A_u_char)              \
    CHECK(A_Boolean) CHECK(A_Err) CHECK(PF_Err) CHECK(SPErr) CHECK(PF_Cmd) CHECK(PF_ParamIndex)              \
    CHECK(AEGP_PluginID) CHECK(AEGP_Command) CHECK(AEGP_InstalledEffectKey) CHECK(AEGP_EffectFlags)          \
    CHECK(AEGP_EffectIndex) CHECK(AEGP_LayerIDVal) CHECK(AEGP_DynStreamFlags) CHECK(AEGP_HookPriority)       \
    CHECK(AEGP_MenuID) CHECK(AEGP_WindowType)                                                                \
    CHECK(AEGP_LayerH) CHECK(AEGP_EffectRefH) CHECK(AEGP_StreamRefH) CHECK(AEGP_ItemH) CHECK(AEGP_CompH)     \
    CHECK(AEGP_PanelH) CHECK(AEGP_GlobalRefcon) CHECK(AEGP_CommandRefcon) CHECK(AEGP_UpdateMenuRefcon)       \
    CHECK(AEGP_IdleRefcon) CHECK(AEGP_DeathRefcon) CHECK(AEGP_CreatePanelRefcon) CHECK(AEGP_PanelRefcon)     \
    CHECK(AEGP_PlatformViewRef)

#define VORTAN_CHECKED_CONSTANTS(CHECK)                                                                      \
    CHECK(A_Err_NONE) CHECK(A_Err_GENERIC) CHECK(A_Err_STRUCT) CHECK(A_Err_PARAMETER) CHECK(A_Err_ALLOC)     \
    CHECK(A_Err_MISSING_SUITE)                                                                               \
    CHECK(PF_Err_NONE) CHECK(PF_Err_OUT_OF_MEMORY) CHECK(PF_Err_INVALID_CALLBACK)                            \
    CHECK(PF_Err_BAD_CALLBACK_PARAM)                                                                         \
    CHECK(AEGP_HP_BeforeAE) CHECK(AEGP_Menu_WINDOW) CHECK(AEGP_MENU_INSERT_SORTED)                           \
    CHECK(AEGP_EffectFlags_ACTIVE) CHECK(AEGP_DynStreamFlag_ACTIVE_EYEBALL)                                  \
    CHECK(AEGP_DynStreamFlag_HIDDEN) CHECK(PF_Cmd_COMPLETELY_GENERAL) CHECK(AEGP_InstalledEffectKey_NONE)

#define VORTAN_CHECKED_TABLES(CHECK)                                                                         \
    CHECK(A_Time) CHECK(PF_App_Color) CHECK(SPBasicSuite) CHECK(AEGP_PanelFunctions1) CHECK(SPSuitesSuite)   \
    CHECK(AEGP_CommandSuite1) CHECK(AEGP_RegisterSuite5) CHECK(AEGP_PanelSuite1) CHECK(AEGP_ItemSuite1)      \
    CHECK(AEGP_LayerSuite1) CHECK(AEGP_EffectSuite1) CHECK(AEGP_EffectSuite3) CHECK(AEGP_StreamSuite1)       \
    CHECK(AEGP_StreamSuite2) CHECK(AEGP_DynamicStreamSuite2) CHECK(AEGP_DynamicStreamSuite4)                 \
    CHECK(AEGP_UtilitySuite1) CHECK(AEGP_UtilitySuite3) CHECK(AEGP_UtilitySuite5) CHECK(PFAppSuite4)

#define VORTAN_CHECKED_EFFECT_MEMBERS(CHECK, suite)                                                          \
    CHECK(suite, AEGP_GetLayerNumEffects) CHECK(suite, AEGP_GetLayerEffectByIndex)                           \
    CHECK(suite, AEGP_GetInstalledKeyFromLayerEffect) CHECK(suite, AEGP_GetEffectFlags)                      \
    CHECK(suite, AEGP_SetEffectFlags) CHECK(suite, AEGP_ReorderEffect) CHECK(suite, AEGP_EffectCallGeneric)  \
    CHECK(suite, AEGP_DisposeEffect) CHECK(suite, AEGP_ApplyEffect) CHECK(suite, AEGP_DeleteLayerEffect)     \
    CHECK(suite, AEGP_GetNumInstalledEffects) CHECK(suite, AEGP_GetNextInstalledEffect)                      \
    CHECK(suite, AEGP_GetEffectMatchName)

#define VORTAN_CHECKED_UTILITY_MEMBERS(CHECK, suite)                                                         \
    CHECK(suite, AEGP_ReportInfo) CHECK(suite, AEGP_GetDriverPluginInitFuncVersion)                          \
    CHECK(suite, AEGP_StartUndoGroup) CHECK(suite, AEGP_EndUndoGroup)

#define VORTAN_CHECKED_MEMBERS(CHECK)                                                                        \
    CHECK(A_Time, value) CHECK(A_Time, scale)                                                                \
    CHECK(PF_App_Color, red) CHECK(PF_App_Color, green) CHECK(PF_App_Color, blue)                            \
    CHECK(SPBasicSuite, AcquireSuite) CHECK(SPBasicSuite, ReleaseSuite) CHECK(SPBasicSuite, IsEqual)         \
    CHECK(SPBasicSuite, AllocateBlock) CHECK(SPBasicSuite, FreeBlock) CHECK(SPBasicSuite, ReallocateBlock)   \
    CHECK(SPBasicSuite, Undefined)                                                                           \
    CHECK(AEGP_PanelFunctions1, GetSnapSizes) CHECK(AEGP_PanelFunctions1, PopulateFlyout)                    \
    CHECK(AEGP_PanelFunctions1, DoFlyoutCommand)                                                             \
    CHECK(SPSuitesSuite, AddSuite)                                                                           \
    CHECK(AEGP_CommandSuite1, AEGP_GetUniqueCommand) CHECK(AEGP_CommandSuite1, AEGP_InsertMenuCommand)       \
    CHECK(AEGP_CommandSuite1, AEGP_EnableCommand) CHECK(AEGP_CommandSuite1, AEGP_CheckMarkMenuCommand)       \
    CHECK(AEGP_CommandSuite1, AEGP_DoCommand)                                                                \
    CHECK(AEGP_RegisterSuite5, AEGP_RegisterCommandHook)                                                     \
    CHECK(AEGP_RegisterSuite5, AEGP_RegisterUpdateMenuHook)                                                  \
    CHECK(AEGP_RegisterSuite5, AEGP_RegisterDeathHook) CHECK(AEGP_RegisterSuite5, AEGP_RegisterIdleHook)     \
    CHECK(AEGP_PanelSuite1, AEGP_RegisterCreatePanelHook) CHECK(AEGP_PanelSuite1, AEGP_ToggleVisibility)     \
    CHECK(AEGP_PanelSuite1, AEGP_IsShown)                                                                    \
    CHECK(AEGP_ItemSuite1, AEGP_GetActiveItem) CHECK(AEGP_ItemSuite1, AEGP_GetItemID)                        \
    CHECK(AEGP_LayerSuite1, AEGP_GetActiveLayer) CHECK(AEGP_LayerSuite1, AEGP_GetLayerParentComp)            \
    CHECK(AEGP_LayerSuite1, AEGP_GetLayerID)                                                                 \
    VORTAN_CHECKED_EFFECT_MEMBERS(CHECK, AEGP_EffectSuite1)                                                  \
    VORTAN_CHECKED_EFFECT_MEMBERS(CHECK, AEGP_EffectSuite3)                                                  \
    CHECK(AEGP_StreamSuite1, AEGP_GetNewEffectStreamByIndex) CHECK(AEGP_StreamSuite1, AEGP_DisposeStream)    \
    CHECK(AEGP_StreamSuite1, AEGP_GetStreamName)                                                             \
    CHECK(AEGP_StreamSuite2, AEGP_DisposeStream)                                                             \
    CHECK(AEGP_DynamicStreamSuite2, AEGP_GetDynamicStreamFlags)                                              \
    CHECK(AEGP_DynamicStreamSuite2, AEGP_SetDynamicStreamFlag)                                               \
    CHECK(AEGP_DynamicStreamSuite2, AEGP_SetStreamName)                                                      \
    CHECK(AEGP_DynamicStreamSuite2, AEGP_GetNewParentStreamRef)                                              \
    CHECK(AEGP_DynamicStreamSuite4, AEGP_SetDynamicStreamFlag)                                               \
    VORTAN_CHECKED_UTILITY_MEMBERS(CHECK, AEGP_UtilitySuite1)                                                \
    VORTAN_CHECKED_UTILITY_MEMBERS(CHECK, AEGP_UtilitySuite3)                                                \
    VORTAN_CHECKED_UTILITY_MEMBERS(CHECK, AEGP_UtilitySuite5)                                                \
    CHECK(PFAppSuite4, PF_AppGetBgColor)

// clang-format on
