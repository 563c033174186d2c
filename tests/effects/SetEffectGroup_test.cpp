// Telling an effect its group, and finding the effect by its identity.

#include "effects/EffectMessages.h"

#include "tests/effects/MessageFixture.h"

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(SetEffectGroup, TellsTheEffectWithTheseCalls)
{
    MessageHost product;
    product.SetGroup(product.Uuid("B"), 7);
    EXPECT_EQ(product.host.Effect("B").family.group, 7);
    EXPECT_EQ(product.host.Effect("A").family.group, 0);
    const TracedStack traced = product.Traced();
    EXPECT_EQ(product.CallList(), Sequence({traced.ReadIdentities(), traced.TellGroup("B", 7)}));
    const std::vector<std::string> calls = product.host.CallTexts();
    EXPECT_EQ(calls.front(), "Basic AcquireSuite(\"AEGP Effect Suite\", 1)");
    EXPECT_THAT(std::vector<std::string>(calls.end() - 3, calls.end()),
                ElementsAre("Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
                            "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)",
                            "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)"));
    EXPECT_EQ(product.Stack(), "A X B");
    product.ExpectCleanEnd();
    ASSERT_TRUE(product.host.Undo());
    EXPECT_EQ(product.host.Effect("B").family.group, 0);
}

TEST(SetEffectGroup, SendsNothingForAnUnknownIdentity)
{
    MessageHost product;
    const ProjectState before = product.host.State();
    for (const std::string& uuid :
         {std::string("ffffffff-ffff-ffff-ffff-ffffffffffff"), std::string(), product.Uuid("A") + "0",
          product.Uuid("A").substr(0, 35), product.Uuid("A") + std::string(1, '\0')})
    {
        product.SetGroup(uuid, 7);
        EXPECT_EQ(product.CallList().size(), 1u + 3u * 6u) << uuid;
    }
    EXPECT_TRUE(product.host.State() == before);
    product.ExpectCleanEnd();
}

TEST(SetEffectGroup, OfTheZeroTextChangesNothing)
{
    MessageHost product("A X B X2");
    const ProjectState before = product.host.State();
    product.SetGroup(zeroUuid, 7);
    const std::vector<std::string> calls = product.CallList();
    ASSERT_EQ(calls.size(), 1u + 5u * 6u);
    EXPECT_EQ(calls[29], "Effect 3 AEGP_EffectCallGeneric(id 7, effect X, time 0/100, 17, VORT 3 group 7)");
    EXPECT_TRUE(product.host.State() == before);
    EXPECT_THAT(product.host.UndoNames(), IsEmpty());
    product.ExpectCleanEnd();
}

TEST(SetEffectGroup, GoesToTheUpperOfTwins)
{
    MessageHost product;
    product.host.Effect("B").family.uuid = product.host.Effect("A").family.uuid;
    product.SetGroup(product.Uuid("B"), 5);
    EXPECT_EQ(product.host.Effect("A").family.group, 5);
    EXPECT_EQ(product.host.Effect("B").family.group, 0);
    product.ExpectCleanEnd();
}

TEST(SetEffectGroup, CutsAGroupToItsLow16Bits)
{
    const std::vector<std::pair<int, int>> rows = {{32767, 32767},      {32768, -32768},  {65536, 0},
                                                   {65541, 5},          {-32768, -32768}, {-32769, 32767},
                                                   {0x12345678, 0x5678}};
    for (const auto& [told, taken] : rows)
    {
        MessageHost product;
        product.SetGroup(product.Uuid("A"), told);
        EXPECT_EQ(product.host.Effect("A").family.group, taken) << told;
    }
}

TEST(SetEffectGroup, SendsToASwitchedOffEffectToo)
{
    MessageHost product;
    product.host.Effect("A").flags = 0;
    product.SetGroup(product.Uuid("A"), 2);
    EXPECT_EQ(product.host.Effect("A").family.group, 2);
}

TEST(SetEffectGroup, OfMinusOneIsSentAsItIs)
{
    HostOptions options;
    options.groupMinusOne = GroupMinusOne::isStored;
    MessageHost product("A", options);
    product.SetGroup(product.Uuid("A"), -1);
    EXPECT_EQ(product.host.Effect("A").family.group, -1);
}

TEST(SetEffectGroup, OnANullLayerPrintsAndCallsNobody)
{
    MessageHost product;
    AEGP_SuiteHandler suites(product.Basic());
    EXPECT_EQ(product.InHook(
                  [&] {
                      return SetEffectGroupByUUID(product.Id(), &suites, nullptr, MESSAGE_TIME,
                                                  product.Uuid("A"), 3);
                  }),
              0);
    EXPECT_EQ(product.TakePrinted(), "LayerH is NULL\n");
    EXPECT_EQ(OutputOf([&] { SetEffectGroup(product.Id(), product.Basic(), nullptr, "x", 3); }),
              "LayerH is NULL\n");
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
    product.ExpectCleanEnd();
}

TEST(SetEffectGroup, OnAnEmptyLayerSendsNothing)
{
    MessageHost product("");
    product.SetGroup(zeroUuid, 3);
    EXPECT_THAT(product.CallList(), ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0"));
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(EffectMessages, PrintNothing)
{
    MessageHost product;
    EXPECT_EQ(OutputOf(
                  [&]
                  {
                      (void)product.Groups({0, 1, 2, 3});
                      (void)product.Uuids({0, 1, 2, 3});
                      product.SetGroup(product.Uuid("A"), 1);
                      product.SetGroup("nobody", 1);
                  }),
              "");
}

// The whole stack at once.

TEST(ReadIdentities, AsksTheEffectsFromTheTop)
{
    MessageHost product;
    AEGP_LayerH layer = product.Layer();
    std::vector<std::string> texts;
    (void)product.Send(
        [&](AEGP_SuiteHandler* suites)
        {
            for (const VN_UUID& identity : ReadIdentities(product.Id(), suites, layer, 4))
                texts.push_back(GetUUIDStr(identity).text);
            EXPECT_THAT(ReadIdentities(product.Id(), suites, layer, 0), IsEmpty());
            EXPECT_THAT(ReadIdentities(product.Id(), suites, layer, -2), IsEmpty());
            EXPECT_THAT(ReadStackUuids(product.Id(), suites, layer),
                        ElementsAre(product.Uuid("A"), zeroUuid, product.Uuid("B")));
            return 0;
        });
    EXPECT_THAT(texts, ElementsAre(product.Uuid("A"), zeroUuid, product.Uuid("B"), zeroUuid));
    product.ExpectCleanEnd();
}

TEST(FindUuid, GivesTheFirstPositionOrMinusOne)
{
    EXPECT_EQ(FindUuid({"a", "b", "a", "b"}, "b"), 1);
    EXPECT_EQ(FindUuid({"a", "b"}, "c"), -1);
    EXPECT_EQ(FindUuid({"ab"}, "a"), -1);
    EXPECT_EQ(FindUuid({}, ""), -1);
}
