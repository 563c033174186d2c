// What the panel shows and where: menus, the place that it is given, the notification, each layer's view.

#include "standin/checks/Checks.h"
#include "standin/checks/PlayedCheck.h"

namespace standin::checks
{
void MenusOfToolbar(Trial& trial)
{
    PlayCheck(trial, "toolbar-menus", R"play(
composition "Comp 1"
layer "Solid 1"
effect "Vortan"
open the panel
expect rows "Layer" "- Vortan"
expect "Add Geometry" offers "Sheets" "Routes" "GEO" "Solids" "Copies" "Cutter"
expect "Add Effector" offers "Round Zone" "Jitter" "Enclosure" "Placement" "Tint Table" "Dimmer Effector" "Pulse Effector"
expect "Add Renderer" offers "Dots" "Strokes" "Tiling" "Rays" "Panes"
choose nothing from "Add Geometry"
expect stack "Vortan"
expect nothing to undo
quit
)play");
}

void PanelResized(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "panel-resized", R"play(
resize the panel to 380 by 140
expect rows "Layer" "- lamp"
scroll 10 notches
expect rows "- route" "- dots"
click row "dots"
press Delete
expect stack "lamp" "route"
resize the panel to 300 by 420
expect rows "Layer" "- lamp" "- route"
expect buttons "Add Geometry" "Add Effector" "Add Renderer" "Add Group"
choose "Dots" from "Add Renderer"
expect panel and stack agree
quit
)play");
}

void PanelCovered(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "panel-covered", R"play(
cover the panel
rename "route" to "behind"
expect no call "AEGP_GetLayerNumEffects"
open the panel
expect rows "Layer" "- lamp" "- behind" "- dots"
expect "Vortan Object Panel" is ticked
choose "Vortan Object Panel" in the Window menu
expect "Vortan Object Panel" is not ticked
expect no rows
rename "behind" to "closed"
choose "Vortan Object Panel" in the Window menu
expect "Vortan Object Panel" is ticked
expect rows "Layer" "- lamp" "- closed" "- dots"
click row "dots"
press Delete
expect stack "lamp" "closed"
quit
)play");
}

void ViewMadeAnew(Trial& trial)
{
    PlayCheck(trial, "view-made-anew", R"play(
switch closing-destroys-the-view
composition "Comp 1"
layer "Solid 1"
effect "Vortan Sheets Object" named "lamp"
effect "Vortan Dots Renderer" named "dots"
open the panel
expect rows "Layer" "- lamp" "- dots"
close the panel
choose "Vortan Object Panel" in the Window menu
expect rows "Layer" "- lamp" "- dots"
click row "dots"
press Delete
expect stack "lamp"
choose "Vortan Object Panel" in the Window menu
choose "Vortan Object Panel" in the Window menu
expect panel and stack agree
quit
)play");
}

void NotificationShown(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "notification", R"play(
expect no notification
a sibling notifies "Bake finished"
expect notification "Bake finished"
wait 8000 milliseconds
expect notification "Bake finished"
wait 2500 milliseconds
expect no notification
hold idle
a sibling notifies "This one is lost"
a sibling notifies "This one stays"
go on
expect notification "This one stays"
quit
)play");
}

void LayersKeepViews(Trial& trial)
{
    PlayCheck(trial, "layers-keep-views", R"play(
composition "Comp 1"
layer "Solid 2"
effect "Vortan Jitter Effector" named "shake"
layer "Solid 1"
effect "Vortan Sheets Object" named "lamp"
effect "Vortan Route Object" named "route"
effect "Vortan Dots Renderer" named "dots"
"lamp" is in group 1
open the panel
click row "dots"
click triangle of "Group 1"
expect rows "Layer" "- Group 1" "- route" "- dots"
expect "Group 1" is closed
select layer "Solid 2"
expect rows "Layer" "- shake"
expect nothing selected
click row "shake"
select no layer
expect no rows
select layer "Solid 1"
expect rows "Layer" "- Group 1" "- route" "- dots"
expect selected "dots"
click triangle of "Group 1"
expect rows "Layer" "- Group 1" "-- lamp" "- route" "- dots"
select layer "Solid 2"
expect selected "shake"
select layers "Solid 1" "Solid 2"
expect no rows
quit
)play");
}

void LayerWins(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "layer-wins", R"play(
click row "lamp"
press Return
type "mine"
hold idle
press Return
turn off "route"
go on
expect stack "lamp" "route" "dots"
expect "route" is off
expect panel and stack agree
expect undo "Switch Effect Off"
quit
)play");
}
} // namespace standin::checks
