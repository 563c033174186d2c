#pragma once
// A menu that blocks: JUCE runs an event loop inside the call that opens it, until the menu closes. JUCE must
// not be shut down while such a call is on the stack.

class MenuLoop
{
public:
    MenuLoop();

    /// The last one schedules a shutdown of JUCE that has been put off.
    ~MenuLoop();

    MenuLoop(const MenuLoop&) = delete;
    MenuLoop& operator=(const MenuLoop&) = delete;

    static bool isRunning();

    /// Dismisses every menu, and puts off the shutdown of JUCE until the host's own loop runs again.
    static void endJuceAfterwards();

    /// Drops a shutdown that has been put off.
    static void keepJuce();
};
