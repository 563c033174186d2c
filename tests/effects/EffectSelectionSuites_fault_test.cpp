// Selections on a host that withholds a suite, from the start or after the reading.

#include "effects/EffectSelection.h"
#include "standin/family/Liars.h"
#include "tests/effects/SelectedStack.h"
#include "tests/support/ChangeCalls.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
struct MissingSuite
{
    const char* name;
    A_long version;
    bool leavesSweep; ///< Missing before the sweep, it stops the operation there.
    std::vector<std::string> found;
};

const char* const left = "exception-left-hook ";
const char* const open = "undo-group-left-open AEGP_StartUndoGroup";

class EffectSelectionMissingSuite : public ::testing::TestWithParam<Withheld>
{
};
} // namespace

TEST_P(EffectSelectionMissingSuite, WithheldFromTheStartIsThrown)
{
    const std::vector<MissingSuite> all = {
        {"AEGP Effect Suite", 1, true, {left}},
        {"AEGP Effect Suite", 3, true, {left, "leaked-reference AEGP_GetLayerEffectByIndex"}},
        {"AEGP Layer Suite", 5, true, {left}},
        {"AEGP Stream Suite", 4, true, {left}},
        {"AEGP Dynamic Stream Suite", 2, true, {left}},
        {"AEGP Stream Suite",
         7,
         true,
         {"dispose-order AEGP_DisposeEffect", left, "leaked-reference AEGP_GetNewEffectStreamByIndex",
          "leaked-reference AEGP_GetNewParentStreamRef"}},
        {"AEGP Utility Suite", 3, true, {left}},
        {"AEGP Dynamic Stream Suite", 5, false, {left, open}},
    };
    for (const MissingSuite& missing : all)
    {
        SCOPED_TRACE(std::string(missing.name) + " " + std::to_string(missing.version));
        SelectedStack stack("A B", "B", true);
        stack.host.Faults().Withhold(missing.name, missing.version, GetParam());

        stack.Run();

        EXPECT_EQ(stack.result.thrownNumber, 516);
        EXPECT_EQ(stack.Found(), missing.found) << stack.CallsWithSuites();
        EXPECT_EQ(sweepOf(stack).empty(), missing.leavesSweep);
        EXPECT_EQ(stack.Report(), "A: A, group 0, on\nB: B, group 0, on\n");
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
        std::size_t acquire; ///< The reading makes six, and the sweep two before its first effect.
        std::string calls;
        std::vector<std::string> found;
    };
    const std::string param = "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> stream A.1\n";
    const std::string groupAndFlags =
        "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> stream A\n"
        "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 0\n";
    const std::string hideAndEnd = "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 0)\n"
                                   "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream A, 2, 0, 1)\n"
                                   "Utility 3 AEGP_EndUndoGroup()\n";
    const std::string disposeEffect = "Effect 1 AEGP_DisposeEffect(effect A)\n";
    const std::string order = "dispose-order AEGP_DisposeEffect";
    const std::string leakedParam = "leaked-reference AEGP_GetNewEffectStreamByIndex";
    const std::string leakedGroup = "leaked-reference AEGP_GetNewParentStreamRef";
    const std::vector<Row> rows = {
        {"Utility 3", 9, "", {left}},
        {"Stream 4", 10, takeA + disposeEffect, {left, open}},
        {"Dynamic Stream 2", 11, takeA + param + disposeEffect, {order, left, leakedParam, open}},
        {"Dynamic Stream 5",
         12,
         takeA + param + groupAndFlags + disposeEffect,
         {order, left, leakedParam, leakedGroup, open}},
        {"Stream 7",
         13,
         takeA + param + groupAndFlags + hideAndEnd + disposeEffect,
         {order, left, leakedParam, leakedGroup}},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.suite);
        StackScene stack("A");
        stack.host.Faults().FailFunction("AcquireSuite", row.acquire, FaultLength::functionForGood);

        EXPECT_EQ(stack.Select(true, false, {}).thrownNumber, 516);

        EXPECT_EQ(sweepOf(stack), row.calls);
        EXPECT_EQ(stack.Found(), row.found);
    }
}

TEST(EffectSelectionFaults, AHideWithoutItsTableDisposesInOrder)
{
    StackScene stack("A");
    stack.host.Faults().Withhold("AEGP Dynamic Stream Suite", 5);

    EXPECT_EQ(stack.Select(true, false, {}).thrownNumber, 516);

    EXPECT_EQ(sweepOf(stack),
              takeA + std::string("Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect A, 1) -> "
                                  "stream A.1\n"
                                  "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream A.1) -> "
                                  "stream A\n"
                                  "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream A.1) -> 0\n"
                                  "Stream 7 AEGP_DisposeStream(stream A.1)\n"
                                  "Stream 7 AEGP_DisposeStream(stream A)\n"
                                  "Effect 1 AEGP_DisposeEffect(effect A)\n"));
    EXPECT_EQ(stack.Found(), (std::vector<std::string>{left, open}));
}
} // namespace standin
