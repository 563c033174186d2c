#include "fuzz/SmallHost.h"

#include "fuzz/Input.h"
#include "host/SuiteTraits.h"

#include <cstring>

namespace standin
{
namespace
{
SmallHost* current = nullptr;
int* handedOut = nullptr;

constexpr int theKey = 1;

A_Err oneEffect(AEGP_LayerH, A_long* count)
{
    *count = 1;
    return A_Err_NONE;
}

A_Err sameTime(AEGP_LayerH, const A_Time* in, A_Time* out)
{
    *out = *in;
    return A_Err_NONE;
}

A_Err theEffect(AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex index, AEGP_EffectRefH* effect)
{
    Require(index == 0, "only effects that are there are asked for");
    ++*handedOut;
    *effect = reinterpret_cast<AEGP_EffectRefH>(current);
    return A_Err_NONE;
}

A_Err dispose(AEGP_EffectRefH effect)
{
    Require(effect != nullptr, "a reference is disposed of, and not none");
    --*handedOut;
    return A_Err_NONE;
}

A_Err active(AEGP_EffectRefH, AEGP_EffectFlags* flags)
{
    *flags = AEGP_EffectFlags_ACTIVE;
    return A_Err_NONE;
}

A_Err oneInstalled(A_long* count)
{
    *count = 1;
    return A_Err_NONE;
}

A_Err nextInstalled(AEGP_InstalledEffectKey, AEGP_InstalledEffectKey* next)
{
    *next = theKey;
    return A_Err_NONE;
}

A_Err keyOf(AEGP_EffectRefH, AEGP_InstalledEffectKey* key)
{
    *key = theKey;
    return A_Err_NONE;
}

A_Err writeMatchName(AEGP_InstalledEffectKey, A_char* name)
{
    std::memcpy(name, current->matchName.data(), current->matchName.size());
    return A_Err_NONE;
}

A_Err message(AEGP_PluginID, AEGP_EffectRefH, const A_Time*, PF_Cmd command, void* extra)
{
    Require(command == PF_Cmd_COMPLETELY_GENERAL, "messages go by the general command");
    current->onMessage(extra);
    return A_Err_NONE;
}

template <class Suite>
const void* ifNamed(const char* name, std::int32_t version, const Suite& table)
{
    const bool isNamed =
        std::strcmp(name, SuiteTraits<Suite>::i_name) == 0 && version == SuiteTraits<Suite>::i_version;
    return isNamed ? &table : nullptr;
}

template <class Suite>
Suite effectTable()
{
    Suite table = {};
    table.AEGP_GetLayerNumEffects = oneEffect;
    table.AEGP_GetLayerEffectByIndex = theEffect;
    table.AEGP_GetInstalledKeyFromLayerEffect = keyOf;
    table.AEGP_GetEffectFlags = active;
    table.AEGP_DisposeEffect = dispose;
    table.AEGP_GetNumInstalledEffects = oneInstalled;
    table.AEGP_GetNextInstalledEffect = nextInstalled;
    table.AEGP_GetEffectMatchName = writeMatchName;
    return table;
}

const void* findTable(const char* name, std::int32_t version)
{
    static const AEGP_EffectSuite1 effects1 = effectTable<AEGP_EffectSuite1>();
    static AEGP_EffectSuite3 effects3 = effectTable<AEGP_EffectSuite3>();
    static AEGP_LayerSuite1 layers = {};
    effects3.AEGP_EffectCallGeneric = message;
    layers.AEGP_ConvertLayerToCompTime = sameTime;
    const void* found = ifNamed(name, version, effects1);
    found = found != nullptr ? found : ifNamed(name, version, effects3);
    return found != nullptr ? found : ifNamed(name, version, layers);
}
} // namespace

SmallHost::SmallHost()
{
    current = this;
    handedOut = &references;
    basic.AcquireSuite = acquire;
    basic.ReleaseSuite = release;
}

SmallHost::~SmallHost()
{
    current = nullptr;
    handedOut = nullptr;
}

SPErr SmallHost::acquire(const char* name, std::int32_t version, const void** suite)
{
    *suite = findTable(name, version);
    Require(*suite != nullptr, "messages and match names take these suites and no other");
    ++current->suites;
    return 0;
}

SPErr SmallHost::release(const char*, std::int32_t)
{
    --current->suites;
    return 0;
}
} // namespace standin
