// The one table of the checks.

#include "standin/checks/Checks.h"

#include "standin/checks/Check.h"

#include <algorithm>

namespace standin
{
const std::vector<Check>& AllChecks()
{
    using namespace checks;
    static const std::vector<Check> table
    {
        // What loading the bundle does.
        {"idle-suite-entry-calls",
         "EffectorAEGP publishes the idle suite and registers its idle hook by exactly the calls it should.",
         &IdleSuiteEntryCalls},
            {"panel-entry-calls",
             "PanelEntryPointFunc registers the menu entry, the hooks and the panel suite by exactly the "
             "calls it "
             "should.",
             &PanelEntryCalls},
            // The two published suites.
            {"idle-queue-order",
             "Queued functions run once each, at the next idle, in the order of queueing.", &IdleQueueOrder},
#if STANDIN_HAS_SCREEN
            // The file, and the panel in its window.
            {"exported-symbols", "The bundle exports its two entry points and nothing else.",
             &ExportedSymbols},
            {"panel-opens", "The panel opens in the host's view and shows the active layer's effects.",
             &PanelOpens},
            // The panel as a person sees and uses it.
            {"walk-in-host",
             "After each step of a random walk in the host, stack, history and panel are what a small model "
             "says.",
             &WalkInHost, Pace::slow},
            {"walk-in-panel",
             "After each step of a random walk with mouse and keys in the panel, stack, history and panel "
             "are "
             "what a small model says.",
             &WalkInPanel, Pace::slow},
            {"walk-in-both",
             "After each step of a random walk in host and panel by turns, stack, history and panel are what "
             "a small model says.",
             &WalkInBoth, Pace::slow},
#endif
    };
    return table;
}

const Check* FindCheck(const std::string& id)
{
    const auto& all = AllChecks();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Check& check) { return check.id == id; });
    return found == all.end() ? nullptr : &*found;
}
} // namespace standin
