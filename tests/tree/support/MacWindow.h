#pragma once
// The panel in a macOS window: a small model of the path that a key or a click takes. An event first passes
// the panel's surface, which monitors all events, then goes through the window to JUCE's view, which models
// either generation of JUCE, and from the view to the real panel. What the view does with an event follows
// JUCE's sources; what the window does follows the system's documentation.

#include "tree/ValueTreesDemo.h"

#include <juce_gui_basics/juce_gui_basics.h>

#include <ostream>
#include <string>
#include <vector>

namespace standin
{
enum class JuceGeneration
{
    seven, ///< 7.0.5
    eight  ///< 8.0.12
};

/// Where a key ends.
enum class KeyEnd
{
    panel,
    surface, ///< Claimed as a key equivalent, with nothing done.
    host
};

inline std::ostream& operator<<(std::ostream& out, KeyEnd end)
{
    static const char* const names[] = {"panel", "surface", "host"};
    return out << names[static_cast<int>(end)];
}

struct MacKey
{
    std::string name;
    int code;
    juce::juce_wchar text;
    juce::ModifierKeys modifiers;
    /// Whether the window offers it to its views before it sends it to the first responder: the system does
    /// so with a key that Command is held with, and with keys that write nothing.
    bool isEquivalent;
    /// One of those that the surface keeps from the host while the panel has the keyboard.
    bool isOfPanel;
};

class MacView;

class MacWindow
{
public:
    explicit MacWindow(JuceGeneration);
    ~MacWindow();
    MacWindow(const MacWindow&) = delete;
    MacWindow& operator=(const MacWindow&) = delete;

    /// The window is the key window, and there was no click yet.
    ValueTreesDemo* panel;

    /// A left click into the panel, in pixels of it, from the press to the release.
    void clickInside(juce::Point<int>);

    enum class Other
    {
        takesFirstResponder,
        leavesFirstResponder
    };
    /// A click on a view of the host's in the same window.
    void clickElsewhere(Other);

    void loseKeyStatus();
    void gainKeyStatus();

    /// A press of the key: one event.
    KeyEnd press(const MacKey&);

private:
    friend class MacView;

    enum class Responder
    {
        hostView,
        juceView,
        surface
    };

    KeyEnd send(const MacKey&);
    void makeFirstResponder(Responder);

    MacView* view = nullptr;
    JuceGeneration generation;
    Responder firstResponder = Responder::hostView;
    bool isKey = true;
    bool eventFocus = false; ///< The surface's own: the last click was inside.
    int eventsSoFar = 0;     ///< Each event's time stamp.
};
} // namespace standin
