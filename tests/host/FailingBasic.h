#pragma once
// A basic suite that hands a suite out but, the first time, returns an error as well.

#include "host/HostSuites.h"
#include "standin/host/core/Host.h"

#include <string>
#include <utility>

namespace standin
{
/// The host's own acquire happens and is counted; only the result differs. One lives at a time, since the
/// table of C functions carries no context.
class FailingBasic
{
public:
    static constexpr SPErr ERROR_GIVEN = 4711;

    FailingBasic(Host& host, std::string suiteName)
        : hostBasic(static_cast<SPBasicSuite*>(host.BasicSuite())),
          basic(*hostBasic),
          name(std::move(suiteName))
    {
        current = this;
        basic.AcquireSuite = &acquire;
    }
    ~FailingBasic() { current = nullptr; }
    FailingBasic(const FailingBasic&) = delete;
    FailingBasic& operator=(const FailingBasic&) = delete;

    static FailingBasic& Current() { return *current; }
    SPBasicSuite* Basic() { return &basic; }

private:
    static SPErr acquire(const char* wanted, std::int32_t version, const void** out)
    {
        const SPErr err = current->hostBasic->AcquireSuite(wanted, version, out);
        if (wanted != current->name)
            return err;
        current->name.clear();
        return ERROR_GIVEN;
    }

    inline static FailingBasic* current = nullptr;
    SPBasicSuite* hostBasic;
    SPBasicSuite basic;
    std::string name; ///< Empty once its acquire has failed.
};
} // namespace standin
