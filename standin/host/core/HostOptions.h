#pragma once
// The switches of the stand-in host: where the real host's behaviour is not known or differs between
// releases, both answers can be tried. The first value of each enumeration is the default.

#include <cstddef>

namespace standin
{
/// Where a newly applied effect lands in the stack.
enum class ApplyPlace
{
    end,
    afterSelected, ///< Behind the selected effect; at the end if none is selected on that layer.
    start
};

/// What an undo does to a group in which an effect was applied and then reordered.
enum class TwinUndo
{
    sound,
    deletesOlderTwin ///< The older effect of the same kind goes and the new one stays.
};

/// How many characters the name calls hand out at most.
enum class NameLimit
{
    roomy,    ///< 127.
    published ///< 47 for match names, 31 for stream names.
};

/// What an empty name does to an effect.
enum class EmptyName
{
    isKept,
    resetsToDefault
};

/// When a new family effect makes up its identity. Until then it answers the zero identity.
enum class IdentityBirth
{
    atOnce,
    atNextIdle
};

/// What a family effect that is not rigid does when it is told group -1.
enum class GroupMinusOne
{
    answersZero,
    isStored
};

/// Whether a group change by message can be undone.
enum class GroupUndo
{
    isOwnStep,
    isNotUndoable
};

/// Whose identity a duplicated family effect has.
enum class DuplicateIdentity
{
    isFresh,
    isCopied
};

/// What happens to the container of a panel that is closed by toggling.
enum class ClosedPanel
{
    keepsView,
    destroysView ///< Showing the panel again calls its create hook again.
};

/// Whether the containers still live when the death hooks run.
enum class DeathOrder
{
    hooksFirst,
    containersFirst
};

/// What the first answer of AEGP_IsShown is for a panel whose tab is behind another.
enum class TabBehind
{
    isShown,
    isNotShown
};

/// What is active while the panel of the plug-in has the focus.
enum class FocusInPanel
{
    keepsFrontComp,   ///< The front composition and its one selected layer.
    keepsActivePanel, ///< Whatever was active before the panel took the focus.
    activatesNothing
};

/// What an undo group without a change inside leaves.
enum class UnchangedGroup
{
    leavesNothing,
    leavesPhantomEntry
};

/// Which undo group counts as empty, and is a finding.
enum class EmptyGroup
{
    asksForNothing, ///< No call inside asked for a change.
    changesNothing  ///< Nothing has changed that an undo would bring back.
};

/// What it is that a create panel hook sets none of the panel's functions.
enum class UnsetPanelFunctions
{
    areDefaults,
    areFinding
};

/// What an undo group that is open when its hook returns does.
enum class GroupAtReturn
{
    isClosed,
    livesOn ///< It swallows what follows until the next undo, at which the user is alarmed.
};

/// What becomes of the hooks of a plug-in whose entry point has failed.
enum class FailedEntry
{
    takesHooksAway,
    leavesHooks
};

/// What a plug-in's deletion of the selected effect does to the selection of its composition.
enum class DeletedSelection
{
    clearsAll,
    leavesLayers
};

/// What a key does that reaches the host.
enum class KeyUpdate
{
    updatesMenus,
    doesNothing
};

/// Whether the host sends command 0 now and then, to every command hook.
enum class CommandZero
{
    comesNowAndThen,
    neverComes
};

/// Whether the host idles while a dialog is open.
enum class IdleInDialogs
{
    goesOn,
    stops
};

/// When AEGP_ReportInfo returns.
enum class AlertReturn
{
    isAtOnce,
    isWhenAnswered ///< Until then the host idles, inside the call.
};

/// What the name calls give for an effect with a custom name when they are to force English.
enum class ForcedEnglish
{
    keepsCustomNames,
    givesDefaultNames
};

/// What un-hiding does to the twirl of an effect.
enum class UnhidingTwirl
{
    opensByParameter, ///< A parameter's stream opens its effect, and the effect's own group folds it.
    alwaysOpens,
    alwaysFolds
};

/// What the host does with the keyboard focus at a click on its own X11 window.
enum class FocusAtClicks
{
    isLeftAlone,
    isTaken
};

/// Who is told of X errors that have no other handler.
enum class XErrors
{
    endTheProcess, ///< Xlib's own handler, which a program has that installs none.
    areCounted     ///< A handler of the host's.
};

/// What the out-pointer of a failed AcquireSuite holds.
enum class FailedAcquire
{
    givesNull,
    leavesPointerAlone
};

/// What comes after the last key of the walk over the installed effects.
enum class WalkEnd
{
    isZero,
    isError
};

/// What the disposal of a deleted effect's reference is.
enum class DisposeDeleted
{
    isRequired,
    isRefused ///< It gives an error, and nobody is to blame for the reference.
};

/// Whether a parameter's stream takes a name.
enum class ParameterRename
{
    isRefused,
    isTaken
};

/// Whether suite calls work inside a death hook.
enum class SuitesAtDeath
{
    work,
    fail
};

/// Whether a suite that is released without having been used since its acquire is a finding.
enum class UnusedAcquire
{
    isFine,
    isFinding
};

/// Whether the host idles inside the calls that hooks make, before these return. Entry points and death
/// hooks are no such hooks, and the calls of an idle that runs inside another call are none either.
enum class IdleInCalls
{
    never, ///< Only where the host's IdlePlan says so.
    always
};

struct HostOptions
{
    ApplyPlace applyPlace = ApplyPlace::end;
    TwinUndo twinUndo = TwinUndo::sound;
    NameLimit nameLimit = NameLimit::roomy;
    EmptyName emptyName = EmptyName::isKept;
    IdentityBirth identityBirth = IdentityBirth::atOnce;
    GroupMinusOne groupMinusOne = GroupMinusOne::answersZero;
    GroupUndo groupUndo = GroupUndo::isOwnStep;
    DuplicateIdentity duplicateIdentity = DuplicateIdentity::isFresh;
    ClosedPanel closedPanel = ClosedPanel::keepsView;
    DeathOrder deathOrder = DeathOrder::hooksFirst;
    TabBehind tabBehind = TabBehind::isShown;
    FocusInPanel focusInPanel = FocusInPanel::keepsFrontComp;
    UnchangedGroup unchangedGroup = UnchangedGroup::leavesNothing;
    EmptyGroup emptyGroup = EmptyGroup::asksForNothing;
    UnsetPanelFunctions unsetPanelFunctions = UnsetPanelFunctions::areDefaults;
    GroupAtReturn groupAtReturn = GroupAtReturn::isClosed;
    FailedEntry failedEntry = FailedEntry::takesHooksAway;
    DeletedSelection deletedSelection = DeletedSelection::clearsAll;
    KeyUpdate keyUpdate = KeyUpdate::updatesMenus;
    CommandZero commandZero = CommandZero::comesNowAndThen;
    IdleInDialogs idleInDialogs = IdleInDialogs::goesOn;
    AlertReturn alertReturn = AlertReturn::isAtOnce;
    ForcedEnglish forcedEnglish = ForcedEnglish::keepsCustomNames;
    UnhidingTwirl unhidingTwirl = UnhidingTwirl::opensByParameter;
    FocusAtClicks focusAtClicks = FocusAtClicks::isLeftAlone;
    XErrors xErrors = XErrors::endTheProcess;
    FailedAcquire failedAcquire = FailedAcquire::givesNull;
    WalkEnd walkEnd = WalkEnd::isZero;
    DisposeDeleted disposeDeleted = DisposeDeleted::isRequired;
    ParameterRename parameterRename = ParameterRename::isRefused;
    SuitesAtDeath suitesAtDeath = SuitesAtDeath::work;
    UnusedAcquire unusedAcquire = UnusedAcquire::isFine;
    IdleInCalls idleInCalls = IdleInCalls::never;
    int burstLength = 8;         ///< Idle passes of one burst.
    int alertLength = 2;         ///< Idle passes until the user answers an alert.
    std::size_t undoLevels = 99; ///< Steps that can be undone; the oldest goes first.
    std::size_t traceLimit = 0;  ///< Calls that the trace keeps, the newest; 0 keeps all.
};
} // namespace standin
