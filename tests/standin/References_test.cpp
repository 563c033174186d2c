// Every way of misusing a reference, each told apart from the others and reported with its call.

#include "tests/standin/ReferenceTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class References : public ReferenceTest
{
};

TEST_F(References, ADisposedOfReferenceIsFine)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = client.EffectAt(handle, 1);
                        void* stream = client.StreamOf(effect, 1);
                        EXPECT_EQ(client.DisposeStream(stream), errNone);
                        EXPECT_EQ(client.DisposeEffect(effect), errNone);
                    }),
                IsEmpty());
    EXPECT_EQ(host.LiveReferences(), 0);
}

TEST_F(References, EachHandOutIsANewHandle)
{
    inHook(
        [&](Client& client)
        {
            void* first = client.EffectAt(handle, 1);
            (void)client.DisposeEffect(first);
            void* second = client.EffectAt(handle, 1);
            EXPECT_NE(first, second);
            (void)client.DisposeEffect(second);
        });
}

TEST_F(References, ALeakIsReportedWithItsCall)
{
    EXPECT_THAT(
        findingsOf(
            [&](Client& client)
            {
                void* effect = client.EffectAt(handle, 1);
                (void)client.ParentOf(client.StreamOf(effect, 2));
            }),
        ElementsAre(
            "leaked-reference in Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
            "leaked-reference in Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 2) -> stream B.2",
            "leaked-reference in DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream B.2) -> stream B"));
    EXPECT_EQ(host.LiveReferences(), 0);
}

TEST_F(References, ASecondDisposalIsReported)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = client.EffectAt(handle, 1);
                        void* stream = client.StreamOf(effect, 1);
                        (void)client.DisposeStream(stream);
                        EXPECT_EQ(client.DisposeStream(stream), errParameter);
                        (void)client.DisposeEffect(effect);
                        EXPECT_EQ(client.DisposeEffect(effect), errParameter);
                    }),
                ElementsAre("double-dispose in Stream 7 AEGP_DisposeStream(stream B.1)",
                            "double-dispose in Effect 1 AEGP_DisposeEffect(effect B)"));
}

TEST_F(References, ADisposedReferenceIsRefused)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = client.EffectAt(handle, 1);
                        (void)client.DisposeEffect(effect);
                        EXPECT_EQ(client.Flags(effect), 0);
                        EXPECT_EQ(client.error, errParameter);
                    }),
                ElementsAre("disposed-reference in Effect 1 AEGP_GetEffectFlags(effect B)"));
}

TEST_F(References, ANullReferenceIsRefused)
{
    void* none = nullptr;
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        EXPECT_EQ(client.Delete(none), errParameter);
                        EXPECT_EQ(client.Reorder(none, 0), errParameter);
                        EXPECT_EQ(client.DisposeEffect(none), errParameter);
                        EXPECT_EQ(client.Rename(none, "x"), errParameter);
                    }),
                ElementsAre("null-reference in Effect 3 AEGP_DeleteLayerEffect(effect null)",
                            "null-reference in Effect 1 AEGP_ReorderEffect(effect null, 0)",
                            "null-reference in Effect 1 AEGP_DisposeEffect(effect null)",
                            "null-reference in DynamicStream 2 AEGP_SetStreamName(stream null, \"x\")"));
    EXPECT_EQ(host.StackText(layer), "A B C");
}

TEST_F(References, AForeignReferenceIsRefused)
{
    void* content = nullptr;
    void* foreign = &content;
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        EXPECT_EQ(client.Delete(foreign), errParameter);
                        (void)client.NumEffects(foreign);
                        EXPECT_EQ(client.DisposeStream(foreign), errParameter);
                    }),
                ElementsAre("foreign-reference in Effect 3 AEGP_DeleteLayerEffect(effect foreign)",
                            "foreign-reference in Effect 1 AEGP_GetLayerNumEffects(layer foreign)",
                            "foreign-reference in Stream 7 AEGP_DisposeStream(stream foreign)"));
}

TEST_F(References, AHandleOfAnotherKindIsRefused)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = client.EffectAt(handle, 0);
                        (void)client.NumEffects(effect);
                        EXPECT_EQ(client.DisposeStream(effect), errParameter);
                        EXPECT_EQ(client.Delete(handle), errParameter);
                        (void)client.DisposeEffect(effect);
                    }),
                ElementsAre("wrong-kind in Effect 1 AEGP_GetLayerNumEffects(effect A)",
                            "wrong-kind in Stream 7 AEGP_DisposeStream(effect A)",
                            "wrong-kind in Effect 3 AEGP_DeleteLayerEffect(layer 1)"));
}

TEST_F(References, AReorderMakesAllTheLayersReferencesStale)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* moved = client.EffectAt(handle, 2);
                        void* other = client.EffectAt(handle, 0);
                        void* stream = client.StreamOf(other, 1);
                        EXPECT_EQ(client.Reorder(moved, 0), errNone);
                        EXPECT_EQ(client.Reorder(moved, 1), errParameter);
                        (void)client.Flags(other);
                        (void)client.StreamFlags(stream);
                        EXPECT_EQ(client.DisposeStream(stream), errNone);
                        EXPECT_EQ(client.DisposeEffect(other), errNone);
                        EXPECT_EQ(client.DisposeEffect(moved), errNone);
                    }),
                ElementsAre("stale-reference in Effect 1 AEGP_ReorderEffect(effect C, 1)",
                            "stale-reference in Effect 1 AEGP_GetEffectFlags(effect A)",
                            "stale-reference in DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1)"));
    EXPECT_EQ(host.StackText(layer), "C A B");
}

TEST_F(References, ApplyingMakesOnlyTheOthersStale)
{
    const A_long key = host.FindInstalled("ADBE Tint")->key;
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* other = client.EffectAt(handle, 0);
                        void* fresh = client.Apply(handle, key);
                        (void)client.Flags(other);
                        EXPECT_EQ(client.Flags(fresh), 1);
                        EXPECT_EQ(client.Reorder(fresh, 0), errNone);
                        (void)client.DisposeEffect(fresh);
                        (void)client.DisposeEffect(other);
                    }),
                ElementsAre("stale-reference in Effect 1 AEGP_GetEffectFlags(effect A)"));
}

TEST_F(References, DeletingMakesReferencesStaleButStillOwned)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* doomed = client.EffectAt(handle, 0);
                        void* other = client.EffectAt(handle, 1);
                        EXPECT_EQ(client.Delete(doomed), errNone);
                        EXPECT_EQ(client.Delete(doomed), errParameter);
                        (void)client.Flags(other);
                        EXPECT_EQ(client.DisposeEffect(doomed), errNone);
                        EXPECT_EQ(client.DisposeEffect(other), errNone);
                    }),
                ElementsAre("stale-reference in Effect 3 AEGP_DeleteLayerEffect(effect A)",
                            "stale-reference in Effect 1 AEGP_GetEffectFlags(effect B)"));
    EXPECT_EQ(host.StackText(layer), "B C");
}

TEST_F(References, ChangesLeaveOtherLayersReferencesAlone)
{
    const int second = host.AddLayer(comp);
    host.AddEffect(second, "QVK VORTSRC GEO", "Z");
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* here = client.EffectAt(handle, 0);
                        void* there = client.EffectAt(host.LayerHandle(second), 0);
                        (void)client.Reorder(here, 1);
                        EXPECT_EQ(client.Flags(there), 1);
                        (void)client.DisposeEffect(here);
                        (void)client.DisposeEffect(there);
                    }),
                IsEmpty());
}

TEST_F(References, UndoAndDuplicateMakeReferencesStale)
{
    host.User().Rename("A", "Lamp");
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = client.EffectAt(handle, 1);
                        (void)host.Undo();
                        (void)client.Flags(effect);
                        (void)client.DisposeEffect(effect);
                        effect = client.EffectAt(handle, 1);
                        (void)host.User().Duplicate("A");
                        (void)client.Flags(effect);
                        (void)client.DisposeEffect(effect);
                    }),
                ElementsAre("stale-reference in Effect 1 AEGP_GetEffectFlags(effect B)",
                            "stale-reference in Effect 1 AEGP_GetEffectFlags(effect B)"));
}

TEST_F(References, NothingThatWasHandedOutOutlivesItsHook)
{
    void* active = nullptr;
    EXPECT_THAT(findingsOf([&](Client& client) { active = client.ActiveLayer(); }), IsEmpty());
    EXPECT_THAT(findingsOf([&](Client& client) { (void)client.NumEffects(active); }),
                ElementsAre("stale-reference in Effect 1 AEGP_GetLayerNumEffects(layer 1)"));
}

TEST_F(References, DisposingAnEffectBeforeItsStreamIsReported)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = client.EffectAt(handle, 0);
                        void* stream = client.StreamOf(effect, 1);
                        EXPECT_EQ(client.DisposeEffect(effect), errNone);
                        EXPECT_EQ(client.DisposeStream(stream), errNone);
                    }),
                ElementsAre("dispose-order in Effect 1 AEGP_DisposeEffect(effect A)"));
}

TEST_F(References, ADisposalPreventedByFaultIsNoLeak)
{
    host.Faults().FailFunction("AEGP_DisposeEffect");
    EXPECT_THAT(findingsOf([&](Client& client)
                           { EXPECT_EQ(client.DisposeEffect(client.EffectAt(handle, 0)), errGeneric); }),
                IsEmpty());
}

TEST_F(References, DisposingOfADeletedEffectCanBeRefused)
{
    host.Options().disposeDeleted = DisposeDeleted::isRefused;
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* doomed = client.EffectAt(handle, 0);
                        (void)client.Delete(doomed);
                        EXPECT_EQ(client.DisposeEffect(doomed), errParameter);
                    }),
                IsEmpty());
}

TEST_F(References, ALayerThatIsGoneIsStale)
{
    host.State().layers.clear();
    EXPECT_THAT(findingsOf([&](Client& client) { (void)client.NumEffects(handle); }),
                ElementsAre("stale-reference in Effect 1 AEGP_GetLayerNumEffects(layer 1)"));
}

TEST_F(References, AnOldReferenceIsStillKnown)
{
    void* old = nullptr;
    void* oldStream = nullptr;
    inHook(
        [&](Client& client)
        {
            old = client.EffectAt(handle, 1);
            oldStream = client.StreamOf(old, 2);
            (void)client.DisposeStream(oldStream);
            (void)client.DisposeEffect(old);
        });
    for (int i = 0; i < 100; ++i)
        inHook(
            [&](Client& client)
            {
                for (int k = 0; k < 100; ++k)
                    (void)client.DisposeEffect(client.EffectAt(handle, 0));
            });
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        (void)client.DisposeEffect(old);
                        (void)client.StreamFlags(oldStream);
                        (void)client.Flags(oldStream);
                        (void)client.Flags(static_cast<char*>(old) + 1);
                    }),
                ElementsAre("double-dispose in Effect 1 AEGP_DisposeEffect(effect B)",
                            "disposed-reference in DynamicStream 2 AEGP_GetDynamicStreamFlags(stream B.2)",
                            "wrong-kind in Effect 1 AEGP_GetEffectFlags(stream B.2)",
                            "foreign-reference in Effect 1 AEGP_GetEffectFlags(effect foreign)"));
}
} // namespace
} // namespace standin
