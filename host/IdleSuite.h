#pragma once
// The bundle's first entry point and the suite that it publishes: a queue of functions that the family's
// effects want run at the host's next idle instead of inside their own callback.
//
// Everything runs on the host's main thread. There is no lock: a render thread may not queue anything.

#include "host/Export.h"
#include "host/HostSuites.h"

#include <cstddef>

constexpr const char* VN_IDLE_SUITE_NAME = "Vortan Idle Suite v1";
constexpr int VN_IDLE_SLOT_COUNT = 32;

/// What effects queue. Called with the bundle's own id and basic suite, not the caller's. The result is
/// ignored.
/// Kept: the function stays queued until its call has returned. So it must not throw: it would be called at
/// every idle from then on, and nothing queued after it would run. And if it lets the host idle, by an alert
/// for instance, it is called again inside itself, as deep as the host idles, unless it guards against that
/// itself.
using IdleFunc = int (*)(int pluginId, SPBasicSuite* basicSuite, void* refcon);

/// Free when both are null.
struct IdleSlot
{
    IdleFunc func;
    void* refcon;
};

/// The queue. First in, first out, in spite of the name of AddFuncToIdleStack. Lives until the host ends.
struct VnIdleRef
{
    AEGP_PluginID pluginId;
    SPBasicSuite* basicSuite;
    IdleSlot idleSlots[VN_IDLE_SLOT_COUNT];
};

/// The table that other bundles read; its layout is fixed. Lives until the host ends.
struct VnIdleSuite
{
    VnIdleRef* ref;
    int (*AddFuncToIdleStack)(VnIdleRef* ref, IdleFunc func, void* refcon);
};
static_assert(sizeof(VnIdleSuite) == 16 && offsetof(VnIdleSuite, ref) == 0 &&
                  offsetof(VnIdleSuite, AddFuncToIdleStack) == 8,
              "the layout that other bundles know");

/// Queues `func` with `refcon` for the next idle. With the queue full, the user is told and `func` is
/// dropped. An entry of two nulls is not stored; one with a null `func` takes a slot and is not called.
/// Always 0, so the caller cannot see a refusal.
int AddFuncToIdleStack(VnIdleRef* ref, IdleFunc func, void* refcon);

/// The host's idle callback: runs and clears the queued functions up to the first free slot. `refcon` is
/// the VnIdleRef. Leaves `maxSleep` alone. Returns 0. A function that queues another inside its own call
/// may see it run in the same pass.
A_Err IdleHook(AEGP_GlobalRefcon globalRefcon, AEGP_IdleRefcon refcon, A_long* maxSleep);

/// Publishes the suite and registers the idle hook. The host calls it once. Returns the first host error,
/// 0 for none; an error is also reported to the user.
/// Kept: if the error came before the utility suite was acquired, the report goes through a null pointer.
VORTAN_EXPORT A_Err EffectorAEGP(SPBasicSuite* basicSuite, A_long major, A_long minor, AEGP_PluginID id,
                                 AEGP_GlobalRefcon* out);
