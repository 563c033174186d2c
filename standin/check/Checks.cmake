# The checks of a bundle, in the order in which they are listed and reported. vortan_check of VortanChecks.cmake says
# what stands in a row.

# What loading the bundle does.
vortan_check(idle-suite-entry-calls
  "EffectorAEGP publishes the idle suite and registers its idle hook by exactly the calls it should."
  RUNS IdleSuiteEntryCalls
  MUTANT idle-suite-internal-version host/IdleSuite.cpp
  WAS [[VN_IDLE_SUITE_NAME, 1, 1, suite]]
  IS [[VN_IDLE_SUITE_NAME, 1, 2, suite]]
  FOUND [["Vortan Idle Suite v1", 1, 2, table]])
vortan_check(panel-entry-calls
  "PanelEntryPointFunc registers the menu entry, the hooks and the panel suite by exactly the calls it should."
  RUNS PanelEntryCalls
  MUTANT menu-entry-at-the-bottom panel/Panelator.cpp
  WAS [[AEGP_MENU_INSERT_SORTED);]]
  IS [[0);]]
  FOUND [["Vortan Object Panel", 7, 0)]])
vortan_check(entries-in-either-order "Both entry points do their work whichever the host calls first."
  RUNS EntriesInEitherOrder
  MUTANT panel-needs-the-idle-suite panel/Panelator.cpp
  WAS [[*out = new Panelator(basicSuite, id);]]
  IS [[const void* idle = nullptr;
    if (basicSuite->AcquireSuite("Vortan Idle Suite v1", 1, &idle) != 0)
        return A_Err_GENERIC;
    (void)basicSuite->ReleaseSuite("Vortan Idle Suite v1", 1);
    *out = new Panelator(basicSuite, id);]]
  FOUND [[PanelEntryPointFunc failed with error 1]])
vortan_check(start-without-suites
  "Where a suite is missing, startup throws that suite's code, 13 or 516, and leaks nothing."
  RUNS StartWithoutSuites
  MUTANT missing-suite-by-another-number host/SuiteHandler.cpp
  WAS [[throw static_cast<int>(PF_Err_BAD_CALLBACK_PARAM);]]
  IS [[throw static_cast<int>(A_Err_MISSING_SUITE);]]
  FOUND [[is 13 and should be 516]])
vortan_check(start-refused "A registration that the host refuses is reported as it should be."
  RUNS StartRefused
  MUTANT published-without-a-command panel/Panelator.cpp
  WAS [[if (commandError == A_Err_NONE) {]]
  IS [[{]]
  FOUND [[the panel suite is published although there is no command]])

# The two published suites.
vortan_check(idle-suite-table "The idle suite is a table of a reference and a function, the same for everybody."
  RUNS IdleSuiteTable
  MUTANT idle-suite-without-reference host/IdleSuite.cpp
  WAS [[suite->ref = ref;]]
  IS [[]]
  FOUND [[the first word of the idle suite's table, its reference, is 0]])
vortan_check(idle-queue-order "Queued functions run once each, at the next idle, in the order of queueing."
  RUNS IdleQueueOrder
  MUTANT slots-are-not-cleared host/IdleSuite.cpp
  WAS [[slot = {nullptr, nullptr};]]
  IS [[]]
  FOUND [[what has run after the second idle]])
vortan_check(idle-queue-full "The queue takes 32 functions, and the user is told when another is dropped."
  RUNS IdleQueueFull
  MUTANT full-queue-with-another-text host/IdleSuite.cpp
  WAS [[Max Idle Stack Limit Reached.]]
  IS [[Max Idle Stack Limit Reached]]
  FOUND [[the alerts of a full queue]])
vortan_check(idle-queue-requeue "What a queued function queues runs after it, in this pass or in the next."
  RUNS IdleQueueRequeue
  MUTANT slot-is-cleared-before-the-call host/IdleSuite.cpp
  WAS [[if (slot.func != nullptr)
            (void)slot.func(ref->pluginId, ref->basicSuite, slot.refcon);
        slot = {nullptr, nullptr};]]
  IS [[const IdleSlot job = slot;
        slot = {nullptr, nullptr};
        if (job.func != nullptr)
            (void)job.func(ref->pluginId, ref->basicSuite, job.refcon);]]
  FOUND [[what has run after the only entry has queued another]])
vortan_check(idle-queue-throw "What a queued function throws propagates to the host, and the rest of the queue is kept."
  RUNS IdleQueueThrow
  MUTANT queue-swallows-exceptions host/IdleSuite.cpp
  WAS [[(void)slot.func(ref->pluginId, ref->basicSuite, slot.refcon);]]
  IS [[try { (void)slot.func(ref->pluginId, ref->basicSuite, slot.refcon); } catch (...) { }]]
  FOUND [[the integer that left the idle hook is 0 and should be 42]])
vortan_check(idle-queue-nulls "Entries without a function or without a refcon do no harm."
  RUNS IdleQueueNulls
  MUTANT queue-calls-null host/IdleSuite.cpp
  WAS [[if (slot.func != nullptr)]]
  IS [[]]
  FOUND [[at: an entry with a refcon and no function]])
vortan_check(panel-suite-table "The panel suite's three functions answer 0 and call the host only to ask."
  RUNS PanelSuiteTable
  MUTANT refresh-answers-one panel/PanelSuite.cpp
  WAS [[ref->refreshPending = 1; return A_Err_NONE;]]
  IS [[ref->refreshPending = 1; return 1;]]
  FOUND [[the result of RefreshPanel is 1 and should be 0]])
vortan_check(panel-suite-requests "A sibling's request is carried out at the next idle, and once."
  RUNS PanelSuiteRequests
  MUTANT open-request-is-not-cleared panel/IdlePass.cpp
  WAS [[requests.openPending ^= 1;]]
  IS [[]]
  FOUND [[the idle after that]])

# The hooks while no panel is open.
vortan_check(closed-panel-idle "While the panel is closed an idle pass asks whether it is, and no more."
  RUNS ClosedPanelIdle
  MUTANT closed-panel-asks-for-the-item panel/IdlePass.cpp
  WAS [[if (examinePanel() == Outcome::passIsOver) return; showNotification();]]
  IS [[(void)panel.suites.ItemSuite1()->AEGP_GetActiveItem(&item);
    if (examinePanel() == Outcome::passIsOver)
        return;
    showNotification();]]
  FOUND [[with a closed panel: number 1 is "Item 3 AEGP_GetActiveItem]])
vortan_check(command-hook "The command hook takes its own command and leaves all others alone."
  RUNS CommandHook
  MUTANT takes-every-command panel/Panelator.cpp
  WAS [[if (chosen != command) return;]]
  IS [[]]
  FOUND [[which is somebody else's]])
vortan_check(death-hook "The death hook makes no call of the host."
  RUNS DeathHook
  MUTANT death-hook-unticks-the-entry panel/Panelator.cpp
  WAS [[const PlatformErrorScope errors; Panelator* panelator = panelatorOf(globalRefcon);]]
  IS [[const PlatformErrorScope errors;
    Panelator* panelator = panelatorOf(globalRefcon);
    (void)panelator->suites.CommandSuite1()->AEGP_CheckMarkMenuCommand(panelator->command, 0);]]
  FOUND [[the host calls of the death hook]])
vortan_check(process-end "After the death hooks the process exits on its own."
  RUNS ProcessEnd
  MUTANT thread-is-never-joined panel/Panelator.cpp
  WAS [[#include "panel/Panelator.h"]]
  IS [[#include "panel/Panelator.h"
#include <thread>

static std::thread watcher([] { std::this_thread::sleep_for(std::chrono::hours(1)); });]]
  FOUND [[the process has crashed]])

# The file, and the panel in its window.
vortan_check(exported-symbols "The bundle exports its two entry points and nothing else."
  RUNS ExportedSymbols SCREEN
  MUTANT a-third-export panel/Panelator.cpp
  WAS [[A_Err PanelEntryPointFunc(]]
  IS [[extern "C" __attribute__((visibility("default"), used)) void JuceGlobalDebug() {} A_Err PanelEntryPointFunc(]]
  EXPORTS JuceGlobalDebug
  FOUND [["JuceGlobalDebug" and should be "PanelEntryPointFunc"]])
vortan_check(panel-opens "The panel opens in the host's view and shows the active layer's effects."
  RUNS PanelOpens SCREEN
  MUTANT panel-refcon-is-lost panel/Panelator.cpp
  WAS [[*outRefcon = new PanelatorUI_Plat(]]
  IS [[new PanelatorUI_Plat(]]
  FOUND [[the create panel hook gave the host no panel refcon]])
vortan_check(container-goes-first "The panel ends well also if its container is gone before it."
  RUNS ContainerGoesFirst SCREEN
  MUTANT death-hook-heeds-no-errors panel/Panelator.cpp
  WAS [[const PlatformErrorScope errors; Panelator* panelator = panelatorOf(globalRefcon);]]
  IS [[Panelator* panelator = panelatorOf(globalRefcon);]]
  FOUND [[X told the host of]])
vortan_check(panel-reopens "Closed and opened by its menu entry, the panel shows the layer again."
  RUNS PanelReopens SCREEN
  MUTANT toggle-without-a-refresh panel/Panelator.cpp
  WAS [[if (panelRef != nullptr) panelRef->refreshPending = 1;]]
  IS [[]]
  FOUND [[the rows of the panel]])
vortan_check(menu-entry "The menu entry is always enabled, and ticked just while the panel is in front."
  RUNS MenuEntry SCREEN
  MUTANT ticked-behind-another-tab panel/Panelator.cpp
  WAS [[AskVisibility(*panelSuite, matchName).IsInFront() ? 1 : 0]]
  IS [[AskVisibility(*panelSuite, matchName).shown]]
  FOUND [[the menu entry's check mark]])
vortan_check(quiet-idle "While nothing changes an idle pass reads, writes nothing and is like the one before."
  RUNS QuietIdle SCREEN
  MUTANT hash-is-not-noted panel/IdlePass.cpp
  WAS [[panel.treeHash = treeNow;]]
  IS [[]]
  FOUND [[the number of names that a pass reads is 8 and should be 4]])
vortan_check(memory-steady "Thousands of idle passes take no memory."
  RUNS MemorySteady SCREEN
  MUTANT read-items-are-never-freed panel/IdlePass.cpp
  WAS [[ReadItemsFromLayer(panel.pluginId, panel.basicSuite, layer, panel.layerItems); return panel.layerItems;]]
  IS [[return *new std::vector<ObjectItem>( CreateItemsFromLayer(panel.pluginId, panel.basicSuite, layer, -1));]]
  FOUND [[bytes of memory]])
vortan_check(reference-balance "Every effect and stream that the host hands out is disposed of, and once."
  RUNS ReferenceBalance SCREEN
  MUTANT streams-are-disposed-of-twice effects/EffectChain.cpp
  WAS [[AEGP_DisposeStream(std::exchange(stream, nullptr))]]
  IS [[AEGP_DisposeStream(stream)]]
  FOUND [[double-dispose]])
vortan_check(suite-balance "Every suite is released as often as it was acquired, but for those that are kept."
  RUNS SuiteBalance SCREEN
  MUTANT suites-are-not-released host/SuiteHandler.cpp
  WAS [[AEGP_SuiteHandler::~AEGP_SuiteHandler() { ReleaseAllSuites(); }]]
  IS [[AEGP_SuiteHandler::~AEGP_SuiteHandler() {}]]
  FOUND [[the suites that are held]])
vortan_check(undo-balance "Each change leaves the undo steps that it should, and no group stays open."
  RUNS UndoBalance SCREEN
  MUTANT every-order-has-a-name effects/LayerEffectChanges.cpp
  WAS [[isOnlyChange ? "Reorder Effect(s)" : "";]]
  IS [["Reorder Effect(s)";]]
  FOUND [[what can be undone]])

# Faults: each host call of a change fails in turn.
vortan_check(fault-sweep-reading
  "Whichever host call fails while a change is read and shown, the pass does what it should."
  RUNS SweepOfReading SCREEN MINUTES 3
  MUTANT streams-leak-after-an-error effects/EffectChain.cpp
  WAS [[if (stream == nullptr) return;]]
  IS [[if (stream == nullptr || err != A_Err_NONE) return;]]
  FOUND [[dispose-order]])
vortan_check(fault-sweep-order
  "Whichever host call fails while the effects are put in order, the pass does what it should."
  RUNS SweepOfOrder SCREEN MINUTES 3
  MUTANT order-ends-only-if-all-is-well effects/LayerEffectChanges.cpp
  WAS [[// Kept: closed whatever happened, also if the group could not be opened.
    (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  IS [[A_long left = 0;
    if (suites.EffectSuite1()->AEGP_GetLayerNumEffects(target.layer, &left) == A_Err_NONE)
        (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  FOUND [[was not ended after this had failed]])
vortan_check(fault-sweep-rename
  "Whichever host call fails in a rename, its undo group stays open just where that is meant."
  RUNS SweepOfRename SCREEN MINUTES 3
  MUTANT rename-always-ends-its-group effects/LayerEffectChanges.cpp
  WAS [[.Call(&AEGP_UtilitySuite1::AEGP_EndUndoGroup); (void)chain.Finish();]]
  IS [[; (void)suites.UtilitySuite1()->AEGP_EndUndoGroup(); (void)chain.Finish();]]
  FOUND [[the undo group "Rename Effect(s)" was ended although this had failed]])
vortan_check(fault-sweep-delete
  "Whichever host call fails in a deletion, its undo group stays open just where that is meant."
  RUNS SweepOfDelete SCREEN MINUTES 3
  MUTANT delete-always-ends-its-group effects/EffectRemoval.cpp
  WAS [[if (err == A_Err_NONE) err = suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  IS [[(void)suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  FOUND [[the undo group "Delete Effect(s)" was ended although this had failed]])
vortan_check(withheld-suites
  "A pass that misses a suite throws that suite's code, and the next pass makes up for it."
  RUNS WithheldSuites SCREEN
  MUTANT idle-hook-catches panel/Panelator.cpp
  WAS [[panelator->IdleHook(static_cast<VnPanelRef*>(refcon));]]
  IS [[try { panelator->IdleHook(static_cast<VnPanelRef*>(refcon)); } catch (int err) { return err; }]]
  FOUND [[the number that left the idle hook is 0 and should be 516]])
vortan_check(pass-inside-pass
  "Whichever call the host idles inside, no pass runs inside a pass, and a change ends as ever."
  RUNS PassInsidePass SCREEN MINUTES 3
  MUTANT passes-are-not-kept-apart panel/IdlePass.cpp
  WAS [[others.Begin();]]
  IS [[]]
  FOUND [[a rename, and the host idles inside each 8th call]])
vortan_check(kept-findings "What a strict host reports of the bundle appears where it is meant, and nowhere else."
  RUNS KeptFindings SCREEN
  MUTANT released-only-if-obtained host/IdleSuite.cpp
  WAS [[(void)release<AEGP_UtilitySuite5>(ref->basicSuite);]]
  IS [[if (utility != nullptr) (void)release<AEGP_UtilitySuite5>(ref->basicSuite);]]
  FOUND [[missing-finding]])

# Odd surroundings.
vortan_check(messages "The messages to effects are made as the effects expect them."
  RUNS Messages SCREEN
  MUTANT group-is-preset-to-zero effects/EffectMessages.cpp
  WAS [[message.group = -1;]]
  IS [[message.group = 0;]]
  FOUND [[the message with command 1 is]])
vortan_check(odd-effects "Effects that lie, fail, or change the stack inside a message do no harm."
  RUNS OddEffects SCREEN
  MUTANT unanswered-messages-throw effects/EffectMessages.cpp
  WAS [[(void)PingEffectIndex(pluginId, suites, layer, time, &message, index, 0); return message.uuid;]]
  IS [[if (const int err = PingEffectIndex(pluginId, suites, layer, time, &message, index, 0))
        throw err;
    return message.uuid;]]
  FOUND [[what left the idle hook is "the integer 4"]])
vortan_check(odd-names "Names in any encoding, empty or long come and go unchanged."
  RUNS OddNames SCREEN
  MUTANT bytes-become-question-marks tree/NameText.cpp
  WAS [[appendUtf8(utf8, escapeBase + static_cast<std::uint8_t>(bytes[at++]));]]
  IS [[utf8 += '?', ++at;]]
  FOUND [[the names after the opening of the panel]])
vortan_check(main-thread "The bundle calls the host inside hooks alone, and on the main thread."
  RUNS MainThread SCREEN
  MUTANT asks-on-another-thread panel/PanelSuite.cpp
  WAS [[int OpenPanel(VnPanelRef* ref, unsigned char force) {]]
  IS [[#include <thread>

int OpenPanel(VnPanelRef* ref, unsigned char force)
{
    const void* table = nullptr;
    std::thread([&] { (void)ref->basicSuite->AcquireSuite("AEGP Workspace Panel Suite", 1, &table); }).join();]]
  FOUND [[wrong-thread]])

# The panel as a person sees and uses it.
vortan_check(road-rename
  "A new name typed over a row reaches the effect as one undo step, and its undo reaches the row."
  PLAYS road-rename
  MUTANT rename-under-another-name effects/LayerEffectChanges.cpp
  WAS [["Rename Effect(s)"]]
  IS [["Rename Effect"]]
  FOUND [[expect undo "Rename Effect(s)"]])
vortan_check(road-rename-given-up "A rename that is given up or refused writes nothing."
  PLAYS road-rename-given-up
  MUTANT escape-renames-too tree/CustomTextEditor.cpp
  WAS [[setVisible(false); onRename = nullptr;]]
  IS [[setVisible(false); onRename(BytesFromText(getText())); onRename = nullptr;]]
  FOUND [[expect stack "lamp" "route" "dots"]])
vortan_check(road-into-group "A row dragged into a group puts its effect into that group and in its place."
  PLAYS road-into-group
  MUTANT group-is-not-told effects/LayerEffectChanges.cpp
  WAS [[SetEffectGroup(target.pluginId, target.basicSuite, target.layer, item.uuid, item.group);]]
  IS [[]]
  FOUND [[expect "route" in group 1]])
vortan_check(road-out-of-group "A row dragged out of its group takes its effect out of it."
  PLAYS road-out-of-group
  MUTANT group-is-kept-outside tree/ValueTreeItemDrag.cpp
  WAS [[node.setProperty(TreeIds::group, number, nullptr);]]
  IS [[if (number != -1) node.setProperty(TreeIds::group, number, nullptr);]]
  FOUND [[expect "lamp" in group 0]])
vortan_check(road-reorder "Rows dragged up and down reorder the effects, and each drag is undone in one step."
  PLAYS road-reorder
  MUTANT rows-dropped-in-reverse tree/ValueTreeItemDrag.cpp
  WAS [[for (int i = nodes.size(); --i >= 0;)]]
  IS [[for (int i = 0; i < nodes.size(); ++i)]]
  FOUND [[expect stack "lamp" "dots" "route"]])
vortan_check(road-switch "A click on a box switches its effect, and one on a group's box all objects of the group."
  PLAYS road-switch
  MUTANT half-full-box-turns-all-on tree/ValueTreeItem.cpp
  WAS [[flipGroupItems(rowTree, active == 0);]]
  IS [[flipGroupItems(rowTree, active < total);]]
  FOUND [[expect "lamp" is off]])
vortan_check(road-add "What is chosen from the toolbar is applied in its place of the stack."
  PLAYS road-add
  MUTANT new-effect-one-too-high effects/EffectPlacement.cpp
  WAS [[indices.back() + 1;]]
  IS [[indices.back();]]
  FOUND [[expect rows "Layer" "- Routes" "- GEO"]])
vortan_check(road-delete "The Delete key takes the selected rows' effects off the layer as one undo step."
  PLAYS road-delete
  MUTANT deletes-every-second effects/EffectRemoval.cpp
  WAS [[chain.TakeEffect<AEGP_EffectSuite3>(layer, 0);]]
  IS [[chain.TakeEffect<AEGP_EffectSuite3>(layer, static_cast<int>(k));]]
  FOUND [[expect stack "route"]])
vortan_check(road-select "The selected rows decide which of the family's effects the host shows."
  PLAYS road-select
  MUTANT selection-shows-the-others effects/EffectSelection.cpp
  WAS [[else if (!contains(classes.selected, index))]]
  IS [[else if (contains(classes.selected, index))]]
  FOUND [[expect hidden "lamp" "route" "dots"]])
vortan_check(road-from-host "What is changed in the host, by hand or by undo, comes into the panel."
  PLAYS road-from-host
  MUTANT switch-is-not-hashed effects/ObjectItem.cpp
  WAS [[SignExtend(item.active)]]
  IS [[0]]
  FOUND [[expect box of "lamp" is empty]])
vortan_check(layer-wins "When layer and panel change in the same idle interval, the layer wins."
  PLAYS kept-layer-wins
  MUTANT tree-wins panel/IdlePass.cpp
  WAS [[layerChanged = force || currentLayerHash != panel.layerHash;]]
  IS [[const std::uint64_t treeNow = CalcItemsHash(SignExtend(layerId), GetItemsFromTree(panel.tree));
    layerChanged = force || (currentLayerHash != panel.layerHash && treeNow == panel.treeHash);]]
  FOUND [[expect stack "lantern" "route" "dots"]])
vortan_check(toolbar-menus "Each menu of the toolbar offers the installed effects of its kind."
  PLAYS kept-menus
  MUTANT menus-swapped tree/ToolbarMenus.cpp
  WAS [[return VN_OBJECT_RENDERER;]]
  IS [[return VN_OBJECT_EFFECTOR;]]
  FOUND [["Add Renderer" offers]])
vortan_check(keys-of-tree "Delete, Return, cut, copy, paste and select all go to the tree and not to the host."
  PLAYS keys-of-tree
  MUTANT keys-of-the-tree-go-to-the-host-too panel/platform/x11/X11Embedding.cpp
  WAS [[return isOfTree ? KeyUse::used : use;]]
  IS [[return isOfTree ? KeyUse::unused : use;]]
  FOUND [[expect the host got no key]])
vortan_check(keys-of-host "All other keys reach the host, also those that the tree uses."
  PLAYS kept-keys-reach-the-host
  MUTANT arrows-are-swallowed tree/CustomTreeView.cpp
  WAS [[(void)juce::TreeView::keyPressed(key); return false;]]
  IS [[return juce::TreeView::keyPressed(key);]]
  FOUND [[expect the host got "Down"]])
vortan_check(keys-without-focus "While the host has the keyboard, the panel takes no key."
  PLAYS keys-without-focus
  MUTANT keys-once-held-are-kept panel/platform/x11/X11Embedding.cpp
  WAS [[holdsKeyboard = isHeld; selectKeys(isHeld);]]
  IS [[if (!isHeld) return; holdsKeyboard = true; selectKeys(isHeld);]]
  FOUND [[expect the host got "Delete"]])
vortan_check(keys-of-name-field "The field for a new name keeps the keys that it is typed in with."
  PLAYS keys-of-name-field
  MUTANT name-field-does-not-take-the-keyboard tree/CustomTreeView.cpp
  WAS [[if (renameEditor->isShowing()) renameEditor->grabKeyboardFocus();]]
  IS [[]]
  FOUND [[expect the host got no key]])
vortan_check(panel-resized "The panel follows the size of the place that it is given."
  PLAYS panel-resized
  MUTANT size-is-not-followed panel/platform/x11/X11Embedding.cpp
  WAS [[newWidth = event.xconfigure.width; newHeight = event.xconfigure.height; hasNewSize = true;]]
  IS [[newWidth = event.xconfigure.width; newHeight = event.xconfigure.height;]]
  FOUND [[expect rows "- route" "- dots"]])
vortan_check(panel-covered
  "Behind another tab the panel rests, and comes back up to date; the menu entry closes and shows it."
  PLAYS panel-covered
  MUTANT covered-panel-goes-on panel/IdlePass.cpp
  WAS [[if (!visibility.IsInFront()) return Outcome::passIsOver;]]
  IS [[if (visibility.shown == 0) return Outcome::passIsOver;]]
  FOUND [[expect no call "AEGP_GetLayerNumEffects"]])
vortan_check(view-made-anew "A view that the host makes anew gets a panel that works."
  PLAYS view-made-anew
  MUTANT attached-to-the-first-view panel/PanelContents.cpp
  WAS [[if (tree != nullptr) *tree = widget;]]
  IS [[static bool isFirst = true; if (tree != nullptr && isFirst) *tree = widget; isFirst = false;]]
  FOUND [[expect rows "Layer" "- lamp" "- route" "- dots"]])
vortan_check(notification "A sibling's text is shown for ten seconds; the last of several stays."
  PLAYS sibling-notifies
  MUTANT notification-of-five-seconds tree/ValueTreesDemo.cpp
  WAS [[notifyTimeMs = 10000;]]
  IS [[notifyTimeMs = 5000;]]
  FOUND [[expect notification "Bake finished"]])
vortan_check(layers-keep-views
  "Each layer gets its openness and its selection back, and without a layer there are no rows."
  PLAYS layers-keep-views
  MUTANT one-view-for-all-layers tree/TreeStateTable.cpp
  WAS [[if (table->states.count(layerId) == 0) return;]]
  IS [[return;]]
  FOUND [[the panel shows "Layer" "- Group 1" "-- lamp" "- route" "- dots"]])
vortan_check(walk-in-host
  "After each step of a random walk in the host, stack, history and panel are what a small model says."
  RUNS WalkInHost SCREEN MINUTES 3
  MUTANT reorder-under-the-other-name effects/LayerEffectChanges.cpp
  WAS [[isOnlyChange ? "Reorder Effect(s)" : "";]]
  IS [[isOnlyChange ? "" : "Reorder Effect(s)";]]
  FOUND [[what can be undone should be:]])
vortan_check(walk-in-panel
  "After each step of a random walk with mouse and keys in the panel, stack, history and panel are what a small model says."
  RUNS WalkInPanel SCREEN MINUTES 3
  MUTANT moves-are-not-followed effects/LayerEffectChanges.cpp
  WAS [[std::rotate(begin + to, begin + from, begin + from + 1);]]
  IS [[std::rotate(begin + to, begin + from, begin + from);]]
  FOUND [[the stack of layer "Solid 1" should be:]])
vortan_check(walk-in-both
  "After each step of a random walk in host and panel by turns, stack, history and panel are what a small model says."
  RUNS WalkInBoth SCREEN MINUTES 3
  MUTANT rows-are-compared-before-the-layer panel/IdlePass.cpp
  WAS [[compareLayer(); if (layerChanged) rebuildTree(); compareTree();]]
  IS [[compareTree(); compareLayer(); if (layerChanged) rebuildTree();]]
  FOUND [[empty-undo-group: Nothing is in the undo group "Reorder Effect(s)".]])
