#include "standin/host/core/HostParts.h"

#include <algorithm>
#include <cstdlib>

namespace standin
{
void HostBlocks::FreeAll()
{
    for (const auto& [block, note] : all)
        std::free(block);
    all.clear();
}

HostParts::HostParts(Host& owner, HostOptions hostOptions)
    : host(owner),
      options(hostOptions),
      thread(std::this_thread::get_id()),
      user(owner),
      history(options),
      sensors(hostOptions.traceLimit)
{
}

bool HostParts::MayUseId(A_long pluginId) const
{
    if (pluginId == plugins.runningPlugin)
        return true;
    return std::any_of(plugins.published.begin(), plugins.published.end(),
                       [&](const auto& entry)
                       {
                           const auto& [name, version] = entry.first;
                           return entry.second.pluginId == pluginId &&
                                  sensors.suites.Count(name, version) > 0;
                       });
}

void* HostParts::HandOut(Reference reference)
{
    reference.hookDepth = sensors.hookDepth;
    reference.ordinal = sensors.running.empty() ? 0 : sensors.running.back().ordinal;
    if (reference.kind >= ReferenceKind::effect)
        (void)project.LabelOf(reference.owner);
    return sensors.references.HandOut(reference);
}
} // namespace standin
