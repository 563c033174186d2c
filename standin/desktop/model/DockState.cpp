#include "standin/desktop/model/DockState.h"

namespace standin::desktop
{
const Panel* DockState::panel() const
{
    const auto& panels = host.PluginsView().panels.All();
    return panels.empty() ? nullptr : &panels.front();
}

void DockState::setState(PanelState state)
{
    if (panel() == nullptr || panel()->state == state)
        return;
    if (record != nullptr)
        record->Line(state == PanelState::frontmost ? "open the panel"
                     : state == PanelState::behind  ? "cover the panel"
                                                    : "close the panel");
    (void)host.SetPanelState(panel()->matchName, state);
}

std::string DockState::PanelName() const { return panel() != nullptr ? panel()->matchName : ""; }

PanelPlace DockState::Place() const
{
    if (panel() == nullptr || panel()->state == PanelState::absent)
        return PanelPlace::closed;
    return isFloating ? PanelPlace::floating : PanelPlace::docked;
}

bool DockState::PanelIsInFront() const
{
    return panel() != nullptr && panel()->state == PanelState::frontmost;
}

void DockState::ShowPanel() { setState(PanelState::frontmost); }

void DockState::ShowOther()
{
    if (Place() == PanelPlace::docked)
        setState(PanelState::behind);
}

void DockState::ClosePanel() { setState(PanelState::absent); }

void DockState::Undock()
{
    if (Place() != PanelPlace::docked)
        return;
    isFloating = true;
    setState(PanelState::frontmost);
}

void DockState::PutBack()
{
    if (Place() != PanelPlace::floating)
        return;
    isFloating = false;
    setState(PanelState::frontmost);
}
} // namespace standin::desktop
