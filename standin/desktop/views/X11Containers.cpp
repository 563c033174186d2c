#include "standin/desktop/views/X11Containers.h"

#include <algorithm>
#include <stdexcept>

#include <X11/Xlib.h>

namespace standin::desktop
{
namespace
{
constexpr unsigned long background = 0x232323;

Window parentOf(Display* display, Window window)
{
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count) == 0)
        return None;
    if (children != nullptr)
        (void)XFree(children);
    return parent == root ? None : parent;
}
} // namespace

struct X11Containers::Connection
{
    Display* display;
};

X11Containers::X11Containers() : connection(new Connection{XOpenDisplay(nullptr)})
{
    if (connection->display != nullptr)
        return;
    delete connection;
    throw std::runtime_error("no display");
}

X11Containers::~X11Containers()
{
    (void)XCloseDisplay(connection->display);
    delete connection;
}

void* X11Containers::MakeContainer(const std::string&)
{
    const Window window = XCreateSimpleWindow(
        connection->display, parent != 0 ? parent : DefaultRootWindow(connection->display), place.x, place.y,
        static_cast<unsigned>(place.width), static_cast<unsigned>(place.height), 0, 0, background);
    containers.push_back(window);
    (void)XSync(connection->display, False);
    return reinterpret_cast<void*>(window);
}

void X11Containers::DestroyContainer(void* container)
{
    const auto window = reinterpret_cast<Window>(container);
    containers.erase(std::remove(containers.begin(), containers.end(), window), containers.end());
    (void)XDestroyWindow(connection->display, window);
    (void)XSync(connection->display, False);
}

void X11Containers::ShowContainer(void* container, Visibility visibility)
{
    const auto window = reinterpret_cast<Window>(container);
    if (visibility == Visibility::visible)
        (void)XMapWindow(connection->display, window);
    else
        (void)XUnmapWindow(connection->display, window);
    (void)XSync(connection->display, False);
}

void X11Containers::Place(unsigned long parentWindow, user::Area area)
{
    area.width = std::max(area.width, 1);
    area.height = std::max(area.height, 1);
    for (const Window window : containers)
    {
        if (parentWindow != parent)
            (void)XReparentWindow(connection->display, window, parentWindow, area.x, area.y);
        (void)XMoveResizeWindow(connection->display, window, area.x, area.y,
                                static_cast<unsigned>(area.width), static_cast<unsigned>(area.height));
    }
    parent = parentWindow;
    place = area;
    (void)XSync(connection->display, False);
}

bool X11Containers::isContainer(unsigned long window) const
{
    return std::find(containers.begin(), containers.end(), window) != containers.end();
}

std::optional<user::Area> X11Containers::AreaOnScreen() const
{
    for (const Window window : containers)
    {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(connection->display, window, &attributes) == 0 ||
            attributes.map_state != IsViewable)
            continue;
        user::Area area{0, 0, attributes.width, attributes.height};
        Window ignored = None;
        (void)XTranslateCoordinates(connection->display, window, attributes.root, 0, 0, &area.x, &area.y,
                                    &ignored);
        return area;
    }
    return {};
}

bool X11Containers::HasFocus() const
{
    Window focused = None;
    int revert = 0;
    (void)XGetInputFocus(connection->display, &focused, &revert);
    while (focused != None && focused != PointerRoot && !isContainer(focused))
        focused = parentOf(connection->display, focused);
    return focused != None && focused != PointerRoot;
}

bool X11Containers::FetchLostFocus(unsigned long window) const
{
    Window focused = None;
    int revert = 0;
    (void)XGetInputFocus(connection->display, &focused, &revert);
    if (focused != None && focused != PointerRoot && focused != DefaultRootWindow(connection->display))
        return focused == window;
    (void)XSetInputFocus(connection->display, window, RevertToParent, CurrentTime);
    (void)XSync(connection->display, False);
    return false;
}
} // namespace standin::desktop
