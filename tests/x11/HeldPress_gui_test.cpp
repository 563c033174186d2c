// Presses that are held while the panel carries them to the layer and rebuilds its rows, compared with quick
// ones.

#include "tests/x11/support/PanelInHost.h"

#include <functional>

using namespace standin;
using namespace standin::user;

namespace
{
enum class Held
{
    notAtAll,
    overARebuild,
    forLong ///< and over rebuilds: longer than JUCE takes for a click
};

std::string nameOf(Held held)
{
    if (held == Held::notAtAll)
        return "Quick";
    return held == Held::overARebuild ? "OverARebuild" : "ForLong";
}

class HeldPress : public PanelInHost
{
protected:
    HeldPress() { Open(); }

    static Place boxOf(int row) { return {Row(row).x - 14, Row(row).y}; }
    bool isOn(const std::string& name) { return (host.Effect(name).flags & effectActive) != 0; }

    void selectAll()
    {
        ClickInto(Row(1));
        PressKey("Control+a");
        Settle();
    }

    void press(Place place, Held held, const std::vector<std::string>& modifiers = {})
    {
        Press(place, modifiers);
        if (held == Held::overARebuild)
            for (int pass = 0; pass < 4; ++pass)
                Idle();
        else if (held == Held::forLong)
            IdleFor(350ms);
        Release();
        Settle();
    }

    /// What is left of the stack when what is selected is deleted.
    std::string stackWithoutSelected()
    {
        PressKey("Delete");
        Settle();
        return Stack();
    }
};

class HeldPressOfEachLength : public HeldPress, public testing::WithParamInterface<Held>
{
};
} // namespace

TEST_P(HeldPressOfEachLength, OnABoxLeavesItsRowAlone)
{
    selectAll();
    press(boxOf(2), GetParam());
    EXPECT_FALSE(isOn("b"));
    EXPECT_EQ(stackWithoutSelected(), "a c");
}

TEST_P(HeldPressOfEachLength, WithControlTakesItsRowAway)
{
    selectAll();
    press(boxOf(2), GetParam(), {"Control"});
    EXPECT_FALSE(isOn("b"));
    EXPECT_EQ(stackWithoutSelected(), "b");
}

TEST_P(HeldPressOfEachLength, WithShiftTakesNothingThatNobodyChose)
{
    ClickInto(Row(2));
    press(Row(3), Held::notAtAll, {"Shift"});
    press(boxOf(3), GetParam(), {"Shift"});
    EXPECT_FALSE(isOn("c"));
    EXPECT_EQ(stackWithoutSelected(), "a");
}

TEST_P(HeldPressOfEachLength, OnTheTextLeavesItsRowAlone)
{
    selectAll();
    press(Row(2), GetParam());
    EXPECT_EQ(stackWithoutSelected(), "a c");
}

INSTANTIATE_TEST_SUITE_P(Each, HeldPressOfEachLength,
                         testing::Values(Held::notAtAll, Held::overARebuild, Held::forLong),
                         [](const auto& each) { return nameOf(each.param); });

TEST_F(HeldPress, BeginsADragAfterARebuild)
{
    ClickInto(Row(1));
    Press(boxOf(1));
    Settle();
    EXPECT_FALSE(isOn("a"));
    Move(boxOf(1), Row(1) + Place{0, 48});
    Settle();
    hands.release();
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "b c a"; })) << Stack();
}

TEST_F(HeldPress, AllowsAClickInTheSameIdle)
{
    ClickInto(Row(2));
    Press(boxOf(2));
    Settle();
    EXPECT_FALSE(isOn("b"));
    hands.release();
    hands.press();
    hands.release();
    Settle();
    EXPECT_TRUE(isOn("b"));
}
