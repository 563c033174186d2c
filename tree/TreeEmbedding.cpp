// Where JUCE meets the platform: its start and end, and the widget's way into the host's container.

#include "tree/PanelBase.h"
#include "tree/Tree.h"
#include "tree/ValueTreesDemo.h"

#if JUCE_LINUX
#include <X11/Xlib.h>

namespace
{
// JUCE looks these names up without making them, and goes on with none. A server that no window manager
// has run on answers that with an error, which ends the host. So they are made here, before JUCE looks.
void makeWindowAtoms()
{
    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr)
        return;
    for (const char* name : {"WM_PROTOCOLS", "WM_STATE"})
        (void)XInternAtom(display, name, False);
    (void)XCloseDisplay(display);
}
} // namespace
#endif

void JuceGlobalInit()
{
#if JUCE_LINUX
    makeWindowAtoms();
#endif
    juce::initialiseJuce_GUI();
}

void JuceGlobalShutDown() { juce::shutdownJuce_GUI(); }

void addToDesktop(ValueTreesDemo* tree, [[maybe_unused]] void* embeddedView, int width, int height,
                  void* nativeParent)
{
#if JUCE_MAC
    tree->setView(embeddedView);
#endif
    tree->setBounds(0, 0, width, height);
    tree->setVisible(true);
    tree->addToDesktop(0, nativeParent);
}
