#pragma once
// A plug-in's side of the tables, for tests of the stand-in itself: suites by name, version and slot
// number as the fact sheet has them, and nothing of the product's declarations.

#include <cstdint>
#include <string>
#include <vector>

#include "standin/host/core/Host.h"

namespace standin
{
/// Acquires each suite at its first use and releases all of them at its end, so it lives inside
/// a hook.
class Client
{
public:
    explicit Client(Host& owner) : host(owner), id(owner.PluginId()) {}
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    A_Err Acquire(const char* name, A_long version, const void** table);
    A_Err Release(const char* name, A_long version);

    /// Calls a slot with arguments of exactly the types given.
    template <class... Arguments>
    A_Err Call(const char* suite, A_long version, int slot, Arguments... arguments)
    {
        using Function = A_Err (*)(Arguments...);
        const auto* const* table = static_cast<const AnyPointer*>(TableOf(suite, version));
        return reinterpret_cast<Function>(reinterpret_cast<std::uintptr_t>(table[slot]))(arguments...);
    }

    // The calls that many tests make. What is handed out comes back as the result, null on failure;
    // the error is in `error`.
    A_long NumEffects(void* layer);
    void* EffectAt(void* layer, A_long index);
    void* StreamOf(void* effect, A_long parameter);
    void* ParentOf(void* stream);
    void* Apply(void* layer, A_long key);
    A_Err Reorder(void* effect, A_long index);
    A_Err Delete(void* effect);
    A_Err DisposeEffect(void* effect);
    A_Err DisposeStream(void* stream);
    std::string NameOf(void* stream);
    A_Err Rename(void* stream, const char* name);
    A_Err SetHidden(void* stream, Switch undoable, Switch on);
    A_u_long StreamFlags(void* stream);
    A_long Flags(void* effect);
    A_Err SetActive(void* effect, Switch on);
    A_Err StartUndo(const char* name);
    A_Err EndUndo();
    void* ActiveItem();
    void* ActiveLayer();

    A_Err error = errNone; ///< Of the last call that gave a result.

private:
    using AnyPointer = const void*;
    const void* TableOf(const char* suite, A_long version);

    Host& host;
    A_long id;
    struct Held
    {
        const char* name;
        A_long version;
        const void* table;
    };
    std::vector<Held> acquired;
};

constexpr const char* effectSuite = "AEGP Effect Suite";
constexpr const char* streamSuite = "AEGP Stream Suite";
constexpr const char* dynamicStreamSuite = "AEGP Dynamic Stream Suite";
constexpr const char* layerSuite = "AEGP Layer Suite";
constexpr const char* itemSuite = "AEGP Item Suite";
constexpr const char* utilitySuite = "AEGP Utility Suite";
constexpr const char* commandSuite = "AEGP Command Suite";
constexpr const char* registerSuite = "AEGP Register Suite";
constexpr const char* panelSuite = "AEGP Workspace Panel Suite";
constexpr const char* suitesSuite = "SP Suites Suite";
constexpr const char* appSuite = "PF AE App Suite";

/// Runs `body(client)` in a hook of the host's.
template <class Body>
HookResult InHook(Host& host, Body body)
{
    return host.RunInHook(
        [&]
        {
            Client client(host);
            return body(client);
        });
}
} // namespace standin
