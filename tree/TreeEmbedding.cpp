// Where JUCE meets the platform: its start and end, and the widget's way into the host's container.

#include "tree/MenuLoop.h"
#include "tree/Tree.h"
#include "tree/ValueTreesDemo.h"
#include "tree/platform/Platform.h"

void JuceGlobalInit()
{
    MenuLoop::keepJuce();
    PrepareForJuce();
    juce::initialiseJuce_GUI();
}

void JuceGlobalShutDown()
{
    if (MenuLoop::isRunning())
        MenuLoop::endJuceAfterwards();
    else
        juce::shutdownJuce_GUI();
}

void addToDesktop(ValueTreesDemo* tree, void* embeddedView, int width, int height, void* nativeParent)
{
    EmbedView(*tree, embeddedView);
    tree->setBounds(0, 0, width, height);
    tree->setVisible(true);
    tree->addToDesktop(0, nativeParent);
}
