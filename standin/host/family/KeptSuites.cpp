#include "standin/host/family/KeptSuites.h"

#include "standin/host/core/Host.h"
#include "standin/host/core/Plugins.h"
#include "standin/host/sensors/FindingIds.h"
#include "standin/host/sensors/Sensors.h"

namespace standin
{
namespace
{
constexpr const char* panelName = "Vortan Object Panel";

void expectHeld(Host& host, const char* suite, A_long version, int count, const char* reason)
{
    if (count > 0)
        host.Expect(finding::unbalancedSuite, SuiteCounts::Held{suite, version, count}.Text(), reason)
            .In("")
            .Times(1);
}

/// One that the controller takes when it first needs it, and never again.
void expectOnDemand(Host& host, const char* suite, A_long version)
{
    if (host.SuiteCount(suite, version) > 0)
        expectHeld(host, suite, version, 1, "the controller takes it once and keeps it");
}

int panelsMade(Host& host)
{
    int made = 0;
    for (const Panel& panel : host.PluginsView().panels.All())
        if (panel.matchName == panelName)
            made += panel.created;
    return made;
}
} // namespace

void ExpectKeptSuites(Host& host, int madeBeside)
{
    if (host.FindPanel(panelName) == nullptr)
        return;
    const int panels = panelsMade(host) + madeBeside;
    expectHeld(host, "AEGP Command Suite", 1, 1, "the controller takes it with its menu command");
    expectHeld(host, "AEGP Register Suite", 6, 1, "the controller takes it with its hooks");
    expectHeld(host, "AEGP Workspace Panel Suite", 1, 1 + panels, "the controller and each panel take it");
    expectHeld(host, "PF AE App Suite", 6, panels, "each panel takes it");
    expectOnDemand(host, "AEGP Item Suite", 3);
    expectOnDemand(host, "AEGP Layer Suite", 5);
}
} // namespace standin
