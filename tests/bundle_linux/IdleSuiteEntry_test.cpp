// The entry point EffectorAEGP of the built bundle, the suite that it publishes and the hook that it
// registers.

#include "tests/bundle_linux/BundleTest.h"

#include <cstring>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/// What a queued function was called with, and what it does.
struct Job
{
    std::string name;
    std::vector<std::string>* log = nullptr;
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

int countCall(int, void*, void* refcon) { return ++*static_cast<int*>(refcon); }

class IdleSuiteEntry : public BundleTest
{
protected:
    IdleSuiteEntry() : plugin(LoadIdleSuite()) {}

    Job job(const std::string& name) { return {name, &log, 0, nullptr, {}}; }
    int queue(Job& queued) { return Idle().addFuncToIdleStack(Idle().ref, &runJob, &queued); }

    /// As an effect does it, which holds the suite meanwhile.
    void queueAsHolder(Job& queued)
    {
        const void* table = nullptr;
        ASSERT_EQ(Basic().acquire(idleSuiteName, 1, &table), errNone);
        const auto& idle = *static_cast<const IdleWords*>(table);
        EXPECT_EQ(idle.addFuncToIdleStack(idle.ref, &runJob, &queued), 0);
        EXPECT_EQ(Basic().release(idleSuiteName, 1), errNone);
    }

    /// A word of the queue: its slots stand behind the id and the basic suite.
    const void* slotWord(int slot, int word) { return WordOf(Idle().ref, 2 + 2 * slot + word); }

    LoadedPlugin plugin;
    std::vector<std::string> log;
};
} // namespace

TEST_F(IdleSuiteEntry, CallsTheHostInThisOrder)
{
    EXPECT_EQ(plugin.result.error, errNone);
    EXPECT_THAT(TakeCalls(),
                ElementsAre(R"(Basic AcquireSuite("SP Suites Suite", 2))",
                            R"(Suites 2 AddSuite(null, null, "Vortan Idle Suite v1", 1, 1, table))",
                            R"(Basic ReleaseSuite("SP Suites Suite", 2))",
                            R"(Basic AcquireSuite("SP Suites Suite", 2))",
                            R"(Basic ReleaseSuite("SP Suites Suite", 2))",
                            R"(Basic AcquireSuite("AEGP Register Suite", 6))",
                            R"(Basic AcquireSuite("AEGP Utility Suite", 7))",
                            "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
                            R"(Basic ReleaseSuite("AEGP Register Suite", 6))",
                            R"(Basic ReleaseSuite("AEGP Utility Suite", 7))"));
    host.CheckSuiteBalance();
}

TEST_F(IdleSuiteEntry, HandsOutABlockWithItsIdAndTheBasicSuite)
{
    std::int32_t id = 0;
    std::memcpy(&id, plugin.globalRefcon, sizeof id);
    EXPECT_EQ(id, plugin.id);
    EXPECT_EQ(WordOf(plugin.globalRefcon, 1), host.BasicSuite());
}

TEST_F(IdleSuiteEntry, PublishesATableOfTwoWords)
{
    const void* table = Published(idleSuiteName);
    ASSERT_NE(table, nullptr);
    EXPECT_NE(WordOf(table, 0), nullptr);
    EXPECT_NE(WordOf(table, 1), nullptr);
    const void* ref = WordOf(table, 0);
    std::int32_t id = 0;
    std::memcpy(&id, ref, sizeof id);
    EXPECT_EQ(id, plugin.id);
    EXPECT_EQ(WordOf(ref, 1), host.BasicSuite());
    for (int slot = 0; slot < 32; ++slot)
    {
        EXPECT_EQ(slotWord(slot, 0), nullptr);
        EXPECT_EQ(slotWord(slot, 1), nullptr);
    }
}

TEST_F(IdleSuiteEntry, RunsWhatIsQueuedOnceInTheOrderOfQueueing)
{
    Job a = job("a");
    Job b = job("b");
    EXPECT_EQ(queue(a), 0);
    EXPECT_EQ(queue(b), 0);
    EXPECT_EQ(slotWord(0, 1), &a);
    EXPECT_EQ(slotWord(1, 1), &b);
    EXPECT_EQ(host.RunIdle().error, errNone);
    EXPECT_THAT(log, ElementsAre("a", "b"));
    EXPECT_EQ(host.RunIdle().error, errNone);
    EXPECT_THAT(log, ElementsAre("a", "b"));
    EXPECT_EQ(slotWord(0, 0), nullptr);
    EXPECT_EQ(slotWord(0, 1), nullptr);
}

TEST_F(IdleSuiteEntry, CallsWithTheBundlesIdAndBasicSuite)
{
    Job a = job("a");
    (void)queue(a);
    (void)host.RunIdle();
    EXPECT_EQ(a.pluginId, plugin.id);
    EXPECT_EQ(a.basicSuite, host.BasicSuite());
}

TEST_F(IdleSuiteEntry, TakesThirtyTwoAndRefusesTheNextWithAnAlert)
{
    std::vector<Job> jobs;
    for (int i = 0; i < 33; ++i)
        jobs.push_back(job(std::to_string(i)));
    for (int i = 0; i < 32; ++i)
        EXPECT_EQ(queue(jobs[static_cast<std::size_t>(i)]), 0);
    EXPECT_THAT(AlertTexts(), IsEmpty());
    (void)TakeCalls();
    (void)host.RunInHook([&] { queueAsHolder(jobs[32]); });
    EXPECT_THAT(TakeCalls(),
                ElementsAre(R"(Basic AcquireSuite("Vortan Idle Suite v1", 1))",
                            R"(Basic AcquireSuite("AEGP Utility Suite", 11))",
                            R"(Utility 11 AEGP_ReportInfo(id 8, "Max Idle Stack Limit Reached."))",
                            R"(Basic ReleaseSuite("AEGP Utility Suite", 11))",
                            R"(Basic ReleaseSuite("Vortan Idle Suite v1", 1))"));
    EXPECT_THAT(AlertTexts(), ElementsAre("Max Idle Stack Limit Reached."));
    EXPECT_EQ(host.Alerts().at(0).pluginId, plugin.id);
    (void)host.RunIdle();
    ASSERT_EQ(log.size(), 32u);
    EXPECT_EQ(log.front(), "0");
    EXPECT_EQ(log.back(), "31");
    for (int i = 0; i < 32; ++i)
        (void)queue(jobs[static_cast<std::size_t>(i)]);
    (void)host.RunIdle();
    EXPECT_EQ(log.size(), 64u);
    EXPECT_EQ(AlertTexts().size(), 1u);
}

TEST_F(IdleSuiteEntry, DropsTheThirtyThirdInSilenceWithoutTheSuiteForTheAlert)
{
    int calls = 0;
    const IdleWords& table = Idle();
    for (int i = 0; i < 32; ++i)
        (void)table.addFuncToIdleStack(table.ref, &countCall, &calls);
    host.Faults().Withhold("AEGP Utility Suite", 11);
    host.Expect("over-released-suite", "ReleaseSuite", "it is released also when it was not obtained");
    (void)TakeCalls();
    (void)host.RunInHook([&] { EXPECT_EQ(table.addFuncToIdleStack(table.ref, &countCall, &calls), 0); });
    EXPECT_THAT(TakeCalls(),
                ElementsAre(testing::HasSubstr("Basic AcquireSuite(\"AEGP Utility Suite\", 11)"),
                            testing::HasSubstr("Basic ReleaseSuite(\"AEGP Utility Suite\", 11)")));
    EXPECT_THAT(AlertTexts(), IsEmpty());
    (void)host.RunIdle();
    EXPECT_EQ(calls, 32);
}

TEST_F(IdleSuiteEntry, DoesNotStoreAnEntryOfTwoNulls)
{
    Job a = job("a");
    EXPECT_EQ(Idle().addFuncToIdleStack(Idle().ref, nullptr, nullptr), 0);
    (void)queue(a);
    EXPECT_EQ(slotWord(0, 1), &a);
    (void)host.RunIdle();
    EXPECT_THAT(log, ElementsAre("a"));
}

TEST_F(IdleSuiteEntry, StoresAnEntryWithoutAFunctionAndClearsItUncalled)
{
    int mark = 0;
    Job a = job("a");
    EXPECT_EQ(Idle().addFuncToIdleStack(Idle().ref, nullptr, &mark), 0);
    (void)queue(a);
    EXPECT_EQ(slotWord(0, 1), &mark);
    EXPECT_EQ(slotWord(1, 1), &a);
    (void)host.RunIdle();
    EXPECT_THAT(log, ElementsAre("a"));
    EXPECT_EQ(slotWord(0, 1), nullptr);
}

TEST_F(IdleSuiteEntry, CallsAFunctionWithANullRefcon)
{
    static int calls = 0;
    calls = 0;
    const auto count = [](int, void*, void*) { return ++calls; };
    (void)Idle().addFuncToIdleStack(Idle().ref, count, nullptr);
    (void)host.RunIdle();
    EXPECT_EQ(calls, 1);
}

TEST_F(IdleSuiteEntry, RunsWhatTheOnlyEntryQueuesInTheSamePass)
{
    Job inner = job("inner");
    Job outer = job("outer");
    outer.action = [&] { (void)queue(inner); };
    (void)queue(outer);
    (void)host.RunIdle();
    EXPECT_THAT(log, ElementsAre("outer", "inner"));
}

TEST_F(IdleSuiteEntry, RunsWhatALaterEntryQueuesAtTheNextPass)
{
    Job inner = job("inner");
    Job first = job("first");
    Job second = job("second");
    second.action = [&] { (void)queue(inner); };
    (void)queue(first);
    (void)queue(second);
    (void)host.RunIdle();
    EXPECT_THAT(log, ElementsAre("first", "second"));
    EXPECT_EQ(slotWord(0, 1), &inner);
    (void)host.RunIdle();
    EXPECT_THAT(log, ElementsAre("first", "second", "inner"));
}

TEST_F(IdleSuiteEntry, AnEmptyQueueCallsNobody)
{
    (void)TakeCalls();
    EXPECT_EQ(host.RunIdle().error, errNone);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(IdleSuiteEntry, WritesNothing)
{
    Job a = job("a");
    EXPECT_EQ(OutputOf(
                  [&]
                  {
                      (void)queue(a);
                      (void)host.RunIdle();
                  }),
              "");
}

namespace
{
enum class First
{
    idleSuite,
    panel
};

class BothEntries : public BundleTest, public testing::WithParamInterface<First>
{
protected:
    BothEntries()
    {
        if (GetParam() == First::panel)
            panelPlugin = LoadPanel();
        idlePlugin = LoadIdleSuite();
        if (GetParam() == First::idleSuite)
            panelPlugin = LoadPanel();
    }

    /// The record behind the idle suite, and the one behind the panel suite up to its text.
    static constexpr std::size_t idleRecordSize = 16 + 32 * 16;
    static constexpr std::size_t panelRecordSize = 19;

    static std::string bytesAt(const void* record, std::size_t size)
    {
        return {static_cast<const char*>(record), size};
    }

    LoadedPlugin idlePlugin;
    LoadedPlugin panelPlugin;
};
} // namespace

TEST_P(BothEntries, StartWhicheverTheHostCallsFirst)
{
    EXPECT_EQ(idlePlugin.result.error, errNone);
    EXPECT_EQ(panelPlugin.result.error, errNone);
    EXPECT_NE(idlePlugin.globalRefcon, panelPlugin.globalRefcon);
    EXPECT_NE(Idle().ref, PanelTable().panelRef);
    std::int32_t id = 0;
    std::memcpy(&id, Idle().ref, sizeof id);
    EXPECT_EQ(id, idlePlugin.id);
    std::memcpy(&id, PanelTable().panelRef, sizeof id);
    EXPECT_EQ(id, panelPlugin.id);
}

TEST_P(BothEntries, LeaveEachOthersRecordsAlone)
{
    const IdleWords& idle = Idle();
    const PanelWords& panel = PanelTable();
    int calls = 0;
    std::string before = bytesAt(panel.panelRef, panelRecordSize);
    (void)idle.addFuncToIdleStack(idle.ref, &countCall, &calls);
    EXPECT_EQ(bytesAt(panel.panelRef, panelRecordSize), before);

    before = bytesAt(idle.ref, idleRecordSize);
    (void)panel.refreshPanel(panel.panelRef);
    (void)panel.panelNotify(panel.panelRef, "text");
    (void)panel.openPanel(panel.panelRef, 1);
    EXPECT_EQ(bytesAt(idle.ref, idleRecordSize), before);

    // One idle of the host serves both.
    host.Faults().FailFunction("AEGP_DoCommand");
    (void)TakeCalls();
    EXPECT_EQ(host.RunIdle().thrown, "");
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(TakeCalls(SuiteTraffic::leftOut).at(0), "Command 1 AEGP_DoCommand(1001) = 1");
}

INSTANTIATE_TEST_SUITE_P(Orders, BothEntries, testing::Values(First::idleSuite, First::panel));
