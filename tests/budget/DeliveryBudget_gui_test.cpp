// What the idle hook may cost on X11 while the user does nothing: no request to the server, and nothing from
// the heap.

#include "bench/FastPanel.h"
#include "standin/user/HostWindow.h"
#include "standin/user/x11/Xvfb.h"
#include "tests/support/CountedAllocations.h"
#include "tree/platform/x11/TreeX11.h"

#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <unistd.h>

namespace standin
{
using namespace user;

namespace
{
class DeliveryBudget : public testing::TestWithParam<FastHost::Panel>
{
protected:
    DeliveryBudget()
    {
        panel.ShowLayer(10);
        panel.host.Set(GetParam());
        settle();
    }

    /// Painting waits for JUCE's timers, and the server answers even later.
    void settle()
    {
        constexpr int passes = 60;
        constexpr int betweenPasses = 10000;
        for (int i = 0; i < passes; ++i)
        {
            usleep(betweenPasses);
            panel.Idle();
        }
    }

    static unsigned long requests() { return XNextRequest(GetTreeDisplay()); }

    Xvfb server{600, 600};
    HostWindow window{{{10, 10, 400, 500}, {0, 0, 400, 500}}};
    FastPanel panel{window.FrameHandle()};
};
} // namespace

TEST_P(DeliveryBudget, IsNoRequestAndNoMemory)
{
    // A timer of JUCE's, on its own clock, may paint or ask in any hundred passes, and late on a busy
    // machine. What a pass costs by itself shows in the hundred that had none.
    constexpr int mostTries = 50;
    constexpr int passes = 100;
    unsigned long asked = 1;
    Taken taken;
    for (int i = 0; i < mostTries && (asked != 0 || taken.allocations != 0); ++i)
    {
        settle();
        const unsigned long before = requests();
        taken = TakenBy(
            [this]
            {
                for (int pass = 0; pass < passes; ++pass)
                    panel.Idle();
            });
        asked = requests() - before;
    }
    EXPECT_EQ(asked, 0u);
    EXPECT_EQ(taken.allocations, 0u);
    EXPECT_EQ(taken.bytes, 0u);
}

INSTANTIATE_TEST_SUITE_P(Panels, DeliveryBudget,
                         testing::Values(FastHost::Panel::hidden, FastHost::Panel::background,
                                         FastHost::Panel::frontmost));
} // namespace standin
