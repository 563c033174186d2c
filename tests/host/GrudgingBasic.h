#pragma once
// A basic suite that hands a suite out and says beside it, the first time, that it failed.

#include "host/HostSuites.h"
#include "standin/host/core/Host.h"

#include <string>
#include <utility>

namespace standin
{
/// The host's own acquire is done and counted; only the answer is another. One lives at a time, since the
/// table of C functions carries no context.
class GrudgingBasic
{
public:
    static constexpr SPErr GRUDGE = 4711;

    GrudgingBasic(Host& host, std::string suiteName)
        : hostBasic(static_cast<SPBasicSuite*>(host.BasicSuite())),
          basic(*hostBasic),
          name(std::move(suiteName))
    {
        current = this;
        basic.AcquireSuite = &acquire;
    }
    ~GrudgingBasic() { current = nullptr; }
    GrudgingBasic(const GrudgingBasic&) = delete;
    GrudgingBasic& operator=(const GrudgingBasic&) = delete;

    static GrudgingBasic& Current() { return *current; }
    SPBasicSuite* Basic() { return &basic; }

private:
    static SPErr acquire(const char* wanted, std::int32_t version, const void** out)
    {
        const SPErr err = current->hostBasic->AcquireSuite(wanted, version, out);
        if (wanted != current->name)
            return err;
        current->name.clear();
        return GRUDGE;
    }

    inline static GrudgingBasic* current = nullptr;
    SPBasicSuite* hostBasic;
    SPBasicSuite basic;
    std::string name; ///< Empty once it has been grudged.
};
} // namespace standin
