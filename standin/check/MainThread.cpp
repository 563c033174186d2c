// When and where the bundle calls the host: inside a hook, on the host's main thread.

#include "standin/check/PanelScene.h"

#include <thread>

namespace standin::check::bundles
{
namespace
{
/// Time passes, and the host runs no hook.
void requireSilence(PanelScene& scene, const std::string& when)
{
    const std::size_t before = scene.host().Trace().Count();
    for (int i = 0; i < 20; ++i)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        (void)scene.session.HostKeys(); // The host's own windows get their events.
    }
    scene.trial.RequireEqual(scene.host().Trace().Count(), before,
                             "the number of host calls by then, while the host runs no hook, " + when + ",");
}
} // namespace

void MainThread(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    requireSilence(scene, "before the panel is open");
    scene.Do("a sibling opens the panel");
    scene.Do("a sibling notifies \"Saved\"");
    requireSilence(scene, "while a notification is shown");
    scene.held = script::IdleHeld::yes;
    scene.Do("click row \"lamp\"");
    requireSilence(scene, "after a click on a row");
    scene.session.IdleFor(std::chrono::milliseconds(100));
    scene.Do("press Delete");
    requireSilence(scene, "after the Delete key");
    scene.held = script::IdleHeld::no;
    scene.Do("turn off \"mast\"");
    trial.RequireLines(scene.StackNames(), {"mast", "lens", "disc"}, "the stack");
    scene.RequireAgreement();
    scene.End();
}
} // namespace standin::check::bundles
