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
void IdleQueueOrder(Trial& trial);

#if STANDIN_HAS_SCREEN
// With ELF files and X11 at hand.
void ExportedSymbols(Trial& trial);
void PanelOpens(Trial& trial);

// The panel as a person sees and uses it.
void WalkInHost(Trial& trial);
void WalkInPanel(Trial& trial);
void WalkInBoth(Trial& trial);
#endif
} // namespace checks
} // namespace standin
