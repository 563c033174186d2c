#pragma once
// A basic suite whose answers a test sets by hand, for what no sound host does: success without a table,
// an error with a table, a release that throws.

#include "host/HostSuites.h"

#include <string>
#include <vector>

namespace standin
{
/// One lives at a time, since the table of C functions carries no context.
class HandMadeBasic
{
public:
    HandMadeBasic() { current = this; }
    ~HandMadeBasic() { current = nullptr; }
    HandMadeBasic(const HandMadeBasic&) = delete;
    HandMadeBasic& operator=(const HandMadeBasic&) = delete;

    const SPBasicSuite* Suite() const { return &suite; }

    /// What every acquire answers. The table is written even along with an error.
    SPErr acquireResult = 0;
    const void* table = &someTable;
    SPErr releaseResult = 0;
    /// Thrown out of every release, unless it is 0.
    int thrownByRelease = 0;

    /// "acquire NAME VERSION" and "release NAME VERSION".
    std::vector<std::string> calls;

    /// Not null, and never called.
    inline static const void* const someTable[1] = {nullptr};

private:
    static std::string line(const char* what, const char* name, std::int32_t version)
    {
        return std::string(what) + " " + name + " " + std::to_string(version);
    }

    static SPErr acquire(const char* name, std::int32_t version, const void** out)
    {
        current->calls.push_back(line("acquire", name, version));
        *out = current->table;
        return current->acquireResult;
    }

    static SPErr release(const char* name, std::int32_t version)
    {
        current->calls.push_back(line("release", name, version));
        if (current->thrownByRelease != 0)
            throw current->thrownByRelease;
        return current->releaseResult;
    }

    inline static HandMadeBasic* current = nullptr;
    const SPBasicSuite suite = {acquire, release, nullptr, nullptr, nullptr, nullptr, nullptr};
};

/// The integer that `body` throws, or 0. Other exceptions propagate.
template <class Body>
int ThrownBy(Body body)
{
    try
    {
        body();
    }
    catch (int number)
    {
        return number;
    }
    return 0;
}
} // namespace standin
