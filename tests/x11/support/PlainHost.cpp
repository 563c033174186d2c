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
using namespace user;

namespace
{
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

XWindowAttributes attributesOf(Display* display, Window window)
{
    XWindowAttributes attributes{};
    (void)XSync(display, False);
    if (XGetWindowAttributes(display, window, &attributes) == 0)
        throw std::runtime_error("no such window");
    return attributes;
}

std::vector<Window> childrenOf(Display* display, Window window)
{
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    (void)XSync(display, False);
    (void)XQueryTree(display, window, &root, &parent, &children, &count);
    const std::vector<Window> result(children, children + count);
    if (children != nullptr)
        (void)XFree(children);
    return result;
}
} // namespace

PlainHost::PlainHost() : HostWindow({{left, top, 520, 480}, {0, 0, panelWidth, panelHeight}}) {}

PlainHost::~PlainHost() = default;

void PlainHost::handle(XEvent& event)
{
    if (event.type == ButtonPress && clicks == HostClicks::takeTheFocus)
        HostWindow::handle(event);
    if (event.type != KeyPress && event.type != KeyRelease)
        return;
    lastKeyTime = event.xkey.time;
    lastKeyWindow = event.xkey.window;
    keys.push_back(textOf(event.xkey));
}

std::vector<std::string> PlainHost::TakeKeys()
{
    HandleEvents();
    return std::exchange(keys, {});
}

long PlainHost::CountOf(const std::string& key) const { return std::count(keys.begin(), keys.end(), key); }

/// The server reports a change of a property with its time.
unsigned long PlainHost::ServerTime()
{
    const Window window = XCreateSimpleWindow(display, frame, 0, 0, 1, 1, 0, 0, 0);
    (void)XSelectInput(display, window, PropertyChangeMask);
    (void)XStoreName(display, window, "time");
    XEvent event;
    (void)XWindowEvent(display, window, PropertyChangeMask, &event);
    (void)XDestroyWindow(display, window);
    return event.xproperty.time;
}

void PlainHost::ChangeKeyboardMap()
{
    int least = 0;
    int most = 0;
    (void)XDisplayKeycodes(display, &least, &most);
    KeySym symbol = XK_Hyper_L;
    (void)XChangeKeyboardMapping(display, most, 1, &symbol, 1);
    settle();
}

void PlainHost::SwapMouseButtons()
{
    unsigned char buttons[32];
    const int count = XGetPointerMapping(display, buttons, sizeof buttons);
    std::swap(buttons[0], buttons[2]);
    (void)XSetPointerMapping(display, buttons, count);
}

void PlainHost::MakeAnError()
{
    (void)XMapWindow(display, 1);
    settle();
}

void PlainHost::UseDefaultErrorHandler() { (void)XSetErrorHandler(nullptr); }

void PlainHost::SetOtherErrorHandler() { (void)XSetErrorHandler(&noteOtherError); }

bool PlainHost::HasOtherErrorHandler()
{
    const XErrorHandler present = XSetErrorHandler(&noteOtherError);
    (void)XSetErrorHandler(present);
    return present == &noteOtherError;
}

unsigned long PlainHost::PanelWindow() const
{
    if (container == None)
        return None;
    const std::vector<Window> children = childrenOf(display, container);
    if (children.size() > 1)
        throw std::runtime_error("several windows in the container");
    return children.empty() ? None : children.front();
}

int PlainHost::ChildrenOfRoot() const
{
    return static_cast<int>(childrenOf(display, DefaultRootWindow(display)).size());
}

Area PlainHost::GeometryOf(unsigned long window) const
{
    const XWindowAttributes attributes = attributesOf(display, window);
    return {attributes.x, attributes.y, attributes.width, attributes.height};
}

bool PlainHost::IsOnScreen(unsigned long window) const
{
    return attributesOf(display, window).map_state == IsViewable;
}

long PlainHost::SelectionOn(unsigned long window) const
{
    return attributesOf(display, window).your_event_mask;
}

long PlainHost::AllSelectionsOn(unsigned long window) const
{
    return attributesOf(display, window).all_event_masks;
}

std::vector<std::string> PlainHost::PropertiesOf(unsigned long window) const
{
    int count = 0;
    Atom* atoms = XListProperties(display, window, &count);
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i)
    {
        char* name = XGetAtomName(display, atoms[i]);
        names.emplace_back(name);
        (void)XFree(name);
    }
    if (atoms != nullptr)
        (void)XFree(atoms);
    return names;
}

void PlainHost::SetFocus(unsigned long window)
{
    (void)XSetInputFocus(display, window, RevertToParent, CurrentTime);
    settle();
}

unsigned long PlainHost::MakeField()
{
    const Window field = XCreateSimpleWindow(display, frame, panelWidth + 20, 20, 60, 20, 0, 0, 0x606060);
    (void)XMapWindow(display, field);
    settle();
    return field;
}

void PlainHost::SelectKeysOn(unsigned long window)
{
    (void)XSelectInput(display, window, KeyPressMask | KeyReleaseMask);
    settle();
}

void PlainHost::Resize(int newWidth, int newHeight)
{
    (void)XResizeWindow(display, container, static_cast<unsigned>(newWidth),
                        static_cast<unsigned>(newHeight));
    settle();
}

void PlainHost::Map()
{
    (void)XMapWindow(display, container);
    settle();
}

void PlainHost::Unmap()
{
    (void)XUnmapWindow(display, container);
    settle();
}

void PlainHost::Destroy()
{
    (void)XDestroyWindow(display, std::exchange(container, None));
    settle();
}

void PlainHost::DestroyPanelWindow()
{
    (void)XDestroyWindow(display, PanelWindow());
    settle();
}

unsigned long PlainHost::MakeWindowOfAnotherProgram(int x, int y, int itsWidth, int itsHeight)
{
    other = XCreateSimpleWindow(display, DefaultRootWindow(display), x, y, static_cast<unsigned>(itsWidth),
                                static_cast<unsigned>(itsHeight), 0, 0, 0x0000ff);
    (void)XMapWindow(display, other);
    settle();
    return other;
}

void PlainHost::DestroyWindowOfAnotherProgram()
{
    (void)XDestroyWindow(display, other);
    settle();
}

void PlainHost::SetScreenResource(const std::string& line)
{
    (void)XChangeProperty(display, DefaultRootWindow(display), XA_RESOURCE_MANAGER, XA_STRING, 8,
                          PropModeReplace, reinterpret_cast<const unsigned char*>(line.data()),
                          static_cast<int>(line.size()));
    settle();
}

void PlainHost::MoveContainerToNewTop()
{
    const Window former = frame;
    frame = makeFrame();
    (void)XReparentWindow(display, container, frame, 0, 0);
    (void)XDestroyWindow(display, former);
    settle();
}

void* PlainHost::MakeContainer(const std::string& panelName)
{
    if (whileMakingContainer)
        whileMakingContainer();
    void* const view = HostWindow::MakeContainer(panelName);
    if (start == ContainerStart::unmapped)
        Unmap();
    return view;
}

void PlainHost::DestroyContainer(void* gone)
{
    if (reinterpret_cast<Window>(gone) == container)
        Destroy();
}

void PlainHost::ShowContainer(void* shown, Visibility visibility)
{
    if (reinterpret_cast<Window>(shown) == container)
        HostWindow::ShowContainer(shown, visibility);
}
} // namespace standin
