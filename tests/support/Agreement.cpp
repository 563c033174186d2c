#include "tests/support/Agreement.h"

#include "standin/host/core/HostParts.h"

namespace standin
{
std::vector<std::string> TreeLines(const std::vector<ObjectItem>& items)
{
    std::vector<std::string> lines;
    for (const ObjectItem& item : items)
        lines.push_back(item.uuid + " " + item.name + " " + std::to_string(item.group) + " " +
                        std::to_string(item.active));
    return lines;
}

std::vector<std::string> LayerLines(Host& host, const Layer& layer)
{
    std::vector<std::string> lines;
    for (const EffectInstance& effect : layer.effects)
    {
        if (host.ProjectView().InstalledOf(effect)->matchName.rfind("QVK VORT", 0) != 0)
            continue;
        const int group = effect.family.rigidity == Rigidity::rigid ? -1 : effect.family.group;
        lines.push_back(TextOf(effect.family.uuid) + " " + host.ProjectView().NameOf(effect) + " " +
                        std::to_string(group) + " " + std::to_string(effect.flags & 1));
    }
    return lines;
}
} // namespace standin
