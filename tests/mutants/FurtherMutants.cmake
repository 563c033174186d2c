# Mistakes that no check is there for alone: a sensor of the host finds them wherever they are made.

vortan_further_mutant(kept-findings table-after-the-release host/IdleSuite.cpp
  WAS [[err = suites->AddSuite(nullptr, nullptr, VN_IDLE_SUITE_NAME, 1, 1, suite, &suiteRef);
    }
    if (err == 0)
        err = release<SPSuitesSuite>(basicSuite);]]
  IS [[err = release<SPSuitesSuite>(basicSuite);
        (void)suites->AddSuite(nullptr, nullptr, VN_IDLE_SUITE_NAME, 1, 1, suite, &suiteRef);
    }]]
  FOUND [[released-table]])
vortan_further_mutant(reference-balance id-of-the-other-plug-in panel/IdlePass.cpp
  WAS [[(void)ApplyEffectToLayerIdleFn(panel.pluginId, panel.basicSuite, key, layer);]]
  IS [[(void)ApplyEffectToLayerIdleFn(panel.pluginId - 1, panel.basicSuite, key, layer);]]
  FOUND [[wrong-plugin-id]])
vortan_further_mutant(entries-in-either-order hook-on-the-next-command panel/Panelator.cpp
  WAS [[AEGP_RegisterCommandHook(pluginId, AEGP_HP_BeforeAE, command, &S_CommandHook,]]
  IS [[AEGP_RegisterCommandHook(pluginId, AEGP_HP_BeforeAE, command + 1, &S_CommandHook,]]
  FOUND [[unknown-command]])
vortan_further_mutant(reference-balance time-without-a-scale effects/EffectMessages.cpp
  WAS [[A_Time compTime{};]]
  IS [[A_Time compTime{};
    time.scale = 0;]]
  FOUND [[time-scale]])
vortan_further_mutant(menu-entry update-hook-returns-an-error panel/Panelator.cpp
  WAS [[    panelatorOf(globalRefcon)->UpdateMenuHook(windowType);
    return A_Err_NONE;]]
  IS [[    panelatorOf(globalRefcon)->UpdateMenuHook(windowType);
    return A_Err_GENERIC;]]
  FOUND [[error-left-hook]])
vortan_further_mutant(entries-in-either-order memory-of-the-host-is-kept host/IdleSuite.cpp
  WAS [[auto* block = static_cast<GlobalBlock*>(std::malloc(sizeof(GlobalBlock)));]]
  IS [[void* memory = nullptr;
    (void)basicSuite->AllocateBlock(sizeof(GlobalBlock), &memory);
    auto* block = static_cast<GlobalBlock*>(memory);]]
  FOUND [[leaked-block]])
vortan_further_mutant(reference-balance group-is-changed-beside-its-step effects/LayerEffectChanges.cpp
  WAS [[    SetEffectGroup(target.pluginId, target.basicSuite, target.layer, item.uuid, item.group);]]
  IS [[    AEGP_SuiteHandler suites(target.basicSuite);
    (void)suites.UtilitySuite1()->AEGP_StartUndoGroup("Change Group");
    (void)suites.UtilitySuite1()->AEGP_EndUndoGroup();
    SetEffectGroup(target.pluginId, target.basicSuite, target.layer, item.uuid, item.group);]]
  FOUND [[empty-undo-group]])
vortan_further_mutant(reference-balance order-inside-its-own-group effects/LayerEffectChanges.cpp
  WAS [[    (void)suites.UtilitySuite1()->AEGP_StartUndoGroup(undoName);]]
  IS [[    (void)suites.UtilitySuite1()->AEGP_StartUndoGroup(undoName);
    (void)suites.UtilitySuite1()->AEGP_StartUndoGroup("");]]
  FOUND [[nested-undo-group]])
vortan_further_mutant(process-end half-a-table-of-functions panel/platform/PanelatorUI.cpp
  WAS [[                         AEGP_PanelFunctions1*)
    : view(hostView), panelH(hostPanel), appSuite(basicSuite), panelSuite(basicSuite)
{]]
  IS [[                         AEGP_PanelFunctions1* functions)
    : view(hostView), panelH(hostPanel), appSuite(basicSuite), panelSuite(basicSuite)
{
    functions->PopulateFlyout = this;]]
  FOUND [[panel-functions]])
vortan_further_mutant(keys-of-host takes-command-zero panel/Panelator.cpp
  WAS [[    if (chosen != command)
        return;]]
  IS [[    if (chosen == 0)
        *handled = 1;
    if (chosen != command)
        return;]]
  FOUND [[foreign-command]])
vortan_further_mutant(keys-without-focus keyboard-is-never-given-back panel/platform/x11/X11Embedding.cpp
  WAS [[        if (holdsKeyboard)
            host.TakeKeyboardBack(asOf);
    }
    holdKeyboard(false);]]
  IS [[    }]]
  FOUND [[expect the host got "Delete"]])
vortan_further_mutant(fault-sweep-rename another-is-renamed-after-a-failed-question effects/LayerEffectChanges.cpp
  WAS [[    if (index < 0)
        return;
    // Kept: an error after the start of the undo group leaves it open.
    EffectChain chain(suites, target.pluginId);
    chain.Call(&AEGP_UtilitySuite1::AEGP_StartUndoGroup, "Rename Effect(s)")
        .TakeEffect<AEGP_EffectSuite1>(target.layer, index)]]
  IS [[    const int last = 1;
    EffectChain chain(suites, target.pluginId);
    chain.Call(&AEGP_UtilitySuite1::AEGP_StartUndoGroup, "Rename Effect(s)")
        .TakeEffect<AEGP_EffectSuite1>(target.layer, index < 0 ? last : index)]]
  FOUND [[the effect "mast" is called]])
