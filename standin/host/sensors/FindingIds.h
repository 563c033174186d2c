#pragma once
// The ids of all findings, each written once.

namespace standin::finding
{
// References.
constexpr const char* leakedReference = "leaked-reference";
constexpr const char* doubleDispose = "double-dispose";
constexpr const char* staleReference = "stale-reference";
constexpr const char* wrongKind = "wrong-kind";
constexpr const char* nullReference = "null-reference";
constexpr const char* foreignReference = "foreign-reference";
constexpr const char* disposedReference = "disposed-reference";
constexpr const char* disposeOrder = "dispose-order"; ///< An effect before one of its streams.

// Suites.
constexpr const char* unbalancedSuite = "unbalanced-suite";
constexpr const char* overReleasedSuite = "over-released-suite";
constexpr const char* unusedSuite = "unused-suite";
constexpr const char* duplicateSuite = "duplicate-suite";
constexpr const char* reservedSlot = "reserved-slot";
constexpr const char* poisonedTable = "poisoned-table"; ///< The pointer of a failed acquire was used.
constexpr const char* releasedTable = "released-table"; ///< A table was used after its last release.

// Hooks, threads, plug-ins.
constexpr const char* outsideHook = "outside-hook";
constexpr const char* wrongThread = "wrong-thread";
constexpr const char* exceptionLeftHook = "exception-left-hook";
constexpr const char* errorLeftHook = "error-left-hook"; ///< A hook or an entry point returned an error.
constexpr const char* wrongPluginId = "wrong-plugin-id";
constexpr const char* outsideEntryPoint = "outside-entry-point"; ///< Registering anywhere else.
constexpr const char* panelFunctions = "panel-functions"; ///< The create panel hook has set some of them.
constexpr const char* nestedHost = "nested-host";

// Memory of the host.
constexpr const char* leakedBlock = "leaked-block";
constexpr const char* foreignBlock = "foreign-block"; ///< Freed, and not allocated or freed already.

// Undo.
constexpr const char* undoGroupLeftOpen = "undo-group-left-open";
constexpr const char* undoGroupMismatch = "undo-group-mismatch";
constexpr const char* nullUndoName = "null-undo-name";
constexpr const char* emptyUndoGroup = "empty-undo-group";
constexpr const char* nestedUndoGroup = "nested-undo-group";

// Arguments.
constexpr const char* parameterIndex = "parameter-index";
constexpr const char* indexOutOfRange = "index-out-of-range";
constexpr const char* nullPointer = "null-pointer"; ///< Where a text, a time or an out-value belongs.
constexpr const char* timeScale = "time-scale";     ///< A time whose scale is 0.
constexpr const char* unknownKey = "unknown-key";
constexpr const char* readOnlyFlag = "read-only-flag";
constexpr const char* unknownCommand = "unknown-command";
constexpr const char* foreignCommand = "foreign-command"; ///< A hook took a command that is not its own.
constexpr const char* unknownPanel = "unknown-panel";
constexpr const char* menuPosition = "menu-position";

// The run itself.
constexpr const char* missingFinding = "missing-finding"; ///< An expected one did not appear.
} // namespace standin::finding
