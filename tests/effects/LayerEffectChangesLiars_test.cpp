// A host that hands an effect out and says beside it that it failed, or counts and says so.

#include "effects/LayerEffectChanges.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/PatchedBasic.h"
#include "tests/support/StackTest.h"

#include <algorithm>

namespace standin
{
namespace
{
using Sound = PatchedBasic<AEGP_EffectSuite1>;

constexpr A_Err grudge = 4;

bool wasCalled(const char* function)
{
    const std::vector<std::string> calls = Host::Current()->CallTexts();
    return std::any_of(calls.begin(), calls.end(),
                       [&](const std::string& call) { return call.find(function) != std::string::npos; });
}

/// From the start of the order's undo group on.
A_Err referenceAndErrorInTheOrder(AEGP_PluginID id, AEGP_LayerH layer, AEGP_EffectIndex index,
                                  AEGP_EffectRefH* effect)
{
    const A_Err err = Sound::Sound().AEGP_GetLayerEffectByIndex(id, layer, index, effect);
    return wasCalled("AEGP_StartUndoGroup") ? grudge : err;
}

/// The count by which the identities are read, which comes before all else.
A_Err firstCountAndError(AEGP_LayerH layer, A_long* count)
{
    const bool isFirst = !wasCalled("AEGP_GetLayerNumEffects");
    const A_Err err = Sound::Sound().AEGP_GetLayerNumEffects(layer, count);
    return isFirst ? grudge : err;
}

class LayerEffectChangesOverALiar : public StackTest
{
protected:
    /// Brings C to the top of A B C, and expects the calls of a sound host.
    void ExpectTheCallsOfASoundHost(const std::function<void(AEGP_EffectSuite1&)>& lie)
    {
        StackScene& stack = Make("A B C");
        const std::string expected = ReadIdentities(stack, "A B C") +
                                     "Utility 3 AEGP_StartUndoGroup(\"Reorder Effect(s)\")\n" +
                                     MoveEffect("C", 2, 0) + MoveEffect("A", 1, 1) + MoveEffect("B", 2, 2) +
                                     "Utility 3 AEGP_EndUndoGroup()\n";
        const Items layerItems = stack.LayerItems();
        const Items treeItems = stack.Tree("C A B");
        Sound basic(stack.host, lie);
        AEGP_LayerH layer = stack.Layer();
        stack.host.ClearTrace();
        const HookResult result = stack.host.RunInHook(
            [&] { LayerEffectChanges(stack.Id(), basic.Basic(), layer, layerItems, treeItems); });
        EXPECT_EQ(result.thrown, "");
        EXPECT_EQ(stack.Calls(), expected);
        EXPECT_EQ(stack.Stack(), "C A B");
        EXPECT_EQ(stack.host.LeakedReferences(), 0);
    }
};

TEST_F(LayerEffectChangesOverALiar, MovesAReferenceThatComesWithAnError)
{
    ExpectTheCallsOfASoundHost([](AEGP_EffectSuite1& suite)
                               { suite.AEGP_GetLayerEffectByIndex = referenceAndErrorInTheOrder; });
}

TEST_F(LayerEffectChangesOverALiar, ReadsIdentitiesOfACountWithError)
{
    ExpectTheCallsOfASoundHost([](AEGP_EffectSuite1& suite)
                               { suite.AEGP_GetLayerNumEffects = firstCountAndError; });
}
} // namespace
} // namespace standin
