#include "standin/host/family/Sibling.h"

#include <stdexcept>

#include "standin/host/core/HookCalls.h"

namespace standin
{
namespace
{
// The published tables, as their clients know them: offsets in bytes, 8 per word.
struct IdleTable
{
    void* ref;
    int (*addFunction)(void* ref, IdleFunction function, void* refcon);
};
static_assert(sizeof(IdleTable) == 16, "two words");

struct PanelTable
{
    void* ref;
    int (*openPanel)(void* ref, unsigned char force);
    int (*refreshPanel)(void* ref);
    int (*notify)(void* ref, const char* text);
};
static_assert(sizeof(PanelTable) == 32, "four words");

struct BasicTable
{
    A_Err (*acquire)(const char* name, A_long version, const void** table);
    A_Err (*release)(const char* name, A_long version);
};

/// Acquires, calls and releases. What the call throws propagates, with the suite released.
template <class Table, class Call>
int callTable(Host& host, const char* name, Call call)
{
    const auto& basic = *static_cast<const BasicTable*>(host.BasicSuite());
    const void* table = nullptr;
    if (basic.acquire(name, 1, &table) != errNone || table == nullptr)
        throw std::runtime_error(std::string("the suite ") + name + " is not published");
    struct Release
    {
        const BasicTable& basic;
        const char* name;
        ~Release() { (void)basic.release(name, 1); }
    } const release{basic, name};
    return call(*static_cast<const Table*>(table));
}

/// In a hook of its own if none runs: a family effect is always called by the host.
template <class Table, class Call>
int callInHook(Host& host, const char* name, Call call)
{
    if (PartsOf(host).sensors.hookDepth > 0)
        return callTable<Table>(host, name, call);
    int result = 0;
    const HookResult hook = host.RunInHook([&] { result = callTable<Table>(host, name, call); });
    if (!hook.thrown.empty())
        throw std::runtime_error("the call was left by " + hook.thrown);
    return result;
}

constexpr const char* idleSuite = "Vortan Idle Suite v1";
constexpr const char* panelSuite = "Vortan Panel Suite v1";
} // namespace

int Sibling::QueueIdleFunction(IdleFunction function, void* refcon)
{
    return callInHook<IdleTable>(host, idleSuite,
                                 [=](const IdleTable& table)
                                 { return table.addFunction(table.ref, function, refcon); });
}

int Sibling::OpenPanel(Force force)
{
    const unsigned char always = force == Force::always ? 1 : 0;
    return callInHook<PanelTable>(
        host, panelSuite, [=](const PanelTable& table) { return table.openPanel(table.ref, always); });
}

int Sibling::RefreshPanel()
{
    return callInHook<PanelTable>(host, panelSuite,
                                  [](const PanelTable& table) { return table.refreshPanel(table.ref); });
}

int Sibling::NotifyPanel(const char* text)
{
    return callInHook<PanelTable>(host, panelSuite,
                                  [=](const PanelTable& table) { return table.notify(table.ref, text); });
}

int Sibling::NotifyNobody(const char* text)
{
    return callInHook<PanelTable>(host, panelSuite,
                                  [=](const PanelTable& table) { return table.notify(nullptr, text); });
}
} // namespace standin
