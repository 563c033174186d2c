#pragma once
// As much of a host as reading effects and their match names takes, and so small that a call costs nothing:
// one effect on one layer, installed once, whose answers the fuzzer makes up. It counts what it hands out.

#include "host/HostSuites.h"

#include <functional>
#include <string>

namespace standin
{
/// One lives at a time, since the tables of C functions carry no context.
class SmallHost
{
public:
    SmallHost();
    ~SmallHost();
    SmallHost(const SmallHost&) = delete;
    SmallHost& operator=(const SmallHost&) = delete;

    SPBasicSuite* Basic() { return &basic; }
    AEGP_LayerH Layer() { return reinterpret_cast<AEGP_LayerH>(this); }

    /// What the effect does with a record of the general command.
    std::function<void(void*)> onMessage;
    /// What the host writes for the match name: these bytes, without a zero after them.
    std::string matchName;

    /// That all suites and references have come back.
    bool IsBalanced() const { return suites == 0 && references == 0; }

private:
    static SPErr acquire(const char* name, std::int32_t version, const void** suite);
    static SPErr release(const char* name, std::int32_t version);

    SPBasicSuite basic{};
    int suites = 0;
    int references = 0;
};
} // namespace standin
