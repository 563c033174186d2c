// The host idles inside each call of a change in turn: nothing may come of it.

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
        (void)carryOut(edit, 0);
        const Left alone = carryOut(edit, 0);
        std::size_t ordinal = 1;
        for (;; ++ordinal)
        {
            const bool isCall = ordinal <= alone.calls.size();
            scene.trial.At(name + ", and the host idles inside call " + std::to_string(ordinal) +
                           (isCall ? ": " + alone.calls[ordinal - 1] : ""));
            const Left left = carryOut(edit, ordinal);
            if (scene.host().Idles().TimesIdled() == 0)
                break;
            requireSame(left, alone);
        }
        scene.trial.RequireEqual(ordinal - 1, alone.calls.size(), "the number of calls it has idled inside");
        scene.trial.Require(alone.calls.size() > fewestCalls, name + " makes next to no calls");
    }

private:
    static constexpr std::size_t fewestCalls = 60;

    /// `ordinal` 0 for no call.
    Left carryOut(const SweptEdit& edit, std::size_t ordinal)
    {
        constexpr int passesOfAChange = 2;
        reset();
        edit.begin();
        scene.host().Idles().InCall(ordinal);
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
