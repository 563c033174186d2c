// Changing a group while host calls fail, suites are missing, or the stack changes meanwhile.

#include "effects/EffectMessages.h"

#include "standin/host/faults/Sweep.h"
#include "tests/effects/FaultOutcome.h"
#include "tests/effects/MessageFixture.h"
#include "tests/support/PatchedBasic.h"

#include <memory>
#include <utility>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{
struct GroupChange : MessageHost
{
    using MessageHost::MessageHost;
    HookResult result;

    void Tell(const std::string& label, int group)
    {
        const std::string uuid = Uuid(label);
        AEGP_LayerH layer = Layer();
        host.ClearTrace();
        result = host.RunInHook([&] { SetEffectGroup(Id(), Basic(), layer, uuid, group); });
    }
};

bool startsWith(const std::string& text, const std::string& start) { return text.rfind(start, 0) == 0; }
} // namespace

// The calls are the count, six for each of the three identities, six for the telling. B is the third effect.

TEST(SetEffectGroup, TellsNobodyIfAnEarlierCallFails)
{
    Calls clean;
    int told = 0;
    int missing = 0;
    const std::size_t swept = SweepFaults(
        [] { return std::make_unique<GroupChange>(); }, [](GroupChange& scenario) { scenario.Tell("B", 6); },
        [&](GroupChange& scenario, const SweptFault& fault)
        {
            SCOPED_TRACE(fault.Text());
            if (fault.ordinal == 0)
                clean = scenario.host.CallTexts();
            scenario.host.CheckSuiteBalance();
            EXPECT_EQ(scenario.host.LeakedReferences(), 0);
            EXPECT_EQ(scenario.host.Effect("A").family.group, 0);
            if (startsWith(fault.call, "Basic AcquireSuite"))
            {
                ++missing;
                EXPECT_EQ(scenario.result.thrownNumber, 516);
                EXPECT_EQ(scenario.host.Effect("B").family.group, 0);
                EXPECT_THAT(scenario.host.TakeFindingIds(), ElementsAre("exception-left-hook"));
                return;
            }
            std::size_t place = 0;
            for (std::size_t i = 0; i + 1 < fault.ordinal; ++i)
                place += startsWith(clean[i], "Basic ") ? 0 : 1;
            const bool isCount = place == 0;
            const bool isIdentityOfB = place >= 13 && place <= 17;
            const bool isTelling = place >= 19 && place <= 23;
            const bool spoils = fault.ordinal != 0 && !startsWith(fault.call, "Basic ") &&
                                (isCount || isIdentityOfB || isTelling);
            told += spoils ? 0 : 1;
            EXPECT_EQ(scenario.host.Effect("B").family.group, spoils ? 0 : 6);
            EXPECT_EQ(scenario.result.thrown, "");
            EXPECT_THAT(scenario.host.TakeFindingIds(), IsEmpty());
        },
        {FaultLength::once});
    EXPECT_EQ(swept, 1u + 4u * 6u + 3u + 3u);
    EXPECT_EQ(missing, 3);
    EXPECT_EQ(told, 1 + 25 - 11 + 3) << "the clean run, what spoils nothing, the releases";
}

TEST(SetEffectGroup, WithoutOneSuiteThrows516)
{
    const std::string left = "exception-left-hook";
    ForEachMissing({{"AEGP Effect Suite", 1, {left}},
                    {"AEGP Layer Suite", 5, {left}},
                    {"AEGP Effect Suite", 3, {left, "leaked-reference"}}},
                   [](const MissingSuite& missing, Withheld how)
                   {
                       GroupChange scenario;
                       scenario.host.Faults().Withhold(missing.name, missing.version, how);
                       scenario.Tell("B", 6);
                       EXPECT_EQ(scenario.result.thrownNumber, 516);
                       EXPECT_EQ(scenario.Text(), "A X B");
                       scenario.host.CheckSuiteBalance();
                       EXPECT_EQ(scenario.host.TakeFindingIds(), missing.found);
                   });
}

TEST(SetEffectGroup, WithoutABasicSuiteThrows516)
{
    GroupChange scenario;
    AEGP_LayerH layer = scenario.Layer();
    scenario.host.Expect("exception-left-hook", "", "a missing basic suite leaves the hook as an integer");
    for (AEGP_LayerH told : {layer, AEGP_LayerH{nullptr}})
    {
        const HookResult result = scenario.host.RunInHook(
            [&] { SetEffectGroup(scenario.Id(), nullptr, told, scenario.Uuid("A"), 6); });
        EXPECT_EQ(result.thrownNumber, 516);
    }
    EXPECT_EQ(scenario.host.FindingsReport(), "");
}

// The position that was found is the position that is told, whoever stands there by then.

TEST(SetEffectGroup, TellsWhoeverIsAtTheFoundIndex)
{
    GroupChange scenario("A X B C");
    scenario.host.Effect("B").behaviour = ActsInMessage([](Host& host) { host.User().Delete("A"); });
    scenario.Tell("B", 6);
    EXPECT_EQ(scenario.Stack(), "X B C");
    EXPECT_EQ(scenario.host.Effect("B").family.group, 0);
    EXPECT_EQ(scenario.host.Effect("C").family.group, 6);
    scenario.ExpectCleanEnd();
}

TEST(SetEffectGroup, TellsNobodyIfTheFoundIndexIsGone)
{
    GroupChange scenario;
    scenario.host.Effect("B").behaviour = ActsInMessage([](Host& host) { host.User().Delete("A"); });
    scenario.Tell("B", 6);
    EXPECT_EQ(scenario.Stack(), "X B");
    EXPECT_EQ(scenario.host.Effect("B").family.group, 0);
    EXPECT_EQ(scenario.CallList().back(), "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2");
    scenario.ExpectCleanEnd();
}

TEST(SetEffectGroup, IgnoresAnEffectThatFailsWhenTold)
{
    GroupChange scenario;
    scenario.host.Effect("B").behaviour = AnswersAndFailsWith(4);
    scenario.Tell("B", 6);
    EXPECT_EQ(scenario.result.thrown, "");
    EXPECT_EQ(scenario.host.Effect("B").family.group, 6);
    scenario.ExpectCleanEnd();
}

namespace
{
/// What SetEffectGroupByUUID returns for B.
int errorOfTelling(GroupChange& scenario, SPBasicSuite* basic)
{
    const std::string uuid = scenario.Uuid("B");
    const HookResult result = SendOver(
        scenario, basic,
        [&](AEGP_SuiteHandler* suites)
        { return SetEffectGroupByUUID(scenario.Id(), suites, scenario.Layer(), MESSAGE_TIME, uuid, 6); });
    EXPECT_EQ(result.thrown, "");
    return result.error;
}
} // namespace

TEST(SetEffectGroup, ReportsNoErrorOfAnAnsweringEffect)
{
    GroupChange scenario;
    scenario.host.Effect("B").behaviour = AnswersAndFailsWith(4);
    EXPECT_EQ(errorOfTelling(scenario, scenario.Basic()), 0);
    EXPECT_EQ(scenario.host.Effect("B").family.group, 6);
    scenario.ExpectCleanEnd();
}

TEST(SetEffectGroup, ReportsNoErrorOfTheLastDisposal)
{
    GroupChange scenario;
    scenario.host.Faults().FailFunction("AEGP_DisposeEffect", 4, FaultLength::once, 4);
    EXPECT_EQ(errorOfTelling(scenario, scenario.Basic()), 0);
    EXPECT_EQ(scenario.CallList().back(), "Effect 3 AEGP_DisposeEffect(effect B) = 4");
    EXPECT_EQ(scenario.host.Effect("B").family.group, 6);
}

TEST(SetEffectGroup, ReportsNoErrorOfTheCount)
{
    GroupChange scenario;
    scenario.host.Faults().FailFunction("AEGP_GetLayerNumEffects", 1, FaultLength::once, 4);
    EXPECT_EQ(errorOfTelling(scenario, scenario.Basic()), 0);
    EXPECT_THAT(scenario.CallList(), ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) = 4"));
}

// A host that lies.

namespace
{
A_Err negativeCount(AEGP_LayerH, A_long* count)
{
    *count = -3;
    return 0;
}

A_Err noReferenceAndNoError(AEGP_PluginID, AEGP_LayerH, AEGP_EffectIndex, AEGP_EffectRefH*) { return 0; }

A_Err flagsOfNothing(AEGP_EffectRefH effect, AEGP_EffectFlags* flags)
{
    *flags = AEGP_EffectFlags_ACTIVE;
    return effect == nullptr ? 0 : 1;
}

/// One question for a group over a host with a patched table.
HookResult pingOver(MessageHost& product, SPBasicSuite* basic)
{
    VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
    message.group = 77;
    const HookResult result = SendOver(
        product, basic,
        [&](AEGP_SuiteHandler* suites)
        { return PingEffectIndex(product.Id(), suites, product.Layer(), MESSAGE_TIME, &message, 0, 0); });
    EXPECT_EQ(message.group, 77);
    return result;
}
} // namespace

TEST(SetEffectGroup, TakesACountThatComesWithAnError)
{
    GroupChange scenario;
    static bool lies;
    lies = true;
    PatchedBasic<AEGP_EffectSuite1> basic(scenario.host,
                                          AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerNumEffects>(
                                              4, [] { return std::exchange(lies, false); }));
    EXPECT_EQ(errorOfTelling(scenario, basic.Basic()), 0);
    EXPECT_EQ(scenario.host.Effect("B").family.group, 6);
    scenario.ExpectCleanEnd();
}

TEST(SetEffectGroup, OnANegativeCountTellsNobody)
{
    GroupChange scenario;
    PatchedBasic<AEGP_EffectSuite1> basic(scenario.host, [](AEGP_EffectSuite1& suite)
                                          { suite.AEGP_GetLayerNumEffects = negativeCount; });
    const HookResult result = SendOver(
        scenario, basic.Basic(),
        [&](AEGP_SuiteHandler* suites)
        { return SetEffectGroupByUUID(scenario.Id(), suites, scenario.Layer(), MESSAGE_TIME, zeroUuid, 6); });
    EXPECT_EQ(result.error, 0);
    EXPECT_THAT(scenario.CallList(), IsEmpty());
    scenario.ExpectCleanEnd();
}

TEST(PingEffectIndex, OnANegativeCountSendsNothing)
{
    MessageHost product;
    PatchedBasic<AEGP_EffectSuite1> basic(product.host, [](AEGP_EffectSuite1& suite)
                                          { suite.AEGP_GetLayerNumEffects = negativeCount; });
    EXPECT_EQ(pingOver(product, basic.Basic()).error, 0);
    EXPECT_THAT(product.CallList(),
                ElementsAre("Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100"));
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, TakesNoEffectAfterACountWithError)
{
    MessageHost product;
    PatchedBasic<AEGP_EffectSuite1> basic(product.host,
                                          AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerNumEffects>(4));
    EXPECT_EQ(pingOver(product, basic.Basic()).error, 4);
    EXPECT_EQ(product.CallList().size(), 2u);
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, DisposesOfAReferenceWithErrorUnsent)
{
    MessageHost product;
    PatchedBasic<AEGP_EffectSuite1> basic(
        product.host, AnswersWithError<&AEGP_EffectSuite1::AEGP_GetLayerEffectByIndex>(4));
    EXPECT_EQ(pingOver(product, basic.Basic()).error, 4);
    EXPECT_THAT(product.CallList(),
                ElementsAre("Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
                            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3",
                            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                            "Effect 3 AEGP_DisposeEffect(effect A)"));
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, WithoutAReferenceSendsAndDisposesNothing)
{
    MessageHost product;
    PatchedBasic<AEGP_EffectSuite1> basic(product.host,
                                          [](AEGP_EffectSuite1& suite)
                                          {
                                              suite.AEGP_GetLayerEffectByIndex = noReferenceAndNoError;
                                              suite.AEGP_GetEffectFlags = flagsOfNothing;
                                          });
    EXPECT_EQ(pingOver(product, basic.Basic()).error, 0);
    EXPECT_THAT(product.CallList(),
                ElementsAre("Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
                            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3"));
    product.ExpectCleanEnd();
}
