#include "standin/desktop/views/DesktopWindow.h"

namespace standin::desktop
{
DesktopWindow::DesktopWindow(Workbench& bench, X11Containers& containers, juce::Rectangle<int> bounds)
    : DocumentWindow("Stand-in Host", theme::gap, DocumentWindow::allButtons), view(bench, containers)
{
    setUsingNativeTitleBar(true);
    if (const auto* display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay())
        bounds = bounds.constrainedWithin(display->userArea);
    view.setSize(bounds.getWidth(), bounds.getHeight());
    setContentNonOwned(&view, true);
    setResizable(true, false);
    setResizeLimits(960, 620, 8000, 8000);
    setTopLeftPosition(bounds.getPosition());
    setVisible(true);
    view.grabKeyboardFocus();
}
} // namespace standin::desktop
