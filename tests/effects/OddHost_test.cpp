// A host that writes its out-values although it gives an error, and counts below zero. Its tables are
// written by hand, since the stand-in leaves out-values alone when a call fails.

#include "effects/EffectCatalogue.h"
#include "effects/EffectPlacement.h"
#include "effects/EffectRemoval.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{
/// What the host answers, and what it was asked. Every effect on its one layer bears the same identity.
struct OddHost
{
    A_long installed = 0;
    A_Err errorOfInstalled = A_Err_NONE;
    A_Err errorOfName = A_Err_NONE;
    A_long effects = 0;
    A_Err errorOfFetch1 = A_Err_NONE;  ///< Version 1's fetch of an effect.
    std::vector<A_Err> errorsOfFetch3; ///< Version 3's fetches, one after the other; none after them.
    A_Err errorOfApply = A_Err_NONE;
    bool appliesWithReference = true;
    AEGP_LayerIDVal layerId = 0;
    A_Err errorOfLayerId = A_Err_NONE;
    std::vector<std::string> calls;
};

std::unique_ptr<OddHost> odd;
_AEGP_Effect* effectCell = nullptr;
_AEGP_Layer* layerCell = nullptr;

constexpr const char* identityText = "abababab-abab-abab-abab-abababababab";

A_Err note(const std::string& call, A_Err err = A_Err_NONE)
{
    odd->calls.push_back(err == A_Err_NONE ? call : call + " = " + std::to_string(err));
    return err;
}

std::string nameOf(AEGP_EffectRefH effect) { return effect == nullptr ? "null" : "effect"; }

A_Err callGeneric(AEGP_PluginID, AEGP_EffectRefH, const A_Time*, PF_Cmd, void* message)
{
    std::memset(static_cast<char*>(message) + 8, 0xab, 16);
    return A_Err_NONE;
}

/// What versions 1 and 3 have in common.
template <class Suite>
Suite makeEffectTable()
{
    Suite table{};
    table.AEGP_GetLayerNumEffects = [](AEGP_LayerH, A_long* count)
    {
        *count = odd->effects;
        return note("count");
    };
    table.AEGP_GetEffectFlags = [](AEGP_EffectRefH, AEGP_EffectFlags* flags)
    {
        *flags = AEGP_EffectFlags_ACTIVE;
        return A_Err{A_Err_NONE};
    };
    table.AEGP_ReorderEffect = [](AEGP_EffectRefH effect, A_long index)
    { return note("reorder " + nameOf(effect) + " to " + std::to_string(index)); };
    table.AEGP_DeleteLayerEffect = [](AEGP_EffectRefH effect) { return note("delete " + nameOf(effect)); };
    return table;
}

AEGP_EffectSuite1 makeEffectSuite1()
{
    AEGP_EffectSuite1 table = makeEffectTable<AEGP_EffectSuite1>();
    table.AEGP_GetLayerEffectByIndex =
        [](AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex index, AEGP_EffectRefH* effect)
    {
        *effect = &effectCell;
        return note("fetch1 " + std::to_string(index), odd->errorOfFetch1);
    };
    table.AEGP_DisposeEffect = [](AEGP_EffectRefH effect) { return note("dispose1 " + nameOf(effect)); };
    table.AEGP_ApplyEffect = [](AEGP_PluginID, AEGP_LayerH, AEGP_InstalledEffectKey, AEGP_EffectRefH* effect)
    {
        if (odd->appliesWithReference)
            *effect = &effectCell;
        return note("apply", odd->errorOfApply);
    };
    table.AEGP_GetNumInstalledEffects = [](A_long* count)
    {
        *count = odd->installed;
        return note("installed", odd->errorOfInstalled);
    };
    table.AEGP_GetNextInstalledEffect = [](AEGP_InstalledEffectKey key, AEGP_InstalledEffectKey* next)
    {
        *next = key + 1;
        return note("next " + std::to_string(key));
    };
    table.AEGP_GetEffectMatchName = [](AEGP_InstalledEffectKey key, A_char* name)
    {
        std::strcpy(name, "QVK VORTREN Dots");
        return note("name " + std::to_string(key), odd->errorOfName);
    };
    return table;
}

AEGP_EffectSuite3 makeEffectSuite3()
{
    AEGP_EffectSuite3 table = makeEffectTable<AEGP_EffectSuite3>();
    table.AEGP_GetLayerEffectByIndex =
        [](AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex index, AEGP_EffectRefH* effect)
    {
        *effect = &effectCell;
        A_Err err = A_Err_NONE;
        if (!odd->errorsOfFetch3.empty())
        {
            err = odd->errorsOfFetch3.front();
            odd->errorsOfFetch3.erase(odd->errorsOfFetch3.begin());
        }
        return note("fetch3 " + std::to_string(index), err);
    };
    table.AEGP_EffectCallGeneric = callGeneric;
    table.AEGP_DisposeEffect = [](AEGP_EffectRefH effect) { return note("dispose3 " + nameOf(effect)); };
    return table;
}

AEGP_LayerSuite1 makeLayerSuite()
{
    AEGP_LayerSuite1 table{};
    table.AEGP_ConvertLayerToCompTime = [](AEGP_LayerH, const A_Time* in, A_Time* out)
    {
        *out = *in;
        return A_Err{A_Err_NONE};
    };
    table.AEGP_GetLayerID = [](AEGP_LayerH, AEGP_LayerIDVal* id)
    {
        *id = odd->layerId;
        return note("layer id", odd->errorOfLayerId);
    };
    return table;
}

AEGP_UtilitySuite1 makeUtilitySuite()
{
    AEGP_UtilitySuite1 table{};
    table.AEGP_StartUndoGroup = [](const A_char*) { return note("start"); };
    table.AEGP_EndUndoGroup = [] { return note("end"); };
    return table;
}

SPErr acquire(const char* name, std::int32_t version, const void** suite)
{
    static const AEGP_EffectSuite1 effect1 = makeEffectSuite1();
    static const AEGP_EffectSuite3 effect3 = makeEffectSuite3();
    static const AEGP_LayerSuite1 layer = makeLayerSuite();
    static const AEGP_UtilitySuite1 utility = makeUtilitySuite();
    const std::string wanted = std::string(name) + " " + std::to_string(version);
    *suite = wanted == "AEGP Effect Suite 1"    ? static_cast<const void*>(&effect1)
             : wanted == "AEGP Effect Suite 3"  ? static_cast<const void*>(&effect3)
             : wanted == "AEGP Layer Suite 5"   ? static_cast<const void*>(&layer)
             : wanted == "AEGP Utility Suite 3" ? static_cast<const void*>(&utility)
                                                : nullptr;
    return *suite == nullptr ? 1 : 0;
}

class OddHostTest : public ::testing::Test
{
protected:
    OddHostTest()
    {
        odd = std::make_unique<OddHost>();
        basic.AcquireSuite = acquire;
        basic.ReleaseSuite = [](const char*, std::int32_t) { return SPErr{0}; };
    }

    ~OddHostTest() override { odd.reset(); }

    SPBasicSuite basic{};
    AEGP_LayerH layer = &layerCell;
};
} // namespace

TEST_F(OddHostTest, InstalledEffectsBelowZeroAreNoWalk)
{
    odd->installed = -3;
    std::vector<int> keys;
    EXPECT_EQ(FindEffectKeys(AEGP_SuiteHandler(&basic), keys, "QVK VORTREN"), 0);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_EQ(GetEffectKeyFromMatchName(&basic, "QVK VORTREN"), 0);
    EXPECT_THAT(odd->calls, ElementsAre("installed", "installed"));
}

TEST_F(OddHostTest, CountWithErrorIsWalkedWithoutStep)
{
    odd->installed = 2;
    odd->errorOfInstalled = 4;
    std::vector<int> keys;
    EXPECT_EQ(FindEffectKeys(AEGP_SuiteHandler(&basic), keys, "ADBE"), 4);
    EXPECT_THAT(keys, IsEmpty());
    EXPECT_THAT(odd->calls, ElementsAre("installed = 4", "name 0", "name 0"));
}

TEST_F(OddHostTest, NameWithErrorServesAWalk)
{
    odd->installed = 2;
    odd->errorOfName = 4;
    std::vector<int> keys;
    EXPECT_EQ(FindEffectKeys(AEGP_SuiteHandler(&basic), keys, "QVK VORTREN"), 0);
    EXPECT_THAT(keys, ElementsAre(1, 2));
    EXPECT_THAT(odd->calls, ElementsAre("installed", "next 0", "name 1 = 4", "next 1", "name 2 = 4"));
    EXPECT_EQ(GetEffectKeyFromMatchName(&basic, "QVK VORTREN"), 1);
}

TEST_F(OddHostTest, NegativeCountIsAnEmptyStackForAdding)
{
    odd->effects = -2;
    EXPECT_EQ(GetIndexOfNewEffectToLayer(7, &basic, 5, layer, Idle_Cmd_Apply), 0);
    EXPECT_THAT(odd->calls, ElementsAre("count", "name 5"));
}

TEST_F(OddHostTest, ReferenceWithErrorIsDisposedOfWhenScanning)
{
    odd->effects = 2;
    odd->errorOfFetch1 = 4;
    EXPECT_EQ(GetIndexOfNewEffectToLayer(7, &basic, 5, layer, Idle_Cmd_Apply), 0);
    EXPECT_THAT(odd->calls, ElementsAre("count", "name 5", "fetch1 0 = 4", "dispose1 effect"));
}

TEST_F(OddHostTest, NewEffectWithErrorIsDisposedOfUnmoved)
{
    odd->errorOfApply = 4;
    EXPECT_EQ(ApplyEffectToLayerAtIndex(7, &basic, 5, layer, 0), 4);
    EXPECT_THAT(odd->calls, ElementsAre("apply = 4", "dispose1 effect"));
}

TEST_F(OddHostTest, NewEffectWithoutReferenceIsMovedThroughNull)
{
    odd->appliesWithReference = false;
    EXPECT_EQ(ApplyEffectToLayerAtIndex(7, &basic, 5, layer, 0), 0);
    EXPECT_THAT(odd->calls, ElementsAre("apply", "reorder null to 0"));
}

TEST_F(OddHostTest, LayerWithTheIdZeroGetsNoEffect)
{
    EXPECT_EQ(ApplyEffectToLayerIdleFn(7, &basic, 5, layer), 0);
    EXPECT_THAT(odd->calls, ElementsAre("layer id"));
}

TEST_F(OddHostTest, LayerIdWithErrorIsGoodEnough)
{
    odd->layerId = 3;
    odd->errorOfLayerId = 4;
    EXPECT_EQ(ApplyEffectToLayerIdleFn(7, &basic, 5, layer), 0);
    EXPECT_THAT(odd->calls, ElementsAre("layer id = 4", "count", "name 5", "apply", "reorder effect to 0",
                                        "dispose1 effect"));
}

TEST_F(OddHostTest, NegativeCountIsAnEmptyStackForDeleting)
{
    odd->effects = -2;
    EXPECT_EQ(RemoveMultipleEffectsByUUID(7, &basic, {identityText}, layer), 0);
    EXPECT_THAT(odd->calls, ElementsAre("count"));
}

TEST_F(OddHostTest, ReferenceWithErrorIsNotMovedByDeletion)
{
    odd->effects = 1;
    odd->errorsOfFetch3 = {4};
    EXPECT_EQ(RemoveMultipleEffectsByUUID(7, &basic, {identityText}, layer), 4);
    EXPECT_THAT(odd->calls, ElementsAre("count", "count", "fetch1 0", "dispose3 effect", "start",
                                        "fetch3 0 = 4", "dispose3 effect", "delete null"));
}

TEST_F(OddHostTest, ReferenceWithErrorIsDeleted)
{
    odd->effects = 1;
    odd->errorsOfFetch3 = {0, 4};
    EXPECT_EQ(RemoveMultipleEffectsByUUID(7, &basic, {identityText}, layer), 4);
    EXPECT_THAT(odd->calls, ElementsAre("count", "count", "fetch1 0", "dispose3 effect", "start", "fetch3 0",
                                        "reorder effect to 0", "dispose3 effect", "fetch3 0 = 4",
                                        "delete effect", "dispose3 effect"));
}
