#include "standin/check/effects/SuiteWitness.h"

#include "standin/host/core/HostParts.h"

#include <utility>

namespace standin::check
{
namespace
{
/// A wrong reference must not lead to the wrong place: a process judges one effect and has one witness.
SuiteWitness* current = nullptr;
char idleHandle;
char panelHandle;

VortanIdleRef* idleRef() { return reinterpret_cast<VortanIdleRef*>(&idleHandle); }
VortanPanelRef* panelRef() { return reinterpret_cast<VortanPanelRef*>(&panelHandle); }
} // namespace

SuiteWitness::SuiteWitness(Host& owner) : host(owner)
{
    current = this;
    idleSuite = {idleRef(), &addFunction};
    panelSuite = {panelRef(), &openPanel, &refreshPanel, &panelNotify};
    host.Publish("Vortan Idle Suite v1", 1, &idleSuite);
    host.Publish("Vortan Panel Suite v1", 1, &panelSuite);
}

void SuiteWitness::note(const std::string& call, Arguments arguments)
{
    const std::lock_guard<std::mutex> lock(mutex);
    calls.push_back(call);
    if (arguments == Arguments::wrong)
        wrong.push_back(call);
    if (std::this_thread::get_id() != mainThread)
        elsewhere.push_back(call);
}

int SuiteWitness::addFunction(VortanIdleRef* ref, VortanIdleFunction function, void* refcon)
{
    const bool isWell = ref == idleRef() && function != nullptr;
    current->note(isWell ? "AddFuncToIdleStack" : "AddFuncToIdleStack with a wrong reference or no function",
                  isWell ? Arguments::asTheyShould : Arguments::wrong);
    const std::lock_guard<std::mutex> lock(current->mutex);
    if (isWell && current->queue.size() < VORTAN_IDLE_QUEUE_LENGTH)
        current->queue.push_back({function, refcon});
    return 0;
}

int SuiteWitness::openPanel(VortanPanelRef* ref, unsigned char)
{
    const bool isWell = ref == panelRef();
    current->note(isWell ? "OpenPanel" : "OpenPanel with a wrong reference",
                  isWell ? Arguments::asTheyShould : Arguments::wrong);
    return 0;
}

int SuiteWitness::refreshPanel(VortanPanelRef* ref)
{
    const bool isWell = ref == panelRef();
    current->note(isWell ? "RefreshPanel" : "RefreshPanel with a wrong reference",
                  isWell ? Arguments::asTheyShould : Arguments::wrong);
    return 0;
}

int SuiteWitness::panelNotify(VortanPanelRef* ref, const char* text)
{
    const bool isWell = ref == panelRef() && text != nullptr;
    current->note(isWell ? "PanelNotify" : "PanelNotify with a wrong reference or no text",
                  isWell ? Arguments::asTheyShould : Arguments::wrong);
    return 0;
}

std::vector<std::string> SuiteWitness::RunQueued()
{
    std::vector<Queued> due;
    {
        const std::lock_guard<std::mutex> lock(mutex);
        due.swap(queue);
    }
    auto* const basicSuite = static_cast<VortanBasicSuite*>(host.BasicSuite());
    std::vector<std::string> escaped;
    for (const Queued& each : due)
    {
        const HookResult result =
            host.RunInHook([&] { (void)each.function(host.PluginId(), basicSuite, each.refcon); });
        if (!result.thrown.empty())
            escaped.push_back(result.thrown);
    }
    return escaped;
}

std::vector<std::string> SuiteWitness::Calls() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return calls;
}

std::vector<std::string> SuiteWitness::WrongCalls() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return wrong;
}

std::vector<std::string> SuiteWitness::CallsFromOtherThreads() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return elsewhere;
}
} // namespace standin::check
