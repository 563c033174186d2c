#include "tests/support/KeptObjects.h"

#include "panel/platform/PanelatorUI_Plat.h"

namespace standin
{
void DeleteKeptObjects(Host& host, Panelator* panelator)
{
    const Panel* panel = host.FindPanel(panelator->matchName);
    if (panel != nullptr)
        delete static_cast<PanelatorUI_Plat*>(panel->panelRefcon);
    delete panelator->publishedSuite.panelRef;
    delete panelator;
}
} // namespace standin
