#pragma once
// A test with a host. At its end every unexpected finding fails it, and every expected one that
// did not appear; a suite that is still held is a finding.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "standin/host/family/Family.h"
#include "tests/standin/Client.h"

namespace standin
{
class HostTest : public ::testing::Test
{
protected:
    void TearDown() override
    {
        host.CheckSuiteBalance();
        host.CheckMemoryBalance();
        EXPECT_EQ(host.FindingsReport(), "");
    }

    template <class Body>
    HookResult inHook(Body body)
    {
        return InHook(host, body);
    }

    Host host;
};

/// A host with the family installed, one composition, and one selected layer with an empty stack.
class LayerTest : public HostTest
{
protected:
    LayerTest()
    {
        InstallFamily(host);
        comp = host.AddComposition("Comp 1");
        layer = host.AddLayer(comp);
        host.User().SelectLayers({layer});
    }

    int comp = 0;
    int layer = 0;
};
} // namespace standin
