#pragma once
// A message on the panel. It shows itself when its text is set, and goes away by itself after a while.

#include <juce_gui_basics/juce_gui_basics.h>

class NotifyLabel : public juce::Label, public juce::Timer, public juce::Label::Listener
{
public:
    explicit NotifyLabel(int timeoutInMs);
    ~NotifyLabel() override;

    void paint(juce::Graphics&) override;
    void resized() override;
    void labelTextChanged(juce::Label*) override;
    void timerCallback() override;

private:
    int timeoutMs;
    juce::TextLayout layout;
};
