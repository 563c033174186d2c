// Messages while host calls fail, suites are missing, and effects do not behave.

#include "effects/EffectMessages.h"

#include "standin/host/faults/Sweep.h"
#include "tests/effects/MessageFixture.h"

#include <algorithm>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{
constexpr const char* convert = "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100)";
constexpr const char* count = "Effect 1 AEGP_GetLayerNumEffects(layer 1)";
constexpr const char* takeA = "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0)";
constexpr const char* flagsOfA = "Effect 1 AEGP_GetEffectFlags(effect A)";
constexpr const char* sendToA =
    "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 1 group -1)";
constexpr const char* disposeOfA = "Effect 3 AEGP_DisposeEffect(effect A)";

std::string ok(const char* call, const char* answer) { return std::string(call) + " -> " + answer; }
std::string failed(const char* call, int error) { return std::string(call) + " = " + std::to_string(error); }

const std::string converted = ok(convert, "time 0/100");
const std::string counted = ok(count, "3");
const std::string takenA = ok(takeA, "effect A");
const std::string flagsRead = ok(flagsOfA, "1");

/// Asks the effect at `index` for its group; the answer in `group`, which starts as -1.
struct PingFaults : MessageHost
{
    HookResult PingGroup(int index = 0, int requiredFlags = 0)
    {
        VnEffectMessage message = MessageOf(VN_MSG_GET_GROUP);
        message.group = -1;
        const HookResult result = Ping(message, index, requiredFlags);
        group = message.group;
        return result;
    }
    int group = 0;
};

bool hasFailedAcquire(const Calls& calls)
{
    return std::any_of(calls.begin(), calls.end(),
                       [](const std::string& call) {
                           return call.rfind("Basic AcquireSuite", 0) == 0 &&
                                  call.find(") = ") != std::string::npos;
                       });
}

/// How many of the first calls of a clean run are not suite traffic.
std::size_t placeOf(const Calls& clean, std::size_t ordinal)
{
    return static_cast<std::size_t>(
        std::count_if(clean.begin(), clean.begin() + static_cast<std::ptrdiff_t>(ordinal - 1),
                      [](const std::string& call) { return call.rfind("Basic ", 0) != 0; }));
}
} // namespace

// Each call of one message fails.

TEST(PingEffectIndex, ReportsTheFirstErrorAndDisposes)
{
    struct Row
    {
        const char* function;
        Calls calls;
        int group;
    };
    const std::vector<Row> rows = {
        {"AEGP_ConvertLayerToCompTime", {failed(convert, 4)}, -1},
        {"AEGP_GetLayerNumEffects", {converted, failed(count, 4)}, -1},
        {"AEGP_GetLayerEffectByIndex", {converted, counted, failed(takeA, 4)}, -1},
        {"AEGP_GetEffectFlags", {converted, counted, takenA, failed(flagsOfA, 4), disposeOfA}, -1},
        {"AEGP_EffectCallGeneric",
         {converted, counted, takenA, flagsRead, failed(sendToA, 4), disposeOfA},
         -1},
        {"AEGP_DisposeEffect",
         {converted, counted, takenA, flagsRead, ok(sendToA, "group 0"), failed(disposeOfA, 4)},
         0},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.function);
        PingFaults product;
        product.host.Faults().FailFunction(row.function, 1, FaultLength::once, 4);
        EXPECT_EQ(product.PingGroup().error, 4);
        EXPECT_EQ(product.CallList(), row.calls);
        EXPECT_EQ(product.group, row.group);
        product.ExpectCleanEnd();
    }
}

TEST(PingEffectIndex, ReportsTheHostsErrorForABadIndex)
{
    for (const char* function : {"AEGP_ConvertLayerToCompTime", "AEGP_GetLayerNumEffects"})
    {
        for (const int index : {-1, 3})
        {
            PingFaults product;
            product.host.Faults().FailFunction(function, 1, FaultLength::once, 4);
            EXPECT_EQ(product.PingGroup(index).error, 4) << function;
            product.ExpectCleanEnd();
        }
    }
}

TEST(PingEffectIndex, ReportsTheEffectsErrorBeforeTheDisposals)
{
    PingFaults product;
    product.host.Effect("A").behaviour = FailsWith(12);
    EXPECT_EQ(product.PingGroup().error, 12);
    product.host.Faults().FailFunction("AEGP_DisposeEffect", 1, FaultLength::once, 4);
    EXPECT_EQ(product.PingGroup().error, 12);
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, ReportsTheDisposalsErrorForARefusedEffect)
{
    PingFaults product;
    product.host.Effect("A").flags = 0;
    product.host.Faults().FailFunction("AEGP_DisposeEffect", 1, FaultLength::once, 4);
    EXPECT_EQ(product.PingGroup(0, 1).error, 4);
    EXPECT_EQ(product.CallList(), (Calls{converted, counted, takenA, ok(flagsOfA, "0"),
                                         failed("Effect 1 AEGP_DisposeEffect(effect A)", 4)}));
    product.ExpectCleanEnd();
}

TEST(PingEffectIndex, RefusesAnEffectWithUnreadableFlags)
{
    PingFaults product;
    product.host.Faults().FailFunction("AEGP_GetEffectFlags", 1, FaultLength::once, 4);
    EXPECT_EQ(product.PingGroup(0, 1).error, 4);
    EXPECT_EQ(product.CallList(), (Calls{converted, counted, takenA, failed(flagsOfA, 4),
                                         "Effect 1 AEGP_DisposeEffect(effect A)"}));
    product.ExpectCleanEnd();
}

// Each call of a gathering fails, in turn: only the answer of that effect is missing.

namespace
{
struct Gathering : MessageHost
{
    Gathering()
    {
        host.Effect("A").family.group = 1;
        host.Effect("B").family.group = 2;
    }
    std::vector<int> groups;
    std::vector<std::string> uuids;
    HookResult result;
};

/// Runs the sweep; `demand` gives the texts that are to be there if the `n`-th message failed.
template <class Operation, class Answers>
void sweepGathering(Operation operation, Answers answers, const std::vector<std::string>& sound,
                    const std::string& preset)
{
    Calls clean;
    const std::size_t swept =
        SweepFaults([] { return std::make_unique<Gathering>(); },
                    [&](Gathering& scenario) {
                        scenario.result = scenario.Send([&](AEGP_SuiteHandler* suites)
                                                        { return operation(scenario, suites); });
                    },
                    [&](Gathering& scenario, const SweptFault& fault)
                    {
                        SCOPED_TRACE(fault.Text());
                        const Calls calls = scenario.host.CallTexts();
                        if (fault.ordinal == 0)
                            clean = calls;
                        scenario.host.CheckSuiteBalance();
                        EXPECT_EQ(scenario.host.LeakedReferences(), 0);
                        if (hasFailedAcquire(calls))
                        {
                            EXPECT_EQ(scenario.result.thrownNumber, 516);
                            EXPECT_THAT(scenario.host.TakeFindingIds(), ElementsAre("exception-left-hook"));
                            return;
                        }
                        std::vector<std::string> demanded = sound;
                        const bool isMessage = fault.ordinal != 0 && fault.call.rfind("Basic ", 0) != 0;
                        const std::size_t place = isMessage ? placeOf(clean, fault.ordinal) : 5;
                        if (place % 6 != 5)
                            demanded[place / 6] = preset;
                        EXPECT_EQ(answers(scenario), demanded);
                        EXPECT_EQ(scenario.result.error, 0);
                        EXPECT_THAT(scenario.host.TakeFindingIds(), IsEmpty());
                    },
                    {FaultLength::once});
    EXPECT_EQ(swept, 3u * 6u + 3u + 3u);
}
} // namespace

TEST(GetEffectGroups, GivesMinusOneWhereAnyCallFails)
{
    sweepGathering(
        [](Gathering& scenario, AEGP_SuiteHandler* suites)
        {
            std::vector<int> indices = {0, 1, 2};
            return GetEffectGroups(scenario.Id(), suites, scenario.Layer(), MESSAGE_TIME, &indices,
                                   &scenario.groups, 0);
        },
        [](const Gathering& scenario)
        {
            std::vector<std::string> texts;
            for (const int group : scenario.groups)
                texts.push_back(std::to_string(group));
            return texts;
        },
        {"1", "-1", "2"}, "-1");
}

TEST(GetEffectUUIDs, GivesTheZeroTextWhereAnyCallFails)
{
    sweepGathering(
        [](Gathering& scenario, AEGP_SuiteHandler* suites)
        {
            std::vector<int> indices = {0, 1, 2};
            return GetEffectUUIDs(scenario.Id(), suites, scenario.Layer(), MESSAGE_TIME, &indices,
                                  &scenario.uuids);
        },
        [](const Gathering& scenario) { return scenario.uuids; },
        {"01010101-0101-0101-0101-010100000001", zeroUuid, "02020202-0202-0202-0202-020200000002"}, zeroUuid);
}

// Effects that do not behave.

TEST(EffectMessages, TakeWhatAnEffectAnsweredBeforeItFailed)
{
    MessageHost product;
    product.host.Effect("B").family.group = 9;
    product.host.Effect("B").behaviour = AnswersAndFailsWith(4);
    EXPECT_THAT(product.Groups({2}), ElementsAre(9));
    EXPECT_THAT(product.Uuids({2}), ElementsAre(product.Uuid("B")));
    product.ExpectCleanEnd();
}

TEST(EffectMessages, AcceptScribblesOnlyInTheAnswer)
{
    MessageHost product;
    product.host.Effect("A").behaviour = ScribblesAll();
    product.host.Effect("B").behaviour = ScribblesReserved();
    EXPECT_THAT(product.Groups({0, 1, 2}), ElementsAre(-23131, -1, 0));
    EXPECT_THAT(product.Uuids({0, 1, 2}),
                ElementsAre("a5a5a5a5-a5a5-a5a5-a5a5-a5a5a5a5a5a5", zeroUuid, product.Uuid("B")));
    product.ExpectCleanEnd();
}

TEST(EffectMessages, KeepPresetsIfAnEffectFailsOrThrows)
{
    for (const auto& behaviour : {AnswersLate(2), FailsWith(4), Throws(13)})
    {
        MessageHost product;
        product.host.Effect("A").behaviour = behaviour;
        EXPECT_THAT(product.Groups({0, 2}), ElementsAre(-1, 0));
        EXPECT_THAT(product.Uuids({0, 2}), ElementsAre(zeroUuid, product.Uuid("B")));
        product.ExpectCleanEnd();
    }
}
