#include "standin/core/Behaviour.h"

#include <stdexcept>

#include "standin/core/Host.h"

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
} // namespace standin
