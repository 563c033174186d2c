#include "panel/platform/x11/XConnection.h"

#include "tree/TreeX11.h"

#include <algorithm>
#include <vector>

namespace
{
// Xlib's error handler is one plain function for the whole program and is told nothing but the connection.
std::vector<Display*>& openConnections()
{
    static std::vector<Display*> connections;
    return connections;
}
} // namespace

XConnection::XConnection() : display(XOpenDisplay(nullptr))
{
    if (display != nullptr)
        openConnections().push_back(display);
}

XConnection::~XConnection()
{
    if (display == nullptr)
        return;
    (void)XCloseDisplay(display);
    std::vector<Display*>& open = openConnections();
    open.erase(std::remove(open.begin(), open.end(), display), open.end());
}

bool IsPanelConnection(Display* display)
{
    const std::vector<Display*>& open = openConnections();
    return display == GetTreeDisplay() || std::find(open.begin(), open.end(), display) != open.end();
}
