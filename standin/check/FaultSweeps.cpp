// Each host call of a change fails once, and each function from then on; the pass has to go on or to stop as
// it should, and the next pass without a fault has to bring layer and panel together again.

#include "standin/check/FaultAudit.h"
#include "standin/check/PanelScene.h"
#include "standin/host/family/Sibling.h"
#include "standin/host/sensors/FindingIds.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace standin::check::bundles
{
namespace
{
/// What is swept.
struct SweptChange
{
    const char* name;
    /// Brings about that the next pass does the change. Nothing idles.
    std::function<void(PanelScene&)> begin;
    /// The first call that is swept is the first of this function; empty for the first of all.
    const char* from;
    /// What the change cannot do without: the sweep has to meet it.
    const char* meets;
    /// In how many passes the change is done.
    int passes;
};

class FaultSweep
{
public:
    FaultSweep(PanelScene& theScene, SweptChange theChange)
        : scene(theScene), change(std::move(theChange)), base(scene.host().State())
    {
    }

    void Run()
    {
        const std::vector<CallRecord> calls = cleanRun();
        const auto start = std::find_if(calls.begin(), calls.end(),
                                        [this](const CallRecord& call)
                                        { return *change.from == '\0' || call.function == change.from; });
        scene.trial.Require(start != calls.end(), std::string("no ") + change.from + " in " + change.name);
        scene.trial.Require(std::any_of(start, calls.end(),
                                        [this](const CallRecord& call)
                                        { return call.function == change.meets; }),
                            std::string("no ") + change.meets + " in " + change.name);
        std::set<std::pair<std::string, A_long>> functions;
        for (auto call = start; call != calls.end(); ++call)
        {
            const auto ordinal = static_cast<std::size_t>(call - calls.begin() + 1);
            const std::string what = std::string(change.name) + ", " + call->head;
            // Each with other out-values, so that the kinds take turns.
            const FailedCall how = {call->hasOutValues && ordinal % 3 == 0 ? errAlloc : errGeneric,
                                    turns[ordinal % std::size(turns)]};
            faultyRun("call " + std::to_string(ordinal) + " fails once: " + what, how,
                      [&](FaultPlan& plan) { plan.FailCall(ordinal, FaultLength::once, how); });
            if (functions.insert({call->suite + "|" + call->function, call->version}).second)
                faultyRun("its function fails from the first call on: " + what, {},
                          [&](FaultPlan& plan) {
                              plan.FailFunction(call->suite, call->version, call->function, 1,
                                                FaultLength::functionForGood);
                          });
        }
        scene.trial.Require(tally.struck > static_cast<int>(calls.end() - start),
                            "only " + std::to_string(tally.struck) + " of " + std::to_string(tally.runs) +
                                " faults have struck");
    }

    const FaultTally& Tally() const { return tally; }

private:
    std::vector<CallRecord> cleanRun()
    {
        scene.trial.At(std::string(change.name) + " without a fault");
        reset();
        change.begin(scene);
        const FaultyRun run = idle();
        wanted = run.project.after;
        scene.trial.Require(run.findings.empty(), run.findings.empty() ? "" : run.findings.front().Text());
        return run.calls;
    }

    static constexpr OutValues turns[] = {OutValues::untouched, OutValues::garbage, OutValues::null};

    template <class Arm>
    void faultyRun(const std::string& what, FailedCall how, Arm arm)
    {
        scene.trial.At(what);
        reset();
        change.begin(scene);
        arm(scene.host().Faults());
        FaultyRun run = idle();
        run.how = how;
        run.project.wanted = wanted;
        scene.host().Faults().Disarm();
        AuditFaultyRun(scene.trial, run, tally);
    }

    /// The project as it was, with the panel showing it, nothing found and nothing traced.
    void reset()
    {
        constexpr int untilQuiet = 4;
        scene.host().Faults().Disarm();
        // What a fault has kept waiting in the panel is done first. A tree that it has emptied has no order.
        scene.session.Idle();
        for (const Finding& finding : scene.host().TakeFindings())
            scene.trial.Require(finding.id == finding::emptyUndoGroup,
                                "without a fault again: " + finding.Text());
        scene.host().State() = base;
        (void)Sibling(scene.host()).RefreshPanel();
        for (int i = 0; i < untilQuiet; ++i)
            scene.session.Idle();
        scene.session.Forget();
        const std::vector<Finding> findings = scene.host().TakeFindings();
        scene.trial.Require(findings.empty(),
                            findings.empty() ? "" : "without a fault again: " + findings.front().Text());
    }

    FaultyRun idle()
    {
        FaultyRun run;
        run.project.before = SeeProject(scene.host());
        scene.host().ClearTrace();
        for (int i = 0; i < change.passes; ++i)
            run.results.push_back(scene.host().RunIdle());
        run.calls = scene.host().Trace().Records();
        run.findings = scene.host().TakeFindings();
        run.project.after = SeeProject(scene.host());
        return run;
    }

    PanelScene& scene;
    SweptChange change;
    ProjectState base;
    SeenProject wanted; ///< What the change makes of the project without a fault.
    FaultTally tally;
};

struct SweepScene : PanelScene
{
    explicit SweepScene(Trial& theTrial) : PanelScene(theTrial)
    {
        AddObject("lamp");
        AddObject("mast", 1);
    }

    void Sweep(const SweptChange& change, int leastLeft)
    {
        FaultSweep all(*this, change);
        all.Run();
        trial.Require(all.Tally().left >= leastLeft,
                      "the sweep met " + std::to_string(all.Tally().left) +
                          " undo groups that stay open on purpose; there should be more");
        held = script::IdleHeld::no;
        Do("a sibling refreshes the panel");
        RequireAgreement();
    }
};

void sweep(Trial& trial, const SweptChange& change, int leastLeft, const char* outsider = nullptr)
{
    SweepScene scene(trial);
    if (outsider != nullptr)
        (void)scene.host().AddEffect(scene.layer, outsider, "outside");
    scene.OpenPanel();
    scene.Do("click row \"lamp\"");
    scene.Sweep(change, leastLeft);
    scene.End();
}
} // namespace

void SweepOfReading(Trial& trial)
{
    const SweptChange change{"a change in the host",
                             [](PanelScene& scene) { scene.host().User().Rename("lamp", "torch"); }, "",
                             "AEGP_SetDynamicStreamFlag", 2};
    sweep(trial, change, 4);
}

void SweepOfOrder(Trial& trial)
{
    const SweptChange change{"a change in the host, with an effect from outside on the layer",
                             [](PanelScene& scene) { scene.host().User().Rename("lamp", "torch"); }, "",
                             "AEGP_ReorderEffect", 1};
    sweep(trial, change, 4, "ADBE Tint");
}

void SweepOfRename(Trial& trial)
{
    const SweptChange change{"a rename in the panel",
                             [](PanelScene& scene) {
                                 scene.PressUnseen({"Home", "Down", "Return", "x", "Return"});
                             },
                             "", "AEGP_SetStreamName", 1};
    sweep(trial, change, 4);
}

void SweepOfDelete(Trial& trial)
{
    const SweptChange change{"a deletion in the panel",
                             [](PanelScene& scene) {
                                 scene.PressUnseen({"Home", "Down", "Delete"});
                             },
                             "", "AEGP_DeleteLayerEffect", 1};
    sweep(trial, change, 3);
}
} // namespace standin::check::bundles
