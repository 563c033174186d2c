#pragma once
// What a sweep of faults does over and over: a piece of work with the product in it, each time on a fresh
// host.

#include "standin/check/FaultAudit.h"

#include <functional>
#include <memory>

namespace standin
{
/// Is called when everything is prepared, right before the first call that a fault may strike.
using ArmFaults = std::function<void(Host&)>;

class SweptWork
{
public:
    virtual ~SweptWork() = default;

    /// Does the work; notes how the hooks came back.
    virtual void Run(const ArmFaults& arm, std::vector<HookResult>& results) = 0;
    /// The host is sound again: what the product promises to mend is mended, and no more is wrong than that.
    /// Fails the trial if not.
    virtual void Recover(check::Trial& trial) = 0;
    /// Ends the product; what is then still held is lost.
    virtual void Close() = 0;
    virtual Host& TheHost() = 0;
};

struct SweptScenario
{
    const char* name;
    std::function<std::unique_ptr<SweptWork>()> make;
    /// The sweep begins at the first call of this function; empty for the first of all.
    std::string from = {};
};

const std::vector<SweptScenario>& SweptScenarios();

// The pieces of work.

class PanelBench;
using PanelAction = std::function<void(PanelBench&)>;

/// The panel shows a layer and is at rest, unless `begin` is to find it before its first pass. `begin` brings
/// about a change, and the passes of `run` carry it out.
enum class ShownAtFirst
{
    yes,
    no
};
SweptScenario PanelScenario(const char* name, PanelAction begin, ShownAtFirst shown = ShownAtFirst::yes,
                            PanelAction run = nullptr);
SweptScenario StartOfThePanel(const char* name);
SweptScenario StartOfTheIdleSuite(const char* name);
SweptScenario FullIdleQueue(const char* name);
} // namespace standin
