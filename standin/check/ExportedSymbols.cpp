// Names that a bundle exports besides its entry points could be taken for those of the host or of another
// bundle: the host has a copy of JUCE of its own, and so may others.

#include "standin/check/ExportedNames.h"
#include "standin/check/Trial.h"

namespace standin::check::bundles
{
void ExportedSymbols(Trial& trial)
{
    trial.RequireLines(ExportedNames(trial.File()), {"EffectorAEGP", "PanelEntryPointFunc"},
                       "the exported names");
}
} // namespace standin::check::bundles
