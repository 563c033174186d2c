#include "tree/KeyDeliveries.h"

#include <gtest/gtest.h>

namespace
{
const juce::KeyPress down(juce::KeyPress::downKey);
const juce::KeyPress left(juce::KeyPress::leftKey);

class Deliveries : public testing::Test
{
protected:
    bool deliver(const juce::KeyPress& key, bool isUsed = false)
    {
        return deliveries.once(key,
                               [this, isUsed]
                               {
                                   ++acts;
                                   return isUsed;
                               });
    }

    KeyDeliveries deliveries;
    int acts = 0;
};
} // namespace

TEST_F(Deliveries, ActOnceInAnEvent)
{
    deliveries.startEvent();
    EXPECT_FALSE(deliver(down));
    EXPECT_FALSE(deliver(down));
    EXPECT_EQ(acts, 1);
}

TEST_F(Deliveries, AnswerTheSecondTimeAsTheFirst)
{
    deliveries.startEvent();
    EXPECT_TRUE(deliver(down, true));
    EXPECT_TRUE(deliver(down, false));
}

TEST_F(Deliveries, ActAnewInTheNextEvent)
{
    deliveries.startEvent();
    (void)deliver(down);
    deliveries.startEvent();
    (void)deliver(down);
    EXPECT_EQ(acts, 2);
}

TEST_F(Deliveries, TellTheKeysOfOneEventApart)
{
    deliveries.startEvent();
    for (int i = 0; i < 2; ++i)
    {
        (void)deliver(down);
        (void)deliver(left);
        (void)deliver(juce::KeyPress(juce::KeyPress::downKey, juce::ModifierKeys::shiftModifier, 0));
    }
    EXPECT_EQ(acts, 3);
}

TEST_F(Deliveries, AreAllPressesWhereNobodyTellsOfEvents)
{
    (void)deliver(down);
    (void)deliver(down);
    EXPECT_EQ(acts, 2);
}
