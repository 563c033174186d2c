// One chain of host calls: what is taken, what the first error skips, and what is given back in which order.

#include "effects/EffectChain.h"

#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
class EffectChainTest : public StackTest
{
protected:
    /// Runs `body` with a handler in a hook, over a layer with the effects A and B.
    template <class Body>
    HookResult Run(Body body)
    {
        scene->host.ClearTrace();
        return scene->host.RunInHook(
            [&]
            {
                const AEGP_SuiteHandler suites(scene->Basic());
                body(suites);
            });
    }

    void SetUp() override { (void)Make("A B"); }
};

const std::string takeB = "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B\n"
                          "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 1) -> stream B.1\n"
                          "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream B.1) -> stream B\n";
const std::string disposeB = "Stream 7 AEGP_DisposeStream(stream B.1)\n"
                             "Stream 7 AEGP_DisposeStream(stream B)\n"
                             "Effect 1 AEGP_DisposeEffect(effect B)\n";

TEST_F(EffectChainTest, StepsRunInOrderAndReferencesAreGivenBackStreamsFirst)
{
    (void)Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 1).TakeParamStream().TakeGroupStream();
            EXPECT_NE(chain.effect, nullptr);
            EXPECT_NE(chain.paramStream, nullptr);
            EXPECT_NE(chain.groupStream, nullptr);

            EXPECT_EQ(chain.Finish(), A_Err_NONE);

            EXPECT_EQ(chain.effect, nullptr);
            EXPECT_EQ(chain.paramStream, nullptr);
            EXPECT_EQ(chain.groupStream, nullptr);
            EXPECT_EQ(chain.Finish(), A_Err_NONE) << "there is nothing left to give back";
        });

    EXPECT_EQ(scene->Calls(), takeB + disposeB);
}

TEST_F(EffectChainTest, AChainThatIsNotFinishedGivesBackAtItsEnd)
{
    (void)Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 1).TakeParamStream().TakeGroupStream();
        });

    EXPECT_EQ(scene->Calls(), takeB + disposeB);
}

TEST_F(EffectChainTest, TheFirstErrorSkipsEveryLaterStepAndIsTheResult)
{
    scene->host.Faults().FailFunction("AEGP_GetNewEffectStreamByIndex", 1, FaultLength::once, 4);
    scene->host.Faults().FailFunction("AEGP_DisposeEffect", 1, FaultLength::once, 9);

    (void)Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 1)
                .TakeParamStream()
                .TakeGroupStream()
                .Then(
                    []() -> A_Err
                    {
                        ADD_FAILURE() << "a step behind the error has run";
                        return 5;
                    });
            EXPECT_EQ(chain.Error(), 4);
            EXPECT_EQ(chain.Finish(), 4) << "not the error of the disposal";
        });

    EXPECT_EQ(scene->Calls(), "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B\n"
                              "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect B, 1) = 4\n"
                              "Effect 1 AEGP_DisposeEffect(effect B) = 9\n");
}

TEST_F(EffectChainTest, TheErrorOfTheEffectsDisposalIsTheResultIfThereIsNoOther)
{
    scene->host.Faults().FailFunction("AEGP_DisposeEffect", 1, FaultLength::once, 9);
    scene->host.Faults().FailFunction("AEGP_DisposeStream", 1, FaultLength::once, 8);

    (void)Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 1).TakeParamStream();
            EXPECT_EQ(chain.Finish(), 9) << "a stream's disposal is not looked at";
        });
}

TEST_F(EffectChainTest, AChainThatStartsWithAnErrorTakesNothing)
{
    (void)Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id(), 4);
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 1).TakeParamStream().TakeGroupStream();
            EXPECT_EQ(chain.Finish(), 4);
        });

    EXPECT_EQ(scene->CallsWithSuites(), "");
}

TEST_F(EffectChainTest, TheEffectIsGivenBackToTheSuiteThatIsNamedLast)
{
    (void)Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 0).DisposeEffectWith<AEGP_EffectSuite3>();
            EXPECT_EQ(chain.Finish(), A_Err_NONE);
        });

    EXPECT_EQ(scene->Calls(), "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                              "Effect 3 AEGP_DisposeEffect(effect A)\n");
}

TEST_F(EffectChainTest, AMissingDisposingSuiteIsThrownOnceTheOthersHadTheirTurn)
{
    scene->host.Faults().Withhold("AEGP Stream Suite", 7);
    for (const char* function : {"AEGP_GetNewEffectStreamByIndex", "AEGP_GetNewParentStreamRef"})
        scene->host.Expect("leaked-reference", function, "their disposing suite is missing");
    scene->host.Expect("dispose-order", "AEGP_DisposeEffect", "its streams cannot be given back");
    scene->host.Expect("exception-left-hook", "", "a missing suite goes on to the host");

    const HookResult result = Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 1).TakeParamStream().TakeGroupStream();
            (void)chain.Finish();
        });

    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_EQ(scene->Calls(), takeB + "Effect 1 AEGP_DisposeEffect(effect B)\n");
}

TEST_F(EffectChainTest, AMissingDisposingSuiteIsNotThrownFromTheEndOfAChain)
{
    scene->host.Faults().Withhold("AEGP Effect Suite", 3);
    scene->host.Expect("leaked-reference", "AEGP_GetLayerEffectByIndex", "its disposing suite is missing");

    const HookResult result = Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.TakeEffect<AEGP_EffectSuite1>(scene->Layer(), 0).DisposeEffectWith<AEGP_EffectSuite3>();
        });

    EXPECT_EQ(result.thrown, "");
}

TEST_F(EffectChainTest, AReferenceThatComesWithAnErrorIsGivenBack)
{
    (void)Run(
        [&](const AEGP_SuiteHandler& suites)
        {
            EffectChain chain(suites, scene->Id());
            chain.Then(
                [&]
                {
                    (void)suites.EffectSuite1()->AEGP_GetLayerEffectByIndex(scene->Id(), scene->Layer(), 0,
                                                                            &chain.effect);
                    return 4;
                });
            EXPECT_EQ(chain.Finish(), 4);
        });

    EXPECT_EQ(scene->Calls(), "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n"
                              "Effect 1 AEGP_DisposeEffect(effect A)\n");
}
} // namespace
} // namespace standin
