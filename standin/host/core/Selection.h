#pragma once
// What is selected and in front, and by which rules that makes an item or a layer the active one.

#include <vector>

#include "standin/host/core/HostOptions.h"
#include "standin/host/core/ProjectState.h"
#include "standin/host/core/UserActions.h"

namespace standin
{
struct Selection
{
    ActivePanel panel = ActivePanel::timeline;
    ActivePanel panelBefore = ActivePanel::timeline; ///< The one that had the focus before ours.
    std::vector<int> items;                          ///< Selected in the Project panel.
    std::vector<int> layers;                         ///< Selected in compositions.
    int effect = 0;                                  ///< The selected effect.
    int frontComp = 0;
    int frontFootage = 0;
    int layerTab = 0;       ///< The layer in the Layer panel.
    int effectControls = 0; ///< The layer in the Effect Controls panel.

    /// Ids, or 0 for none. Ids of what has left the project count for nothing.
    int ActiveItem(const ProjectState& project, FocusInPanel focusInPanel) const;
    int ActiveLayer(const ProjectState& project, FocusInPanel focusInPanel) const;

private:
    /// The panel by whose rule to go.
    ActivePanel rulingPanel(FocusInPanel focusInPanel) const;
    int oneSelectedLayer(const ProjectState& project) const;
};
} // namespace standin
