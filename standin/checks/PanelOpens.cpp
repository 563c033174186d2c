#include "standin/checks/Checks.h"
#include "standin/checks/PanelScene.h"

namespace standin::checks
{
void PanelOpens(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.OpenPanel();
    trial.RequireEqual(scene.host().FindPanel(Session::panelName)->created, 1,
                       "the number of calls of the create panel hook");
    trial.RequireLines(scene.RowTexts(), {"Layer", "- lamp", "- Group 1", "-- mast", "-- lens", "- disc"},
                       "the rows of the panel");
    scene.End();
}
} // namespace standin::checks
