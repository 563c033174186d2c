#include "tree/SimpleButton.h"

#include "host/PrintLine.h"

SimpleButton::SimpleButton()
{
    setTriggeredOnMouseDown(true);
    // The panel's keys are all the tree's. A button that held the focus would keep them from it, and
    // would take Return for a click.
    setWantsKeyboardFocus(false);
}

SimpleButton::~SimpleButton() = default;

void SimpleButton::clicked()
{
    PrintLine("button clicked");
    // A copy, since the click may end with the deletion of this button.
    const std::function<void(juce::Button*)> call = onClick;
    call(this);
}

void SimpleButton::paintButton(juce::Graphics& g, bool, bool)
{
    g.setColour(juce::Colour::greyLevel(0.1f));
    g.fillAll();
    g.setColour(juce::Colour::greyLevel(0.8f));
    g.drawFittedText(getButtonText(), 5, 4, getWidth() - 10, getHeight() - 8, juce::Justification::left, 2,
                     0.0f);
}
