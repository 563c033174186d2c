// Reading a layer whose effects do not behave.

#include "effects/LayerItems.h"

#include "tests/effects/LiarHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace standin;
using ::testing::ElementsAre;

TEST(LayerItems, OfALateEffectGetTheirGroupLater)
{
    LiarHost product;
    product.host.Effect("B").behaviour = AnswersLate(1);
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.LineA(),
                            product.uuidB + " Vortan Jitter Effector group -1 active 1 tag " + jitter,
                            product.LineC()));
    EXPECT_THAT(Read(product).Lines(), ElementsAre(product.LineA(), product.LineB(), product.LineC()));
    product.ExpectCleanEnd();
}

TEST(LayerItems, OfAnUnfinishedEffectLookLikeAnOutsiders)
{
    LiarHost product;
    product.host.Effect("B").behaviour = AnswersLate(2);
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.LineA(),
                            std::string(zeroUuid) + " Vortan Jitter Effector group -1 active 1 tag " + jitter,
                            product.LineC()));
    EXPECT_THAT(Read(product).Lines(), ElementsAre(product.LineA(), product.LineB(), product.LineC()));
    product.ExpectCleanEnd();
}

TEST(LayerItems, OfANewEffectHaveAZeroIdentity)
{
    HostOptions options;
    options.identityBirth = IdentityBirth::atNextIdle;
    ProductHost product(options);
    const int id = product.host.User().Apply(product.layerId, sheets);
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(std::string(zeroUuid) + " Vortan Sheets Object group 0 active 1 tag " + sheets));
    (void)product.host.RunIdle();
    const Identity identity = product.host.State().FindEffect(id)->family.uuid;
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(TextOf(identity) + " Vortan Sheets Object group 0 active 1 tag " + sheets));
}

TEST(LayerItems, OfAFailingEffectLookLikeAnOutsiders)
{
    for (const auto& behaviour : {FailsWith(4), Throws(13)})
    {
        LiarHost product;
        product.host.Effect("A").behaviour = behaviour;
        EXPECT_THAT(
            Read(product).Lines(),
            ElementsAre(std::string(zeroUuid) + " Vortan Sheets Object group -1 active 1 tag " + sheets,
                        product.LineB(), product.LineC()));
        product.ExpectCleanEnd();
    }
}

TEST(LayerItems, TakeAnAnswerThatComesWithAnError)
{
    LiarHost product;
    product.host.Effect("A").behaviour = AnswersAndFailsWith(4);
    EXPECT_THAT(Read(product).Lines(), ElementsAre(product.LineA(), product.LineB(), product.LineC()));
    product.ExpectCleanEnd();
}

TEST(LayerItems, DoNotMindScribblesInTheReservedBytes)
{
    LiarHost product;
    product.host.Effect("A").behaviour = ScribblesReserved();
    product.host.Effect("C").behaviour = ScribblesReserved();
    EXPECT_THAT(Read(product).Lines(), ElementsAre(product.LineA(), product.LineB(), product.LineC()));
    product.ExpectCleanEnd();
}

TEST(LayerItems, TakeScribblesInTheAnswerForTheAnswer)
{
    LiarHost product;
    product.host.Effect("B").behaviour = ScribblesAll();
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.LineA(),
                            std::string("a5a5a5a5-a5a5-a5a5-a5a5-a5a5a5a5a5a5 Vortan Jitter Effector") +
                                " group -23131 active 1 tag " + jitter,
                            product.LineC()));
    product.ExpectCleanEnd();
}

TEST(LayerItems, RepeatAnIdentityThatTwoEffectsBear)
{
    LiarHost product;
    product.host.Effect("C").behaviour = RepeatsIdentity(product.host.Effect("A").family.uuid);
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.LineA(), product.LineB(),
                            product.uuidA + " Vortan Dots Renderer group 3 active 1 tag " + dots));
    product.ExpectCleanEnd();
}

TEST(LayerItems, OfAnUninstalledEffectHaveNoIdentity)
{
    LiarHost product;
    product.host.Effect("B").flags = AEGP_EffectFlags_ACTIVE | 8;
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.LineA(),
                            std::string(zeroUuid) + " Vortan Jitter Effector group -1 active 1 tag " + jitter,
                            product.LineC()));
    product.ExpectCleanEnd();
}

// The stack changes inside a message. Each part of an item is what stood at its index when it was asked.

TEST(LayerItems, KeepTheirNumberAfterADeletionInside)
{
    LiarHost product;
    product.host.Effect("A").behaviour = ActsInMessage([](Host& host) { host.User().Delete("C"); });
    product.host.Expect("index-out-of-range", "AEGP_GetLayerEffectByIndex",
                        "the stack has become shorter than it was when it was counted");
    EXPECT_THAT(
        Read(product).Lines(),
        ElementsAre(product.LineA(), product.LineB(),
                    std::string(zeroUuid) + " Vortan Jitter Effector group -1 active 0 tag " + jitter));
    EXPECT_EQ(product.host.StackText(product.layerId), "A B");
    product.ExpectCleanEnd();
}

TEST(LayerItems, KeepTheirNumberAfterASelfDeletionInside)
{
    LiarHost product;
    product.host.Effect("A").behaviour = ActsInMessage([](Host& host) { host.User().Delete("A"); });
    product.host.Expect("index-out-of-range", "AEGP_GetLayerEffectByIndex",
                        "the stack has become shorter than it was when it was counted");
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.uuidB + " Vortan Jitter Effector group 1 active 1 tag " + jitter,
                            product.uuidC + " Vortan Dots Renderer group 3 active 1 tag " + dots,
                            std::string(zeroUuid) + " Vortan Dots Renderer group -1 active 0 tag " + dots));
    EXPECT_EQ(product.host.StackText(product.layerId), "B C");
    product.ExpectCleanEnd();
}

TEST(LayerItems, DoNotGrowAfterAnAddInside)
{
    LiarHost product;
    product.host.Effect("C").behaviour =
        ActsInMessage([&](Host& host) { host.User().Apply(product.layerId, "ADBE Fill"); });
    EXPECT_THAT(Read(product).Lines(), ElementsAre(product.LineA(), product.LineB(), product.LineC()));
    EXPECT_EQ(Read(product).items.size(), 4u);
    product.ExpectCleanEnd();
}

TEST(LayerItems, AreMixedAfterAReorderBetweenQuestions)
{
    LiarHost product;
    // The fourth message of the read is the first one about an identity.
    product.host.Effect("A").behaviour = ActsInMessage([](Host& host) { host.User().Reorder("C", 0); }, 2);
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.uuidA + " Vortan Dots Renderer group 1 active 1 tag " + dots,
                            product.uuidA + " Vortan Sheets Object group 2 active 1 tag " + sheets,
                            product.uuidB + " Vortan Jitter Effector group 3 active 1 tag " + jitter));
    EXPECT_EQ(product.host.StackText(product.layerId), "C A B");
    product.ExpectCleanEnd();
}
