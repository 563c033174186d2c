// Indices, keys, ids and out-pointers that no call can use.

#include "tests/standin/ReferenceTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::SizeIs;

class Arguments : public ReferenceTest
{
};

TEST_F(Arguments, IndicesOutsideTheStackAreRefused)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        EXPECT_EQ(client.EffectAt(handle, 3), nullptr);
                        EXPECT_EQ(client.EffectAt(handle, -1), nullptr);
                        void* effect = client.EffectAt(handle, 0);
                        EXPECT_EQ(client.Reorder(effect, 3), errParameter);
                        EXPECT_EQ(client.Reorder(effect, -1), errParameter);
                        EXPECT_EQ(client.Reorder(effect, 2), errNone);
                        (void)client.DisposeEffect(effect);
                    }),
                ElementsAre("index-out-of-range in Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 3)",
                            "index-out-of-range in Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, -1)",
                            "index-out-of-range in Effect 1 AEGP_ReorderEffect(effect A, 3)",
                            "index-out-of-range in Effect 1 AEGP_ReorderEffect(effect A, -1)"));
    EXPECT_EQ(host.StackText(layer), "B C A");
}

TEST_F(Arguments, ParametersOutsideTheRangeAreRefused)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = client.EffectAt(handle, 0);
                        EXPECT_EQ(client.StreamOf(effect, 0), nullptr);
                        EXPECT_EQ(client.StreamOf(effect, 3), nullptr);
                        void* last = client.StreamOf(effect, 2);
                        EXPECT_NE(last, nullptr);
                        (void)client.DisposeStream(last);
                        (void)client.DisposeEffect(effect);
                    }),
                ElementsAre("parameter-index in Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 0)",
                            "parameter-index in Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 3)"));
}

TEST_F(Arguments, AnUnknownPluginIdIsRefused)
{
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        void* effect = nullptr;
                        EXPECT_EQ(client.Call(effectSuite, 1, 1, A_long{0}, handle, A_long{0}, &effect),
                                  errParameter);
                        EXPECT_EQ(client.Call(effectSuite, 1, 1, A_long{8}, handle, A_long{0}, &effect),
                                  errParameter);
                    }),
                ElementsAre("wrong-plugin-id in Effect 1 AEGP_GetLayerEffectByIndex(id 0, layer 1, 0)",
                            "wrong-plugin-id in Effect 1 AEGP_GetLayerEffectByIndex(id 8, layer 1, 0)"));
}

TEST_F(Arguments, ANullPlaceForAnAnswerIsRefused)
{
    A_long* nowhere = nullptr;
    EXPECT_THAT(findingsOf([&](Client& client)
                           { EXPECT_EQ(client.Call(effectSuite, 1, 0, handle, nowhere), errParameter); }),
                ElementsAre("null-pointer in Effect 1 AEGP_GetLayerNumEffects(layer 1)"));
}

TEST_F(Arguments, AKeyThatIsNotInstalledIsRefused)
{
    char name[128] = "untouched";
    EXPECT_THAT(findingsOf(
                    [&](Client& client)
                    {
                        EXPECT_EQ(client.Apply(handle, 1), nullptr);
                        A_long next = 0;
                        EXPECT_EQ(client.Call(effectSuite, 1, 12, A_long{1}, &next), errParameter);
                        EXPECT_EQ(client.Call(effectSuite, 1, 14, A_long{1}, static_cast<char*>(name)),
                                  errParameter);
                    }),
                SizeIs(3));
    EXPECT_STREQ(name, "untouched");
    EXPECT_EQ(host.StackText(layer), "A B C");
}
} // namespace
} // namespace standin
