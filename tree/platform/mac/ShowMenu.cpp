#include "tree/MenuLoop.h"
#include "tree/ValueTreesDemo.h"

// The click on the button ends when the menu does: JUCE runs the application's events meanwhile. These may
// delete the panel, or end JUCE.
void ValueTreesDemo::showMenu(juce::PopupMenu menu, juce::Button& button, std::vector<int> keys)
{
    const MenuLoop loop;
    const juce::Component::SafePointer<ValueTreesDemo> panel(this);
    ++openMenus;
    const int result = menu.showAt(&button);
    if (panel == nullptr)
        return;
    --openMenus;
    takeChoice(keys, result);
}
