#include "standin/host/core/PanelDock.h"

#include <algorithm>
#include <utility>

namespace standin
{
const Panel* PanelDock::Find(const std::string& matchName) const
{
    const auto found = std::find_if(panels.begin(), panels.end(),
                                    [&](const Panel& panel) { return panel.matchName == matchName; });
    return found == panels.end() ? nullptr : &*found;
}

Panel* PanelDock::Find(const std::string& matchName)
{
    return const_cast<Panel*>(std::as_const(*this).Find(matchName));
}

Panel& PanelDock::Add(Panel panel)
{
    panels.push_back(std::move(panel));
    return panels.back();
}

void PanelDock::RemoveOf(A_long pluginId)
{
    panels.erase(std::remove_if(panels.begin(), panels.end(),
                                [=](const Panel& panel) { return panel.pluginId == pluginId; }),
                 panels.end());
}

PanelState PanelDock::StateOf(const std::string& matchName) const
{
    PanelState most = PanelState::absent;
    for (const Panel& panel : panels)
        if (panel.matchName == matchName)
            most = std::max(most, panel.state);
    return most;
}

bool PanelDock::Remove(const std::string& matchName)
{
    const auto found = std::find_if(panels.begin(), panels.end(),
                                    [&](const Panel& panel) { return panel.matchName == matchName; });
    if (found == panels.end())
        return false;
    panels.erase(found);
    return true;
}
} // namespace standin
