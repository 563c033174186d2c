#pragma once
// The panels of plug-ins in the host's workspace.

#include <deque>
#include <string>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
enum class PanelState
{
    absent,   ///< Not in the workspace. A container may live on; see ClosedPanel.
    behind,   ///< Its tab is in the workspace behind another one.
    frontmost ///< Its tab is in front.
};

struct Panel
{
    A_long pluginId = 0;
    std::string matchName;
    CreatePanelHook hook = nullptr;
    void* refcon = nullptr;
    bool paintBackground = false;
    PanelState state = PanelState::absent;
    void* container = nullptr; ///< Null while no view exists.
    PanelH handle = nullptr;
    PanelFunctions functions{};
    void* panelRefcon = nullptr;
    std::vector<void*> formerRefcons; ///< Of the views that were there before.
    int created = 0;                  ///< How often the create hook ran.
    std::string title;
};

class PanelDock
{
public:
    Panel* Find(const std::string& matchName);
    const Panel* Find(const std::string& matchName) const;
    Panel& Add(Panel panel);
    bool Remove(const std::string& matchName);
    /// All panels that this plug-in has registered.
    void RemoveOf(A_long pluginId);
    /// Of several panels of one name, the state of the one that is seen most.
    PanelState StateOf(const std::string& matchName) const;
    std::deque<Panel>& All() { return panels; }
    const std::deque<Panel>& All() const { return panels; }

private:
    std::deque<Panel> panels; ///< A deque: hooks may look at a panel while another is added.
};
} // namespace standin
