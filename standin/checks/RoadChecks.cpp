// Each road of a change through the real panel: from a row to the layer, and from the host to the rows.

#include "standin/checks/Checks.h"
#include "standin/checks/PlayedCheck.h"

namespace standin::checks
{
void RoadOfRename(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-rename", R"play(
click row "route"
press Return
expect the name field
type "The Way (2)"
expect stack "lamp" "route" "dots"
press Return
expect no name field
expect stack "lamp" "The Way (2)" "dots"
expect undo "Rename Effect(s)"
expect selected "The Way (2)"
expect panel and stack agree
undo
expect rows "Layer" "- lamp" "- route" "- dots"
redo
expect rows "Layer" "- lamp" "- The Way (2)" "- dots"
quit
)play");
}

void RoadOfRenameGivenUp(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-rename-given-up", R"play(
click row "dots"
press Return
expect the name field
type "never"
press Escape
expect no name field
expect stack "lamp" "route" "dots"
expect nothing to undo
press Return
press Return
expect no name field
expect nothing to undo
click row "lamp"
click row "route" with Control
press Return
expect no name field
expect panel and stack agree
quit
)play");
}

void RoadIntoGroup(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-into-group", R"play(
click button "Add Group"
expect rows "Layer" "- Group 1" "- lamp" "- route" "- dots"
expect nothing to undo
drag row "route" into "Group 1"
expect "route" in group 1
expect rows "Layer" "- Group 1" "-- route" "- lamp" "- dots"
expect stack "route" "lamp" "dots"
drag row "dots" into "Group 1"
expect rows "Layer" "- Group 1" "-- route" "-- dots" "- lamp"
drag row "dots" above "route"
expect stack "dots" "route" "lamp"
expect panel and stack agree
click button "Add Group"
expect rows "Layer" "- Group 1" "-- dots" "-- route" "- Group 2" "- lamp"
quit
)play");
}

void RoadOutOfGroup(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-out-of-group", R"play(
put "lamp" into group 3
put "route" into group 3
expect rows "Layer" "- Group 3" "-- lamp" "-- route" "- dots"
drag row "lamp" to the end
expect "lamp" in group 0
expect rows "Layer" "- Group 3" "-- route" "- dots" "- lamp"
drag row "route" below "dots"
expect rows "Layer" "- dots" "- route" "- lamp"
expect stack "dots" "route" "lamp"
undo
undo
expect "route" in group 3
expect rows "Layer" "- Group 3" "-- route" "- dots" "- lamp"
quit
)play");
}

void RoadOfReorder(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-reorder", R"play(
drag row "dots" above "lamp"
expect stack "dots" "lamp" "route"
expect rows "Layer" "- dots" "- lamp" "- route"
expect undo ""
drag row "dots" below "lamp"
expect stack "lamp" "dots" "route"
drag row "lamp" to the end
expect stack "dots" "route" "lamp"
click row "dots"
click row "route" with Control
drag row "route" to the end
expect stack "lamp" "dots" "route"
expect panel and stack agree
undo
undo
undo
undo
expect stack "lamp" "route" "dots"
expect panel and stack agree
quit
)play");
}

void RoadOfSwitch(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-switch", R"play(
click box of "route"
expect "route" is off
expect "lamp" is on
expect box of "route" is empty
expect undo "Switch Effect Off"
click box of "route"
expect "route" is on
expect box of "route" is full
put "lamp" into group 1
put "route" into group 1
turn off "lamp"
expect box of "Group 1" is half
click box of "Group 1"
expect "lamp" is off
expect "route" is off
expect box of "Group 1" is empty
click box of "Group 1"
expect "lamp" is on
expect "route" is on
expect "dots" is on
expect box of "Group 1" is full
expect panel and stack agree
quit
)play");
}

void RoadOfAdd(Trial& trial)
{
    PlayCheck(trial, "road-add", R"play(
composition "Comp 1"
layer "Solid 1"
open the panel
expect buttons "Add Vortan"
click button "Add Vortan"
expect stack "Vortan"
expect buttons "Add Geometry" "Add Effector" "Add Renderer" "Add Group"
choose "Routes" from "Add Geometry"
choose "Panes" from "Add Renderer"
choose "Pulse Effector" from "Add Effector"
expect stack "Vortan Route Object" "Vortan Pulse Effector" "Vortan Panes Renderer" "Vortan"
choose "GEO" from "Add Geometry"
expect rows "Layer" "- Routes" "- GEO" "- Pulse Effector" "- Panes" "- Vortan"
choose nothing from "Add Renderer"
expect stack "Vortan Route Object" "Vortan GEO Object" "Vortan Pulse Effector" "Vortan Panes Renderer" "Vortan"
undo
undo
undo
undo
undo
undo
undo
undo
undo
expect buttons "Add Vortan"
expect no alerts
quit
)play");
}

void RoadOfDelete(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-delete", R"play(
click row "route"
press Delete
expect stack "lamp" "dots"
expect rows "Layer" "- lamp" "- dots"
expect undo "Delete Effect(s)"
undo
expect stack "lamp" "route" "dots"
click row "lamp"
click row "dots" with Control
press BackSpace
expect stack "route"
expect undo "Delete Effect(s)"
undo
expect panel and stack agree
put "lamp" into group 2
put "dots" into group 2
click row "Group 2"
press Delete
expect stack "route"
expect rows "Layer" "- route"
undo
expect panel and stack agree
click row "Layer"
press Delete
expect rows "Layer" "- Group 2" "-- lamp" "-- dots" "- route"
quit
)play");
}

void RoadOfSelection(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-select", R"play(
expect hidden "lamp" "route" "dots"
click row "route"
expect selected "route"
expect hidden "lamp" "dots"
click row "dots" with Control
expect selected "route" "dots"
expect hidden "lamp"
click row "lamp"
click row "dots" with Shift
expect selected "lamp" "route" "dots"
expect nothing hidden
click the panel
expect nothing selected
expect nothing to undo
quit
)play");
}

void RoadFromHost(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "road-from-host", R"play(
rename "route" to "from the host"
expect rows "Layer" "- lamp" "- from the host" "- dots"
move "dots" to place 1
expect rows "Layer" "- dots" "- lamp" "- from the host"
turn off "lamp"
expect box of "lamp" is empty
put "dots" into group 7
put "from the host" into group 7
expect rows "Layer" "- Group 7" "-- dots" "-- from the host" "- lamp"
apply "Vortan Copies Object"
duplicate "Copies"
expect rows "Layer" "- Group 7" "-- dots" "-- from the host" "- lamp" "- Copies" "- Copies"
delete "lamp"
expect panel and stack agree
undo
undo
undo
undo
undo
undo
expect rows "Layer" "- dots" "- lamp" "- from the host"
expect panel and stack agree
quit
)play");
}
} // namespace standin::checks
