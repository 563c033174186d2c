#include "bench/FastHost.h"

#include "effects/EffectMessages.h"
#include "host/SuiteTraits.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace standin
{
namespace
{
constexpr std::size_t longestName = 63;

struct Effect
{
    VN_UUID uuid{};
    std::int16_t group = 0;
    A_long flags = AEGP_EffectFlags_ACTIVE;
    A_long key = 0;
    char name[longestName + 1] = {};
};

// Keys count from 1.
constexpr const char* installed[] = {"QVK VORTSRC Lamps", "QVK VORTEFF Jitter", "QVK VORTREN Dots",
                                     "QVK VORTAN TWO"};
constexpr int kindsOnLayer = 3;
constexpr int effectsOfALayer = 100000;

struct State
{
    std::uint64_t calls = 0;
    bool isPlain = true; ///< Neither slow nor recorded.
    bool isSlow = false;
    bool isRecorded = false;
    std::vector<int> record;

    FastHost::Panel panel = FastHost::Panel::hidden;
    A_long itemId = 101;
    A_long layerId = 1;
    std::vector<std::unique_ptr<Effect>> stack;

    AEGP_IdleHook idleHook = nullptr;
    AEGP_IdleRefcon idleRefcon = nullptr;
    AEGP_DeathHook deathHook = nullptr;
    AEGP_CreatePanelHook createHook = nullptr;
    AEGP_CreatePanelRefcon createRefcon = nullptr;
};

State state;

void waitAMicrosecond()
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::microseconds(1);
    while (std::chrono::steady_clock::now() < end)
    {
    }
}

void noteCall(int call)
{
    if (state.isRecorded)
        state.record.push_back(call);
    if (state.isSlow)
        waitAMicrosecond();
}

/// Every function of the host begins with this. A call is known by its line, so all of them are in this one
/// file, which is long for that reason.
inline void enter(int call)
{
    ++state.calls;
    if (!state.isPlain)
        noteCall(call);
}
#define ENTER enter(__LINE__)
#define ENTER_OF(Suite) enter(__LINE__ + 1000 * static_cast<int>(sizeof(Suite)))

Effect& effectOf(AEGP_EffectRefH ref) { return *reinterpret_cast<Effect*>(ref); }
Effect& effectOf(AEGP_StreamRefH ref) { return *reinterpret_cast<Effect*>(ref); }

// One address stands for the effect, its first parameter and its group.
template <class Ref>
Ref refTo(Effect& effect)
{
    return reinterpret_cast<Ref>(&effect);
}

std::vector<std::unique_ptr<Effect>>::iterator placeOf(Effect& effect)
{
    return std::find_if(state.stack.begin(), state.stack.end(),
                        [&](const std::unique_ptr<Effect>& other) { return other.get() == &effect; });
}

void copyText(char* out, const char* text) { std::memcpy(out, text, std::strlen(text) + 1); }

A_Err countEffects(A_long* count)
{
    *count = static_cast<A_long>(state.stack.size());
    return A_Err_NONE;
}

A_Err takeEffect(AEGP_EffectIndex index, AEGP_EffectRefH* effect)
{
    *effect = refTo<AEGP_EffectRefH>(*state.stack[static_cast<std::size_t>(index)]);
    return A_Err_NONE;
}

A_Err moveEffect(AEGP_EffectRefH ref, A_long index)
{
    const auto from = placeOf(effectOf(ref));
    const auto to = state.stack.begin() + index;
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    return A_Err_NONE;
}

A_Err answerMessage(Effect& effect, void* extra)
{
    auto& message = *static_cast<VnEffectMessage*>(extra);
    switch (message.command)
    {
    case VN_MSG_GET_GROUP:
        message.group = effect.group;
        break;
    case VN_MSG_SET_GROUP:
        effect.group = message.group;
        break;
    case VN_MSG_GET_UUID:
        message.uuid = effect.uuid;
        break;
    default:
        break;
    }
    return A_Err_NONE;
}

template <class Suite>
void fillCommonSlots(Suite& suite)
{
    suite.AEGP_GetLayerNumEffects = [](AEGP_LayerH, A_long* count)
    {
        ENTER_OF(Suite);
        return countEffects(count);
    };
    suite.AEGP_GetLayerEffectByIndex =
        [](AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex index, AEGP_EffectRefH* effect)
    {
        ENTER_OF(Suite);
        return takeEffect(index, effect);
    };
    suite.AEGP_ReorderEffect = [](AEGP_EffectRefH ref, A_long index)
    {
        ENTER_OF(Suite);
        return moveEffect(ref, index);
    };
    suite.AEGP_DisposeEffect = [](AEGP_EffectRefH)
    {
        ENTER_OF(Suite);
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_DeleteLayerEffect = [](AEGP_EffectRefH ref)
    {
        ENTER_OF(Suite);
        state.stack.erase(placeOf(effectOf(ref)));
        return A_Err{A_Err_NONE};
    };
}

AEGP_EffectSuite1 makeEffectSuite1()
{
    AEGP_EffectSuite1 suite{};
    fillCommonSlots(suite);
    suite.AEGP_GetInstalledKeyFromLayerEffect = [](AEGP_EffectRefH ref, AEGP_InstalledEffectKey* key)
    {
        ENTER;
        *key = effectOf(ref).key;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetEffectFlags = [](AEGP_EffectRefH ref, AEGP_EffectFlags* flags)
    {
        ENTER;
        *flags = effectOf(ref).flags;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_SetEffectFlags = [](AEGP_EffectRefH ref, AEGP_EffectFlags mask, AEGP_EffectFlags value)
    {
        ENTER;
        effectOf(ref).flags = (effectOf(ref).flags & ~mask) | value;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetNumInstalledEffects = [](A_long* count)
    {
        ENTER;
        *count = static_cast<A_long>(std::size(installed));
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetNextInstalledEffect = [](AEGP_InstalledEffectKey key, AEGP_InstalledEffectKey* next)
    {
        ENTER;
        *next = key + 1;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetEffectMatchName = [](AEGP_InstalledEffectKey key, A_char* name)
    {
        ENTER;
        copyText(name, installed[key - 1]);
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_EffectSuite3 makeEffectSuite3()
{
    AEGP_EffectSuite3 suite{};
    fillCommonSlots(suite);
    suite.AEGP_EffectCallGeneric = [](AEGP_PluginID, AEGP_EffectRefH ref, const A_Time*, PF_Cmd, void* extra)
    {
        ENTER;
        return answerMessage(effectOf(ref), extra);
    };
    return suite;
}

AEGP_StreamSuite1 makeStreamSuite1()
{
    AEGP_StreamSuite1 suite{};
    suite.AEGP_GetNewEffectStreamByIndex =
        [](AEGP_PluginID, AEGP_EffectRefH ref, PF_ParamIndex, AEGP_StreamRefH* stream)
    {
        ENTER;
        *stream = refTo<AEGP_StreamRefH>(effectOf(ref));
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetStreamName = [](AEGP_StreamRefH stream, A_Boolean, A_char* name)
    {
        ENTER;
        copyText(name, effectOf(stream).name);
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_StreamSuite2 makeStreamSuite2()
{
    AEGP_StreamSuite2 suite{};
    suite.AEGP_DisposeStream = [](AEGP_StreamRefH)
    {
        ENTER;
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_DynamicStreamSuite2 makeDynamicStreamSuite2()
{
    AEGP_DynamicStreamSuite2 suite{};
    suite.AEGP_GetNewParentStreamRef = [](AEGP_PluginID, AEGP_StreamRefH stream, AEGP_StreamRefH* parent)
    {
        ENTER;
        *parent = stream;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetDynamicStreamFlags = [](AEGP_StreamRefH, AEGP_DynStreamFlags* flags)
    {
        ENTER;
        *flags = 0;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_SetDynamicStreamFlag = [](AEGP_StreamRefH, AEGP_DynStreamFlags, A_Boolean, A_Boolean)
    {
        ENTER;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_SetStreamName = [](AEGP_StreamRefH stream, const A_char* name)
    {
        ENTER;
        std::strncpy(effectOf(stream).name, name, longestName);
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_DynamicStreamSuite4 makeDynamicStreamSuite4()
{
    AEGP_DynamicStreamSuite4 suite{};
    suite.AEGP_SetDynamicStreamFlag = [](AEGP_StreamRefH, AEGP_DynStreamFlags, A_Boolean, A_Boolean)
    {
        ENTER;
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_LayerSuite1 makeLayerSuite()
{
    AEGP_LayerSuite1 suite{};
    suite.AEGP_GetActiveLayer = [](AEGP_LayerH* layer)
    {
        ENTER;
        *layer = state.layerId == 0 ? nullptr : reinterpret_cast<AEGP_LayerH>(&state);
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetLayerParentComp = [](AEGP_LayerH, AEGP_CompH* comp)
    {
        ENTER;
        *comp = nullptr;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_ConvertLayerToCompTime = [](AEGP_LayerH, const A_Time* in, A_Time* out)
    {
        ENTER;
        *out = *in;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetLayerID = [](AEGP_LayerH, AEGP_LayerIDVal* id)
    {
        ENTER;
        *id = state.layerId;
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_ItemSuite1 makeItemSuite()
{
    AEGP_ItemSuite1 suite{};
    suite.AEGP_GetActiveItem = [](AEGP_ItemH* item)
    {
        ENTER;
        *item = reinterpret_cast<AEGP_ItemH>(&state);
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetItemID = [](AEGP_ItemH, A_long* id)
    {
        ENTER;
        *id = state.itemId;
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_CommandSuite1 makeCommandSuite()
{
    AEGP_CommandSuite1 suite{};
    suite.AEGP_GetUniqueCommand = [](AEGP_Command* command)
    {
        ENTER;
        *command = 1;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_InsertMenuCommand = [](AEGP_Command, const A_char*, AEGP_MenuID, A_long)
    {
        ENTER;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_CheckMarkMenuCommand = [](AEGP_Command, A_Boolean)
    {
        ENTER;
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_PanelSuite1 makePanelSuite()
{
    AEGP_PanelSuite1 suite{};
    suite.AEGP_RegisterCreatePanelHook = [](AEGP_PluginID, const A_u_char*, AEGP_CreatePanelHook hook,
                                            AEGP_CreatePanelRefcon refcon, A_Boolean)
    {
        ENTER;
        state.createHook = hook;
        state.createRefcon = refcon;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_IsShown = [](const A_u_char*, A_Boolean* shown, A_Boolean* frontmost)
    {
        ENTER;
        *shown = state.panel != FastHost::Panel::hidden ? 1 : 0;
        *frontmost = state.panel == FastHost::Panel::frontmost ? 1 : 0;
        return A_Err{A_Err_NONE};
    };
    return suite;
}

AEGP_RegisterSuite5 makeRegisterSuite()
{
    AEGP_RegisterSuite5 suite{};
    suite.AEGP_RegisterCommandHook =
        [](AEGP_PluginID, AEGP_HookPriority, AEGP_Command, AEGP_CommandHook, AEGP_CommandRefcon)
    {
        ENTER;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_RegisterUpdateMenuHook = [](AEGP_PluginID, AEGP_UpdateMenuHook, AEGP_UpdateMenuRefcon)
    {
        ENTER;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_RegisterDeathHook = [](AEGP_PluginID, AEGP_DeathHook hook, AEGP_DeathRefcon)
    {
        ENTER;
        state.deathHook = hook;
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_RegisterIdleHook = [](AEGP_PluginID, AEGP_IdleHook hook, AEGP_IdleRefcon refcon)
    {
        ENTER;
        state.idleHook = hook;
        state.idleRefcon = refcon;
        return A_Err{A_Err_NONE};
    };
    return suite;
}

template <class Suite>
Suite makeUtilitySuite()
{
    Suite suite{};
    suite.AEGP_ReportInfo = [](AEGP_PluginID, const A_char*)
    {
        ENTER_OF(Suite);
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_GetDriverPluginInitFuncVersion = [](A_short*, A_short*)
    {
        ENTER_OF(Suite);
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_StartUndoGroup = [](const A_char*)
    {
        ENTER_OF(Suite);
        return A_Err{A_Err_NONE};
    };
    suite.AEGP_EndUndoGroup = []()
    {
        ENTER_OF(Suite);
        return A_Err{A_Err_NONE};
    };
    return suite;
}

PFAppSuite4 makeAppSuite()
{
    PFAppSuite4 suite{};
    suite.PF_AppGetBgColor = [](PF_App_Color* colour)
    {
        ENTER;
        *colour = {0x2222, 0x2222, 0x2222};
        return PF_Err{PF_Err_NONE};
    };
    return suite;
}

SPSuitesSuite makeSuitesSuite()
{
    SPSuitesSuite suite{};
    suite.AddSuite = [](void*, void*, const char*, std::int32_t, std::int32_t, const void*, void**)
    {
        ENTER;
        return SPErr{0};
    };
    return suite;
}

struct Tables
{
    AEGP_CommandSuite1 command = makeCommandSuite();
    AEGP_DynamicStreamSuite2 dynamicStream2 = makeDynamicStreamSuite2();
    AEGP_DynamicStreamSuite4 dynamicStream4 = makeDynamicStreamSuite4();
    AEGP_EffectSuite1 effect1 = makeEffectSuite1();
    AEGP_EffectSuite3 effect3 = makeEffectSuite3();
    AEGP_ItemSuite1 item = makeItemSuite();
    AEGP_LayerSuite1 layer = makeLayerSuite();
    AEGP_RegisterSuite5 registering = makeRegisterSuite();
    AEGP_StreamSuite1 stream1 = makeStreamSuite1();
    AEGP_StreamSuite2 stream2 = makeStreamSuite2();
    AEGP_UtilitySuite1 utility1 = makeUtilitySuite<AEGP_UtilitySuite1>();
    AEGP_UtilitySuite3 utility3 = makeUtilitySuite<AEGP_UtilitySuite3>();
    AEGP_UtilitySuite5 utility5 = makeUtilitySuite<AEGP_UtilitySuite5>();
    AEGP_PanelSuite1 panel = makePanelSuite();
    PFAppSuite4 app = makeAppSuite();
    SPSuitesSuite suites = makeSuitesSuite();
};

const Tables tables;

/// A suite by one letter of its name and its version, which tell all of them apart.
constexpr int suiteKey(const char* name, std::int32_t version) { return name[5] << 8 | version; }

template <class Suite>
constexpr int keyOf()
{
    return suiteKey(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version);
}

const void* findSuite(int key)
{
    switch (key)
    {
    case keyOf<AEGP_EffectSuite1>():
        return &tables.effect1;
    case keyOf<AEGP_EffectSuite3>():
        return &tables.effect3;
    case keyOf<AEGP_LayerSuite1>():
        return &tables.layer;
    case keyOf<AEGP_StreamSuite1>():
        return &tables.stream1;
    case keyOf<AEGP_StreamSuite2>():
        return &tables.stream2;
    case keyOf<AEGP_DynamicStreamSuite2>():
        return &tables.dynamicStream2;
    case keyOf<AEGP_DynamicStreamSuite4>():
        return &tables.dynamicStream4;
    case keyOf<AEGP_CommandSuite1>():
        return &tables.command;
    case keyOf<AEGP_ItemSuite1>():
        return &tables.item;
    case keyOf<AEGP_RegisterSuite5>():
        return &tables.registering;
    case keyOf<AEGP_UtilitySuite1>():
        return &tables.utility1;
    case keyOf<AEGP_UtilitySuite3>():
        return &tables.utility3;
    case keyOf<AEGP_UtilitySuite5>():
        return &tables.utility5;
    case keyOf<AEGP_PanelSuite1>():
        return &tables.panel;
    case keyOf<PFAppSuite4>():
        return &tables.app;
    case keyOf<SPSuitesSuite>():
        return &tables.suites;
    default:
        return nullptr;
    }
}

constexpr int firstAcquire = 1000000;
constexpr int firstRelease = 2000000;

SPErr acquireSuite(const char* name, std::int32_t version, const void** suite)
{
    const int key = suiteKey(name, version);
    enter(firstAcquire + key);
    *suite = findSuite(key);
    return *suite == nullptr ? 1 : 0;
}

SPErr releaseSuite(const char* name, std::int32_t version)
{
    enter(firstRelease + suiteKey(name, version));
    return 0;
}

SPBasicSuite basic = {&acquireSuite, &releaseSuite, nullptr, nullptr, nullptr, nullptr, nullptr};

void tellPlain() { state.isPlain = !state.isSlow && !state.isRecorded; }
} // namespace

VN_UUID MadeUpIdentity(int number)
{
    VN_UUID identity{};
    std::uint64_t bits = 0x9e3779b97f4a7c15ULL * static_cast<std::uint64_t>(number + 1);
    std::memcpy(identity.bytes.data(), &bits, sizeof bits);
    bits = (bits ^ bits >> 29) * 0xbf58476d1ce4e5b9ULL;
    std::memcpy(identity.bytes.data() + sizeof bits, &bits, sizeof bits);
    return identity;
}

std::string MadeUpName(int number) { return "Vortan Jitter Effector " + std::to_string(number + 1); }

std::vector<ObjectItem> MadeUpItems(int count)
{
    std::vector<ObjectItem> items;
    for (int i = 0; i < count; ++i)
        items.push_back(
            {GetUUIDStr(MadeUpIdentity(i)).text, MadeUpName(i), 0, 1, installed[i % kindsOnLayer]});
    return items;
}

FastHost::FastHost() { state = State(); }

FastHost::~FastHost() { state = State(); }

SPBasicSuite* FastHost::Basic() { return &basic; }

void FastHost::Set(Panel panel) { state.panel = panel; }

void FastHost::Set(Speed speed)
{
    state.isSlow = speed == Speed::aMicrosecond;
    tellPlain();
}

void FastHost::ShowLayer(int layerId, int effects)
{
    state.layerId = layerId;
    state.stack.clear();
    for (int i = 0; i < effects; ++i)
    {
        auto effect = std::make_unique<Effect>();
        effect->uuid = MadeUpIdentity(i + layerId * effectsOfALayer);
        effect->key = 1 + i % kindsOnLayer;
        state.stack.push_back(std::move(effect));
        Rename(i, MadeUpName(i));
    }
}

void FastHost::Rename(int index, const std::string& name)
{
    if (name.size() > longestName)
        throw std::length_error("a name of the fast host is too long");
    copyText(state.stack.at(static_cast<std::size_t>(index))->name, name.c_str());
}

int FastHost::CountEffects() const { return static_cast<int>(state.stack.size()); }

void FastHost::Idle()
{
    A_long maxSleep = 0;
    (void)state.idleHook(state.createRefcon, state.idleRefcon, &maxSleep);
}

void* FastHost::CreatePanel(void* container)
{
    AEGP_PanelFunctions1 functions{};
    AEGP_PanelRefcon refcon = nullptr;
    (void)state.createHook(state.createRefcon, state.createRefcon, container, nullptr, &functions, &refcon);
    return refcon;
}

void FastHost::Die() { (void)state.deathHook(state.createRefcon, nullptr); }

std::uint64_t FastHost::Calls() { return state.calls; }

void FastHost::startRecording()
{
    state.record.clear();
    state.isRecorded = true;
    tellPlain();
}

std::vector<int> FastHost::stopRecording()
{
    state.isRecorded = false;
    tellPlain();
    return std::move(state.record);
}
} // namespace standin
