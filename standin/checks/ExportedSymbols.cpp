// Names that a bundle offers beside its entry points could be taken for those of the host or of another
// bundle: the host has a copy of JUCE of its own, and so may others.

#include "standin/checks/ExportedNames.h"
#include "standin/checks/Trial.h"

namespace standin::checks
{
void ExportedSymbols(Trial& trial)
{
    trial.RequireLines(ExportedNames(trial.File()), {"EffectorAEGP", "PanelEntryPointFunc"},
                       "the exported names");
}
} // namespace standin::checks
