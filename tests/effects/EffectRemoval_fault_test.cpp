#include "effects/EffectRemoval.h"

#include "tests/effects/Removing.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
namespace
{
constexpr const char* fine = "returned 0";
constexpr const char* missing = "threw 516";

const FindingIds leftOpenAndNull = {"undo-group-left-open", "null-reference"};
const char* const start = "Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")";

std::string fetch(int index, const std::string& answer)
{
    return "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, " + std::to_string(index) + ")" + answer;
}
std::string remove(const std::string& effect)
{
    return "Effect 3 AEGP_DeleteLayerEffect(effect " + effect + ")";
}
const std::string removeNull = remove("null") + " = 3";

/// One call that fails.
struct Failure
{
    const char* test;
    const char* stack;
    const char* doomed;
    std::function<void(FaultPlan&)> arm;
    const char* outcome;
    const char* after;
    int openGroups;
    FindingIds found;
    Calls sweep = {}; ///< Its last calls, without the disposals.
};

void PrintTo(const Failure& row, std::ostream* out) { *out << row.test; }

class RemovalWhileTheHostFails : public ::testing::TestWithParam<Failure>
{
};
} // namespace

TEST_P(RemovalWhileTheHostFails, EndsLikeThis)
{
    const Failure& row = GetParam();
    Removing product(row.stack, row.doomed);
    row.arm(product.host.Faults());
    product.Run();
    EXPECT_EQ(product.outcome, row.outcome);
    EXPECT_EQ(product.Stack(), row.after);
    const Calls sweep = product.SweepWithoutDisposals();
    ASSERT_GE(sweep.size(), row.sweep.size());
    EXPECT_EQ(Calls(sweep.end() - static_cast<std::ptrdiff_t>(row.sweep.size()), sweep.end()), row.sweep);
    EXPECT_EQ(product.openGroups, row.openGroups);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), row.found);
    product.ExpectUndoBringsBackEverything();
}

INSTANTIATE_TEST_SUITE_P(
    If, RemovalWhileTheHostFails,
    ::testing::Values(
        Failure{"FailedMoveStopsAndLeavesTheGroupOpen",
                "A B C D",
                "B C D",
                [](auto& faults) { faults.FailFunction("AEGP_ReorderEffect", 2, FaultLength::once, 4); },
                "returned 4",
                "B A C D",
                1,
                leftOpenAndNull,
                {start, fetch(1, " -> effect B"), "Effect 3 AEGP_ReorderEffect(effect B, 0)",
                 fetch(2, " -> effect C"), "Effect 3 AEGP_ReorderEffect(effect C, 1) = 4", removeNull,
                 removeNull, removeNull}},
        Failure{"FailedUndoGroupDeletesThroughNull",
                "A B",
                "A B",
                [](auto& faults) { faults.FailFunction("AEGP_StartUndoGroup", 1, FaultLength::once, 4); },
                "returned 4",
                "A B",
                0,
                {"null-reference"},
                {start + std::string(" = 4"), removeNull, removeNull}},
        Failure{"FetchInTheFirstSweepStopsEverything",
                "A B C",
                "B C",
                [](auto& faults)
                { faults.FailFunction("AEGP Effect Suite", 3, "AEGP_GetLayerEffectByIndex"); },
                "returned 1",
                "A B C",
                1,
                leftOpenAndNull,
                {start, fetch(1, " = 1"), removeNull, removeNull}},
        Failure{"FailedFetchDeletesThroughNullFromThere",
                "A B C D",
                "B C D",
                [](auto& faults)
                { faults.FailFunction("AEGP Effect Suite", 3, "AEGP_GetLayerEffectByIndex", 5); },
                "returned 1",
                "C D A",
                1,
                leftOpenAndNull,
                {fetch(0, " -> effect B"), remove("B"), fetch(0, " = 1"), removeNull, removeNull}},
        Failure{"FailedDeletionIsNoErrorAndIsRepeated",
                "A B C",
                "B C",
                [](auto& faults) { faults.FailFunction("AEGP_DeleteLayerEffect"); },
                fine,
                "C A",
                0,
                {}},
        Failure{"DisposalsAreNoErrors",
                "A B C",
                "B C",
                [](auto& faults)
                { faults.FailFunction("AEGP_DisposeEffect", 1, FaultLength::functionForGood); },
                fine,
                "A",
                0,
                {}},
        // What is found is empty: the group is open by the host's own doing.
        Failure{"FailedEndOfUndoGroupIsReported",
                "A B C",
                "B",
                [](auto& faults) { faults.FailFunction("AEGP_EndUndoGroup", 1, FaultLength::once, 4); },
                "returned 4",
                "A C",
                1,
                {}}),
    [](const auto& row) { return row.param.test; });

TEST(RemovalOnNoLayer, CountThatFailsIsALayerWithoutEffects)
{
    Removing product("A B", "A");
    product.host.Faults().FailFunction("AEGP_GetLayerNumEffects", 1, FaultLength::once, 4);
    product.Run();
    EXPECT_EQ(product.outcome, fine);
    EXPECT_THAT(product.CallList(), ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) = 4"));
    EXPECT_EQ(product.host.State(), product.before);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
}

TEST(RemovalOnNoLayer, NullLayerGivesTheHostsError)
{
    Removing product("A", "A");
    int returned = -1;
    (void)product.host.RunInHook(
        [&]
        { returned = RemoveMultipleEffectsByUUID(product.Id(), product.Basic(), product.doomed, nullptr); });
    EXPECT_EQ(returned, 0);
    EXPECT_THAT(product.CallList(), ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer null) = 3"));
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds{"null-reference"});
}

// Suites that the host has not got.

TEST(RemovalWithoutASuite, Leaves516AndTheLayerAsItWas)
{
    const std::vector<MissingSuite> suites = {
        {"AEGP Effect Suite", 1, {}}, {"AEGP Layer Suite", 5, {}}, {"AEGP Utility Suite", 3, {}}};
    ForEachMissing(suites,
                   [](const MissingSuite& suite, Withheld how)
                   {
                       Removing product("A B", "B");
                       product.host.Faults().Withhold(suite.name, suite.version, how);
                       product.Run();
                       EXPECT_EQ(product.outcome, missing);
                       EXPECT_EQ(product.host.State(), product.before);
                       EXPECT_THAT(product.Sweep(), IsEmpty());
                       EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds{"exception-left-hook"});
                   });
}

TEST(RemovalWithoutASuite, MissingDisposalLeaksTheReferenceInHand)
{
    Removing product("A B", "B");
    product.host.Faults().Withhold("AEGP Effect Suite", 3);
    product.Run();
    EXPECT_EQ(product.outcome, missing);
    EXPECT_EQ(product.host.State(), product.before);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), (FindingIds{"exception-left-hook", "leaked-reference"}));
}

TEST(RemovalWithoutASuite, NeedsOnlyTheVersionsThatItUses)
{
    Removing product("A B", "B");
    product.host.Faults().Withhold("AEGP Utility Suite", 7);
    product.host.Faults().Withhold("AEGP Utility Suite", 11);
    product.host.Faults().Withhold("AEGP Stream Suite");
    product.host.Faults().Withhold("AEGP Dynamic Stream Suite");
    product.Run();
    EXPECT_EQ(product.outcome, fine);
    EXPECT_EQ(product.Stack(), "A");
    EXPECT_EQ(TakeDistinctFindingIds(product.host), FindingIds());
}

TEST(RemovalWithoutASuite, NullBasicSuiteThrows516WhenDeleting)
{
    Removing product("A", "A");
    EXPECT_THROW((void)RemoveMultipleEffectsByUUID(7, nullptr, product.doomed, product.Layer()), int);
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}
} // namespace standin
