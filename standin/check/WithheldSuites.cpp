// An open panel, without a suite that its passes need.

#include "standin/check/PanelScene.h"
#include "standin/check/ProjectVerdict.h"
#include "standin/host/sensors/FindingIds.h"

#include <algorithm>

namespace standin::check::bundles
{
namespace
{
struct NeededSuite
{
    const char* name;
    A_long version;
    /// What the host finds of a pass without it, besides the exception: references that only this suite can
    /// dispose of, and what it was to do between the start of an undo group and its end.
    std::vector<std::string> findings;
};

/// What each pass acquires again, so that it can go missing. The others are kept from their first use on.
const NeededSuite neededSuites[] = {
    {"AEGP Layer Suite", 5, {}},
    {"AEGP Effect Suite", 1, {}},
    {"AEGP Effect Suite", 3, {finding::leakedReference}},
    {"AEGP Stream Suite", 4, {}},
    {"AEGP Stream Suite", 7, {finding::disposeOrder, finding::leakedReference, finding::leakedReference}},
    {"AEGP Dynamic Stream Suite", 2, {}},
    {"AEGP Utility Suite", 3, {}},
    {"AEGP Dynamic Stream Suite", 5, {finding::undoGroupLeftOpen}},
};

const char* textOf(Withheld how)
{
    return how == Withheld::asError       ? "an error"
           : how == Withheld::asNullTable ? "a null table"
                                          : "an error and a pointer that must not be used";
}

void withhold(PanelScene& scene, const NeededSuite& suite, Withheld how)
{
    constexpr int missingSuite = 516;
    Trial& trial = scene.trial;
    trial.At(std::string("a change in the host while \"") + suite.name + "\" version " +
             std::to_string(suite.version) + " is answered by " + textOf(how));
    scene.host().User().Rename("lamp", "torch");
    scene.host().Faults().Withhold(suite.name, suite.version, how);
    const SeenProject before = SeeProject(scene.host());
    const int held = scene.host().SuiteCount(suite.name, suite.version);
    const HookResult result = scene.host().RunIdle();
    trial.RequireEqual(result.thrownNumber.value_or(0), missingSuite, "the number that left the idle hook");
    std::vector<std::string> expected = suite.findings;
    expected.emplace_back(finding::exceptionLeftHook);
    std::sort(expected.begin(), expected.end());
    trial.RequireLines(scene.host().TakeFindingIds(), expected, "what the host found of the pass");
    trial.RequireEqual(scene.host().SuiteCount(suite.name, suite.version), held,
                       "how often the suite is held after the pass");

    const ProjectFates fates = JudgeProject({before, before, SeeProject(scene.host())}, {});
    trial.Require(fates.violation.empty(), fates.violation);

    scene.host().Faults().GiveBack(suite.name, suite.version);
    scene.host().User().Rename("lamp", "lamp");
    for (int i = 0; i < 3; ++i)
        trial.RequireEqual(scene.host().RunIdle().thrown, std::string(),
                           "what left the idle hook when the suite was back");
    trial.RequireNoFindings(scene.host());
}
} // namespace

void WithheldSuites(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.OpenPanel();
    for (const NeededSuite& suite : neededSuites)
        for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
            withhold(scene, suite, how);
    scene.Do("rename \"lamp\" to \"torch\"");
    scene.RequireAgreement();
    scene.End();
}
} // namespace standin::check::bundles
