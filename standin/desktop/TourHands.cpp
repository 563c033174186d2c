#include "standin/desktop/TourHands.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace standin
{
namespace
{
constexpr auto limit = std::chrono::seconds(60);
constexpr auto betweenLooks = std::chrono::milliseconds(20);
constexpr auto afterEvent = std::chrono::milliseconds(60); ///< As long as a quick hand takes.
constexpr int panelTreeTop = 88;
constexpr int panelTreeLeft = 8;
constexpr int panelRowHeight = 20;
constexpr int panelIndent = 20;

juce::Component* findComponent(juce::Component& around, const juce::String& id)
{
    if (around.getComponentID() == id)
        return &around;
    for (juce::Component* child : around.getChildren())
        if (juce::Component* found = findComponent(*child, id))
            return found;
    return nullptr;
}

void rest() { std::this_thread::sleep_for(afterEvent); }
} // namespace

std::vector<std::string> PanelRows(const Shown& shown)
{
    std::vector<std::string> rows;
    std::vector<int> groups;
    for (const ShownEffect& effect : shown.effects)
    {
        if (effect.group <= 0)
        {
            rows.push_back(effect.name);
            continue;
        }
        if (std::find(groups.begin(), groups.end(), effect.group) != groups.end())
            continue;
        groups.push_back(effect.group);
        rows.push_back("Group " + std::to_string(effect.group));
        for (const ShownEffect& other : shown.effects)
            if (other.group == effect.group)
                rows.push_back(other.name);
    }
    return rows;
}

TourHands::TourHands(Workbench& theBench, DesktopWindow& theWindow) : bench(theBench), window(theWindow) {}

bool TourHands::Until(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (std::chrono::steady_clock::now() < end)
    {
        if (OnMain(condition))
            return true;
        std::this_thread::sleep_for(betweenLooks);
    }
    return false;
}

void TourHands::LetIdle(int passes)
{
    const std::size_t start = OnMain([this] { return bench.Idles(); });
    (void)Until([&] { return bench.Idles() >= start + static_cast<std::size_t>(passes); });
}

juce::Point<int> TourHands::pointIn(const char* componentId, juce::Point<int> at)
{
    return OnMain(
        [&]
        {
            const juce::Component* component = findComponent(window, componentId);
            if (component == nullptr)
                throw std::logic_error(std::string("there is no component ") + componentId);
            return component->localPointToGlobal(at);
        });
}

void TourHands::clickAt(juce::Point<int> at)
{
    input.move(at.x, at.y);
    rest();
    input.press();
    rest();
    input.release();
    rest();
}

void TourHands::Click(const char* componentId, int x, int y) { clickAt(pointIn(componentId, {x, y})); }

void TourHands::DoubleClick(const char* componentId, int x, int y)
{
    const auto at = pointIn(componentId, {x, y});
    input.move(at.x, at.y);
    rest();
    for (int i = 0; i < 2; ++i)
    {
        input.press();
        input.release();
    }
    rest();
}

void TourHands::dragBetween(juce::Point<int> from, juce::Point<int> to)
{
    input.move(from.x, from.y);
    rest();
    input.press();
    constexpr int steps = 12;
    for (int i = 1; i <= steps; ++i)
    {
        rest();
        input.move(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps);
    }
    for (int i = 0; i < 5; ++i)
        rest();
    input.release();
    rest();
}

void TourHands::Drag(const char* componentId, juce::Point<int> from, juce::Point<int> to)
{
    dragBetween(pointIn(componentId, from), pointIn(componentId, to));
}

void TourHands::OpenMenu(const char* menu)
{
    const int x = OnMain(
        [&]
        {
            int left = 0;
            for (const juce::String& name :
                 {juce::String("File"), juce::String("Edit"), juce::String("Effect"), juce::String("Window"),
                  juce::String("Siblings")})
            {
                const int width = theme::Body().getStringWidth(name) + 2 * theme::margin + 4;
                if (name == menu)
                    return left + width / 2;
                left += width;
            }
            throw std::logic_error(std::string("there is no menu ") + menu);
        });
    // A menu that has just closed hands the keyboard back within a pass or two.
    LetIdle(3);
    Click("menus", x, 12);
    if (!Until([] { return juce::Component::getCurrentlyModalComponent() != nullptr; }))
        throw std::runtime_error(std::string("the menu ") + menu + " did not open");
    rest();
}

juce::Point<int> TourHands::pointOfMenuLine(int line)
{
    return OnMain(
        [line]
        {
            const juce::Component* menu = juce::Component::getCurrentlyModalComponent();
            if (menu == nullptr || line >= menu->getNumChildComponents())
                throw std::runtime_error("the menu has no line " + std::to_string(line));
            return menu->getChildComponent(line)->getScreenBounds().getCentre();
        });
}

void TourHands::ChooseFromMenu(const char* menu, int line)
{
    OpenMenu(menu);
    const juce::Point<int> at = pointOfMenuLine(line);
    input.move(at.x - 10, at.y);
    // A menu takes no click in its first moments, when it may still be the one that opened it.
    LetIdle(15);
    clickAt(at);
    if (!Until([] { return juce::Component::getCurrentlyModalComponent() == nullptr; }))
        throw std::runtime_error(std::string("the menu ") + menu + " did not close");
}

void TourHands::ClickPanel(int x, int y) { Click("dock", x, y + theme::headerHeight); }

juce::Point<int> TourHands::rowPoint(const std::string& name, int x)
{
    const Shown shown = OnMain([this] { return ShowHost(bench.TheHost()); });
    std::vector<std::string> rows = PanelRows(shown);
    if (!newGroup.empty() && std::find(rows.begin(), rows.end(), newGroup) == rows.end())
        rows.insert(rows.begin(), newGroup);
    const auto row = std::find(rows.begin(), rows.end(), name);
    if (row == rows.end())
        throw std::logic_error("the panel has no row " + name);
    bool isInGroup = false;
    for (const ShownEffect& effect : shown.effects)
        isInGroup = isInGroup || (effect.name == name && effect.group > 0);
    const int left = panelTreeLeft + panelIndent * (isInGroup ? 3 : 2);
    const int top = panelTreeTop + panelRowHeight * static_cast<int>(1 + (row - rows.begin()));
    return pointIn("dock", {left + x, theme::headerHeight + top + panelRowHeight / 2});
}

void TourHands::ClickRow(const std::string& name) { clickAt(rowPoint(name, 30)); }

void TourHands::ClickBox(const std::string& name) { clickAt(rowPoint(name, 6)); }

void TourHands::DragRowInto(const std::string& name, const std::string& target)
{
    dragBetween(rowPoint(name, 30), rowPoint(target, 34));
}

void TourHands::DragRowBelow(const std::string& name, const std::string& target)
{
    constexpr int nearTheEnd = panelRowHeight / 2 - 4;
    dragBetween(rowPoint(name, 30), rowPoint(target, 34).translated(0, nearTheEnd));
}

void TourHands::Key(const std::string& name)
{
    input.key(name);
    rest();
}

void TourHands::Keys(const std::vector<std::string>& modifiers, const std::string& name)
{
    for (const std::string& modifier : modifiers)
        input.keyDown(modifier);
    input.key(name);
    for (const std::string& modifier : modifiers)
        input.keyUp(modifier);
    rest();
}

void TourHands::Type(const std::string& text)
{
    input.type(text);
    rest();
}

bool TourHands::SeesNotification()
{
    const juce::Point<int> from = pointIn("dock", {0, theme::headerHeight});
    const juce::Point<int> to = OnMain(
        [this]
        {
            const auto* dock = findComponent(window, "dock");
            return dock->getScreenBounds().getBottomRight();
        });
    const ScreenPicture screen = input.screen();
    constexpr int bluer = 40;
    constexpr int enough = 200;
    int blue = 0;
    for (int y = from.y; y < to.y; ++y)
        for (int x = from.x; x < to.x; ++x)
        {
            const juce::Colour colour(screen.at(x, y));
            blue += colour.getBlue() > colour.getRed() + bluer ? 1 : 0;
        }
    return blue > enough;
}

std::string TourHands::TextIn(const char* editorId)
{
    return OnMain(
        [&]
        {
            const auto* editor = dynamic_cast<juce::TextEditor*>(findComponent(window, editorId));
            return editor != nullptr ? editor->getText().toStdString() : std::string();
        });
}

void TourHands::TakePicture(const juce::File& file)
{
    const ScreenPicture screen = input.screen();
    juce::Image image(juce::Image::RGB, screen.width, screen.height, false);
    juce::Image::BitmapData pixels(image, juce::Image::BitmapData::writeOnly);
    for (int y = 0; y < screen.height; ++y)
        for (int x = 0; x < screen.width; ++x)
            pixels.setPixelColour(x, y, juce::Colour(screen.at(x, y) | 0xff000000U));
    (void)file.deleteFile();
    juce::FileOutputStream stream(file);
    if (!stream.openedOk() || !juce::PNGImageFormat().writeImageToStream(image, stream))
        throw std::runtime_error(file.getFullPathName().toStdString() + ": cannot be written");
}
} // namespace standin
