#include "effects/EffectChain.h"

#include "tests/effects/FaultOutcome.h"
#include "tests/effects/LabelledStack.h"

#include <algorithm>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
namespace
{
/// Chains on the second effect, "B", of a stack of two.
class Chain : public ::testing::Test
{
protected:
    /// Runs `body` in a hook with suites of its own, and clears the trace of everything before.
    template <class Body>
    HookResult InHook(Body body)
    {
        on.host.ClearTrace();
        return on.host.RunInHook(
            [&]
            {
                const AEGP_SuiteHandler suites(on.Basic());
                body(suites);
            });
    }

    void TakeAll(EffectChain& chain)
    {
        chain.TakeEffect<AEGP_EffectSuite1>(on.Layer(), 1).TakeParamStream().TakeGroupStream();
    }

    std::vector<std::string> Calls() const { return on.host.CallTexts(SuiteTraffic::leftOut); }
    std::vector<std::string> CallsBehind(std::size_t count) const
    {
        std::vector<std::string> calls = Calls();
        calls.erase(calls.begin(),
                    calls.begin() + static_cast<std::ptrdiff_t>(std::min(count, calls.size())));
        return calls;
    }

    LabelledStack on{"A B"};
};
} // namespace

TEST_F(Chain, TakesTheReferencesInOrderAndDisposesOfTheEffectLast)
{
    const HookResult hook = InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            EXPECT_EQ(chain.Error(), 0);
            EXPECT_EQ(chain.Finish(), 0);
            EXPECT_EQ(chain.effect, nullptr);
            EXPECT_EQ(chain.paramStream, nullptr);
            EXPECT_EQ(chain.groupStream, nullptr);
        });
    EXPECT_EQ(hook.thrown, "");
    EXPECT_THAT(Calls(),
                ElementsAre("Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 1) -> stream B.1",
                            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream B.1) -> stream B",
                            "Stream 7 AEGP_DisposeStream(stream B.1)",
                            "Stream 7 AEGP_DisposeStream(stream B)",
                            "Effect 1 AEGP_DisposeEffect(effect B)"));
    EXPECT_EQ(TakeFindingIds(on.host), FindingIds());
}

TEST_F(Chain, DisposesOfTheEffectThroughTheSuiteThatItWasToldOf)
{
    (void)InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            chain.TakeEffect<AEGP_EffectSuite3>(on.Layer(), 0);
            EXPECT_EQ(chain.Finish(), 0);
            EffectChain other(suites, on.Id());
            other.TakeEffect<AEGP_EffectSuite1>(on.Layer(), 1).DisposeEffectWith<AEGP_EffectSuite3>();
            EXPECT_EQ(other.Finish(), 0);
        });
    EXPECT_THAT(Calls(), ElementsAre("Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                                     "Effect 3 AEGP_DisposeEffect(effect A)",
                                     "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                                     "Effect 3 AEGP_DisposeEffect(effect B)"));
}

TEST_F(Chain, FirstErrorSkipsTheRestAndIsWhatFinishReturns)
{
    on.host.Faults().FailFunction("AEGP_GetNewEffectStreamByIndex", 1, FaultLength::once, 4);
    (void)InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            bool hasRun = false;
            chain.Then(
                [&]
                {
                    hasRun = true;
                    return A_Err_GENERIC;
                });
            EXPECT_FALSE(hasRun);
            EXPECT_EQ(chain.Error(), 4);
            EXPECT_EQ(chain.Finish(), 4);
        });
    EXPECT_THAT(Calls(), ElementsAre("Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                                     "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 1) = 4",
                                     "Effect 1 AEGP_DisposeEffect(effect B)"));
    EXPECT_EQ(TakeFindingIds(on.host), FindingIds());
}

TEST_F(Chain, EffectWithoutParametersOfItsOwnHasNoStreams)
{
    InstalledEffect bare;
    bare.matchName = "Bare";
    bare.parameterCount = 1;
    (void)on.host.Install(bare);
    (void)on.host.AddEffect(on.layerId, "Bare", "C");
    on.host.Expect("parameter-index", "AEGP_GetNewEffectStreamByIndex",
                   "the host has no other way to a group");
    (void)InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            chain.TakeEffect<AEGP_EffectSuite1>(on.Layer(), 2).TakeParamStream().TakeGroupStream();
            EXPECT_NE(chain.Finish(), 0);
        });
    EXPECT_EQ(on.host.FindingsReport(), "");
}

TEST_F(Chain, ThatStartsWithAnErrorRunsNoStepAndReturnsIt)
{
    (void)InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id(), 4);
            TakeAll(chain);
            EXPECT_EQ(chain.Finish(), 4);
        });
    EXPECT_THAT(on.host.CallTexts(), IsEmpty());
}

TEST_F(Chain, DisposalOfTheEffectIsAnErrorOnlyIfThereWasNoOther)
{
    on.host.Faults().FailFunction("AEGP_DisposeEffect", 1, FaultLength::functionForGood, 4);
    (void)InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            EXPECT_EQ(chain.TakeEffect<AEGP_EffectSuite1>(on.Layer(), 0).Finish(), 4);
            EffectChain other(suites, on.Id());
            other.TakeEffect<AEGP_EffectSuite1>(on.Layer(), 0).Then([] { return A_Err_STRUCT; });
            EXPECT_EQ(other.Finish(), 2);
        });
}

TEST_F(Chain, DisposalOfAStreamIsNoError)
{
    on.host.Faults().FailFunction("AEGP_DisposeStream", 1, FaultLength::functionForGood);
    (void)InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            EXPECT_EQ(chain.Finish(), 0);
        });
    EXPECT_EQ(TakeFindingIds(on.host), FindingIds());
}

TEST_F(Chain, DisposesOfEachReferenceOnceHoweverOftenItIsFinished)
{
    (void)InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            EXPECT_EQ(chain.Finish(), 0);
            EXPECT_EQ(chain.Finish(), 0);
        });
    EXPECT_EQ(Calls().size(), 6u);
    EXPECT_EQ(TakeFindingIds(on.host), FindingIds());
}

// What is thrown through a chain.

TEST_F(Chain, ThrowThroughItDisposesOfWhatItHoldsInTheSameOrder)
{
    const HookResult hook = InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            chain.Then([]() -> A_Err { throw 99; });
        });
    EXPECT_EQ(hook.thrownNumber, 99);
    EXPECT_THAT(CallsBehind(3), ElementsAre("Stream 7 AEGP_DisposeStream(stream B.1)",
                                            "Stream 7 AEGP_DisposeStream(stream B)",
                                            "Effect 1 AEGP_DisposeEffect(effect B)"));
    EXPECT_EQ(TakeFindingIds(on.host), FindingIds{"exception-left-hook"});
}

TEST_F(Chain, SuiteMissingForAStepLeavesAs516AndGivesBackWhatCanBe)
{
    on.host.Faults().Withhold("AEGP Dynamic Stream Suite", 2);
    const HookResult hook = InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
        });
    EXPECT_EQ(hook.thrownNumber, 516);
    EXPECT_THAT(CallsBehind(2), ElementsAre("Stream 7 AEGP_DisposeStream(stream B.1)",
                                            "Effect 1 AEGP_DisposeEffect(effect B)"));
    EXPECT_EQ(TakeFindingIds(on.host), FindingIds{"exception-left-hook"});
}

TEST_F(Chain, SuiteMissingForTheStreamsStillGivesTheEffectBackAndLeavesAs516)
{
    on.host.Faults().Withhold("AEGP Stream Suite", 7);
    const HookResult hook = InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            (void)chain.Finish();
        });
    EXPECT_EQ(hook.thrownNumber, 516);
    EXPECT_EQ(Calls().back(), "Effect 1 AEGP_DisposeEffect(effect B)");
    EXPECT_EQ(TakeFindingIds(on.host),
              (FindingIds{"exception-left-hook", "leaked-reference", "dispose-order"}));
}

TEST_F(Chain, SuiteMissingForTheEffectStillGivesTheStreamsBackAndLeavesAs516)
{
    on.host.Faults().Withhold("AEGP Effect Suite", 3);
    const HookResult hook = InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            chain.DisposeEffectWith<AEGP_EffectSuite3>();
            (void)chain.Finish();
        });
    EXPECT_EQ(hook.thrownNumber, 516);
    EXPECT_THAT(CallsBehind(3), ElementsAre("Stream 7 AEGP_DisposeStream(stream B.1)",
                                            "Stream 7 AEGP_DisposeStream(stream B)"));
    EXPECT_EQ(TakeFindingIds(on.host), (FindingIds{"exception-left-hook", "leaked-reference"}));
}

TEST_F(Chain, DestructorThrowsNothingOfItsOwn)
{
    on.host.Faults().Withhold("AEGP Stream Suite", 7);
    const HookResult hook = InHook(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, on.Id());
            TakeAll(chain);
            chain.Then([]() -> A_Err { throw 99; });
        });
    EXPECT_EQ(hook.thrownNumber, 99);
    EXPECT_EQ(Calls().back(), "Effect 1 AEGP_DisposeEffect(effect B)");
    (void)TakeFindingIds(on.host);
}
} // namespace standin
