#pragma once
// On macOS the system offers a key to all views of a window first, and if none uses it, to the view with the
// keyboard. JUCE delivers the key to its components each time. This makes each key of an event act once.

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>
#include <vector>

class KeyDeliveries
{
public:
    /// The system begins to deliver its next event. If this is never called, every delivery is a key press.
    void startEvent();

    /// Calls `act` for the first delivery of the key. Another one in the same event gets the same answer.
    bool once(const juce::KeyPress&, const std::function<bool()>& act);

private:
    struct Answered
    {
        juce::KeyPress key;
        bool isUsed;
    };

    bool isToldOfEvents = false;
    std::vector<Answered> answered; ///< in this event
};
