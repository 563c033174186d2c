#include "panel/platform/x11/X11Embedding.h"

#include <X11/extensions/XInput2.h>

void X11Embedding::Attach(ValueTreesDemo* tree, Window container)
{
    auto connection = std::make_unique<XConnection>();
    if (connection->Get() != nullptr)
        SetTreeAttachment(tree, std::make_shared<X11Embedding>(tree, container, std::move(connection)));
}

X11Embedding::X11Embedding(ValueTreesDemo* widget, Window hostContainer,
                           std::unique_ptr<XConnection> ownConnection)
    : tree(widget),
      container(hostContainer),
      connection(std::move(ownConnection)),
      display(connection->Get()),
      panelWindow(GetTreeWindow(widget)),
      host(display, hostContainer)
{
    selectContainerEvents();
    selectRawPresses();
    DetachTreeKeys(tree);
}

X11Embedding::~X11Embedding()
{
    // The panel's window may have gone by now, and the keyboard with it to the container.
    if (holdsKeyboard)
        host.TakeKeyboardBack();
}

/// The container may have changed its size before it was watched.
void X11Embedding::selectContainerEvents()
{
    XSelectInput(display, container, StructureNotifyMask);
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display, container, &attributes) == 0)
        return;
    newWidth = attributes.width;
    newHeight = attributes.height;
    hasNewSize = true;
}

/// The container's window belongs to the host, which alone may select its presses; raw presses are told to
/// whoever asks.
void X11Embedding::selectRawPresses()
{
    int opcode = 0;
    int firstEvent = 0;
    int firstError = 0;
    int major = 2;
    int minor = 1;
    if (XQueryExtension(display, "XInputExtension", &opcode, &firstEvent, &firstError) == 0 ||
        XIQueryVersion(display, &major, &minor) != Success)
        return;
    unsigned char bits[XIMaskLen(XI_LASTEVENT)] = {};
    XISetMask(bits, XI_RawButtonPress);
    XIEventMask mask = {XIAllMasterDevices, sizeof bits, bits};
    if (XISelectEvents(display, DefaultRootWindow(display), &mask, 1) == Success)
        rawPressOpcode = opcode;
}

void X11Embedding::Update()
{
    TreeEvents treeEvents;
    std::vector<Input> input = takeInput(treeEvents);
    for (Input& one : input)
    {
        treeEvents.DeliverUntil(one.time);
        examineFocus();
        if (one.kind == Input::Kind::key)
            handleKey(one.event);
        else if (holdsKeyboard)
            giveKeyboardUp();
    }
    treeEvents.DeliverAll();
    followContainer();
    examineFocus();
}

std::vector<X11Embedding::Input> X11Embedding::takeInput(const TreeEvents& treeEvents)
{
    std::vector<Input> input;
    while (XPending(display) != 0)
    {
        XEvent event;
        XNextEvent(display, &event);
        takeEvent(event, treeEvents, input);
    }
    return input;
}

void X11Embedding::takeEvent(XEvent& event, const TreeEvents& treeEvents, std::vector<Input>& input)
{
    switch (event.type)
    {
    case KeyPress:
    case KeyRelease:
        input.push_back({Input::Kind::key, event.xkey.time, event});
        break;
    case ConfigureNotify:
        newWidth = event.xconfigure.width;
        newHeight = event.xconfigure.height;
        hasNewSize = true;
        break;
    case DestroyNotify:
        hasContainer = hasContainer && event.xdestroywindow.window != container;
        break;
    case GenericEvent:
        takeRawPress(event, treeEvents, input);
        break;
    default:
        break;
    }
}

/// A press that no window of the panel or of its menus got is one outside.
void X11Embedding::takeRawPress(XEvent& event, const TreeEvents& treeEvents, std::vector<Input>& input)
{
    if (event.xcookie.extension != rawPressOpcode || XGetEventData(display, &event.xcookie) == 0)
        return;
    if (event.xcookie.evtype == XI_RawButtonPress)
    {
        const Time time = static_cast<const XIRawEvent*>(event.xcookie.data)->time;
        if (!treeEvents.HasPressAt(time))
            input.push_back({Input::Kind::pressOutside, time, XEvent{}});
    }
    XFreeEventData(display, &event.xcookie);
}

/// A container that has gone has taken the panel's window along.
void X11Embedding::followContainer()
{
    if (!hasContainer)
    {
        if (GetTreeWindow(tree) != 0)
            RemoveTreeFromDesktop(tree);
        holdKeyboard(false);
        return;
    }
    if (hasNewSize)
        ResizeTree(tree, newWidth, newHeight);
    hasNewSize = false;
}

/// The host gets the release of every key whose press the panel has not used: it may have seen the press.
void X11Embedding::handleKey(XEvent& event)
{
    bool& wasUsed = usedKeys[event.xkey.keycode & 255];
    if (event.type == KeyPress)
    {
        wasUsed = holdsKeyboard && HandleTreeKey(tree, &event) == KeyUse::used;
        if (!wasUsed)
            host.PassOn(event.xkey);
        return;
    }
    if (holdsKeyboard)
        (void)HandleTreeKey(tree, &event);
    if (!wasUsed)
        host.PassOn(event.xkey);
    wasUsed = false;
}

void X11Embedding::giveKeyboardUp()
{
    DismissTreeMenus();
    host.TakeKeyboardBack();
    holdKeyboard(false);
}

/// The panel holds the keyboard while the focus is on its window or on a menu of its own. A menu or a drag
/// image that goes away leaves the focus on the root window: it is fetched from there.
void X11Embedding::examineFocus()
{
    Window focused = None;
    int revert = 0;
    XGetInputFocus(display, &focused, &revert);
    const bool isOurs = focused != None && focused != PointerRoot && IsTreeWindow(focused);
    if (!isOurs && holdsKeyboard && hasContainer &&
        (focused == None || focused == PointerRoot || focused == DefaultRootWindow(display)))
    {
        XSetInputFocus(display, panelWindow, RevertToParent, CurrentTime);
        return;
    }
    holdKeyboard(isOurs);
    if (!isOurs)
        host.NoteFocus(focused);
}

void X11Embedding::holdKeyboard(bool hold)
{
    if (hold == holdsKeyboard)
        return;
    holdsKeyboard = hold;
    if (hasContainer)
        XSelectInput(display, panelWindow, hold ? KeyPressMask | KeyReleaseMask : NoEventMask);
    XFlush(display);
}
