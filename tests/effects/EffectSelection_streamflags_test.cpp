// A real stream bears more flags than the hidden one. The stand-in's parameters do not, so here a table is
// put before its own whose answer has further bits.

#include "effects/EffectSelection.h"
#include "tests/support/StackTest.h"

#include <cstring>

namespace standin
{
namespace
{
/// The host's basic suite, except that the older table of dynamic streams adds bits to the flags it reads.
class MoreFlags
{
public:
    MoreFlags(SPBasicSuite* host, AEGP_DynStreamFlags added)
    {
        inner = host;
        bits = added;
        outer = *host;
        outer.AcquireSuite = &acquire;
    }

    SPBasicSuite* Basic() { return &outer; }

private:
    static SPErr acquire(const char* name, std::int32_t version, const void** suite)
    {
        const SPErr err = inner->AcquireSuite(name, version, suite);
        if (err == 0 && std::strcmp(name, "AEGP Dynamic Stream Suite") == 0 && version == 2)
        {
            streams = *static_cast<const AEGP_DynamicStreamSuite2*>(*suite);
            readFlags = streams.AEGP_GetDynamicStreamFlags;
            streams.AEGP_GetDynamicStreamFlags = &readMore;
            *suite = &streams;
        }
        return err;
    }

    static A_Err readMore(AEGP_StreamRefH stream, AEGP_DynStreamFlags* flags)
    {
        const A_Err err = readFlags(stream, flags);
        *flags |= bits;
        return err;
    }

    // The tables of C functions carry no context; one of these lives at a time.
    inline static SPBasicSuite* inner = nullptr;
    inline static AEGP_DynStreamFlags bits = 0;
    inline static AEGP_DynamicStreamSuite2 streams{};
    inline static A_Err (*readFlags)(AEGP_StreamRefH, AEGP_DynStreamFlags*) = nullptr;
    SPBasicSuite outer{};
};

using EffectSelectionStreamFlags = StackTest;

TEST_F(EffectSelectionStreamFlags, OnlyTheHiddenBitComesBack)
{
    for (const bool wasHidden : {false, true})
    {
        SCOPED_TRACE(wasHidden ? "hidden" : "not hidden");
        StackScene& stack = Make("A");
        stack.host.Effect("A").parameters.at(1).hidden = wasHidden;
        const AEGP_DynStreamFlags eyeballDisabledAndElided = 0x31;
        MoreFlags host(stack.Basic(), eyeballDisabledAndElided);
        const AEGP_LayerH layer = stack.Layer();
        const Items selected = stack.Tree("A");

        (void)stack.host.RunInHook(
            [&] { SelectEffectsFromItems(stack.Id(), host.Basic(), layer, true, false, selected); });

        EXPECT_EQ(stack.host.Effect("A").parameters.at(1).hidden, wasHidden);
        EXPECT_EQ(stack.host.FindingsReport(), "");
    }
}
} // namespace
} // namespace standin
