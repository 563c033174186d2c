#pragma once
// One chain of host calls on one effect: references taken in order, the first error skips the rest,
// and whatever was taken is disposed of at the end in a fixed order. Every operation of this folder
// that needs an effect or its streams is written as such a list of steps.

#include "host/SuiteHandler.h"

#include <utility>

class EffectChain
{
public:
    /// A chain that starts with an error runs no step. `handler` must outlive the chain.
    EffectChain(const AEGP_SuiteHandler& handler, AEGP_PluginID pluginId, A_Err startError = A_Err_NONE);

    /// Disposes of what is still held, in the order of Finish. If a disposing suite is missing, its
    /// references leak; nothing is thrown.
    ~EffectChain();

    EffectChain(const EffectChain&) = delete;
    EffectChain& operator=(const EffectChain&) = delete;

    /// Calls `function` of the suite that it is a member of, unless an error has been met, and keeps its
    /// error. The arguments are passed as they stand when the call is made, so a step may use what the step
    /// before it took. Throws the integer 516 if the suite is missing.
    template <class Suite, class... Parameters, class... Arguments>
    EffectChain& Call(A_Err (*Suite::*function)(Parameters...), Arguments&&... arguments)
    {
        if (err == A_Err_NONE)
            err = (suites.Get<Suite>()->*function)(std::forward<Arguments>(arguments)...);
        return *this;
    }

    /// Takes the effect at `index` into `effect`, which `EffectSuite` will dispose of.
    template <class EffectSuite>
    EffectChain& TakeEffect(AEGP_LayerH layer, AEGP_EffectIndex index)
    {
        DisposeEffectWith<EffectSuite>();
        return Call(&EffectSuite::AEGP_GetLayerEffectByIndex, pluginId, layer, index, &effect);
    }

    /// Names the suite that disposes of `effect`.
    template <class EffectSuite>
    EffectChain& DisposeEffectWith()
    {
        disposeEffect = [](const AEGP_SuiteHandler& handler, AEGP_EffectRefH& held)
        {
            const EffectSuite* suite = handler.Get<EffectSuite>();
            return suite->AEGP_DisposeEffect(std::exchange(held, nullptr));
        };
        return *this;
    }

    /// Takes the stream of the effect's first parameter into `paramStream`.
    EffectChain& TakeParamStream();

    /// Takes the parent of `paramStream`, which is the effect's own stream group, into `groupStream`.
    /// An effect is renamed and hidden through this group, not through the effect suite.
    EffectChain& TakeGroupStream();

    /// The first error so far, 0 for none.
    A_Err Error() const { return err; }

    /// Disposes of `paramStream`, `groupStream` and `effect`, in this order, each unless it is null.
    /// Returns the first error, the effect's disposal's if there was no other. Throws the integer 516 if
    /// a disposing suite is missing; what is then still held is left to the destructor.
    A_Err Finish();

    // Null until taken, and again once disposed of. A host that hands out a reference together with an
    // error is taken at its word: the reference is disposed of.
    AEGP_EffectRefH effect = nullptr;
    AEGP_StreamRefH paramStream = nullptr;
    AEGP_StreamRefH groupStream = nullptr;

private:
    // Each asks for the suite before it lets go of the reference, so that a missing suite loses nothing.
    void giveBackStream(AEGP_StreamRefH& stream);
    A_Err giveBackEffect();

    const AEGP_SuiteHandler& suites;
    AEGP_PluginID pluginId;
    A_Err err;
    A_Err (*disposeEffect)(const AEGP_SuiteHandler&, AEGP_EffectRefH&);
};
