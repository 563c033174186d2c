// What a read of a layer gives, and with which host calls, when the host does its part.

#include "effects/LayerItems.h"

#include "tests/effects/ReadFixture.h"

#include <limits>
#include <map>

namespace standin
{

namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::map<std::string, int> countByFunction(const Host& host)
{
    std::map<std::string, int> counts;
    for (const std::string& call : host.CallTexts())
        ++counts[call.substr(0, call.find('('))];
    return counts;
}

/// At the end there is no trace of the reads.
class LayerItems : public ReadTest
{
protected:
    void TearDown() override
    {
        EXPECT_THAT(scene->host.Alerts(), IsEmpty());
        EXPECT_THAT(scene->host.ViewLog(), IsEmpty());
        ReadTest::TearDown();
    }

    std::string Text() { return scene->Text(Read(*scene).items); }
};

TEST_F(LayerItems, OfANullLayerCostNoCall)
{
    LabelledStack& stack = Make("A");
    Items items(1);
    (void)stack.host.RunInHook([&] { items = CreateItemsFromLayer(stack.Id(), stack.Basic(), nullptr, -1); });
    EXPECT_THAT(items, IsEmpty());
    EXPECT_THAT(stack.host.CallTexts(), IsEmpty());
    EXPECT_THAT(CreateItemsFromLayer(stack.Id(), nullptr, nullptr, -1), IsEmpty());
}

TEST_F(LayerItems, OfAnEmptyLayerSendNoMessage)
{
    (void)Make("");
    EXPECT_EQ(Text(), "");
    EXPECT_THAT(scene->host.CallTexts(), ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                                     "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0",
                                                     "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

TEST_F(LayerItems, WithoutABasicSuiteThrow516)
{
    Make("A").host.Expect("exception-left-hook", "", "a null basic suite is a missing suite");
    EXPECT_EQ(ReadOver(*scene, nullptr).result.thrownNumber, 516);
    EXPECT_THAT(scene->host.CallTexts(), IsEmpty());
}

TEST_F(LayerItems, OfAnOutsiderHaveNameSwitchZeroIdentity)
{
    (void)Make("X");
    EXPECT_EQ(Text(), "0=X@-1#ADBE Fill");
    scene->host.Effect("X").flags = 0;
    scene->host.Effect("X").customName = "Backdrop";
    EXPECT_EQ(Text(), "0=Backdrop@-1!#ADBE Fill");
}

TEST_F(LayerItems, AreReadWithExactlyTheseCalls)
{
    LabelledStack& stack = Make("A X");
    stack.host.Effect("A").family.group = 4;
    stack.host.Effect("A").customName = "My routes";
    stack.host.Effect("X").flags = 4;
    EXPECT_EQ(Text(), "A=My routes@4 0=X@-1!#ADBE Fill");
    const std::string routesKey = std::to_string(stack.KeyOf("A"));
    const std::string fillKey = std::to_string(stack.KeyOf("X"));
    EXPECT_THAT(
        stack.host.CallTexts(),
        ElementsAre(
            "Basic AcquireSuite(\"AEGP Effect Suite\", 1)", "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            // The groups.
            "Basic AcquireSuite(\"AEGP Layer Suite\", 5)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
            "Effect 1 AEGP_GetEffectFlags(effect A) -> 1", "Basic AcquireSuite(\"AEGP Effect Suite\", 3)",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 1 group -1) -> group 4",
            "Effect 3 AEGP_DisposeEffect(effect A)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect X",
            "Effect 1 AEGP_GetEffectFlags(effect X) -> 4",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect X, time 0/100, 17, VORT 1 group -1) -> group -1",
            "Effect 3 AEGP_DisposeEffect(effect X)",
            // The identities.
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
            "Effect 1 AEGP_GetEffectFlags(effect A) -> 1",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, "
            "VORT 5 uuid 00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001",
            "Effect 3 AEGP_DisposeEffect(effect A)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect X",
            "Effect 1 AEGP_GetEffectFlags(effect X) -> 4",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect X, time 0/100, 17, "
            "VORT 5 uuid 00000000-0000-0000-0000-000000000000) -> uuid 00000000-0000-0000-0000-000000000000",
            "Effect 3 AEGP_DisposeEffect(effect X)",
            // The host reads.
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect A) -> " + routesKey,
            "Effect 1 AEGP_GetEffectMatchName(" + routesKey + ") -> \"QVK VORTSRC Routes\"",
            "Basic AcquireSuite(\"AEGP Stream Suite\", 4)",
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1",
            "Basic AcquireSuite(\"AEGP Dynamic Stream Suite\", 2)",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A",
            "Effect 1 AEGP_GetEffectFlags(effect A) -> 1",
            "Stream 4 AEGP_GetStreamName(stream A, 1) -> \"My routes\"",
            "Basic AcquireSuite(\"AEGP Stream Suite\", 7)", "Stream 7 AEGP_DisposeStream(stream A.1)",
            "Stream 7 AEGP_DisposeStream(stream A)", "Effect 1 AEGP_DisposeEffect(effect A)",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect X",
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect X) -> " + fillKey,
            "Effect 1 AEGP_GetEffectMatchName(" + fillKey + ") -> \"ADBE Fill\"",
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect X, 1) -> stream X.1",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream X.1) -> stream X",
            "Effect 1 AEGP_GetEffectFlags(effect X) -> 4",
            "Stream 4 AEGP_GetStreamName(stream X, 1) -> \"X\"", "Stream 7 AEGP_DisposeStream(stream X.1)",
            "Stream 7 AEGP_DisposeStream(stream X)", "Effect 1 AEGP_DisposeEffect(effect X)",
            "Basic ReleaseSuite(\"AEGP Dynamic Stream Suite\", 2)",
            "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)", "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)",
            "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)", "Basic ReleaseSuite(\"AEGP Stream Suite\", 4)",
            "Basic ReleaseSuite(\"AEGP Stream Suite\", 7)"));
}

TEST_F(LayerItems, AreReadAlikeOnALongStack)
{
    const TracedStack traced = Make("E1 E2 E3 X M").Traced();
    (void)Text();
    ExpectCalls(traced.Read());
    EXPECT_EQ(scene->host.CallTexts().size(), traced.Read().size() + 12)
        << "six suites, acquired and released once";
}

TEST_F(LayerItems, CostTwoMessagesAndTenCallsEach)
{
    for (const int n : {1, 2, 7, 40})
    {
        LabelledStack& stack = Make("");
        for (int i = 0; i < n; ++i)
            stack.Add("QVK VORTREN Dots", "R" + std::to_string(i));
        EXPECT_EQ(static_cast<int>(Read(stack).items.size()), n);
        const std::map<std::string, int> expected = {
            {"Basic AcquireSuite", 6},
            {"Basic ReleaseSuite", 6},
            {"DynamicStream 2 AEGP_GetNewParentStreamRef", n},
            {"Effect 1 AEGP_DisposeEffect", n},
            {"Effect 1 AEGP_GetEffectFlags", 3 * n},
            {"Effect 1 AEGP_GetEffectMatchName", n},
            {"Effect 1 AEGP_GetInstalledKeyFromLayerEffect", n},
            {"Effect 1 AEGP_GetLayerEffectByIndex", 3 * n},
            {"Effect 1 AEGP_GetLayerNumEffects", 1 + 2 * n},
            {"Effect 3 AEGP_DisposeEffect", 2 * n},
            {"Effect 3 AEGP_EffectCallGeneric", 2 * n},
            {"Layer 5 AEGP_ConvertLayerToCompTime", 2 * n},
            {"Stream 4 AEGP_GetNewEffectStreamByIndex", n},
            {"Stream 4 AEGP_GetStreamName", n},
            {"Stream 7 AEGP_DisposeStream", 2 * n},
        };
        EXPECT_EQ(countByFunction(stack.host), expected) << n << " effects";
        EXPECT_EQ(stack.host.CallTexts().size(), static_cast<std::size_t>(1 + 22 * n + 12));
    }
}

TEST_F(LayerItems, KeepASwitchedOffEffectInItsPlace)
{
    Make("A E R").host.User().SetActive("E", Switch::off);
    EXPECT_EQ(Text(), "A E! R");
}

TEST_F(LayerItems, TakeNoFlagButTheActiveOne)
{
    LabelledStack& stack = Make("A B");
    stack.host.Effect("A").flags = 2 | 4 | 8;
    stack.host.Effect("B").flags = 1 | 2 | 4 | 8;
    const Items items = Read(stack).items;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].active, 0);
    EXPECT_EQ(items[1].active, 1);
}

TEST_F(LayerItems, OfOneKindHaveOwnIdentitiesOneTag)
{
    LabelledStack& stack = Make("A B");
    stack.host.User().Rename("B", "Second");
    EXPECT_EQ(Text(), "A B=Second");
    const Items items = Read(stack).items;
    EXPECT_NE(items[0].uuid, items[1].uuid);
    EXPECT_EQ(items[0].tag, "QVK VORTSRC Routes");
    EXPECT_EQ(items[1].tag, "QVK VORTSRC Routes");
}

TEST_F(LayerItems, LeaveNoEffectOut)
{
    LabelledStack& stack = Make("");
    std::string expected;
    for (const FamilyEffect& effect : FamilyEffects())
    {
        const std::string label = effect.matchName;
        stack.Add(effect.matchName, label);
        stack.host.Effect(label).groupHidden = true;
        expected += (expected.empty() ? "" : " ") + label + "=" + effect.defaultName;
    }
    EXPECT_EQ(FamilyEffects().size(), 21u);
    EXPECT_EQ(Text(), expected);
}

TEST_F(LayerItems, CarryTheAnsweredGroupSignExtended)
{
    LabelledStack& stack = Make("A B C D E");
    stack.host.Effect("A").family.group = 10;
    stack.host.Effect("B").family.rigidity = Rigidity::rigid;
    stack.host.Effect("C").behaviour = AnswersGroup(std::numeric_limits<std::int16_t>::min());
    stack.host.Effect("D").behaviour = AnswersGroup(std::numeric_limits<std::int16_t>::max());
    EXPECT_EQ(Text(), "A@10 B@-1 C@-32768 D@32767 E");
}

TEST_F(LayerItems, AreTheSameWhateverTheLastArgumentIs)
{
    LabelledStack& stack = Make("A X");
    const std::string sound = stack.Text(Read(stack, -1).items);
    const Calls calls = stack.host.CallTexts();
    for (const int ignored : {0, 1, 2, 7, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        EXPECT_EQ(stack.Text(Read(stack, ignored).items), sound) << ignored;
        EXPECT_EQ(stack.host.CallTexts(), calls) << ignored;
    }
}

TEST_F(LayerItems, AskAtTheLayersStartInCompTime)
{
    LabelledStack& stack = Make("A");
    stack.host.State().FindLayer(stack.layerId)->startTime = 250;
    (void)Text();
    EXPECT_THAT(stack.host.CallTexts(),
                ::testing::Contains("Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 250/100, 17, "
                                    "VORT 1 group -1) -> group 0"));
}

TEST_F(LayerItems, PrintNothingAndChangeNothing)
{
    LabelledStack& stack = Make("A X");
    const ProjectState before = stack.host.State();
    EXPECT_EQ(OutputOf([&] { (void)Read(stack); }), "");
    EXPECT_TRUE(stack.host.State() == before);
    EXPECT_EQ(stack.Steps(), "");
}

TEST_F(LayerItems, KeepBytesThatAreNotUtf8)
{
    LabelledStack& stack = Make("A B");
    stack.host.Effect("A").customName = "\xff\xfe caf\xe9 \xc3";
    stack.host.Effect("B").customName = "";
    EXPECT_EQ(Text(), "A=\xff\xfe caf\xe9 \xc3 B=");
}

TEST_F(LayerItems, TakeNamesOfUpTo127Characters)
{
    LabelledStack& stack = Make("A B");
    stack.host.Effect("A").customName = std::string(127, 'x');
    stack.host.Effect("B").customName.reset();
    EXPECT_EQ(Text(), "A=" + std::string(127, 'x') + " B=Vortan Route Object");
}

TEST_F(LayerItems, TakeTheNameAsTheHostCutsIt)
{
    HostOptions options;
    options.nameLimit = NameLimit::published;
    Make("A", options).host.Effect("A").customName = "0123456789012345678901234567890123456789";
    EXPECT_EQ(Text(), "A=0123456789012345678901234567890");
}
} // namespace
} // namespace standin
