// The panel's end in every state that a user can leave it in, and what the host may do with it meanwhile.

#include "tests/support/Sanitized.h"
#include "tests/x11/support/PanelInHost.h"

#include "standin/host/core/HookCalls.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/family/Sibling.h"

#include <dirent.h>
#include <fstream>
#include <sstream>
#include <unistd.h>

using namespace standin;
using testing::IsEmpty;

namespace
{
/// The states that a panel can be in when its host does something with it.
enum class State
{
    untouched,
    focused,
    menuOpen,
    menuClicked,
    editorOpen,
    buttonDown,
    dragging,
    dragReleased,
    hidden,
    withoutLayer,
    eventsWaiting
};

const std::pair<State, const char*> allStates[] = {{State::untouched, "Untouched"},
                                                   {State::focused, "Focused"},
                                                   {State::menuOpen, "MenuOpen"},
                                                   {State::menuClicked, "MenuClicked"},
                                                   {State::editorOpen, "EditorOpen"},
                                                   {State::buttonDown, "ButtonDown"},
                                                   {State::dragging, "Dragging"},
                                                   {State::dragReleased, "DragReleased"},
                                                   {State::hidden, "Hidden"},
                                                   {State::withoutLayer, "WithoutLayer"},
                                                   {State::eventsWaiting, "EventsWaiting"}};

class EveryState : public PanelInHost, public testing::WithParamInterface<std::pair<State, const char*>>
{
protected:
    EveryState()
    {
        Open();
        enter(GetParam().first);
    }

    void enter(State state)
    {
        switch (state)
        {
        case State::untouched:
            return;
        case State::focused:
            return ClickInto(Row(2));
        case State::menuOpen:
            return OpenGeometryMenu();
        case State::menuClicked:
            OpenGeometryMenu();
            return Click(MenuEntry(1));
        case State::editorOpen:
            ClickInto(Row(2));
            PressKey("Return");
            TypeText("half");
            return IdleFor(50ms);
        case State::buttonDown:
            ClickInto(Row(2));
            Press(Row(2));
            return IdleFor(50ms);
        case State::dragging:
            return startDrag();
        case State::dragReleased:
            startDrag();
            return hands.release();
        case State::hidden:
            ClickInto(Row(2));
            EXPECT_EQ(host.SetPanelState(panelName, PanelState::behind).thrown, "");
            return IdleFor(20ms);
        case State::withoutLayer:
            ClickInto(Row(2));
            host.User().SelectLayers({});
            return IdleFor(20ms);
        case State::eventsWaiting:
            ClickInto(Row(2));
            PressKey("Delete");
            Click(HostArea());
            Click(Row(1));
            return PressKey("F5");
        }
    }

    void startDrag()
    {
        ClickInto(Row(3));
        StartDrag(3);
    }

    void expectPanelWorks()
    {
        hands.release();
        host.User().SelectLayers({layer});
        EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
        (void)Sibling(host).RefreshPanel();
        Click(HostArea());
        Settle();
        const std::string first = Stack().substr(0, 1);
        ClickInto(Row(1));
        PressKey("Delete");
        EXPECT_TRUE(IdleUntil([&] { return Stack().substr(0, 1) != first; })) << Stack();
    }
};

std::string nameOfState(const testing::TestParamInfo<std::pair<State, const char*>>& info)
{
    return info.param.second;
}
} // namespace

TEST_P(EveryState, CanEndWithTheHost)
{
    Die();
    EXPECT_EQ(window.PanelWindow(), 0u);
    EXPECT_EQ(window.TakeErrors(), 0);
}

TEST_P(EveryState, CanEndAfterItsContainer)
{
    window.Destroy();
    Die();
    EXPECT_EQ(window.TakeErrors(), 0);
}

TEST_P(EveryState, CanLoseItsContainer)
{
    window.Destroy();
    IdleFor(150ms);
    void* view = window.MakeContainer(panelName);
    EXPECT_EQ(CreateAgain(view).thrown, "");
    expectPanelWorks();
}

TEST_P(EveryState, CanBeReplacedInItsContainer)
{
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    IdleFor(150ms);
    expectPanelWorks();
}

TEST_P(EveryState, CanBeReplacedByOneWithoutAView)
{
    EXPECT_EQ(CreateAgain(nullptr).thrown, "");
    IdleFor(150ms);
    EXPECT_EQ(window.PanelWindow(), 0u);
}

TEST_P(EveryState, ContinuesAfterThePanelWasHidden)
{
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::behind).thrown, "");
    IdleFor(150ms);
    expectPanelWorks();
}

INSTANTIATE_TEST_SUITE_P(Panel, EveryState, testing::ValuesIn(allStates), nameOfState);

namespace
{
HostOptions withAShortTrace()
{
    HostOptions options;
    options.traceLimit = 10;
    return options;
}

class Lifetime : public PanelInHost
{
protected:
    Lifetime() : PanelInHost(withAShortTrace()) {}

    void IdleTimes(int count)
    {
        for (int i = 0; i < count; ++i)
            Idle();
    }

    void callIdleHooks()
    {
        HostParts& parts = PartsOf(host);
        for (const auto& hook : parts.plugins.hooks.idle)
        {
            A_long sleep = 2;
            (void)RunHook(
                parts, {HookKind::ordinary, hook.pluginId, "IdleHook"},
                [&]
                { return hook.hook(parts.plugins.hooks.globalRefcons[hook.pluginId], hook.refcon, &sleep); });
        }
    }
};

struct ProcessUse
{
    long kilobytes = 0;
    int descriptors = 0;
    int threads = 0;
};

ProcessUse useOfProcess()
{
    ProcessUse use;
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
    {
        std::istringstream words(line);
        std::string name;
        words >> name;
        if (name == "VmRSS:")
            words >> use.kilobytes;
        if (name == "Threads:")
            words >> use.threads;
    }
    DIR* folder = opendir("/proc/self/fd");
    while (readdir(folder) != nullptr)
        ++use.descriptors;
    (void)closedir(folder);
    return use;
}

/// A sanitizer keeps freed memory, so that the size of its build says nothing; there the leaks are counted.
void ExpectMemoryGrewAtMost([[maybe_unused]] long kilobytes, [[maybe_unused]] const ProcessUse& before,
                            [[maybe_unused]] const ProcessUse& after)
{
#if !defined(VORTAN_TESTS_ARE_SANITIZED)
    EXPECT_LE(after.kilobytes, before.kilobytes + kilobytes);
#endif
}
} // namespace

TEST_F(Lifetime, IdlesWithoutAPanelAndAfterTheEnd)
{
    IdleFor(50ms);
    Die();
    callIdleHooks();
    callIdleHooks();
}

TEST_F(Lifetime, TenThousandIdlesLeakNoResources)
{
    Open();
    ClickInto(Row(2));
    IdleTimes(200);
    const ProcessUse before = useOfProcess();
    const int windowsBefore = window.ChildrenOfRoot();
    IdleTimes(10000);
    const ProcessUse after = useOfProcess();
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.threads, before.threads);
    EXPECT_EQ(window.ChildrenOfRoot(), windowsBefore);
    EXPECT_TRUE(PanelHasFocus());
}

// Without an item, since the stand-in remembers every reference that it has handed out.
TEST_F(Lifetime, TenThousandIdlesLeakNoMemory)
{
    Open();
    ClickInto(Row(2));
    host.User().SelectLayers({});
    host.User().OpenComposition(0);
    const std::string ignored = OutputOf([this] { IdleTimes(500); });
    const ProcessUse before = useOfProcess();
    const std::string lines = OutputOf([this] { IdleTimes(10000); });
    const ProcessUse after = useOfProcess();
    EXPECT_EQ(lines.size(), 10000 * std::string("No active item\n").size());
    ExpectMemoryGrewAtMost(1024, before, after);
}

TEST_F(Lifetime, FiftyPanelsInSuccessionLeakNothing)
{
    Open();
    const auto replace = [this](int times)
    {
        for (int i = 0; i < times; ++i)
        {
            EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
            IdleFor(5ms);
        }
    };
    replace(10);
    const ProcessUse before = useOfProcess();
    const int windowsBefore = window.ChildrenOfRoot();
    replace(50);
    const ProcessUse after = useOfProcess();
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.threads, before.threads);
    EXPECT_EQ(window.ChildrenOfRoot(), windowsBefore);
    ExpectMemoryGrewAtMost(4096, before, after);
}

TEST_F(Lifetime, AHeldRowSurvivesARebuild)
{
    Open();
    ClickInto(Row(2));
    Press(Row(2));
    Idle();
    host.User().Rename("a", "new");
    Idle();
    for (int step = 1; step <= 8; ++step)
    {
        Point({Row(2).x, Row(2).y - 3 * step});
        Idle();
    }
    Settle();
    hands.release();
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "b a c"; })) << Stack();
    Settle();
    ClickInto(Row(2));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "b c"; })) << Stack();
}
