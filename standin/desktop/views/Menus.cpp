#include "standin/desktop/views/Menus.h"

namespace standin::desktop
{
namespace
{
struct Key
{
    juce::KeyPress key;
    const char* text;
};

const Key undoKey{{'z', juce::ModifierKeys::commandModifier, 0}, "Ctrl+Z"};
const Key redoKey{{'z', juce::ModifierKeys::commandModifier | juce::ModifierKeys::shiftModifier, 0},
                  "Ctrl+Shift+Z"};
const Key duplicateKey{{'d', juce::ModifierKeys::commandModifier, 0}, "Ctrl+D"};
const Key deleteKey{juce::KeyPress(juce::KeyPress::deleteKey), "Delete"};
const Key renameKey{juce::KeyPress(juce::KeyPress::returnKey), "Return"};
const Key newCompositionKey{{'n', juce::ModifierKeys::commandModifier, 0}, "Ctrl+N"};
const Key newLayerKey{{'y', juce::ModifierKeys::commandModifier, 0}, "Ctrl+Y"};
const Key openKey{{'o', juce::ModifierKeys::commandModifier, 0}, "Ctrl+O"};
const Key saveKey{{'s', juce::ModifierKeys::commandModifier, 0}, "Ctrl+S"};
const Key quitKey{{'q', juce::ModifierKeys::commandModifier, 0}, "Ctrl+Q"};

enum class State
{
    off,
    on
};

void add(juce::PopupMenu& menu, const juce::String& text, const char* key, State state,
         std::function<void()> action)
{
    juce::PopupMenu::Item item(text);
    item.shortcutKeyDescription = key;
    item.isEnabled = state == State::on;
    item.action = std::move(action);
    menu.addItem(std::move(item));
}

State onIf(bool condition) { return condition ? State::on : State::off; }
} // namespace

Menus::Menus(Workbench& owner, Windows actions) : bench(owner), windows(std::move(actions)) {}

juce::StringArray Menus::getMenuBarNames() { return {"File", "Edit", "Effect", "Window", "Siblings"}; }

juce::PopupMenu Menus::getMenuForIndex(int index, const juce::String&)
{
    switch (index)
    {
    case 0:
        return fileMenu();
    case 1:
        return editMenu();
    case 2:
        return effectMenu();
    case 3:
        return windowMenu();
    default:
        return siblingsMenu();
    }
}

juce::PopupMenu Menus::fileMenu()
{
    const bool hasComposition = !script::ShowHost(bench.TheHost()).compositionName.empty();
    juce::PopupMenu menu;
    add(menu, "New Composition", newCompositionKey.text, State::on,
        [this] { (void)bench.User().NewComposition(); });
    add(menu, "New Layer", newLayerKey.text, onIf(hasComposition), [this] { (void)bench.User().NewLayer(); });
    menu.addSeparator();
    add(menu, "Open Project...", openKey.text, State::on, windows.openProject);
    add(menu, "Save Project", saveKey.text, State::on, windows.saveProject);
    add(menu, "Save Project As...", "", State::on, windows.saveProjectAs);
    menu.addSeparator();
    add(menu, "Save Host Calls...", "", State::on, windows.saveCalls);
    menu.addSeparator();
    add(menu, "Quit", quitKey.text, State::on, windows.quit);
    return menu;
}

juce::PopupMenu Menus::editMenu()
{
    const script::Shown shown = script::ShowHost(bench.TheHost());
    const int selected = bench.User().SelectedEffect();
    const auto named = [](const char* verb, const std::string& name)
    { return name.empty() ? juce::String(verb) : juce::String(verb) + " " + theme::Text(name); };
    juce::PopupMenu menu;
    add(menu, named("Undo", shown.undoName), undoKey.text, onIf(shown.canUndo),
        [this] { bench.User().Undo(); });
    add(menu, named("Redo", shown.redoName), redoKey.text, onIf(shown.canRedo),
        [this] { bench.User().Redo(); });
    menu.addSeparator();
    add(menu, "Rename Effect", renameKey.text, onIf(selected != 0), windows.rename);
    add(menu, "Duplicate Effect", duplicateKey.text, onIf(selected != 0),
        [this, selected] { bench.User().Duplicate(selected); });
    add(menu, "Delete Effect", deleteKey.text, onIf(selected != 0),
        [this, selected] { bench.User().Delete(selected); });
    return menu;
}

juce::PopupMenu Menus::effectMenu()
{
    const bool hasLayer = script::ShowHost(bench.TheHost()).activeLayer != 0;
    juce::PopupMenu menu;
    for (const auto& [category, entries] : CategoriesOf(bench.TheHost()))
    {
        juce::PopupMenu inner;
        for (const EffectEntry& entry : entries)
            add(inner, theme::Text(entry.name), "", State::on,
                [this, matchName = entry.matchName] { (void)bench.User().Apply(matchName); });
        menu.addSubMenu(theme::Text(category), inner, hasLayer);
    }
    return menu;
}

juce::PopupMenu Menus::windowMenu()
{
    juce::PopupMenu menu;
    for (const MenuItem& entry : bench.WindowMenu())
    {
        juce::PopupMenu::Item item(theme::Text(entry.name));
        item.isEnabled = entry.enabled;
        item.isTicked = entry.ticked;
        item.action = [this, name = entry.name] { bench.ChooseFromWindowMenu(name); };
        menu.addItem(std::move(item));
    }
    menu.addSeparator();
    DockState& dock = bench.TheDock();
    add(menu, "Undock Panel", "", onIf(dock.Place() == PanelPlace::docked), [&dock] { dock.Undock(); });
    add(menu, "Dock Panel", "", onIf(dock.Place() == PanelPlace::floating), [&dock] { dock.PutBack(); });
    return menu;
}

juce::PopupMenu Menus::siblingsMenu()
{
    juce::PopupMenu menu;
    add(menu, "Open the Panel Unless It Is in Front", "", State::on,
        [this] { bench.SiblingOpensPanel(Force::ifNotUp); });
    add(menu, "Open the Panel in Any Case", "", State::on,
        [this] { bench.SiblingOpensPanel(Force::always); });
    add(menu, "Refresh the Panel", "", State::on, [this] { bench.SiblingRefreshes(); });
    add(menu, "Notify the Panel...", "", State::on, windows.notify);
    menu.addSeparator();
    for (const int count : {1, 10, 1000})
        add(menu,
            "Queue " + juce::String(count) +
                (count == 1 ? " Function for the Idle" : " Functions for the Idle"),
            "", State::on, [this, count] { bench.SiblingQueues(count); });
    return menu;
}

bool Menus::HandleKey(const juce::KeyPress& key)
{
    Designer& user = bench.User();
    const int selected = user.SelectedEffect();
    if (key == undoKey.key)
        user.Undo();
    else if (key == redoKey.key)
        user.Redo();
    else if (key == newCompositionKey.key)
        (void)user.NewComposition();
    else if (key == newLayerKey.key)
        (void)user.NewLayer();
    else if (key == openKey.key)
        windows.openProject();
    else if (key == saveKey.key)
        windows.saveProject();
    else if (key == quitKey.key)
        windows.quit();
    else if (selected != 0 && key == duplicateKey.key)
        user.Duplicate(selected);
    else if (selected != 0 && key == deleteKey.key)
        user.Delete(selected);
    else if (selected != 0 && key == renameKey.key)
        windows.rename();
    else
        return false;
    return true;
}
} // namespace standin::desktop
