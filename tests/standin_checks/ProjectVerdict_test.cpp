// The verdict on a project after a fault: what it accepts for which call, and what it reports.

#include "standin/check/ProjectVerdict.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace standin
{
using namespace check;

namespace
{
using testing::HasSubstr;

constexpr int layer = 1;

SeenEffect object(int id, const std::string& name)
{
    SeenEffect effect;
    effect.id = id;
    effect.key = 200 + id;
    effect.ofFamily = true;
    effect.name = name;
    effect.flags = effectActive;
    effect.hidden = true;
    effect.hiddenParameters = {false, false};
    return effect;
}

/// A lamp, a mast in group 1 and a blur from outside; the lamp is to be renamed to "torch".
class ProjectVerdict : public testing::Test
{
protected:
    ProjectVerdict()
    {
        SeenEffect blur = object(3, "blur");
        blur.ofFamily = false;
        blur.hidden = false;
        project.before.layers[layer] = {object(1, "lamp"), object(2, "mast"), blur};
        project.before.layers[layer][1].group = 1;
        project.wanted = project.after = project.before;
        project.wanted.layers[layer][0].name = "torch";
    }

    std::vector<SeenEffect>& after() { return project.after.layers[layer]; }

    /// The verdict if a fault struck a call of this function; none for no fault.
    std::string Verdict(const std::string& function = "")
    {
        CallRecord call;
        call.function = function;
        call.error = errGeneric;
        call.struck = true;
        return JudgeProject(project, function.empty() ? std::vector<CallRecord>{} : std::vector{call})
            .violation;
    }

    ComparedProject project;
};

TEST_F(ProjectVerdict, TheOldAndTheNewProjectPass)
{
    EXPECT_EQ(Verdict(), "");
    project.after = project.wanted;
    EXPECT_EQ(Verdict(), "");
}

TEST_F(ProjectVerdict, AnotherEffectRenamedIsFound)
{
    after()[1].name = "torch";
    EXPECT_THAT(Verdict("AEGP_GetStreamName"), HasSubstr("the effect \"mast\" is called \"torch\""));
}

TEST_F(ProjectVerdict, AFailedReadMayRepeatTheNameAbove)
{
    after()[1].name = "lamp";
    EXPECT_EQ(Verdict("AEGP_GetStreamName"), "");
    EXPECT_THAT(Verdict("AEGP_StartUndoGroup"), HasSubstr("is called \"lamp\""));
    after()[1].name = "mast";
    after()[0].name = "mast";
    EXPECT_THAT(Verdict("AEGP_GetStreamName"), HasSubstr("is called \"mast\""))
        << "it repeats downwards alone";
}

TEST_F(ProjectVerdict, AGarbledNameComesFromItsCallAlone)
{
    after()[1].name = "garbage";
    EXPECT_EQ(Verdict("AEGP_GetStreamName"), "");
    EXPECT_THAT(Verdict("AEGP_GetEffectFlags"), HasSubstr("is called \"garbage\""));
}

TEST_F(ProjectVerdict, AnEffectLeavesItsGroupForNoOther)
{
    after()[1].group = 0;
    EXPECT_EQ(Verdict("AEGP_EffectCallGeneric"), "");
    EXPECT_THAT(Verdict("AEGP_GetStreamName"), HasSubstr("is in group 0"));
    after()[1].group = 3;
    EXPECT_THAT(Verdict("AEGP_EffectCallGeneric"), HasSubstr("is in group 3"));
}

TEST_F(ProjectVerdict, AFailedReadSwitchesOffAllBelow)
{
    after()[0].flags = 0;
    EXPECT_THAT(Verdict("AEGP_GetStreamName"), HasSubstr("has the flags 0"));
    after()[1].flags = 0;
    EXPECT_EQ(Verdict("AEGP_GetStreamName"), "");
    EXPECT_THAT(Verdict("AEGP_EffectCallGeneric"), HasSubstr("has the flags 0"));
}

TEST_F(ProjectVerdict, OnlyAFailedCountMayHideOutsideEffects)
{
    after()[2].hidden = true;
    EXPECT_EQ(Verdict("AEGP_GetLayerNumEffects"), "");
    EXPECT_THAT(Verdict("AEGP_SetDynamicStreamFlag"), HasSubstr("the effect \"blur\" is hidden"));
}

TEST_F(ProjectVerdict, ARefusedNameMayCostTheSelection)
{
    after()[0].hidden = false;
    EXPECT_EQ(Verdict("AEGP_SetStreamName"), "");
    project.after = project.wanted;
    after()[0].hidden = false;
    EXPECT_THAT(Verdict("AEGP_SetStreamName"), HasSubstr("is shown")) << "the name was not refused";
}

TEST_F(ProjectVerdict, ARefusedDeletionMayCostTheSelection)
{
    after()[0].hidden = false;
    after()[0].name = "torch";
    EXPECT_THAT(Verdict("AEGP_ReorderEffect"), HasSubstr("is shown"));
    project.wanted.layers[layer].erase(project.wanted.layers[layer].begin() + 1);
    EXPECT_EQ(Verdict("AEGP_ReorderEffect"), "");
}

TEST_F(ProjectVerdict, OutsidersSinkBelowTheRowsOfAnotherTree)
{
    std::swap(project.before.layers[layer][1], project.before.layers[layer][2]);
    project.wanted = project.before;
    EXPECT_EQ(Verdict("AEGP_GetLayerID"), "");
    EXPECT_THAT(Verdict("AEGP_DisposeStream"), HasSubstr("neither the old one nor the new one"));
    std::swap(after()[0], after()[1]);
    EXPECT_NE(Verdict("AEGP_GetLayerID"), "") << "that is not the order of the rows";
}

TEST_F(ProjectVerdict, AnOrderThatNoStepGivesIsFound)
{
    std::swap(after()[0], after()[2]);
    EXPECT_THAT(Verdict("AEGP_ReorderEffect"), HasSubstr("no step that fails gives it"));
}

TEST_F(ProjectVerdict, FindsALostOrUnwantedEffect)
{
    after().pop_back();
    EXPECT_EQ(Verdict("AEGP_DeleteLayerEffect"), "the effect \"blur\" is gone");
    after() = project.before.layers[layer];
    after().push_back(object(9, "dots"));
    EXPECT_EQ(Verdict("AEGP_ApplyEffect"), "nobody has asked for the effect \"dots\"");
}

TEST(Allowances, AppearOnceEachWithAReason)
{
    std::set<std::pair<std::string, Fate>> rows;
    for (const Allowance& row : Allowances())
    {
        EXPECT_TRUE(rows.insert({row.function, row.fate}).second) << row.function << " " << TextOf(row.fate);
        EXPECT_STRNE(row.reason, "");
    }
}
} // namespace
} // namespace standin
