#pragma once
// A family effect as a client of the two suites that the bundle publishes. Every call acquires the
// suite through the host's basic suite, calls, and releases it. A suite that is not published
// throws std::runtime_error.

#include "standin/host/core/Host.h"

namespace standin
{
/// What can be queued on the idle suite.
using IdleFunction = int (*)(int pluginId, void* basicSuite, void* refcon);

enum class Force
{
    ifNotUp, ///< Only if the panel is not shown and frontmost.
    always
};

class Sibling
{
public:
    explicit Sibling(Host& owner) : host(owner) {}

    // Each runs in a hook of its own unless one is running, and gives the result of the function.
    int QueueIdleFunction(IdleFunction function, void* refcon);
    int OpenPanel(Force force);
    int RefreshPanel();
    int NotifyPanel(const char* text);
    /// PanelNotify with a null reference.
    int NotifyNobody(const char* text);

private:
    Host& host;
};
} // namespace standin
