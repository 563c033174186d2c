#pragma once
// The right column: a tab strip with the plug-in's panel and a tab of the host's own, and below it the area
// that the panel's native view covers. The panel can also be in a window of its own.

#include "standin/desktop/model/Workbench.h"
#include "standin/desktop/views/Theme.h"
#include "standin/desktop/views/X11Containers.h"
#include "standin/script/record/Shown.h"

namespace standin::desktop
{
class DockView : public juce::Component
{
public:
    DockView(Workbench& owner, X11Containers& nativeViews);
    ~DockView() override;

    void Show(const script::Shown& now);
    /// Moves the native view to where the panel is now, and repaints the tabs if they have changed. Hooks
    /// of the plug-in open and close its panel too.
    void Follow();

    void paint(juce::Graphics&) override;
    void mouseDown(const juce::MouseEvent&) override;

private:
    class Floating;

    juce::Rectangle<int> panelTab() const;
    juce::Rectangle<int> otherTab() const;
    juce::Rectangle<int> closeMark() const;
    juce::Rectangle<int> undockMark() const;
    void paintTab(juce::Graphics&, juce::Rectangle<int> area, const juce::String& name, bool isFront) const;
    void paintMarks(juce::Graphics&) const;
    void paintInfo(juce::Graphics&, juce::Rectangle<int> area) const;
    void placeNativeView(const juce::Component& around, int fromTop);

    Workbench& bench;
    X11Containers& containers;
    script::Shown shown;
    std::unique_ptr<Floating> floating;
    PanelPlace place = PanelPlace::closed;
    bool isInFront = false;
    unsigned long lastParent = 0;
    juce::Rectangle<int> lastArea;
};
} // namespace standin::desktop
