// The queue behind "Vortan Idle Suite v1".

#include "standin/checks/Checks.h"
#include "standin/checks/Scene.h"
#include "standin/checks/Trial.h"

#include <functional>

namespace standin::checks
{
namespace
{
/// A function on the queue: it writes its name down, and may do more.
struct Job
{
    std::string name;
    std::vector<std::string>* log;
    int pluginId = 0;
    void* basicSuite = nullptr;
    std::function<void()> action;
};

int runJob(int pluginId, void* basicSuite, void* refcon)
{
    Job& job = *static_cast<Job*>(refcon);
    job.pluginId = pluginId;
    job.basicSuite = basicSuite;
    job.log->push_back(job.name);
    if (job.action)
        job.action();
    return 17; // Nobody looks at it.
}

/// A host with the idle suite published.
struct QueueScene : Scene
{
    explicit QueueScene(Trial& theTrial) : Scene(theTrial.BundleFile()), trial(theTrial)
    {
        plugin = bundle.LoadIdleSuite(host);
        trial.Require(Published(idleSuite) != nullptr, "\"Vortan Idle Suite v1\" is not published");
    }

    Job NewJob(const std::string& name) { return {name, &log, 0, nullptr, {}}; }
    void Queue(Job& job)
    {
        trial.RequireEqual(sibling.QueueIdleFunction(&runJob, &job), 0, "the result of AddFuncToIdleStack");
    }

    Trial& trial;
    LoadedPlugin plugin;
    std::vector<std::string> log;
};
} // namespace

void IdleQueueOrder(Trial& trial)
{
    QueueScene scene(trial);
    Job a = scene.NewJob("a");
    Job b = scene.NewJob("b");
    Job c = scene.NewJob("c");
    for (Job* job : {&a, &b, &c})
        scene.Queue(*job);
    trial.RequireLines(scene.log, {}, "what ran before the idle");
    trial.RequireEqual(scene.host.RunIdle().error, errNone, "the result of the idle hook");
    trial.RequireLines(scene.log, {"a", "b", "c"}, "what ran in the first idle");
    trial.RequireEqual<A_long>(a.pluginId, scene.plugin.id, "the plug-in id that a function got");
    trial.Require(a.basicSuite == scene.host.BasicSuite(), "a function got another basic suite");
    (void)scene.host.RunIdle();
    trial.RequireLines(scene.log, {"a", "b", "c"}, "what ran by the second idle");
    trial.RequireNoFindings(scene.host);
}
} // namespace standin::checks
