// The one table of the checks.

#include "standin/checks/Checks.h"

#include "standin/checks/Check.h"

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
            {"entries-in-either-order", "Both entry points do their work whichever the host calls first.",
             &EntriesInEitherOrder},
            {"start-without-suites",
             "Where a suite is missing the panel's start is left by the number of that, with nothing held.",
             &StartWithoutSuites},
            {"start-refused", "A registration that the host refuses is reported as it should be.",
             &StartRefused},
            // The two published suites.
            {"idle-suite-table",
             "The idle suite is a table of a reference and a function, the same for everybody.",
             &IdleSuiteTable},
            {"idle-queue-order",
             "Queued functions run once each, at the next idle, in the order of queueing.", &IdleQueueOrder},
            {"idle-queue-full", "The queue takes 32 functions, and the user is told when another is dropped.",
             &IdleQueueFull},
            {"idle-queue-requeue",
             "What a queued function queues runs behind it, in this pass or in the next.", &IdleQueueRequeue},
            {"idle-queue-throw",
             "What a queued function throws reaches the host, and the queue behind it is kept.",
             &IdleQueueThrow},
            {"idle-queue-nulls", "Entries without a function or without a refcon do no harm.",
             &IdleQueueNulls},
            {"panel-suite-table", "The panel suite's three functions answer 0 and call the host only to ask.",
             &PanelSuiteTable},
            {"panel-suite-requests", "A sibling's request is carried out at the next idle, and once.",
             &PanelSuiteRequests},
            // The hooks while no panel is open.
            {"closed-panel-idle", "While the panel is closed an idle pass asks whether it is, and no more.",
             &ClosedPanelIdle},
            {"command-hook", "The command hook takes its own command and leaves all others alone.",
             &CommandHook},
            {"death-hook", "The death hook makes no call of the host.", &DeathHook},
            {"process-end", "Behind the death hooks the process ends by itself.", &ProcessEnd},
#if STANDIN_HAS_SCREEN
            // The file, and the panel in its window.
            {"exported-symbols", "The bundle exports its two entry points and nothing else.",
             &ExportedSymbols},
            {"panel-opens", "The panel opens in the host's view and shows the active layer's effects.",
             &PanelOpens},
            {"container-goes-first", "The panel ends well also if its container is gone before it.",
             &ContainerGoesFirst},
            {"panel-reopens", "Closed and opened by its menu entry, the panel shows the layer again.",
             &PanelReopens},
            {"menu-entry", "The menu entry is always enabled, and ticked just while the panel is in front.",
             &MenuEntry},
            {"quiet-idle",
             "While nothing changes an idle pass reads, writes nothing and is like the one before.",
             &QuietIdle},
            {"memory-steady", "Thousands of idle passes take no memory.", &MemorySteady},
            {"reference-balance", "Every effect and stream that the host hands out is disposed of, and once.",
             &ReferenceBalance},
            {"suite-balance",
             "Every suite is released as often as it was acquired, but for those that are kept.",
             &SuiteBalance},
            {"undo-balance", "Each change leaves the undo steps that it should, and no group stays open.",
             &UndoBalance},
            // Faults: each host call of a change fails in turn.
            {"fault-sweep-reading",
             "Whichever host call fails while a change is read and shown, the pass does what it should.",
             &SweepOfReading, Pace::slow},
            {"fault-sweep-order",
             "Whichever host call fails while the effects are put in order, the pass does what it should.",
             &SweepOfOrder, Pace::slow},
            {"fault-sweep-rename",
             "Whichever host call fails in a rename, its undo group stays open just where that is meant.",
             &SweepOfRename, Pace::slow},
            {"fault-sweep-delete",
             "Whichever host call fails in a deletion, its undo group stays open just where that is meant.",
             &SweepOfDelete, Pace::slow},
            {"withheld-suites",
             "A pass that misses a suite is left by the number of that, and the next pass makes up for it.",
             &WithheldSuites},
            {"kept-findings",
             "What a strict host reports of the bundle appears where it is meant, and nowhere else.",
             &KeptFindings},
            // Odd surroundings.
            {"messages", "The messages to effects are made as the effects expect them.", &Messages},
            {"odd-effects", "Effects that lie, fail, or change the stack inside a message do no harm.",
             &OddEffects},
            {"odd-names", "Names in any encoding, empty or long come and go unchanged.", &OddNames},
            {"main-thread", "The bundle calls the host inside hooks alone, and on the main thread.",
             &MainThread},
            // The panel as a person sees and uses it.
            {"road-rename",
             "A new name typed over a row reaches the effect as one undo step, and its undo reaches the row.",
             &RoadOfRename},
            {"road-rename-given-up", "A rename that is given up or refused writes nothing.",
             &RoadOfRenameGivenUp},
            {"road-into-group",
             "A row dragged into a group puts its effect into that group and in its place.", &RoadIntoGroup},
            {"road-out-of-group", "A row dragged out of its group takes its effect out of it.",
             &RoadOutOfGroup},
            {"road-reorder",
             "Rows dragged up and down reorder the effects, and each drag is undone in one step.",
             &RoadOfReorder},
            {"road-switch",
             "A click on a box switches its effect, and one on a group's box all objects of the group.",
             &RoadOfSwitch},
            {"road-add", "What is chosen from the toolbar is applied in its place of the stack.", &RoadOfAdd},
            {"road-delete", "The Delete key takes the selected rows' effects off the layer as one undo step.",
             &RoadOfDelete},
            {"road-select", "The selected rows decide which of the family's effects the host shows.",
             &RoadOfSelection},
            {"road-from-host", "What is changed in the host, by hand or by undo, comes into the panel.",
             &RoadFromHost},
            {"layer-wins", "When layer and panel change in the same idle interval, the layer wins.",
             &LayerWins},
            {"toolbar-menus", "Each menu of the toolbar offers the installed effects of its kind.",
             &MenusOfToolbar},
            {"keys-of-tree",
             "Delete, Return, cut, copy, paste and select all go to the tree and not to the host.",
             &KeysOfTree},
            {"keys-of-host", "All other keys reach the host, also those that the tree uses.", &KeysOfHost},
            {"keys-without-focus", "While the host has the keyboard, the panel takes no key.",
             &KeysWithoutFocus},
            {"keys-of-name-field", "The field for a new name keeps the keys that it is typed in with.",
             &KeysOfNameField},
            {"panel-resized", "The panel follows the size of the place that it is given.", &PanelResized},
            {"panel-covered",
             "Behind another tab the panel rests, and comes back up to date; the menu entry closes and shows "
             "it.",
             &PanelCovered},
            {"view-made-anew", "A view that the host makes anew gets a panel that works.", &ViewMadeAnew},
            {"notification", "A sibling's text is shown for ten seconds; the last of several stays.",
             &NotificationShown},
            {"layers-keep-views",
             "Each layer gets its openness and its selection back, and without a layer there are no rows.",
             &LayersKeepViews},
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
} // namespace standin
