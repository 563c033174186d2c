// The delivery of events on X11, linked and not loaded, so that a test can be inside it.

#include "panel/platform/PlatformEvents.h"

#include "standin/x11/XHostWindow.h"
#include "standin/x11/XTestInput.h"
#include "standin/x11/Xvfb.h"
#include "tests/x11/support/AttachTree.h"
#include "tree/ValueTreesDemo.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace standin;

namespace
{
class Dispatch : public testing::Test
{
protected:
    Dispatch()
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
    }

    ValueTreesDemo* make()
    {
        ValueTreesDemo* made = CreateTreeWidget(false);
        addToDesktop(made, nullptr, 200, 200, window.handle());
        AttachTree(made, window.id());
        return made;
    }

    void idle()
    {
        const PlatformErrorScope errors;
        DispatchPlatformEvents(tree);
    }

    bool idleUntil(const std::function<bool()>& condition)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (std::chrono::steady_clock::now() < end)
        {
            idle();
            if (condition())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        return false;
    }

    Xvfb server{400, 400};
    XTestInput user;
    XHostWindow window{20, 20, 300, 300};
    ValueTreesDemo* tree = nullptr;
};
} // namespace

TEST_F(Dispatch, DoesNothingWhenItIsEnteredFromInsideItself)
{
    bool wasInside = false;
    bool isInside = false;
    bool wasNested = false;
    juce::MessageManager::callAsync(
        [&]
        {
            isInside = true;
            juce::MessageManager::callAsync([&] { wasNested = isInside; });
            idle();
            isInside = false;
            wasInside = true;
        });
    EXPECT_TRUE(idleUntil([&] { return wasInside; }));
    idle();
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
                idle();
                ++calls;
            });
        EXPECT_TRUE(idleUntil([&] { return calls == i + 1; }));
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
    EXPECT_TRUE(idleUntil([this] { return tree == nullptr; }));
    idle();
}

TEST_F(Dispatch, SurvivesAWidgetThatIsReplacedByAKeyOrAPressInside)
{
    idle();
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
    user.move(120, 120);
    user.press();
    user.release();
    EXPECT_TRUE(idleUntil([&] { return wasReplaced; }));
    for (int i = 0; i < 20; ++i)
        idle();
}

TEST_F(Dispatch, ComesBackFromAFloodOfEvents)
{
    for (int i = 0; i < 20000; ++i)
        user.move(30 + i % 150, 30 + i % 130);
    for (int i = 0; i < 5; ++i)
        idle();
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
    EXPECT_TRUE(idleUntil([&] { return timer.ticks > 3; }));
}
