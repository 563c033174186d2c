#include "effects/EffectRemoval.h"

#include "effects/EffectChain.h"
#include "effects/EffectMessages.h"

#include <set>

namespace
{
/// The indices of the effects to delete, ascending, each once.
std::vector<int> findDoomed(const std::vector<std::string>& stackUuids, const std::vector<std::string>& uuids)
{
    std::set<int> found;
    for (const std::string& uuid : uuids)
    {
        const int index = FindUuid(stackUuids, uuid);
        if (index >= 0)
            found.insert(index);
    }
    return {found.begin(), found.end()};
}

/// Moves the doomed effects to the top of the stack, in their old relative order. A move shifts only what
/// stands above the effect, so the indices still to come stay valid.
A_Err moveToTop(int pluginId, const AEGP_SuiteHandler& suites, AEGP_LayerH layer,
                const std::vector<int>& doomed, A_Err err)
{
    A_long place = 0;
    for (const int index : doomed)
    {
        EffectChain chain(suites, pluginId, err);
        chain.TakeEffect<AEGP_EffectSuite3>(layer, index)
            .Call(&AEGP_EffectSuite3::AEGP_ReorderEffect, chain.effect, place);
        err = chain.Error();
        (void)chain.Finish();
        ++place;
    }
    return err;
}

A_Err deleteFromTop(int pluginId, const AEGP_SuiteHandler& suites, AEGP_LayerH layer, std::size_t count,
                    A_Err err)
{
    for (std::size_t k = 0; k < count; ++k)
    {
        EffectChain chain(suites, pluginId, err);
        chain.TakeEffect<AEGP_EffectSuite3>(layer, 0);
        err = chain.Error();
        // Kept: after an error this deletes through a null reference, which the host refuses, and a
        // deletion that fails does not count as an error.
        (void)suites.EffectSuite3()->AEGP_DeleteLayerEffect(chain.effect);
        (void)chain.Finish();
    }
    return err;
}
} // namespace

int RemoveMultipleEffectsByUUID(int pluginId, SPBasicSuite* basicSuite, const std::vector<std::string>& uuids,
                                _AEGP_Layer** layer)
{
    if (uuids.empty())
        return 0;
    AEGP_SuiteHandler suites(basicSuite);
    const std::vector<int> doomed = findDoomed(ReadStackUuids(pluginId, &suites, layer), uuids);
    if (doomed.empty())
        return 0;

    A_Err err = suites.UtilitySuite1()->AEGP_StartUndoGroup("Delete Effect(s)");
    err = moveToTop(pluginId, suites, layer, doomed, err);
    err = deleteFromTop(pluginId, suites, layer, doomed.size(), err);
    // Kept: after an error the undo group stays open.
    if (err == A_Err_NONE)
        err = suites.UtilitySuite1()->AEGP_EndUndoGroup();
    return err;
}
