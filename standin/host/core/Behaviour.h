#pragma once
// What an effect does when the host calls it. One object serves all instances of an effect, so it
// holds no state of an instance: that lies in the project (FamilyData) or in EffectRuntime.

#include "standin/host/core/Abi.h"
#include "standin/host/core/ProjectState.h"

namespace standin
{
class Host;
enum class Undoable;

/// What the host remembers of an instance and no undo brings back.
struct EffectRuntime
{
    int messages = 0; ///< General commands that the instance got.
    int idles = 0;    ///< Idle passes since it was applied.
};

/// The call of one instance. The instance is looked up at each use, since a behaviour may change
/// the stack that it stands in.
struct EffectCall
{
    Host& host;
    int effectId;

    /// Throws std::logic_error if the effect is not on any layer any more.
    EffectInstance& Instance() const;
    EffectRuntime& Runtime() const;
};

/// A behaviour that answers nothing: an effect from outside the family.
class Behaviour
{
public:
    virtual ~Behaviour() = default;

    /// The effect has just been applied, or was duplicated from another.
    virtual void OnApplied(const EffectCall&) const {}

    /// The group is changed in the effect's own controls, or has been such all along.
    virtual void OnGroupChosen(const EffectCall&, std::int16_t group, Undoable undoable) const;

    /// The host's idle, before the hooks of plug-ins.
    virtual void OnIdle(const EffectCall&) const {}

    /// The general command; `extra` is the caller's record and may be null.
    virtual A_Err OnGeneralCommand(const EffectCall&, A_Time compTime, void* extra) const
    {
        (void)compTime;
        (void)extra;
        return errNone;
    }
};
} // namespace standin
