// The panel as a window of the host: opening, covering, closing, and the entry in the Window menu.

#include "standin/check/PanelScene.h"

namespace standin::check::bundles
{
namespace
{
const std::vector<std::string>& fourRows()
{
    static const std::vector<std::string> rows{"Layer",   "- lamp",  "- Group 1",
                                               "-- mast", "-- lens", "- disc"};
    return rows;
}

const MenuItem& entry(PanelScene& scene)
{
    scene.trial.RequireEqual<std::size_t>(scene.host().MenuItems().size(), 1, "the number of menu entries");
    return scene.host().MenuItems().front();
}

void requireEntry(PanelScene& scene, bool ticked)
{
    constexpr WindowType windows[] = {WindowType::none,  WindowType::project,     WindowType::comp,
                                      WindowType::layer, WindowType::renderQueue, WindowType::effectControls};
    for (const WindowType window : windows)
    {
        (void)scene.host().UpdateMenus(window);
        scene.trial.Require(entry(scene).enabled, "the menu entry is disabled");
        scene.trial.RequireEqual(entry(scene).ticked, ticked, "the menu entry's check mark");
    }
    (void)scene.host().RunIdle();
    scene.trial.RequireEqual(entry(scene).ticked, ticked, "the menu entry's check mark after an idle");
}
} // namespace

void PanelOpens(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.OpenPanel();
    const Panel& panel = *scene.host().FindPanel(user::Session::panelName);
    trial.RequireEqual(panel.created, 1, "the number of calls of the create panel hook");
    trial.Require(panel.panelRefcon != nullptr, "the create panel hook gave the host no panel refcon");
    trial.Require(panel.functions.getSnapSizes == nullptr && panel.functions.populateFlyout == nullptr &&
                      panel.functions.doFlyoutCommand == nullptr,
                  "the panel offers functions of its own in place of the host's defaults");
    trial.RequireLines(scene.RowTexts(), fourRows(), "the rows of the panel");
    trial.RequireLines(scene.host().UndoNames(), {}, "what can be undone after the opening");
    scene.End();
}

void PanelReopens(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    for (int round = 0; round < 3; ++round)
    {
        scene.Do("choose \"Vortan Object Panel\" in the Window menu");
        trial.RequireLines(scene.RowTexts(), fourRows(), "the rows of the panel");
        scene.Do("choose \"Vortan Object Panel\" in the Window menu");
        trial.Require(scene.host().FindPanel(user::Session::panelName)->state == PanelState::absent,
                      "the menu entry does not close the panel");
    }
    trial.RequireEqual(scene.host().FindPanel(user::Session::panelName)->created, 1,
                       "the number of calls of the create panel hook");
    scene.Expect("expect nothing to undo");
    scene.End();
}

void MenuEntry(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    trial.At("the panel was never opened");
    trial.RequireEqual(entry(scene).name, std::string(user::Session::panelName), "the menu entry's name");
    trial.RequireEqual<int>(entry(scene).menu, menuWindow, "the menu");
    requireEntry(scene, false);
    scene.OpenPanel();
    trial.At("the panel is in front");
    requireEntry(scene, true);
    scene.Do("cover the panel");
    trial.At("the panel is covered by another tab");
    requireEntry(scene, false);
    scene.Do("open the panel");
    trial.At("the panel is in front again");
    requireEntry(scene, true);
    scene.Do("close the panel");
    trial.At("the panel is closed");
    requireEntry(scene, false);
    scene.End();
}
} // namespace standin::check::bundles
