// The queue inside itself: a queued function that lets the host idle, or that throws. A slot is cleared after
// its call, so until then its function is due.

#include "standin/host/sensors/FindingIds.h"
#include "tests/host/IdleQueueTest.h"

#include <gmock/gmock.h>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class IdleQueueInside : public IdleQueue
{
protected:
    /// Has the function let the host idle inside its calls, up to a depth of `depth` calls, since nothing
    /// else would end it.
    void IdleInside(Job& job, int depth)
    {
        job.inside = [this, depth]
        {
            if (++calls < depth)
                (void)::IdleHook(nullptr, &ref, nullptr);
        };
    }

    void RegisterHook()
    {
        host.RunInEntryPoint(
            [this]
            {
                const void* table = nullptr;
                EXPECT_EQ(ref.basicSuite->AcquireSuite("AEGP Register Suite", 6, &table), 0);
                const auto* registering = static_cast<const AEGP_RegisterSuite5*>(table);
                EXPECT_EQ(registering->AEGP_RegisterIdleHook(ref.pluginId, &::IdleHook, &ref), A_Err_NONE);
                return ref.basicSuite->ReleaseSuite("AEGP Register Suite", 6);
            });
    }

    int calls = 0;
};

TEST_F(IdleQueueInside, CallsAgainAFunctionThatIdles)
{
    Job a = MakeJob("A");
    IdleInside(a, 5);
    Queue(a);
    EXPECT_THAT(RunIdle(), ElementsAre("A", "A", "A", "A", "A"));
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueueInside, RunsTheRestInTheInnermostHook)
{
    Job a = MakeJob("A");
    Job b = MakeJob("B");
    IdleInside(a, 3);
    Queue(a);
    Queue(b);
    EXPECT_THAT(RunIdle(), ElementsAre("A", "A", "A", "B"));
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueueInside, DropsEntriesOfSlotsStillRunning)
{
    Job a = MakeJob("A");
    Job b = MakeJob("B");
    Job c = MakeJob("C");
    IdleInside(a, 2);
    b.inside = [&]
    {
        EXPECT_EQ(AddFuncToIdleStack(&ref, &runJob, &c), 0);
        EXPECT_EQ(ref.idleSlots[0].refcon, &c)
            << "the inner hook has cleared the slot, the outer one has not";
    };
    Queue(a);
    Queue(b);
    EXPECT_THAT(RunIdle(), ElementsAre("A", "A", "B"));
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueueInside, IsReachedThroughAnyIdlingCall)
{
    RegisterHook();
    Job a = MakeJob("A");
    a.inside = [this]
    {
        const void* table = nullptr;
        EXPECT_EQ(ref.basicSuite->AcquireSuite("AEGP Utility Suite", 11, &table), 0);
        EXPECT_EQ(ref.basicSuite->ReleaseSuite("AEGP Utility Suite", 11), 0);
    };
    Queue(a);
    host.Idles().InFunction("AcquireSuite");
    (void)host.RunIdle();
    EXPECT_EQ(host.Idles().TimesIdled(), 1u);
    EXPECT_THAT(ran, ElementsAre("A", "A"));
}

TEST_F(IdleQueueInside, IsEmptiedByTheFullQueuesAlert)
{
    RegisterHook();
    Job job = MakeJob("A");
    Job late = MakeJob("late");
    QueueTimes(32, job);
    host.Idles().InFunction("AEGP_ReportInfo");
    Queue(late);
    EXPECT_EQ(host.Idles().TimesIdled(), 1u);
    EXPECT_EQ(ran, Names(32, "A"));
    (void)host.RunIdle();
    EXPECT_EQ(ran, Names(32, "A"));
}

// ---- A function that throws

class IdleQueueThrowing : public IdleQueue
{
protected:
    IdleQueueThrowing()
    {
        host.Expect(finding::exceptionLeftHook, "", "what a queued function throws is the host's to catch");
        wild.inside = [] { throw 42; };
    }

    Names RunThrowingIdle()
    {
        ran.clear();
        const HookResult result = host.RunInHook([&] { return ::IdleHook(nullptr, &ref, nullptr); });
        EXPECT_EQ(result.thrownNumber, 42);
        return ran;
    }

    Job wild = MakeJob("wild");
    Job tame = MakeJob("tame");
};

TEST_F(IdleQueueThrowing, CallsTheThrowerAtEveryIdleOnly)
{
    Queue(wild);
    Queue(tame);
    for (int idle = 0; idle < 5; ++idle)
        EXPECT_THAT(RunThrowingIdle(), ElementsAre("wild"));
    wild.inside = nullptr;
    EXPECT_THAT(RunIdle(), ElementsAre("wild", "tame")) << "all of it was kept";
    EXPECT_THAT(RunIdle(), IsEmpty());
}

TEST_F(IdleQueueThrowing, WaitsForTheSlotsBeforeALaterThrower)
{
    Queue(tame);
    Queue(wild);
    EXPECT_THAT(RunThrowingIdle(), ElementsAre("tame", "wild"));
    EXPECT_THAT(RunIdle(), IsEmpty()) << "the first slot is free, and ends the hook";
    Queue(tame);
    EXPECT_THAT(RunThrowingIdle(), ElementsAre("tame", "wild"));
}
} // namespace
} // namespace standin
