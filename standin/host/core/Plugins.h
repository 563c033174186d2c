#pragma once
// The plug-ins of a host: their hooks, their menu items and panels, what they have published and allocated.

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "standin/host/core/Abi.h"
#include "standin/host/core/ContainerProvider.h"
#include "standin/host/core/HookTable.h"
#include "standin/host/core/MenuBar.h"
#include "standin/host/core/PanelDock.h"

namespace standin
{
/// An alert that a plug-in raised, or the host itself.
struct Alert
{
    A_long pluginId = 0; ///< 0 for the host.
    std::string text;
};

/// A table that a plug-in has published.
struct PublishedSuite
{
    const void* table = nullptr;
    A_long pluginId = 0; ///< Whose functions these are.
};

/// Memory of the host that a plug-in has allocated.
struct HostBlock
{
    std::string function;
    std::string call; ///< That allocated it.
};

/// Owns what plug-ins have not given back.
class HostBlocks
{
public:
    HostBlocks() = default;
    ~HostBlocks() { FreeAll(); }
    HostBlocks(const HostBlocks&) = delete;
    HostBlocks& operator=(const HostBlocks&) = delete;

    void FreeAll();

    std::map<void*, HostBlock> all;
};

struct Plugins
{
    MenuBar menus;
    PanelDock panels;
    HookTable hooks;
    std::vector<Alert> alerts;
    ContainerProvider ownProvider;
    ContainerProvider* provider = &ownProvider;
    PF_App_Color background{0x2323, 0x2323, 0x2323};
    std::map<std::pair<std::string, A_long>, PublishedSuite> published;
    HostBlocks blocks;
    A_long nextId = 7;
    A_long runningPlugin = 0; ///< Whose hook runs; 0 outside any.
    int openDialogs = 0;
    int keysHeard = 0;
    bool hasQuit = false;

    /// Raises an alert of the host's own.
    void Alarm(const std::string& text) { alerts.push_back({0, text}); }
    bool IsPlugin(A_long pluginId) const { return pluginId >= 7 && pluginId < nextId; }
};
} // namespace standin
