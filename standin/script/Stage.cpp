#include "standin/script/Stage.h"

#include "standin/script/Parser.h"
#include "standin/user/eyes/DisplayNames.h"

#include <algorithm>
#include <cctype>

namespace standin::script
{
namespace
{

std::string groupName(int number) { return "Group " + std::to_string(number); }

bool isFamily(const Host& host, const EffectInstance& effect)
{
    const InstalledEffect* installed = host.FindInstalled(effect.key);
    return installed != nullptr && installed->behaviour != nullptr && effect.family.uuid != Identity{};
}

/// Where the group's row stands, made at the end if it is not there.
std::size_t groupPlace(std::vector<user::PanelRow>& rows, int number)
{
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const user::PanelRow& row)
                                    { return row.depth == 1 && row.text == groupName(number); });
    if (found != rows.end())
        return static_cast<std::size_t>(found - rows.begin());
    user::PanelRow group;
    group.depth = 1;
    group.text = groupName(number);
    rows.push_back(group);
    return rows.size() - 1;
}

void addToGroup(std::vector<user::PanelRow>& rows, int number, user::PanelRow row)
{
    std::size_t end = groupPlace(rows, number) + 1;
    while (end < rows.size() && rows[end].depth == 2)
        ++end;
    row.depth = 2;
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(end), row);
}

/// A group's box shows the state of its objects.
void fillGroupBoxes(std::vector<user::PanelRow>& rows)
{
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        std::size_t end = i + 1;
        int on = 0;
        for (; end < rows.size() && rows[end].depth == 2; ++end)
            on += rows[end].box == user::Box::full ? 1 : 0;
        const auto all = static_cast<int>(end - i - 1);
        if (rows[i].depth == 1 && all > 0)
            rows[i].box = on == 0 ? user::Box::empty : on == all ? user::Box::full : user::Box::half;
    }
}
} // namespace

std::pair<std::string, int> NameAndCount(const std::string& name)
{
    const std::size_t mark = name.rfind('#');
    const bool isCounted = mark != std::string::npos && mark + 2 == name.size() &&
                           std::isdigit(static_cast<unsigned char>(name.back())) != 0;
    if (!isCounted)
        return {name, 1};
    return {name.substr(0, mark), name.back() - '0'};
}

std::string RowText(const user::PanelRow& row)
{
    if (row.depth == 0)
        return row.text;
    return std::string(static_cast<std::size_t>(row.depth), '-') + " " + row.text;
}

std::string QuotedList(const std::vector<std::string>& texts)
{
    std::string list;
    for (const std::string& text : texts)
        list += (list.empty() ? "" : " ") + Quoted(text);
    return list.empty() ? "nothing" : list;
}

Stage::Stage(const std::string& bundleFile, user::DisplayChoice display)
    : own(std::make_unique<user::WindowSession>(bundleFile, display)), session(*own)
{
    addUsualTexts();
}

Stage::Stage(user::Session& on) : session(on) { addUsualTexts(); }

void Stage::addUsualTexts()
{
    AddCandidate("Layer");
    AddCandidate(""); // An empty name is drawn as it is.
    for (int number = 1; number <= user::PanelReader::mostGroups; ++number)
        AddCandidate(groupName(number));
    AddCandidate("Not Found");
    for (const InstalledEffect& effect : host().InstalledEffects())
        AddCandidate(effect.defaultName);
}

void Stage::AddCandidate(const std::string& text)
{
    texts.insert(text);
    texts.insert(user::DisplayNameOf(text));
}

void Stage::addNamesOfProject()
{
    for (const Layer& each : host().State().layers)
        for (const EffectInstance& effect : each.effects)
            AddCandidate(host().NameOf(effect.label));
}

std::vector<std::string> Stage::candidates()
{
    addNamesOfProject();
    return {texts.begin(), texts.end()};
}

const Layer& Stage::currentLayer()
{
    const Layer* found = host().State().FindLayer(layer);
    if (found == nullptr)
        throw StageError("there is no layer yet");
    return *found;
}

std::string Stage::EffectLabel(const std::string& name)
{
    const auto [wanted, count] = NameAndCount(name);
    std::vector<std::string> labels;
    const auto look = [&, text = wanted](const Layer& in)
    {
        for (const EffectInstance& effect : in.effects)
        {
            const std::string full = host().NameOf(effect.label);
            if (full == text || user::DisplayNameOf(full) == text || effect.label == text)
                labels.push_back(effect.label);
        }
    };
    look(currentLayer());
    for (const Layer& other : host().State().layers)
        if (other.id != layer)
            look(other);
    if (labels.size() < static_cast<std::size_t>(count))
        throw StageError("there is no effect " + Quoted(name));
    return labels[static_cast<std::size_t>(count) - 1];
}

int Stage::LayerId(const std::string& name)
{
    for (const Layer& each : host().State().layers)
        if (each.name == name)
            return each.id;
    throw StageError("there is no layer " + Quoted(name));
}

int Stage::ItemId(const std::string& name)
{
    for (const Item& item : host().State().items)
        if (item.name == name)
            return item.id;
    throw StageError("there is no item " + Quoted(name) + " in the project");
}

const InstalledEffect& Stage::Installed(const std::string& name)
{
    for (const InstalledEffect& effect : host().InstalledEffects())
        if (effect.matchName == name || effect.defaultName == name)
            return effect;
    throw StageError("no effect " + Quoted(name) + " is installed");
}

std::vector<user::PanelRow> Stage::Rows()
{
    const Panel* panel = host().FindPanel(user::Session::panelName);
    if (panel == nullptr || panel->state != PanelState::frontmost)
        return {};
    return reader.Rows(session.PanelPicture(), candidates());
}

std::optional<std::string> Stage::Notification()
{
    return reader.Notification(session.PanelPicture(), candidates());
}

user::PanelRow Stage::Row(const std::string& name)
{
    const auto [wanted, count] = NameAndCount(name);
    std::vector<std::string> seen;
    std::optional<user::PanelRow> found;
    const auto look = [&, text = wanted, nth = count]
    {
        int left = nth;
        seen.clear();
        for (const user::PanelRow& row : Rows())
        {
            seen.push_back(RowText(row));
            if (row.text == text && --left == 0)
                found = row;
        }
        return found.has_value();
    };
    if (!Await(look))
        throw StageError("no row " + Quoted(name) + " is to be seen; the rows are " + QuotedList(seen));
    return *found;
}

user::PanelButton Stage::Button(const std::string& name)
{
    std::vector<std::string> seen;
    std::optional<user::PanelButton> found;
    const auto look = [&]
    {
        seen.clear();
        for (const user::PanelButton& button : Buttons())
        {
            seen.push_back(button.text);
            if (button.text == name)
                found = button;
        }
        return found.has_value();
    };
    if (!Await(look))
        throw StageError("no button " + Quoted(name) + " is to be seen; the buttons are " + QuotedList(seen));
    return *found;
}

user::Place Stage::MiddleOf(const user::PanelButton& button) const
{
    return session.OnScreen(
        user::Area{button.x, button.y, user::PanelReader::buttonWidth, user::PanelReader::buttonHeight}
            .Middle());
}

std::vector<std::string> Stage::OpenMenu(const std::string& button)
{
    menu = session.OpenMenu(MiddleOf(Button(button)));
    return reader.MenuEntries(session.hands.picture(menu), candidates());
}

void Stage::ChooseFromMenu(const std::string& button, const std::string& entry)
{
    const std::vector<std::string> entries = OpenMenu(button);
    const auto found = std::find(entries.begin(), entries.end(), entry);
    if (found == entries.end())
    {
        session.CloseMenu();
        throw StageError("the menu offers " + QuotedList(entries));
    }
    const auto index = static_cast<std::size_t>(found - entries.begin());
    session.ClickEntry({menu.Middle().x, menu.y + user::PanelReader::MenuEntryMiddle(index)});
}

std::vector<user::PanelRow> Stage::RowsOfStack()
{
    std::vector<user::PanelRow> rows;
    for (const EffectInstance& effect : currentLayer().effects)
    {
        user::PanelRow row;
        row.depth = 1;
        row.text = user::DisplayNameOf(host().NameOf(effect.label));
        const bool isOn = isFamily(host(), effect) && (effect.flags & effectActive) != 0;
        row.box = isOn ? user::Box::full : user::Box::empty;
        const int group = effect.family.group;
        if (isFamily(host(), effect) && group >= 1 && group <= user::PanelReader::mostGroups)
            addToGroup(rows, group, row);
        else
            rows.push_back(row);
    }
    fillGroupBoxes(rows);
    user::PanelRow top;
    top.text = "Layer";
    if (!rows.empty())
        rows.insert(rows.begin(), top);
    return rows;
}
} // namespace standin::script
