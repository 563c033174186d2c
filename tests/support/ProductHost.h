#pragma once
// A stand-in host with the family installed and one composition with one layer, and its handles in the
// product's own types.

#include "host/HostSuites.h"
#include "standin/host/core/Host.h"
#include "standin/host/family/Family.h"

#include <string>
#include <vector>

namespace standin
{
struct ProductHost
{
    explicit ProductHost(HostOptions options = {}) : host(options)
    {
        InstallFamily(host);
        compId = host.AddComposition("Comp 1");
        layerId = host.AddLayer(compId, "Layer 1");
        host.User().SelectLayers({layerId});
    }

    SPBasicSuite* Basic() { return static_cast<SPBasicSuite*>(host.BasicSuite()); }
    AEGP_LayerH Layer() { return Layer(layerId); }
    AEGP_LayerH Layer(int id) { return static_cast<AEGP_LayerH>(host.LayerHandle(id)); }
    AEGP_PluginID Id() const { return host.PluginId(); }
    A_long Key(const std::string& matchName) const { return host.FindInstalled(matchName)->key; }

    /// Puts an effect at the end of the layer's stack; gives its identity's text.
    std::string Add(const std::string& matchName, const std::string& label)
    {
        (void)host.AddEffect(layerId, matchName, label);
        return Uuid(label);
    }
    std::string Uuid(const std::string& label) { return TextOf(host.Effect(label).family.uuid); }

    Host host;
    int compId = 0;
    int layerId = 0;
};
} // namespace standin
