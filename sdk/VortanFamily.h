#pragma once
// What an effect of the Vortan family and the Vortan Object Panel have in common: the message that the panel
// sends to each effect, the two suites that the panel's plug-in publishes, and the names that it looks for.
// C99, and valid as C++. It depends on the standard library alone, so that it can be included beside the
// host's own headers.
//
// What holds of everything here, unless a declaration says otherwise:
// - Thread: the host's main thread, and no other. Nothing is locked. A render thread may
//   neither call a suite nor acquire one.
// - When: inside a call of the host, as when the host calls the effect or runs a queued function. Not from a
//   timer or a thread of your own.
// - Re-entry: the panel sends its messages inside its idle pass. The functions of the suites may be called
//   there as well: they write a request down, and the next idle carries it out.
// - Ownership: a table belongs to the panel's plug-in and lives until the host ends. What you pass stays
//   yours and is read before the function returns, except for the refcon of a queued function.
// - Errors: every function of the suites returns 0, whatever happened.
//
// All of it is 64-bit and little-endian, as the host is.

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define VORTAN_C_BEGIN                                                                                       \
    extern "C"                                                                                               \
    {
#define VORTAN_C_END }
#else
#define VORTAN_C_BEGIN
#define VORTAN_C_END
#endif

VORTAN_C_BEGIN

// ---- Compile-time checks, for each of the languages

#if defined(__cplusplus)
#define VORTAN_ASSERT(condition, name) static_assert(condition, #name)
#elif defined(__STDC_VERSION__) && __STDC_VERSION__ >= 201112L
#define VORTAN_ASSERT(condition, name) _Static_assert(condition, #name)
#else
#define VORTAN_ASSERT(condition, name) typedef char vortan_assert_##name[(condition) ? 1 : -1]
#endif

// ---- Identity

/// The identity of one effect on one layer: 16 bytes that nobody interprets. The effect makes it when it is
/// applied, stores it with the project, and answers the same for as long as it lives. The panel makes none
/// and keeps none between two idles: it finds an effect again by asking for this. Two effects of a layer with
/// the same identity are one to the panel, which then renames, groups, switches and deletes the upper one
/// alone.
typedef struct VortanIdentity
{
    uint8_t bytes[16];
} VortanIdentity;
VORTAN_ASSERT(sizeof(VortanIdentity) == 16, identity_is_16_bytes);

/// All 16 bytes zero is no identity: the panel takes an effect that answers it for one from outside the
/// family. It shows its row and does nothing with it. Never answer it as your own.
#define VORTAN_ZERO_IDENTITY_TEXT "00000000-0000-0000-0000-000000000000"

/// An identity as text, as the panel compares it: two lower-case hexadecimal digits a byte, in memory order,
/// with a dash after the 4th, 6th, 8th and 10th byte. 36 characters and a zero.
#define VORTAN_IDENTITY_TEXT_SIZE 37

// ---- Group

/// What an effect answers as its group. It keeps the number itself, and stores it with the project.
enum
{
    /// Takes part in no group: its row can be moved at the top level, and is taken by no group.
    VORTAN_GROUP_RIGID = -1,
    /// Stands at the top level. What a new effect answers.
    VORTAN_GROUP_TOP = 0,
    /// From this to the last: the effect is in the group of this number. A group is nothing but its number.
    VORTAN_GROUP_FIRST = 1,
    /// Any other number means the top level, and is kept as it is.
    VORTAN_GROUP_LAST = 10
};

// ---- The message

/// The panel sends it through the host's general command (PF_Cmd_COMPLETELY_GENERAL), with the record's
/// address as the extra pointer. The effect answers in place, before it returns.
#define VORTAN_MESSAGE_SIZE 128
#define VORTAN_MESSAGE_MAGIC 0x564F5254u ///< "VORT"; in memory the bytes 54 52 4F 56.

/// The commands. No other is ever sent; leave a record with another one alone.
enum
{
    /// Write your group into `payload.group`. Sent at every idle while the panel shows your layer, thirty
    /// times a second: answer from memory, and call nothing. An effect that leaves it alone has answered -1.
    VORTAN_GET_GROUP = 1,
    /// Take `payload.group` as your group and write nothing. Sent when the user has dragged the row: 1 to 10
    /// for a group, -1 for an object that left its group. A rigid effect ignores it; any other answers 0
    /// after a -1, and so comes back as an ordinary row. The panel asks again at its next pass, and shows
    /// what you answer then.
    VORTAN_SET_GROUP = 3,
    /// Write your identity into `payload.identity`. Sent as often as VORTAN_GET_GROUP. An effect that leaves
    /// it alone has answered the zero identity.
    VORTAN_GET_IDENTITY = 5
};

/// The record: a wire format in the machine's byte order. It belongs to the panel and lives for the one call;
/// keep no pointer to it. You may write to any of it and not one byte past it; only the fields with a name
/// are read.
///
/// Thread: main. Re-entry: it comes inside the panel's idle pass, also while one of your own queued functions
/// lets the host idle. Do not change the layer's stack in it: queue a function for the next idle. Errors:
/// return 0 to the host, and throw nothing. The panel looks at the record and not at the result: one that you
/// left alone makes you an effect from outside the family for that pass.
///
/// The host tells no length. A record of other plug-ins may be shorter: read `magic` before anything else.
typedef struct VortanMessage
{
    uint32_t magic;
    uint32_t command;
    union
    {
        int16_t group;
        VortanIdentity identity;
    } payload;
    uint8_t reserved[104];
} VortanMessage;
VORTAN_ASSERT(sizeof(VortanMessage) == VORTAN_MESSAGE_SIZE, message_is_128_bytes);
VORTAN_ASSERT(offsetof(VortanMessage, magic) == 0, magic_is_at_0);
VORTAN_ASSERT(offsetof(VortanMessage, command) == 4, command_is_at_4);
VORTAN_ASSERT(offsetof(VortanMessage, payload) == 8, payload_is_at_8);
VORTAN_ASSERT(offsetof(VortanMessage, reserved) == 24, reserved_is_at_24);

// ---- The host's basic suite, through which the two others are acquired

/// The host's SPBasicSuite: cast the pointer that the host gave you. Only the first two slots are used here.
/// A release belongs to every acquire, under the same name and version, in the same call of the host.
typedef struct VortanBasicSuite
{
    /// 0 if it worked. With any other result `*suite` holds nothing that may be used.
    int32_t (*AcquireSuite)(const char* name, int32_t version, const void** suite);
    int32_t (*ReleaseSuite)(const char* name, int32_t version);
    void (*reserved[5])(void);
} VortanBasicSuite;
VORTAN_ASSERT(sizeof(VortanBasicSuite) == 7 * sizeof(void*), basic_suite_is_7_slots);

// ---- The idle suite: have a function run at the host's next idle

#define VORTAN_IDLE_SUITE_NAME "Vortan Idle Suite v1"
#define VORTAN_IDLE_SUITE_VERSION 1
#define VORTAN_IDLE_QUEUE_LENGTH 32 ///< Of all effects together.

/// A handle to the queue.
typedef struct VortanIdleRef VortanIdleRef;

/// What can be queued. It runs on the main thread in the idle hook, where the stack may be changed.
/// `pluginId` and `basicSuite` are those of the panel's plug-in and not yours: call the host's suites with
/// them. The result is ignored. The effect that queued it may be gone by then: let `refcon` point to nothing
/// of an instance.
///
/// Throw nothing. A function that throws keeps its place in the queue: it is called again, at every idle if
/// it was the first, and for as long as it throws nothing runs that was queued after it.
///
/// Do not let the host idle. A function leaves the queue when it returns. One that lets the host idle, by an
/// alert for example, is therefore called again inside itself if it was the first in the queue, and what was
/// queued after it runs inside it too. What is queued meanwhile may be lost.
typedef int (*VortanIdleFunction)(int pluginId, VortanBasicSuite* basicSuite, void* refcon);

typedef struct VortanIdleSuite
{
    VortanIdleRef* ref; ///< The first argument of the function.
    /// Queues `function` for the next idle; first in, first out, each once. 0 in any case: with the queue
    /// full the user gets an alert and the function is dropped. A function and a refcon that are both null
    /// are not stored. Re-entry: a queued function may queue another, which runs in the same idle or in the
    /// next. With the queue full the host may idle while the alert is open.
    int (*AddFuncToIdleStack)(VortanIdleRef* ref, VortanIdleFunction function, void* refcon);
} VortanIdleSuite;
VORTAN_ASSERT(sizeof(VortanIdleSuite) == 16, idle_suite_is_16_bytes);
VORTAN_ASSERT(offsetof(VortanIdleSuite, ref) == 0, idle_ref_is_at_0);
VORTAN_ASSERT(offsetof(VortanIdleSuite, AddFuncToIdleStack) == 8, add_function_is_at_8);

// ---- The panel suite: ask the panel for something

#define VORTAN_PANEL_SUITE_NAME "Vortan Panel Suite v1"
#define VORTAN_PANEL_SUITE_VERSION 1

/// A handle to the panel's requests.
typedef struct VortanPanelRef VortanPanelRef;

/// None of the functions does anything at once: each writes a request down, and the next idle pass carries it
/// out.
typedef struct VortanPanelSuite
{
    VortanPanelRef* panelRef; ///< The first argument of each function.
    /// Asks for the panel. With `force` 0 only unless it is shown and in front; then it asks the host, and
    /// throws the integer 13 if the host has no suite for panels. With any other value it asks in any case.
    /// The panel's menu command is run then, and that toggles: a panel that is in front by then is closed.
    int (*OpenPanel)(VortanPanelRef* panelRef, unsigned char force);
    /// Asks the panel to rebuild its rows, which is needed only for what no message and no name tells. While
    /// the panel is hidden the request is lost. A null `panelRef` crashes.
    int (*RefreshPanel)(VortanPanelRef* panelRef);
    /// Shows `text` over the panel for ten seconds. It is copied; the bytes are UTF-8. A second call before
    /// the next idle replaces the first; while the panel is hidden the text waits. A null `panelRef` does
    /// nothing.
    int (*PanelNotify)(VortanPanelRef* panelRef, const char* text);
} VortanPanelSuite;
VORTAN_ASSERT(sizeof(VortanPanelSuite) == 32, panel_suite_is_32_bytes);
VORTAN_ASSERT(offsetof(VortanPanelSuite, panelRef) == 0, panel_ref_is_at_0);
VORTAN_ASSERT(offsetof(VortanPanelSuite, OpenPanel) == 8, open_panel_is_at_8);
VORTAN_ASSERT(offsetof(VortanPanelSuite, RefreshPanel) == 16, refresh_panel_is_at_16);
VORTAN_ASSERT(offsetof(VortanPanelSuite, PanelNotify) == 24, panel_notify_is_at_24);

// ---- Names

/// How the panel sorts effects: by the beginning of the match name, case-sensitive. A new effect is put into
/// the stack by its kind: the kit effect first, then geometry, effectors, renderers, and the main effect
/// last.
#define VORTAN_GEOMETRY_PREFIX "QVK VORTSRC" ///< Offered by "Add Geometry".
#define VORTAN_EFFECTOR_PREFIX "QVK VORTEFF" ///< Offered by "Add Effector".
#define VORTAN_RENDERER_PREFIX "QVK VORTREN" ///< Offered by "Add Renderer".
#define VORTAN_MAIN_PREFIX "QVK VORTAN TWO"  ///< The main effect, which "Add Vortan" offers as "Vortan".
#define VORTAN_LEGACY_PREFIX "QVK VORTAN"    ///< The legacy effect, which no menu offers.
#define VORTAN_KIT_PREFIX "QVK VORTKIT"      ///< The kit effect, which no menu offers.

/// One effect that the panel's menus know by name.
typedef struct VortanMenuName
{
    const char* matchName; ///< As it is installed.
    const char* menuName;  ///< As the menu offers it. Any other match name is offered as "Not Found".
} VortanMenuName;

/// Geometry, effectors, renderers. The last row is in no menu: its match name has another prefix.
static const VortanMenuName VORTAN_MENU_NAMES[19] = {
    {"QVK VORTSRC Lamps", "Sheets"},
    {"QVK VORTSRC Routes", "Routes"},
    {"QVK VORTSRC GEO", "GEO"},
    {"QVK VORTSRC Solids", "Solids"},
    {"QVK VORTSRC Copies", "Copies"},
    {"QVK VORTSRC Scanner", "Cutter"},
    {"QVK VORTEFF Round Zone", "Round Zone"},
    {"QVK VORTEFF Jitter", "Jitter"},
    {"QVK VORTEFF Enclosure", "Enclosure"},
    {"QVK VORTEFF Placement", "Placement"},
    {"QVK VORTEFF Tint Table", "Tint Table"},
    {"QVK VORTEFF Dimmer Effector", "Dimmer Effector"},
    {"QVK VORTEFF Pulse Effector", "Pulse Effector"},
    {"QVK VORTREN Dots", "Dots"},
    {"QVK VORTREN Strokes", "Strokes"},
    {"QVK VORTREN Tiles", "Tiling"},
    {"QVK VORTREN Rays", "Rays"},
    {"QVK VORTREN Panes", "Panes"},
    {"QVK VORTAN", "Elder"},
};

/// A default name that the panel's rows shorten, where a row's name begins with it.
typedef struct VortanRowName
{
    const char* defaultName; ///< As the host calls an effect that the user has not renamed.
    const char* rowName;     ///< As the row begins in its place.
} VortanRowName;

static const VortanRowName VORTAN_ROW_NAMES[19] = {
    {"Vortan Sheets Object", "Sheets"},
    {"Vortan Route Object", "Routes"},
    {"Vortan GEO Object", "GEO"},
    {"Vortan Solids Object", "Solids"},
    {"Vortan Copies Object", "Copies"},
    {"Vortan Cutter Object", "Cutter"},
    {"Vortan Round Zone", "Round Zone"},
    {"Vortan Jitter Effector", "Jitter"},
    {"Vortan Enclosure", "Enclosure"},
    {"Vortan Placement", "Placement"},
    {"Vortan Tint Table", "Tint Table"},
    {"Vortan Dimmer Effector", "Dimmer Effector"},
    {"Vortan Pulse Effector", "Pulse Effector"},
    {"Vortan Dots Renderer", "Dots"},
    {"Vortan Strokes Renderer", "Strokes"},
    {"Vortan Tiling Renderer", "Tiling"},
    {"Vortan Rays Renderer", "Rays"},
    {"Vortan Panes Renderer", "Panes"},
    {"Vortan Elder Renderer", "Elder"},
};

// ---- Acquiring and releasing

/// The idle suite, or null where the panel's plug-in is not installed; an effect has to live with that.
/// Release it with VortanReleaseIdleSuite before the call of the host returns, and only if it is not null.
static inline const VortanIdleSuite* VortanAcquireIdleSuite(const VortanBasicSuite* basicSuite)
{
    const void* suite = NULL;
    if (basicSuite->AcquireSuite(VORTAN_IDLE_SUITE_NAME, VORTAN_IDLE_SUITE_VERSION, &suite) != 0)
        return NULL;
#ifdef __cplusplus
    return static_cast<const VortanIdleSuite*>(suite);
#else
    return suite;
#endif
}

static inline void VortanReleaseIdleSuite(const VortanBasicSuite* basicSuite)
{
    (void)basicSuite->ReleaseSuite(VORTAN_IDLE_SUITE_NAME, VORTAN_IDLE_SUITE_VERSION);
}

/// The panel suite, or null; the same holds of it.
static inline const VortanPanelSuite* VortanAcquirePanelSuite(const VortanBasicSuite* basicSuite)
{
    const void* suite = NULL;
    if (basicSuite->AcquireSuite(VORTAN_PANEL_SUITE_NAME, VORTAN_PANEL_SUITE_VERSION, &suite) != 0)
        return NULL;
#ifdef __cplusplus
    return static_cast<const VortanPanelSuite*>(suite);
#else
    return suite;
#endif
}

static inline void VortanReleasePanelSuite(const VortanBasicSuite* basicSuite)
{
    (void)basicSuite->ReleaseSuite(VORTAN_PANEL_SUITE_NAME, VORTAN_PANEL_SUITE_VERSION);
}

VORTAN_C_END
