#include "effects/EffectSelection.h"

#include "effects/EffectCatalogue.h"
#include "effects/EffectChain.h"
#include "effects/LayerItems.h"
#include "effects/NameBuffer.h"
#include "host/PrintLine.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <unordered_set>

namespace
{
/// One step of a flag sequence: sets or clears the hidden flag of `stream`. The flag is switched in the host
/// as a view state that undo does not bring back.
template <class DynamicStreamSuite>
void setHidden(EffectChain& chain, AEGP_StreamRefH stream, A_Boolean hidden)
{
    constexpr A_Boolean undoable = 0;
    chain.Call(&DynamicStreamSuite::AEGP_SetDynamicStreamFlag, stream, AEGP_DynStreamFlag_HIDDEN, undoable,
               hidden);
}

/// The common head of both actions. Kept: an error after the start of the undo group leaves it open.
EffectChain& takeEffectAndStreams(EffectChain& chain, AEGP_LayerH layer, int effectIndex)
{
    return chain.Call(&AEGP_UtilitySuite1::AEGP_StartUndoGroup, "")
        .TakeEffect<AEGP_EffectSuite1>(layer, effectIndex)
        .TakeParamStream()
        .TakeGroupStream();
}

/// Hides or shows the effect. The sequences run in full even if the flags have these values already.
void HideEffect(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, int effectIndex, bool hide)
{
    EffectChain chain(*suites, pluginId);
    AEGP_DynStreamFlags flags = 0;
    takeEffectAndStreams(chain, layer, effectIndex)
        .Call(&AEGP_DynamicStreamSuite2::AEGP_GetDynamicStreamFlags, chain.paramStream, &flags);
    // Kept: the flag is cleared before it is set, also if nothing has to change: the host's windows close the
    // effect on that.
    if (hide)
    {
        setHidden<AEGP_DynamicStreamSuite4>(chain, chain.groupStream, 0);
        setHidden<AEGP_DynamicStreamSuite4>(chain, chain.groupStream, 1);
    }
    else
    {
        // Kept: the pulse on the first parameter opens the effect; its own hidden state comes back at the
        // end.
        const A_Boolean wasHidden = (flags & AEGP_DynStreamFlag_HIDDEN) != 0 ? 1 : 0;
        setHidden<AEGP_DynamicStreamSuite2>(chain, chain.groupStream, 0);
        setHidden<AEGP_DynamicStreamSuite2>(chain, chain.paramStream, 1);
        setHidden<AEGP_DynamicStreamSuite2>(chain, chain.paramStream, 0);
        setHidden<AEGP_DynamicStreamSuite2>(chain, chain.paramStream, wasHidden);
    }
    (void)chain.Call(&AEGP_UtilitySuite1::AEGP_EndUndoGroup).Finish();
}

/// Twirls the effect open by a pulse on its first parameter, or closed by one on its own group.
void TwirlEffect(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, int effectIndex, bool open)
{
    EffectChain chain(*suites, pluginId);
    takeEffectAndStreams(chain, layer, effectIndex);
    const AEGP_StreamRefH pulsed = open ? chain.paramStream : chain.groupStream;
    setHidden<AEGP_DynamicStreamSuite2>(chain, pulsed, 1);
    setHidden<AEGP_DynamicStreamSuite2>(chain, pulsed, 0);
    (void)chain.Call(&AEGP_UtilitySuite1::AEGP_EndUndoGroup).Finish();
}

/// The match name that the host reports; empty if it cannot. All errors are ignored.
NameBuffer readMatchName(int pluginId, const AEGP_SuiteHandler& suites, AEGP_LayerH layer, int index)
{
    NameBuffer name;
    AEGP_InstalledEffectKey key = AEGP_InstalledEffectKey_NONE;
    EffectChain chain(suites, pluginId);
    chain.TakeEffect<AEGP_EffectSuite1>(layer, index);
    // Kept: also asked for without an effect.
    (void)suites.EffectSuite1()->AEGP_GetInstalledKeyFromLayerEffect(chain.effect, &key);
    (void)suites.EffectSuite1()->AEGP_GetEffectMatchName(key, name.text);
    (void)chain.Finish();
    return name;
}

/// What is to happen to which effect index. The lists run from the top of the stack down.
struct Classes
{
    std::vector<int> outside;
    std::vector<int> selected;
    std::vector<int> other;
    int main = -1; ///< The last main effect of the stack.
};

bool contains(const std::vector<int>& indices, int index)
{
    return std::binary_search(indices.begin(), indices.end(), index);
}

Classes classifyItems(const std::vector<ObjectItem>& items, const std::vector<ObjectItem>& selected)
{
    std::unordered_set<std::string_view> selectedUuids;
    for (const ObjectItem& item : selected)
        selectedUuids.insert(item.uuid);
    Classes classes;
    for (int place = 0; place < static_cast<int>(items.size()); ++place)
    {
        const std::string& uuid = items[static_cast<std::size_t>(place)].uuid;
        if (uuid == ZERO_UUID_TEXT)
            classes.outside.push_back(place);
        else if (selectedUuids.count(uuid) != 0)
            classes.selected.push_back(place);
    }
    return classes;
}

/// Completes the classes by the match names that the host reports. An effect that joined the layer since the
/// items were read is in none of the lists, and so counts as other unless its match name says otherwise.
void classifyByMatchName(Classes& classes, int pluginId, const AEGP_SuiteHandler& suites, AEGP_LayerH layer,
                         int count)
{
    for (int index = 0; index < count; ++index)
    {
        if (contains(classes.outside, index))
            continue;
        const NameBuffer name = readMatchName(pluginId, suites, layer, index);
        if (std::strcmp(name.text, KIT_MATCH_NAME) == 0)
            continue;
        if (std::strcmp(name.text, MAIN_MATCH_NAME) == 0)
            classes.main = index;
        else if (!contains(classes.selected, index))
            classes.other.push_back(index);
    }
}
} // namespace

void SelectEffectsFromItems(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer, bool useHide,
                            bool touchMain, const std::vector<ObjectItem>& selected)
{
    Classes classes =
        classifyItems(CreateItemsFromLayer(pluginId, basicSuite, layer, touchMain ? 1 : 0), selected);
    if (layer == nullptr)
        return;
    AEGP_SuiteHandler suites(basicSuite);
    A_long count = 0;
    (void)suites.EffectSuite1()->AEGP_GetLayerNumEffects(layer, &count);
    AEGP_CompH unusedComp = nullptr;
    (void)suites.LayerSuite1()->AEGP_GetLayerParentComp(layer, &unusedComp);
    classifyByMatchName(classes, pluginId, suites, layer, count);

    const auto putOutOfSight = [&](int index)
    {
        if (useHide)
            HideEffect(pluginId, &suites, layer, index, true);
        else
            TwirlEffect(pluginId, &suites, layer, index, false);
    };
    const auto show = [&](int index)
    {
        if (useHide)
            HideEffect(pluginId, &suites, layer, index, false);
        else
            TwirlEffect(pluginId, &suites, layer, index, true);
    };
    std::for_each(classes.other.begin(), classes.other.end(), putOutOfSight);
    std::for_each(classes.selected.rbegin(), classes.selected.rend(), show);
    if (touchMain && classes.main != -1)
    {
        PrintLine("touching main effect");
        show(classes.main);
    }
}
