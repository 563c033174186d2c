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
} // namespace

void DispatchPlatformEvents(ValueTreesDemo* tree)
{
    static bool isDispatching = false;
    const OneAtATime guard(isDispatching);
    if (!guard.MayGoOn())
        return;
    // Held here: the widget and its embedding may be deleted by what is delivered.
    const auto embedding = std::dynamic_pointer_cast<X11Embedding>(GetTreeAttachment(tree));
    if (embedding != nullptr)
        embedding->Update();
    else
        TreeEvents().DeliverAll();
}
