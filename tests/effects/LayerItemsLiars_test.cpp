// Reading a layer whose effects, or whose host, do not behave.

#include "effects/LayerItems.h"

#include "tests/effects/ReadFixture.h"
#include "tests/support/PatchedBasic.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{
constexpr const char* sheets = "QVK VORTSRC Lamps";
constexpr const char* jitter = "QVK VORTEFF Jitter";
constexpr const char* dots = "QVK VORTREN Dots";

/// A, B and C, in the groups 1, 2 and 3.
struct LiarHost : ProductHost
{
    explicit LiarHost(HostOptions options = {}) : ProductHost(options)
    {
        Add(sheets, "A");
        Add(jitter, "B");
        Add(dots, "C");
        host.Effect("A").family.group = 1;
        host.Effect("B").family.group = 2;
        host.Effect("C").family.group = 3;
        uuidA = Uuid("A");
        uuidB = Uuid("B");
        uuidC = Uuid("C");
    }

    std::string LineA() const { return uuidA + " Vortan Sheets Object group 1 active 1 tag " + sheets; }
    std::string LineB() const { return uuidB + " Vortan Jitter Effector group 2 active 1 tag " + jitter; }
    std::string LineC() const { return uuidC + " Vortan Dots Renderer group 3 active 1 tag " + dots; }

    void ExpectCleanEnd()
    {
        host.CheckSuiteBalance();
        EXPECT_EQ(host.LeakedReferences(), 0);
        EXPECT_EQ(host.FindingsReport(), "");
    }

    std::string uuidA;
    std::string uuidB;
    std::string uuidC;
};

/// Adds to a host an effect that answers as the family does, with what is special about it.
void install(ProductHost& product, const std::string& matchName, int parameterCount,
             InstalledEffect::MatchNameEnding ending)
{
    InstalledEffect effect;
    effect.matchName = matchName;
    effect.defaultName = "Special";
    effect.parameterCount = parameterCount;
    effect.behaviour = std::make_shared<FamilyBehaviour>();
    effect.matchNameEnding = ending;
    product.host.Install(effect);
}
} // namespace

// Effects that do not answer as they should.

TEST(LayerItems, OfAnEffectThatAnswersLateGetItsGroupOnlyAtTheNextRead)
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

TEST(LayerItems, OfAnEffectThatIsNotSetUpYetLookLikeThoseOfAnOutsideEffect)
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

TEST(LayerItems, OfANewEffectHaveTheZeroIdentityUntilItHasMadeOne)
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

TEST(LayerItems, OfAnEffectThatFailsLookLikeThoseOfAnOutsideEffectAndTheOthersAreWhole)
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

TEST(LayerItems, TakeTheAnswerOfAnEffectThatAnswersAndFails)
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

TEST(LayerItems, OfAnEffectThatIsNotInstalledHaveNoIdentity)
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

TEST(LayerItems, KeepTheirNumberWhenAnEffectIsDeletedInsideAMessage)
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

TEST(LayerItems, KeepTheirNumberWhenAnEffectDeletesItselfInsideItsMessage)
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

TEST(LayerItems, DoNotGrowWhenAnEffectIsAddedInsideAMessage)
{
    LiarHost product;
    product.host.Effect("C").behaviour =
        ActsInMessage([&](Host& host) { host.User().Apply(product.layerId, "ADBE Fill"); });
    EXPECT_THAT(Read(product).Lines(), ElementsAre(product.LineA(), product.LineB(), product.LineC()));
    EXPECT_EQ(Read(product).items.size(), 4u);
    product.ExpectCleanEnd();
}

TEST(LayerItems, AreMixedWhenTheStackIsReorderedBetweenTheQuestions)
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

// Effects that the host cannot tell everything about.

TEST(LayerItems, BelowAnEffectWithoutAParameterHaveNoNamesOfTheirOwn)
{
    LiarHost product;
    install(product, "QVK VORTEFF Bare", 1, InstalledEffect::MatchNameEnding::terminated);
    const std::string uuidD = product.Add("QVK VORTEFF Bare", "D");
    const std::string uuidE = product.Add(sheets, "E");
    product.host.Effect("E").family.group = 5;
    product.host.Expect("parameter-index", "AEGP_GetNewEffectStreamByIndex",
                        "an effect is named through its first parameter, and this one has none");
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre(product.LineA(), product.LineB(), product.LineC(),
                            uuidD + " Vortan Dots Renderer group 0 active 0 tag QVK VORTEFF Bare",
                            uuidE + " Vortan Dots Renderer group 5 active 0 tag QVK VORTEFF Bare"));
    const std::vector<std::string> calls = product.host.CallTexts(SuiteTraffic::leftOut);
    EXPECT_THAT(std::vector<std::string>(calls.end() - 5, calls.end()),
                ElementsAre("Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 3) -> effect D",
                            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect D) -> " +
                                std::to_string(product.Key("QVK VORTEFF Bare")),
                            "Effect 1 AEGP_GetEffectMatchName(" +
                                std::to_string(product.Key("QVK VORTEFF Bare")) + ") -> \"QVK VORTEFF Bare\"",
                            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect D, 1) = 3",
                            "Effect 1 AEGP_DisposeEffect(effect D)"));
    product.ExpectCleanEnd();
}

TEST(LayerItems, EndATagAt128CharactersIfTheHostDoesNot)
{
    LiarHost product;
    const std::string longName = "QVK VORTEFF Endless";
    install(product, longName, 3, InstalledEffect::MatchNameEnding::notTerminated);
    product.Add(longName, "D");
    product.Add(sheets, "E");
    const std::vector<ObjectItem> items = Read(product).items;
    ASSERT_EQ(items.size(), 5u);
    EXPECT_EQ(items[3].tag, longName + std::string(128 - longName.size(), '#'));
    EXPECT_EQ(items[3].name, "Special");
    EXPECT_EQ(items[4].tag, sheets);
    product.ExpectCleanEnd();
}

// A host that lies.

TEST(LayerItems, OfALayerWithANegativeCountAreNone)
{
    LiarHost product;
    PatchedBasic<AEGP_EffectSuite1> basic(product.host,
                                          [](AEGP_EffectSuite1& suite)
                                          {
                                              suite.AEGP_GetLayerNumEffects = [](AEGP_LayerH, A_long* count)
                                              {
                                                  *count = -3;
                                                  return A_Err{0};
                                              };
                                          });
    EXPECT_THAT(ReadOver(product, basic.Basic()).items, IsEmpty());
    EXPECT_THAT(product.host.CallTexts(), ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                                      "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
    product.ExpectCleanEnd();
}

TEST(LayerItems, AskNoHostForNamesIfCountingGaveACountAndAnError)
{
    LiarHost product;
    // Sound from the second call on, so that the messages find the stack.
    PatchedBasic<AEGP_EffectSuite1> basic(
        product.host,
        [](AEGP_EffectSuite1& suite)
        {
            suite.AEGP_GetLayerNumEffects = [](AEGP_LayerH layer, A_long* count)
            {
                const bool first = Host::Current()->CallTexts(SuiteTraffic::leftOut).empty();
                const A_Err err =
                    PatchedBasic<AEGP_EffectSuite1>::Sound().AEGP_GetLayerNumEffects(layer, count);
                return first ? A_Err{1} : err;
            };
        });
    EXPECT_THAT(ReadOver(product, basic.Basic()).Lines(),
                ElementsAre(product.uuidA + "  group 1 active 0 tag ",
                            product.uuidB + "  group 2 active 0 tag ",
                            product.uuidC + "  group 3 active 0 tag "));
    EXPECT_EQ(product.host.CallTexts(SuiteTraffic::leftOut).size(), 1u + 3u * 12u);
    product.ExpectCleanEnd();
}

TEST(LayerItems, DisposeOfAParameterStreamThatCameWithAnError)
{
    LiarHost product;
    PatchedBasic<AEGP_StreamSuite1> basic(
        product.host,
        [](AEGP_StreamSuite1& suite)
        {
            suite.AEGP_GetNewEffectStreamByIndex =
                [](AEGP_PluginID id, AEGP_EffectRefH effect, PF_ParamIndex index, AEGP_StreamRefH* stream)
            {
                (void)PatchedBasic<AEGP_StreamSuite1>::Sound().AEGP_GetNewEffectStreamByIndex(id, effect,
                                                                                              index, stream);
                return A_Err{1};
            };
        });
    const std::vector<ObjectItem> items = ReadOver(product, basic.Basic()).items;
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].name, "");
    EXPECT_EQ(items[0].tag, sheets);
    const std::vector<std::string> calls = product.host.CallTexts(SuiteTraffic::leftOut);
    EXPECT_THAT(
        std::vector<std::string>(calls.end() - 2, calls.end()),
        ElementsAre("Stream 7 AEGP_DisposeStream(stream A.1)", "Effect 1 AEGP_DisposeEffect(effect A)"));
    product.ExpectCleanEnd();
}

TEST(LayerItems, BearANameThatCameWithAnError)
{
    LiarHost product;
    PatchedBasic<AEGP_StreamSuite1> basic(
        product.host,
        [](AEGP_StreamSuite1& suite)
        {
            suite.AEGP_GetStreamName = [](AEGP_StreamRefH stream, A_Boolean english, A_char* name)
            {
                (void)PatchedBasic<AEGP_StreamSuite1>::Sound().AEGP_GetStreamName(stream, english, name);
                return A_Err{1};
            };
        });
    // The error ends the reading, and what was read last stands for the rest.
    EXPECT_THAT(
        ReadOver(product, basic.Basic()).Lines(),
        ElementsAre(product.LineA(),
                    product.uuidB + " Vortan Sheets Object group 2 active 0 tag " + std::string(sheets),
                    product.uuidC + " Vortan Sheets Object group 3 active 0 tag " + std::string(sheets)));
    product.ExpectCleanEnd();
}

TEST(LayerItems, EndANameAt128CharactersIfTheHostDoesNot)
{
    LiarHost product;
    PatchedBasic<AEGP_StreamSuite1> basic(product.host,
                                          [](AEGP_StreamSuite1& suite)
                                          {
                                              suite.AEGP_GetStreamName =
                                                  [](AEGP_StreamRefH, A_Boolean, A_char* name)
                                              {
                                                  std::memset(name, 'n', 128);
                                                  return A_Err{0};
                                              };
                                          });
    for (const ObjectItem& item : ReadOver(product, basic.Basic()).items)
        EXPECT_EQ(item.name, std::string(128, 'n'));
    product.ExpectCleanEnd();
}

TEST(LayerItems, DisposeOfAReferenceThatCameWithAnError)
{
    LiarHost product;
    PatchedBasic<AEGP_DynamicStreamSuite2> basic(
        product.host,
        [](AEGP_DynamicStreamSuite2& suite)
        {
            suite.AEGP_GetNewParentStreamRef =
                [](AEGP_PluginID id, AEGP_StreamRefH stream, AEGP_StreamRefH* parent)
            {
                (void)PatchedBasic<AEGP_DynamicStreamSuite2>::Sound().AEGP_GetNewParentStreamRef(id, stream,
                                                                                                 parent);
                return A_Err{1};
            };
        });
    const std::vector<ObjectItem> items = ReadOver(product, basic.Basic()).items;
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].name, "");
    EXPECT_EQ(items[0].tag, sheets);
    EXPECT_EQ(items[0].active, 0);
    const std::vector<std::string> calls = product.host.CallTexts(SuiteTraffic::leftOut);
    EXPECT_THAT(std::vector<std::string>(calls.end() - 3, calls.end()),
                ElementsAre("Stream 7 AEGP_DisposeStream(stream A.1)",
                            "Stream 7 AEGP_DisposeStream(stream A)",
                            "Effect 1 AEGP_DisposeEffect(effect A)"));
    product.ExpectCleanEnd();
}
