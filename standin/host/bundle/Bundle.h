#pragma once
// A built bundle in this process.

#include "standin/host/core/Host.h"

#include <string>

namespace standin
{
/// Which of the two entry points the host calls first.
enum class EntryOrder
{
    idleSuiteFirst,
    panelFirst
};

/// A bundle stays in the process until it ends, as it does in the real host.
class Bundle
{
public:
    /// Throws std::runtime_error, in words for a user, if the file is not there, is no bundle, or lacks an
    /// entry point.
    explicit Bundle(const std::string& file);

    Bundle(const Bundle&) = delete;
    Bundle& operator=(const Bundle&) = delete;

    LoadedPlugin LoadIdleSuite(Host& host) const;
    LoadedPlugin LoadPanel(Host& host) const;

    /// Both, in this order. Throws std::runtime_error with what the host was told if one fails.
    void LoadAll(Host& host, EntryOrder order = EntryOrder::idleSuiteFirst) const;

    /// Called when the host has quit and before it goes. What its plug-ins keep until the process ends is
    /// reachable only from here then, so that a leak checker does not report it.
    static void KeepMemoryOf(Host& host);

    const std::string& File() const { return file; }

private:
    EntryPoint findEntry(const char* name) const;

    std::string file;
    void* module;
    EntryPoint idleSuiteEntry;
    EntryPoint panelEntry;
};
} // namespace standin
