#include "effects/EffectRemoval.h"

#include "standin/family/Liars.h"
#include "standin/faults/Sweep.h"
#include "tests/effects/FaultOutcome.h"
#include "tests/effects/LabelledStack.h"

#include <algorithm>
#include <utility>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
namespace
{
constexpr const char* fine = "returned 0";
constexpr const char* hostError = "returned 1";
constexpr const char* missing = "threw 516";

/// Removes effects by their labels, and knows how that ended.
struct Removing : LabelledStack
{
    explicit Removing(const std::string& labels, std::vector<std::string> labelsOfDoomed)
        : LabelledStack(labels), doomed(std::move(labelsOfDoomed)), before(host.State())
    {
        for (std::string& text : doomed)
            text = Uuid(text);
    }

    void Run()
    {
        int returned = -1;
        const HookResult hook = host.RunInHook(
            [&]
            {
                returned = RemoveMultipleEffectsByUUID(Id(), Basic(), doomed, Layer());
                openGroups = host.OpenUndoGroups();
            });
        outcome = OutcomeText(hook, returned);
    }

    /// The calls behind the reading of the identities, without the disposals.
    std::vector<std::string> Sweeps() const
    {
        std::vector<std::string> sweeps;
        for (const std::string& call : host.CallTexts(SuiteTraffic::leftOut))
        {
            if ((!sweeps.empty() || call.find("AEGP_StartUndoGroup") != std::string::npos) &&
                call.find("AEGP_DisposeEffect") == std::string::npos)
                sweeps.push_back(call);
        }
        return sweeps;
    }

    void ExpectUndoBringsBackEverything()
    {
        while (host.Undo())
        {
        }
        EXPECT_EQ(host.State(), before);
    }

    std::vector<std::string> doomed;
    ProjectState before;
    std::string outcome;
    int openGroups = 0; ///< When the operation returned.
};

const FindingIds leftOpenAndNull = {"undo-group-left-open", "null-reference"};
} // namespace

// The failures one by one.

TEST(RemovalWhileTheHostFails, FailedMoveStopsAndLeavesTheGroupOpen)
{
    Removing product("A B C D", {"B", "C", "D"});
    product.host.Faults().FailFunction("AEGP_ReorderEffect", 2, FaultLength::once, 4);
    product.Run();
    EXPECT_EQ(product.outcome, "returned 4");
    EXPECT_EQ(product.Stack(), "B A C D");
    EXPECT_THAT(product.Sweeps(),
                ElementsAre("Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")",
                            "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B",
                            "Effect 3 AEGP_ReorderEffect(effect B, 0)",
                            "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect C",
                            "Effect 3 AEGP_ReorderEffect(effect C, 1) = 4",
                            "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3",
                            "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3",
                            "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3"));
    EXPECT_EQ(product.openGroups, 1);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), leftOpenAndNull);
    product.ExpectUndoBringsBackEverything();
}

TEST(RemovalWhileTheHostFails, FailedUndoGroupDeletesThroughNull)
{
    Removing product("A B", {"A", "B"});
    product.host.Faults().FailFunction("AEGP_StartUndoGroup", 1, FaultLength::once, 4);
    product.Run();
    EXPECT_EQ(product.outcome, "returned 4");
    EXPECT_THAT(product.Sweeps(), ElementsAre("Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\") = 4",
                                              "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3",
                                              "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3"));
    EXPECT_EQ(product.host.State(), product.before);
    EXPECT_EQ(product.openGroups, 0);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds{"null-reference"});
}

TEST(RemovalWhileTheHostFails, FetchInTheFirstSweepStopsEverything)
{
    Removing product("A B C", {"B", "C"});
    product.host.Faults().FailFunction("AEGP Effect Suite", 3, "AEGP_GetLayerEffectByIndex");
    product.Run();
    EXPECT_EQ(product.outcome, hostError);
    EXPECT_EQ(product.Stack(), "A B C");
    EXPECT_THAT(product.Sweeps(), ElementsAre("Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")",
                                              "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) = 1",
                                              "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3",
                                              "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3"));
    EXPECT_EQ(product.openGroups, 1);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), leftOpenAndNull);
}

TEST(RemovalWhileTheHostFails, FailedFetchDeletesThroughNullFromThere)
{
    Removing product("A B C D", {"B", "C", "D"});
    product.host.Faults().FailFunction("AEGP Effect Suite", 3, "AEGP_GetLayerEffectByIndex", 5);
    product.Run();
    EXPECT_EQ(product.outcome, hostError);
    EXPECT_EQ(product.Stack(), "C D A");
    const std::vector<std::string> calls = product.Sweeps();
    ASSERT_EQ(calls.size(), 12u);
    EXPECT_THAT(std::vector<std::string>(calls.begin() + 7, calls.end()),
                ElementsAre("Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect B",
                            "Effect 3 AEGP_DeleteLayerEffect(effect B)",
                            "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) = 1",
                            "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3",
                            "Effect 3 AEGP_DeleteLayerEffect(effect null) = 3"));
    EXPECT_EQ(product.openGroups, 1);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), leftOpenAndNull);
    product.ExpectUndoBringsBackEverything();
}

TEST(RemovalWhileTheHostFails, FailedDeletionIsNoErrorAndIsRepeated)
{
    Removing product("A B C", {"B", "C"});
    product.host.Faults().FailFunction("AEGP_DeleteLayerEffect");
    product.Run();
    EXPECT_EQ(product.outcome, fine);
    EXPECT_EQ(product.Stack(), "C A");
    EXPECT_THAT(product.host.UndoNames(), ElementsAre("Delete Effect(s)"));
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
    product.ExpectUndoBringsBackEverything();
}

TEST(RemovalWhileTheHostFails, DisposalsAreNoErrors)
{
    Removing product("A B C", {"B", "C"});
    product.host.Faults().FailFunction("AEGP_DisposeEffect", 1, FaultLength::functionForGood);
    product.Run();
    EXPECT_EQ(product.outcome, fine);
    EXPECT_EQ(product.Stack(), "A");
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
}

TEST(RemovalWhileTheHostFails, FailedEndOfUndoGroupIsReported)
{
    Removing product("A B C", {"B"});
    product.host.Faults().FailFunction("AEGP_EndUndoGroup", 1, FaultLength::once, 4);
    product.Run();
    EXPECT_EQ(product.outcome, "returned 4");
    EXPECT_EQ(product.Stack(), "A C");
    EXPECT_EQ(product.openGroups, 1);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds()) << "the host's own doing";
    product.ExpectUndoBringsBackEverything();
}

TEST(RemovalWhileTheHostFails, CountThatFailsIsALayerWithoutEffects)
{
    Removing product("A B", {"A"});
    product.host.Faults().FailFunction("AEGP_GetLayerNumEffects", 1, FaultLength::once, 4);
    product.Run();
    EXPECT_EQ(product.outcome, fine);
    EXPECT_THAT(product.host.CallTexts(SuiteTraffic::leftOut),
                ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) = 4"));
    EXPECT_EQ(product.host.State(), product.before);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
}

TEST(RemovalWhileTheHostFails, NullLayerGivesTheHostsError)
{
    Removing product("A", {"A"});
    int returned = -1;
    (void)product.host.RunInHook(
        [&]
        { returned = RemoveMultipleEffectsByUUID(product.Id(), product.Basic(), product.doomed, nullptr); });
    EXPECT_EQ(returned, 0);
    EXPECT_THAT(product.host.CallTexts(SuiteTraffic::leftOut),
                ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer null) = 3"));
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds{"null-reference"});
}

// Suites that the host has not got.

TEST(RemovalWithoutASuite, Leaves516AndTheLayerAsItWas)
{
    const std::pair<const char*, A_long> suites[] = {
        {"AEGP Effect Suite", 1}, {"AEGP Layer Suite", 5}, {"AEGP Utility Suite", 3}};
    for (const auto& [suite, version] : suites)
    {
        for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
        {
            SCOPED_TRACE(suite);
            Removing product("A B", {"B"});
            product.host.Faults().Withhold(suite, version, how);
            product.Run();
            EXPECT_EQ(product.outcome, missing);
            EXPECT_EQ(product.host.State(), product.before);
            EXPECT_THAT(product.Sweeps(), IsEmpty());
            EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds{"exception-left-hook"});
        }
    }
}

TEST(RemovalWithoutASuite, MissingDisposalLeaksTheReferenceInHand)
{
    Removing product("A B", {"B"});
    product.host.Faults().Withhold("AEGP Effect Suite", 3);
    product.Run();
    EXPECT_EQ(product.outcome, missing);
    EXPECT_EQ(product.host.State(), product.before);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), (FindingIds{"exception-left-hook", "leaked-reference"}));
}

TEST(RemovalWithoutASuite, NeedsOnlyTheVersionsThatItUses)
{
    Removing product("A B", {"B"});
    product.host.Faults().Withhold("AEGP Utility Suite", 7);
    product.host.Faults().Withhold("AEGP Utility Suite", 11);
    product.host.Faults().Withhold("AEGP Stream Suite");
    product.host.Faults().Withhold("AEGP Dynamic Stream Suite");
    product.Run();
    EXPECT_EQ(product.outcome, fine);
    EXPECT_EQ(product.Stack(), "A");
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
}

TEST(RemovalWithoutASuite, NullBasicSuiteThrows516IfAnythingIsDeleted)
{
    Removing product("A", {"A"});
    EXPECT_THROW((void)RemoveMultipleEffectsByUUID(7, nullptr, product.doomed, product.Layer()), int);
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}
} // namespace standin
