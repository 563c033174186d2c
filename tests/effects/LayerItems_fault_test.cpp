// Reading a layer while host calls fail, each in turn.

#include "effects/LayerItems.h"

#include "standin/host/faults/Sweep.h"
#include "tests/effects/FaultOutcome.h"
#include "tests/effects/ReadFixture.h"

#include <algorithm>
#include <memory>

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

namespace standin
{

namespace
{
/// Five effects, no two alike in any field that a read can tell.
struct FaultyRead : LabelledStack
{
    FaultyRead() : LabelledStack("A B X E R")
    {
        host.Effect("A").family.group = 1;
        host.Effect("B").family.group = 2;
        host.Effect("B").customName = "My routes";
        host.Effect("E").flags = 0;
        host.Effect("R").family.rigidity = Rigidity::rigid;
    }

    ReadOutcome outcome;
};

bool startsWith(const std::string& text, const std::string& start) { return text.rfind(start, 0) == 0; }

bool isSuiteTraffic(const std::string& call) { return startsWith(call, "Basic "); }

std::string functionOf(const std::string& call) { return call.substr(0, call.find('(')); }

/// The calls of a clean read that fail, by their places, counted from 0 without suite traffic.
class FailingPlaces
{
public:
    FailingPlaces(const Calls& clean, const SweptFault& fault)
    {
        for (std::size_t i = 0; i < clean.size(); ++i)
        {
            const bool isIt = i + 1 == fault.ordinal;
            const bool isLater = fault.ordinal != 0 && i + 1 > fault.ordinal;
            const bool sameFunction = functionOf(clean[i]) == functionOf(fault.call);
            const bool lasts = fault.length == FaultLength::everythingForGood ||
                               (fault.length == FaultLength::functionForGood && sameFunction);
            if (!isSuiteTraffic(clean[i]))
                fails.push_back(isIt || (isLater && lasts));
        }
    }

    bool Any(std::size_t first, std::size_t count) const
    {
        const auto start = fails.begin() + static_cast<std::ptrdiff_t>(first);
        return std::count(start, start + static_cast<std::ptrdiff_t>(count), true) != 0;
    }

private:
    std::vector<bool> fails;
};

// What a read is made of: the count; for each effect a question for its group and one for its identity,
// six calls each with a disposal at the end; for each effect ten host calls with three disposals at the end.
constexpr std::size_t messageCalls = 6;
constexpr std::size_t messageCallsThatMatter = 5;
constexpr std::size_t hostCalls = 10;
constexpr std::size_t hostCallsThatMatter = 7;
constexpr std::size_t matchNameCall = 2;
constexpr std::size_t streamNameCall = 6;

/// The list that a read has to give if these calls fail and no suite is missing.
Items demandedItems(const FailingPlaces& failing, const Items& sound)
{
    if (failing.Any(0, 1))
        return {};
    const std::size_t count = sound.size();
    const std::size_t identities = 1 + messageCalls * count;
    const std::size_t host = identities + messageCalls * count;
    Items items = sound;
    std::string name;
    std::string tag;
    bool stuck = false;
    for (std::size_t i = 0; i < count; ++i)
    {
        if (failing.Any(1 + i * messageCalls, messageCallsThatMatter))
            items[i].group = -1;
        if (failing.Any(identities + i * messageCalls, messageCallsThatMatter))
            items[i].uuid = zeroUuid;
        const std::size_t first = host + i * hostCalls;
        const bool flagsAreRead = !stuck && !failing.Any(first, streamNameCall);
        if (!stuck && !failing.Any(first, matchNameCall + 1))
            tag = sound[i].tag;
        stuck = stuck || failing.Any(first, hostCallsThatMatter);
        if (!stuck)
            name = sound[i].name;
        items[i].name = name;
        items[i].tag = tag;
        items[i].active = flagsAreRead ? sound[i].active : 0;
    }
    return items;
}

bool hasFailed(const Calls& calls, const std::string& start)
{
    return std::any_of(calls.begin(), calls.end(),
                       [&](const std::string& call)
                       { return startsWith(call, start) && call.find(") = ") != std::string::npos; });
}

/// Every suite that was handed out is given back, as often as it was handed out.
void expectBalancedSuites(const Calls& calls)
{
    Calls acquired;
    Calls released;
    for (const std::string& call : calls)
    {
        const std::string suite = call.substr(call.find('('), call.find(')') - call.find('('));
        if (startsWith(call, "Basic AcquireSuite") && call.back() == ')')
            acquired.push_back(suite);
        if (startsWith(call, "Basic ReleaseSuite"))
            released.push_back(suite);
    }
    EXPECT_THAT(released, UnorderedElementsAreArray(acquired));
}

class LayerItemsFaults : public ::testing::Test
{
protected:
    void Sweep(FaultLength length)
    {
        const std::size_t swept = SweepFaults(
            [] { return std::make_unique<FaultyRead>(); },
            [](FaultyRead& scenario) { scenario.outcome = Read(scenario); },
            [this](FaultyRead& scenario, const SweptFault& fault) { Check(scenario, fault); }, {length});
        EXPECT_EQ(swept, 1u + 5u * 22u + 6u + 6u);
    }

    void Check(FaultyRead& scenario, const SweptFault& fault)
    {
        SCOPED_TRACE(fault.Text());
        const Calls calls = scenario.host.CallTexts();
        if (fault.ordinal == 0)
            clean = calls;
        scenario.host.CheckSuiteBalance();
        expectBalancedSuites(calls);
        EXPECT_EQ(scenario.Stack(), "A B X E R");
        EXPECT_THAT(scenario.host.UndoNames(), IsEmpty());
        if (hasFailed(calls, "Basic AcquireSuite"))
            CheckMissingSuite(scenario, fault, calls);
        else
            CheckList(scenario, fault);
    }

    void CheckList(FaultyRead& scenario, const SweptFault& fault)
    {
        ++lists;
        EXPECT_EQ(scenario.outcome.result.thrown, "");
        EXPECT_EQ(scenario.Text(scenario.outcome.items),
                  scenario.Text(demandedItems(FailingPlaces(clean, fault), sound)));
        EXPECT_THAT(scenario.host.TakeFindingIds(), IsEmpty());
    }

    /// The read throws 516. A reference may leak only where its disposing suite is missing, at once and
    /// on the way out.
    void CheckMissingSuite(FaultyRead& scenario, const SweptFault& fault, const Calls& calls)
    {
        ++missingSuites;
        EXPECT_EQ(scenario.outcome.result.thrownNumber, 516);
        EXPECT_THAT(scenario.outcome.items, IsEmpty());
        std::vector<std::string> ids;
        const auto made = [&](const char* call)
        { return std::find(calls.begin(), calls.end(), call) != calls.end(); };
        const bool isGone = fault.length != FaultLength::once;
        const bool noEffects = isGone && hasFailed(calls, "Basic AcquireSuite(\"AEGP Effect Suite\", 3");
        const bool noStreams = isGone && hasFailed(calls, "Basic AcquireSuite(\"AEGP Stream Suite\", 7");
        if (noStreams && made("Effect 1 AEGP_DisposeEffect(effect A)"))
            ids.push_back("dispose-order");
        ids.push_back("exception-left-hook");
        if (noEffects)
            ids.push_back("leaked-reference");
        if (noStreams)
            ids.push_back("leaked-reference");
        if (noStreams && made("DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A"))
            ids.push_back("leaked-reference");
        EXPECT_EQ(scenario.host.TakeFindingIds(), ids);
    }

    const Items sound = FaultyRead().LayerItems();
    Calls clean;
    int lists = 0;
    int missingSuites = 0;
};
} // namespace

TEST_F(LayerItemsFaults, AfterOneFailedCallDependOnItsPlace)
{
    Sweep(FaultLength::once);
    EXPECT_EQ(lists, 1 + 1 + 5 * 22 + 6) << "the clean run, every call, every release";
    EXPECT_EQ(missingSuites, 6) << "every acquire";
}

TEST_F(LayerItemsFaults, AfterAFailingFunctionDependOnFirstPlace)
{
    Sweep(FaultLength::functionForGood);
    EXPECT_EQ(missingSuites, 6);
}

TEST_F(LayerItemsFaults, AfterLastingFailureDependOnItsPlace)
{
    Sweep(FaultLength::everythingForGood);
    EXPECT_GT(missingSuites, 6) << "a reference is held and its disposing suite is not there yet";
    EXPECT_GT(lists, 90);
}

TEST(LayerItemsFaulty, WithoutOneSuiteThrow516)
{
    const std::string left = "exception-left-hook";
    const std::string leaked = "leaked-reference";
    ForEachMissing({{"AEGP Effect Suite", 1, {left}},
                    {"AEGP Layer Suite", 5, {left}},
                    {"AEGP Effect Suite", 3, {left, leaked}},
                    {"AEGP Stream Suite", 4, {left}},
                    {"AEGP Dynamic Stream Suite", 2, {left}},
                    {"AEGP Stream Suite", 7, {"dispose-order", left, leaked, leaked}}},
                   [](const MissingSuite& missing, Withheld how)
                   {
                       FaultyRead scenario;
                       scenario.host.Faults().Withhold(missing.name, missing.version, how);
                       scenario.outcome = Read(scenario);
                       EXPECT_EQ(scenario.outcome.result.thrownNumber, 516);
                       EXPECT_THAT(scenario.outcome.items, IsEmpty());
                       scenario.host.CheckSuiteBalance();
                       EXPECT_EQ(scenario.host.TakeFindingIds(), missing.found);
                   });
}

TEST(LayerItemsFaulty, WithoutTheParentSuiteDisposeOfTheRest)
{
    FaultyRead scenario;
    scenario.host.Faults().Withhold("AEGP Dynamic Stream Suite", 2);
    (void)Read(scenario);
    const Calls calls = scenario.host.CallTexts();
    EXPECT_THAT(
        Calls(calls.end() - 10, calls.end()),
        ElementsAre(
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1",
            "Basic AcquireSuite(\"AEGP Dynamic Stream Suite\", 2) = 1394689636",
            "Basic AcquireSuite(\"AEGP Stream Suite\", 7)", "Stream 7 AEGP_DisposeStream(stream A.1)",
            "Effect 1 AEGP_DisposeEffect(effect A)", "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
            "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)", "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)",
            "Basic ReleaseSuite(\"AEGP Stream Suite\", 4)", "Basic ReleaseSuite(\"AEGP Stream Suite\", 7)"));
}

// The same by hand, for a reader.

TEST(LayerItemsFaulty, BelowAFailedEffectRepeatTheTextsAbove)
{
    FaultyRead scenario;
    // Each effect is fetched three times: for its group, for its identity, and for the host read.
    scenario.host.Faults().FailFunction("AEGP_GetLayerEffectByIndex", 5 + 5 + 3);
    EXPECT_EQ(scenario.Text(Read(scenario).items),
              "A@1 B=My routes@2 0=My routes@-1!#QVK VORTSRC Routes E=My routes!#QVK VORTSRC Routes "
              "R=My routes@-1!#QVK VORTSRC Routes");
    EXPECT_EQ(scenario.CallList().back(), "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) = 1");
    EXPECT_EQ(scenario.host.FindingsReport(), "");
}

TEST(LayerItemsFaulty, HaveNoTextsIfTheFirstFails)
{
    FaultyRead scenario;
    scenario.host.Faults().FailFunction("AEGP_GetLayerEffectByIndex", 5 + 5 + 1);
    EXPECT_EQ(scenario.Text(Read(scenario).items), "A=@1!# B=@2!# 0=@-1! E=!# R=@-1!#");
    EXPECT_EQ(scenario.host.FindingsReport(), "");
}

TEST(LayerItemsFaulty, OfAnUncountableStackAreNone)
{
    FaultyRead scenario;
    scenario.host.Faults().FailFunction("AEGP_GetLayerNumEffects");
    EXPECT_THAT(Read(scenario).items, IsEmpty());
    EXPECT_THAT(scenario.host.CallTexts(), ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                                       "Effect 1 AEGP_GetLayerNumEffects(layer 1) = 1",
                                                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
    EXPECT_EQ(scenario.host.FindingsReport(), "");
}
} // namespace standin
