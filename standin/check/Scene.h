#pragma once
// The simplest surroundings for a check: a host with the family installed and one layer that is active, the
// bundle, and no screen.

#include "standin/host/bundle/Bundle.h"
#include "standin/host/family/Sibling.h"

#include <string>
#include <vector>

namespace standin::check
{
class Scene
{
public:
    static constexpr const char* panelName = "Vortan Object Panel";
    static constexpr const char* idleSuite = "Vortan Idle Suite v1";
    static constexpr const char* panelSuite = "Vortan Panel Suite v1";

    /// The entry points are not called yet.
    explicit Scene(const std::string& bundleFile, HostOptions options = {});
    ~Scene();

    Host host;
    Bundle bundle;
    int layer = 0;
    Sibling sibling{host};

    /// The calls since the last time.
    std::vector<std::string> TakeCalls(SuiteTraffic traffic = SuiteTraffic::included);
    /// A published table as a sibling gets it; null if it is not published.
    const void* Published(const char* name);
    /// Ends the host. The controller's suites, which it holds until then, are no finding.
    void Quit();
};

/// The nth word of a table.
const void* WordOf(const void* table, int index);
} // namespace standin::check
