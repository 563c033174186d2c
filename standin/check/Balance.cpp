// What is taken is given back: references, suites and undo groups, over a session of changes from both sides.

#include "standin/check/PanelScene.h"
#include "standin/host/core/HostParts.h"

#include <algorithm>
#include <map>

namespace standin::check::bundles
{
namespace
{
/// Changes from both sides, with what each leaves in the undo history: the panel's own name for its step,
/// the host's for its own.
struct Change
{
    std::vector<std::string> lines;
    std::vector<std::string> undoSteps; ///< The oldest first.
};

const std::vector<Change>& changes()
{
    static const std::vector<Change> all{
        {{"click row \"lamp\""}, {}},
        {{"press Return", "type \"torch\"", "press Return"}, {"Rename Effect(s)"}},
        {{"click box of \"disc\""}, {"Switch Effect Off"}},
        {{"drag row \"disc\" above \"torch\""}, {""}},
        {{"drag row \"torch\" into \"Group 1\""}, {"Change Group", ""}},
        {{"choose \"Dots\" from \"Add Renderer\""}, {"Apply Effect", "Reorder Effect"}},
        {{"click row \"disc\"", "press Delete"}, {"Delete Effect(s)"}},
        {{"apply \"Vortan Jitter Effector\""}, {"Apply Effect"}},
        {{"rename \"mast\" to \"pole\""}, {"Rename Effect"}},
        // The objects of a group stand together in the tree, and so on the layer from then on.
        {{"move \"pole\" to place 1"}, {"Reorder Effect", "Reorder Effect(s)"}},
        {{"turn off \"lens\""}, {"Switch Effect Off"}},
        {{"duplicate \"lens\""}, {"Duplicate Effect"}},
        {{"delete \"pole\""}, {"Delete Effect"}},
        {{"a sibling refreshes the panel"}, {}},
        {{"a sibling notifies \"Saved\""}, {}},
        {{"cover the panel", "open the panel"}, {}},
    };
    return all;
}

/// Plays all changes; `look` is called after each line.
template <class Look>
void playChanges(PanelScene& scene, Look look)
{
    for (const Change& change : changes())
        for (const std::string& line : change.lines)
        {
            scene.Do(line);
            look(change);
        }
}

struct BalanceScene : PanelScene
{
    explicit BalanceScene(Trial& theTrial) : PanelScene(theTrial)
    {
        AddFourObjects();
        OpenPanel();
    }
};

int count(const std::vector<std::string>& calls, const std::string& function)
{
    return static_cast<int>(std::count_if(calls.begin(), calls.end(),
                                          [&](const std::string& call)
                                          { return call.find(function) != std::string::npos; }));
}

std::vector<std::string> heldSuites(PanelScene& scene)
{
    std::vector<std::string> held;
    for (const SuiteCounts::Held& each : scene.host().SensorsView().suites.AllHeld())
        held.push_back(each.Text());
    return held;
}
} // namespace

void ReferenceBalance(Trial& trial)
{
    BalanceScene scene(trial);
    int taken = 0;
    playChanges(scene,
                [&](const Change&)
                {
                    const auto& calls = scene.session.Calls();
                    taken += count(calls, "AEGP_GetLayerEffectByIndex");
                    trial.RequireEqual(scene.host().LeakedReferences(), 0,
                                       "the number of references that hooks have leaked");
                    trial.RequireNoFindings(scene.host());
                });
    trial.Require(taken > 1000, "hardly any reference was taken");
    scene.End();
}

void SuiteBalance(Trial& trial)
{
    BalanceScene scene(trial);
    const std::vector<std::string> held = heldSuites(scene);
    trial.RequireLines(held,
                       {"AEGP Command Suite 1: 1", "AEGP Item Suite 3: 1", "AEGP Register Suite 6: 1",
                        "AEGP Workspace Panel Suite 1: 2", "PF AE App Suite 6: 1"},
                       "the suites that are held");
    playChanges(scene, [&](const Change&)
                { trial.RequireLines(heldSuites(scene), held, "the suites that are held"); });
    scene.End();
}

void UndoBalance(Trial& trial)
{
    BalanceScene scene(trial);
    std::vector<std::string> expected;
    const Change* last = nullptr;
    std::size_t line = 0;
    playChanges(scene,
                [&](const Change& change)
                {
                    line = &change == last ? line + 1 : 1;
                    last = &change;
                    trial.RequireEqual(scene.host().UndoGroupsLeftOpen(), 0,
                                       "the number of undo groups that hooks have left open");
                    const auto& calls = scene.session.Calls();
                    trial.RequireEqual(count(calls, "AEGP_EndUndoGroup"), count(calls, "AEGP_StartUndoGroup"),
                                       "the number of undo groups that were closed, beside those opened,");
                    if (line == change.lines.size())
                        expected.insert(expected.end(), change.undoSteps.begin(), change.undoSteps.end());
                    trial.RequireLines(scene.host().UndoNames(), expected, "what can be undone");
                });
    while (!scene.host().UndoNames().empty())
        scene.Do("undo");
    scene.Do("a sibling refreshes the panel");
    scene.RequireAgreement();
    trial.RequireLines(scene.StackNames(), {"lamp", "mast", "lens", "disc"}, "the stack after all undos");
    scene.End();
}
} // namespace standin::check::bundles
