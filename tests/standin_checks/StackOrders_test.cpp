// The orders that a change can leave when one of its steps goes wrong.

#include "standin/check/StackOrders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
using namespace check;

namespace
{
using testing::Contains;
using testing::Not;

constexpr int lamp = 1;
constexpr int mast = 2;
constexpr int disc = 3;
constexpr int blur = 4; // In no list of objects.

TEST(OrdersOfFaultyReorder, HoldTheOldAndTheNewOrder)
{
    const auto orders = OrdersOfFaultyReorder({lamp, mast, disc, blur}, {disc, lamp, mast});
    EXPECT_THAT(orders, Contains(StackOrder{lamp, mast, disc, blur}));
    EXPECT_THAT(orders, Contains(StackOrder{disc, lamp, mast, blur}));
}

TEST(OrdersOfFaultyReorder, HoldThatOfOneMoveRefused)
{
    // The move of the disc counts as done, so the disc stands where the mast is believed to be.
    EXPECT_THAT(OrdersOfFaultyReorder({mast, lamp, disc}, {lamp, disc, mast}),
                Contains(StackOrder{lamp, mast, disc}));
}

TEST(OrdersOfFaultyReorder, HoldThatOfOneObjectMissing)
{
    EXPECT_THAT(OrdersOfFaultyReorder({lamp, mast, disc}, {lamp, mast, disc}),
                Contains(StackOrder{lamp, disc, mast}));
}

TEST(OrdersOfFaultyReorder, MoveNothingAboveWhatWasNotMisread)
{
    // No single step gone wrong brings the blur to the top.
    EXPECT_THAT(OrdersOfFaultyReorder({lamp, mast, disc, blur}, {lamp, mast, disc}),
                Not(Contains(StackOrder{blur, lamp, mast, disc})));
}

TEST(OrdersOfFaultyDeletion, HoldEachStepOfMovingToTheTop)
{
    const auto orders = OrdersOfFaultyDeletion({lamp, mast, disc}, {mast, disc}, {lamp});
    EXPECT_THAT(orders, Contains(StackOrder{mast, lamp, disc}));
    EXPECT_THAT(orders, Contains(StackOrder{mast, disc, lamp}));
    EXPECT_THAT(orders, Not(Contains(StackOrder{disc, mast, lamp})));
}

TEST(OrdersOfFaultyDeletion, HoldThePanelsOrderWithoutTheUndeleted)
{
    EXPECT_THAT(OrdersOfFaultyDeletion({lamp, mast, disc}, {lamp}, {mast, disc}),
                Contains(StackOrder{mast, disc, lamp}));
}
TEST(OrderOfRows, GathersGroupsAndLeavesOutsidersBelow)
{
    const std::map<int, int> groups{{lamp, 2}, {mast, 0}, {disc, 2}};
    EXPECT_EQ(OrderOfRows({blur, lamp, mast, disc}, groups), (StackOrder{lamp, disc, mast, blur}));
}

TEST(OrderOfRows, GathersNothingThatIsInNoGroup)
{
    const std::map<int, int> groups{{lamp, -1}, {mast, 0}, {disc, -1}};
    EXPECT_EQ(OrderOfRows({lamp, mast, disc}, groups), (StackOrder{lamp, mast, disc}));
}
} // namespace
} // namespace standin
