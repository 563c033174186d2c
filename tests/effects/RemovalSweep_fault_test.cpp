// Each host call of one removal fails in turn: alone, with its function from then on, and with everything
// from then on.

#include "standin/host/faults/Sweep.h"
#include "tests/effects/Removing.h"

#include <iterator>

namespace standin
{
namespace
{
/// How a run ends: what comes back, the stack, the undo groups that are open then, and what the host finds.
struct Ending
{
    const char* outcome;
    const char* stack;
    int openGroups;
    FindingIds findings;
};

const Ending done = {"returned 0", "A", 0, {}};
const Ending nothingFound = {"returned 0", "A B C", 0, {}};
const Ending onlyC = {"returned 0", "A B", 0, {}};
const Ending onlyB = {"returned 0", "A C", 0, {}};
const Ending undeletedB = {"returned 0", "B C A", 0, {}};
const Ending undeletedC = {"returned 0", "C A", 0, {}};
const Ending threw = {"threw 516", "A B C", 0, {"exception-left-hook"}};
const Ending threwAndLeaked = {"threw 516", "A B C", 0, {"exception-left-hook", "leaked-reference"}};
const Ending notOpened = {"returned 1", "A B C", 0, {"null-reference"}};
const Ending notOpenedAtAll = {"returned 1", "A B C", 0, {}};
// The host alone is to blame for a group that it refuses to close.
const Ending notClosed = {"returned 1", "A", 1, {}};
const Ending undeletedCAndNotClosed = {"returned 1", "C A", 1, {}};

/// The first error of a sweep leaves the group open, and deletes through null references from there on.
Ending stoppedAt(const char* stack)
{
    return {"returned 1", stack, 1, {"undo-group-left-open", "null-reference"}};
}
/// The same where the host no longer looks at the null references.
Ending deadAt(const char* stack) { return {"returned 1", stack, 1, {"undo-group-left-open"}}; }

struct Row
{
    std::string call; ///< As it reads in the clean run.
    Ending once;
    Ending functionForGood;
    Ending everythingForGood;
};

const std::string noIdentity = "00000000-0000-0000-0000-000000000000";
const std::string ask = ", time 0/100, 17, VORT 5 uuid " + noIdentity + ") -> uuid ";

const std::string converted = "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100";
const std::string counted = "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3";

/// "B" and "C" are removed from "A B C".
const std::vector<Row>& rows()
{
    static const std::vector<Row> all = {
        {"Basic AcquireSuite(\"AEGP Effect Suite\", 1)", threw, threw, threw},
        {counted, nothingFound, nothingFound, nothingFound},

        {"Basic AcquireSuite(\"AEGP Layer Suite\", 5)", threw, threw, threw},
        {converted, done, nothingFound, nothingFound},
        {counted, done, nothingFound, nothingFound},
        {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A", done, nothingFound,
         nothingFound},
        {"Effect 1 AEGP_GetEffectFlags(effect A) -> 1", done, nothingFound, threwAndLeaked},
        {"Basic AcquireSuite(\"AEGP Effect Suite\", 3)", threw, threwAndLeaked, threwAndLeaked},
        {"Effect 3 AEGP_EffectCallGeneric(id 7, effect A" + ask + "01010101-0101-0101-0101-010100000001",
         done, nothingFound, nothingFound},
        {"Effect 3 AEGP_DisposeEffect(effect A)", done, done, nothingFound},

        {converted, onlyC, nothingFound, nothingFound},
        {counted, onlyC, nothingFound, nothingFound},
        {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B", onlyC, nothingFound,
         nothingFound},
        {"Effect 1 AEGP_GetEffectFlags(effect B) -> 1", onlyC, nothingFound, nothingFound},
        {"Effect 3 AEGP_EffectCallGeneric(id 7, effect B" + ask + "02020202-0202-0202-0202-020200000002",
         onlyC, nothingFound, nothingFound},
        {"Effect 3 AEGP_DisposeEffect(effect B)", done, done, threw},

        {converted, onlyB, onlyB, threw},
        {counted, onlyB, onlyB, threw},
        {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect C", onlyB, onlyB, threw},
        {"Effect 1 AEGP_GetEffectFlags(effect C) -> 1", onlyB, onlyB, threw},
        {"Effect 3 AEGP_EffectCallGeneric(id 7, effect C" + ask + "03030303-0303-0303-0303-030300000003",
         onlyB, onlyB, threw},
        {"Effect 3 AEGP_DisposeEffect(effect C)", done, done, threw},

        {"Basic AcquireSuite(\"AEGP Utility Suite\", 3)", threw, threw, threw},
        {"Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")", notOpened, notOpened, notOpenedAtAll},

        {"Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect B", stoppedAt("A B C"),
         stoppedAt("A B C"), deadAt("A B C")},
        {"Effect 3 AEGP_ReorderEffect(effect B, 0)", stoppedAt("A B C"), stoppedAt("A B C"), deadAt("A B C")},
        {"Effect 3 AEGP_DisposeEffect(effect B)", done, done, deadAt("B A C")},
        {"Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect C", stoppedAt("B A C"),
         stoppedAt("B A C"), deadAt("B A C")},
        {"Effect 3 AEGP_ReorderEffect(effect C, 1)", stoppedAt("B A C"), stoppedAt("B A C"), deadAt("B A C")},
        {"Effect 3 AEGP_DisposeEffect(effect C)", done, done, deadAt("B C A")},

        {"Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect B", stoppedAt("B C A"),
         stoppedAt("B C A"), deadAt("B C A")},
        {"Effect 3 AEGP_DeleteLayerEffect(effect B)", undeletedC, undeletedB, deadAt("B C A")},
        {"Effect 3 AEGP_DisposeEffect(effect B)", done, done, deadAt("C A")},
        {"Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect C", stoppedAt("C A"),
         stoppedAt("C A"), deadAt("C A")},
        {"Effect 3 AEGP_DeleteLayerEffect(effect C)", undeletedC, undeletedC, undeletedCAndNotClosed},
        {"Effect 3 AEGP_DisposeEffect(effect C)", done, done, notClosed},

        {"Utility 3 AEGP_EndUndoGroup()", notClosed, notClosed, notClosed},
        {"Basic ReleaseSuite(\"AEGP Effect Suite\", 1)", done, done, done},
        {"Basic ReleaseSuite(\"AEGP Effect Suite\", 3)", done, done, done},
        {"Basic ReleaseSuite(\"AEGP Layer Suite\", 5)", done, done, done},
        {"Basic ReleaseSuite(\"AEGP Utility Suite\", 3)", done, done, done},
    };
    return all;
}

const Ending& endingOf(const SweptFault& fault)
{
    if (fault.ordinal == 0)
        return done;
    const Row& row = rows().at(fault.ordinal - 1);
    EXPECT_EQ(fault.call, row.call);
    switch (fault.length)
    {
    case FaultLength::once:
        return row.once;
    case FaultLength::functionForGood:
        return row.functionForGood;
    case FaultLength::everythingForGood:
        break;
    }
    return row.everythingForGood;
}

void checkRemoving(Removing& product, const SweptFault& fault)
{
    SCOPED_TRACE(fault.Text());
    const Ending& ending = endingOf(fault);
    EXPECT_EQ(product.outcome, ending.outcome);
    EXPECT_EQ(product.Stack(), ending.stack);
    EXPECT_EQ(product.openGroups, ending.openGroups);
    EXPECT_EQ(TakeDistinctFindingIds(product.host), ending.findings);
    product.ExpectUndoBringsBackEverything();
}
} // namespace

TEST(RemovalSweep, EveryCallOfItInTurn)
{
    EXPECT_EQ(SweepFaults([] { return std::make_unique<Removing>("A B C", "B C"); },
                          [](Removing& product) { product.Run(); }, checkRemoving),
              rows().size());
    EXPECT_EQ(rows().size(), 41u);
}
} // namespace standin
