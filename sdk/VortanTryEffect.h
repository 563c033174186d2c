#pragma once
// How an effect is tried in the stand-in host, before the real host is ever started. A module that exports
// the one function below can be put among the installed effects (`standin-desktop --effect FILE`, or a line
// of a scenario) and be judged (`standin check-effect FILE`).
//
// This is not how the real host calls an effect. There, the effect has the host's own entry point with the
// host's own selectors and structures, which this kit neither has nor needs. From that entry point the effect
// has to do what it does here:
//
// - VORTAN_TRY_DESCRIBE: the names in the effect's resource.
// - VORTAN_TRY_APPLIED: where the host sets up the data of a new instance.
// - VORTAN_TRY_COPIED: where the host sets up an instance from stored data, if the instance that the data
//   come from lives on. The host does not say so: how to tell a copy from the same effect after loading or
//   undo is the effect's own business.
// - VORTAN_TRY_MESSAGE: where the host calls with PF_Cmd_COMPLETELY_GENERAL; `record` is the extra pointer.
// - `kept`: the data that the host stores for each instance with the project.
// - `basicSuite`: the host's SPBasicSuite, cast.
//
// Keep the entry points thin, and put the work into functions that both call.

#include "VortanFamily.h"

VORTAN_C_BEGIN

/// The bytes that the stand-in stores of each instance. It copies, saves and restores them without a word to
/// the effect, so they hold no pointer.
#define VORTAN_TRY_KEPT_SIZE 256

/// What an effect is called for.
enum
{
    /// Once, when the module is loaded. `record` is a VortanTryDescription, all zero.
    VORTAN_TRY_DESCRIBE = 1,
    /// The user or the panel has applied the effect. `kept` is all zero.
    VORTAN_TRY_APPLIED = 2,
    /// `kept` is a copy of that of another instance, which stays.
    VORTAN_TRY_COPIED = 3,
    /// Somebody sends a record, the panel or anybody else.
    VORTAN_TRY_MESSAGE = 4
};

/// What the effect's resource tells the real host.
typedef struct VortanTryDescription
{
    char matchName[48];   ///< With its terminating zero.
    char defaultName[48]; ///< The name of an instance until the user gives it another.
} VortanTryDescription;

#if defined(__GNUC__)
#define VORTAN_TRY_EXPORT __attribute__((visibility("default")))
#else
#define VORTAN_TRY_EXPORT
#endif

/// The module's one exported function. `kept` are the instance's bytes and good for this call; null for
/// VORTAN_TRY_DESCRIBE, and then so is `basicSuite`. `record` is null where `call` has none, and has
/// `recordSize` bytes. Called on the main thread, inside a call of the host. Returns 0, or an error of the
/// host. Leave a `call` that you do not know alone.
VORTAN_TRY_EXPORT int32_t VortanTryEffect(int32_t call, const VortanBasicSuite* basicSuite, void* kept,
                                          void* record, size_t recordSize);

VORTAN_C_END
