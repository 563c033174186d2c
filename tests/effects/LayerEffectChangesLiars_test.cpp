// A host that hands an effect out, or counts the effects, and returns an error as well.

#include "effects/LayerEffectChanges.h"
#include "tests/support/PatchedBasic.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
bool wasCalled(const std::string& function)
{
    return TextOf(Host::Current()->CallTexts()).find(function) != std::string::npos;
}

class LayerEffectChangesOverALiar : public StackTest
{
protected:
    /// Brings C to the top of A B C, and expects the calls of a sound host.
    void ExpectTheCallsOfASoundHost(const std::function<void(AEGP_EffectSuite1&)>& lie)
    {
        LabelledStack& stack = Make("A B C");
        const TracedStack traced = stack.Traced();
        const Items layerItems = stack.LayerItems();
        const Items treeItems = stack.Tree("C A B");
        PatchedBasic<AEGP_EffectSuite1> basic(stack.host, lie);
        AEGP_LayerH layer = stack.Layer();
        stack.host.ClearTrace();
        const HookResult result = stack.host.RunInHook(
            [&] { LayerEffectChanges(stack.Id(), basic.Basic(), layer, layerItems, treeItems); });
        EXPECT_EQ(result.thrown, "");
        ExpectCalls(traced.AfterReading({traced.Order("Reorder Effect(s)", "C 2>0 A 1>1 B 2>2")}));
        EXPECT_EQ(stack.Stack(), "C A B");
    }
};

TEST_F(LayerEffectChangesOverALiar, MovesAReferenceThatComesWithAnError)
{
    ExpectTheCallsOfASoundHost(AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerEffectByIndex>(
        4, [] { return wasCalled("AEGP_StartUndoGroup"); }));
}

TEST_F(LayerEffectChangesOverALiar, ReadsIdentitiesOfACountWithError)
{
    ExpectTheCallsOfASoundHost(AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerNumEffects>(
        4, [] { return !wasCalled("AEGP_GetLayerNumEffects"); }));
}
} // namespace
} // namespace standin
