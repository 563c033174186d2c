#include "effects/EffectChain.h"

EffectChain::EffectChain(const AEGP_SuiteHandler& handler, AEGP_PluginID id, A_Err startError)
    : suites(handler), pluginId(id), err(startError)
{
    DisposeEffectWith<AEGP_EffectSuite1>();
}

namespace
{
/// A suite that is missing is already on its way to the host as an exception of its own.
template <class Dispose>
void disposeIfTheSuiteIsThere(Dispose dispose)
{
    try
    {
        dispose();
    }
    catch (...)
    {
    }
}
} // namespace

EffectChain::~EffectChain()
{
    disposeIfTheSuiteIsThere([this] { giveBackStream(paramStream); });
    disposeIfTheSuiteIsThere([this] { giveBackStream(groupStream); });
    disposeIfTheSuiteIsThere([this] { (void)giveBackEffect(); });
}

EffectChain& EffectChain::TakeParamStream()
{
    constexpr PF_ParamIndex firstParameter = 1; // Index 0 is the input layer, which the host refuses.
    return Call(&AEGP_StreamSuite1::AEGP_GetNewEffectStreamByIndex, pluginId, effect, firstParameter,
                &paramStream);
}

EffectChain& EffectChain::TakeGroupStream()
{
    return Call(&AEGP_DynamicStreamSuite2::AEGP_GetNewParentStreamRef, pluginId, paramStream, &groupStream);
}

A_Err EffectChain::Finish()
{
    giveBackStream(paramStream);
    giveBackStream(groupStream);
    const A_Err disposal = giveBackEffect();
    if (err == A_Err_NONE)
        err = disposal;
    return err;
}

void EffectChain::giveBackStream(AEGP_StreamRefH& stream)
{
    if (stream == nullptr)
        return;
    const AEGP_StreamSuite2* suite = suites.StreamSuite2();
    (void)suite->AEGP_DisposeStream(std::exchange(stream, nullptr));
}

A_Err EffectChain::giveBackEffect() { return effect == nullptr ? A_Err_NONE : disposeEffect(suites, effect); }
