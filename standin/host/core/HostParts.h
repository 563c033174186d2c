#pragma once
// What a host is made of. For the files of the host itself; whoever else uses a host goes through Host.

#include <thread>

#include "standin/host/core/History.h"
#include "standin/host/core/Host.h"
#include "standin/host/core/Plugins.h"
#include "standin/host/core/Project.h"
#include "standin/host/sensors/Sensors.h"

namespace standin
{
struct HostParts
{
    HostParts(Host& owner, HostOptions hostOptions);

    Host& host;
    HostOptions options;
    std::thread::id thread;
    UserActions user;
    Project project;
    History history;
    Plugins plugins;
    Sensors sensors;

    /// Whether what runs may use this plug-in's id: its hook runs, or somebody holds a suite of its own,
    /// whose functions run under its id in the hooks of others.
    bool MayUseId(A_long pluginId) const;
    void* HandOut(Reference reference);
};

HostParts& PartsOf(Host& host);
} // namespace standin
