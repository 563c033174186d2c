#import "tests/appkit/EventMonitors.h"

#import "tests/appkit/InstalledMonitors.h"

#include <Block_private.h>
#include <algorithm>
#include <stdexcept>
#include <vector>

// The blocks runtime at hand does not retain the objects that a block captures, and macOS does. So the two
// helpers that the compiler calls for each captured object are the tests' own.
extern "C" void _Block_object_assign(void* destination, const void* object, const int kind)
{
    if (kind != BLOCK_FIELD_IS_OBJECT)
        throw std::logic_error("only objects are expected in a block");
    *static_cast<id*>(destination) = [static_cast<id>(const_cast<void*>(object)) retain];
}

extern "C" void _Block_object_dispose(const void* object, const int kind)
{
    if (kind == BLOCK_FIELD_IS_OBJECT)
        [static_cast<id>(const_cast<void*>(object)) release];
}

@interface InstalledMonitor : NSObject
{
@public
    NSEventMask mask;
    EventHandler handler;
}
@end

@implementation InstalledMonitor
- (void)dealloc
{
    Block_release(handler);
    [super dealloc];
}
@end

namespace
{
std::vector<InstalledMonitor*>& monitors()
{
    static std::vector<InstalledMonitor*> installed;
    return installed;
}
} // namespace

@implementation NSEvent (Monitors)

+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask handler:(EventHandler)handler
{
    InstalledMonitor* const monitor = [[InstalledMonitor alloc] init];
    monitor->mask = mask;
    monitor->handler = Block_copy(handler);
    monitors().push_back(monitor);
    return monitor;
}

+ (void)removeMonitor:(id)monitor
{
    const auto found = std::find(monitors().begin(), monitors().end(), monitor);
    if (found == monitors().end())
        throw std::logic_error("a monitor is removed that is not installed");
    InstalledMonitor* const removed = *found;
    monitors().erase(found);
    [removed release];
}

@end

namespace standin
{
std::size_t CountOfMonitors() { return monitors().size(); }

NSEventMask MaskOfOnlyMonitor() { return monitors().at(0)->mask; }

NSEvent* PassThroughMonitors(NSEvent* event)
{
    const std::vector<InstalledMonitor*> installed = monitors();
    for (InstalledMonitor* const monitor : installed)
    {
        if ((monitor->mask & (1u << [event type])) == 0)
            continue;
        event = monitor->handler(event);
        if (event == nil)
            return nil;
    }
    return event;
}
} // namespace standin
