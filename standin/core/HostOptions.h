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

/// Whether a group change that an effect is told by message can be undone.
enum class GroupUndo
{
    isOwnStep,
    isNotUndoable
};

/// Whose identity a duplicated family effect bears.
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
    FailedAcquire failedAcquire = FailedAcquire::givesNull;
    WalkEnd walkEnd = WalkEnd::isZero;
    DisposeDeleted disposeDeleted = DisposeDeleted::isRequired;
    ParameterRename parameterRename = ParameterRename::isRefused;
    SuitesAtDeath suitesAtDeath = SuitesAtDeath::work;
    UnusedAcquire unusedAcquire = UnusedAcquire::isFine;
    IdleInCalls idleInCalls = IdleInCalls::never;
    int burstLength = 8;         ///< Idle passes of one burst.
    std::size_t undoLevels = 99; ///< Steps that can be undone; the oldest goes first.
    std::size_t traceLimit = 0;  ///< Calls that the trace keeps, the newest; 0 keeps all.
};
} // namespace standin
