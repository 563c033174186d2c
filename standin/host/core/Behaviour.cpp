#include "standin/host/core/Behaviour.h"

#include <stdexcept>

#include "standin/host/core/Host.h"
#include "standin/host/core/StackChanges.h"

namespace standin
{
EffectInstance& EffectCall::Instance() const
{
    EffectInstance* instance = host.State().FindEffect(effectId);
    if (instance == nullptr)
        throw std::logic_error("the effect that is being called is on no layer any more");
    return *instance;
}

EffectRuntime& EffectCall::Runtime() const { return host.RuntimeOf(effectId); }

void Behaviour::OnGroupChosen(const EffectCall& call, std::int16_t group, Undoable undoable) const
{
    SetEffectGroup(PartsOf(call.host), call.effectId, group, undoable);
}
} // namespace standin
