#pragma once
// The native views of panels: plain X11 windows, children of a window of the desktop, on a connection of
// their own. The plug-in puts its panel into one and knows nothing of what is around it.
//
// user::HostWindow makes containers too, but in a frame that it creates, paints, gives the keyboard and reads
// the keys of. Here JUCE does all that for the desktop's window, and the container moves from one of its
// windows to another when the panel is undocked; what the two have in common is a call of Xlib for each duty.

#include <optional>
#include <string>
#include <vector>

#include "standin/host/core/ContainerProvider.h"
#include "standin/user/Geometry.h"

namespace standin::desktop
{
class X11Containers : public ContainerProvider
{
public:
    /// Throws std::runtime_error without a display.
    X11Containers();
    ~X11Containers() override;
    X11Containers(const X11Containers&) = delete;
    X11Containers& operator=(const X11Containers&) = delete;

    void* MakeContainer(const std::string& panelName) override;
    void DestroyContainer(void* container) override;
    void ShowContainer(void* container, Visibility visibility) override;

    /// Where containers are, and will be: in this X11 window, from its upper left corner. One that is there
    /// already is moved.
    void Place(unsigned long parentWindow, user::Area area);
    /// Where the first that can be seen is on the screen.
    std::optional<user::Area> AreaOnScreen() const;
    /// Whether the keyboard focus is in one of them.
    bool HasFocus() const;
    /// Gives the focus to a window of the desktop if nobody has it: a menu that closes leaves it on the
    /// screen's root where no window manager hands it on. Whether the window has had it all along.
    bool FetchLostFocus(unsigned long window) const;

private:
    struct Connection;
    bool isContainer(unsigned long window) const;

    Connection* connection;
    unsigned long parent = 0;
    user::Area place{0, 0, 1, 1};
    std::vector<unsigned long> containers;
};
} // namespace standin::desktop
