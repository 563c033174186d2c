// Which keys the panel takes from the host, and when.

#include "standin/checks/Checks.h"
#include "standin/checks/PlayedCheck.h"

namespace standin::checks
{
void KeysOfTree(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "keys-of-tree", R"play(
click row "route"
press Control+x
expect printed "Key Pressed" "Cut Button"
expect the host got no key
press Control+c
expect printed "Key Pressed" "Copy Button"
expect the host got no key
press Control+v
expect printed "Key Pressed" "Paste Button"
expect the host got no key
press Control+a
expect printed "Key Pressed" "Select All Button"
expect selected "lamp" "route" "dots"
expect the host got no key
click row "route"
press Return
expect the host got no key
expect the name field
press Escape
expect no name field
expect stack "lamp" "route" "dots"
click row "route"
press Delete
expect the host got no key
expect stack "lamp" "dots"
expect rows "Layer" "- lamp" "- dots"
click row "dots"
expect selected "dots"
press BackSpace
expect the host got no key
expect stack "lamp"
expect undo "Delete Effect(s)" "Delete Effect(s)"
quit
)play");
}

void KeysOfHost(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "keys-of-host", R"play(
click row "lamp"
press Down
expect selected "route"
expect the host got "Down"
press Home
expect the host got "Home"
press F5
expect the host got "F5"
press k
expect the host got "k"
press Control+d
expect the host got "Control+d"
press Control+z
expect the host got "Control+z"
expect stack "lamp" "route" "dots"
expect nothing to undo
quit
)play");
}

void KeysWithoutFocus(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "keys-without-focus", R"play(
click row "route"
expect selected "route"
click the host
scroll 1 notches
press Delete
expect the host got "Delete"
press Return
expect the host got "Return"
expect no name field
press Control+a
expect the host got "Control+a"
expect selected "route"
press Control+x
expect the host got "Control+x"
expect stack "lamp" "route" "dots"
expect nothing to undo
click row "route"
press Delete
expect the host got no key
expect stack "lamp" "dots"
quit
)play");
}

void KeysOfNameField(Trial& trial)
{
    PlayCheckWithThreeObjects(trial, "keys-of-name-field", R"play(
click row "route"
press Return
expect the name field
type "ab"
expect the host got no key
press BackSpace
press c
press Left
press Delete
expect stack "lamp" "route" "dots"
type "xyz"
press Return
expect no name field
expect the host got no key
expect stack "lamp" "axyz" "dots"
expect panel and stack agree
quit
)play");
}
} // namespace standin::checks
