#include "standin/host/bundle/Bundle.h"

#include <dlfcn.h>
#include <stdexcept>
#include <vector>

#include "standin/host/bundle/OpenModule.h"
#include "standin/host/core/HostParts.h"

namespace standin
{
namespace
{
void requireWell(const LoadedPlugin& plugin, const char* entry)
{
    if (plugin.result.error == errNone)
        return;
    const std::string thrown = plugin.result.thrown.empty() ? "" : ", " + plugin.result.thrown;
    throw std::runtime_error(std::string(entry) + " failed with error " +
                             std::to_string(plugin.result.error) + thrown);
}
} // namespace

Bundle::Bundle(const std::string& bundleFile)
    : file(bundleFile),
      module(OpenModule(bundleFile, "bundle")),
      idleSuiteEntry(findEntry("EffectorAEGP")),
      panelEntry(findEntry("PanelEntryPointFunc"))
{
}

EntryPoint Bundle::findEntry(const char* name) const
{
    void* const symbol = dlsym(module, name);
    if (symbol == nullptr)
        throw std::runtime_error(file + " is no bundle: it does not export " + name);
    return reinterpret_cast<EntryPoint>(symbol);
}

LoadedPlugin Bundle::LoadIdleSuite(Host& host) const { return host.Load(idleSuiteEntry); }

LoadedPlugin Bundle::LoadPanel(Host& host) const { return host.Load(panelEntry); }

void Bundle::LoadAll(Host& host, EntryOrder order) const
{
    if (order == EntryOrder::idleSuiteFirst)
        requireWell(LoadIdleSuite(host), "EffectorAEGP");
    requireWell(LoadPanel(host), "PanelEntryPointFunc");
    if (order == EntryOrder::panelFirst)
        requireWell(LoadIdleSuite(host), "EffectorAEGP");
}
/// The list itself lives as long as the process, as what is in it does.
void Bundle::KeepMemoryOf(Host& host)
{
    static std::vector<const void*>& kept = *new std::vector<const void*>;
    HostParts& parts = PartsOf(host);
    for (const auto& [plugin, refcon] : parts.plugins.hooks.globalRefcons)
        kept.push_back(refcon);
    for (const Panel& panel : parts.plugins.panels.All())
    {
        kept.push_back(panel.panelRefcon);
        kept.insert(kept.end(), panel.formerRefcons.begin(), panel.formerRefcons.end());
    }
    for (const auto& [name, suite] : parts.plugins.published)
        kept.push_back(suite.table);
}
} // namespace standin
