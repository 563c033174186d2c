// The delivery of events on X11, linked and not loaded, so that a test can be inside it.

#include "panel/platform/PlatformEvents.h"

#include "standin/user/HostWindow.h"
#include "standin/user/User.h"
#include "tests/x11/support/AttachTree.h"
#include "tree/ValueTreesDemo.h"

#include <gtest/gtest.h>

namespace standin
{
using namespace user;

namespace
{
class Dispatch : public testing::Test, protected User
{
protected:
    Dispatch() : User(std::make_unique<Xvfb>(400, 400))
    {
        const PlatformErrorScope errors;
        JuceGlobalInit();
        tree = make();
    }

    ~Dispatch() override
    {
        const PlatformErrorScope errors;
        DeleteTreeWidget(tree);
        JuceGlobalShutDown();
        EXPECT_EQ(window.TakeErrors(), 0);
    }

    Area PanelArea() const override { return window.ContainerOnScreen(); }

    ValueTreesDemo* make()
    {
        ValueTreesDemo* made = CreateTreeWidget(false);
        addToDesktop(made, nullptr, 200, 200, window.FrameHandle());
        AttachTree(made, window.Frame());
        return made;
    }

    void Idle() override
    {
        const PlatformErrorScope errors;
        DispatchPlatformEvents(tree);
    }

    HostWindow window{{{20, 20, 300, 300}, {0, 0, 200, 200}}};
    ValueTreesDemo* tree = nullptr;
};
} // namespace

TEST_F(Dispatch, DoesNothingWhenReentered)
{
    bool wasInside = false;
    bool isInside = false;
    bool wasNested = false;
    juce::MessageManager::callAsync(
        [&]
        {
            isInside = true;
            juce::MessageManager::callAsync([&] { wasNested = isInside; });
            Idle();
            isInside = false;
            wasInside = true;
        });
    EXPECT_TRUE(IdleUntil([&] { return wasInside; }));
    Idle();
    EXPECT_FALSE(wasNested);
}

TEST_F(Dispatch, GoesOnAfterACallFromInsideItself)
{
    int calls = 0;
    for (int i = 0; i < 3; ++i)
    {
        juce::MessageManager::callAsync(
            [&]
            {
                Idle();
                ++calls;
            });
        EXPECT_TRUE(IdleUntil([&] { return calls == i + 1; }));
    }
}

TEST_F(Dispatch, SurvivesAWidgetThatIsDeletedInsideIt)
{
    juce::MessageManager::callAsync(
        [this]
        {
            DeleteTreeWidget(tree);
            tree = nullptr;
        });
    EXPECT_TRUE(IdleUntil([this] { return tree == nullptr; }));
    Idle();
}

TEST_F(Dispatch, SurvivesAWidgetReplacedByItsEvent)
{
    Idle();
    struct Replacing : juce::MouseListener
    {
        std::function<void()> replace;
        void mouseDown(const juce::MouseEvent&) override { replace(); }
    } listener;
    ValueTreesDemo* former = nullptr;
    bool wasReplaced = false;
    juce::Desktop::getInstance().addGlobalMouseListener(&listener);
    listener.replace = [&]
    {
        juce::Desktop::getInstance().removeGlobalMouseListener(&listener);
        former = tree;
        tree = make();
        juce::MessageManager::callAsync([former] { DeleteTreeWidget(former); });
        wasReplaced = true;
    };
    Click({120, 120});
    EXPECT_TRUE(IdleUntil([&] { return wasReplaced; }));
    for (int i = 0; i < 20; ++i)
        Idle();
}

TEST_F(Dispatch, ComesBackFromAFloodOfEvents)
{
    for (int i = 0; i < 20000; ++i)
        hands.move(30 + i % 150, 30 + i % 130);
    for (int i = 0; i < 5; ++i)
        Idle();
}

TEST_F(Dispatch, RunsMessagesAndTimersWithoutAWidget)
{
    struct Ticking : juce::Timer
    {
        int ticks = 0;
        void timerCallback() override { ++ticks; }
    } timer;
    timer.startTimer(5);
    DeleteTreeWidget(tree);
    tree = nullptr;
    EXPECT_TRUE(IdleUntil([&] { return timer.ticks > 3; }));
}
} // namespace standin
