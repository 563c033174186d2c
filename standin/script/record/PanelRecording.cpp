#include "standin/script/record/PanelRecording.h"

#include "standin/user/Waits.h"
#include "standin/user/eyes/DisplayNames.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace standin::script
{
namespace
{
constexpr int rowHeight = user::PanelReader::rowHeight;
constexpr int dragThreshold = 5;
constexpr int passesOfDoubleClick = 20; ///< Surely longer than a double click takes.
constexpr unsigned wheelUp = 4;
constexpr unsigned wheelDown = 5;

std::string modifiersOf(const user::InputEvent& event)
{
    return std::string(event.control ? "Control+" : "") + (event.alt ? "Alt+" : "") +
           (event.shift ? "Shift+" : "");
}

bool isFar(int x, int y, const user::InputEvent& event)
{
    return std::max(std::abs(event.x - x), std::abs(event.y - y)) >= dragThreshold;
}
} // namespace

PanelRecording::PanelRecording(Host& owner, ScenarioRecording& target, std::function<View()> viewOf)
    : host(owner), recording(target), look(std::move(viewOf))
{
}

void PanelRecording::line(const std::string& pattern, const std::vector<std::string>& blanks)
{
    recording.PanelLine(pattern, blanks);
}

void PanelRecording::Follow()
{
    const std::vector<user::InputEvent> news = events.Take();
    view = look();
    if (!menuOf.empty())
        readMenu();
    for (const user::InputEvent& event : news)
        handle(event);
    passes = news.empty() ? passes + 1 : 0;
    if (passes > passesOfDoubleClick)
        Finish();
}

void PanelRecording::Finish()
{
    flushClick();
    flushText();
}

void PanelRecording::handle(const user::InputEvent& event)
{
    if (event.kind == user::InputEvent::Kind::key)
        return key(event);
    if (event.kind == user::InputEvent::Kind::release)
        return release(event);
    flushText();
    if (!menuOf.empty())
        return chooseEntry(event);
    if (isInside(event))
        return press(event);
    flushClick();
}

bool PanelRecording::isInside(const user::InputEvent& event) const
{
    return view.area.has_value() && event.x >= view.area->x && event.y >= view.area->y &&
           event.x < view.area->x + view.area->width && event.y < view.area->y + view.area->height;
}

// ---- What the panel shows

std::vector<std::string> PanelRecording::candidates() const
{
    std::vector<std::string> texts;
    const auto add = [&texts](const std::string& text)
    {
        texts.push_back(text);
        texts.push_back(user::DisplayNameOf(text));
    };
    for (const Layer& layer : host.State().layers)
        for (const EffectInstance& effect : layer.effects)
            add(host.NameOf(effect.label));
    for (const InstalledEffect& effect : host.InstalledEffects())
        add(effect.defaultName);
    for (int number = 1; number <= user::PanelReader::mostGroups; ++number)
        texts.push_back("Group " + std::to_string(number));
    return texts;
}

std::vector<user::PanelRow> PanelRecording::rows()
{
    return reader.Rows(eyes.picture(*view.area), candidates());
}

std::string PanelRecording::nameOf(const std::vector<user::PanelRow>& rows, std::size_t index) const
{
    const std::string& text = rows[index].text;
    const auto end = rows.begin() + static_cast<std::ptrdiff_t>(index) + 1;
    const auto count =
        std::count_if(rows.begin(), end, [&](const user::PanelRow& row) { return row.text == text; });
    return count > 1 ? text + "#" + std::to_string(count) : text;
}

// ---- The mouse

void PanelRecording::press(const user::InputEvent& event)
{
    const int x = event.x - view.area->x;
    const int y = event.y - view.area->y;
    if (event.button == wheelUp || event.button == wheelDown)
        return line("scroll NUMBER notches", {event.button == wheelDown ? "1" : "-1"});
    if (event.button != 1)
        return recording.Comment("another button of the mouse, for which there are no words");
    for (const user::PanelButton& button : reader.Buttons(eyes.picture(*view.area)))
    {
        if (x < button.x || y < button.y || x >= button.x + user::PanelReader::buttonWidth ||
            y >= button.y + user::PanelReader::buttonHeight)
            continue;
        flushClick();
        if (button.text == "Add Vortan" || button.text == "Add Group")
            return line("click button TEXT", {button.text});
        menuOf = button.text;
        menuPicture.clear();
        entries.clear();
        menuEntry = -1;
        return;
    }
    rowsAtPress = rows();
    const std::vector<user::PanelRow>& all = rowsAtPress;
    for (std::size_t i = 0; i < all.size(); ++i)
        if (y >= all[i].y && y < all[i].y + rowHeight)
        {
            user::PanelRow row = all[i];
            row.text = nameOf(all, i);
            return pressRow(event, row);
        }
    flushClick();
    const bool isBelow = !all.empty() && y > all.back().y;
    line(isBelow ? "click below the rows" : "click the panel");
}

void PanelRecording::pressRow(const user::InputEvent& event, const user::PanelRow& row)
{
    const int x = event.x - view.area->x - row.x;
    constexpr int boxWidth = 12;
    const bool isSecond =
        click.has_value() && click->row == row.text && !isFar(click->x, click->y, event) &&
        event.time - click->time < static_cast<unsigned long>(user::waits::doubleClick.count());
    if (isSecond)
    {
        click.reset();
        return line("double click row TEXT", {row.text});
    }
    flushClick();
    if (x < 0 && row.triangle != user::Triangle::none)
        return line("click triangle of TEXT", {row.text});
    if (row.box != user::Box::none && x >= 0 && x < boxWidth)
        return line("click box of TEXT", {row.text});
    if (x < 0)
        return recording.Comment("a click beside the row " + row.text);
    if (event.control || event.shift)
        return line("click row TEXT with WORD", {row.text, event.control ? "Control" : "Shift"});
    held = Click{row.text, event.time, event.x, event.y};
}

void PanelRecording::release(const user::InputEvent& event)
{
    if (event.button != 1 || !held.has_value())
        return;
    const Click begun = *std::exchange(held, std::nullopt);
    if (!isFar(begun.x, begun.y, event))
        click = begun;
    else if (isInside(event))
        drop(event, begun.row);
    else
        recording.Comment("the row " + begun.row + " was dragged out of the panel");
}

void PanelRecording::drop(const user::InputEvent& event, const std::string& name)
{
    const std::vector<user::PanelRow>& all = rowsAtPress;
    const int y = event.y - view.area->y;
    for (std::size_t i = 0; i < all.size(); ++i)
    {
        const int inRow = y - all[i].y;
        if (inRow < 0 || inRow >= rowHeight)
            continue;
        const std::string target = nameOf(all, i);
        const bool isGroup = target.rfind("Group ", 0) == 0 && all[i].depth == 1;
        const bool isEmpty = i + 1 == all.size() || all[i + 1].depth <= all[i].depth;
        const bool isMiddle = inRow >= rowHeight / 4 && inRow < rowHeight * 3 / 4;
        if (isGroup && isEmpty && isMiddle)
            return line("drag row TEXT into TEXT", {name, target});
        return line(inRow < rowHeight / 2 ? "drag row TEXT above TEXT" : "drag row TEXT below TEXT",
                    {name, target});
    }
    line("drag row TEXT to the end", {name});
}

// ---- The menus of the buttons

std::optional<user::Area> PanelRecording::menu()
{
    const std::vector<user::Area> popUps = eyes.popUps();
    if (popUps.empty())
        return {};
    return popUps.back();
}

void PanelRecording::readMenu()
{
    const std::optional<user::Area> area = menu();
    if (!area.has_value())
        return;
    user::ScreenPicture now = eyes.picture(*area);
    if (now.pixels == menuPicture)
        return; // Reading takes many times as long as looking, and a menu stays as it is for many passes.
    const std::vector<std::string> seen = reader.MenuEntries(now, candidates());
    menuPicture = std::move(now.pixels);
    entries.resize(seen.size(), user::PanelReader::unreadable);
    for (std::size_t i = 0; i < seen.size(); ++i)
        if (seen[i] != user::PanelReader::unreadable)
            entries[i] = seen[i];
}

void PanelRecording::leaveMenu() { choose(-1); }

void PanelRecording::choose(int entry)
{
    const std::vector<std::string> all = std::exchange(entries, {});
    const std::string button = std::exchange(menuOf, {});
    if (entry < 0 || entry >= static_cast<int>(all.size()))
        return line("choose nothing from TEXT", {button});
    line("choose TEXT from TEXT", {all[static_cast<std::size_t>(entry)], button});
}

void PanelRecording::chooseEntry(const user::InputEvent& event)
{
    const std::optional<user::Area> area = menu();
    if (!area.has_value() || event.x < area->x || event.x >= area->x + area->width)
        return leaveMenu();
    constexpr int halfAnEntry = 11;
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (std::abs(area->y + user::PanelReader::MenuEntryMiddle(i) - event.y) <= halfAnEntry)
            return choose(static_cast<int>(i));
    leaveMenu();
}

// ---- The keyboard

void PanelRecording::key(const user::InputEvent& event)
{
    if (!menuOf.empty())
    {
        if (event.key == "Escape")
            return leaveMenu();
        menuEntry += event.key == "Down" ? 1 : event.key == "Up" ? -1 : 0;
        if (event.key == "Return")
            choose(menuEntry);
        return;
    }
    if (!view.hasKeyboard)
        return;
    flushClick();
    if (event.text != '\0' && !event.control && !event.alt)
        return void(typed += event.text);
    flushText();
    line("press WORD", {modifiersOf(event) + event.key});
}

void PanelRecording::flushText()
{
    if (!typed.empty())
        line("type TEXT", {std::exchange(typed, {})});
}

void PanelRecording::flushClick()
{
    if (click.has_value())
        line("click row TEXT", {std::exchange(click, std::nullopt)->row});
}
} // namespace standin::script
