#include "effects/EffectPlacement.h"

#include "effects/EffectCatalogue.h"
#include "effects/EffectChain.h"
#include "effects/NameBuffer.h"

#include <algorithm>
#include <vector>

namespace
{
enum class Kind
{
    kit,
    main,
    renderer,
    effector,
    geometry,
    noFamily
};

/// The first prefix that matches decides. The legacy effect is placed like the main effect.
Kind kindOf(const char* matchName)
{
    if (StartsWith(matchName, KIT_MATCH_NAME))
        return Kind::kit;
    if (StartsWith(matchName, LEGACY_MATCH_NAME))
        return Kind::main;
    if (StartsWith(matchName, RENDERER_PREFIX))
        return Kind::renderer;
    if (StartsWith(matchName, EFFECTOR_PREFIX))
        return Kind::effector;
    if (StartsWith(matchName, GEOMETRY_PREFIX))
        return Kind::geometry;
    return Kind::noFamily;
}

/// What stands where on the layer: ascending lists of effect indices.
/// A legacy effect and a kit effect stand in none of them but `sameKey`.
struct StackScan
{
    std::vector<int> mains;
    std::vector<int> sameKey;
    std::vector<int> geometry;
    std::vector<int> effectors;
    std::vector<int> renderers;
};

void sortIntoLists(StackScan& scan, int index, const char* matchName, bool hasKey)
{
    if (StartsWith(matchName, MAIN_MATCH_NAME))
        scan.mains.push_back(index);
    if (hasKey)
        scan.sameKey.push_back(index);
    if (StartsWith(matchName, GEOMETRY_PREFIX))
        scan.geometry.push_back(index);
    else if (StartsWith(matchName, EFFECTOR_PREFIX))
        scan.effectors.push_back(index);
    else if (StartsWith(matchName, RENDERER_PREFIX))
        scan.renderers.push_back(index);
}

/// Kept: once an error has been met no effect is read any more, and the last one that was stands for the
/// rest, so that a new effect always gets a place.
StackScan scanStack(int pluginId, const AEGP_SuiteHandler& suites, AEGP_LayerH layer, int count, int key,
                    A_Err err)
{
    StackScan scan;
    NameBuffer matchName;
    AEGP_InstalledEffectKey effectKey = AEGP_InstalledEffectKey_NONE;
    for (int i = 0; i < count; ++i)
    {
        EffectChain chain(suites, pluginId, err);
        chain.TakeEffect<AEGP_EffectSuite1>(layer, i)
            .Call(&AEGP_EffectSuite1::AEGP_GetInstalledKeyFromLayerEffect, chain.effect, &effectKey)
            .Call(&AEGP_EffectSuite1::AEGP_GetEffectMatchName, effectKey, matchName.text);
        sortIntoLists(scan, i, matchName.text, effectKey == key);
        err = chain.Finish();
    }
    return scan;
}

int firstOr(const std::vector<int>& indices, int otherwise)
{
    return indices.empty() ? otherwise : indices.front();
}

int behindLastOr(const std::vector<int>& indices, int otherwise)
{
    return indices.empty() ? otherwise : indices.back() + 1;
}

/// An object goes after the last of its kind, or before the first of the next kind down the chain.
int slotFor(Kind kind, const StackScan& scan, int count)
{
    // Kept: without a main effect, an object that finds neither its own kind nor one that belongs below it
    // goes to the top, above outside effects and above the kinds that belong above it.
    const int anchor = firstOr(scan.mains, 0);
    const int rendererSlot = behindLastOr(scan.renderers, anchor);
    const int rendererTop = firstOr(scan.renderers, anchor);
    const int effectorSlot = behindLastOr(scan.effectors, rendererTop);
    const int effectorTop = firstOr(scan.effectors, rendererTop);
    const int geometrySlot = behindLastOr(scan.geometry, effectorTop);
    switch (kind)
    {
    case Kind::kit:
        return 0;
    case Kind::main:
        return count;
    case Kind::renderer:
        return rendererSlot;
    case Kind::effector:
        return effectorSlot;
    case Kind::geometry:
        return geometrySlot;
    case Kind::noFamily:
        break;
    }
    return std::min({geometrySlot, effectorSlot, rendererSlot});
}
} // namespace

int GetIndexOfNewEffectToLayer(int pluginId, SPBasicSuite* basicSuite, int key, _AEGP_Layer** layer,
                               Idle_Cmd cmd)
{
    const AEGP_SuiteHandler suites(basicSuite);
    if (layer == nullptr || key == AEGP_InstalledEffectKey_NONE || cmd == Idle_Cmd_None)
        return -1;

    A_long count = 0;
    NameBuffer newName;
    A_Err err = suites.EffectSuite1()->AEGP_GetLayerNumEffects(layer, &count);
    if (err == A_Err_NONE)
        err = suites.EffectSuite1()->AEGP_GetEffectMatchName(key, newName.text);

    const StackScan scan = scanStack(pluginId, suites, layer, count, key, err);
    if (cmd == Idle_Cmd_ApplyOnce && !scan.sameKey.empty())
        return -1;
    return slotFor(kindOf(newName.text), scan, count);
}

int ApplyEffectToLayerAtIndex(int pluginId, SPBasicSuite* basicSuite, int key, _AEGP_Layer** layer, int index)
{
    if (key == AEGP_InstalledEffectKey_NONE || index < 0)
        return 0;
    const AEGP_SuiteHandler suites(basicSuite);
    EffectChain chain(suites, pluginId);
    chain.Call(&AEGP_EffectSuite1::AEGP_ApplyEffect, pluginId, layer, key, &chain.effect)
        .Call(&AEGP_EffectSuite1::AEGP_ReorderEffect, chain.effect, index);
    return chain.Finish();
}

int ApplyEffectToLayerIdleFn(int pluginId, SPBasicSuite* basicSuite, int key, _AEGP_Layer** layer)
{
    const AEGP_SuiteHandler suites(basicSuite);
    if (layer == nullptr)
    {
        (void)suites.UtilitySuite1()->AEGP_ReportInfo(pluginId, "No Active Layer Selected");
        return 0;
    }
    AEGP_LayerIDVal layerId = 0;
    (void)suites.LayerSuite1()->AEGP_GetLayerID(layer, &layerId);
    if (key != AEGP_InstalledEffectKey_NONE && layerId != 0)
    {
        const int index = GetIndexOfNewEffectToLayer(pluginId, basicSuite, key, layer, Idle_Cmd_Apply);
        (void)ApplyEffectToLayerAtIndex(pluginId, basicSuite, key, layer, index);
    }
    return 0;
}
