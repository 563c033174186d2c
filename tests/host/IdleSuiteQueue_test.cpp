// The queue of functions for the host's next idle: what is stored, what runs when, and what a full queue
// does.

#include "standin/host/sensors/FindingIds.h"
#include "tests/host/FailingBasic.h"
#include "tests/host/IdleQueueTest.h"

#include <gmock/gmock.h>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(IdleQueue, AnEmptyQueueMakesNoCall)
{
    EXPECT_THAT(RunIdle(), IsEmpty());
    EXPECT_THAT(host.CallTexts(), IsEmpty());
}

TEST_F(IdleQueue, AFunctionRunsOnceAtTheNextIdle)
{
    Job job = MakeJob("A");
    EXPECT_EQ(Queue(job), 0);
    EXPECT_THAT(ran, IsEmpty()) << "nothing runs inside the caller";
    EXPECT_THAT(RunIdle(), ElementsAre("A"));
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueue, AFunctionGetsIdBasicSuiteAndRefcon)
{
    struct Arguments
    {
        int pluginId = 0;
        SPBasicSuite* basicSuite = nullptr;
        void* refcon = nullptr;
    } seen;
    const IdleFunc note = [](int pluginId, SPBasicSuite* basicSuite, void* refcon)
    {
        *static_cast<Arguments*>(refcon) = {pluginId, basicSuite, refcon};
        return 0;
    };
    EXPECT_EQ(AddFuncToIdleStack(&ref, note, &seen), 0);
    RunIdle();
    EXPECT_EQ(seen.pluginId, 7);
    EXPECT_EQ(seen.basicSuite, host.BasicSuite());
    EXPECT_EQ(seen.refcon, &seen);
}

TEST_F(IdleQueue, FunctionsRunInTheOrderQueued)
{
    Job a = MakeJob("A");
    Job b = MakeJob("B");
    Job c = MakeJob("C");
    Queue(a);
    Queue(b);
    Queue(c);
    EXPECT_THAT(RunIdle(), ElementsAre("A", "B", "C"));
}

TEST_F(IdleQueue, TheHookLeavesTheHostsMaxSleepAlone)
{
    A_long maxSleep = 1234;
    EXPECT_EQ(::IdleHook(nullptr, &ref, &maxSleep), A_Err_NONE);
    EXPECT_EQ(maxSleep, 1234);
}

TEST_F(IdleQueue, ThirtyTwoEntriesFitAndAllRun)
{
    Job job = MakeJob("A");
    QueueTimes(32, job);
    EXPECT_THAT(host.CallTexts(), IsEmpty());
    EXPECT_EQ(RunIdle(), Names(32, "A"));
}

TEST_F(IdleQueue, TheThirtyThirdEntryIsReportedAndDropped)
{
    Job job = MakeJob("A");
    Job late = MakeJob("late");
    QueueTimes(32, job);
    EXPECT_EQ(Queue(late), 0);
    EXPECT_THAT(host.CallTexts(),
                ElementsAre(R"(Basic AcquireSuite("AEGP Utility Suite", 11))",
                            R"(Utility 11 AEGP_ReportInfo(id 7, "Max Idle Stack Limit Reached."))",
                            R"(Basic ReleaseSuite("AEGP Utility Suite", 11))"));
    EXPECT_THAT(host.AlertTexts(), ElementsAre("Max Idle Stack Limit Reached."));
    EXPECT_EQ(host.Alerts().at(0).pluginId, 7);
    EXPECT_EQ(RunIdle(), Names(32, "A"));
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueue, AnIdleMakesRoomForThirtyTwoMore)
{
    Job first = MakeJob("first");
    Job second = MakeJob("second");
    QueueTimes(33, first);
    RunIdle();
    QueueTimes(32, second);
    EXPECT_EQ(host.Alerts().size(), 1u) << "the one of the first round";
    EXPECT_EQ(RunIdle(), Names(32, "second"));
}

TEST_F(IdleQueue, AFullQueueReleasesAMissingUtilitySuite)
{
    host.Expect(finding::overReleasedSuite, "ReleaseSuite", "released whether or not it was obtained");
    Job job = MakeJob("A");
    Job late = MakeJob("late");
    QueueTimes(32, job);
    host.Faults().Withhold("AEGP Utility Suite", 11);
    EXPECT_EQ(Queue(late), 0);
    EXPECT_THAT(host.CallTexts(),
                ElementsAre(R"(Basic AcquireSuite("AEGP Utility Suite", 11) = 1394689636)",
                            R"(Basic ReleaseSuite("AEGP Utility Suite", 11) = 1397908844)"));
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
    EXPECT_EQ(RunIdle(), Names(32, "A"));
}

TEST_F(IdleQueue, AFullQueueSurvivesAnUntouchedPointer)
{
    host.Options().failedAcquire = FailedAcquire::leavesPointerAlone;
    host.Expect(finding::overReleasedSuite, "ReleaseSuite", "released whether or not it was obtained");
    Job job = MakeJob("A");
    QueueTimes(32, job);
    host.Faults().Withhold("AEGP Utility Suite", 11);
    EXPECT_EQ(Queue(job), 0);
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
}

TEST_F(IdleQueue, AFullQueueUsesASuiteWithError)
{
    Job job = MakeJob("A");
    QueueTimes(32, job);
    FailingBasic failing(host, "AEGP Utility Suite");
    ref.basicSuite = failing.Basic();
    EXPECT_EQ(Queue(job), 0);
    EXPECT_THAT(host.CallTexts(),
                ElementsAre(R"(Basic AcquireSuite("AEGP Utility Suite", 11))",
                            R"(Utility 11 AEGP_ReportInfo(id 7, "Max Idle Stack Limit Reached."))",
                            R"(Basic ReleaseSuite("AEGP Utility Suite", 11))"));
    EXPECT_THAT(host.AlertTexts(), ElementsAre("Max Idle Stack Limit Reached."));
}

TEST_F(IdleQueue, AFullQueueCallsAPoisonedUtilitySuite)
{
    host.Expect(finding::poisonedTable, "", "the result of the acquire is not looked at");
    host.Expect(finding::overReleasedSuite, "ReleaseSuite", "released whether or not it was obtained");
    Job job = MakeJob("A");
    QueueTimes(32, job);
    host.Faults().Withhold("AEGP Utility Suite", 11, Withheld::asPoisonedPointer);
    EXPECT_EQ(Queue(job), 0);
    EXPECT_THAT(host.AlertTexts(), IsEmpty());
    EXPECT_EQ(host.CallTexts().back(), R"(Basic ReleaseSuite("AEGP Utility Suite", 11) = 1397908844)");
}

TEST_F(IdleQueue, AnEntryOfTwoNullsIsNotStored)
{
    EXPECT_EQ(AddFuncToIdleStack(&ref, nullptr, nullptr), 0);
    Job job = MakeJob("A");
    Queue(job);
    EXPECT_EQ(ref.idleSlots[0].refcon, &job) << "the later entry lands in the same place";
    EXPECT_EQ(ref.idleSlots[1].refcon, nullptr);
    EXPECT_THAT(RunIdle(), ElementsAre("A"));
}

TEST_F(IdleQueue, ANullFunctionTakesASlotOnce)
{
    int refcon = 0;
    Job job = MakeJob("A");
    EXPECT_EQ(AddFuncToIdleStack(&ref, nullptr, &refcon), 0);
    Queue(job);
    EXPECT_EQ(ref.idleSlots[0].func, nullptr);
    EXPECT_EQ(ref.idleSlots[0].refcon, &refcon);
    EXPECT_EQ(ref.idleSlots[1].refcon, &job);
    EXPECT_THAT(RunIdle(), ElementsAre("A")) << "the pass goes on after it";
    EXPECT_EQ(ref.idleSlots[0].refcon, nullptr);
    EXPECT_EQ(ref.idleSlots[1].refcon, nullptr);
}

TEST_F(IdleQueue, ANullRefconIsStoredAndPassed)
{
    static int calls = 0;
    calls = 0;
    const IdleFunc count = [](int, SPBasicSuite*, void* refcon)
    {
        EXPECT_EQ(refcon, nullptr);
        return ++calls;
    };
    EXPECT_EQ(AddFuncToIdleStack(&ref, count, nullptr), 0);
    EXPECT_EQ(AddFuncToIdleStack(&ref, count, nullptr), 0);
    RunIdle();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(ref.idleSlots[0].func, nullptr);
    EXPECT_EQ(ref.idleSlots[1].func, nullptr);
}

TEST_F(IdleQueue, TheFirstFreeSlotEndsThePass)
{
    Job a = MakeJob("A");
    Job c = MakeJob("C");
    ref.idleSlots[0] = {&runJob, &a};
    ref.idleSlots[2] = {&runJob, &c};
    EXPECT_THAT(RunIdle(), ElementsAre("A"));
    EXPECT_EQ(ref.idleSlots[2].refcon, &c);

    Job d = MakeJob("D");
    Job e = MakeJob("E");
    Queue(d);
    Queue(e);
    EXPECT_THAT(RunIdle(), ElementsAre("D", "E", "C"));
}

TEST_F(IdleQueue, TheFirstFunctionsEntryRunsInThatPass)
{
    Job b = MakeJob("B");
    Job a = MakeJob("A");
    Job last = MakeJob("last");
    a.inside = [&] { EXPECT_EQ(AddFuncToIdleStack(&ref, &runJob, &b), 0); };
    Queue(a);
    Queue(last);
    EXPECT_THAT(RunIdle(), ElementsAre("A", "last", "B"));
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueue, ALaterFunctionsEntryRunsNextPass)
{
    Job c = MakeJob("C");
    Job a = MakeJob("A");
    Job b = MakeJob("B");
    b.inside = [&]
    {
        EXPECT_EQ(AddFuncToIdleStack(&ref, &runJob, &c), 0);
        EXPECT_EQ(ref.idleSlots[0].refcon, &c) << "the first slot has been cleared already";
    };
    Queue(a);
    Queue(b);
    EXPECT_THAT(RunIdle(), ElementsAre("A", "B"));
    EXPECT_THAT(RunIdle(), ElementsAre("C"));
}

TEST_F(IdleQueue, AFunctionThatQueuesItselfRunsTwice)
{
    Job a = MakeJob("A");
    a.inside = [&] { EXPECT_EQ(AddFuncToIdleStack(&ref, &runJob, &a), 0); };
    Queue(a);
    EXPECT_THAT(RunIdle(), ElementsAre("A", "A"));
    EXPECT_THAT(RunIdle(), ElementsAre("A", "A"));
    EXPECT_THAT(RunIdle(), ElementsAre("A", "A"));
}

TEST_F(IdleQueue, AFullQueueHasNoRoomMeanwhile)
{
    Job late = MakeJob("late");
    Job a = MakeJob("A");
    Job b = MakeJob("B");
    a.inside = [&] { EXPECT_EQ(AddFuncToIdleStack(&ref, &runJob, &late), 0); };
    Queue(a);
    QueueTimes(31, b);
    Names expected(31, "B");
    expected.insert(expected.begin(), "A");
    EXPECT_EQ(RunIdle(), expected);
    EXPECT_THAT(host.AlertTexts(), ElementsAre("Max Idle Stack Limit Reached."));
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueue, ASlotIsClearedAfterItsFunctionReturns)
{
    Job a = MakeJob("A");
    a.inside = [&]
    {
        EXPECT_EQ(ref.idleSlots[0].func, &runJob);
        EXPECT_EQ(ref.idleSlots[0].refcon, &a);
    };
    Queue(a);
    EXPECT_THAT(RunIdle(), ElementsAre("A"));
    EXPECT_EQ(ref.idleSlots[0].func, nullptr);
    EXPECT_EQ(ref.idleSlots[0].refcon, nullptr);
}
} // namespace
} // namespace standin
