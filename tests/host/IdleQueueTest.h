#pragma once
// Shared by the tests of the idle queue: functions that record when they run, and the queue.

#include "host/IdleSuite.h"
#include "standin/host/core/Host.h"

#include <functional>
#include <gtest/gtest.h>

namespace standin
{
using Names = std::vector<std::string>;

/// A queued function as a test wants it: it notes its name and may do something from inside its own call.
struct Job
{
    std::string name;
    Names* ran;
    std::function<void()> inside;
};

inline int runJob(int, SPBasicSuite*, void* refcon)
{
    const auto* job = static_cast<const Job*>(refcon);
    job->ran->push_back(job->name);
    if (job->inside)
        job->inside();
    return 77; // Ignored.
}

/// A queue in a host, and its idle hook. At the end of a test no suite may be held.
class IdleQueue : public ::testing::Test
{
protected:
    IdleQueue()
    {
        ref.pluginId = host.PluginId();
        ref.basicSuite = static_cast<SPBasicSuite*>(host.BasicSuite());
    }

    void TearDown() override
    {
        host.CheckSuiteBalance();
        EXPECT_EQ(host.FindingsReport(), "");
    }

    Job MakeJob(const std::string& name) { return {name, &ran, nullptr}; }

    int Queue(Job& job)
    {
        int result = -1;
        host.RunInHook([&] { result = AddFuncToIdleStack(&ref, &runJob, &job); });
        return result;
    }

    void QueueTimes(int count, Job& job)
    {
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(Queue(job), 0);
    }

    Names RunIdle()
    {
        ran.clear();
        const HookResult result = host.RunInHook([&] { return ::IdleHook(nullptr, &ref, nullptr); });
        EXPECT_EQ(result.error, A_Err_NONE);
        EXPECT_EQ(result.thrown, "");
        return ran;
    }

    Host host;
    VnIdleRef ref{};
    Names ran;
};
} // namespace standin
