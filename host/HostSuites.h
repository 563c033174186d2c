#pragma once
// The host's tables of functions, slot by slot, and the hooks that a plug-in registers.
// A struct's name, the suite's name and the suite's version number are three different things;
// SuiteTraits.h ties them together. Slots that this system never calls are `reserved`.

#include "host/HostTypes.h"

using ReservedSlot = void*;

struct SPBasicSuite
{
    SPErr (*AcquireSuite)(const char* name, std::int32_t version, const void** suite);
    SPErr (*ReleaseSuite)(const char* name, std::int32_t version);
    SPBoolean (*IsEqual)(const char* first, const char* second);
    SPErr (*AllocateBlock)(std::size_t size, void** block);
    SPErr (*FreeBlock)(void* block);
    SPErr (*ReallocateBlock)(void* block, std::size_t size, void** newBlock);
    SPErr (*Undefined)();
};

using AEGP_PluginInitFunc = A_Err (*)(SPBasicSuite*, A_long driverMajor, A_long driverMinor, AEGP_PluginID,
                                      AEGP_GlobalRefcon* out);

using AEGP_CommandHook = A_Err (*)(AEGP_GlobalRefcon, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority,
                                   A_Boolean alreadyHandled, A_Boolean* handled);
using AEGP_UpdateMenuHook = A_Err (*)(AEGP_GlobalRefcon, AEGP_UpdateMenuRefcon, AEGP_WindowType active);
using AEGP_IdleHook = A_Err (*)(AEGP_GlobalRefcon, AEGP_IdleRefcon, A_long* maxSleep);
using AEGP_DeathHook = A_Err (*)(AEGP_GlobalRefcon, AEGP_DeathRefcon);

/// What a panel may offer to the host. The host zeroes it; an untouched slot means its default.
struct AEGP_PanelFunctions1
{
    void* GetSnapSizes;
    void* PopulateFlyout;
    void* DoFlyoutCommand;
};

using AEGP_CreatePanelHook = A_Err (*)(AEGP_GlobalRefcon, AEGP_CreatePanelRefcon,
                                       AEGP_PlatformViewRef container, AEGP_PanelH,
                                       AEGP_PanelFunctions1* outFunctions, AEGP_PanelRefcon* out);

struct SPSuitesSuite
{
    ReservedSlot reserved0[2];
    /// A null list means the application's own; a null plug-in means no owner. The host keeps `procs`
    /// as it is, so the table lives until the host ends.
    SPErr (*AddSuite)(void* list, void* plugin, const char* name, std::int32_t apiVersion,
                      std::int32_t internalVersion, const void* procs, void** out);
    ReservedSlot reserved3[11];
};

struct AEGP_CommandSuite1
{
    A_Err (*AEGP_GetUniqueCommand)(AEGP_Command*);
    A_Err (*AEGP_InsertMenuCommand)(AEGP_Command, const A_char* name, AEGP_MenuID, A_long afterItem);
    ReservedSlot reserved2[2];
    A_Err (*AEGP_EnableCommand)(AEGP_Command);
    ReservedSlot reserved5[1];
    A_Err (*AEGP_CheckMarkMenuCommand)(AEGP_Command, A_Boolean check);
    A_Err (*AEGP_DoCommand)(AEGP_Command);
};

struct AEGP_RegisterSuite5
{
    A_Err (*AEGP_RegisterCommandHook)(AEGP_PluginID, AEGP_HookPriority, AEGP_Command, AEGP_CommandHook,
                                      AEGP_CommandRefcon);
    A_Err (*AEGP_RegisterUpdateMenuHook)(AEGP_PluginID, AEGP_UpdateMenuHook, AEGP_UpdateMenuRefcon);
    A_Err (*AEGP_RegisterDeathHook)(AEGP_PluginID, AEGP_DeathHook, AEGP_DeathRefcon);
    ReservedSlot reserved3[5];
    A_Err (*AEGP_RegisterIdleHook)(AEGP_PluginID, AEGP_IdleHook, AEGP_IdleRefcon);
    ReservedSlot reserved9[3];
};

/// Panel names are UTF-8.
struct AEGP_PanelSuite1
{
    A_Err (*AEGP_RegisterCreatePanelHook)(AEGP_PluginID, const A_u_char* matchName, AEGP_CreatePanelHook,
                                          AEGP_CreatePanelRefcon, A_Boolean paintBackground);
    ReservedSlot reserved1[2];
    /// What a Window menu entry does: an absent panel is created and shown, one in the background
    /// comes to the front, one that is shown and frontmost is closed.
    A_Err (*AEGP_ToggleVisibility)(const A_u_char* matchName);
    A_Err (*AEGP_IsShown)(const A_u_char* matchName, A_Boolean* tabIsShown, A_Boolean* panelIsFrontmost);
};

struct AEGP_ItemSuite1
{
    ReservedSlot reserved0[1];
    A_Err (*AEGP_GetActiveItem)(AEGP_ItemH*);
    ReservedSlot reserved2[5];
    A_Err (*AEGP_GetItemID)(AEGP_ItemH, A_long*);
    ReservedSlot reserved8[12];
};

struct AEGP_LayerSuite1
{
    ReservedSlot reserved0[2];
    A_Err (*AEGP_GetActiveLayer)(AEGP_LayerH*);
    ReservedSlot reserved3[2];
    A_Err (*AEGP_GetLayerParentComp)(AEGP_LayerH, AEGP_CompH*);
    ReservedSlot reserved6[27];
    /// This version of the table has one time conversion, here; later versions have one for each
    /// direction, with the layer-to-comp one second. Slot 34 of this version is something else
    /// with a narrower result and would hand an effect a broken time.
    A_Err (*AEGP_ConvertLayerToCompTime)(AEGP_LayerH, const A_Time* in, A_Time* out);
    ReservedSlot reserved34[1];
    A_Err (*AEGP_GetLayerID)(AEGP_LayerH, AEGP_LayerIDVal*);
    ReservedSlot reserved36[3];
};

struct AEGP_EffectSuite1
{
    A_Err (*AEGP_GetLayerNumEffects)(AEGP_LayerH, A_long*);
    A_Err (*AEGP_GetLayerEffectByIndex)(AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex, AEGP_EffectRefH*);
    A_Err (*AEGP_GetInstalledKeyFromLayerEffect)(AEGP_EffectRefH, AEGP_InstalledEffectKey*);
    ReservedSlot reserved3[1];
    A_Err (*AEGP_GetEffectFlags)(AEGP_EffectRefH, AEGP_EffectFlags*);
    A_Err (*AEGP_SetEffectFlags)(AEGP_EffectRefH, AEGP_EffectFlags mask, AEGP_EffectFlags value);
    A_Err (*AEGP_ReorderEffect)(AEGP_EffectRefH, A_long index);
    A_Err (*AEGP_EffectCallGeneric)(AEGP_PluginID, AEGP_EffectRefH, const A_Time*, void* extra);
    A_Err (*AEGP_DisposeEffect)(AEGP_EffectRefH);
    A_Err (*AEGP_ApplyEffect)(AEGP_PluginID, AEGP_LayerH, AEGP_InstalledEffectKey, AEGP_EffectRefH*);
    A_Err (*AEGP_DeleteLayerEffect)(AEGP_EffectRefH);
    A_Err (*AEGP_GetNumInstalledEffects)(A_long*);
    A_Err (*AEGP_GetNextInstalledEffect)(AEGP_InstalledEffectKey, AEGP_InstalledEffectKey*);
    ReservedSlot reserved13[1];
    A_Err (*AEGP_GetEffectMatchName)(AEGP_InstalledEffectKey, A_char*);
    ReservedSlot reserved15[1];
};

struct AEGP_EffectSuite3
{
    A_Err (*AEGP_GetLayerNumEffects)(AEGP_LayerH, A_long*);
    A_Err (*AEGP_GetLayerEffectByIndex)(AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex, AEGP_EffectRefH*);
    A_Err (*AEGP_GetInstalledKeyFromLayerEffect)(AEGP_EffectRefH, AEGP_InstalledEffectKey*);
    ReservedSlot reserved3[1];
    A_Err (*AEGP_GetEffectFlags)(AEGP_EffectRefH, AEGP_EffectFlags*);
    A_Err (*AEGP_SetEffectFlags)(AEGP_EffectRefH, AEGP_EffectFlags mask, AEGP_EffectFlags value);
    A_Err (*AEGP_ReorderEffect)(AEGP_EffectRefH, A_long index);
    A_Err (*AEGP_EffectCallGeneric)(AEGP_PluginID, AEGP_EffectRefH, const A_Time*, PF_Cmd, void* extra);
    A_Err (*AEGP_DisposeEffect)(AEGP_EffectRefH);
    A_Err (*AEGP_ApplyEffect)(AEGP_PluginID, AEGP_LayerH, AEGP_InstalledEffectKey, AEGP_EffectRefH*);
    A_Err (*AEGP_DeleteLayerEffect)(AEGP_EffectRefH);
    A_Err (*AEGP_GetNumInstalledEffects)(A_long*);
    A_Err (*AEGP_GetNextInstalledEffect)(AEGP_InstalledEffectKey, AEGP_InstalledEffectKey*);
    ReservedSlot reserved13[1];
    A_Err (*AEGP_GetEffectMatchName)(AEGP_InstalledEffectKey, A_char*);
    ReservedSlot reserved15[2];
};

struct AEGP_StreamSuite1
{
    ReservedSlot reserved0[4];
    A_Err (*AEGP_GetNewEffectStreamByIndex)(AEGP_PluginID, AEGP_EffectRefH, PF_ParamIndex, AEGP_StreamRefH*);
    ReservedSlot reserved5[1];
    A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH);
    A_Err (*AEGP_GetStreamName)(AEGP_StreamRefH, A_Boolean forceEnglish, A_char* name);
    ReservedSlot reserved8[12];
};

struct AEGP_StreamSuite2
{
    ReservedSlot reserved0[7];
    A_Err (*AEGP_DisposeStream)(AEGP_StreamRefH);
    ReservedSlot reserved8[14];
};

struct AEGP_DynamicStreamSuite2
{
    ReservedSlot reserved0[4];
    A_Err (*AEGP_GetDynamicStreamFlags)(AEGP_StreamRefH, AEGP_DynStreamFlags*);
    A_Err (*AEGP_SetDynamicStreamFlag)(AEGP_StreamRefH, AEGP_DynStreamFlags oneFlag, A_Boolean undoable,
                                       A_Boolean set);
    ReservedSlot reserved6[5];
    A_Err (*AEGP_SetStreamName)(AEGP_StreamRefH, const A_char* name);
    ReservedSlot reserved12[3];
    A_Err (*AEGP_GetNewParentStreamRef)(AEGP_PluginID, AEGP_StreamRefH, AEGP_StreamRefH*);
    ReservedSlot reserved16[1];
};

/// Every slot after 0 is shifted by one against AEGP_DynamicStreamSuite2.
struct AEGP_DynamicStreamSuite4
{
    ReservedSlot reserved0[6];
    A_Err (*AEGP_SetDynamicStreamFlag)(AEGP_StreamRefH, AEGP_DynStreamFlags oneFlag, A_Boolean undoable,
                                       A_Boolean set);
    ReservedSlot reserved7[19];
};

struct AEGP_UtilitySuite1
{
    A_Err (*AEGP_ReportInfo)(AEGP_PluginID, const A_char* text);
    A_Err (*AEGP_GetDriverPluginInitFuncVersion)(A_short* major, A_short* minor);
    ReservedSlot reserved2[3];
    A_Err (*AEGP_StartUndoGroup)(const A_char* name);
    A_Err (*AEGP_EndUndoGroup)();
    ReservedSlot reserved7[2];
};

struct AEGP_UtilitySuite3
{
    A_Err (*AEGP_ReportInfo)(AEGP_PluginID, const A_char* text);
    A_Err (*AEGP_GetDriverPluginInitFuncVersion)(A_short* major, A_short* minor);
    ReservedSlot reserved2[3];
    A_Err (*AEGP_StartUndoGroup)(const A_char* name);
    A_Err (*AEGP_EndUndoGroup)();
    ReservedSlot reserved7[18];
};

/// The undo group calls are shifted by one against the older tables.
struct AEGP_UtilitySuite5
{
    A_Err (*AEGP_ReportInfo)(AEGP_PluginID, const A_char* text);
    A_Err (*AEGP_GetDriverPluginInitFuncVersion)(A_short* major, A_short* minor);
    ReservedSlot reserved2[4];
    A_Err (*AEGP_StartUndoGroup)(const A_char* name);
    A_Err (*AEGP_EndUndoGroup)();
    ReservedSlot reserved8[23];
};

struct PFAppSuite4
{
    PF_Err (*PF_AppGetBgColor)(PF_App_Color*);
    ReservedSlot reserved1[10];
};

#define VORTAN_ASSERT_SLOT(suite, function, slot)                                                            \
    static_assert(offsetof(suite, function) == (slot) * sizeof(void*),                                       \
                  #suite "::" #function " is slot " #slot)
#define VORTAN_ASSERT_SLOTS(suite, count)                                                                    \
    static_assert(sizeof(suite) == (count) * sizeof(void*), #suite " has " #count " slots")

VORTAN_ASSERT_SLOT(SPBasicSuite, AcquireSuite, 0);
VORTAN_ASSERT_SLOT(SPBasicSuite, ReleaseSuite, 1);
VORTAN_ASSERT_SLOT(SPBasicSuite, IsEqual, 2);
VORTAN_ASSERT_SLOT(SPBasicSuite, AllocateBlock, 3);
VORTAN_ASSERT_SLOT(SPBasicSuite, FreeBlock, 4);
VORTAN_ASSERT_SLOT(SPBasicSuite, ReallocateBlock, 5);
VORTAN_ASSERT_SLOT(SPBasicSuite, Undefined, 6);
VORTAN_ASSERT_SLOTS(SPBasicSuite, 7);
VORTAN_ASSERT_SLOTS(AEGP_PanelFunctions1, 3);

VORTAN_ASSERT_SLOT(SPSuitesSuite, AddSuite, 2);
VORTAN_ASSERT_SLOTS(SPSuitesSuite, 14);

VORTAN_ASSERT_SLOT(AEGP_CommandSuite1, AEGP_GetUniqueCommand, 0);
VORTAN_ASSERT_SLOT(AEGP_CommandSuite1, AEGP_InsertMenuCommand, 1);
VORTAN_ASSERT_SLOT(AEGP_CommandSuite1, AEGP_EnableCommand, 4);
VORTAN_ASSERT_SLOT(AEGP_CommandSuite1, AEGP_CheckMarkMenuCommand, 6);
VORTAN_ASSERT_SLOT(AEGP_CommandSuite1, AEGP_DoCommand, 7);
VORTAN_ASSERT_SLOTS(AEGP_CommandSuite1, 8);

VORTAN_ASSERT_SLOT(AEGP_RegisterSuite5, AEGP_RegisterCommandHook, 0);
VORTAN_ASSERT_SLOT(AEGP_RegisterSuite5, AEGP_RegisterUpdateMenuHook, 1);
VORTAN_ASSERT_SLOT(AEGP_RegisterSuite5, AEGP_RegisterDeathHook, 2);
VORTAN_ASSERT_SLOT(AEGP_RegisterSuite5, AEGP_RegisterIdleHook, 8);
VORTAN_ASSERT_SLOTS(AEGP_RegisterSuite5, 12);

VORTAN_ASSERT_SLOT(AEGP_PanelSuite1, AEGP_RegisterCreatePanelHook, 0);
VORTAN_ASSERT_SLOT(AEGP_PanelSuite1, AEGP_ToggleVisibility, 3);
VORTAN_ASSERT_SLOT(AEGP_PanelSuite1, AEGP_IsShown, 4);
VORTAN_ASSERT_SLOTS(AEGP_PanelSuite1, 5);

VORTAN_ASSERT_SLOT(AEGP_ItemSuite1, AEGP_GetActiveItem, 1);
VORTAN_ASSERT_SLOT(AEGP_ItemSuite1, AEGP_GetItemID, 7);
VORTAN_ASSERT_SLOTS(AEGP_ItemSuite1, 20);

VORTAN_ASSERT_SLOT(AEGP_LayerSuite1, AEGP_GetActiveLayer, 2);
VORTAN_ASSERT_SLOT(AEGP_LayerSuite1, AEGP_GetLayerParentComp, 5);
VORTAN_ASSERT_SLOT(AEGP_LayerSuite1, AEGP_ConvertLayerToCompTime, 33);
VORTAN_ASSERT_SLOT(AEGP_LayerSuite1, AEGP_GetLayerID, 35);
VORTAN_ASSERT_SLOTS(AEGP_LayerSuite1, 39);

#define VORTAN_ASSERT_EFFECT_SLOTS(suite)                                                                    \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetLayerNumEffects, 0);                                                   \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetLayerEffectByIndex, 1);                                                \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetInstalledKeyFromLayerEffect, 2);                                       \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetEffectFlags, 4);                                                       \
    VORTAN_ASSERT_SLOT(suite, AEGP_SetEffectFlags, 5);                                                       \
    VORTAN_ASSERT_SLOT(suite, AEGP_ReorderEffect, 6);                                                        \
    VORTAN_ASSERT_SLOT(suite, AEGP_EffectCallGeneric, 7);                                                    \
    VORTAN_ASSERT_SLOT(suite, AEGP_DisposeEffect, 8);                                                        \
    VORTAN_ASSERT_SLOT(suite, AEGP_ApplyEffect, 9);                                                          \
    VORTAN_ASSERT_SLOT(suite, AEGP_DeleteLayerEffect, 10);                                                   \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetNumInstalledEffects, 11);                                              \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetNextInstalledEffect, 12);                                              \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetEffectMatchName, 14)
VORTAN_ASSERT_EFFECT_SLOTS(AEGP_EffectSuite1);
VORTAN_ASSERT_SLOTS(AEGP_EffectSuite1, 16);
VORTAN_ASSERT_EFFECT_SLOTS(AEGP_EffectSuite3);
VORTAN_ASSERT_SLOTS(AEGP_EffectSuite3, 17);

VORTAN_ASSERT_SLOT(AEGP_StreamSuite1, AEGP_GetNewEffectStreamByIndex, 4);
VORTAN_ASSERT_SLOT(AEGP_StreamSuite1, AEGP_DisposeStream, 6);
VORTAN_ASSERT_SLOT(AEGP_StreamSuite1, AEGP_GetStreamName, 7);
VORTAN_ASSERT_SLOTS(AEGP_StreamSuite1, 20);

VORTAN_ASSERT_SLOT(AEGP_StreamSuite2, AEGP_DisposeStream, 7);
VORTAN_ASSERT_SLOTS(AEGP_StreamSuite2, 22);

VORTAN_ASSERT_SLOT(AEGP_DynamicStreamSuite2, AEGP_GetDynamicStreamFlags, 4);
VORTAN_ASSERT_SLOT(AEGP_DynamicStreamSuite2, AEGP_SetDynamicStreamFlag, 5);
VORTAN_ASSERT_SLOT(AEGP_DynamicStreamSuite2, AEGP_SetStreamName, 11);
VORTAN_ASSERT_SLOT(AEGP_DynamicStreamSuite2, AEGP_GetNewParentStreamRef, 15);
VORTAN_ASSERT_SLOTS(AEGP_DynamicStreamSuite2, 17);

VORTAN_ASSERT_SLOT(AEGP_DynamicStreamSuite4, AEGP_SetDynamicStreamFlag, 6);
VORTAN_ASSERT_SLOTS(AEGP_DynamicStreamSuite4, 26);

#define VORTAN_ASSERT_UTILITY_SLOTS(suite, startUndoGroup, endUndoGroup)                                     \
    VORTAN_ASSERT_SLOT(suite, AEGP_ReportInfo, 0);                                                           \
    VORTAN_ASSERT_SLOT(suite, AEGP_GetDriverPluginInitFuncVersion, 1);                                       \
    VORTAN_ASSERT_SLOT(suite, AEGP_StartUndoGroup, startUndoGroup);                                          \
    VORTAN_ASSERT_SLOT(suite, AEGP_EndUndoGroup, endUndoGroup)
VORTAN_ASSERT_UTILITY_SLOTS(AEGP_UtilitySuite1, 5, 6);
VORTAN_ASSERT_SLOTS(AEGP_UtilitySuite1, 9);
VORTAN_ASSERT_UTILITY_SLOTS(AEGP_UtilitySuite3, 5, 6);
VORTAN_ASSERT_SLOTS(AEGP_UtilitySuite3, 25);
VORTAN_ASSERT_UTILITY_SLOTS(AEGP_UtilitySuite5, 6, 7);
VORTAN_ASSERT_SLOTS(AEGP_UtilitySuite5, 31);

VORTAN_ASSERT_SLOT(PFAppSuite4, PF_AppGetBgColor, 0);
VORTAN_ASSERT_SLOTS(PFAppSuite4, 11);

#undef VORTAN_ASSERT_SLOT
#undef VORTAN_ASSERT_SLOTS
#undef VORTAN_ASSERT_EFFECT_SLOTS
#undef VORTAN_ASSERT_UTILITY_SLOTS
