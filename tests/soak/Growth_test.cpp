#include "tests/soak/Growth.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

using namespace standin;

namespace
{
constexpr int looks = 12;

std::vector<Holdings> looksWith(const std::function<void(Holdings&, int)>& change)
{
    std::vector<Holdings> all(looks, Holdings{100000, 0, 6, 2, 5, 1});
    for (int i = 0; i < looks; ++i)
        change(all[static_cast<std::size_t>(i)], i);
    return all;
}
} // namespace

TEST(GrowthOfHoldings, NothingGrows)
{
    EXPECT_EQ(Growth(looksWith([](Holdings&, int) {})), "");
}

TEST(GrowthOfHoldings, OneMoreReferenceIsSeen)
{
    EXPECT_EQ(Growth(looksWith([](Holdings& held, int look) { held.references = look / 6; })),
              "references grow from at most 0 to at least 1\n");
}

TEST(GrowthOfHoldings, EachKindIsSeen)
{
    const auto all =
        looksWith([](Holdings& held, int look)
                  { held = {static_cast<std::size_t>(look) * 1000, look, look, look, look, look}; });
    for (const char* kind :
         {"bytes of the heap", "references", "suites", "windows", "descriptors", "threads"})
        EXPECT_THAT(Growth(all), testing::HasSubstr(std::string(kind) + " grow from "));
}

TEST(GrowthOfHoldings, WhatComesAndGoesIsNoGrowth)
{
    EXPECT_EQ(Growth(looksWith(
                  [](Holdings& held, int look)
                  {
                      held.descriptors += look % 2;
                      held.bytes += look % 2 == 0 ? 0 : 50000;
                  })),
              "");
}

TEST(GrowthOfHoldings, SlackOfTheHeapIsNoGrowth)
{
    EXPECT_EQ(Growth(looksWith([](Holdings& held, int look) { held.bytes += look < 6 ? 0 : 2048; })), "");
    EXPECT_NE(Growth(looksWith([](Holdings& held, int look) { held.bytes += look < 6 ? 0 : 2049; })), "");
}

TEST(GrowthOfHoldings, FewLooksAreRefused)
{
    EXPECT_THROW((void)Growth(std::vector<Holdings>(5)), std::logic_error);
}
