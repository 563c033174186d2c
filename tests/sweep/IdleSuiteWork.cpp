// Work of the idle suite: its start, and a queue with one function too many.

#include "host/IdleSuite.h"
#include "tests/support/ProductHost.h"
#include "tests/sweep/SweptWork.h"

#include <algorithm>
#include <array>

namespace standin
{
using namespace check;

namespace
{
class IdleStart : public SweptWork
{
public:
    void Run(const ArmFaults& arm, std::vector<HookResult>& results) override
    {
        arm(on.host);
        results.push_back(on.host.Load(&EffectorAEGP).result);
    }

    void Recover(Trial& trial) override
    {
        trial.RequireEqual(on.host.RunIdle().thrown, std::string(), "what left the idle hook");
        trial.RequireNoFindings(on.host);
    }

    void Close() override { on.host.CheckSuiteBalance(); }
    Host& TheHost() override { return on.host; }

private:
    ProductHost on;
};

constexpr std::size_t oneTooMany = VN_IDLE_SLOT_COUNT + 1;

class IdleQueueWork : public SweptWork
{
public:
    IdleQueueWork()
    {
        ref.pluginId = on.host.PluginId();
        ref.basicSuite = on.Basic();
    }

    void Run(const ArmFaults& arm, std::vector<HookResult>& results) override
    {
        arm(on.host);
        for (int& mark : marks)
            results.push_back(on.host.RunInHook([&] { return AddFuncToIdleStack(&ref, &count, &mark); }));
        results.push_back(on.host.RunInHook([&] { return ::IdleHook(nullptr, &ref, nullptr); }));
    }

    void Recover(Trial& trial) override
    {
        for (std::size_t i = 0; i < oneTooMany; ++i)
            trial.RequireEqual(marks[i], i < VN_IDLE_SLOT_COUNT ? 1 : 0,
                               "how often function " + std::to_string(i) + " has run");
        for (const Alert& alert : on.host.Alerts())
            trial.RequireEqual(alert.text, std::string("Max Idle Stack Limit Reached."), "an alert");
        trial.Require(std::all_of(std::begin(ref.idleSlots), std::end(ref.idleSlots),
                                  [](const IdleSlot& slot) { return slot.func == nullptr; }),
                      "the queue is not empty");
        trial.RequireNoFindings(on.host);
    }

    void Close() override { on.host.CheckSuiteBalance(); }
    Host& TheHost() override { return on.host; }

private:
    static int count(int, SPBasicSuite*, void* mark) { return ++*static_cast<int*>(mark); }

    ProductHost on;
    VnIdleRef ref{};
    std::array<int, oneTooMany> marks{};
};
} // namespace

/// Kept: an error before the utility suite was acquired is reported through a null pointer, so no fault is
/// put there.
SweptScenario StartOfTheIdleSuite(const char* name)
{
    return {name, [] { return std::make_unique<IdleStart>(); }, "AEGP_RegisterIdleHook"};
}

SweptScenario FullIdleQueue(const char* name)
{
    return {name, [] { return std::make_unique<IdleQueueWork>(); }};
}
} // namespace standin
