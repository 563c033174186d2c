#include "effects/EffectChain.h"

#include "tests/effects/MessageFixture.h"

#include <functional>
#include <type_traits>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

static_assert(!std::is_copy_constructible_v<EffectChain>, "a copy would dispose a second time");

namespace
{
/// One effect, and chains over it in a hook.
struct ChainHost : LabelledStack
{
    ChainHost() : LabelledStack("A") {}

    /// Runs `body(chain)` on a new chain that starts with `startError`. The calls are those without suite
    /// traffic.
    HookResult Run(const std::function<void(EffectChain&)>& body, A_Err startError = 0)
    {
        layer = Layer();
        return SendOver(*this, Basic(),
                        [&](AEGP_SuiteHandler* suites)
                        {
                            EffectChain chain(*suites, Id(), startError);
                            body(chain);
                            return 0;
                        });
    }

    EffectChain& TakeAll(EffectChain& chain)
    {
        return chain.TakeEffect<AEGP_EffectSuite1>(layer, 0).TakeParamStream().TakeGroupStream();
    }

    void ExpectCleanEnd()
    {
        host.CheckSuiteBalance();
        EXPECT_EQ(host.LeakedReferences(), 0);
        EXPECT_EQ(host.FindingsReport(), "");
    }

    AEGP_LayerH layer = nullptr;
};

const Calls everythingTaken = {
    "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
    "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1",
    "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A",
};
const Calls everythingGivenBack = {
    "Stream 7 AEGP_DisposeStream(stream A.1)",
    "Stream 7 AEGP_DisposeStream(stream A)",
    "Effect 1 AEGP_DisposeEffect(effect A)",
};
} // namespace

TEST(EffectChain, RunsItsStepsInOrderUntilOneFails)
{
    ChainHost product;
    product.host.Faults().FailFunction("AEGP_GetLayerNumEffects", 3, FaultLength::once, 4);
    (void)product.Run(
        [&](EffectChain& chain)
        {
            A_long count = 0;
            const auto step = [&]
            { chain.Call(&AEGP_EffectSuite1::AEGP_GetLayerNumEffects, product.layer, &count); };
            step();
            step();
            EXPECT_EQ(chain.Error(), 0);
            step();
            EXPECT_EQ(chain.Error(), 4);
            step();
            EXPECT_EQ(chain.Error(), 4);
            EXPECT_EQ(chain.Finish(), 4);
        });
    const std::string counted = "Effect 1 AEGP_GetLayerNumEffects(layer 1)";
    EXPECT_THAT(product.CallList(), ElementsAre(counted + " -> 1", counted + " -> 1", counted + " = 4"));
}

TEST(EffectChain, ThatStartsWithAnErrorMakesNoCall)
{
    ChainHost product;
    (void)product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            EXPECT_EQ(chain.Finish(), 3);
        },
        3);
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}

TEST(EffectChain, DisposesOfParameterThenGroupThenEffect)
{
    ChainHost product;
    (void)product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            EXPECT_EQ(product.CallList(), everythingTaken);
            EXPECT_EQ(chain.Finish(), 0);
            EXPECT_EQ(chain.paramStream, nullptr);
            EXPECT_EQ(chain.groupStream, nullptr);
            EXPECT_EQ(chain.effect, nullptr);
        });
    EXPECT_EQ(product.CallList(), Sequence({everythingTaken, everythingGivenBack}));
    product.ExpectCleanEnd();
}

TEST(EffectChain, GivesBackOnceHoweverOftenItIsFinished)
{
    ChainHost product;
    (void)product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            (void)chain.Finish();
            (void)chain.Finish();
        });
    EXPECT_EQ(product.CallList(), Sequence({everythingTaken, everythingGivenBack}));
    product.ExpectCleanEnd();
}

TEST(EffectChain, GivesBackWhenItIsDestroyedUnfinished)
{
    ChainHost product;
    (void)product.Run([&](EffectChain& chain) { product.TakeAll(chain); });
    EXPECT_EQ(product.CallList(), Sequence({everythingTaken, everythingGivenBack}));
    product.ExpectCleanEnd();
}

TEST(EffectChain, GivesBackWhenAStepThrows)
{
    ChainHost product;
    product.host.Expect("exception-left-hook", "", "the step throws on purpose");
    const HookResult result = product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            throw 99;
        });
    EXPECT_EQ(result.thrownNumber, 99);
    EXPECT_EQ(product.CallList(), Sequence({everythingTaken, everythingGivenBack}));
    product.ExpectCleanEnd();
}

TEST(EffectChain, DisposesThroughTheSuiteItTookFrom)
{
    ChainHost product;
    (void)product.Run(
        [&](EffectChain& chain)
        {
            chain.TakeEffect<AEGP_EffectSuite3>(product.layer, 0);
            (void)chain.Finish();
        });
    EXPECT_THAT(product.CallList(),
                ElementsAre("Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                            "Effect 3 AEGP_DisposeEffect(effect A)"));
    product.ExpectCleanEnd();
}

TEST(EffectChain, DisposesThroughTheSuiteNamedLast)
{
    ChainHost product;
    (void)product.Run(
        [&](EffectChain& chain)
        {
            chain.TakeEffect<AEGP_EffectSuite1>(product.layer, 0).DisposeEffectWith<AEGP_EffectSuite3>();
            (void)chain.Finish();
        });
    EXPECT_THAT(product.CallList(),
                ElementsAre("Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
                            "Effect 3 AEGP_DisposeEffect(effect A)"));
    product.ExpectCleanEnd();
}

TEST(EffectChain, GivesBackWhatItTookBeforeTheFailure)
{
    ChainHost product;
    product.host.Faults().FailFunction("AEGP_GetNewParentStreamRef", 1, FaultLength::once, 4);
    (void)product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            EXPECT_EQ(chain.Finish(), 4);
        });
    EXPECT_THAT(product.CallList(),
                ElementsAre(everythingTaken[0], everythingTaken[1],
                            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) = 4",
                            everythingGivenBack[0], everythingGivenBack[2]));
    product.ExpectCleanEnd();
}

TEST(EffectChain, ReportsTheDisposalsErrorOnlyIfFirst)
{
    for (const A_Err stepError : {0, 5})
    {
        ChainHost product;
        product.host.Faults().FailFunction("AEGP_DisposeEffect", 1, FaultLength::once, 4);
        if (stepError != 0)
            product.host.Faults().FailFunction("AEGP_GetEffectFlags", 1, FaultLength::once, stepError);
        (void)product.Run(
            [&](EffectChain& chain)
            {
                AEGP_EffectFlags flags = 0;
                chain.TakeEffect<AEGP_EffectSuite1>(product.layer, 0)
                    .Call(&AEGP_EffectSuite1::AEGP_GetEffectFlags, chain.effect, &flags);
                EXPECT_EQ(chain.Finish(), stepError == 0 ? 4 : 5);
            });
        product.ExpectCleanEnd();
    }
}

TEST(EffectChain, IgnoresTheErrorsOfDisposingOfStreams)
{
    ChainHost product;
    product.host.Faults().FailFunction("AEGP_DisposeStream", 1, FaultLength::functionForGood);
    (void)product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            EXPECT_EQ(chain.Finish(), 0);
        });
    EXPECT_EQ(product.CallList().size(), 6u);
    product.ExpectCleanEnd();
}

TEST(EffectChain, LeaksOnlyStreamsIfTheirSuiteIsMissing)
{
    ChainHost product;
    product.host.Faults().Withhold("AEGP Stream Suite", 7);
    product.host.Expect("exception-left-hook", "", "a missing suite leaves the hook as an integer");
    product.host.Expect("leaked-reference", "AEGP_GetNewEffectStreamByIndex", "its suite is missing");
    product.host.Expect("leaked-reference", "AEGP_GetNewParentStreamRef", "its suite is missing");
    product.host.Expect("dispose-order", "AEGP_DisposeEffect", "the streams cannot be disposed of before");
    const HookResult result = product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            (void)chain.Finish();
            ADD_FAILURE() << "516 was not thrown";
        });
    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_EQ(product.CallList(), Sequence({everythingTaken, {"Effect 1 AEGP_DisposeEffect(effect A)"}}));
    product.host.CheckSuiteBalance();
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(EffectChain, KeepsAnotherExceptionIfStreamSuiteIsMissing)
{
    ChainHost product;
    product.host.Faults().Withhold("AEGP Stream Suite", 7);
    product.host.Expect("exception-left-hook", "", "the step's own integer");
    product.host.Expect("leaked-reference", "AEGP_GetNewEffectStreamByIndex", "its suite is missing");
    product.host.Expect("dispose-order", "AEGP_DisposeEffect", "the stream cannot be disposed of before");
    const HookResult result = product.Run(
        [&](EffectChain& chain)
        {
            chain.TakeEffect<AEGP_EffectSuite1>(product.layer, 0).TakeParamStream();
            throw 4711;
        });
    EXPECT_EQ(result.thrownNumber, 4711);
    product.host.CheckSuiteBalance();
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(EffectChain, DisposesInOrderAfterOneRefusedStreamSuite)
{
    ChainHost product;
    product.host.Faults().FailFunction("AcquireSuite", 4);
    product.host.Expect("exception-left-hook", "", "a missing suite leaves the hook as an integer");
    const HookResult result = product.Run(
        [&](EffectChain& chain)
        {
            product.TakeAll(chain);
            (void)chain.Finish();
        });
    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_EQ(product.CallList(), Sequence({everythingTaken, everythingGivenBack}));
    product.ExpectCleanEnd();
}

TEST(EffectChain, DisposesOfEffectAfterOneRefusedSuite)
{
    ChainHost product;
    product.host.Faults().FailFunction("AcquireSuite", 2);
    product.host.Expect("exception-left-hook", "", "a missing suite leaves the hook as an integer");
    const HookResult result = product.Run(
        [&](EffectChain& chain)
        {
            chain.TakeEffect<AEGP_EffectSuite1>(product.layer, 0).DisposeEffectWith<AEGP_EffectSuite3>();
            (void)chain.Finish();
        });
    EXPECT_EQ(result.thrownNumber, 516);
    EXPECT_THAT(product.CallList(), ElementsAre(everythingTaken[0], "Effect 3 AEGP_DisposeEffect(effect A)"));
    product.ExpectCleanEnd();
}
