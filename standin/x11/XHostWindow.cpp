#include "standin/x11/XHostWindow.h"

#include <X11/Xlib.h>
#include <stdexcept>

namespace standin
{
struct XHostWindow::Connection
{
    Display* display;
};

XHostWindow::XHostWindow(int x, int y, int width, int height)
    : connection(new Connection{XOpenDisplay(nullptr)})
{
    Display* display = connection->display;
    if (display == nullptr)
    {
        delete connection;
        throw std::runtime_error("no display");
    }
    window = XCreateSimpleWindow(display, DefaultRootWindow(display), x, y, static_cast<unsigned>(width),
                                 static_cast<unsigned>(height), 0, 0, 0x303030);
    (void)XSelectInput(display, window, ButtonPressMask | StructureNotifyMask);
    (void)XMapWindow(display, window);
    XEvent event;
    do
        (void)XWindowEvent(display, window, StructureNotifyMask, &event);
    while (event.type != MapNotify);
}

XHostWindow::~XHostWindow()
{
    (void)XDestroyWindow(connection->display, window);
    (void)XCloseDisplay(connection->display);
    delete connection;
}

int XHostWindow::takeFocusOnPresses()
{
    Display* display = connection->display;
    (void)XSync(display, False);
    int presses = 0;
    XEvent event;
    while (XCheckWindowEvent(display, window, ButtonPressMask, &event))
    {
        ++presses;
        (void)XSetInputFocus(display, window, RevertToParent, CurrentTime);
    }
    (void)XSync(display, False);
    return presses;
}
} // namespace standin
