// The host idles inside each call of a change, an eighth of them in each run: nothing may come of it.

#include "standin/check/PanelScene.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/family/Sibling.h"

#include <functional>

namespace standin::check::bundles
{
namespace
{
/// A change that the next passes do, and how it is begun. Nothing idles in between.
struct SweptEdit
{
    const char* name;
    std::function<void()> begin;
};

/// What the passes of a change leave.
struct Left
{
    std::vector<std::string> calls;
    std::vector<std::string> printed;
    ProjectState project;
    std::vector<std::string> undoNames;
};

class IdleSweep
{
public:
    explicit IdleSweep(PanelScene& theScene) : scene(theScene), base(scene.host().State()) {}

    void Run(const SweptEdit& edit)
    {
        const std::string name = edit.name;
        scene.trial.At(name + ", and the host idles inside no call");
        // The first time the panel's view of the layer is another one than from then on.
        (void)carryOut(edit);
        const Left alone = carryOut(edit);
        std::size_t timesIdled = 0;
        for (std::size_t first = 1; first <= step; ++first)
        {
            scene.trial.At(name + ", and the host idles inside each " + std::to_string(step) +
                           "th call from call " + std::to_string(first) + " on");
            const Left left = carryOut(edit, alone.calls.size(), first);
            timesIdled += scene.host().Idles().TimesIdled();
            requireSame(left, alone);
        }
        scene.trial.RequireEqual(timesIdled, alone.calls.size(), "the number of calls it has idled inside");
        scene.trial.Require(alone.calls.size() > fewestCalls, name + " makes next to no calls");
    }

private:
    static constexpr std::size_t fewestCalls = 60;
    static constexpr std::size_t step = 8; ///< So many runs come to each call once.

    /// The host idles inside each step-th of so many calls, beginning with the first-th.
    Left carryOut(const SweptEdit& edit, std::size_t calls = 0, std::size_t first = 1)
    {
        constexpr int passesOfAChange = 2;
        reset();
        edit.begin();
        scene.host().Idles().InCalls(first, step, calls);
        for (int i = 0; i < passesOfAChange; ++i)
            scene.session.Idle();
        Left left{scene.session.Calls(), scene.session.Printed(), scene.host().State(),
                  scene.host().UndoNames()};
        scene.trial.RequireNoFindings(scene.host());
        return left;
    }

    /// The project as it was, without a history, and with the panel showing it.
    void reset()
    {
        constexpr int untilQuiet = 2;
        scene.host().Idles().Clear();
        scene.host().User().SelectLayers({scene.layer});
        scene.host().State() = base;
        scene.host().ForgetHistory();
        (void)Sibling(scene.host()).RefreshPanel();
        for (int i = 0; i < untilQuiet; ++i)
            scene.session.Idle();
        scene.host().ForgetHistory();
        scene.session.Forget();
    }

    void requireSame(const Left& left, const Left& alone) const
    {
        scene.trial.RequireLines(left.calls, alone.calls, "the calls");
        scene.trial.RequireLines(left.printed, alone.printed, "what is printed");
        scene.trial.RequireLines(left.undoNames, alone.undoNames, "what can be undone");
        scene.trial.Require(left.project == alone.project, "the project is another one afterwards");
    }

    PanelScene& scene;
    ProjectState base;
};
} // namespace

void PassInsidePass(Trial& trial)
{
    // The calls of the passes are compared: what else the keys bring about would stand among them.
    HostOptions options;
    options.keyUpdate = KeyUpdate::doesNothing;
    options.commandZero = CommandZero::neverComes;
    PanelScene scene(trial, options);
    const int outsiders = scene.host().AddLayer(scene.composition, "Solid 2");
    (void)scene.host().AddEffect(outsiders, "ADBE Tint", "tint");
    for (const char* name : {"post", "rope"})
        (void)scene.host().AddEffect(outsiders, "QVK VORTSRC Lamps", name);
    for (const char* name : {"lamp", "mast", "disc"})
        scene.AddObject(name);
    scene.OpenPanel();
    scene.Do("click row \"lamp\"");
    IdleSweep sweep(scene);
    const SweptEdit edits[] = {
        {"a rename",
         [&] {
             scene.PressUnseen({"Home", "Down", "Return", "x", "Return"});
         }},
        {"a deletion",
         [&] {
             scene.PressUnseen({"Home", "Down", "Delete"});
         }},
        {"a selection",
         [&] {
             scene.PressUnseen({"Home", "Down", "Down"});
         }},
        {"a change in the host", [&] { scene.host().User().Reorder("disc", 0); }},
        {"the showing of a layer with an outside effect on top",
         [&] { scene.host().User().SelectLayers({outsiders}); }},
    };
    for (const SweptEdit& edit : edits)
        sweep.Run(edit);
    scene.End();
}
} // namespace standin::check::bundles
