#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1

#include "tree/TreeX11.h"

#include "tree/ValueTreesDemo.h"

#include <juce_events/native/juce_linux_EventLoopInternal.h>

#include <algorithm>

namespace juce
{
// JUCE's own plug-in wrappers declare it in this way; no header does.
extern bool dispatchNextMessageOnSystemQueue(bool returnIfNoPendingMessages);
} // namespace juce

namespace
{
constexpr int mostMessagesPerRound = 100;

/// Xlib's KeyPress, a name that JUCE has for something else.
constexpr int keyPressType = 2;

Display* treeDisplay()
{
    const auto* windows = juce::XWindowSystem::getInstanceWithoutCreating();
    return windows == nullptr ? nullptr : windows->getDisplay();
}

/// Has JUCE handle what stands in Xlib's own queue. JUCE waits for its socket, which does not tell of
/// events that were put back.
void handleQueuedEvents(Display* display)
{
    juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd(ConnectionNumber(display));
}

void putBack(Display* display, std::vector<XEvent>& events)
{
    for (auto event = events.rbegin(); event != events.rend(); ++event)
        XPutBackEvent(display, &*event);
    events.clear();
}

bool serverTimeOf(const XEvent& event, Time& time)
{
    switch (event.type)
    {
    case keyPressType:
    case KeyRelease:
        time = event.xkey.time;
        return true;
    case ButtonPress:
    case ButtonRelease:
        time = event.xbutton.time;
        return true;
    case MotionNotify:
        time = event.xmotion.time;
        return true;
    case EnterNotify:
    case LeaveNotify:
        time = event.xcrossing.time;
        return true;
    default:
        return false;
    }
}

/// Server times are 32-bit milliseconds that wrap.
bool isLater(Time time, Time than)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(time) - static_cast<std::uint32_t>(than)) > 0;
}

/// Is told of every key press that JUCE hands to the component it listens to, and consumes none.
class KeyProbe : public juce::KeyListener
{
public:
    bool keyPressed(const juce::KeyPress&, juce::Component*) override
    {
        wasReached = true;
        return false;
    }
    bool wasReached = false;
};

/// The component that gets the next key: a rename editor or the tree view itself. After a click on a button
/// the keys still belong to the tree.
juce::Component* giveKeysToTree(ValueTreesDemo& tree)
{
    juce::Component* focused = juce::Component::getCurrentlyFocusedComponent();
    if (focused == nullptr || !(focused == &tree.treeView || tree.treeView.isParentOf(focused)))
    {
        tree.treeView.grabKeyboardFocus();
        focused = juce::Component::getCurrentlyFocusedComponent();
    }
    return focused;
}

/// Lets the attachment ride on the component, which lets it go when it is deleted.
struct AttachmentHolder : juce::ReferenceCountedObject
{
    std::shared_ptr<TreeAttachment> attachment;
};

const juce::Identifier& attachmentName()
{
    static const juce::Identifier name("platformAttachment");
    return name;
}
} // namespace

struct TreeEvents::Queue
{
    Display* display = nullptr;
    std::vector<XEvent> waiting;
    std::vector<Time> pressTimes;
};

TreeEvents::TreeEvents() : queue(std::make_unique<Queue>())
{
    queue->display = treeDisplay();
    if (queue->display == nullptr)
        return;
    XSync(queue->display, False);
    while (XPending(queue->display) != 0)
    {
        XEvent event;
        XNextEvent(queue->display, &event);
        if (event.type == ButtonPress)
            queue->pressTimes.push_back(event.xbutton.time);
        queue->waiting.push_back(event);
    }
}

TreeEvents::~TreeEvents()
{
    if (queue->display != nullptr)
        putBack(queue->display, queue->waiting);
}

bool TreeEvents::HasPressAt(unsigned long serverTime) const
{
    return std::find(queue->pressTimes.begin(), queue->pressTimes.end(), serverTime) !=
           queue->pressTimes.end();
}

void TreeEvents::DeliverUntil(unsigned long serverTime)
{
    const auto firstLater = std::find_if(queue->waiting.begin(), queue->waiting.end(),
                                         [&](const XEvent& event)
                                         {
                                             Time time = 0;
                                             return serverTimeOf(event, time) && isLater(time, serverTime);
                                         });
    std::vector<XEvent> due(queue->waiting.begin(), firstLater);
    queue->waiting.erase(queue->waiting.begin(), firstLater);
    if (due.empty())
        return;
    putBack(queue->display, due);
    handleQueuedEvents(queue->display);
}

void TreeEvents::DeliverAll()
{
    if (queue->display != nullptr)
    {
        putBack(queue->display, queue->waiting);
        handleQueuedEvents(queue->display);
    }
    for (int i = 0; i < mostMessagesPerRound && juce::dispatchNextMessageOnSystemQueue(true); ++i)
    {
    }
}

void* GetTreeDisplay() { return treeDisplay(); }

bool IsTreeWindow(unsigned long window)
{
    for (int i = 0; i < juce::ComponentPeer::getNumPeers(); ++i)
    {
        if (reinterpret_cast<unsigned long>(juce::ComponentPeer::getPeer(i)->getNativeHandle()) == window)
            return true;
    }
    return false;
}

unsigned long GetTreeWindow(ValueTreesDemo* tree)
{
    return tree == nullptr ? 0 : reinterpret_cast<unsigned long>(tree->getWindowHandle());
}

void ResizeTree(ValueTreesDemo* tree, int width, int height)
{
    tree->setBounds(0, 0, std::max(width, 0), std::max(height, 0));
}

void RemoveTreeFromDesktop(ValueTreesDemo* tree) { tree->removeFromDesktop(); }

void DetachTreeKeys(ValueTreesDemo* tree)
{
    Display* display = treeDisplay();
    const Window window = GetTreeWindow(tree);
    XWindowAttributes attributes;
    if (display == nullptr || window == 0 || XGetWindowAttributes(display, window, &attributes) == 0)
        return;
    constexpr long keyEvents = KeyPressMask | KeyReleaseMask | KeymapStateMask;
    XSelectInput(display, window, attributes.your_event_mask & ~keyEvents);
    XFlush(display);
}

KeyUse HandleTreeKey(ValueTreesDemo* tree, void* keyEvent)
{
    Display* display = treeDisplay();
    if (display == nullptr || GetTreeWindow(tree) == 0)
        return KeyUse::unused;
    XEvent event = *static_cast<XEvent*>(keyEvent);
    event.xkey.display = display;
    event.xkey.window = GetTreeWindow(tree);

    KeyProbe first;
    KeyProbe last;
    const juce::Component::SafePointer<juce::Component> safeTree(tree);
    const juce::Component::SafePointer<juce::Component> focused(giveKeysToTree(*tree));
    if (focused != nullptr)
        focused->addKeyListener(&first);
    tree->addKeyListener(&last);
    XPutBackEvent(display, &event);
    handleQueuedEvents(display);
    if (focused != nullptr)
        focused->removeKeyListener(&first);
    if (safeTree != nullptr)
        tree->removeKeyListener(&last);
    return event.type == keyPressType && first.wasReached && !last.wasReached ? KeyUse::used : KeyUse::unused;
}

void DismissTreeMenus() { (void)juce::PopupMenu::dismissAllActiveMenus(); }

void SetTreeAttachment(ValueTreesDemo* tree, std::shared_ptr<TreeAttachment> attachment)
{
    juce::ReferenceCountedObjectPtr<AttachmentHolder> holder(new AttachmentHolder);
    holder->attachment = std::move(attachment);
    tree->getProperties().set(attachmentName(), juce::var(holder.get()));
}

std::shared_ptr<TreeAttachment> GetTreeAttachment(ValueTreesDemo* tree)
{
    if (tree == nullptr)
        return nullptr;
    const auto* holder = dynamic_cast<AttachmentHolder*>(tree->getProperties()[attachmentName()].getObject());
    return holder == nullptr ? nullptr : holder->attachment;
}
