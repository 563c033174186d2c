#include "standin/host/core/Selection.h"

namespace standin
{
ActivePanel Selection::rulingPanel(FocusInPanel focusInPanel) const
{
    if (panel != ActivePanel::ours)
        return panel;
    switch (focusInPanel)
    {
    case FocusInPanel::keepsFrontComp:
        return ActivePanel::timeline;
    case FocusInPanel::keepsActivePanel:
        return panelBefore;
    case FocusInPanel::activatesNothing:
        break;
    }
    return ActivePanel::none;
}

int Selection::ActiveItem(const ProjectState& project, FocusInPanel focusInPanel) const
{
    const auto ifThere = [&](int itemId) { return project.FindItem(itemId) != nullptr ? itemId : 0; };
    switch (rulingPanel(focusInPanel))
    {
    case ActivePanel::project:
    {
        int count = 0;
        int last = 0;
        for (const int item : items)
        {
            count += ifThere(item) != 0 ? 1 : 0;
            last = ifThere(item) != 0 ? item : last;
        }
        return count == 1 ? last : 0;
    }
    case ActivePanel::footage:
        return ifThere(frontFootage);
    case ActivePanel::comp:
    case ActivePanel::timeline:
        return ifThere(frontComp);
    case ActivePanel::layer:
    case ActivePanel::effectControls:
    {
        const Layer* layer = project.FindLayer(ActiveLayer(project, focusInPanel));
        return layer != nullptr ? ifThere(layer->compId) : 0;
    }
    case ActivePanel::renderQueue:
    case ActivePanel::ours:
    case ActivePanel::none:
        break;
    }
    return 0;
}

int Selection::ActiveLayer(const ProjectState& project, FocusInPanel focusInPanel) const
{
    const auto ifThere = [&](int layerId) { return project.FindLayer(layerId) != nullptr ? layerId : 0; };
    switch (rulingPanel(focusInPanel))
    {
    case ActivePanel::layer:
        return ifThere(layerTab);
    case ActivePanel::effectControls:
        return ifThere(effectControls);
    case ActivePanel::comp:
    case ActivePanel::timeline:
        return oneSelectedLayer(project);
    case ActivePanel::project:
    case ActivePanel::footage:
    case ActivePanel::renderQueue:
    case ActivePanel::ours:
    case ActivePanel::none:
        break;
    }
    return 0;
}

int Selection::oneSelectedLayer(const ProjectState& project) const
{
    int count = 0;
    int last = 0;
    for (const int id : layers)
    {
        const Layer* layer = project.FindLayer(id);
        if (layer == nullptr || layer->compId != frontComp)
            continue;
        ++count;
        last = id;
    }
    return count == 1 ? last : 0;
}
} // namespace standin
