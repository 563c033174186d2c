// The queue behind "Vortan Idle Suite v1".

#include "standin/check/Scene.h"
#include "standin/check/Trial.h"
#include "standin/host/sensors/FindingIds.h"

#include <functional>

namespace standin::check::bundles
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
    return 17; // It is ignored.
}

/// A host with the idle suite published.
struct QueueScene : Scene
{
    explicit QueueScene(Trial& theTrial) : Scene(theTrial.File()), trial(theTrial)
    {
        plugin = bundle.LoadIdleSuite(host);
        trial.Require(Published(idleSuite) != nullptr, "\"Vortan Idle Suite v1\" is not published");
    }

    Job NewJob(const std::string& name) { return {name, &log, 0, nullptr, {}}; }
    void Queue(Job& job) { QueueRaw(&runJob, &job); }
    void QueueRaw(IdleFunction function, void* refcon)
    {
        trial.RequireEqual(sibling.QueueIdleFunction(function, refcon), 0,
                           "the result of AddFuncToIdleStack");
    }
    void Idle() { trial.RequireEqual(host.RunIdle().error, errNone, "the result of the idle hook"); }
    void RequireLog(const std::vector<std::string>& expected, const std::string& when)
    {
        trial.RequireLines(log, expected, "what has run " + when);
    }

    Trial& trial;
    LoadedPlugin plugin;
    std::vector<std::string> log;
};
} // namespace

void IdleSuiteTable(Trial& trial)
{
    QueueScene scene(trial);
    const void* table = scene.Published(Scene::idleSuite);
    trial.Require(WordOf(table, 0) != nullptr,
                  "the first word of the idle suite's table, its reference, is 0");
    trial.Require(WordOf(table, 1) != nullptr,
                  "the second word of the idle suite's table, its function, is 0");
    trial.Require(table == scene.Published(Scene::idleSuite), "two siblings get different tables");
    (void)scene.TakeCalls();
    scene.QueueRaw(nullptr, nullptr);
    trial.RequireLines(scene.TakeCalls(),
                       {R"(Basic AcquireSuite("Vortan Idle Suite v1", 1))",
                        R"(Basic ReleaseSuite("Vortan Idle Suite v1", 1))"},
                       "the host calls of a sibling that queues");
    trial.RequireNoFindings(scene.host);
}

void IdleQueueOrder(Trial& trial)
{
    QueueScene scene(trial);
    Job a = scene.NewJob("a");
    Job b = scene.NewJob("b");
    Job c = scene.NewJob("c");
    for (Job* job : {&a, &b, &c})
        scene.Queue(*job);
    scene.RequireLog({}, "before the idle");
    scene.Idle();
    scene.RequireLog({"a", "b", "c"}, "after the first idle");
    trial.RequireEqual<A_long>(a.pluginId, scene.plugin.id, "the plug-in id that a function got");
    trial.Require(a.basicSuite == scene.host.BasicSuite(), "a function got another basic suite");
    scene.Idle();
    scene.RequireLog({"a", "b", "c"}, "after the second idle");
    trial.RequireNoFindings(scene.host);
}

void IdleQueueFull(Trial& trial)
{
    constexpr int room = 32;
    QueueScene scene(trial);
    std::vector<Job> jobs;
    std::vector<std::string> names;
    for (int i = 0; i <= room; ++i)
        jobs.push_back(scene.NewJob(std::to_string(i)));
    for (int i = 0; i < room; ++i)
    {
        scene.Queue(jobs[static_cast<std::size_t>(i)]);
        names.push_back(std::to_string(i));
    }
    trial.RequireLines(scene.host.AlertTexts(), {}, "the alerts while there is room");
    scene.Queue(jobs.back());
    trial.RequireLines(scene.host.AlertTexts(), {"Max Idle Stack Limit Reached."},
                       "the alerts of a full queue");
    trial.RequireEqual(scene.host.Alerts().front().pluginId, scene.plugin.id, "the plug-in id of the alert");
    scene.Idle();
    scene.RequireLog(names, "with a full queue");
    scene.Queue(jobs.back());
    scene.Idle();
    names.push_back(jobs.back().name);
    scene.RequireLog(names, "when there is room again");
    trial.RequireEqual<std::size_t>(scene.host.Alerts().size(), 1, "the number of alerts");
    trial.RequireNoFindings(scene.host);
}

void IdleQueueRequeue(Trial& trial)
{
    QueueScene scene(trial);
    Job inner = scene.NewJob("inner");
    Job outer = scene.NewJob("outer");
    outer.action = [&] { scene.Queue(inner); };
    scene.Queue(outer);
    scene.Idle();
    scene.RequireLog({"outer", "inner"}, "after the only entry has queued another");

    scene.log.clear();
    Job first = scene.NewJob("first");
    Job second = scene.NewJob("second");
    second.action = [&] { scene.Queue(inner); };
    scene.Queue(first);
    scene.Queue(second);
    scene.Idle();
    scene.RequireLog({"first", "second"}, "in the pass in which a later entry queues another");
    scene.Idle();
    scene.RequireLog({"first", "second", "inner"}, "in the pass after it");
    trial.RequireNoFindings(scene.host);
}

void IdleQueueThrow(Trial& trial)
{
    QueueScene scene(trial);
    scene.host.Expect(finding::exceptionLeftHook, "", "what a queued function throws is the host's to catch")
        .In("IdleHook")
        .Times(1);
    Job wild = scene.NewJob("wild");
    Job tame = scene.NewJob("tame");
    bool throws = true;
    wild.action = [&]
    {
        if (throws)
            throw 42;
    };
    scene.Queue(wild);
    scene.Queue(tame);
    const HookResult result = scene.host.RunIdle();
    trial.RequireEqual(result.thrownNumber.value_or(0), 42, "the integer that left the idle hook");
    scene.RequireLog({"wild"}, "when the first of two has thrown");
    throws = false;
    scene.Idle();
    trial.Require(!scene.log.empty() && scene.log.back() == "tame",
                  "what was queued after a function that threw never runs; what ran is " +
                      ListText(scene.log));
    trial.RequireNoFindings(scene.host);
}

void IdleQueueNulls(Trial& trial)
{
    QueueScene scene(trial);
    Job a = scene.NewJob("a");
    int mark = 0;
    trial.At("an entry of two nulls, which is no entry");
    scene.QueueRaw(nullptr, nullptr);
    scene.Queue(a);
    scene.Idle();
    scene.RequireLog({"a"}, "after an entry of two nulls");
    trial.At("an entry with a refcon and no function, which is passed over");
    scene.QueueRaw(nullptr, &mark);
    scene.Queue(a);
    scene.Idle();
    scene.RequireLog({"a", "a"}, "after an entry without a function");
    trial.At("an entry with a function and no refcon");
    static int calls = 0;
    scene.QueueRaw([](int, void*, void*) { return ++calls; }, nullptr);
    scene.Idle();
    trial.RequireEqual(calls, 1, "the number of calls of a function without a refcon");
    trial.RequireNoFindings(scene.host);
}
} // namespace standin::check::bundles
