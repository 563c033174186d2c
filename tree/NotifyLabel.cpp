#include "tree/NotifyLabel.h"

NotifyLabel::NotifyLabel(int timeoutInMs) : timeoutMs(timeoutInMs)
{
    addListener(this);
    setColour(juce::Label::textColourId, juce::Colours::black);
    setColour(juce::Label::backgroundColourId, juce::Colours::lightblue.withAlpha(0.8f));
    setColour(juce::Label::outlineColourId, juce::Colours::black);
}

NotifyLabel::~NotifyLabel() = default;

void NotifyLabel::paint(juce::Graphics& g)
{
    const auto area = getLocalBounds().toFloat();
    g.setColour(juce::Colours::lightblue.withAlpha(0.8f));
    g.fillRoundedRectangle(area, 2.0f);
    layout.draw(g, area);
}

// The label fits itself around its text and keeps its centre.
void NotifyLabel::resized()
{
    const int width = static_cast<int>(layout.getWidth()) + 5;
    const int height = static_cast<int>(layout.getHeight()) + 5;
    setBounds(getX() + (getWidth() - width) / 2, getY() + (getHeight() - height) / 2, width, height);
}

void NotifyLabel::labelTextChanged(juce::Label* label)
{
    setVisible(true);
    juce::AttributedString text(label->getText());
    text.setJustification(juce::Justification::centred);
    layout.createLayout(text, static_cast<float>(getParentWidth()));
    resized();
    startTimer(timeoutMs);
}

void NotifyLabel::timerCallback()
{
    setVisible(false);
    // An empty text here is why the same message can be shown a second time later.
    setText({}, juce::dontSendNotification);
    stopTimer();
}
