// The audit of a pass with a fault, on hand-made traces: what it accepts, and what it reports.

#include "standin/check/FaultAudit.h"
#include "standin/host/sensors/FindingIds.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace standin
{
using namespace check;

namespace
{
CallRecord call(const std::string& function, A_Err error = errNone, const std::string& arguments = "")
{
    CallRecord record;
    record.function = function;
    record.head = function + "(" + arguments + ")";
    record.error = error;
    return record;
}

CallRecord struck(const std::string& function)
{
    CallRecord record = call(function, errGeneric);
    record.suite = "AEGP Suite";
    record.struck = true;
    return record;
}

CallRecord start(const std::string& name) { return call("AEGP_StartUndoGroup", errNone, "\"" + name + "\""); }
CallRecord end(A_Err error = errNone) { return call("AEGP_EndUndoGroup", error); }

Finding found(const char* id, const char* function) { return {id, "It was found.", "", function, ""}; }

class FaultAudit : public testing::Test
{
protected:
    std::string Verdict()
    {
        try
        {
            AuditFaultyRun(trial, run, tally);
        }
        catch (const CheckFailure& failure)
        {
            return failure.what();
        }
        return "";
    }

    Trial trial{"b", 1, [](const std::string&) {}, [] {}};
    FaultyRun run;
    FaultTally tally;
};

TEST_F(FaultAudit, PassesARunInWhichAllWentWell)
{
    run.calls = {start("Rename Effect(s)"), call("AEGP_SetStreamName"), end()};
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(tally.struck, 0);
    EXPECT_EQ(tally.left, 0);
}

TEST_F(FaultAudit, RequiresGroupsOfFailedChangesLeftOpen)
{
    for (const char* name : {"Rename Effect(s)", "Delete Effect(s)", ""})
    {
        run.calls = {start(name), call("AEGP_GetLayerEffectByIndex", errGeneric)};
        EXPECT_EQ(Verdict(), "") << name;
        run.calls.push_back(end());
        EXPECT_THAT(Verdict(), HasSubstr("was ended although this had failed")) << name;
    }
    EXPECT_EQ(tally.left, 3);
}

TEST_F(FaultAudit, RequiresTheOrdersGroupToEnd)
{
    for (const char* name : {"Reorder Effect(s)", ""})
    {
        run.calls = {start(name), call("AEGP_ReorderEffect", errGeneric), end()};
        EXPECT_EQ(Verdict(), "") << name;
        run.calls.pop_back();
        EXPECT_THAT(Verdict(), HasSubstr("was not ended after this had failed")) << name;
    }
}

TEST_F(FaultAudit, AFailedDeletionDoesNotFailTheChain)
{
    run.calls = {start("Delete Effect(s)"), call("AEGP_DeleteLayerEffect", errGeneric), end()};
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(tally.left, 0);
}

TEST_F(FaultAudit, AGroupEndRefusedByHostIsExcused)
{
    run.calls = {start("Reorder Effect(s)"), end(errGeneric)};
    EXPECT_EQ(Verdict(), "");
}

TEST_F(FaultAudit, HooksMayOnlyThrowMissingSuitesNumbers)
{
    run.results = {{errGeneric, 516, "the integer 516"}};
    EXPECT_THAT(Verdict(), HasSubstr("a hook was left by the integer 516"));
    run.calls = {call("AcquireSuite", errSuiteNotFound)};
    EXPECT_EQ(Verdict(), "");
    run.results = {{errGeneric, 13, "the integer 13"}};
    EXPECT_THAT(Verdict(), HasSubstr("is 13 and should be 516"));
}

TEST_F(FaultAudit, FindingsPassInTheirSituationAlone)
{
    run.findings = {found(finding::nullReference, "AEGP_DeleteLayerEffect")};
    EXPECT_EQ(Verdict(), "");
    run.findings = {found(finding::nullReference, "AEGP_SetStreamName")};
    EXPECT_THAT(Verdict(), HasSubstr("null-reference"));
    run.findings = {found(finding::leakedReference, "AEGP_GetLayerEffectByIndex")};
    EXPECT_THAT(Verdict(), HasSubstr("leaked-reference"));
    run.findings = {found(finding::undoGroupLeftOpen, "AEGP_StartUndoGroup")};
    EXPECT_THAT(Verdict(), HasSubstr("undo-group-left-open"));
    run.findings = {found(finding::nestedUndoGroup, "AEGP_StartUndoGroup")};
    EXPECT_THAT(Verdict(), HasSubstr("nested-undo-group"));
    run.findings = {found(finding::emptyUndoGroup, "AEGP_EndUndoGroup")};
    EXPECT_THAT(Verdict(), HasSubstr("empty-undo-group"));
    for (const char* const function : {"AEGP_GetLayerNumEffects", "AEGP_GetActiveLayer"})
    {
        run.calls = {call(function, errGeneric)};
        EXPECT_EQ(Verdict(), "") << "there is no order to write";
    }
    run.calls = {};
    run.findings = {found(finding::undoGroupMismatch, "AEGP_EndUndoGroup")};
    EXPECT_THAT(Verdict(), HasSubstr("undo-group-mismatch"));
    run.findings = {found(finding::doubleDispose, "AEGP_DisposeEffect")};
    run.calls = {call("AcquireSuite", errSuiteNotFound)};
    EXPECT_THAT(Verdict(), HasSubstr("double-dispose")) << "no missing suite excuses that";
}

TEST_F(FaultAudit, GarbageMayBeDisposedOfByItsTaker)
{
    run.calls = {struck("AEGP_GetLayerEffectByIndex")};
    run.findings = {found(finding::foreignReference, "AEGP_DisposeEffect")};
    EXPECT_THAT(Verdict(), HasSubstr("foreign-reference")) << "the fault has left nothing there";
    run.how.outs = OutValues::garbage;
    EXPECT_EQ(Verdict(), "");
    run.findings = {found(finding::foreignReference, "AEGP_SetEffectFlags")};
    EXPECT_THAT(Verdict(), HasSubstr("foreign-reference")) << "the error was not looked at";
}

TEST_F(FaultAudit, ARefusedMenuEntryMayBeUnknown)
{
    run.findings = {found(finding::unknownCommand, "AEGP_CheckMarkMenuCommand"),
                    found(finding::unknownCommand, "AEGP_EnableCommand")};
    EXPECT_THAT(Verdict(), HasSubstr("unknown-command"));
    run.calls = {struck("AEGP_RegisterCreatePanelHook")};
    EXPECT_THAT(Verdict(), HasSubstr("unknown-command")) << "it was the panel that was refused";
    run.calls = {struck("AEGP_InsertMenuCommand")};
    EXPECT_EQ(Verdict(), "");
    run.findings = {found(finding::unknownCommand, "AEGP_RegisterCommandHook")};
    EXPECT_THAT(Verdict(), HasSubstr("unknown-command")) << "the command is the caller's all the same";
}

TEST_F(FaultAudit, ARefusedPanelMayBeUnknown)
{
    run.findings = {found(finding::unknownPanel, "AEGP_IsShown")};
    EXPECT_THAT(Verdict(), HasSubstr("unknown-panel"));
    run.calls = {struck("AEGP_InsertMenuCommand")};
    EXPECT_THAT(Verdict(), HasSubstr("unknown-panel")) << "it was the menu entry that was refused";
    run.calls = {struck("AEGP_RegisterCreatePanelHook")};
    EXPECT_EQ(Verdict(), "");
    run.findings = {found(finding::unknownPanel, "AEGP_ToggleVisibility")};
    EXPECT_THAT(Verdict(), HasSubstr("unknown-panel")) << "nobody has chosen the menu entry";
}

TEST_F(FaultAudit, AHookMayThrowBadAllocWithoutMemory)
{
    run.results = {{errGeneric, std::nullopt, "an exception: std::bad_alloc"}};
    EXPECT_THAT(Verdict(), HasSubstr("a hook was left by an exception: std::bad_alloc"));
    run.isOutOfMemory = true;
    EXPECT_EQ(Verdict(), "");
    run.findings = {found(finding::leakedReference, "AEGP_GetLayerEffectByIndex")};
    EXPECT_THAT(Verdict(), HasSubstr("leaked-reference"));
}

TEST_F(FaultAudit, TheProjectIsPartOfIt)
{
    SeenEffect lamp;
    lamp.id = 1;
    lamp.name = "lamp";
    run.project.before.layers[1] = {lamp};
    run.project.wanted = run.project.before;
    lamp.name = "torch";
    run.project.after.layers[1] = {lamp};
    EXPECT_THAT(Verdict(), HasSubstr("the effect \"lamp\" is called \"torch\""));
}
} // namespace
} // namespace standin
