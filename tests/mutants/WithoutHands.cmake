# The mistakes for the checks that need nobody's hands: loading, the two suites, hooks, balances, faults.

# ---- Loading

vortan_mutant(idle-suite-internal-version
  CHECK idle-suite-entry-calls
  SOURCE host/IdleSuite.cpp
  WAS [[VN_IDLE_SUITE_NAME, 1, 1, suite]]
  IS [[VN_IDLE_SUITE_NAME, 1, 2, suite]]
  SAYS [["Vortan Idle Suite v1", 1, 2, table]])

vortan_mutant(menu-entry-at-the-bottom
  CHECK panel-entry-calls
  SOURCE panel/Panelator.cpp
  WAS [[                                                         AEGP_MENU_INSERT_SORTED);]]
  IS [[                                                         0);]]
  SAYS [["Vortan Object Panel", 7, 0)]])

vortan_mutant(panel-needs-the-idle-suite
  CHECK entries-in-either-order
  SOURCE panel/Panelator.cpp
  WAS [[    *out = new Panelator(basicSuite, id);]]
  IS [[    const void* idle = nullptr;
    if (basicSuite->AcquireSuite("Vortan Idle Suite v1", 1, &idle) != 0)
        return A_Err_GENERIC;
    (void)basicSuite->ReleaseSuite("Vortan Idle Suite v1", 1);
    *out = new Panelator(basicSuite, id);]]
  SAYS [[PanelEntryPointFunc failed with error 1]])

vortan_mutant(missing-suite-by-another-number
  CHECK start-without-suites
  SOURCE host/SuiteHandler.cpp
  WAS [[throw static_cast<int>(PF_Err_BAD_CALLBACK_PARAM);]]
  IS [[throw static_cast<int>(A_Err_MISSING_SUITE);]]
  SAYS [[is 13 and should be 516]])

vortan_mutant(published-without-a-command
  CHECK start-refused
  SOURCE panel/Panelator.cpp
  WAS [[    if (commandError == A_Err_NONE)
    {]]
  IS [[    {]]
  SAYS [[the panel suite is published although there is no command]])

vortan_mutant(a-third-export
  CHECK exported-symbols
  SOURCE panel/Panelator.cpp
  WAS [[A_Err PanelEntryPointFunc(]]
  IS [[extern "C" __attribute__((visibility("default"), used)) void JuceGlobalDebug() {}

A_Err PanelEntryPointFunc(]]
  EXPORTS JuceGlobalDebug
  SAYS [["JuceGlobalDebug" and should be "PanelEntryPointFunc"]])

# ---- The two published suites

vortan_mutant(idle-suite-without-reference
  CHECK idle-suite-table
  SOURCE host/IdleSuite.cpp
  WAS [[    suite->ref = ref;
]]
  IS [[]]
  SAYS [[the first word of the idle suite's table, its reference, is 0]])

vortan_mutant(slots-are-not-cleared
  CHECK idle-queue-order
  SOURCE host/IdleSuite.cpp
  WAS [[        slot = {nullptr, nullptr};]]
  IS [[]]
  SAYS [[what has run after the second idle]])

vortan_mutant(full-queue-with-another-text
  CHECK idle-queue-full
  SOURCE host/IdleSuite.cpp
  WAS [[Max Idle Stack Limit Reached.]]
  IS [[Max Idle Stack Limit Reached]]
  SAYS [[the alerts of a full queue]])

vortan_mutant(slot-is-cleared-before-the-call
  CHECK idle-queue-requeue
  SOURCE host/IdleSuite.cpp
  WAS [[        if (slot.func != nullptr)
            (void)slot.func(ref->pluginId, ref->basicSuite, slot.refcon);
        slot = {nullptr, nullptr};]]
  IS [[        const IdleSlot job = slot;
        slot = {nullptr, nullptr};
        if (job.func != nullptr)
            (void)job.func(ref->pluginId, ref->basicSuite, job.refcon);]]
  SAYS [[what has run after the only entry has queued another]])

vortan_mutant(queue-swallows-exceptions
  CHECK idle-queue-throw
  SOURCE host/IdleSuite.cpp
  WAS [[            (void)slot.func(ref->pluginId, ref->basicSuite, slot.refcon);]]
  IS [[            try
            {
                (void)slot.func(ref->pluginId, ref->basicSuite, slot.refcon);
            }
            catch (...)
            {
            }]]
  SAYS [[the integer that left the idle hook is 0 and should be 42]])

vortan_mutant(queue-calls-null
  CHECK idle-queue-nulls
  SOURCE host/IdleSuite.cpp
  WAS [[        if (slot.func != nullptr)
]]
  IS [[]]
  SAYS [[at: an entry with a refcon and no function]])

vortan_mutant(refresh-answers-one
  CHECK panel-suite-table
  SOURCE panel/PanelSuite.cpp
  WAS [[    ref->refreshPending = 1;
    return A_Err_NONE;]]
  IS [[    ref->refreshPending = 1;
    return 1;]]
  SAYS [[the result of RefreshPanel is 1 and should be 0]])

vortan_mutant(open-request-is-not-cleared
  CHECK panel-suite-requests
  SOURCE panel/IdlePass.cpp
  WAS [[    requests.openPending ^= 1;
]]
  IS [[]]
  SAYS [[the idle behind that]])

# ---- Hooks

vortan_mutant(closed-panel-asks-for-the-item
  CHECK closed-panel-idle
  SOURCE panel/IdlePass.cpp
  WAS [[    if (examinePanel() == Outcome::passIsOver)
        return;
    showNotification();]]
  IS [[    (void)panel.suites.ItemSuite1()->AEGP_GetActiveItem(&item);
    if (examinePanel() == Outcome::passIsOver)
        return;
    showNotification();]]
  SAYS [[with a closed panel: number 1 is "Item 3 AEGP_GetActiveItem]])

vortan_mutant(takes-every-command
  CHECK command-hook
  SOURCE panel/Panelator.cpp
  WAS [[    if (chosen != command)
        return;
]]
  IS [[]]
  SAYS [[which is somebody else's]])

vortan_mutant(death-hook-unticks-the-entry
  CHECK death-hook
  SOURCE panel/Panelator.cpp
  WAS [[    const PlatformErrorScope errors;
    Panelator* panelator = panelatorOf(globalRefcon);]]
  IS [[    const PlatformErrorScope errors;
    Panelator* panelator = panelatorOf(globalRefcon);
    (void)panelator->suites.CommandSuite1()->AEGP_CheckMarkMenuCommand(panelator->command, 0);]]
  SAYS [[the host calls of the death hook]])

vortan_mutant(thread-is-never-joined
  CHECK process-end
  SOURCE panel/Panelator.cpp
  WAS [[#include <cstdio>]]
  IS [[#include <cstdio>
#include <thread>

static std::thread watcher([] { std::this_thread::sleep_for(std::chrono::hours(1)); });]]
  SAYS [[the process has crashed]])

vortan_mutant(death-hook-heeds-no-errors
  CHECK container-goes-first
  SOURCE panel/Panelator.cpp
  WAS [[    const PlatformErrorScope errors;
    Panelator* panelator = panelatorOf(globalRefcon);]]
  IS [[    Panelator* panelator = panelatorOf(globalRefcon);]]
  SAYS [[X told the host of]])

vortan_mutant(panel-refcon-is-lost
  CHECK panel-opens
  SOURCE panel/Panelator.cpp
  WAS [[    *outRefcon = new PanelatorUI_Plat(]]
  IS [[    new PanelatorUI_Plat(]]
  SAYS [[the create panel hook gave the host no panel refcon]])

vortan_mutant(toggle-without-a-refresh
  CHECK panel-reopens
  SOURCE panel/Panelator.cpp
  WAS [[    if (panelRef != nullptr)
        panelRef->refreshPending = 1;
]]
  IS [[]]
  SAYS [[the rows of the panel]])

vortan_mutant(ticked-behind-another-tab
  CHECK menu-entry
  SOURCE panel/Panelator.cpp
  WAS [[    return shown != 0 && frontmost != 0;]]
  IS [[    return shown != 0;]]
  SAYS [[the menu entry's check mark]])

# ---- Passes and balances

vortan_mutant(hash-is-not-noted
  CHECK quiet-idle
  SOURCE panel/IdlePass.cpp
  WAS [[    panel.treeHash = treeNow;
]]
  IS [[]]
  SAYS [[the number of names that a pass reads is 8 and should be 4]])

vortan_mutant(read-items-are-never-freed
  CHECK memory-steady
  SOURCE panel/IdlePass.cpp
  WAS [[    return CreateItemsFromLayer(panel.pluginId, panel.basicSuite, layer, allItems);]]
  IS [[    return *new std::vector<ObjectItem>(
        CreateItemsFromLayer(panel.pluginId, panel.basicSuite, layer, allItems));]]
  SAYS [[bytes of memory]])

vortan_mutant(streams-are-disposed-of-twice
  CHECK reference-balance
  SOURCE effects/EffectChain.cpp
  WAS [[AEGP_DisposeStream(std::exchange(stream, nullptr))]]
  IS [[AEGP_DisposeStream(stream)]]
  SAYS [[double-dispose]])

vortan_mutant(suites-are-not-released
  CHECK suite-balance
  SOURCE host/SuiteHandler.cpp
  WAS [[AEGP_SuiteHandler::~AEGP_SuiteHandler() { ReleaseAllSuites(); }]]
  IS [[AEGP_SuiteHandler::~AEGP_SuiteHandler() {}]]
  SAYS [[the suites that are held]])

vortan_mutant(every-order-has-a-name
  CHECK undo-balance
  SOURCE effects/LayerEffectChanges.cpp
  WAS [[others == Differences::none ? "Reorder Effect(s)" : "";]]
  IS [["Reorder Effect(s)";]]
  SAYS [[what can be undone]])

# ---- Faults

vortan_mutant(streams-stay-behind-an-error
  CHECK fault-sweep-reading
  SOURCE effects/EffectChain.cpp
  WAS [[    if (stream == nullptr)
        return;]]
  IS [[    if (stream == nullptr || err != A_Err_NONE)
        return;]]
  SAYS [[dispose-order]])

vortan_mutant(order-ends-only-if-all-is-well
  CHECK fault-sweep-order
  SOURCE effects/LayerEffectChanges.cpp
  WAS [[    // Kept: closed whatever happened, also if the group could not be opened.
    (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  IS [[    A_long left = 0;
    if (suites.EffectSuite1()->AEGP_GetLayerNumEffects(target.layer, &left) == A_Err_NONE)
        (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  SAYS [[was not ended after this had failed]])

vortan_mutant(rename-always-ends-its-group
  CHECK fault-sweep-rename
  SOURCE effects/LayerEffectChanges.cpp
  WAS [[            })
        .Then([&] { return suites.UtilitySuite1()->AEGP_EndUndoGroup(); });]]
  IS [[            });
    (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  SAYS [[the undo group "Rename Effect(s)" was ended although this had failed]])

vortan_mutant(delete-always-ends-its-group
  CHECK fault-sweep-delete
  SOURCE effects/EffectRemoval.cpp
  WAS [[    if (err == A_Err_NONE)
        err = suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  IS [[    (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();]]
  SAYS [[the undo group "Delete Effect(s)" was ended although this had failed]])

vortan_mutant(idle-hook-catches
  CHECK withheld-suites
  SOURCE panel/Panelator.cpp
  WAS [[    panelator->IdleHook(static_cast<VnPanelRef*>(refcon));]]
  IS [[    try
    {
        panelator->IdleHook(static_cast<VnPanelRef*>(refcon));
    }
    catch (int err)
    {
        return err;
    }]]
  SAYS [[the number that left the idle hook is 0 and should be 516]])

vortan_mutant(released-only-if-obtained
  CHECK kept-findings
  SOURCE host/IdleSuite.cpp
  WAS [[    (void)release<AEGP_UtilitySuite5>(ref->basicSuite);]]
  IS [[    if (utility != nullptr)
        (void)release<AEGP_UtilitySuite5>(ref->basicSuite);]]
  SAYS [[missing-finding]])

# ---- Odd surroundings

vortan_mutant(group-is-preset-to-zero
  CHECK messages
  SOURCE effects/EffectMessages.cpp
  WAS [[    message.group = -1;]]
  IS [[    message.group = 0;]]
  SAYS [[the message with command 1 is]])

vortan_mutant(unanswered-messages-throw
  CHECK odd-effects
  SOURCE effects/EffectMessages.cpp
  WAS [[    (void)PingEffectIndex(pluginId, suites, layer, time, &message, index, 0);
    return message.uuid;]]
  IS [[    if (const int err = PingEffectIndex(pluginId, suites, layer, time, &message, index, 0))
        throw err;
    return message.uuid;]]
  SAYS [[what left the idle hook is "the integer 4"]])

vortan_mutant(bytes-become-question-marks
  CHECK odd-names
  SOURCE tree/NameText.cpp
  WAS [[appendUtf8(utf8, escapeBase + static_cast<std::uint8_t>(bytes[at++]));]]
  IS [[utf8 += '?', ++at;]]
  SAYS [[the names behind the opening of the panel]])

vortan_mutant(asks-on-another-thread
  CHECK main-thread
  SOURCE panel/PanelSuite.cpp
  WAS [[int OpenPanel(VnPanelRef* ref, unsigned char force)
{]]
  IS [[#include <thread>

int OpenPanel(VnPanelRef* ref, unsigned char force)
{
    const void* table = nullptr;
    std::thread([&] { (void)ref->basicSuite->AcquireSuite("AEGP Workspace Panel Suite", 1, &table); }).join();]]
  SAYS [[wrong-thread]])
