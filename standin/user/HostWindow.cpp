#include "standin/user/HostWindow.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <stdexcept>
#include <utility>

namespace standin::user
{
namespace
{
constexpr unsigned long stripColour = 0x1d1d1d;
constexpr unsigned long tabColour = 0x3a3a3a;
constexpr unsigned long groundColour = 0x303030;
constexpr unsigned long textColour = 0xc8c8c8;
constexpr long hostEvents =
    KeyPressMask | KeyReleaseMask | ButtonPressMask | StructureNotifyMask | ExposureMask;

/// Xlib's handler is a plain function.
int errorsTold = 0;

int noteError(Display*, XErrorEvent*)
{
    ++errorsTold;
    return 0;
}

std::string nameOf(XKeyEvent& key)
{
    const std::pair<unsigned, const char*> modifiers[] = {
        {ControlMask, "Control+"}, {ShiftMask, "Shift+"}, {Mod1Mask, "Alt+"}};
    std::string text;
    for (const auto& [mask, name] : modifiers)
        text += (key.state & mask) != 0 ? name : "";
    const char* name = XKeysymToString(XLookupKeysym(&key, 0));
    return text + (name == nullptr ? "?" : name);
}

bool isModifier(XKeyEvent& key)
{
    const KeySym symbol = XLookupKeysym(&key, 0);
    return IsModifierKey(symbol) != 0;
}

unsigned asSize(int pixels) { return static_cast<unsigned>(pixels); }
} // namespace

HostWindow::HostWindow(const HostLayout& wanted) : layout(wanted), display(XOpenDisplay(nullptr))
{
    if (display == nullptr)
        throw std::runtime_error("no display");
    errorsTold = 0;
    formerHandler = reinterpret_cast<void (*)()>(XSetErrorHandler(&noteError));
    frame = makeFrame();
    XEvent event;
    do
        (void)XWindowEvent(display, frame, StructureNotifyMask, &event);
    while (event.type != MapNotify);
    paint();
}

HostWindow::~HostWindow()
{
    (void)XCloseDisplay(display);
    if (xErrors == XErrors::areCounted)
        (void)XSetErrorHandler(reinterpret_cast<XErrorHandler>(formerHandler));
}

void HostWindow::Obey(const HostOptions& options)
{
    focusAtClicks = options.focusAtClicks;
    if (std::exchange(xErrors, options.xErrors) != options.xErrors)
        (void)XSetErrorHandler(xErrors == XErrors::areCounted ? &noteError : nullptr);
}

unsigned long HostWindow::makeFrame() const
{
    const Area& area = layout.frame;
    const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), area.x, area.y,
                                              asSize(area.width), asSize(area.height), 0, 0, groundColour);
    (void)XStoreName(display, window, "Stand-in host");
    (void)XSelectInput(display, window, hostEvents);
    (void)XMapWindow(display, window);
    return window;
}

void HostWindow::settle() const { (void)XSync(display, False); }

void HostWindow::paint() const
{
    const GC pen = XCreateGC(display, frame, 0, nullptr);
    const auto fill = [&](unsigned long colour, int x, int y, int w, int h)
    {
        (void)XSetForeground(display, pen, colour);
        (void)XFillRectangle(display, frame, pen, x, y, asSize(w), asSize(h));
    };
    constexpr int tabWidth = 170;
    const int stripHeight = layout.container.y;
    if (stripHeight > 0)
        fill(stripColour, 0, 0, layout.frame.width, stripHeight);
    if (stripHeight > 0 && !tab.empty())
    {
        fill(tabColour, 4, 4, tabWidth, stripHeight - 4);
        (void)XSetForeground(display, pen, textColour);
        (void)XDrawString(display, frame, pen, 12, stripHeight - 8, tab.c_str(),
                          static_cast<int>(tab.size()));
    }
    (void)XFreeGC(display, pen);
    settle();
}

void HostWindow::handle(XEvent& event)
{
    if (event.type == ButtonPress && focusAtClicks == FocusAtClicks::isTaken)
        (void)XSetInputFocus(display, frame, RevertToParent, event.xbutton.time);
    if (event.type == Expose)
        paint();
    if (event.type == KeyPress && !isModifier(event.xkey))
        keys.push_back(nameOf(event.xkey));
}

void HostWindow::HandleEvents()
{
    settle();
    while (XPending(display) != 0)
    {
        XEvent event;
        (void)XNextEvent(display, &event);
        if (event.type == MappingNotify)
            (void)XRefreshKeyboardMapping(&event.xmapping);
        handle(event);
    }
    settle();
}

std::vector<std::string> HostWindow::TakeKeys()
{
    HandleEvents();
    return std::exchange(keys, {});
}

int HostWindow::TakeErrors()
{
    settle();
    return std::exchange(errorsTold, 0);
}

bool HostWindow::hasItsErrorHandler() const
{
    const XErrorHandler present = XSetErrorHandler(&noteError);
    (void)XSetErrorHandler(present);
    return present == &noteError;
}

void HostWindow::setItsErrorHandler() { (void)XSetErrorHandler(&noteError); }

Area HostWindow::ContainerOnScreen() const
{
    Window ignored = None;
    Area area = layout.container;
    (void)XTranslateCoordinates(display, frame, DefaultRootWindow(display), area.x, area.y, &area.x, &area.y,
                                &ignored);
    return area;
}

Place HostWindow::EmptyPlace() const
{
    const Area panel = ContainerOnScreen();
    const Place corner{panel.x - layout.container.x, panel.y - layout.container.y};
    constexpr Place inside{-20, 10};
    return corner + Place{layout.frame.width, 0} + inside;
}

void HostWindow::Resize(int newWidth, int newHeight)
{
    layout.frame.width += newWidth - layout.container.width;
    layout.frame.height += newHeight - layout.container.height;
    layout.container.width = newWidth;
    layout.container.height = newHeight;
    (void)XResizeWindow(display, frame, asSize(layout.frame.width), asSize(layout.frame.height));
    if (container != None)
        (void)XResizeWindow(display, container, asSize(newWidth), asSize(newHeight));
    paint();
}

void* HostWindow::MakeContainer(const std::string& panelName)
{
    const Area& area = layout.container;
    tab = panelName;
    container = XCreateSimpleWindow(display, frame, area.x, area.y, asSize(area.width), asSize(area.height),
                                    0, 0, groundColour);
    (void)XMapWindow(display, container);
    paint();
    return reinterpret_cast<void*>(container);
}

void HostWindow::DestroyContainer(void* gone)
{
    (void)XDestroyWindow(display, reinterpret_cast<Window>(gone));
    container = None;
    tab.clear();
    paint();
}

void HostWindow::ShowContainer(void* shown, Visibility visibility)
{
    const auto window = reinterpret_cast<Window>(shown);
    (void)(visibility == Visibility::visible ? XMapWindow(display, window) : XUnmapWindow(display, window));
    settle();
}
} // namespace standin::user
