#include "panel/platform/x11/X11Embedding.h"

#include "host/PrintLine.h"
#include "panel/platform/x11/KeyLines.h"
#include "panel/platform/x11/WindowTree.h"

#include <X11/XKBlib.h>
#include <X11/keysym.h>
#include <algorithm>

namespace
{
constexpr long keyEvents = KeyPressMask | KeyReleaseMask;

/// Dealing with events makes new ones; those that come after so many rounds wait for the next update.
constexpr int mostRounds = 4;

/// Buttons 4 to 7 are the wheel's: no clicks.
bool isClick(unsigned button) { return button < 4 || button > 7; }

/// Focus events that only say where the pointer is. JUCE takes them for the focus itself.
bool isAboutPointer(const XFocusChangeEvent& event)
{
    return event.detail == NotifyPointer || event.detail == NotifyPointerRoot ||
           event.detail == NotifyDetailNone;
}

bool isPointerOverTree(Display* display)
{
    Window at = DefaultRootWindow(display);
    while (at != None && !IsTreeWindow(at))
    {
        Window root = None;
        Window child = None;
        int ignored = 0;
        unsigned mask = 0;
        if (XQueryPointer(display, at, &root, &child, &ignored, &ignored, &ignored, &ignored, &mask) == False)
            return false;
        at = child;
    }
    return at != None;
}
} // namespace

void X11Embedding::Attach(ValueTreesDemo* tree, Window container)
{
    if (GetTreeDisplay() != nullptr && GetTreeWindow(tree) != None)
        SetTreeAttachment(tree, std::make_shared<X11Embedding>(tree, container));
}

X11Embedding::X11Embedding(ValueTreesDemo* widget, Window hostContainer)
    : tree(widget),
      container(hostContainer),
      display(GetTreeDisplay()),
      panelWindow(GetTreeWindow(widget)),
      host(display, hostContainer),
      rawPresses(display),
      focusWatch(display),
      superMask(XkbKeysymToModifiers(display, XK_Super_L))
{
    PrintLine("View Will move to Winodw");
    NoteTreeIsEmbedded(tree);
    detachKeys();
    watchContainer();
    followContainer();
    PrintLine("Adding Event Monitor");
}

/// JUCE selects keys permanently, and would take them from the host wherever the pointer hovers.
void X11Embedding::detachKeys()
{
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display, panelWindow, &attributes) == 0)
        return;
    juceEventMask = attributes.your_event_mask & ~keyEvents;
    selectsKeys = true;
    selectKeys(false);
}

/// The container may have changed its size since the widget was made.
void X11Embedding::watchContainer()
{
    (void)XSelectInput(display, container, StructureNotifyMask);
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display, container, &attributes) == 0)
        return;
    newWidth = attributes.width;
    newHeight = attributes.height;
    hasNewSize = true;
}

void X11Embedding::OnTreeGone()
{
    tree = nullptr;
    events.clear();
    PrintLine("View Will move to Winodw");
    PrintLine("New Window Empty");
    if (GetTreeDisplay() == nullptr)
        return;
    if (holdsKeyboard)
        leaveKeyboard();
    if (container != None)
        (void)XSelectInput(display, container, NoEventMask);
    rawPresses.Stop();
    focusWatch.Stop();
    XFlush(display);
}

/// A window that dies leaves the focus to the one around it.
void X11Embedding::leaveKeyboard()
{
    Window focused = None;
    int revert = RevertToNone;
    XGetInputFocus(display, &focused, &revert);
    if (focused == container || wasLeftBehind(focused, revert))
        host.TakeKeyboardBack(CurrentTime);
}

bool X11Embedding::MustUpdate() const
{
    return !isFocusSettled || pendingPress.has_value() || !events.empty() || IsTreeButtonDown();
}

void X11Embedding::Update()
{
    const std::optional<Time> formerPending = pendingPress;
    const bool mustRelease = isReleaseOverdue();
    wasPressed = false;
    KeepTreeEvents();
    handleEvents();
    if (mustRelease && !wasPressed && IsTreeButtonDown())
        ReleaseTreeButtons(tree);
    RunTreeMessages();
    handleEvents();
    if (formerPending.has_value())
        settle(*formerPending);
    followContainer();
    examineFocus();
}

// ---- What comes in

void X11Embedding::handleEvents()
{
    for (int round = 0; round < mostRounds && readEvents(); ++round)
    {
        while (!events.empty())
        {
            XEvent event = events.front();
            events.pop_front();
            handleEvent(event);
        }
    }
}

/// Takes all events that the server has sent by now. False if there are none.
bool X11Embedding::readEvents()
{
    if (tree == nullptr)
        return false;
    XSync(display, False);
    for (int i = XEventsQueued(display, QueuedAlready); i > 0; --i)
    {
        XEvent event;
        XNextEvent(display, &event);
        rawPresses.Translate(event);
        events.push_back(event);
    }
    return !events.empty();
}

void X11Embedding::handleEvent(XEvent& event)
{
    switch (event.type)
    {
    case KeyPress:
    case KeyRelease:
        return handleKey(event);
    case ButtonPress:
        return event.xbutton.window == None ? handleRawPress(event.xbutton) : handlePress(event);
    case FocusIn:
    case FocusOut:
        return handleFocusChange(event);
    case ConfigureNotify:
        return handleConfigure(event);
    case DestroyNotify:
        return handleDestroy(event);
    case MappingNotify:
        (void)XRefreshKeyboardMapping(&event.xmapping);
        return DeliverTreeEvent(event);
    case GenericEvent:
        return;
    default:
        return DeliverTreeEvent(event);
    }
}

void X11Embedding::handleConfigure(const XEvent& event)
{
    DeliverTreeEvent(event);
    if (event.xconfigure.event != container || event.xconfigure.window != container)
        return;
    newWidth = event.xconfigure.width;
    newHeight = event.xconfigure.height;
    hasNewSize = true;
}

void X11Embedding::handleDestroy(const XEvent& event)
{
    DeliverTreeEvent(event);
    if (event.xdestroywindow.window == container || event.xdestroywindow.window == panelWindow)
        loseContainer();
}

/// The panel's window has died with the container. The widget lives on until the host makes a new panel.
void X11Embedding::loseContainer()
{
    DismissTreeMenus();
    ReleaseTreeButtons(tree);
    if (GetTreeWindow(tree) == panelWindow)
        RemoveTreeFromDesktop(tree);
    holdsKeyboard = false;
    hasNewSize = false;
    container = None;
    panelWindow = None;
}

void X11Embedding::followContainer()
{
    if (hasNewSize)
        ResizeTree(tree, newWidth, newHeight);
    hasNewSize = false;
}

// ---- Presses

/// Unless the release is among the events that wait, it will not come: a window that is unmapped or dies
/// under a held button is not told of it.
bool X11Embedding::isReleaseOverdue() const
{
    if (!IsTreeButtonDown())
        return false;
    Window window = None;
    int ignored = 0;
    unsigned mask = 0;
    (void)XQueryPointer(display, DefaultRootWindow(display), &window, &window, &ignored, &ignored, &ignored,
                        &ignored, &mask);
    return (mask & (Button1Mask | Button2Mask | Button3Mask)) == 0;
}

void X11Embedding::handlePress(const XEvent& event)
{
    wasPressed = true;
    pendingPress.reset(); // It was this one, or the user has come back since.
    if (event.xbutton.button <= Button3 && event.xbutton.window == panelWindow && !holdsKeyboard)
        takeKeyboard(event.xbutton.time);
    if (event.xbutton.window == panelWindow && event.xbutton.button == Button1)
        PrintLine("Click happened in View");
    DeliverTreeEvent(event);
    examineFocus();
}

/// A press that no window of JUCE got is one outside. A window manager that examines a press first hands it
/// on later, so one with the pointer over the panel may still come.
void X11Embedding::handleRawPress(const XButtonEvent& press)
{
    if (!isClick(press.button) || isTreePressNext(press))
        return;
    if (isPointerOverTree(display))
        pendingPress = press.time;
    else
        handlePressOutside(press.time);
}

void X11Embedding::settle(Time pending)
{
    if (pendingPress != pending)
        return;
    pendingPress.reset();
    handlePressOutside(pending);
}

/// Whether what follows a raw press is the same press in a window of JUCE. Several presses can have one time,
/// and the button's number is another for a left-handed mouse.
bool X11Embedding::isTreePressNext(const XButtonEvent& press) const
{
    const auto next = std::find_if(events.begin(), events.end(),
                                   [](const XEvent& event) { return event.type == ButtonPress; });
    return next != events.end() && next->xbutton.window != None && next->xbutton.time == press.time;
}

/// The host may have taken the keyboard itself by now, and then it keeps it where it is. A window manager may
/// still be about to give it to a window of its choice, as of the press: that must not come too late.
void X11Embedding::handlePressOutside(Time time)
{
    for (const Time asOf : {time, Time{CurrentTime}})
    {
        examineFocus();
        if (holdsKeyboard)
            host.TakeKeyboardBack(asOf);
    }
    holdKeyboard(false);
    DismissTreeMenus();
}

// ---- The keyboard

/// The host gets the release of every key whose press the panel has not used: it may have seen the press.
void X11Embedding::handleKey(const XEvent& event)
{
    bool& wasUsed = usedKeys[event.xkey.keycode & 255];
    const KeyUse use = offerKey(event);
    if (event.type == KeyPress)
        wasUsed = use == KeyUse::used;
    if (!wasUsed)
        host.PassOn(event.xkey);
    if (event.type == KeyRelease)
        wasUsed = false;
}

KeyUse X11Embedding::offerKey(const XEvent& event)
{
    if (!holdsKeyboard || (event.xkey.state & superMask) != 0)
        return KeyUse::unused;
    if (event.type == KeyPress)
        WriteKeyLines(event.xkey);
    const bool isOfTree = event.type == KeyPress && IsKeyOfTree(event.xkey);
    const KeyUse use = HandleTreeKey(tree, event);
    return isOfTree ? KeyUse::used : use;
}

/// JUCE would take the focus at the press and hear of it afterwards, which makes it forget where the press
/// has put it. So it is told before. The next key must find a window that wants it.
void X11Embedding::takeKeyboard(Time time)
{
    selectKeys(true);
    (void)XSetInputFocus(display, panelWindow, RevertToParent, time);
    XEvent event = {};
    event.xfocus.type = FocusIn;
    event.xfocus.display = display;
    event.xfocus.window = panelWindow;
    event.xfocus.mode = NotifyNormal;
    event.xfocus.detail = NotifyNonlinear;
    DeliverTreeEvent(event);
}

void X11Embedding::handleFocusChange(const XEvent& event)
{
    if (!isAboutPointer(event.xfocus))
        DeliverTreeEvent(event);
    examineFocus();
}

/// A window on the root that had the focus when it went away has left it there.
bool X11Embedding::wasLeftBehind(Window focused, int revert) const
{
    return focused == DefaultRootWindow(display) && revert == RevertToNone;
}

/// The panel holds the keyboard while the focus is on its window. JUCE puts it on a menu or on the picture of
/// a drag as well, which are windows of their own: when one of those goes away, a window manager finds nobody
/// in charge and chooses the host. So it is taken back from them at once.
void X11Embedding::examineFocus()
{
    if (tree == nullptr)
        return;
    const FocusWatch::Focus focus = focusWatch.Find();
    Window focused = focus.window;
    const bool isOnPopup = focused != panelWindow && IsTreeWindow(focused);
    const bool isLost = holdsKeyboard && wasLeftBehind(focused, focus.revert);
    isFocusSettled = focusWatch.IsTold() && !isOnPopup && !isLost;
    if ((isOnPopup || isLost) && IsOnScreen(display, panelWindow))
    {
        (void)XSetInputFocus(display, panelWindow, RevertToParent, CurrentTime);
        focused = panelWindow;
    }
    holdKeyboard(focused == panelWindow && panelWindow != None);
    if (!holdsKeyboard)
        host.NoteFocus(focused);
}

void X11Embedding::holdKeyboard(bool isHeld)
{
    holdsKeyboard = isHeld;
    selectKeys(isHeld);
}

/// While the panel does not hold the keyboard, a pointer over its window must take no key from anybody.
void X11Embedding::selectKeys(bool wanted)
{
    if (wanted == selectsKeys || panelWindow == None)
        return;
    selectsKeys = wanted;
    (void)XSelectInput(display, panelWindow, wanted ? juceEventMask | keyEvents : juceEventMask);
    XFlush(display);
}
