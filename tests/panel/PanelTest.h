#pragma once
// A test with the panel plug-in in a stand-in host. At its end no suite may be held, and there
// may be no unexpected finding, such as a reference that a hook has leaked.

#include "standin/host/sensors/FindingIds.h"
#include "tests/support/PanelBench.h"
#include "tests/support/PassCalls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
inline void PrintTo(Withheld how, std::ostream* out)
{
    *out << (how == Withheld::asError       ? "as an error"
             : how == Withheld::asNullTable ? "as a null table"
                                            : "as a poisoned pointer");
}

class PanelTest : public ::testing::Test
{
protected:
    explicit PanelTest(HostOptions options = {}) : bench(options) {}

    void TearDown() override
    {
        bench.Close();
        host.CheckSuiteBalance();
        EXPECT_EQ(host.FindingsReport(), "");
    }

    /// The labels of the stack and the names of the tree, which agree when all is at rest.
    std::string StackText() const { return host.StackText(bench.on.layerId); }

    PanelBench bench;
    Host& host = bench.host;

    // What PanelBench::AddThree puts on the layer.
    const TracedEffect a{"A", "01010101-0101-0101-0101-010100000001", "QVK VORTSRC Lamps", 201};
    const TracedEffect b{"B", "02020202-0202-0202-0202-020200000002", "QVK VORTEFF Jitter", 222};
    const TracedEffect c{"C", "03030303-0303-0303-0303-030300000003", "QVK VORTREN Dots", 240};
    const TracedStack three = {8, {a, b, c}};
};
} // namespace standin
