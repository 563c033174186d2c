#include "effects/EffectChain.h"

#include <exception>
#include <utility>

EffectChain::EffectChain(const AEGP_SuiteHandler& handler, AEGP_PluginID id, A_Err startError)
    : suites(handler), pluginId(id), err(startError)
{
    DisposeEffectWith<AEGP_EffectSuite1>();
}

EffectChain::~EffectChain()
{
    try
    {
        (void)Finish();
    }
    catch (...)
    {
        // A suite that is missing is already on its way to the host as an exception of its own.
    }
}

EffectChain& EffectChain::TakeParamStream()
{
    constexpr PF_ParamIndex firstParameter = 1; // Index 0 is the input layer, which the host refuses.
    return Then(
        [&]
        {
            return suites.StreamSuite1()->AEGP_GetNewEffectStreamByIndex(pluginId, effect, firstParameter,
                                                                         &paramStream);
        });
}

EffectChain& EffectChain::TakeGroupStream()
{
    return Then(
        [&] {
            return suites.DynamicStreamSuite2()->AEGP_GetNewParentStreamRef(pluginId, paramStream,
                                                                            &groupStream);
        });
}

namespace
{
/// Gives a reference back unless it is null. A missing suite is kept for later, so that the references
/// behind this one get their turn.
template <class Reference, class Dispose>
A_Err giveBack(Reference& reference, std::exception_ptr& missingSuite, Dispose dispose)
{
    const Reference held = std::exchange(reference, nullptr);
    if (held == nullptr)
        return A_Err_NONE;
    try
    {
        return dispose(held);
    }
    catch (...)
    {
        if (!missingSuite)
            missingSuite = std::current_exception();
        return A_Err_NONE;
    }
}
} // namespace

A_Err EffectChain::Finish()
{
    std::exception_ptr missingSuite;
    const auto disposeStream = [&](AEGP_StreamRefH held)
    { return suites.StreamSuite2()->AEGP_DisposeStream(held); };
    (void)giveBack(paramStream, missingSuite, disposeStream);
    (void)giveBack(groupStream, missingSuite, disposeStream);
    const A_Err disposal =
        giveBack(effect, missingSuite, [&](AEGP_EffectRefH held) { return disposeEffect(suites, held); });
    if (missingSuite)
        std::rethrow_exception(missingSuite);
    if (err == A_Err_NONE)
        err = disposal;
    return err;
}
