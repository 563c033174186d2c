// Installed effects, where a new one lands, and the order of a stack.

#include "tests/standin/Client.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
class Stack : public LayerTest
{
protected:
    Stack()
    {
        for (const char* label : {"A", "B", "C"})
            host.AddEffect(layer, "QVK VORTSRC Lamps", label);
        handle = host.LayerHandle(layer);
    }

    /// Applies an effect through the suites and gives the stack, with the new one as "new".
    std::string stackAfterApply()
    {
        inHook([&](Client& client)
               { (void)client.DisposeEffect(client.Apply(handle, host.FindInstalled("ADBE Fill")->key)); });
        return host.StackText(layer);
    }

    std::string stackAfterMove(A_long from, A_long to)
    {
        inHook(
            [&](Client& client)
            {
                void* effect = client.EffectAt(handle, from);
                EXPECT_EQ(client.Reorder(effect, to), errNone);
                (void)client.DisposeEffect(effect);
            });
        return host.StackText(layer);
    }

    void* handle = nullptr;
};

TEST_F(Stack, ANewEffectLandsAtTheEnd) { EXPECT_EQ(stackAfterApply(), "A B C e4"); }

TEST_F(Stack, ANewEffectCanLandAtTheStart)
{
    host.Options().applyPlace = ApplyPlace::start;
    EXPECT_EQ(stackAfterApply(), "e4 A B C");
}

TEST_F(Stack, ANewEffectCanFollowTheSelectedOne)
{
    host.Options().applyPlace = ApplyPlace::afterSelected;
    EXPECT_EQ(stackAfterApply(), "A B C e4");
    host.User().SelectEffect("A");
    EXPECT_EQ(stackAfterApply(), "A e5 B C e4");
    host.User().SelectNoEffect();
    EXPECT_EQ(stackAfterApply(), "A e5 B C e4 e6");
}

TEST_F(Stack, AMovePutsTheEffectAtItsIndex)
{
    EXPECT_EQ(stackAfterMove(2, 0), "C A B");
    EXPECT_EQ(stackAfterMove(0, 1), "A C B");
    EXPECT_EQ(stackAfterMove(0, 2), "C B A");
    EXPECT_EQ(stackAfterMove(1, 1), "C B A");
}

TEST_F(Stack, TheInstalledWalkVisitsEachEndsInZero)
{
    inHook(
        [&](Client& client)
        {
            A_long count = 0;
            EXPECT_EQ(client.Call(effectSuite, 1, 11, &count), errNone);
            EXPECT_EQ(count, 24);
            A_long key = 0;
            for (A_long i = 0; i < count; ++i)
            {
                EXPECT_EQ(client.Call(effectSuite, 1, 12, key, &key), errNone);
                EXPECT_EQ(key, host.InstalledEffects()[static_cast<std::size_t>(i)].key);
            }
            EXPECT_EQ(client.Call(effectSuite, 1, 12, key, &key), errNone);
            EXPECT_EQ(key, 0);
        });
}

TEST_F(Stack, TheWalkCanEndInAnError)
{
    host.Options().walkEnd = WalkEnd::isError;
    inHook(
        [&](Client& client)
        {
            A_long key = host.InstalledEffects().back().key;
            EXPECT_NE(client.Call(effectSuite, 1, 12, key, &key), errNone);
            EXPECT_EQ(key, host.InstalledEffects().back().key);
        });
}

TEST_F(Stack, ADuplicateFollowsItsOriginalWithNewIdentity)
{
    host.Effect("B").customName = "Twin";
    (void)host.User().Duplicate("B");
    EXPECT_EQ(host.StackText(layer), "A B e4 C");
    EXPECT_EQ(host.NameOf("e4"), "Twin");
    EXPECT_NE(host.Effect("e4").family.uuid, host.Effect("B").family.uuid);

    host.Options().duplicateIdentity = DuplicateIdentity::isCopied;
    (void)host.User().Duplicate("B");
    EXPECT_EQ(host.Effect("e5").family.uuid, host.Effect("B").family.uuid);
}

TEST_F(Stack, IdsAreNeverUsedTwice)
{
    host.User().Delete("C");
    EXPECT_EQ(stackAfterApply(), "A B e4");
}

TEST_F(Stack, WhatIsNotThereCannotBeActedOn)
{
    EXPECT_THROW(host.User().Delete("Z"), std::logic_error);
    EXPECT_THROW(host.User().Reorder("A", 3), std::logic_error);
    EXPECT_THROW(host.AddEffect(layer, "Nobody's Effect"), std::logic_error);
    EXPECT_THROW(host.AddEffect(99, "ADBE Fill"), std::logic_error);
    EXPECT_EQ(host.StackText(layer), "A B C");
}
} // namespace
} // namespace standin
