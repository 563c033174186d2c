#include "bench/Floor.h"

#include "effects/EffectMessages.h"
#include "host/SuiteTraits.h"

#include <tuple>

namespace standin
{
namespace
{
constexpr AEGP_PluginID pluginId = 8;
constexpr AEGP_Command command = 1;
constexpr A_Boolean forceEnglish = 1;
constexpr A_Boolean undoable = 0;
constexpr A_Boolean hiddenOff = 0;
constexpr A_Boolean hiddenOn = 1;

template <class Suite>
const Suite* acquire(SPBasicSuite* basic)
{
    const void* table = nullptr;
    (void)basic->AcquireSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version, &table);
    return static_cast<const Suite*>(table);
}
} // namespace

/// Acquires at the first use, and releases at the end in the order of the list.
class Floor::Suites
{
public:
    explicit Suites(SPBasicSuite* basicSuite) : basic(basicSuite) {}
    ~Suites()
    {
        std::apply([this](const auto*... suite) { (release(suite), ...); }, held);
    }

    const auto* Dynamic2() { return get<AEGP_DynamicStreamSuite2>(); }
    const auto* Dynamic4() { return get<AEGP_DynamicStreamSuite4>(); }
    const auto* Effect1() { return get<AEGP_EffectSuite1>(); }
    const auto* Effect3() { return get<AEGP_EffectSuite3>(); }
    const auto* Layer() { return get<AEGP_LayerSuite1>(); }
    const auto* Stream1() { return get<AEGP_StreamSuite1>(); }
    const auto* Stream2() { return get<AEGP_StreamSuite2>(); }
    const auto* Utility() { return get<AEGP_UtilitySuite1>(); }

private:
    template <class Suite>
    const Suite* get()
    {
        const Suite*& suite = std::get<const Suite*>(held);
        if (suite == nullptr)
            suite = acquire<Suite>(basic);
        return suite;
    }

    template <class Suite>
    void release(const Suite* suite)
    {
        if (suite != nullptr)
            (void)basic->ReleaseSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version);
    }

    SPBasicSuite* basic;
    std::tuple<const AEGP_DynamicStreamSuite2*, const AEGP_DynamicStreamSuite4*, const AEGP_EffectSuite1*,
               const AEGP_EffectSuite3*, const AEGP_LayerSuite1*, const AEGP_StreamSuite1*,
               const AEGP_StreamSuite2*, const AEGP_UtilitySuite1*>
        held{};
};

Floor::Floor(SPBasicSuite* basicSuite)
    : basic(basicSuite),
      panels(acquire<AEGP_PanelSuite1>(basicSuite)),
      commands(acquire<AEGP_CommandSuite1>(basicSuite)),
      items(acquire<AEGP_ItemSuite1>(basicSuite))
{
}

// ---- The passes

void Floor::HiddenPass() { examine(); }

void Floor::QuietPass()
{
    examine();
    Suites suites(basic);
    findLayer(suites);
    read();
}

void Floor::ChangedLayerPass(int selected)
{
    examine();
    Suites suites(basic);
    findLayer(suites);
    for (int times = 0; times < 3; ++times)
        read();
    select(selected);
}

void Floor::RenamePass(int index, const char* newName)
{
    examine();
    Suites suites(basic);
    findLayer(suites);
    read();
    read();
    rename(index, newName);
    reorder(Order::asItIs);
    select(0);
}

void Floor::ReversalPass()
{
    examine();
    Suites suites(basic);
    findLayer(suites);
    read();
    read();
    reorder(Order::reversed);
    select(0);
}

void Floor::RemovalPass()
{
    examine();
    Suites suites(basic);
    findLayer(suites);
    remove();
    for (int times = 0; times < 3; ++times)
        read();
    select(0);
}

void Floor::SelectionPass(int selected)
{
    examine();
    Suites suites(basic);
    findLayer(suites);
    read();
    select(selected);
}

// ---- Their parts

void Floor::examine()
{
    A_Boolean shown = 0;
    A_Boolean frontmost = 0;
    const auto* panelName = reinterpret_cast<const A_u_char*>("Vortan Object Panel");
    (void)panels->AEGP_IsShown(panelName, &shown, &frontmost);
    (void)commands->AEGP_CheckMarkMenuCommand(command, shown != 0 && frontmost != 0 ? 1 : 0);
}

void Floor::findLayer(Suites& suites)
{
    AEGP_ItemH item = nullptr;
    A_long id = 0;
    (void)items->AEGP_GetActiveItem(&item);
    (void)items->AEGP_GetItemID(item, &id);
    (void)suites.Layer()->AEGP_GetActiveLayer(&layer);
    (void)suites.Layer()->AEGP_GetLayerID(layer, &id);
}

void Floor::read()
{
    Suites suites(basic);
    A_long count = 0;
    (void)suites.Effect1()->AEGP_GetLayerNumEffects(layer, &count);
    for (int index = 0; index < count; ++index)
        askEffect(suites, index, VN_MSG_GET_GROUP);
    for (int index = 0; index < count; ++index)
        askEffect(suites, index, VN_MSG_GET_UUID);
    for (int index = 0; index < count; ++index)
        readEffect(suites, index);
}

void Floor::askEffect(Suites& suites, int index, int messageCommand)
{
    VnEffectMessage message; // The host reads nothing else of it.
    message.command = static_cast<std::uint32_t>(messageCommand);
    A_Time compTime{};
    A_long count = 0;
    AEGP_EffectFlags flags = 0;
    (void)suites.Layer()->AEGP_ConvertLayerToCompTime(layer, &MESSAGE_TIME, &compTime);
    (void)suites.Effect1()->AEGP_GetLayerNumEffects(layer, &count);
    (void)suites.Effect1()->AEGP_GetLayerEffectByIndex(pluginId, layer, index, &effect);
    (void)suites.Effect1()->AEGP_GetEffectFlags(effect, &flags);
    (void)suites.Effect3()->AEGP_EffectCallGeneric(pluginId, effect, &compTime, PF_Cmd_COMPLETELY_GENERAL,
                                                   &message);
    (void)suites.Effect3()->AEGP_DisposeEffect(effect);
}

void Floor::readEffect(Suites& suites, int index)
{
    AEGP_InstalledEffectKey key = 0;
    AEGP_EffectFlags flags = 0;
    (void)suites.Effect1()->AEGP_GetLayerEffectByIndex(pluginId, layer, index, &effect);
    (void)suites.Effect1()->AEGP_GetInstalledKeyFromLayerEffect(effect, &key);
    (void)suites.Effect1()->AEGP_GetEffectMatchName(key, name);
    takeStreams(suites);
    (void)suites.Effect1()->AEGP_GetEffectFlags(effect, &flags);
    (void)suites.Stream1()->AEGP_GetStreamName(groupStream, forceEnglish, name);
    disposeStreams(suites);
}

void Floor::takeStreams(Suites& suites)
{
    (void)suites.Stream1()->AEGP_GetNewEffectStreamByIndex(pluginId, effect, 1, &paramStream);
    (void)suites.Dynamic2()->AEGP_GetNewParentStreamRef(pluginId, paramStream, &groupStream);
}

void Floor::disposeStreams(Suites& suites)
{
    (void)suites.Stream2()->AEGP_DisposeStream(paramStream);
    (void)suites.Stream2()->AEGP_DisposeStream(groupStream);
    (void)suites.Effect1()->AEGP_DisposeEffect(effect);
}

int Floor::readIdentities(Suites& suites)
{
    A_long count = 0;
    (void)suites.Effect1()->AEGP_GetLayerNumEffects(layer, &count);
    for (int index = 0; index < count; ++index)
        askEffect(suites, index, VN_MSG_GET_UUID);
    return count;
}

void Floor::rename(int index, const char* newName)
{
    Suites suites(basic);
    (void)readIdentities(suites);
    (void)suites.Utility()->AEGP_StartUndoGroup("Rename Effect(s)");
    (void)suites.Effect1()->AEGP_GetLayerEffectByIndex(pluginId, layer, index, &effect);
    takeStreams(suites);
    (void)suites.Dynamic2()->AEGP_SetStreamName(groupStream, newName);
    (void)suites.Utility()->AEGP_EndUndoGroup();
    disposeStreams(suites);
}

void Floor::reorder(Order order)
{
    Suites suites(basic);
    const int count = readIdentities(suites);
    (void)suites.Utility()->AEGP_StartUndoGroup("Reorder Effect(s)");
    for (int place = 0; place < count; ++place)
    {
        const int from = order == Order::reversed ? count - 1 : place;
        (void)suites.Effect1()->AEGP_GetLayerEffectByIndex(pluginId, layer, from, &effect);
        (void)suites.Effect1()->AEGP_ReorderEffect(effect, place);
        (void)suites.Effect1()->AEGP_DisposeEffect(effect);
    }
    (void)suites.Utility()->AEGP_EndUndoGroup();
}

void Floor::remove()
{
    Suites suites(basic);
    const int doomed = (readIdentities(suites) + 1) / 2;
    (void)suites.Utility()->AEGP_StartUndoGroup("Delete Effect(s)");
    for (int place = 0; place < doomed; ++place)
    {
        (void)suites.Effect3()->AEGP_GetLayerEffectByIndex(pluginId, layer, 2 * place, &effect);
        (void)suites.Effect3()->AEGP_ReorderEffect(effect, place);
        (void)suites.Effect3()->AEGP_DisposeEffect(effect);
    }
    for (int i = 0; i < doomed; ++i)
    {
        (void)suites.Effect3()->AEGP_GetLayerEffectByIndex(pluginId, layer, 0, &effect);
        (void)suites.Effect3()->AEGP_DeleteLayerEffect(effect);
        (void)suites.Effect3()->AEGP_DisposeEffect(effect);
    }
    (void)suites.Utility()->AEGP_EndUndoGroup();
}

void Floor::select(int selected)
{
    read();
    Suites suites(basic);
    A_long count = 0;
    AEGP_CompH comp = nullptr;
    (void)suites.Effect1()->AEGP_GetLayerNumEffects(layer, &count);
    (void)suites.Layer()->AEGP_GetLayerParentComp(layer, &comp);
    for (int index = 0; index < count; ++index)
    {
        AEGP_InstalledEffectKey key = 0;
        (void)suites.Effect1()->AEGP_GetLayerEffectByIndex(pluginId, layer, index, &effect);
        (void)suites.Effect1()->AEGP_GetInstalledKeyFromLayerEffect(effect, &key);
        (void)suites.Effect1()->AEGP_GetEffectMatchName(key, name);
        (void)suites.Effect1()->AEGP_DisposeEffect(effect);
    }
    for (int index = selected; index < count; ++index)
        hide(suites, index);
    for (int index = selected; --index >= 0;)
        show(suites, index);
}

void Floor::takeFlags(Suites& suites, int index)
{
    AEGP_DynStreamFlags flags = 0;
    (void)suites.Utility()->AEGP_StartUndoGroup("");
    (void)suites.Effect1()->AEGP_GetLayerEffectByIndex(pluginId, layer, index, &effect);
    takeStreams(suites);
    (void)suites.Dynamic2()->AEGP_GetDynamicStreamFlags(paramStream, &flags);
}

void Floor::hide(Suites& suites, int index)
{
    takeFlags(suites, index);
    for (const A_Boolean hidden : {hiddenOff, hiddenOn})
        (void)suites.Dynamic4()->AEGP_SetDynamicStreamFlag(groupStream, AEGP_DynStreamFlag_HIDDEN, undoable,
                                                           hidden);
    (void)suites.Utility()->AEGP_EndUndoGroup();
    disposeStreams(suites);
}

void Floor::show(Suites& suites, int index)
{
    takeFlags(suites, index);
    (void)suites.Dynamic2()->AEGP_SetDynamicStreamFlag(groupStream, AEGP_DynStreamFlag_HIDDEN, undoable, 0);
    for (const A_Boolean hidden : {hiddenOn, hiddenOff, hiddenOff})
        (void)suites.Dynamic2()->AEGP_SetDynamicStreamFlag(paramStream, AEGP_DynStreamFlag_HIDDEN, undoable,
                                                           hidden);
    (void)suites.Utility()->AEGP_EndUndoGroup();
    disposeStreams(suites);
}
} // namespace standin
