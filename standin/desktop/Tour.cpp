#include "standin/desktop/Tour.h"

#include <cstdio>
#include <stdexcept>

namespace standin
{
namespace
{
bool hasEffects(const Shown& shown, std::size_t count) { return shown.effects.size() == count; }

const ShownEffect* find(const Shown& shown, const std::string& name)
{
    for (const ShownEffect& effect : shown.effects)
        if (effect.name == name)
            return &effect;
    return nullptr;
}

std::string textOf(const ShownEffect& effect)
{
    return (effect.isOn ? "[x] " : "[ ] ") + effect.name +
           (effect.group > 0 ? " (group " + std::to_string(effect.group) + ")" : "") +
           (effect.isHidden ? " (hidden)" : "");
}
} // namespace

Tour::Tour(Workbench& theBench, DesktopWindow& theWindow, const std::string& folderName)
    : Thread("tour"),
      bench(theBench),
      window(theWindow),
      folder(juce::File::getCurrentWorkingDirectory().getChildFile(juce::String(folderName)))
{
    if (folder.createDirectory().failed())
        throw std::runtime_error(folderName + ": the folder cannot be made");
    startThread();
}

Tour::~Tour() { stopThread(-1); }

void Tour::run()
{
    try
    {
        play();
    }
    catch (const std::exception& error)
    {
        picture("ended-early");
        printSides();
        (void)writeCalls();
        print(std::string("\nThe tour ended early: ") + error.what() + "\n");
        std::fprintf(stderr, "standin-desktop: the tour ended early at step %d (%s): %s\n", step,
                     sentence.c_str(), error.what());
        juce::MessageManager::callAsync(
            []
            {
                juce::JUCEApplicationBase::getInstance()->setApplicationReturnValue(1);
                juce::JUCEApplicationBase::quit();
            });
        return;
    }
    juce::MessageManager::callAsync([] { juce::JUCEApplicationBase::quit(); });
}

void Tour::play()
{
    hands = std::make_unique<TourHands>(bench, window);
    menus = std::make_unique<TourMenus>(*hands);
    panel = std::make_unique<TourPanel>(*hands, bench);
    showTheDesktop();
    addFromThePanel();
    workInThePanel();
    undoAllAndRedoAll();
    workInTheEffectControls();
    useSiblingsAndDock();
    if (!writeCalls())
        throw std::runtime_error("calls.txt cannot be written");
    print("\nThe tour is over. Its pictures and the calls of the bundle are in " +
          folder.getFullPathName().toStdString() + "\n");
}

bool Tour::writeCalls()
{
    const std::string calls = hands->OnMain([this] { return bench.Calls().Text(); });
    return folder.getChildFile("calls.txt").replaceWithText(theme::Text(calls));
}

void Tour::print(const std::string& text) { bench.Printed().WriteToTerminal(text); }

Shown Tour::now()
{
    return hands->OnMain([this] { return ShowHost(bench.TheHost()); });
}

void Tour::tell(const std::string& what, const std::function<void()>& action,
                const std::function<bool(const Shown&)>& expected)
{
    sentence = what;
    print("\n" + std::to_string(++step) + ". " + sentence + "\n");
    action();
    if (!hands->Until([&] { return expected(ShowHost(bench.TheHost())); }))
        throw std::runtime_error("what the step says did not come about");
    hands->LetIdle(4);
    printSides();
}

void Tour::require(const std::string& what, const std::function<bool()>& seen)
{
    if (!hands->UntilSeen(seen))
        throw std::runtime_error(what + " is not to be seen");
}

/// The panel and the effect controls show the same.
void Tour::requireAgreement()
{
    require("the stack of the layer in the panel", [this] { return panel->Agrees(); });
}

void Tour::printSides()
{
    const Shown shown = now();
    std::string text = "   layer:";
    for (const ShownEffect& effect : shown.effects)
        text += "  " + textOf(effect);
    const auto steps = hands->OnMain([this] { return bench.TheHost().UndoNames(); });
    text += "\n   undo:   " +
            (steps.empty() ? "nothing"
                           : std::to_string(steps.size()) + (steps.size() == 1 ? " step" : " steps") +
                                 ", the last is \"" + steps.back() + "\"") +
            "\n";
    print(text);
}

void Tour::picture(const std::string& name)
{
    const juce::String number = juce::String(++pictures).paddedLeft('0', 2);
    const juce::File file = folder.getChildFile(number + "-" + juce::String(name) + ".png");
    hands->TakePicture(file);
    print("   picture: " + file.getFileName().toStdString() + "\n");
}

void Tour::showTheDesktop()
{
    tell(
        "The desktop opens on a sample project. The panel is docked at the right and shows the active layer.",
        [this] { hands->LetIdle(5); }, [](const Shown& shown) { return shown.activeLayerName == "Logo"; });
    picture("opened");
    tell(
        "A click on the layer \"Backdrop\" makes it the active one. The panel offers to begin.",
        [this] { hands->Click("layers", 80, theme::rowHeight + 12); },
        [](const Shown& shown) { return shown.activeLayerName == "Backdrop" && shown.effects.empty(); });
}

void Tour::addFromThePanel()
{
    tell(
        "\"Add Vortan\" in the panel adds the main effect.", [this] { panel->ClickButton("Add Vortan"); },
        [](const Shown& shown) { return find(shown, "Vortan") != nullptr; });
    const auto choose = [this](const char* button, int entry)
    {
        panel->PointAtEntry(button, entry);
        if (std::string(button) == "Add Renderer")
            picture("menu");
        panel->ClickEntry();
    };
    tell(
        "\"Add Geometry\" opens a menu; its first entry adds an object.", [&] { choose("Add Geometry", 0); },
        [](const Shown& shown) { return hasEffects(shown, 2); });
    tell(
        "\"Add Effector\": the second entry.", [&] { choose("Add Effector", 1); },
        [](const Shown& shown) { return hasEffects(shown, 3); });
    tell(
        "\"Add Renderer\": the first entry.", [&] { choose("Add Renderer", 0); },
        [](const Shown& shown) { return hasEffects(shown, 4); });
    requireAgreement();
}

void Tour::workInThePanel()
{
    const std::string first = now().effects.at(0).name;
    const std::string second = now().effects.at(1).name;
    tell(
        "In the panel, a click selects \"" + second + "\", Return opens its name, and it becomes \"glow\".",
        [&] { panel->Rename(second, "glow"); },
        [](const Shown& shown) { return find(shown, "glow") != nullptr; });
    tell(
        "\"Add Group\" makes a group, and \"glow\" is dragged into it.",
        [this]
        {
            panel->ClickButton("Add Group");
            panel->DragRowInto("glow", "Group 1");
        },
        [](const Shown& shown) { return find(shown, "glow") != nullptr && find(shown, "glow")->group == 1; });
    // The two lie side by side. A group in two pieces would be put in order by the panel each time the
    // history passes by, and that ends what can be redone.
    tell(
        "\"" + first + "\" follows it.", [&] { panel->DragRowBelow(first, "glow"); },
        [&](const Shown& shown) { return find(shown, first)->group == 1; });
    tell(
        "A click on its box switches \"glow\" off.", [this] { panel->ClickBox("glow"); },
        [](const Shown& shown) { return !find(shown, "glow")->isOn; });
    requireAgreement();
    picture("grouped");
}

void Tour::undoAllAndRedoAll()
{
    const std::size_t all = undoSteps();
    while (now().canUndo)
    {
        const std::size_t steps = undoSteps();
        const auto isUndone = [&] { return undoSteps() == steps - 1; };
        tell(
            "Edit > Undo" +
                (now().undoName.empty() ? std::string(" (a step without a name)") : " " + now().undoName) +
                ". The panel follows.",
            [&] { menus->Choose("Edit", 0, isUndone); },
            [&](const Shown&) { return bench.TheHost().UndoNames().size() == steps - 1; });
        requireAgreement();
    }
    tell(
        "Everything is undone. Ctrl+Shift+Z brings all of it back.", [&] { redoAll(all); },
        [](const Shown& shown) { return !shown.canRedo && find(shown, "glow") != nullptr; });
}

std::size_t Tour::undoSteps()
{
    return hands->OnMain([this] { return bench.TheHost().UndoNames().size(); });
}

void Tour::redoAll(std::size_t all)
{
    for (std::size_t steps = 0; steps < all; ++steps)
    {
        require("the keyboard in the desktop", [this] { return hands->DesktopListens(); });
        hands->Keys({"Control_L", "Shift_L"}, "z");
        require("the step that was taken back", [&] { return undoSteps() == steps + 1; });
        requireAgreement();
    }
}

void Tour::workInTheEffectControls()
{
    const auto rowOf = [this](std::size_t index)
    {
        const Shown shown = now();
        int top = 0;
        for (std::size_t i = 0; i < index; ++i)
            top += HeightOfEffect(shown.effects.at(i));
        return top + theme::rowHeight / 2;
    };
    tell(
        "In the effect controls, a double click opens a name; it becomes \"lamp\", and the panel shows it.",
        [&]
        {
            hands->DoubleClick("effects", 90, rowOf(0));
            require("the field for a name", [this] { return hands->Listens("name"); });
            require("the name", [this] { return hands->TypeInto("name", "lamp"); });
            hands->Key("Return");
        },
        [](const Shown& shown) { return shown.effects.front().name == "lamp"; });
    const std::string third = now().effects.at(2).name;
    tell(
        "\"" + third + "\" is dragged to the top of the stack.",
        [&] {
            hands->Drag("effects", {90, rowOf(2)}, {90, 3});
        },
        [&](const Shown& shown) { return shown.effects.front().name == third; });
    tell(
        "The first effect is twirled open.", [&] { hands->Click("effects", 12, rowOf(0)); },
        [](const Shown& shown) { return shown.effects.front().isOpen; });
}

void Tour::useSiblingsAndDock()
{
    tell(
        "A sibling effect notifies the panel: Siblings > Notify the Panel.",
        [this]
        {
            // The question comes as soon as the menu has given the keyboard back.
            menus->Choose("Siblings", 3, [this] { return hands->Listens("answer"); });
            require("the text", [this] { return hands->TypeInto("answer", "rendered 120 frames"); });
            hands->Key("Return");
            require("the notification", [this] { return panel->ShowsNotification("rendered 120 frames"); });
        },
        [](const Shown&) { return true; });
    picture("notified");
    tell(
        "The Window menu has the panel's entry, with its mark, through the bundle's update hook.",
        [this] { menus->Open("Window"); },
        [this](const Shown&)
        {
            const auto& items = bench.TheHost().MenuItems();
            return items.size() == 1 && items.front().enabled && items.front().ticked;
        });
    picture("window-menu");
    menus->Leave();
    const auto isAt = [this](PanelPlace place)
    { return hands->OnMain([&] { return bench.TheDock().Place() == place; }); };
    tell(
        "The panel goes into a window of its own.",
        [&] { menus->Choose("Window", 2, [&] { return isAt(PanelPlace::floating); }); },
        [this](const Shown&) { return bench.TheDock().Place() == PanelPlace::floating; });
    hands->LetIdle(10);
    picture("undocked");
    tell(
        "It goes back into the dock, and the other tab is put in front of it.",
        [&]
        {
            menus->Choose("Window", 3, [&] { return isAt(PanelPlace::docked); });
            hands->Click("dock", 260, 12);
        },
        [this](const Shown&)
        { return bench.TheDock().Place() == PanelPlace::docked && !bench.TheDock().PanelIsInFront(); });
    tell(
        "The calls of the bundle are filtered for what it writes.",
        [this]
        {
            hands->Click("filter", 60, 10);
            require("the filter's text", [this] { return hands->TypeInto("filter", "set"); });
        },
        [](const Shown&) { return true; });
    picture("filtered");
}
} // namespace standin
