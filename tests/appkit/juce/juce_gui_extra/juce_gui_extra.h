#pragma once
// Stands for the one class of JUCE that exists only on macOS, as its documentation declares it.

#include <juce_gui_basics/juce_gui_basics.h>

namespace juce
{
/// A component that shows a native view.
class NSViewComponent : public Component
{
public:
    NSViewComponent();
    ~NSViewComponent() override;

    /// The component retains the view, an `NSView*`, until it is given another or deleted.
    void setView(void* nativeView);
    void* getView() const;
    void resizeToFitView();

    void paint(Graphics&) override;

private:
    void* view;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR(NSViewComponent)
};
} // namespace juce
