#pragma once
// The menu bar: File, Edit, Effect, Window, Siblings; and the keys of its entries.

#include "standin/desktop/model/Workbench.h"
#include "standin/desktop/views/Theme.h"
#include "standin/script/record/Shown.h"

namespace standin::desktop
{
class Menus : public juce::MenuBarModel
{
public:
    /// What an entry does that needs the windows.
    struct Windows
    {
        std::function<void()> rename;
        std::function<void()> openProject;
        std::function<void()> saveProject;
        std::function<void()> saveProjectAs;
        std::function<void()> saveCalls;
        std::function<void()> notify;
        std::function<void()> quit;
    };

    Menus(Workbench& owner, Windows actions);

    juce::StringArray getMenuBarNames() override;
    juce::PopupMenu getMenuForIndex(int index, const juce::String& name) override;
    void menuItemSelected(int, int) override {}

    /// False if the key is none of an entry, or the entry is off.
    bool HandleKey(const juce::KeyPress&);

private:
    juce::PopupMenu fileMenu();
    juce::PopupMenu editMenu();
    juce::PopupMenu effectMenu();
    juce::PopupMenu windowMenu();
    juce::PopupMenu siblingsMenu();

    Workbench& bench;
    Windows windows;
};
} // namespace standin::desktop
