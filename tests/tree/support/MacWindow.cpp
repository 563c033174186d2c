#include "tests/tree/support/MacWindow.h"

#include "tests/tree/support/HeadlessPeer.h"
#include "tests/tree/support/Pump.h"
#include "tree/Tree.h"
#include "tree/TreeKeys.h"

#include <optional>
#include <utility>

namespace standin
{
/// JUCE's view, which is its peer's other half.
class MacView : public HeadlessPeer
{
public:
    MacView(juce::Component& shown, int flags, MacWindow& owner) : HeadlessPeer(shown, flags), window(owner)
    {
        window.view = this;
    }

    void* getNativeHandle() const override { return const_cast<MacView*>(this); }

    // ---- Focus

    bool isFocused() const override { return isFocusedPeer; }

    void grabFocus() override
    {
        window.isKey = true;
        window.makeFirstResponder(MacWindow::Responder::juceView);
        becomeFirstResponder();
    }

    void becomeFirstResponder()
    {
        if (isFocusedPeer)
            return;
        isFocusedPeer = true;
        handleFocusGain();
    }

    void resignFirstResponder()
    {
        if (!isFocusedPeer)
            return;
        isFocusedPeer = false;
        handleFocusLoss();
    }

    void resignKey() { resignFirstResponder(); }
    void becomeKey() { getComponent().repaint(); }

    // ---- Keys

    bool keyDown(const MacKey& key, int stamp) { return handleInInputContextOrComponent(key, stamp); }

    /// None if JUCE asks the views below its own.
    std::optional<bool> performKeyEquivalent(const MacKey& key, int stamp)
    {
        const bool isUsed = handleInInputContextOrComponent(key, stamp);
        if (window.generation == JuceGeneration::eight && !isUsed)
            return std::nullopt;
        return isUsed;
    }

    // ---- The mouse

    void mouse(juce::Point<int> place, juce::ModifierKeys buttons)
    {
        juce::ModifierKeys::currentModifiers = buttons;
        handleMouseEvent(juce::MouseInputSource::InputSourceType::mouse, place.toFloat(), buttons,
                         juce::MouseInputSource::defaultPressure, juce::MouseInputSource::defaultOrientation,
                         juce::Time::currentTimeMillis());
    }

private:
    bool handleInInputContextOrComponent(const MacKey& key, int stamp)
    {
        // The later generation knows an event that it has seen.
        const int before = std::exchange(lastSeen, stamp);
        if (window.generation == JuceGeneration::eight && before == stamp)
            return false;
        if (auto* target = findCurrentTextInputTarget())
            if (handleInInputContext(*target, key))
                return true;
        return redirectKeyDown(key);
    }

    /// The system's input context enters a text, and makes a command of every other key, which JUCE sends to
    /// the component.
    bool handleInInputContext(juce::TextInputTarget& target, const MacKey& key)
    {
        if (key.text < ' ' || key.text == 0x7f || key.modifiers.isCommandDown())
            return redirectKeyDown(key);
        target.setHighlightedRegion(target.getHighlightedRegion());
        target.insertTextAtCaret(juce::String::charToString(key.text));
        return true;
    }

    bool redirectKeyDown(const MacKey& key)
    {
        juce::ModifierKeys::currentModifiers = key.modifiers;
        bool isUsed = handleKeyUpOrDown(true);
        isUsed |= handleKeyPress(key.code, key.modifiers.isCommandDown() ? 0 : key.text);
        if (key.modifiers.isCommandDown())
            isUsed |= handleKeyUpOrDown(false);
        juce::ModifierKeys::currentModifiers = {};
        return isUsed || juce::Component::getCurrentlyModalComponent() != nullptr;
    }

    MacWindow& window;
    bool isFocusedPeer = false;
    int lastSeen = 0;
};

namespace
{
class PanelInMacWindow : public ValueTreesDemo
{
public:
    explicit PanelInMacWindow(MacWindow& owner) : ValueTreesDemo(false), window(owner) {}

    juce::ComponentPeer* createNewPeer(int styleFlags, void*) override
    {
        return new MacView(*this, styleFlags, window);
    }

private:
    MacWindow& window;
};
} // namespace

MacWindow::MacWindow(JuceGeneration juce) : panel(new PanelInMacWindow(*this)), generation(juce)
{
    addToDesktop(panel, nullptr, 400, 420, nullptr);
}

MacWindow::~MacWindow()
{
    ClearTree(panel);
    DeleteTreeWidget(panel);
}

void MacWindow::makeFirstResponder(Responder responder)
{
    const Responder before = std::exchange(firstResponder, responder);
    if (before == responder)
        return;
    if (before == Responder::juceView)
        view->resignFirstResponder();
    if (responder == Responder::juceView)
        view->becomeFirstResponder();
}

void MacWindow::clickInside(juce::Point<int> place)
{
    eventFocus = true;
    AnnounceTreeEvent(view, KeyboardOwner::panel);
    // The surface covers JUCE's view, and is willing. It hands the click up to that view, which takes it
    // later.
    makeFirstResponder(Responder::surface);
    view->mouse(place, {});
    view->mouse(place, juce::ModifierKeys::leftButtonModifier);
    view->mouse(place, {});
    pump();
}

void MacWindow::clickElsewhere(Other other)
{
    eventFocus = false;
    AnnounceTreeEvent(view, KeyboardOwner::host);
    if (other == Other::takesFirstResponder)
        makeFirstResponder(Responder::hostView);
}

void MacWindow::loseKeyStatus()
{
    isKey = false;
    view->resignKey();
}

void MacWindow::gainKeyStatus()
{
    isKey = true;
    view->becomeKey();
}

KeyEnd MacWindow::press(const MacKey& key)
{
    const KeyEnd end = send(key);
    pump();
    return end;
}

KeyEnd MacWindow::send(const MacKey& key)
{
    const int stamp = ++eventsSoFar;
    if (!isKey)
        return KeyEnd::host;
    AnnounceTreeEvent(view, eventFocus ? KeyboardOwner::panel : KeyboardOwner::host);
    // From the surface up the responder chain only.
    if (eventFocus && key.isOfPanel)
        return view->keyDown(key, stamp) ? KeyEnd::panel : KeyEnd::host;
    if (key.isEquivalent)
    {
        const std::optional<bool> isUsed = view->performKeyEquivalent(key, stamp);
        if (!isUsed.has_value())
            return KeyEnd::surface;
        if (*isUsed)
            return KeyEnd::panel;
    }
    // No entry of the host's menu has it. The surface hands it up to JUCE's view.
    return firstResponder != Responder::hostView && view->keyDown(key, stamp) ? KeyEnd::panel : KeyEnd::host;
}
} // namespace standin
