#include "tests/support/KeptBlocks.h"

#include "panel/Panelator.h"
#include "panel/VnPanelRef.h"
#include "standin/host/core/HostParts.h"

#include <memory>
#include <utility>

namespace standin
{
namespace
{
/// The hook is a plain function.
KeptBlocks* current = nullptr;
} // namespace

KeptBlocks::KeptBlocks(Host& owner, const LoadedPlugin& panelPlugin) : host(owner), plugin(panelPlugin)
{
    current = this;
    for (Panel& panel : PartsOf(host).plugins.panels.All())
        createHook = std::exchange(panel.hook, &createPanel);
}

A_Err KeptBlocks::createPanel(void* global, void* refcon, void* container, PanelH panel,
                              PanelFunctions* functions, void** outRefcon)
{
    const A_Err err = current->createHook(global, refcon, container, panel, functions, outRefcon);
    current->panels.push_back(*outRefcon);
    return err;
}

void KeptBlocks::Free()
{
    void* panelRef = nullptr;
    for (const auto& hook : host.PluginsView().hooks.command)
        panelRef = hook.refcon;
    for (const auto& hook : host.PluginsView().hooks.idle)
        panelRef = hook.pluginId == plugin.id ? hook.refcon : panelRef;
    delete static_cast<VnPanelRef*>(panelRef);
    // Their suites are held on purpose, so no destructor runs but that of a controller's list.
    std::destroy_at(&static_cast<Panelator*>(plugin.globalRefcon)->layerItems);
    for (void* panel : panels)
        ::operator delete(panel);
    ::operator delete(plugin.globalRefcon);
}
} // namespace standin
