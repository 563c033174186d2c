// Passes over a host that fails them: each call in turn, once and for good. A failed call is never fatal,
// nothing leaks, and the next pass over a sound host brings tree and layer together.

#include "effects/LayerItems.h"
#include "standin/host/faults/Sweep.h"
#include "tests/panel/PanelTest.h"

#include <algorithm>
#include <memory>
#include <set>

namespace standin
{
namespace
{
/// A layer with two objects above an outside effect.
struct Scenario : PanelBench
{
    Scenario()
    {
        Add("QVK VORTSRC Lamps", "A");
        Add("QVK VORTREN Dots", "B");
        Add("ADBE Fill", "X");
    }
    HookResult result; ///< Of the pass with the fault.
};

std::unique_ptr<Scenario> beforeTheFirstPass()
{
    auto scenario = std::make_unique<Scenario>();
    scenario->Show();
    return scenario;
}

std::unique_ptr<Scenario> atRest()
{
    auto scenario = beforeTheFirstPass();
    scenario->Settle();
    return scenario;
}

/// Every kind of edit at once.
std::unique_ptr<Scenario> withAnEditedTree()
{
    auto scenario = atRest();
    scenario->MoveInTree("B", 0);
    scenario->TreeItem("B").group = 2;
    scenario->TreeItem("A").active = 0;
    scenario->TreeItem("A").name = "A2";
    scenario->SelectInTree({"B"});
    return scenario;
}

std::unique_ptr<Scenario> withAddsAndDeletes()
{
    auto scenario = atRest();
    scenario->Tree()->keysToBeAdded = {scenario->on.Key("QVK VORTSRC Solids")};
    scenario->DeleteInTree("B");
    PanelNotify(&scenario->Inbox(), "Saved");
    return scenario;
}

bool wasAcquire(const SweptFault& fault) { return fault.call.rfind("Basic AcquireSuite", 0) == 0; }

/// A failed call has these consequences, each laid down for the operation in which it comes. They are told
/// exactly where each operation is tested; here they must only not be others.
const std::set<std::string> consequences = {
    finding::undoGroupLeftOpen, // A rename, a deletion or a hiding that failed behind its start.
    finding::nestedUndoGroup,   // What the pass does after that.
    finding::emptyUndoGroup,    // An order of effects whose identities could not be read.
    finding::undoGroupMismatch, // A reorder whose group could not be opened.
    finding::nullReference,     // A reorder, a deletion or a look at a match name without an effect.
    finding::unknownKey,        // A look at a match name without a key.
};

void expectOnlyConsequences(Scenario& scenario, const SweptFault& fault)
{
    const bool leaves = scenario.result.thrownNumber.has_value();
    for (const Finding& found : scenario.host.TakeFindings())
    {
        const bool isThrow = found.id == finding::exceptionLeftHook && leaves;
        // What a missing suite would have disposed of stays out.
        const bool isLeft =
            leaves && (found.id == finding::leakedReference || found.id == finding::disposeOrder);
        EXPECT_TRUE(fault.ordinal != 0 && (isThrow || isLeft || consequences.count(found.id) != 0))
            << found.Text();
    }
}

std::string itemsText(const std::vector<ObjectItem>& items)
{
    std::string text;
    for (const ObjectItem& item : items)
    {
        if (item.uuid != ZERO_UUID_TEXT)
            text += item.uuid + " " + item.name + " " + std::to_string(item.group) + " " +
                    std::to_string(item.active) + "\n";
    }
    return text;
}

/// With the host sound again, one refresh has to bring the tree to the truth, and the pass to rest.
void expectRecovery(Scenario& scenario)
{
    scenario.host.Faults().Disarm();
    scenario.Inbox().refreshPending = 1;
    scenario.Settle();
    std::vector<ObjectItem> layerItems;
    scenario.host.RunInHook(
        [&] { layerItems = CreateItemsFromLayer(7, scenario.on.Basic(), scenario.on.Layer(), -1); });
    EXPECT_EQ(itemsText(scenario.Tree()->objects), itemsText(layerItems));
    EXPECT_EQ(scenario.Pass().printed, "");
    EXPECT_EQ(scenario.host.FindingsReport(), "");
}

/// Without a record of its own, since the sweep counts the calls of the trace.
void runPass(Scenario& scenario)
{
    const process::CapturedOutput printed;
    scenario.result = scenario.host.RunIdle();
}

bool lacksASuiteToDisposeWith(Scenario& scenario)
{
    const std::vector<CallRecord> calls = scenario.host.Trace().Records();
    return std::any_of(calls.begin(), calls.end(),
                       [](const CallRecord& call)
                       {
                           return call.error != errNone &&
                                  (call.head == R"(Basic AcquireSuite("AEGP Stream Suite", 7))" ||
                                   call.head == R"(Basic AcquireSuite("AEGP Effect Suite", 3))");
                       });
}

void checkPass(Scenario& scenario, const SweptFault& fault)
{
    SCOPED_TRACE(fault.Text());
    const HookResult& result = scenario.result;
    if (result.thrown.empty())
    {
        EXPECT_EQ(result.error, errNone);
        // A suite that is asked for once more and then had is no loss.
        EXPECT_TRUE(!wasAcquire(fault) || fault.ordinal == 0) << "a suite was missing and nothing was thrown";
    }
    else
    {
        EXPECT_TRUE(wasAcquire(fault) || fault.length == FaultLength::everythingForGood) << result.thrown;
        EXPECT_EQ(result.thrownNumber, 516) << result.thrown;
    }
    EXPECT_TRUE(scenario.host.LeakedReferences() == 0 || lacksASuiteToDisposeWith(scenario));
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Layer Suite", 5), 0);
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Effect Suite", 1), 0);
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Effect Suite", 3), 0);
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Stream Suite", 4), 0);
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Stream Suite", 7), 0);
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Dynamic Stream Suite", 2), 0);
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Dynamic Stream Suite", 5), 0);
    EXPECT_EQ(scenario.host.SuiteCount("AEGP Utility Suite", 3), 0);
    EXPECT_EQ(scenario.Inbox().refreshPending, 0);
    expectOnlyConsequences(scenario, fault);
    expectRecovery(scenario);
    scenario.Close();
    scenario.host.CheckSuiteBalance();
    EXPECT_EQ(scenario.host.FindingsReport(), "");
}

TEST(IdlePassFaults, AQuietPassSurvivesEachFailedCall)
{
    EXPECT_EQ(SweepFaults(&atRest, &runPass, &checkPass), 87u);
}

TEST(IdlePassFaults, AFirstPassSurvivesEachFailedCall)
{
    EXPECT_GT(SweepFaults(&beforeTheFirstPass, &runPass, &checkPass), 400u);
}

TEST(IdlePassFaults, AnEditsPassSurvivesEachFailedCall)
{
    EXPECT_GT(SweepFaults(&withAnEditedTree, &runPass, &checkPass), 400u);
}

TEST(IdlePassFaults, AddsAndDeletesSurviveEachFailedCall)
{
    EXPECT_GT(SweepFaults(&withAddsAndDeletes, &runPass, &checkPass), 400u);
}
} // namespace
} // namespace standin
