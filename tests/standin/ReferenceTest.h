#pragma once
// A layer with three effects, and references of it that a test uses and misuses.

#include "tests/standin/Client.h"
#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"

#include <string>
#include <vector>

namespace standin
{
class ReferenceTest : public LayerTest
{
protected:
    ReferenceTest()
    {
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
        host.AddEffect(layer, "QVK VORTEFF Jitter", "B");
        host.AddEffect(layer, "QVK VORTREN Dots", "C");
        handle = host.LayerHandle(layer);
    }

    /// Runs `use` in a hook and gives the findings, those of the hook's end included.
    template <class Use>
    std::vector<std::string> findingsOf(Use use)
    {
        inHook(use);
        return FindingsOf(host);
    }

    void* handle = nullptr;
};
} // namespace standin
