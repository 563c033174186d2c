// What a strict host reports and the bundle does on purpose: each has to appear in its situation, and nothing
// else may.

#include "standin/check/PanelScene.h"
#include "standin/check/Scene.h"
#include "standin/host/sensors/FindingIds.h"

namespace standin::check::bundles
{
namespace
{
int nothing(int, void*, void*) { return 0; }

void secondAcquire(Trial& trial)
{
    trial.At("the start of the idle suite, on a host that reports what is acquired and not used");
    HostOptions options;
    options.unusedAcquire = UnusedAcquire::isFinding;
    Scene scene(trial.File(), options);
    scene.host
        .Expect(finding::unusedSuite, "ReleaseSuite",
                "the registry is acquired once more than it is used, and the suite for alerts in case of one")
        .In("EntryPoint")
        .Times(2);
    trial.RequireEqual(scene.bundle.LoadIdleSuite(scene.host).result.error, errNone,
                       "the result of EffectorAEGP");
    trial.RequireNoFindings(scene.host);
}

void releaseWithoutAcquire(Trial& trial)
{
    trial.At("a full idle queue, while the suite for alerts is missing");
    constexpr int room = 32;
    Scene scene(trial.File());
    (void)scene.bundle.LoadIdleSuite(scene.host);
    int mark = 0;
    for (int i = 0; i < room; ++i)
        (void)scene.sibling.QueueIdleFunction(&nothing, &mark);
    trial.RequireNoFindings(scene.host);
    scene.host.Faults().Withhold("AEGP Utility Suite", 11);
    scene.host
        .Expect(finding::overReleasedSuite, "ReleaseSuite",
                "the suite is released also when it was not obtained")
        .In("")
        .Times(1);
    trial.RequireEqual(scene.sibling.QueueIdleFunction(&nothing, &mark), 0, "the result of the function");
    trial.RequireEqual<std::size_t>(scene.host.Alerts().size(), 0, "the number of alerts");
    trial.RequireNoFindings(scene.host);
}

void groupsLeftOpen(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.OpenPanel();
    scene.host()
        .Expect(finding::undoGroupLeftOpen, "AEGP_StartUndoGroup",
                "the group ends only when every call behind its start went well")
        .In("IdleHook")
        .Times(1);
    scene.host()
        .Expect(finding::nestedUndoGroup, "AEGP_StartUndoGroup",
                "what the pass does next is inside the group that was left")
        .In("IdleHook")
        .Times(5);
    scene.Do("click row \"lamp\"");
    scene.Do("press Return");
    scene.Do("type \"torch\"");
    scene.host().Faults().FailFunction("AEGP_SetStreamName");
    scene.Do("press Return");
    scene.Do("a sibling refreshes the panel");
    scene.RequireAgreement();
    trial.RequireNoFindings(scene.host());

    scene.host()
        .Expect(finding::undoGroupLeftOpen, "AEGP_StartUndoGroup", "so does the group of a deletion")
        .In("IdleHook")
        .Times(1);
    scene.host()
        .Expect(finding::nestedUndoGroup, "AEGP_StartUndoGroup", "the pass goes on inside this one too")
        .In("IdleHook");
    scene.host()
        .Expect(finding::nullReference, "AEGP_DeleteLayerEffect",
                "the second sweep deletes as often as effects were doomed")
        .In("IdleHook")
        .Times(1);
    scene.Do("click row \"disc\"");
    scene.host().Faults().FailFunction("AEGP_ReorderEffect");
    scene.Do("press Delete");
    trial.RequireLines(scene.StackNames(), {"lamp", "mast", "lens", "disc"}, "the stack");
    scene.End();
}
} // namespace

void KeptFindings(Trial& trial)
{
    secondAcquire(trial);
    releaseWithoutAcquire(trial);
    groupsLeftOpen(trial);
}
} // namespace standin::check::bundles
