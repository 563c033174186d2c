#pragma once
// A host with three effects of the family, for the tests of a reading in which effects or host do not behave.

#include "tests/effects/ReadFixture.h"

#include <gtest/gtest.h>
#include <string>

namespace standin
{
inline constexpr const char* sheets = "QVK VORTSRC Lamps";
inline constexpr const char* jitter = "QVK VORTEFF Jitter";
inline constexpr const char* dots = "QVK VORTREN Dots";

/// A, B and C, in the groups 1, 2 and 3.
struct LiarHost : ProductHost
{
    explicit LiarHost(HostOptions options = {}) : ProductHost(options)
    {
        Add(sheets, "A");
        Add(jitter, "B");
        Add(dots, "C");
        host.Effect("A").family.group = 1;
        host.Effect("B").family.group = 2;
        host.Effect("C").family.group = 3;
        uuidA = Uuid("A");
        uuidB = Uuid("B");
        uuidC = Uuid("C");
    }

    std::string LineA() const { return uuidA + " Vortan Sheets Object group 1 active 1 tag " + sheets; }
    std::string LineB() const { return uuidB + " Vortan Jitter Effector group 2 active 1 tag " + jitter; }
    std::string LineC() const { return uuidC + " Vortan Dots Renderer group 3 active 1 tag " + dots; }

    void ExpectCleanEnd()
    {
        host.CheckSuiteBalance();
        EXPECT_EQ(host.LeakedReferences(), 0);
        EXPECT_EQ(host.FindingsReport(), "");
    }

    std::string uuidA;
    std::string uuidB;
    std::string uuidC;
};
} // namespace standin
