// Reading a layer whose host does not behave.

#include "effects/LayerItems.h"

#include "tests/effects/ReadFixture.h"
#include "tests/support/PatchedBasic.h"

#include <cstring>

namespace standin
{
namespace
{
using ::testing::ElementsAre;

using LayerItemsOddHost = ReadTest;

/// Puts an effect at the end of the stack that answers as the family does, with what is special about it.
void add(LabelledStack& stack, const std::string& matchName, int parameterCount,
         InstalledEffect::MatchNameEnding ending)
{
    InstalledEffect effect;
    effect.matchName = matchName;
    effect.defaultName = "Special";
    effect.parameterCount = parameterCount;
    effect.behaviour = std::make_shared<FamilyBehaviour>();
    effect.matchNameEnding = ending;
    stack.host.Install(effect);
    stack.Add(matchName, "D");
}

// Effects that the host cannot tell everything about.

TEST_F(LayerItemsOddHost, BelowAMissingParameterHaveNoNames)
{
    LabelledStack& stack = MakeInGroups("A E R");
    add(stack, "QVK VORTEFF Bare", 1, InstalledEffect::MatchNameEnding::terminated);
    stack.Add("QVK VORTSRC Lamps", "G");
    stack.host.Effect("G").family.group = 5;
    stack.host.Expect("parameter-index", "AEGP_GetNewEffectStreamByIndex",
                      "an effect is named through its first parameter, and this one has none");
    EXPECT_EQ(stack.Text(Read(stack).items), "A@1 E@2 R@3 D=R! G=R@5!#QVK VORTEFF Bare");
    Calls last = stack.Traced().ReadMatchName(3);
    last.insert(last.end() - 1, "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect D, 1) = 3");
    EXPECT_EQ(LastCalls(5), last);
}

TEST_F(LayerItemsOddHost, EndATagAt128Characters)
{
    const std::string longName = "QVK VORTEFF Endless";
    add(Make(""), longName, 3, InstalledEffect::MatchNameEnding::notTerminated);
    scene->Add("QVK VORTSRC Lamps", "G");
    EXPECT_EQ(scene->Text(Read(*scene).items),
              "D=Special#" + longName + std::string(128 - longName.size(), '#') + " G=Vortan Sheets Object");
}

// A host that lies.

TEST_F(LayerItemsOddHost, OfANegativeCountAreNone)
{
    PatchedBasic<AEGP_EffectSuite1> basic(Make("A E R").host,
                                          [](AEGP_EffectSuite1& suite)
                                          {
                                              suite.AEGP_GetLayerNumEffects = [](AEGP_LayerH, A_long* count)
                                              {
                                                  *count = -3;
                                                  return A_Err{0};
                                              };
                                          });
    EXPECT_EQ(TextOver(basic.Basic()), "");
    EXPECT_THAT(scene->host.CallTexts(), ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                                     "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(LayerItemsOddHost, AskNoNamesAfterACountWithError)
{
    // Sound from the second call on, so that the messages find the stack.
    PatchedBasic<AEGP_EffectSuite1> basic(
        MakeInGroups("A E R").host,
        AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerNumEffects>(
            1, [] { return Host::Current()->CallTexts(SuiteTraffic::leftOut).empty(); }));
    EXPECT_EQ(TextOver(basic.Basic()), "A=@1!# E=@2!# R=@3!#");
    EXPECT_EQ(scene->CallList().size(), 1u + 3u * 12u);
}

TEST_F(LayerItemsOddHost, DisposeOfAParameterStreamWithError)
{
    PatchedBasic<AEGP_StreamSuite1> basic(
        Make("A E R").host, AnswersWithError<&AEGP_StreamSuite1::AEGP_GetNewEffectStreamByIndex>(1));
    EXPECT_THAT(TextOver(basic.Basic()), ::testing::StartsWith("A=! E=!#QVK VORTSRC Routes"));
    EXPECT_THAT(LastCalls(2), ElementsAre("Stream 7 AEGP_DisposeStream(stream A.1)",
                                          "Effect 1 AEGP_DisposeEffect(effect A)"));
}

TEST_F(LayerItemsOddHost, BearANameThatCameWithAnError)
{
    PatchedBasic<AEGP_StreamSuite1> basic(MakeInGroups("A E R").host,
                                          AnswersWithError<&AEGP_StreamSuite1::AEGP_GetStreamName>(1));
    // The error ends the reading, and what was read last stands for the rest.
    EXPECT_EQ(TextOver(basic.Basic()), "A@1 E=A@2!#QVK VORTSRC Routes R=A@3!#QVK VORTSRC Routes");
}

TEST_F(LayerItemsOddHost, EndANameAt128Characters)
{
    PatchedBasic<AEGP_StreamSuite1> basic(Make("A").host,
                                          [](AEGP_StreamSuite1& suite)
                                          {
                                              suite.AEGP_GetStreamName =
                                                  [](AEGP_StreamRefH, A_Boolean, A_char* name)
                                              {
                                                  std::memset(name, 'n', 128);
                                                  return A_Err{0};
                                              };
                                          });
    EXPECT_EQ(TextOver(basic.Basic()), "A=" + std::string(128, 'n'));
}

TEST_F(LayerItemsOddHost, DisposeOfAReferenceWithError)
{
    PatchedBasic<AEGP_DynamicStreamSuite2> basic(
        Make("A E R").host, AnswersWithError<&AEGP_DynamicStreamSuite2::AEGP_GetNewParentStreamRef>(1));
    EXPECT_THAT(TextOver(basic.Basic()), ::testing::StartsWith("A=! E=!#QVK VORTSRC Routes"));
    EXPECT_THAT(LastCalls(3), ElementsAre("Stream 7 AEGP_DisposeStream(stream A.1)",
                                          "Stream 7 AEGP_DisposeStream(stream A)",
                                          "Effect 1 AEGP_DisposeEffect(effect A)"));
}

TEST_F(LayerItemsOddHost, AreOffIfTheirFlagsAreAnError)
{
    PatchedBasic<AEGP_EffectSuite1> basic(Make("A").host,
                                          AnswersWithError<&AEGP_EffectSuite1::AEGP_GetEffectFlags>(4));
    // The messages to the effect ask for its flags too, so nothing is known of it but its tag.
    EXPECT_EQ(TextOver(basic.Basic()), "0=@-1!#QVK VORTSRC Routes");
}

TEST_F(LayerItemsOddHost, AreOffIfTheirFlagsAreNotTold)
{
    PatchedBasic<AEGP_EffectSuite1> basic(
        Make("A").host, [](AEGP_EffectSuite1& suite)
        { suite.AEGP_GetEffectFlags = [](AEGP_EffectRefH, AEGP_EffectFlags*) { return A_Err{0}; }; });
    EXPECT_EQ(TextOver(basic.Basic()), "A!");
}
} // namespace
} // namespace standin
