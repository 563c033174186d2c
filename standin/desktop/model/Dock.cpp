#include "standin/desktop/model/Dock.h"

#include "standin/core/HostParts.h"

namespace standin
{
const Panel* Dock::panel() const
{
    auto& panels = host.Parts().panels.All();
    return panels.empty() ? nullptr : &panels.front();
}

void Dock::setState(PanelState state)
{
    if (panel() != nullptr && panel()->state != state)
        (void)host.SetPanelState(panel()->matchName, state);
}

std::string Dock::PanelName() const { return panel() != nullptr ? panel()->matchName : ""; }

PanelPlace Dock::Place() const
{
    if (panel() == nullptr || panel()->state == PanelState::absent)
        return PanelPlace::closed;
    return isFloating ? PanelPlace::floating : PanelPlace::docked;
}

bool Dock::PanelIsInFront() const { return panel() != nullptr && panel()->state == PanelState::frontmost; }

void Dock::ShowPanel() { setState(PanelState::frontmost); }

void Dock::ShowOther()
{
    if (Place() == PanelPlace::docked)
        setState(PanelState::behind);
}

void Dock::ClosePanel() { setState(PanelState::absent); }

void Dock::Undock()
{
    if (Place() != PanelPlace::docked)
        return;
    isFloating = true;
    setState(PanelState::frontmost);
}

void Dock::PutBack()
{
    if (Place() != PanelPlace::floating)
        return;
    isFloating = false;
    setState(PanelState::frontmost);
}
} // namespace standin
