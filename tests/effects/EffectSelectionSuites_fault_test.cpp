// Selections on a host that withholds a suite, from the start or after the reading.

#include "effects/EffectSelection.h"
#include "standin/host/family/Liars.h"
#include "tests/effects/FaultOutcome.h"
#include "tests/effects/SelectedStack.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
using Texts = std::vector<std::string>;

const char* const left = "exception-left-hook ";
const char* const open = "undo-group-left-open AEGP_StartUndoGroup";

class EffectSelectionMissingSuite : public ::testing::TestWithParam<Withheld>
{
};
} // namespace

TEST_P(EffectSelectionMissingSuite, WithheldFromTheStartIsThrown)
{
    const std::vector<MissingSuite> all = {
        {"AEGP Effect Suite", 1, {left}},
        {"AEGP Effect Suite", 3, {left, "leaked-reference AEGP_GetLayerEffectByIndex"}},
        {"AEGP Layer Suite", 5, {left}},
        {"AEGP Stream Suite", 4, {left}},
        {"AEGP Dynamic Stream Suite", 2, {left}},
        {"AEGP Stream Suite",
         7,
         {"dispose-order AEGP_DisposeEffect", left, "leaked-reference AEGP_GetNewEffectStreamByIndex",
          "leaked-reference AEGP_GetNewParentStreamRef"}},
        {"AEGP Utility Suite", 3, {left}},
        {"AEGP Dynamic Stream Suite", 5, {left, open}},
    };
    for (const MissingSuite& missing : all)
    {
        SCOPED_TRACE(missing.Text());
        SelectedStack stack("A B", "B", true);
        stack.host.Faults().Withhold(missing.name, missing.version, GetParam());

        stack.Run();

        EXPECT_EQ(stack.result.thrownNumber, 516);
        EXPECT_EQ(stack.Found(), missing.found) << stack.CallsWithSuites();
        const bool isReached = &missing == &all.back();
        EXPECT_EQ(!stack.Sweep().empty(), isReached);
        EXPECT_EQ(stack.Text(), "A B");
    }
}

INSTANTIATE_TEST_SUITE_P(EachRefusal, EffectSelectionMissingSuite,
                         ::testing::Values(Withheld::asError, Withheld::asNullTable,
                                           Withheld::asPoisonedPointer));

TEST(EffectSelectionFaults, ShowAndTwirlLeaveTheNewerTableAlone)
{
    for (const bool useHide : {true, false})
    {
        SelectedStack stack(useHide ? "A" : "A B", "A", useHide);
        stack.host.Faults().Withhold("AEGP Dynamic Stream Suite", 5);

        stack.Run();

        EXPECT_EQ(stack.result.thrown, "");
        EXPECT_EQ(stack.host.FindingsReport(), "");
    }
}

TEST(EffectSelectionFaults, ASuiteLostAfterReadingStopsTheSweep)
{
    struct Row
    {
        const char* suite;
        std::size_t acquire;   ///< The reading makes six, and the sweep two before its first effect.
        std::size_t callsMade; ///< Of the calls of a hide before it disposes of anything.
        Texts found;
    };
    const std::string order = "dispose-order AEGP_DisposeEffect";
    const std::string leakedParam = "leaked-reference AEGP_GetNewEffectStreamByIndex";
    const std::string leakedGroup = "leaked-reference AEGP_GetNewParentStreamRef";
    const std::vector<Row> rows = {
        {"Utility 3", 9, 0, {left}},
        {"Stream 4", 10, 2, {left, open}},
        {"Dynamic Stream 2", 11, 3, {order, left, leakedParam, open}},
        {"Dynamic Stream 5", 12, 5, {order, left, leakedParam, leakedGroup, open}},
        {"Stream 7", 13, 8, {order, left, leakedParam, leakedGroup}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.suite);
        LabelledStack stack("A");
        Calls expected = stack.Traced().Touch("-A");
        expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(row.callsMade),
                       expected.end() - (row.callsMade == 0 ? 0 : 1));
        stack.host.Faults().FailFunction("AcquireSuite", row.acquire, FaultLength::functionForGood);

        EXPECT_EQ(stack.Select(true, false, {}).thrownNumber, 516);

        EXPECT_EQ(stack.Sweep(), expected);
        EXPECT_EQ(stack.Found(), row.found);
    }
}

TEST(EffectSelectionFaults, AHideWithoutItsTableDisposesInOrder)
{
    LabelledStack stack("A");
    Calls expected = stack.Traced().Touch("-A");
    expected.erase(expected.begin() + 5, expected.end() - 3);
    stack.host.Faults().Withhold("AEGP Dynamic Stream Suite", 5);

    EXPECT_EQ(stack.Select(true, false, {}).thrownNumber, 516);

    EXPECT_EQ(stack.Sweep(), expected) << "all but the flags and the end of the group";
    EXPECT_EQ(stack.Found(), (Texts{left, open}));
}
} // namespace standin
