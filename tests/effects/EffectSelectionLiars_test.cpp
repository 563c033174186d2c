// A host that answers the questions of a selection and returns an error as well. A selection ignores the
// results of its own questions, so it goes on as if nothing were wrong.

#include "effects/EffectSelection.h"
#include "tests/support/PatchedBasic.h"
#include "tests/support/StackTest.h"

#include <algorithm>

namespace standin
{
namespace
{
std::ptrdiff_t timesCalled(const char* function)
{
    const Calls calls = Host::Current()->CallTexts();
    return std::count_if(calls.begin(), calls.end(),
                         [&](const std::string& call) { return call.find(function) != std::string::npos; });
}

/// The layer has been read, which asks for the name of each effect last, and nothing was asked since.
bool isCounting() { return timesCalled("AEGP_GetStreamName") == 4 && timesCalled("ParentComp") == 0; }

/// The effects are being asked for their match names, and none has been touched.
bool isClassifying() { return timesCalled("ParentComp") == 1 && timesCalled("AEGP_StartUndoGroup") == 0; }

class EffectSelectionOverALiar : public StackTest
{
protected:
    /// Selects A on a stack where an outside effect, the main effect and another object stand too, and
    /// expects the calls of a sound host.
    void ExpectTheCallsOfASoundHost(const std::function<void(AEGP_EffectSuite1&)>& lie)
    {
        LabelledStack& stack = Make("A X M B");
        const TracedStack traced = stack.Traced();
        const Items selected = stack.Tree("A");
        PatchedBasic<AEGP_EffectSuite1> basic(stack.host, lie);
        AEGP_LayerH layer = stack.Layer();
        stack.host.ClearTrace();
        EXPECT_EQ(stack.InHook(
                      [&]
                      {
                          SelectEffectsFromItems(stack.Id(), basic.Basic(), layer, true, true, selected);
                          return 0;
                      }),
                  0);
        EXPECT_EQ(stack.TakePrinted(), "touching main effect\n");
        ExpectCalls(Sequence({traced.Read(), traced.Classify(), traced.Touch("-B +A +M")}));
    }
};

TEST_F(EffectSelectionOverALiar, TakesACountThatComesWithAnError)
{
    ExpectTheCallsOfASoundHost(AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerNumEffects>(4, isCounting));
}

TEST_F(EffectSelectionOverALiar, UsesAndDisposesOfAReferenceWithError)
{
    ExpectTheCallsOfASoundHost(
        AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerEffectByIndex>(4, isClassifying));
}

TEST_F(EffectSelectionOverALiar, ReadsTheNameOfAKeyWithError)
{
    ExpectTheCallsOfASoundHost(
        AnswersWithError<&AEGP_EffectSuite1::AEGP_GetInstalledKeyFromLayerEffect>(4, isClassifying));
}

TEST_F(EffectSelectionOverALiar, TrustsANameWithError)
{
    ExpectTheCallsOfASoundHost(
        AnswersWithError<&AEGP_EffectSuite1::AEGP_GetEffectMatchName>(4, isClassifying));
}
} // namespace
} // namespace standin
