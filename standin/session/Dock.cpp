#include "standin/session/Dock.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdint>
#include <stdexcept>
#include <utility>

namespace standin
{
namespace
{
constexpr unsigned long stripColour = 0x1d1d1d;
constexpr unsigned long tabColour = 0x3a3a3a;
constexpr unsigned long groundColour = 0x303030;
constexpr unsigned long textColour = 0xc8c8c8;
constexpr long hostEvents = KeyPressMask | ButtonPressMask | StructureNotifyMask | ExposureMask;

/// Xlib's handler is a plain function.
int errorsTold = 0;

int noteError(Display*, XErrorEvent*)
{
    ++errorsTold;
    return 0;
}

/// A window of somebody else may be gone by the time that it is asked about. While one of these lives, that
/// is nobody's error.
class Asking
{
public:
    explicit Asking(Display* theDisplay) : display(theDisplay)
    {
        (void)XSync(display, False);
        former = XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    }
    ~Asking()
    {
        (void)XSync(display, False);
        (void)XSetErrorHandler(former);
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

private:
    Display* display;
    XErrorHandler former;
};

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
} // namespace

struct Dock::Windows
{
    Display* display = nullptr;
    Window frame = None;
    Window container = None;
    GC pen = nullptr;
    int width = Dock::width;
    int height = 0;
    std::string tab;
    std::vector<std::string> keys;
    FocusAtClicks clicks = FocusAtClicks::isLeftAlone;
    XErrors errors = XErrors::endTheProcess;

    void settle() const { (void)XSync(display, False); }

    void makeFrame()
    {
        frame =
            XCreateSimpleWindow(display, DefaultRootWindow(display), left, top, static_cast<unsigned>(width),
                                static_cast<unsigned>(height + stripHeight), 0, 0, groundColour);
        (void)XStoreName(display, frame, "Stand-in host");
        (void)XSelectInput(display, frame, hostEvents);
        XGCValues values{};
        pen = XCreateGC(display, frame, 0, &values);
        (void)XMapWindow(display, frame);
        XEvent event;
        do
            (void)XWindowEvent(display, frame, StructureNotifyMask, &event);
        while (event.type != MapNotify);
        paint();
    }

    void paint() const
    {
        const auto fill = [this](unsigned long colour, int x, int y, int w, int h)
        {
            (void)XSetForeground(display, pen, colour);
            (void)XFillRectangle(display, frame, pen, x, y, static_cast<unsigned>(w),
                                 static_cast<unsigned>(h));
        };
        constexpr int tabWidth = 170;
        fill(stripColour, 0, 0, width, stripHeight);
        if (!tab.empty())
        {
            fill(tabColour, 4, 4, tabWidth, stripHeight - 4);
            (void)XSetForeground(display, pen, textColour);
            (void)XDrawString(display, frame, pen, 12, stripHeight - 8, tab.c_str(),
                              static_cast<int>(tab.size()));
        }
        settle();
    }

    void noteKey(XKeyEvent& key)
    {
        if (!isModifier(key))
            keys.push_back(nameOf(key));
    }

    void handle(XEvent& event)
    {
        if (event.type == ButtonPress && clicks == FocusAtClicks::isTaken)
            (void)XSetInputFocus(display, frame, RevertToParent, event.xbutton.time);
        if (event.type == Expose)
            paint();
        if (event.type == KeyPress)
            noteKey(event.xkey);
        if (event.type == MappingNotify)
            (void)XRefreshKeyboardMapping(&event.xmapping);
    }

    Area areaOf(Window window) const
    {
        XWindowAttributes attributes{};
        Window ignored = None;
        Area area;
        (void)XGetWindowAttributes(display, window, &attributes);
        (void)XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &area.x, &area.y,
                                    &ignored);
        area.width = attributes.width;
        area.height = attributes.height;
        return area;
    }

    std::vector<Window> topWindows() const
    {
        Window root = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned count = 0;
        (void)XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
        const std::vector<Window> result(children, children + count);
        if (children != nullptr)
            (void)XFree(children);
        return result;
    }
};

Dock::Dock(int containerHeight) : windows(new Windows)
{
    windows->display = XOpenDisplay(nullptr);
    if (windows->display == nullptr)
        throw std::runtime_error("no display");
    errorsTold = 0;
    windows->height = containerHeight;
    windows->makeFrame();
}

Dock::~Dock()
{
    (void)XFreeGC(windows->display, windows->pen);
    (void)XCloseDisplay(windows->display);
    if (windows->errors == XErrors::areCounted)
        (void)XSetErrorHandler(nullptr);
}

void Dock::Obey(const HostOptions& options)
{
    windows->clicks = options.focusAtClicks;
    if (std::exchange(windows->errors, options.xErrors) != options.xErrors)
        (void)XSetErrorHandler(options.xErrors == XErrors::areCounted ? &noteError : nullptr);
}

void Dock::HandleEvents()
{
    windows->settle();
    while (XPending(windows->display) != 0)
    {
        XEvent event;
        (void)XNextEvent(windows->display, &event);
        windows->handle(event);
    }
    windows->settle();
}

std::vector<std::string> Dock::TakeKeys()
{
    HandleEvents();
    return std::exchange(windows->keys, {});
}

int Dock::Errors() const { return errorsTold; }

Area Dock::ContainerOnScreen() const
{
    Area area = windows->areaOf(windows->frame);
    area.y += stripHeight;
    area.width = windows->width;
    area.height = windows->height;
    return area;
}

Place Dock::EmptyPlace() const
{
    const Area area = windows->areaOf(windows->frame);
    constexpr int beside = 20;
    return {area.x + area.width - beside, area.y + stripHeight / 2};
}

void Dock::Resize(int newWidth, int newHeight)
{
    windows->width = newWidth;
    windows->height = newHeight;
    (void)XResizeWindow(windows->display, windows->frame, static_cast<unsigned>(newWidth),
                        static_cast<unsigned>(newHeight + stripHeight));
    if (windows->container != None)
        (void)XResizeWindow(windows->display, windows->container, static_cast<unsigned>(newWidth),
                            static_cast<unsigned>(newHeight));
    windows->paint();
}

ScreenPicture Dock::Picture(const Area& onScreen) const
{
    ScreenPicture picture;
    picture.width = onScreen.width;
    picture.height = onScreen.height;
    XImage* image = XGetImage(windows->display, DefaultRootWindow(windows->display), onScreen.x, onScreen.y,
                              static_cast<unsigned>(onScreen.width), static_cast<unsigned>(onScreen.height),
                              AllPlanes, ZPixmap);
    if (image == nullptr)
        throw std::runtime_error("no picture of the screen");
    picture.pixels.reserve(static_cast<std::size_t>(onScreen.width) *
                           static_cast<std::size_t>(onScreen.height));
    for (int y = 0; y < onScreen.height; ++y)
        for (int x = 0; x < onScreen.width; ++x)
            picture.pixels.push_back(static_cast<std::uint32_t>(XGetPixel(image, x, y) & 0xffffff));
    (void)XDestroyImage(image);
    return picture;
}

std::vector<PopUp> Dock::PopUps() const
{
    std::vector<PopUp> found;
    const Asking asking(windows->display);
    for (const Window window : windows->topWindows())
    {
        XWindowAttributes attributes{};
        if (window == windows->frame || XGetWindowAttributes(windows->display, window, &attributes) == 0)
            continue;
        if (attributes.map_state == IsViewable && attributes.override_redirect != 0)
            found.push_back({window, windows->areaOf(window)});
    }
    return found;
}

Area Dock::WholeScreen() const
{
    const int screen = DefaultScreen(windows->display);
    return {0, 0, DisplayWidth(windows->display, screen), DisplayHeight(windows->display, screen)};
}

void* Dock::MakeContainer(const std::string& panelName)
{
    windows->tab = panelName;
    windows->container = XCreateSimpleWindow(windows->display, windows->frame, 0, stripHeight,
                                             static_cast<unsigned>(windows->width),
                                             static_cast<unsigned>(windows->height), 0, 0, groundColour);
    (void)XMapWindow(windows->display, windows->container);
    windows->paint();
    return reinterpret_cast<void*>(windows->container);
}

void Dock::DestroyContainer(void* container)
{
    (void)XDestroyWindow(windows->display, reinterpret_cast<Window>(container));
    windows->container = None;
    windows->tab.clear();
    windows->paint();
}

void Dock::ShowContainer(void* container, Visibility visibility)
{
    const auto window = reinterpret_cast<Window>(container);
    (void)(visibility == Visibility::visible ? XMapWindow(windows->display, window)
                                             : XUnmapWindow(windows->display, window));
    windows->settle();
}
} // namespace standin
