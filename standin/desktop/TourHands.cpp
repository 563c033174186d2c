#include "standin/desktop/TourHands.h"

#include <stdexcept>
#include <thread>

namespace standin
{
namespace
{
using Clock = std::chrono::steady_clock;
constexpr auto limit = std::chrono::seconds(60);
constexpr auto betweenLooks = std::chrono::milliseconds(15);

juce::Component* findComponent(juce::Component& around, const juce::String& id)
{
    if (around.getComponentID() == id)
        return &around;
    for (juce::Component* child : around.getChildren())
        if (juce::Component* found = findComponent(*child, id))
            return found;
    return nullptr;
}
} // namespace

TourHands::TourHands(Workbench& theBench, DesktopWindow& theWindow) : bench(theBench), window(theWindow) {}

bool TourHands::Until(const std::function<bool()>& condition)
{
    return UntilSeen([&] { return OnMain(condition); });
}

bool TourHands::UntilSeen(const std::function<bool()>& condition)
{
    const auto end = Clock::now() + limit;
    while (!condition())
    {
        if (Clock::now() > end)
            return false;
        std::this_thread::sleep_for(betweenLooks);
    }
    return true;
}

bool TourHands::Within(int passes, const std::function<bool()>& condition)
{
    const auto idles = [this] { return bench.Idles(); };
    const std::size_t end = OnMain(idles) + static_cast<std::size_t>(passes);
    bool isSo = false;
    const auto isOver = [&]
    {
        const bool isLate = OnMain(idles) >= end;
        isSo = condition();
        return isSo || isLate;
    };
    (void)UntilSeen(isOver);
    return isSo;
}

void TourHands::LetIdle(int passes)
{
    (void)Within(passes, [] { return false; });
}

juce::Point<int> TourHands::PlaceIn(const char* componentId, juce::Point<int> at)
{
    const ScreenArea area = AreaOf(componentId);
    return {area.x + at.x, area.y + at.y};
}

ScreenArea TourHands::AreaOf(const char* componentId)
{
    return OnMain(
        [&]
        {
            const juce::Component* component = findComponent(window, componentId);
            if (component == nullptr)
                throw std::logic_error(std::string("there is no component ") + componentId);
            const juce::Rectangle<int> area = component->getScreenBounds();
            return ScreenArea{area.getX(), area.getY(), area.getWidth(), area.getHeight()};
        });
}

/// Two clicks count as a double click if they are near each other in place and time.
void TourHands::pointAt(juce::Point<int> at)
{
    constexpr auto doubleClick = std::chrono::milliseconds(450);
    constexpr int near = 20;
    const auto since = Clock::now() - lastClick;
    if (since < doubleClick && at.getDistanceFrom(lastPlace) < near)
        std::this_thread::sleep_for(doubleClick - since);
    input.move(at.x, at.y);
    LetIdle(1);
    lastPlace = at;
}

void TourHands::PressAt(juce::Point<int> at)
{
    pointAt(at);
    input.press();
    lastClick = Clock::now();
}

void TourHands::ClickAt(juce::Point<int> at)
{
    PressAt(at);
    LetIdle(1);
    input.release();
    lastClick = Clock::now();
}

void TourHands::Click(const char* componentId, int x, int y) { ClickAt(PlaceIn(componentId, {x, y})); }

void TourHands::DoubleClick(const char* componentId, int x, int y)
{
    pointAt(PlaceIn(componentId, {x, y}));
    input.doubleClick();
    lastClick = Clock::now();
}

/// The host does not idle meanwhile: the events alone, which arrive in their order, make the drag.
void TourHands::Drag(const char* componentId, juce::Point<int> from, juce::Point<int> to)
{
    const auto start = PlaceIn(componentId, from);
    const auto end = PlaceIn(componentId, to);
    PressAt(start);
    constexpr int steps = 12;
    for (int i = 1; i <= steps; ++i)
    {
        input.move(start.x + (end.x - start.x) * i / steps, start.y + (end.y - start.y) * i / steps);
        std::this_thread::sleep_for(betweenLooks);
    }
    input.release();
}

bool TourHands::Listens(const char* editorId)
{
    return OnMain(
        [&]
        {
            const juce::Component* editor = findComponent(window, editorId);
            return editor != nullptr && editor->isShowing() && editor->hasKeyboardFocus(true);
        });
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

bool TourHands::TypeInto(const char* editorId, const std::string& text)
{
    constexpr int tries = 8;
    for (int i = 0; i < tries; ++i)
    {
        if (!Within(longEnough, [&] { return Listens(editorId); }))
        {
            const ScreenArea area = AreaOf(editorId);
            ClickAt({area.x + area.width / 2, area.y + area.height / 2});
            continue;
        }
        Keys({"Control_L"}, "a");
        Type(text);
        if (Within(longEnough, [&] { return TextIn(editorId) == text; }))
            return true;
    }
    return false;
}

unsigned long TourHands::desktopWindow()
{
    return OnMain([this] { return reinterpret_cast<unsigned long>(window.getPeer()->getNativeHandle()); });
}

bool TourHands::DesktopListens()
{
    return input.focusedWindow() == desktopWindow() &&
           OnMain([] { return juce::Component::getCurrentlyFocusedComponent() != nullptr; });
}

bool TourHands::PanelListens() { return input.focusIsBelow(desktopWindow()); }

void TourHands::Key(const std::string& name) { input.key(name); }

void TourHands::Keys(const std::vector<std::string>& modifiers, const std::string& name)
{
    for (const std::string& modifier : modifiers)
        input.keyDown(modifier);
    input.key(name);
    // They are held until the key has been seen: JUCE asks now and then which ones are down by now.
    LetIdle(2);
    for (const std::string& modifier : modifiers)
        input.keyUp(modifier);
}

void TourHands::Type(const std::string& text) { input.type(text); }

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
