// The host's end: the death hooks, and the process after them.

#if STANDIN_HAS_SCREEN
#include "standin/check/PanelScene.h"
#endif
#include "standin/check/Scene.h"
#include "standin/check/Trial.h"

namespace standin::check::bundles
{
void DeathHook(Trial& trial)
{
    for (const SuitesAtDeath suites : {SuitesAtDeath::work, SuitesAtDeath::fail})
    {
        trial.At(suites == SuitesAtDeath::work ? "suites work in the death hook"
                                               : "suites fail in the death hook");
        HostOptions options;
        options.suitesAtDeath = suites;
        Scene scene(trial.File(), options);
        scene.bundle.LoadAll(scene.host);
        (void)scene.host.RunIdle();
        (void)scene.TakeCalls();
        scene.Quit();
        trial.RequireLines(scene.TakeCalls(), {}, "the host calls of the death hook");
        trial.RequireNoFindings(scene.host);
    }
}

#if STANDIN_HAS_SCREEN
void ProcessEnd(Trial& trial)
{
    {
        PanelScene scene(trial);
        scene.AddFourObjects();
        scene.OpenPanel();
        scene.Do("a sibling notifies \"Saved\"");
        scene.Do("click row \"lamp\"");
        scene.End();
    }
}

void ContainerGoesFirst(Trial& trial)
{
    HostOptions options;
    options.deathOrder = DeathOrder::containersFirst;
    // It reports the X errors that would end another host.
    options.xErrors = XErrors::areCounted;
    PanelScene scene(trial, options);
    scene.AddFourObjects();
    scene.OpenPanel();
    scene.Do("click row \"lamp\"");
    scene.End();
}
#else
void ProcessEnd(Trial& trial)
{
    {
        Scene scene(trial.File());
        scene.bundle.LoadAll(scene.host);
        trial.RequireEqual(scene.host.RunIdle().error, errNone, "the result of the idle hooks");
        scene.Quit();
        trial.RequireNoFindings(scene.host);
    }
}
#endif
} // namespace standin::check::bundles
