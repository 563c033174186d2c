#pragma once
// The host's binary interface as the stand-in lays it out: scalars, handles, hooks. It is declared
// here a second time and on purpose without a look at the product's own declarations, so that a
// mistake on one side shows.

#include <cstdint>

namespace standin
{
using A_long = std::int32_t;
using A_u_long = std::uint32_t;
using A_short = std::int16_t;
using A_u_short = std::uint16_t;
using A_char = char;
using A_u_char = unsigned char;
using A_Boolean = std::uint8_t;
using A_Err = std::int32_t;

struct A_Time
{
    A_long value;
    A_u_long scale;
};

struct PF_App_Color
{
    A_u_short red;
    A_u_short green;
    A_u_short blue;
};

// Handles are pointers to pointers. What they point at means nothing.
struct LayerTag;
struct EffectTag;
struct StreamTag;
struct ItemTag;
struct CompTag;
struct PanelTag;
using LayerH = LayerTag**;
using EffectRefH = EffectTag**;
using StreamRefH = StreamTag**;
using ItemH = ItemTag**;
using CompH = CompTag**;
using PanelH = PanelTag*;

/// What a panel may offer to the host. The host zeroes it before the create panel hook.
struct PanelFunctions
{
    void* getSnapSizes;
    void* populateFlyout;
    void* doFlyoutCommand;
};

using EntryPoint = A_Err (*)(void* basicSuite, A_long major, A_long minor, A_long pluginId, void** outRefcon);
using CommandHook = A_Err (*)(void* global, void* refcon, A_long command, A_u_long priority,
                              A_Boolean alreadyHandled, A_Boolean* handled);
using UpdateMenuHook = A_Err (*)(void* global, void* refcon, A_char activeWindow);
using IdleHook = A_Err (*)(void* global, void* refcon, A_long* maxSleep);
using DeathHook = A_Err (*)(void* global, void* refcon);
using CreatePanelHook = A_Err (*)(void* global, void* refcon, void* container, PanelH panel,
                                  PanelFunctions* outFunctions, void** outRefcon);

constexpr A_Err errNone = 0;
constexpr A_Err errGeneric = 1;
constexpr A_Err errStruct = 2;
constexpr A_Err errParameter = 3;
constexpr A_Err errAlloc = 4;
constexpr A_Err errMissingSuite = 13;

// Errors of the basic suite and of the suite that publishes suites, each four characters.
constexpr A_Err errSuiteNotFound = 0x53214664;      // 'S!Fd'
constexpr A_Err errSuiteExists = 0x53457869;        // 'SExi'
constexpr A_Err errSuiteOverReleased = 0x5352656C;  // 'SRel'
constexpr A_Err errBadInternalVersion = 0x53495673; // 'SIVs'
constexpr A_Err errBadParameter = 0x5061726D;       // 'Parm'
constexpr A_Err errNotImplemented = 0x21494D50;     // '!IMP'

constexpr A_long effectActive = 1;
constexpr A_long effectAudioOnly = 2;
constexpr A_long effectAudioToo = 4;
constexpr A_long effectMissing = 8;
constexpr A_u_long streamEyeball = 1;
constexpr A_u_long streamHidden = 2;
constexpr A_u_long streamSkipReveal = 0x10000; ///< Un-hiding does not open and reveal the stream.
constexpr A_long completelyGeneral = 17;

constexpr A_char menuWindow = 7;
constexpr A_long menuSorted = -2;
constexpr A_long menuTop = -1;
constexpr A_long menuBottom = 0;

constexpr A_long commandUndo = 16;
constexpr A_long commandRedo = 2035;
constexpr A_long commandPurgeImageCaches = 2372;

enum class WindowType : A_char
{
    none = 0,
    project = 1,
    comp = 2,
    timeline = 3,
    layer = 4,
    footage = 5,
    renderQueue = 6,
    effectControls = 10,
    other = 11
};
} // namespace standin
