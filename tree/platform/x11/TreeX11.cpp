#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1

#include "tree/platform/x11/TreeX11.h"

#include "tree/ValueTreesDemo.h"
#include "tree/platform/x11/HostLoop.h"

#include <JuceInternals.h>
#include <algorithm>
#include <cmath>
#include <optional>
#include <poll.h>
#include <utility>
#include <vector>

namespace
{
constexpr int mostMessageRounds = 100;

/// Xlib's KeyPress, a name that JUCE has for something else.
constexpr int keyPressType = 2;

/// How many events JUCE may take from Xlib's queue now. JUCE asks by a plain function, so this stands here.
int eventsForJuce = 0;

/// Stands in for XPending where JUCE asks whether it has events to read. What the server has sent is moved
/// to Xlib's queue meanwhile, or JUCE would see its socket ready again and again.
int pendingForJuce(Display* display)
{
    if (eventsForJuce == 0)
        (void)XEventsQueued(display, QueuedAfterFlush);
    return std::exchange(eventsForJuce, 0);
}

/// The widget's window while it lies in a container. No window manager gives such a window a state.
Window embeddedWindow = None;

/// Stands in for XGetWindowProperty. JUCE looks for that state twice for each row that it lays out, and each
/// look would be a question to the server.
int propertyForJuce(Display* display, Window window, Atom property, long offset, long length,
                    Bool shouldDelete, Atom wanted, Atom* type, int* format, unsigned long* count,
                    unsigned long* left, unsigned char** data)
{
    const auto* windows = juce::XWindowSystem::getInstanceWithoutCreating();
    if (window != embeddedWindow || windows == nullptr || property != windows->getAtoms().state)
        return XGetWindowProperty(display, window, property, offset, length, shouldDelete, wanted, type,
                                  format, count, left, data);
    *type = None;
    *format = 0;
    *count = 0;
    *left = 0;
    *data = nullptr;
    return Success;
}

/// What JUCE waits at for messages: the descriptors of its event loop, among them the connection to the
/// server.
class MessageDescriptors : private juce::LinuxEventLoopInternal::Listener, private juce::DeletedAtShutdown
{
public:
    MessageDescriptors()
    {
        juce::LinuxEventLoopInternal::registerLinuxEventLoopListener(*this);
        MessageDescriptors::fdCallbacksChanged();
    }
    ~MessageDescriptors() override
    {
        juce::LinuxEventLoopInternal::deregisterLinuxEventLoopListener(*this);
        clearSingletonInstance();
    }
    JUCE_DECLARE_SINGLETON_SINGLETHREADED(MessageDescriptors, false)

    bool isAnyReady(int other)
    {
        for (pollfd& descriptor : descriptors)
            descriptor.events = descriptor.fd == other ? 0 : POLLIN;
        return poll(descriptors.data(), descriptors.size(), 0) > 0;
    }

private:
    void fdCallbacksChanged() override
    {
        descriptors.clear();
        for (const int descriptor : juce::LinuxEventLoopInternal::getRegisteredFds())
            descriptors.push_back({descriptor, POLLIN, 0});
    }

    std::vector<pollfd> descriptors;
};
JUCE_IMPLEMENT_SINGLETON(MessageDescriptors)

/// The component that JUCE itself hands the next key to.
juce::Component& juceTarget(ValueTreesDemo& tree)
{
    juce::Component* target = juce::Component::getCurrentlyFocusedComponent();
    if (target == nullptr)
        target = &tree;
    juce::Component* modal = juce::Component::getCurrentlyModalComponent();
    return modal != nullptr && target->isCurrentlyBlockedByAnotherModalComponent() ? *modal : *target;
}

/// The picture of a drag, which JUCE puts on the desktop beside the widget; null while nothing is dragged.
/// After the drop it stays a little longer, and means nothing any more.
juce::Component* pictureOfDrag(ValueTreesDemo& tree)
{
    auto& desktop = juce::Desktop::getInstance();
    if (!tree.isDragAndDropActive() || !desktop.getMainMouseSource().isDragging())
        return nullptr;
    for (int i = desktop.getNumComponents(); --i >= 0;)
        if (desktop.getComponent(i) != &tree)
            return desktop.getComponent(i);
    return nullptr;
}

/// The component that the next key belongs to.
juce::Component& keyTarget(ValueTreesDemo& tree)
{
    auto* picture = pictureOfDrag(tree);
    return picture != nullptr ? *picture : juceTarget(tree); // The picture takes Escape.
}

/// Takes the key that JUCE makes of an event away from JUCE, which does not tell whether it was used.
class KeyCatcher : public juce::KeyListener
{
public:
    explicit KeyCatcher(juce::Component& component) : listened(&component) { component.addKeyListener(this); }
    ~KeyCatcher() override
    {
        if (listened != nullptr)
            listened->removeKeyListener(this);
    }
    KeyCatcher(const KeyCatcher&) = delete;
    KeyCatcher& operator=(const KeyCatcher&) = delete;

    bool keyPressed(const juce::KeyPress& key, juce::Component*) override
    {
        caught = key;
        return true;
    }

    std::optional<juce::KeyPress> caught;

private:
    juce::Component::SafePointer<juce::Component> listened;
};

/// Ties the attachment to the component, which releases it when it is deleted.
struct AttachmentHolder : juce::ReferenceCountedObject
{
    explicit AttachmentHolder(std::shared_ptr<TreeAttachment> held) : attachment(std::move(held)) {}
    ~AttachmentHolder() override { attachment->OnTreeGone(); }

    std::shared_ptr<TreeAttachment> attachment;
};

const juce::Identifier& attachmentName()
{
    static const juce::Identifier name("platformAttachment");
    return name;
}
} // namespace

_XDisplay* GetTreeDisplay()
{
    const auto* windows = juce::XWindowSystem::getInstanceWithoutCreating();
    return windows == nullptr ? nullptr : windows->getDisplay();
}

void KeepTreeEvents()
{
    if (GetTreeDisplay() != nullptr)
        juce::X11Symbols::getInstance()->xPending = &pendingForJuce;
}

void DeliverTreeEvent(const _XEvent& event)
{
    Display* display = GetTreeDisplay();
    if (display == nullptr)
        return;
    XEvent first = event;
    XPutBackEvent(display, &first);
    eventsForJuce = 1;
    juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd(ConnectionNumber(display));
}

bool AreTreeMessagesWaiting()
{
    Display* display = GetTreeDisplay();
    return juce::MessageManager::getInstanceWithoutCreating() != nullptr &&
           MessageDescriptors::getInstance()->isAnyReady(display != nullptr ? ConnectionNumber(display) : -1);
}

void RunTreeMessages()
{
    RunWhatWaitsForHost();
    // Without a message manager JUCE would wait here for ever.
    if (juce::MessageManager::getInstanceWithoutCreating() == nullptr)
        return;
    for (int i = 0; i < mostMessageRounds && DispatchJuceMessages(); ++i)
    {
    }
    if (Display* display = GetTreeDisplay())
        XFlush(display);
}

void NoteTreeIsEmbedded(ValueTreesDemo* tree)
{
    embeddedWindow = GetTreeWindow(tree);
    juce::X11Symbols::getInstance()->xGetWindowProperty = &propertyForJuce;
}

unsigned long GetTreeWindow(ValueTreesDemo* tree)
{
    return tree == nullptr ? 0 : reinterpret_cast<unsigned long>(tree->getWindowHandle());
}

bool IsTreeWindow(unsigned long window)
{
    for (int i = 0; i < juce::ComponentPeer::getNumPeers(); ++i)
    {
        if (reinterpret_cast<unsigned long>(juce::ComponentPeer::getPeer(i)->getNativeHandle()) == window)
            return true;
    }
    return false;
}

void ResizeTree(ValueTreesDemo* tree, int width, int height)
{
    if (tree == nullptr)
        return;
    const auto* peer = tree->getPeer();
    const double scale = peer == nullptr ? 1.0 : peer->getPlatformScaleFactor();
    const auto scaled = [scale](int pixels)
    { return static_cast<int>(std::ceil(std::max(pixels, 0) / scale)); };
    tree->setBounds(0, 0, scaled(width), scaled(height));
}

void RemoveTreeFromDesktop(ValueTreesDemo* tree)
{
    if (tree != nullptr)
        tree->removeFromDesktop();
}

KeyUse HandleTreeKey(ValueTreesDemo* tree, const _XEvent& keyEvent)
{
    if (GetTreeWindow(tree) == 0)
        return KeyUse::unused;
    XEvent event = keyEvent;
    event.xkey.window = GetTreeWindow(tree);

    std::optional<juce::KeyPress> key;
    {
        KeyCatcher catcher(juceTarget(*tree));
        DeliverTreeEvent(event);
        key = catcher.caught;
    }
    if (event.type != keyPressType || !key.has_value())
        return KeyUse::unused;
    return OfferKey(keyTarget(*tree), *key, nullptr) ? KeyUse::used : KeyUse::unused;
}

void DismissTreeMenus() { (void)juce::PopupMenu::dismissAllActiveMenus(); }

bool IsTreeButtonDown()
{
    return juce::Desktop::getInstance().getMainMouseSource().isDragging() ||
           juce::ModifierKeys::currentModifiers.isAnyMouseButtonDown();
}

void ReleaseTreeButtons(ValueTreesDemo* tree)
{
    if (tree == nullptr)
        return;
    if (auto* picture = pictureOfDrag(*tree))
        (void)picture->keyPressed(juce::KeyPress(juce::KeyPress::escapeKey));
    juce::ModifierKeys::currentModifiers = juce::ModifierKeys::currentModifiers.withoutMouseButtons();
    if (auto* peer = tree->getPeer())
    {
        const auto mouse = juce::Desktop::getInstance().getMainMouseSource();
        peer->handleMouseEvent(juce::MouseInputSource::InputSourceType::mouse,
                               peer->globalToLocal(mouse.getScreenPosition()),
                               juce::ModifierKeys::currentModifiers, juce::MouseInputSource::defaultPressure,
                               juce::MouseInputSource::defaultOrientation, juce::Time::currentTimeMillis());
    }
}

void SetTreeAttachment(ValueTreesDemo* tree, std::shared_ptr<TreeAttachment> attachment)
{
    if (tree == nullptr)
        return;
    if (attachment == nullptr)
    {
        (void)tree->getProperties().remove(attachmentName());
        return;
    }
    const juce::ReferenceCountedObjectPtr<AttachmentHolder> holder(
        new AttachmentHolder(std::move(attachment)));
    tree->getProperties().set(attachmentName(), juce::var(holder.get()));
}

std::shared_ptr<TreeAttachment> GetTreeAttachment(ValueTreesDemo* tree)
{
    if (tree == nullptr)
        return nullptr;
    const auto* holder = dynamic_cast<AttachmentHolder*>(tree->getProperties()[attachmentName()].getObject());
    return holder == nullptr ? nullptr : holder->attachment;
}
