#pragma once
// Where the plug-in's panel is: a tab of the dock, a window of its own, or nowhere. The host knows three
// states of a panel; a window of its own is frontmost to it.

#include <string>

#include "standin/host/core/Host.h"
#include "standin/script/record/ActionRecord.h"

namespace standin::desktop
{
enum class PanelPlace
{
    closed,
    docked,
    floating
};

class DockState
{
public:
    explicit DockState(Host& owner) : host(owner) {}

    /// The one listener from now on; null for none.
    void RecordWith(script::ActionRecord* one) { record = one; }

    /// The name on the tab; empty while no plug-in has registered a panel.
    std::string PanelName() const;
    PanelPlace Place() const;
    /// Whether the panel can be seen. The dock's other tab is in front otherwise.
    bool PanelIsInFront() const;

    /// A click on the panel's tab, or its entry in the Window menu. Opens the panel where it was last.
    void ShowPanel();
    /// A click on the other tab.
    void ShowOther();
    void ClosePanel();
    /// Takes the panel out of the dock into a window, or puts it back. Does nothing while it is closed.
    void Undock();
    void PutBack();

private:
    const Panel* panel() const;
    void setState(PanelState state);

    Host& host;
    script::ActionRecord* record = nullptr;
    bool isFloating = false; ///< Where the panel comes up when it is shown.
};
} // namespace standin::desktop
