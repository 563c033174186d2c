#pragma once
// The flat text button of the panel's toolbar. It acts on the press, so that a menu opens at once.

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

class SimpleButton : public juce::TextButton
{
public:
    SimpleButton();
    ~SimpleButton() override;

    using juce::TextButton::clicked;

    /// Calls `onClick`, and throws std::bad_function_call if it is empty.
    void clicked() override;
    void paintButton(juce::Graphics&, bool isMouseOver, bool isDown) override;

    std::function<void(juce::Button*)> onClick;
};
