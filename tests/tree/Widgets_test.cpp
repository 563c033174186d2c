#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace standin;

namespace
{
using Clock = std::chrono::steady_clock;

long long msSince(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
}

/// A label with a short time, in a parent of 300 by 100.
class Label : public TreeTest
{
protected:
    static constexpr int timeMs = 1500;

    // JUCE's timers may fire a little early when the machine is busy.
    static constexpr int timerSlackMs = 250;

    Label() : label(timeMs)
    {
        parent.setSize(300, 100);
        parent.addChildComponent(label);
        label.setCentrePosition(150, 50);
    }

    void show(const char* text) { label.setText(text, juce::sendNotification); }
    bool waitUntilHidden()
    {
        return pumpUntil([this] { return !label.isVisible(); });
    }

    juce::Component parent;
    NotifyLabel label;
};

class Button : public TreeTest
{
protected:
    SimpleButton button;
};
} // namespace

TEST_F(Label, StartsHiddenAndEmpty)
{
    EXPECT_FALSE(label.isVisible());
    EXPECT_EQ(label.getText(), "");
    EXPECT_EQ(label.getName(), "");
    EXPECT_FALSE(label.isTimerRunning());
}

TEST_F(Label, HasItsColours)
{
    EXPECT_EQ(label.findColour(0x1000281), juce::Colours::black);
    EXPECT_EQ(label.findColour(0x1000280), juce::Colours::lightblue.withAlpha(0.8f));
    EXPECT_EQ(label.findColour(0x1000282), juce::Colours::black);
}

TEST_F(Label, ShowsItselfWhenItsTextIsSet)
{
    show("Hello");
    EXPECT_TRUE(label.isVisible());
    EXPECT_TRUE(label.isTimerRunning());
    EXPECT_EQ(label.getTimerInterval(), timeMs);
}

TEST_F(Label, FitsItsTextAndKeepsItsCentre)
{
    show("Hello");
    juce::TextLayout expected;
    juce::AttributedString text("Hello");
    text.setJustification(juce::Justification::centred);
    expected.createLayout(text, 300.0f);
    EXPECT_EQ(label.getWidth(), static_cast<int>(expected.getWidth()) + 5);
    EXPECT_EQ(label.getHeight(), static_cast<int>(expected.getHeight()) + 5);
    EXPECT_NEAR(label.getBounds().getCentreX(), 150, 1);
    EXPECT_NEAR(label.getBounds().getCentreY(), 50, 1);
}

TEST_F(Label, RoundsEachHalfOfItsGrowthTowardsZero)
{
    // From no size at all it grows by its whole size; an odd one has halves to round.
    int oddWidths = 0;
    int oddHeights = 0;
    for (const char* text : {"i", "ii", "iii", "l", "ll", "m", "mm", "mi", "i\ni", "m\nm\nm"})
    {
        NotifyLabel grown(timeMs);
        parent.addChildComponent(grown);
        grown.setTopLeftPosition(150, 50);
        ASSERT_EQ(grown.getBounds(), juce::Rectangle<int>(150, 50, 0, 0));
        grown.setText(text, juce::sendNotification);
        EXPECT_EQ(grown.getX(), 150 - grown.getWidth() / 2) << text;
        EXPECT_EQ(grown.getY(), 50 - grown.getHeight() / 2) << text;
        oddWidths += grown.getWidth() % 2;
        oddHeights += grown.getHeight() % 2;
    }
    EXPECT_GT(oddWidths, 0);
    EXPECT_GT(oddHeights, 0);
}

TEST_F(Label, RoundsEachHalfOfItsShrinkingTowardsZero)
{
    int oddWidths = 0;
    int oddHeights = 0;
    for (int size = 200; size < 204; ++size)
    {
        NotifyLabel shrunk(timeMs);
        parent.addChildComponent(shrunk);
        shrunk.setText("Hello", juce::sendNotification);
        const auto fitted = shrunk.getBounds();
        shrunk.setBounds(10, 20, size, size);
        EXPECT_EQ(shrunk.getBounds(), fitted.withPosition(10 + (size - fitted.getWidth()) / 2,
                                                          20 + (size - fitted.getHeight()) / 2));
        oddWidths += (size - fitted.getWidth()) % 2;
        oddHeights += (size - fitted.getHeight()) % 2;
    }
    EXPECT_EQ(oddWidths, 2);
    EXPECT_EQ(oddHeights, 2);
}

TEST_F(Label, StaysForATextOfTheSameSize)
{
    show("12");
    const auto bounds = label.getBounds();
    show("21");
    EXPECT_EQ(label.getBounds(), bounds);
}

TEST_F(Label, WrapsALongMessageWithinItsParent)
{
    show("Hello");
    const int oneLine = label.getHeight();
    show("Hello World");
    EXPECT_EQ(label.getHeight(), oneLine);
    show("A message that is much longer than its parent is wide, and so has to be broken into lines");
    EXPECT_LE(label.getWidth(), 305);
    EXPECT_GT(label.getHeight(), oneLine);
    EXPECT_NEAR(label.getBounds().getCentreX(), 150, 2);
    EXPECT_NEAR(label.getBounds().getCentreY(), 50, 2);
}

TEST_F(Label, GoesAwayByItself)
{
    const auto start = Clock::now();
    show("Hello");
    ASSERT_TRUE(waitUntilHidden());
    EXPECT_GE(msSince(start), timeMs - timerSlackMs);
    EXPECT_EQ(label.getText(), "");
    EXPECT_FALSE(label.isTimerRunning());
}

TEST_F(Label, DoesNotStayLongerForTheSameText)
{
    show("Hello");
    pumpFor(timeMs / 2);
    ASSERT_TRUE(label.isVisible());
    // A label that is shown at this moment is the measure of one that starts anew.
    NotifyLabel later(timeMs);
    parent.addChildComponent(later);
    show("Hello");
    later.setText("World", juce::sendNotification);
    ASSERT_TRUE(pumpUntil([&] { return !label.isVisible() || !later.isVisible(); }));
    EXPECT_FALSE(label.isVisible());
    EXPECT_TRUE(later.isVisible());
}

TEST_F(Label, StaysLongerForAnotherText)
{
    const auto start = Clock::now();
    show("Hello");
    pumpFor(1000);
    show("World");
    ASSERT_TRUE(waitUntilHidden());
    EXPECT_GE(msSince(start), 1000 + timeMs - timerSlackMs);
}

TEST_F(Label, ShowsAVanishedTextAgain)
{
    show("Hello");
    ASSERT_TRUE(waitUntilHidden());
    show("Hello");
    EXPECT_TRUE(label.isVisible());
    EXPECT_TRUE(label.isTimerRunning());
    ASSERT_TRUE(waitUntilHidden());
}

TEST_F(Label, IsNotShownForATextWithoutNotification)
{
    label.setText("Hello", juce::dontSendNotification);
    EXPECT_FALSE(label.isVisible());
}

TEST_F(Label, PaintsItsTextOnALightBlueField)
{
    show("Hello");
    const auto picture = label.createComponentSnapshot(label.getLocalBounds());
    const auto corner = picture.getPixelAt(0, 0);
    const auto edge = picture.getPixelAt(picture.getWidth() / 2, 1);
    EXPECT_LT(corner.getAlpha(), edge.getAlpha());
    EXPECT_EQ(picture.getPixelAt(2, 0), edge) << "the corners are rounded by two pixels";
    EXPECT_NEAR(edge.getAlpha(), 204, 2);
    EXPECT_NEAR(edge.getRed(), juce::Colours::lightblue.getRed(), 2);
    EXPECT_NEAR(edge.getBlue(), juce::Colours::lightblue.getBlue(), 2);
    int darkest = 255;
    for (int y = 0; y < picture.getHeight(); ++y)
        for (int x = 0; x < picture.getWidth(); ++x)
            darkest = std::min<int>(darkest, picture.getPixelAt(x, y).getRed());
    EXPECT_LT(darkest, 60);
}

TEST_F(Label, OfThePanelStaysTenSeconds)
{
    NotifyMsg(panel, "Hello");
    EXPECT_TRUE(panel->notifyLabel.isVisible());
    EXPECT_EQ(panel->notifyLabel.getTimerInterval(), 10000);
    EXPECT_EQ(panel->notifyLabel.getText(), "Hello");
}

TEST_F(Label, OfThePanelStaysInTheMiddle)
{
    NotifyMsg(panel, "Hello");
    panel->setSize(300, 500);
    EXPECT_EQ(panel->notifyLabel.getBounds().getCentre(), juce::Point<int>(150, 250));
}

TEST_F(Button, ActsOnThePressAndTakesNoKeys)
{
    EXPECT_TRUE(button.getTriggeredOnMouseDown());
    EXPECT_FALSE(button.getWantsKeyboardFocus());
}

TEST_F(Button, ReportsItsClickAndPassesItself)
{
    juce::Button* clicked = nullptr;
    button.onClick = [&clicked](juce::Button* b) { clicked = b; };
    EXPECT_EQ(OutputOf([this] { button.clicked(); }), "button clicked\n");
    EXPECT_EQ(clicked, &button);
}

TEST_F(Button, ThrowsWithoutACallback)
{
    EXPECT_EQ(OutputOf([this] { EXPECT_THROW(button.clicked(), std::bad_function_call); }),
              "button clicked\n");
}

TEST_F(Button, SurvivesItsDeletionByTheClick)
{
    auto owned = std::make_unique<SimpleButton>();
    bool wasCalled = false;
    owned->onClick = [&](juce::Button*)
    {
        owned.reset();
        wasCalled = true;
    };
    owned->clicked();
    EXPECT_TRUE(wasCalled);
}

TEST_F(Button, LooksTheSameInAllStates)
{
    button.setSize(100, 15);
    button.setButtonText("Add Group");
    const auto paint = [this](bool isOver, bool isDown)
    {
        juce::Image image(juce::Image::ARGB, 100, 15, true);
        juce::Graphics g(image);
        button.paintButton(g, isOver, isDown);
        return image;
    };
    const auto plain = paint(false, false);
    for (const auto& other : {paint(true, false), paint(false, true), paint(true, true)})
        for (int y = 0; y < 15; ++y)
            for (int x = 0; x < 100; ++x)
                ASSERT_EQ(plain.getPixelAt(x, y), other.getPixelAt(x, y));
}

TEST_F(Button, IsDarkGreyWithLightText)
{
    button.setSize(100, 15);
    button.setButtonText("Add Group");
    const auto picture = button.createComponentSnapshot(button.getLocalBounds());
    const auto ground = juce::Colour::greyLevel(0.1f);
    EXPECT_EQ(picture.getPixelAt(0, 0), ground);
    EXPECT_EQ(picture.getPixelAt(99, 14), ground);
    int lightest = 0;
    for (int y = 4; y < 11; ++y)
        for (int x = 5; x < 95; ++x)
            lightest = std::max<int>(lightest, picture.getPixelAt(x, y).getRed());
    EXPECT_GT(lightest, 150);
    EXPECT_LE(lightest, 204);
    // The text keeps to its field.
    for (int x = 0; x < 5; ++x)
        for (int y = 0; y < 15; ++y)
            ASSERT_EQ(picture.getPixelAt(x, y), ground);
}

TEST_F(Button, FitsTextsOfAnyLength)
{
    std::string text = "Add Group";
    for (int height : {15, 30, 60})
        for (text.resize(9); text.size() < 60; text += text.size() % 7 == 0 ? ' ' : 'm')
        {
            button.setSize(100, height);
            button.setButtonText(text);
            juce::Image expected(juce::Image::ARGB, 100, height, true);
            juce::Graphics g(expected);
            g.fillAll(juce::Colour::greyLevel(0.1f));
            g.setColour(juce::Colour::greyLevel(0.8f));
            g.drawFittedText(text, 5, 4, 90, height - 8, juce::Justification::left, 2, 0.0f);
            const auto picture = button.createComponentSnapshot(button.getLocalBounds());
            for (int x = 0; x < 100; ++x)
                for (int y = 0; y < height; ++y)
                    ASSERT_EQ(picture.getPixelAt(x, y), expected.getPixelAt(x, y)) << text << ", " << height;
        }
}
