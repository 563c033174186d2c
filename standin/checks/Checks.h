#pragma once
// The functions of all checks, for the table. What each holds a bundle to is said there.

namespace standin
{
class Trial;

namespace checks
{
// Without a screen.
void PanelEntryCalls(Trial& trial);
void IdleSuiteEntryCalls(Trial& trial);
void EntriesInEitherOrder(Trial& trial);
void StartWithoutSuites(Trial& trial);
void StartRefused(Trial& trial);
void IdleSuiteTable(Trial& trial);
void IdleQueueOrder(Trial& trial);
void IdleQueueFull(Trial& trial);
void IdleQueueRequeue(Trial& trial);
void IdleQueueThrow(Trial& trial);
void IdleQueueNulls(Trial& trial);
void PanelSuiteTable(Trial& trial);
void PanelSuiteRequests(Trial& trial);
void ClosedPanelIdle(Trial& trial);
void CommandHook(Trial& trial);
void DeathHook(Trial& trial);
void ProcessEnd(Trial& trial);

#if STANDIN_HAS_SCREEN
// With ELF files and X11 at hand.
void ExportedSymbols(Trial& trial);
void ContainerGoesFirst(Trial& trial);
void PanelOpens(Trial& trial);
void PanelReopens(Trial& trial);
void MenuEntry(Trial& trial);
void QuietIdle(Trial& trial);
void MemorySteady(Trial& trial);
void ReferenceBalance(Trial& trial);
void SuiteBalance(Trial& trial);
void UndoBalance(Trial& trial);
void SweepOfReading(Trial& trial);
void SweepOfOrder(Trial& trial);
void SweepOfRename(Trial& trial);
void SweepOfDelete(Trial& trial);
void WithheldSuites(Trial& trial);
void PassInsidePass(Trial& trial);
void OddEffects(Trial& trial);
void Messages(Trial& trial);
void OddNames(Trial& trial);
void KeptFindings(Trial& trial);
void MainThread(Trial& trial);

// The panel as a person sees and uses it.
void RoadOfRename(Trial& trial);
void RoadOfRenameGivenUp(Trial& trial);
void RoadIntoGroup(Trial& trial);
void RoadOutOfGroup(Trial& trial);
void RoadOfReorder(Trial& trial);
void RoadOfSwitch(Trial& trial);
void RoadOfAdd(Trial& trial);
void RoadOfDelete(Trial& trial);
void RoadOfSelection(Trial& trial);
void RoadFromHost(Trial& trial);
void LayerWins(Trial& trial);
void MenusOfToolbar(Trial& trial);
void KeysOfTree(Trial& trial);
void KeysOfHost(Trial& trial);
void KeysWithoutFocus(Trial& trial);
void KeysOfNameField(Trial& trial);
void PanelResized(Trial& trial);
void PanelCovered(Trial& trial);
void ViewMadeAnew(Trial& trial);
void NotificationShown(Trial& trial);
void LayersKeepViews(Trial& trial);
void WalkInHost(Trial& trial);
void WalkInPanel(Trial& trial);
void WalkInBoth(Trial& trial);
#endif
} // namespace checks
} // namespace standin
