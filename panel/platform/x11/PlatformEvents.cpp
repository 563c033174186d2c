#include "panel/platform/PlatformEvents.h"

#include "panel/platform/x11/X11Embedding.h"

namespace
{
/// Keeps a host call that comes in while events are being delivered from delivering more.
class OneAtATime
{
public:
    explicit OneAtATime(bool& entered) : isInside(entered), isFirst(!entered) { isInside = true; }
    ~OneAtATime()
    {
        if (isFirst)
            isInside = false;
    }
    OneAtATime(const OneAtATime&) = delete;
    OneAtATime& operator=(const OneAtATime&) = delete;
    bool MayGoOn() const { return isFirst; }

private:
    bool& isInside;
    bool isFirst;
};

/// Whether there is something to read, or an answer to come. Sends what waits to be sent.
bool hasServerNews()
{
    Display* display = GetTreeDisplay();
    return display != nullptr && (XEventsQueued(display, QueuedAfterFlush) > 0 ||
                                  XLastKnownRequestProcessed(display) + 1 != XNextRequest(display));
}

/// JUCE's timers tick at nearly every idle, and need nothing of the server.
bool hasNewsAfterMessages()
{
    if (hasServerNews())
        return true;
    if (!AreTreeMessagesWaiting())
        return false;
    KeepTreeEvents();
    RunTreeMessages();
    return hasServerNews();
}

/// For a widget without a container, and for none.
void deliverEverything()
{
    if (Display* display = GetTreeDisplay())
    {
        KeepTreeEvents();
        XSync(display, False);
        for (int i = XEventsQueued(display, QueuedAlready); i > 0; --i)
        {
            XEvent event;
            XNextEvent(display, &event);
            DeliverTreeEvent(event);
        }
    }
    RunTreeMessages();
}
} // namespace

void DispatchPlatformEvents(ValueTreesDemo* tree)
{
    static bool isDispatching = false;
    const OneAtATime guard(isDispatching);
    if (!guard.MayGoOn())
        return;
    // Held here: the widget may be deleted by what is delivered.
    const auto embedding = std::dynamic_pointer_cast<X11Embedding>(GetTreeAttachment(tree));
    const bool mustUpdate = embedding != nullptr && embedding->MustUpdate();
    if (!mustUpdate && !hasNewsAfterMessages())
        return;
    if (embedding != nullptr)
        embedding->Update();
    else
        deliverEverything();
}
