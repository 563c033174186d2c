// Each host call of a change fails in turn: the references are given back, the suites are balanced, an undo
// group stays open where a rename breaks off and nowhere else, and what the fault does not touch is done.

#include "standin/host/faults/Sweep.h"
#include "tests/support/StackTest.h"
#include "tests/support/TraceAudit.h"

#include <algorithm>

namespace standin
{
namespace
{
struct ChangedStack : LabelledStack
{
    using LabelledStack::LabelledStack;
    Items tree;
    HookResult result;
    std::string output;

    void Run()
    {
        output = OutputOf([this] { result = Change(tree); });
    }
};

/// A stack, and the tree that is applied to it.
std::unique_ptr<ChangedStack> makeStack(const std::string& labels, const std::string& treeLabels,
                                        void (*edit)(Items&))
{
    auto stack = std::make_unique<ChangedStack>(labels);
    stack->tree = stack->Tree(treeLabels);
    edit(stack->tree);
    return stack;
}

const std::vector<ChainSteps> renameSteps = {{
    "Effect 1 AEGP_GetLayerEffectByIndex",
    "Stream 4 AEGP_GetNewEffectStreamByIndex",
    "DynamicStream 2 AEGP_GetNewParentStreamRef",
    "DynamicStream 2 AEGP_SetStreamName",
    "Utility 3 AEGP_EndUndoGroup",
}};

std::size_t countOf(const std::vector<std::string>& calls, const std::string& part)
{
    return static_cast<std::size_t>(std::count_if(calls.begin(), calls.end(),
                                                  [&](const std::string& call)
                                                  { return call.find(part) != std::string::npos; }));
}

bool isAcquire(const SweptFault& fault) { return fault.call.rfind("Basic AcquireSuite", 0) == 0; }

/// The findings that a fault of this kind brings with it, however far the change got.
std::vector<std::string> expectedFindings(ChangedStack& stack, const TraceAudit& audit,
                                          const SweptFault& fault)
{
    std::vector<std::string> findings = audit.referenceFindings;
    findings.insert(findings.end(), audit.groupFindings.begin(), audit.groupFindings.end());
    if (audit.suiteMissing)
        findings.push_back("exception-left-hook ");
    if (audit.leftOpen > 0)
        findings.push_back("undo-group-left-open AEGP_StartUndoGroup");
    // The order's group is closed without a look at how it was opened.
    const std::string orderStart = "AEGP_StartUndoGroup(\"\") = 1";
    const std::vector<std::string> calls = stack.host.CallTexts();
    const bool orderWasNotOpened =
        countOf(calls, orderStart) + countOf(calls, "Reorder Effect(s)\") = 1") > 0;
    if (orderWasNotOpened && audit.leftOpen == 0 && fault.length != FaultLength::everythingForGood)
        findings.push_back("undo-group-mismatch AEGP_EndUndoGroup");
    if (fault.length != FaultLength::everythingForGood)
        findings.insert(findings.end(), countOf(calls, "AEGP_ReorderEffect(effect null"),
                        "null-reference AEGP_ReorderEffect");
    std::sort(findings.begin(), findings.end());
    return findings;
}

void checkChange(ChangedStack& stack, const SweptFault& fault)
{
    SCOPED_TRACE(fault.Text());
    const TraceAudit audit = AuditTrace(stack.host.Trace().Records(), "Rename Effect(s)", renameSteps);
    EXPECT_EQ(audit.violation, "") << stack.CallsWithSuites();
    EXPECT_EQ(stack.result.thrownNumber, audit.suiteMissing ? std::optional<int>(516) : std::nullopt);
    EXPECT_EQ(stack.Found(), expectedFindings(stack, audit, fault)) << stack.CallsWithSuites();
    const std::vector<std::string> calls = stack.host.CallTexts(SuiteTraffic::leftOut);
    const bool isClosed = !calls.empty() && calls.back().find("AEGP_EndUndoGroup()") != std::string::npos;
    EXPECT_TRUE(audit.suiteMissing || isClosed) << "the order's group is closed whatever happened";
}

void editNothing(Items&) {}

void rename(Items& tree) { tree[0].name = "Front"; }

void changeGroup(Items& tree) { tree[0].group = 3; }

void switchOff(Items& tree) { tree[0].active = 0; }

void editAll(Items& tree)
{
    ItemNamed(tree, "A").group = 2;
    ItemNamed(tree, "C").active = 0;
    ItemNamed(tree, "A").name = "One";
    ItemNamed(tree, "B").name = "Two";
}

/// The ordinal of the first call after `from` whose line contains `part`.
std::size_t ordinalOf(const std::vector<std::string>& calls, const std::string& part, std::size_t from = 0)
{
    for (std::size_t i = from; i < calls.size(); ++i)
        if (calls[i].find(part) != std::string::npos)
            return i + 1;
    ADD_FAILURE() << part << " is not in the trace";
    return 0;
}

std::vector<std::string> cleanCalls(const std::string& labels, const std::string& treeLabels,
                                    void (*edit)(Items&))
{
    const auto stack = makeStack(labels, treeLabels, edit);
    stack->Run();
    return stack->host.CallTexts();
}

const std::vector<FaultLength> justOnce = {FaultLength::once};
} // namespace

TEST(LayerEffectChangesFaults, EveryCallFailsInTurn)
{
    const std::size_t swept = SweepFaults([] { return makeStack("A X B C", "C A ? B", editAll); },
                                          [](ChangedStack& stack) { stack.Run(); }, checkChange);
    EXPECT_EQ(swept, cleanCalls("A X B C", "C A ? B", editAll).size());
    EXPECT_GT(swept, 150U);
}

TEST(LayerEffectChangesFaults, EveryCallOfAReorderFailsInTurn)
{
    const std::size_t swept = SweepFaults([] { return makeStack("A X B", "B A", editNothing); },
                                          [](ChangedStack& stack) { stack.Run(); }, checkChange);
    EXPECT_GT(swept, 30U);
}

TEST(LayerEffectChangesFaults, ARenameNeedsTheCallsBeforeIt)
{
    const std::vector<std::string> calls = cleanCalls("A", "A", rename);
    const std::size_t start = ordinalOf(calls, "AEGP_StartUndoGroup(\"Rename Effect(s)\")");
    const std::size_t setName = ordinalOf(calls, "AEGP_SetStreamName");
    const std::size_t end = ordinalOf(calls, "AEGP_EndUndoGroup");
    std::size_t leftOpen = 0;
    SweepFaults([] { return makeStack("A", "A", rename); }, [](ChangedStack& stack) { stack.Run(); },
                [&](ChangedStack& stack, const SweptFault& fault)
                {
                    SCOPED_TRACE(fault.Text());
                    const bool isDisposalOfTheMessage = fault.call == "Effect 3 AEGP_DisposeEffect(effect A)";
                    const bool isDone =
                        fault.ordinal == 0 || fault.ordinal > setName || isDisposalOfTheMessage;
                    EXPECT_EQ(stack.host.NameOf("A"), isDone ? "Front" : "A");
                    const std::vector<std::string> found = stack.Found();
                    const bool isOpen = std::count(found.begin(), found.end(),
                                                   "undo-group-left-open AEGP_StartUndoGroup") == 1;
                    EXPECT_EQ(isOpen, fault.ordinal > start && fault.ordinal < end);
                    EXPECT_EQ(stack.result.thrownNumber.value_or(0), isAcquire(fault) ? 516 : 0);
                    leftOpen += isOpen ? 1 : 0;
                },
                justOnce);
    EXPECT_EQ(leftOpen, 6U) << "the effect, two acquires, two streams, the name";
}

TEST(LayerEffectChangesFaults, AGroupNeedsTheCallsBeforeItsMessage)
{
    const std::size_t told = ordinalOf(cleanCalls("A", "A", changeGroup), "VORT 3 group 3");
    SweepFaults([] { return makeStack("A", "A", changeGroup); }, [](ChangedStack& stack) { stack.Run(); },
                [&](ChangedStack& stack, const SweptFault& fault)
                {
                    SCOPED_TRACE(fault.Text());
                    const bool isDone = fault.ordinal == 0 || fault.ordinal > told ||
                                        fault.call == "Effect 3 AEGP_DisposeEffect(effect A)";
                    EXPECT_EQ(stack.host.Effect("A").family.group, isDone ? 3 : 0);
                    EXPECT_EQ(stack.output, "Setting Group: A\n") << "printed before it is tried";
                },
                justOnce);
}

TEST(LayerEffectChangesFaults, ASwitchNeedsTheCallsBeforeIt)
{
    const std::size_t switched = ordinalOf(cleanCalls("A", "A", switchOff), "AEGP_SetEffectFlags");
    SweepFaults([] { return makeStack("A", "A", switchOff); }, [](ChangedStack& stack) { stack.Run(); },
                [&](ChangedStack& stack, const SweptFault& fault)
                {
                    SCOPED_TRACE(fault.Text());
                    const bool isDone = fault.ordinal == 0 || fault.ordinal > switched ||
                                        fault.call == "Effect 3 AEGP_DisposeEffect(effect A)";
                    EXPECT_EQ(stack.host.Effect("A").flags, isDone ? 0 : effectActive);
                },
                justOnce);
}

TEST(LayerEffectChangesFaults, AFailureStopsNoLaterItemOrStep)
{
    for (const char* function :
         {"AEGP_GetNewEffectStreamByIndex", "AEGP_GetNewParentStreamRef", "AEGP_SetStreamName"})
    {
        SCOPED_TRACE(function);
        const auto stack = makeStack("A X B C", "C A B", editAll);
        stack->host.Faults().FailFunction(function);

        stack->Run();

        EXPECT_EQ(stack->Text(), "C! A@2 B=Two X");
        EXPECT_EQ(stack->Steps(), "[Rename Effect(s)]") << "one step swallows what follows the open group";
        const std::string inside =
            "nested-undo-group AEGP_StartUndoGroup"; // Of the second name and the order.
        EXPECT_EQ(stack->Found(),
                  (std::vector<std::string>{inside, inside, "undo-group-left-open AEGP_StartUndoGroup"}));
        EXPECT_TRUE(stack->UndoBringsBackTheStart());
    }
}

TEST(LayerEffectChangesFaults, TheOrderIsUnnamedAfterAFailedRename)
{
    const auto stack = makeStack("A B", "B A", rename);
    const TracedStack traced = stack->Traced();
    stack->host.Faults().FailFunction("AEGP_StartUndoGroup");

    stack->Run();

    EXPECT_EQ(stack->CallList(),
              traced.AfterReading({{"Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\") = 1"},
                                   traced.Order("", "B 1>0 A 1>1")}));
    EXPECT_EQ(stack->Text(), "B A");
    EXPECT_EQ(stack->Steps(), "[]");
    EXPECT_TRUE(stack->UndoBringsBackTheStart());
    EXPECT_EQ(stack->host.FindingsReport(), "");
}

TEST(LayerEffectChangesFaults, AMoveThatFailsIsTakenForDone)
{
    // B is not moved up; the belief says B A C, so A is looked for at 1, where B still stands.
    const auto stack = makeStack("A B C", "B A C", editNothing);
    const TracedStack traced = stack->Traced();
    stack->host.Faults().FailFunction("AEGP_ReorderEffect");

    stack->Run();

    EXPECT_EQ(stack->CallList(),
              traced.AfterReading({traced.Order("Reorder Effect(s)", "B 1>0=1 B 1>1 C 2>2")}));
    EXPECT_EQ(stack->Stack(), "A B C");
    EXPECT_EQ(stack->host.FindingsReport(), "");
}

TEST(LayerEffectChangesFaults, AnEffectNotObtainedIsMovedByNull)
{
    const auto stack = makeStack("A B", "B A", editNothing);
    const TracedStack traced = stack->Traced();
    stack->host.Faults().FailFunction("AEGP_GetLayerEffectByIndex", 3);
    stack->host.Expect("null-reference", "AEGP_ReorderEffect", "the move does not look at the reference");

    stack->Run();

    Calls order = traced.Order("Reorder Effect(s)", "B 1>1");
    order.insert(order.begin() + 1, {"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) = 1",
                                     "Effect 1 AEGP_ReorderEffect(effect null, 0) = 3"});
    EXPECT_EQ(stack->CallList(), traced.AfterReading({order}));
    EXPECT_EQ(stack->host.FindingsReport(), "");
}

TEST(LayerEffectChangesFaults, AnEffectNotObtainedKeepsItsFlags)
{
    const auto stack = makeStack("A", "A", switchOff);
    const TracedStack traced = stack->Traced();
    stack->host.Faults().FailFunction("AEGP_GetLayerEffectByIndex", 2);

    stack->Run();

    EXPECT_EQ(stack->CallList(),
              traced.AfterReading(
                  {{"Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) = 1"}, traced.OrderInPlace("")}));
    EXPECT_EQ(stack->Text(), "A");
    EXPECT_EQ(stack->host.FindingsReport(), "");
}
} // namespace standin
