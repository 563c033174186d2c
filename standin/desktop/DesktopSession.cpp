#include "standin/desktop/DesktopSession.h"

#include <JuceInternals.h>
#include <stdexcept>
#include <thread>

namespace standin::desktop
{
namespace
{
juce::Component* find(juce::Component& around, const juce::String& id)
{
    if (around.getComponentID() == id)
        return &around;
    for (juce::Component* child : around.getChildren())
        if (juce::Component* found = find(*child, id))
            return found;
    return nullptr;
}

user::Area areaOf(const juce::Component& component)
{
    const juce::Rectangle<int> area = component.getScreenBounds();
    return {area.getX(), area.getY(), area.getWidth(), area.getHeight()};
}

int lineOf(const juce::PopupMenu& menu, const std::string& entry)
{
    int line = 0;
    for (juce::PopupMenu::MenuItemIterator items(menu); items.next(); ++line)
        if (items.getItem().text == theme::Text(entry))
            return line;
    throw std::runtime_error("the menu does not offer " + entry);
}
} // namespace

DesktopSession::DesktopSession(Workbench& theBench, DesktopWindow& theWindow, X11Containers& theContainers)
    : user::Session(theBench.TheHost(), nullptr),
      bench(theBench),
      window(theWindow),
      containers(theContainers)
{
    bench.onCall = [this](const std::string& call) { heard.calls.push_back(call); };
    bench.onPrinted = [this](const std::string& line) { heard.printed.push_back(line); };
}

DesktopSession::~DesktopSession()
{
    bench.onCall = nullptr;
    bench.onPrinted = nullptr;
}

void DesktopSession::Idle()
{
    const std::size_t before = bench.Passes();
    while (bench.Passes() == before)
    {
        if (juce::MessageManager::getInstance()->hasStopMessageBeenSent())
            throw std::runtime_error("the desktop has been closed");
        if (!DispatchJuceMessages())
            std::this_thread::sleep_for(user::waits::betweenPasses);
    }
}

juce::Component& DesktopSession::component(const char* id) const
{
    juce::Component* const found = find(window, id);
    if (found == nullptr)
        throw std::logic_error(std::string("there is no component ") + id);
    return *found;
}

user::Area DesktopSession::PanelArea() const
{
    return containers.AreaOnScreen().value_or(areaOf(component("dock")));
}

user::Place DesktopSession::HostPlace() const
{
    // In the status bar.
    const user::Area all = areaOf(window);
    return {all.Middle().x, all.y + all.height - 12};
}

void DesktopSession::ResizePanel(int, int)
{
    throw std::runtime_error("the panel is as large as the desktop's dock");
}

void DesktopSession::require(const std::function<bool()>& condition, const std::string& otherwise)
{
    if (!IdleUntil(condition))
        throw std::runtime_error(otherwise);
}

user::Place DesktopSession::PlaceIn(const char* componentId, user::Place place) const
{
    const user::Area area = areaOf(component(componentId));
    return user::Place{area.x, area.y} + place;
}

bool DesktopSession::hasKeyboard()
{
    const auto own = reinterpret_cast<unsigned long>(window.getPeer()->getNativeHandle());
    return hands.focusedWindow() == own && juce::Component::getCurrentlyFocusedComponent() != nullptr;
}

void DesktopSession::AwaitKeyboard()
{
    require([this] { return hasKeyboard() || containers.HasFocus(); }, "nobody has the keyboard");
}

void DesktopSession::Choose(const std::string& menu, const std::string& entry)
{
    auto& bar = dynamic_cast<juce::MenuBarComponent&>(component("menus"));
    const int index = bar.getModel()->getMenuBarNames().indexOf(theme::Text(menu));
    if (index < 0)
        throw std::runtime_error("there is no menu " + menu);
    // A menu that opens before its window has the keyboard believes that nobody looks at it.
    if (!hasKeyboard())
        ClickHost();
    require([this] { return hasKeyboard(); }, "the desktop does not get the keyboard");
    int left = 0;
    for (int i = 0; i < index; ++i)
        left += bar.getLookAndFeel().getMenuBarItemWidth(bar, i, bar.getModel()->getMenuBarNames()[i]);
    (void)OpenMenu(PlaceIn("menus", {left + 10, bar.getHeight() / 2}));
    const int line = lineOf(bar.getModel()->getMenuForIndex(index, theme::Text(menu)), entry);
    const juce::Component* const open = juce::Component::getCurrentlyModalComponent();
    if (open == nullptr || line >= open->getNumChildComponents())
        throw std::runtime_error("the menu has closed by itself");
    ClickEntry(areaOf(*open->getChildComponent(line)).Middle());
}

void DesktopSession::TypeInto(const char* fieldId, const std::string& text)
{
    auto& field = dynamic_cast<juce::TextEditor&>(component(fieldId));
    require([&] { return field.isShowing() && field.hasKeyboardFocus(true) && hasKeyboard(); },
            std::string("the field \"") + fieldId + "\" does not get the keyboard");
    TypeText(text);
    require([&] { return field.getText() == theme::Text(text); },
            std::string("the field \"") + fieldId + "\" does not show what is typed");
}
} // namespace standin::desktop
