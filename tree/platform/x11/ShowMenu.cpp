#include "tree/ValueTreesDemo.h"
#include "tree/platform/Platform.h"

// A menu that waits for its end here would stop the host, which shares the thread; so this one calls back.
void ValueTreesDemo::showMenu(juce::PopupMenu menu, juce::Button& button, std::vector<int> keys)
{
    const juce::Component::SafePointer<ValueTreesDemo> panel(this);
    const juce::Component::SafePointer<juce::Component> focused(
        hasKeyboardFocus(true) ? getCurrentlyFocusedComponent() : nullptr);
    ++openMenus;
    menu.showMenuAsync(juce::PopupMenu::Options().withTargetComponent(button),
                       [panel, focused, keys = std::move(keys)](int result)
                       {
                           if (panel == nullptr)
                               return;
                           --panel->openMenus;
                           panel->takeChoice(keys, result);
                           // The menu's window may have taken the focus along.
                           if (focused != nullptr && focused->isShowing() && !IsKeyboardElsewhere())
                               focused->grabKeyboardFocus();
                       });
}
