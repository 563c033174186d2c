// The budget of the idle pass: how many host calls it makes, and what it takes from the heap, for any number
// of effects. The whole panel runs, without a screen.

#include "bench/FastPanel.h"
#include "tests/support/CountedAllocations.h"

#include <gtest/gtest.h>

namespace standin
{
namespace
{
struct Cost
{
    std::uint64_t calls;
    std::size_t allocations;
    std::size_t bytes;

    friend bool operator==(const Cost& a, const Cost& b)
    {
        return a.calls == b.calls && a.allocations == b.allocations && a.bytes == b.bytes;
    }
    friend std::ostream& operator<<(std::ostream& out, const Cost& cost)
    {
        return out << cost.calls << " calls, " << cost.allocations << " allocations, " << cost.bytes
                   << " bytes";
    }
};

class PassBudget : public testing::TestWithParam<int>
{
protected:
    PassBudget() { panel.ShowLayer(GetParam()); }

    Cost costOfPass()
    {
        const std::uint64_t before = FastHost::Calls();
        const Taken taken = TakenBy([this] { panel.Idle(); });
        return {FastHost::Calls() - before, taken.allocations, taken.bytes};
    }

    int effects() const { return GetParam(); }

    FastPanel panel;
};

std::uint64_t callsOfRead(int effects) { return static_cast<std::uint64_t>(22 * effects); }
} // namespace

TEST_P(PassBudget, OfAHiddenPanelIsTwoCalls)
{
    panel.host.Set(FastHost::Panel::hidden);
    panel.Settle();
    EXPECT_EQ(costOfPass(), (Cost{2, 0, 0}));
}

TEST_P(PassBudget, OfAPanelBehindAnotherIsTwoCalls)
{
    panel.host.Set(FastHost::Panel::background);
    panel.Settle();
    EXPECT_EQ(costOfPass(), (Cost{2, 0, 0}));
}

// Seven calls, and seven suites or, over an empty stack, two.
TEST_P(PassBudget, OfAQuietPassIsOneRead)
{
    const std::uint64_t around = effects() == 0 ? 7 + 2 * 2 : 7 + 2 * 7;
    for (int pass = 0; pass < 3; ++pass)
        EXPECT_EQ(costOfPass(), (Cost{around + callsOfRead(effects()), 0, 0})) << "pass " << pass;
}

// For each effect four reads of 22 calls, four for its match name and eleven to hide it.
TEST_P(PassBudget, OfAHostsRenameIsFourReads)
{
    if (effects() == 0)
        return;
    panel.host.Rename(0, "another name");
    EXPECT_EQ(costOfPass().calls, static_cast<std::uint64_t>(76 + 103 * effects()));
}

// For each effect three reads, two questions for its identity of six calls each, three to keep its place, and
// the same for the selection.
TEST_P(PassBudget, OfATreesRenameIsThreeReads)
{
    if (effects() == 0)
        return;
    panel.RenameInTree(0, "another name");
    EXPECT_EQ(costOfPass().calls, static_cast<std::uint64_t>(98 + 96 * effects()));
}

TEST_P(PassBudget, IsWithoutMemoryTwoPassesAfterChanges)
{
    if (effects() == 0)
        return;
    panel.host.Rename(0, "another name");
    panel.Idle();
    panel.Idle();
    EXPECT_EQ(costOfPass().allocations, 0u);
}

INSTANTIATE_TEST_SUITE_P(Effects, PassBudget, testing::Values(0, 1, 10, 100, 1000));
} // namespace standin
