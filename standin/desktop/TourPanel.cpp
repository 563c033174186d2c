#include "standin/desktop/TourPanel.h"

#include "standin/screen/DisplayNames.h"

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace standin
{
namespace
{
constexpr int middle = PanelReader::rowHeight / 2;
constexpr int nameX = 20;
constexpr int boxX = 6;

std::string groupName(int number) { return "Group " + std::to_string(number); }

/// A group stands where its first object is.
std::vector<std::string> rowsOf(const std::vector<ShownEffect>& effects)
{
    std::vector<std::string> rows;
    std::vector<int> groups;
    for (const ShownEffect& effect : effects)
    {
        if (effect.group <= 0)
        {
            rows.push_back(DisplayNameOf(effect.name));
            continue;
        }
        if (std::find(groups.begin(), groups.end(), effect.group) != groups.end())
            continue;
        groups.push_back(effect.group);
        rows.push_back(groupName(effect.group));
        for (const ShownEffect& other : effects)
            if (other.group == effect.group)
                rows.push_back(DisplayNameOf(other.name));
    }
    return rows;
}
} // namespace

TourPanel::TourPanel(TourHands& theHands, Workbench& theBench) : hands(theHands), bench(theBench) {}

void TourPanel::await(const std::function<bool()>& condition, const std::string& otherwise)
{
    if (!hands.UntilSeen(condition))
        throw std::runtime_error(otherwise);
}

ScreenArea TourPanel::area()
{
    ScreenArea all = hands.AreaOf("dock");
    all.y += theme::headerHeight;
    all.height -= theme::headerHeight;
    return all;
}

juce::Point<int> TourPanel::onScreen(int x, int y)
{
    const ScreenArea all = area();
    return {all.x + x, all.y + y};
}

std::vector<std::string> TourPanel::rowsOfLayer()
{
    return hands.OnMain([this] { return rowsOf(ShowHost(bench.TheHost()).effects); });
}

std::vector<PanelRow> TourPanel::rows()
{
    std::vector<std::string> candidates = rowsOfLayer();
    candidates.push_back(groupName(1)); // One that is still empty is not on the layer.
    return reader.Rows(picture(), candidates);
}

PanelRow TourPanel::row(const std::string& name)
{
    std::vector<PanelRow> seen;
    auto found = seen.end();
    await(
        [&]
        {
            seen = rows();
            found = std::find_if(seen.begin(), seen.end(),
                                 [&](const PanelRow& one) { return one.text == DisplayNameOf(name); });
            return found != seen.end();
        },
        "the panel has no row " + name);
    return *found;
}

void TourPanel::ClickButton(const std::string& button)
{
    PanelButton place;
    await(
        [&]
        {
            for (const PanelButton& one : reader.Buttons(picture()))
                if (one.text == button)
                    place = one;
            return place.text == button;
        },
        "the panel has no button " + button);
    hands.ClickAt(onScreen(place.x + PanelReader::buttonWidth / 2, place.y + PanelReader::buttonHeight / 2));
}

void TourPanel::PointAtEntry(const std::string& button, int entry)
{
    // The menu takes no click earlier.
    constexpr auto untilItListens = std::chrono::milliseconds(260);
    ClickButton(button);
    await([this] { return !hands.input.popUps().empty(); }, "the menu of " + button + " did not open");
    std::this_thread::sleep_for(untilItListens);
    const std::vector<ScreenArea> menus = hands.input.popUps();
    if (menus.empty())
        throw std::runtime_error("the menu of " + button + " has closed by itself");
    const ScreenArea menu = menus.back();
    hands.input.move(menu.x + menu.width / 2,
                     menu.y + PanelReader::MenuEntryMiddle(static_cast<std::size_t>(entry)));
    hands.LetIdle(2);
}

void TourPanel::ClickEntry()
{
    hands.input.press();
    hands.LetIdle(2);
    hands.input.release();
    await([this] { return hands.input.popUps().empty(); }, "the menu does not close");
}

void TourPanel::clickRow(const std::string& name)
{
    const PanelRow one = row(name);
    hands.ClickAt(onScreen(one.x + nameX, one.y + middle));
    await([&] { return row(name).selected == Marked::yes && hands.PanelListens(); },
          "a click does not select " + name);
}

void TourPanel::ClickBox(const std::string& name)
{
    const PanelRow one = row(name);
    hands.ClickAt(onScreen(one.x + boxX, one.y + middle));
}

void TourPanel::Rename(const std::string& name, const std::string& newName)
{
    clickRow(name);
    hands.Key("Return");
    await([this] { return PanelReader::IsEditorListening(picture()); }, "Return does not open the name");
    hands.Keys({"Control_L"}, "a");
    hands.Type(newName);
    hands.Key("Return");
    await([this] { return !PanelReader::IsEditorOpen(picture()); }, "Return does not close the name");
}

void TourPanel::DragRowInto(const std::string& name, const std::string& target)
{
    const PanelRow onto = row(target);
    drag(name, onScreen(onto.x + 10, onto.y + middle));
}

void TourPanel::DragRowBelow(const std::string& name, const std::string& target)
{
    const PanelRow onto = row(target);
    drag(name, onScreen(onto.x + 10, onto.y + PanelReader::rowHeight - 4));
}

/// What is dragged hangs at the pointer in a window of its own, which fades away in its own time.
void TourPanel::drag(const std::string& name, juce::Point<int> target)
{
    constexpr int steps = 6;
    const PanelRow one = row(name);
    const juce::Point<int> start = onScreen(one.x + nameX, one.y + middle);
    hands.PressAt(start);
    for (int i = 1; i <= steps; ++i)
    {
        hands.input.move(start.x + (target.x - start.x) * i / steps,
                         start.y + (target.y - start.y) * i / steps);
        hands.LetIdle(1);
    }
    const bool isDragged = hands.UntilSeen([this] { return !hands.input.popUps().empty(); });
    hands.LetIdle(2);
    hands.input.release();
    if (!isDragged)
        throw std::runtime_error(name + " does not come along with the pointer");
    await([this] { return hands.input.popUps().empty(); }, name + " stays at the pointer");
}

bool TourPanel::Agrees()
{
    std::vector<std::string> seen;
    for (const PanelRow& one : rows())
        if (one.depth > 0)
            seen.push_back(one.text);
    return seen == rowsOfLayer();
}

bool TourPanel::ShowsNotification(const std::string& text)
{
    return reader.Notification(picture(), {text}) == text;
}
} // namespace standin
