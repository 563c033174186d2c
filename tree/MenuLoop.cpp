#include "tree/MenuLoop.h"

#include "tree/platform/Platform.h"

#include <utility>

namespace
{
// The panel may be deleted while its menu is open, so it cannot hold these.
int loopsRunning = 0;
bool isEndDue = false;

void endJuce()
{
    if (loopsRunning == 0 && std::exchange(isEndDue, false))
        juce::shutdownJuce_GUI();
}
} // namespace

MenuLoop::MenuLoop() { ++loopsRunning; }

MenuLoop::~MenuLoop()
{
    // JUCE is still handling the click that opened the menu.
    if (--loopsRunning == 0 && isEndDue)
        CallFromHostLoop(&endJuce);
}

bool MenuLoop::isRunning() { return loopsRunning > 0; }

void MenuLoop::endJuceAfterwards()
{
    isEndDue = true;
    (void)juce::PopupMenu::dismissAllActiveMenus();
}

void MenuLoop::keepJuce() { isEndDue = false; }
