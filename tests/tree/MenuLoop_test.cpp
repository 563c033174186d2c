// A menu that blocks puts off the end of JUCE until the host's own loop runs again.

#include "tree/MenuLoop.h"

#include "tests/tree/support/TreeTest.h"
#include "tree/platform/x11/TreeX11.h"

#include <gtest/gtest.h>

#include <optional>

using namespace standin;

namespace
{
class AMenuLoop : public TreeTest
{
protected:
    AMenuLoop() { deleteWidget(); }

    static bool isJuceUp() { return juce::MessageManager::getInstanceWithoutCreating() != nullptr; }

    static bool isJuceUpInTheHostsLoop()
    {
        RunTreeMessages();
        return isJuceUp();
    }
};
} // namespace

TEST_F(AMenuLoop, RunsUntilTheOuterOneEnds)
{
    EXPECT_FALSE(MenuLoop::isRunning());
    std::optional<MenuLoop> outer(std::in_place);
    EXPECT_TRUE(MenuLoop::isRunning());
    {
        const MenuLoop inner;
        EXPECT_TRUE(MenuLoop::isRunning());
    }
    EXPECT_TRUE(MenuLoop::isRunning());
    outer.reset();
    EXPECT_FALSE(MenuLoop::isRunning());
    EXPECT_TRUE(isJuceUpInTheHostsLoop()) << "nobody has asked for its end";
}

TEST_F(AMenuLoop, PutsOffTheEndOfJuce)
{
    std::optional<MenuLoop> outer(std::in_place);
    {
        const MenuLoop inner;
        JuceGlobalShutDown();
        EXPECT_TRUE(isJuceUpInTheHostsLoop());
    }
    EXPECT_TRUE(isJuceUpInTheHostsLoop());
    outer.reset();
    EXPECT_TRUE(isJuceUp()) << "JUCE still handles the click";
    EXPECT_FALSE(isJuceUpInTheHostsLoop());
    // What is over is over.
    JuceGlobalInit();
    EXPECT_TRUE(isJuceUpInTheHostsLoop());
}

TEST_F(AMenuLoop, LeavesJuceToTheNextMenu)
{
    std::optional<MenuLoop> first(std::in_place);
    JuceGlobalShutDown();
    first.reset();
    std::optional<MenuLoop> second(std::in_place);
    EXPECT_TRUE(isJuceUpInTheHostsLoop());
    second.reset();
    EXPECT_FALSE(isJuceUpInTheHostsLoop());
}

TEST_F(AMenuLoop, KeepsJuceThatHasStartedAnew)
{
    {
        const MenuLoop loop;
        JuceGlobalShutDown();
        JuceGlobalInit();
    }
    EXPECT_TRUE(isJuceUpInTheHostsLoop());
}

TEST_F(AMenuLoop, ThatHasEndedLetsJuceEndAtOnce)
{
    {
        const MenuLoop loop;
    }
    JuceGlobalShutDown();
    EXPECT_FALSE(isJuceUp());
}
