// Reading a layer whose host does not behave.

#include "effects/LayerItems.h"

#include "tests/effects/LiarHost.h"
#include "tests/support/PatchedBasic.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{
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

// Effects that the host cannot tell everything about.

TEST(LayerItems, BelowAMissingParameterHaveNoNames)
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

TEST(LayerItems, EndATagAt128Characters)
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

TEST(LayerItems, OfANegativeCountAreNone)
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

TEST(LayerItems, AskNoNamesAfterACountWithError)
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

TEST(LayerItems, DisposeOfAParameterStreamWithError)
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

TEST(LayerItems, EndANameAt128Characters)
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

TEST(LayerItems, DisposeOfAReferenceWithError)
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

TEST(LayerItems, AreOffIfTheirFlagsAreAnError)
{
    LiarHost product;
    PatchedBasic<AEGP_EffectSuite1> basic(product.host,
                                          [](AEGP_EffectSuite1& suite)
                                          {
                                              suite.AEGP_GetEffectFlags =
                                                  [](AEGP_EffectRefH, AEGP_EffectFlags* flags)
                                              {
                                                  *flags = 1;
                                                  return A_Err{4};
                                              };
                                          });
    const std::vector<ObjectItem> items = ReadOver(product, basic.Basic()).items;
    ASSERT_EQ(items.size(), 3u);
    for (const ObjectItem& item : items)
        EXPECT_EQ(item.active, 0) << item.tag;
}

TEST(LayerItems, AreOffIfTheirFlagsAreNotTold)
{
    LiarHost product;
    PatchedBasic<AEGP_EffectSuite1> basic(
        product.host, [](AEGP_EffectSuite1& suite)
        { suite.AEGP_GetEffectFlags = [](AEGP_EffectRefH, AEGP_EffectFlags*) { return A_Err{0}; }; });
    const std::vector<ObjectItem> items = ReadOver(product, basic.Basic()).items;
    ASSERT_EQ(items.size(), 3u);
    for (const ObjectItem& item : items)
        EXPECT_EQ(item.active, 0) << item.tag;
}
