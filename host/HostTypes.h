#pragma once
// Scalars, handles and constants of the host's C interface, as far as this system uses them.
// The host's own headers are not part of the build: this declares its binary interface.

#include <cstddef>
#include <cstdint>

using A_long = std::int32_t;
using A_u_long = std::uint32_t;
using A_short = std::int16_t;
using A_u_short = std::uint16_t;
using A_char = char;
using A_u_char = unsigned char;
using A_Boolean = std::uint8_t; ///< 0 or 1.

using A_Err = std::int32_t;
using PF_Err = std::int32_t;
using SPErr = std::int32_t;
using SPBoolean = std::int32_t;
using PF_Cmd = std::int32_t;
using PF_ParamIndex = std::int32_t;

using AEGP_PluginID = std::int32_t;
using AEGP_Command = std::int32_t;
using AEGP_InstalledEffectKey = std::int32_t; ///< 0 for none. Valid for one run of the host.
using AEGP_EffectFlags = std::int32_t;
using AEGP_EffectIndex = std::int32_t; ///< Place in a layer's stack, from 0 at the top.
using AEGP_LayerIDVal = std::int32_t;  ///< Not 0 for a live layer.
using AEGP_DynStreamFlags = std::uint32_t;
using AEGP_HookPriority = std::uint32_t;
using AEGP_MenuID = A_char;
using AEGP_WindowType = A_char;

/// A time as a fraction: `value` over `scale` seconds.
struct A_Time
{
    A_long value;
    A_u_long scale;
};

/// A colour of the host's own interface; each channel runs from 0 to 65535.
struct PF_App_Color
{
    A_u_short red;
    A_u_short green;
    A_u_short blue;
};

// Handles are pointers to pointers to opaque structures of the host.
// Effect and stream references belong to whoever was handed them, until they are disposed of.
struct _AEGP_Layer;
struct _AEGP_Effect;
struct _AEGPp_Stream;
struct _AEGP_Item;
struct _AEGP_Comp;
struct _AEGP_Panel;
using AEGP_LayerH = _AEGP_Layer**;
using AEGP_EffectRefH = _AEGP_Effect**;
using AEGP_StreamRefH = _AEGPp_Stream**;
using AEGP_ItemH = _AEGP_Item**;
using AEGP_CompH = _AEGP_Comp**;
using AEGP_PanelH = _AEGP_Panel*;

// Opaque values that a plug-in hands to the host and gets back.
using AEGP_GlobalRefcon = void*;
using AEGP_CommandRefcon = void*;
using AEGP_UpdateMenuRefcon = void*;
using AEGP_IdleRefcon = void*;
using AEGP_DeathRefcon = void*;
using AEGP_CreatePanelRefcon = void*;
using AEGP_PanelRefcon = void*;

/// The native container of a panel: an `NSView*` on macOS, an X11 `Window` id widened into a
/// pointer elsewhere.
using AEGP_PlatformViewRef = void*;

enum : A_Err
{
    A_Err_NONE = 0,
    A_Err_GENERIC = 1,
    A_Err_STRUCT = 2,
    A_Err_PARAMETER = 3,
    A_Err_ALLOC = 4,
    A_Err_MISSING_SUITE = 13
};

enum : PF_Err
{
    PF_Err_NONE = 0,
    PF_Err_OUT_OF_MEMORY = 4,
    PF_Err_INVALID_CALLBACK = 515,
    PF_Err_BAD_CALLBACK_PARAM = 516
};

constexpr AEGP_HookPriority AEGP_HP_BeforeAE = 1;
constexpr AEGP_MenuID AEGP_Menu_WINDOW = 7;
constexpr A_long AEGP_MENU_INSERT_SORTED = -2;
constexpr AEGP_EffectFlags AEGP_EffectFlags_ACTIVE = 1;
constexpr AEGP_DynStreamFlags AEGP_DynStreamFlag_ACTIVE_EYEBALL = 1;
constexpr AEGP_DynStreamFlags AEGP_DynStreamFlag_HIDDEN = 2;
constexpr PF_Cmd PF_Cmd_COMPLETELY_GENERAL = 17;
constexpr AEGP_InstalledEffectKey AEGP_InstalledEffectKey_NONE = 0;

static_assert(sizeof(void*) == 8, "the interface is 64-bit");
static_assert(sizeof(A_Time) == 8 && offsetof(A_Time, scale) == 4, "A_Time is two 32-bit words");
static_assert(sizeof(PF_App_Color) == 6 && offsetof(PF_App_Color, green) == 2 &&
                  offsetof(PF_App_Color, blue) == 4,
              "PF_App_Color is three 16-bit words");
