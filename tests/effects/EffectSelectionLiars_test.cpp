// A host that tells what a selection asks and says beside it that it failed. No result of a selection's own
// questions is looked at, so it goes on as if nothing were wrong.

#include "effects/EffectSelection.h"
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

std::ptrdiff_t timesCalled(const char* function)
{
    const std::vector<std::string> calls = Host::Current()->CallTexts();
    return std::count_if(calls.begin(), calls.end(),
                         [&](const std::string& call) { return call.find(function) != std::string::npos; });
}

/// The layer has been read, which asks for the name of each effect last, and nothing was asked since.
bool isCounting() { return timesCalled("AEGP_GetStreamName") == 4 && timesCalled("ParentComp") == 0; }

/// The effects are being asked for their match names, and none has been touched.
bool isClassifying() { return timesCalled("ParentComp") == 1 && timesCalled("AEGP_StartUndoGroup") == 0; }

A_Err countAndError(AEGP_LayerH layer, A_long* count)
{
    const bool lies = isCounting();
    const A_Err err = Sound::Sound().AEGP_GetLayerNumEffects(layer, count);
    return lies ? grudge : err;
}

A_Err referenceAndError(AEGP_PluginID id, AEGP_LayerH layer, AEGP_EffectIndex index, AEGP_EffectRefH* effect)
{
    const A_Err err = Sound::Sound().AEGP_GetLayerEffectByIndex(id, layer, index, effect);
    return isClassifying() ? grudge : err;
}

A_Err keyAndError(AEGP_EffectRefH effect, AEGP_InstalledEffectKey* key)
{
    const A_Err err = Sound::Sound().AEGP_GetInstalledKeyFromLayerEffect(effect, key);
    return isClassifying() ? grudge : err;
}

A_Err nameAndError(AEGP_InstalledEffectKey key, A_char* name)
{
    const A_Err err = Sound::Sound().AEGP_GetEffectMatchName(key, name);
    return isClassifying() ? grudge : err;
}

class EffectSelectionOverALiar : public StackTest
{
protected:
    /// Selects A on a stack where an outside effect, the main effect and another object stand too, and
    /// expects the calls of a sound host.
    void ExpectTheCallsOfASoundHost(const std::function<void(AEGP_EffectSuite1&)>& lie)
    {
        StackScene& stack = Make("A Z M B");
        const std::string expected = ReadLayer(stack, "A Z M B") +
                                     "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 4\n"
                                     "Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101\n" +
                                     AskMatchName(stack, "A", 0) + AskMatchName(stack, "M", 2) +
                                     AskMatchName(stack, "B", 3) + HideCalls(stack, "B", 3) +
                                     ShowCalls(stack, "A", 0) + ShowCalls(stack, "M", 2);
        const Items selected = stack.Tree("A");
        Sound basic(stack.host, lie);
        AEGP_LayerH layer = stack.Layer();
        stack.host.ClearTrace();
        const std::string output = OutputOf(
            [&]
            {
                const HookResult result = stack.host.RunInHook(
                    [&] { SelectEffectsFromItems(stack.Id(), basic.Basic(), layer, true, true, selected); });
                EXPECT_EQ(result.thrown, "");
            });
        EXPECT_EQ(output, "touching main effect\n");
        EXPECT_EQ(stack.Calls(), expected);
        EXPECT_EQ(stack.host.LeakedReferences(), 0);
    }
};

TEST_F(EffectSelectionOverALiar, TakesACountThatComesWithAnError)
{
    ExpectTheCallsOfASoundHost([](AEGP_EffectSuite1& suite)
                               { suite.AEGP_GetLayerNumEffects = countAndError; });
}

TEST_F(EffectSelectionOverALiar, UsesAndDisposesOfAReferenceWithError)
{
    ExpectTheCallsOfASoundHost([](AEGP_EffectSuite1& suite)
                               { suite.AEGP_GetLayerEffectByIndex = referenceAndError; });
}

TEST_F(EffectSelectionOverALiar, ReadsTheNameOfAKeyWithError)
{
    ExpectTheCallsOfASoundHost([](AEGP_EffectSuite1& suite)
                               { suite.AEGP_GetInstalledKeyFromLayerEffect = keyAndError; });
}

TEST_F(EffectSelectionOverALiar, TrustsANameWithError)
{
    ExpectTheCallsOfASoundHost([](AEGP_EffectSuite1& suite)
                               { suite.AEGP_GetEffectMatchName = nameAndError; });
}
} // namespace
} // namespace standin
