#include "tests/x11/support/PlainHost.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <algorithm>
#include <stdexcept>
#include <utility>

namespace standin
{
namespace
{
constexpr long hostEvents =
    KeyPressMask | KeyReleaseMask | ButtonPressMask | FocusChangeMask | StructureNotifyMask;

/// Xlib's handler is a plain function.
int errorsTold = 0;

int noteError(Display*, XErrorEvent*)
{
    ++errorsTold;
    return 0;
}

int noteOtherError(Display*, XErrorEvent*) { return 0; }

std::string textOf(XKeyEvent& key)
{
    const std::pair<unsigned, const char*> modifiers[] = {{ControlMask, "ctrl+"}, {ShiftMask, "shift+"},
                                                          {Mod1Mask, "alt+"},     {Mod4Mask, "super+"},
                                                          {LockMask, "caps+"},    {Mod2Mask, "num+"}};
    std::string text = key.type == KeyPress ? "+" : "-";
    for (const auto& [mask, name] : modifiers)
        if ((key.state & mask) != 0)
            text += name;
    KeySym symbol = NoSymbol;
    char ignored[16];
    (void)XLookupString(&key, ignored, sizeof ignored, &symbol, nullptr);
    const char* name = XKeysymToString(symbol);
    return text + (name == nullptr ? "?" : name);
}
} // namespace

struct PlainHost::Windows
{
    Display* display = XOpenDisplay(nullptr);
    Window top = None;
    Window container = None;
    Window other = None;
    HostClicks clicks = HostClicks::areIgnored;
    ContainerStart start = ContainerStart::mapped;
    std::vector<std::string> keys;
    XKeyEvent lastKey{};
    XErrorHandler formerHandler = nullptr;
    std::function<void()> whileMakingContainer;

    Window makeTop() const
    {
        const Window made = XCreateSimpleWindow(display, DefaultRootWindow(display), left, PlainHost::top,
                                                width, height, 0, 0, 0x303030);
        (void)XSelectInput(display, made, hostEvents);
        (void)XMapWindow(display, made);
        return made;
    }

    XWindowAttributes attributesOf(Window window) const
    {
        XWindowAttributes attributes{};
        (void)XSync(display, False);
        if (XGetWindowAttributes(display, window, &attributes) == 0)
            throw std::runtime_error("no such window");
        return attributes;
    }

    std::vector<Window> childrenOf(Window window) const
    {
        Window root = None;
        Window parent = None;
        Window* children = nullptr;
        unsigned count = 0;
        (void)XQueryTree(display, window, &root, &parent, &children, &count);
        const std::vector<Window> result(children, children + count);
        if (children != nullptr)
            (void)XFree(children);
        return result;
    }
};

PlainHost::PlainHost() : windows(new Windows)
{
    if (windows->display == nullptr)
        throw std::runtime_error("no display");
    errorsTold = 0;
    windows->formerHandler = XSetErrorHandler(&noteError);
    windows->top = windows->makeTop();
    (void)XSync(windows->display, False);
}

PlainHost::~PlainHost()
{
    (void)XCloseDisplay(windows->display);
    (void)XSetErrorHandler(windows->formerHandler);
    delete windows;
}

void PlainHost::SetClicks(HostClicks clicks) { windows->clicks = clicks; }

void PlainHost::SetContainerStart(ContainerStart start) { windows->start = start; }

void PlainHost::HandleEvents()
{
    (void)XSync(windows->display, False);
    while (XPending(windows->display) != 0)
    {
        XEvent event;
        (void)XNextEvent(windows->display, &event);
        if (event.type == MappingNotify)
            (void)XRefreshKeyboardMapping(&event.xmapping);
        if (event.type == ButtonPress && windows->clicks == HostClicks::takeTheFocus)
            (void)XSetInputFocus(windows->display, windows->top, RevertToParent, event.xbutton.time);
        if (event.type != KeyPress && event.type != KeyRelease)
            continue;
        windows->lastKey = event.xkey;
        windows->keys.push_back(textOf(event.xkey));
    }
    (void)XSync(windows->display, False);
}

std::vector<std::string> PlainHost::TakeKeys()
{
    HandleEvents();
    return std::exchange(windows->keys, {});
}

long PlainHost::CountOf(const std::string& key) const
{
    return std::count(windows->keys.begin(), windows->keys.end(), key);
}

/// A change of a property is told with its time.
unsigned long PlainHost::ServerTime()
{
    Display* display = windows->display;
    const Window window = XCreateSimpleWindow(display, windows->top, 0, 0, 1, 1, 0, 0, 0);
    (void)XSelectInput(display, window, PropertyChangeMask);
    (void)XStoreName(display, window, "time");
    XEvent event;
    (void)XWindowEvent(display, window, PropertyChangeMask, &event);
    (void)XDestroyWindow(display, window);
    return event.xproperty.time;
}

void PlainHost::ChangeKeyboardMap()
{
    Display* display = windows->display;
    int least = 0;
    int most = 0;
    (void)XDisplayKeycodes(display, &least, &most);
    KeySym symbol = XK_Hyper_L;
    (void)XChangeKeyboardMapping(display, most, 1, &symbol, 1);
    (void)XSync(display, False);
}

unsigned long PlainHost::LastKeyTime() const { return windows->lastKey.time; }
unsigned long PlainHost::LastKeyWindow() const { return windows->lastKey.window; }

void PlainHost::SwapMouseButtons()
{
    unsigned char buttons[32];
    const int count = XGetPointerMapping(windows->display, buttons, sizeof buttons);
    std::swap(buttons[0], buttons[2]);
    (void)XSetPointerMapping(windows->display, buttons, count);
}

int PlainHost::TakeErrors()
{
    (void)XSync(windows->display, False);
    return std::exchange(errorsTold, 0);
}

bool PlainHost::HasItsErrorHandler() const
{
    const XErrorHandler present = XSetErrorHandler(&noteError);
    (void)XSetErrorHandler(present);
    return present == &noteError;
}

void PlainHost::MakeAnError()
{
    (void)XMapWindow(windows->display, 1);
    (void)XSync(windows->display, False);
}

void PlainHost::UseDefaultErrorHandler() { (void)XSetErrorHandler(nullptr); }

void PlainHost::SetOtherErrorHandler() { (void)XSetErrorHandler(&noteOtherError); }

void PlainHost::UseOwnErrorHandler() { (void)XSetErrorHandler(&noteError); }

bool PlainHost::HasOtherErrorHandler()
{
    const XErrorHandler present = XSetErrorHandler(&noteError);
    (void)XSetErrorHandler(present);
    return present == &noteOtherError;
}

void PlainHost::SetWhileMakingContainer(std::function<void()> action)
{
    windows->whileMakingContainer = std::move(action);
}

unsigned long PlainHost::TopWindow() const { return windows->top; }
unsigned long PlainHost::Container() const { return windows->container; }

unsigned long PlainHost::PanelWindow() const
{
    if (windows->container == None)
        return None;
    (void)XSync(windows->display, False);
    const std::vector<Window> children = windows->childrenOf(windows->container);
    if (children.size() > 1)
        throw std::runtime_error("several windows in the container");
    return children.empty() ? None : children.front();
}

WindowGeometry PlainHost::GeometryOf(unsigned long window) const
{
    const XWindowAttributes attributes = windows->attributesOf(window);
    return {attributes.x, attributes.y, attributes.width, attributes.height};
}

bool PlainHost::IsOnScreen(unsigned long window) const
{
    return windows->attributesOf(window).map_state == IsViewable;
}

long PlainHost::SelectionOn(unsigned long window) const
{
    return windows->attributesOf(window).your_event_mask;
}

long PlainHost::AllSelectionsOn(unsigned long window) const
{
    return windows->attributesOf(window).all_event_masks;
}

std::vector<std::string> PlainHost::PropertiesOf(unsigned long window) const
{
    int count = 0;
    Atom* atoms = XListProperties(windows->display, window, &count);
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i)
    {
        char* name = XGetAtomName(windows->display, atoms[i]);
        names.emplace_back(name);
        (void)XFree(name);
    }
    if (atoms != nullptr)
        (void)XFree(atoms);
    return names;
}

int PlainHost::ChildrenOfRoot() const
{
    (void)XSync(windows->display, False);
    return static_cast<int>(windows->childrenOf(DefaultRootWindow(windows->display)).size());
}

void PlainHost::SetFocus(unsigned long window)
{
    (void)XSetInputFocus(windows->display, window, RevertToParent, CurrentTime);
    (void)XSync(windows->display, False);
}

unsigned long PlainHost::MakeField()
{
    const Window field =
        XCreateSimpleWindow(windows->display, windows->top, panelWidth + 20, 20, 60, 20, 0, 0, 0x606060);
    (void)XMapWindow(windows->display, field);
    (void)XSync(windows->display, False);
    return field;
}

void PlainHost::SelectKeysOn(unsigned long window)
{
    (void)XSelectInput(windows->display, window, KeyPressMask | KeyReleaseMask);
    (void)XSync(windows->display, False);
}

void PlainHost::Resize(int newWidth, int newHeight)
{
    (void)XResizeWindow(windows->display, windows->container, static_cast<unsigned>(newWidth),
                        static_cast<unsigned>(newHeight));
    (void)XSync(windows->display, False);
}

void PlainHost::Map()
{
    (void)XMapWindow(windows->display, windows->container);
    (void)XSync(windows->display, False);
}

void PlainHost::Unmap()
{
    (void)XUnmapWindow(windows->display, windows->container);
    (void)XSync(windows->display, False);
}

void PlainHost::Destroy()
{
    (void)XDestroyWindow(windows->display, std::exchange(windows->container, None));
    (void)XSync(windows->display, False);
}

void PlainHost::DestroyPanelWindow()
{
    (void)XDestroyWindow(windows->display, PanelWindow());
    (void)XSync(windows->display, False);
}

unsigned long PlainHost::MakeWindowOfAnotherProgram(int x, int y, int itsWidth, int itsHeight)
{
    windows->other = XCreateSimpleWindow(windows->display, DefaultRootWindow(windows->display), x, y,
                                         static_cast<unsigned>(itsWidth), static_cast<unsigned>(itsHeight), 0,
                                         0, 0x0000ff);
    (void)XMapWindow(windows->display, windows->other);
    (void)XSync(windows->display, False);
    return windows->other;
}

void PlainHost::DestroyWindowOfAnotherProgram()
{
    (void)XDestroyWindow(windows->display, windows->other);
    (void)XSync(windows->display, False);
}

void PlainHost::SetScreenResource(const std::string& line)
{
    (void)XChangeProperty(windows->display, DefaultRootWindow(windows->display), XA_RESOURCE_MANAGER,
                          XA_STRING, 8, PropModeReplace, reinterpret_cast<const unsigned char*>(line.data()),
                          static_cast<int>(line.size()));
    (void)XSync(windows->display, False);
}

void PlainHost::MoveContainerToNewTop()
{
    const Window former = windows->top;
    windows->top = windows->makeTop();
    (void)XReparentWindow(windows->display, windows->container, windows->top, 0, 0);
    (void)XDestroyWindow(windows->display, former);
    (void)XSync(windows->display, False);
}

void* PlainHost::MakeContainer(const std::string&)
{
    if (windows->whileMakingContainer)
        windows->whileMakingContainer();
    windows->container =
        XCreateSimpleWindow(windows->display, windows->top, 0, 0, panelWidth, panelHeight, 0, 0, 0x404040);
    if (windows->start == ContainerStart::mapped)
        (void)XMapWindow(windows->display, windows->container);
    (void)XSync(windows->display, False);
    return reinterpret_cast<void*>(windows->container);
}

void PlainHost::DestroyContainer(void* container)
{
    if (reinterpret_cast<Window>(container) == windows->container)
        Destroy();
}

void PlainHost::ShowContainer(void* container, Visibility visibility)
{
    if (reinterpret_cast<Window>(container) == windows->container)
        visibility == Visibility::visible ? Map() : Unmap();
}
} // namespace standin
