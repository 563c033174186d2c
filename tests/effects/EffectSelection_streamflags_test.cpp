// A real stream bears more flags than the hidden one. The stand-in's parameters do not, so here a table is
// put before its own whose answer has further bits.

#include "effects/EffectSelection.h"
#include "tests/support/PatchedBasic.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using EffectSelectionStreamFlags = StackTest;
using MoreFlags = PatchedBasic<AEGP_DynamicStreamSuite2>;

A_Err readMore(AEGP_StreamRefH stream, AEGP_DynStreamFlags* flags)
{
    const A_Err err = MoreFlags::Sound().AEGP_GetDynamicStreamFlags(stream, flags);
    constexpr AEGP_DynStreamFlags eyeballDisabledAndElided = 0x31;
    *flags |= eyeballDisabledAndElided;
    return err;
}

TEST_F(EffectSelectionStreamFlags, OnlyTheHiddenBitComesBack)
{
    for (const bool wasHidden : {false, true})
    {
        SCOPED_TRACE(wasHidden ? "hidden" : "not hidden");
        LabelledStack& stack = Make("A");
        stack.host.Effect("A").parameters.at(1).hidden = wasHidden;
        MoreFlags basic(stack.host,
                        [](AEGP_DynamicStreamSuite2& suite) { suite.AEGP_GetDynamicStreamFlags = readMore; });
        const AEGP_LayerH layer = stack.Layer();
        const Items selected = stack.Tree("A");

        (void)stack.host.RunInHook(
            [&] { SelectEffectsFromItems(stack.Id(), basic.Basic(), layer, true, false, selected); });

        EXPECT_EQ(stack.Text(), wasHidden ? "A~1" : "A");
    }
}
} // namespace
} // namespace standin
