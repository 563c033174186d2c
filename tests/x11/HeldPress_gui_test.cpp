// Presses that are held while the panel carries them to the layer and builds its rows anew, against quick
// ones.

#include "tests/x11/support/PanelInHost.h"

#include <functional>

using namespace standin;

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
        TypeWith({"Control_L"}, "a");
        Settle();
    }

    void press(Place place, Held held, const std::string& modifier = "")
    {
        // Else it is a double click.
        IdleFor(450);
        Point(place);
        if (!modifier.empty())
            user.keyDown(modifier);
        user.press();
        if (held == Held::overARebuild)
            for (int pass = 0; pass < 4; ++pass)
                Idle();
        else if (held == Held::forLong)
            IdleFor(350);
        user.release();
        if (!modifier.empty())
            user.keyUp(modifier);
        Settle();
    }

    /// What is left of the stack when what is selected is deleted.
    std::string stackWithoutSelected()
    {
        Type("Delete");
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
    press(boxOf(2), GetParam(), "Control_L");
    EXPECT_FALSE(isOn("b"));
    EXPECT_EQ(stackWithoutSelected(), "b");
}

TEST_P(HeldPressOfEachLength, WithShiftTakesNothingThatNobodyChose)
{
    ClickInto(Row(2));
    press(Row(3), Held::notAtAll, "Shift_L");
    press(boxOf(3), GetParam(), "Shift_L");
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
    IdleFor(450);
    Press(boxOf(1));
    Settle();
    EXPECT_FALSE(isOn("a"));
    for (int y = 0; y <= 48; y += 6)
    {
        Point({Row(1).x, Row(1).y + y});
        Idle();
    }
    Settle();
    user.release();
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "b c a"; })) << Stack();
}

TEST_F(HeldPress, IsFollowedByAClickInTheSameIdle)
{
    ClickInto(Row(2));
    IdleFor(450);
    Press(boxOf(2));
    Settle();
    EXPECT_FALSE(isOn("b"));
    user.release();
    user.press();
    user.release();
    Settle();
    EXPECT_TRUE(isOn("b"));
}
