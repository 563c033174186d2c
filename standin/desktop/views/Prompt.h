#pragma once
// Asks for one line of text over the middle of the window, where no native view covers it.

#include "standin/desktop/views/Field.h"
#include "standin/desktop/views/Theme.h"

namespace standin::desktop
{
class Prompt : public juce::Component
{
public:
    Prompt();

    void Ask(const juce::String& question, const juce::String& button,
             std::function<void(const juce::String&)> taken);
    void paint(juce::Graphics&) override;
    void resized() override;

    static constexpr int width = 360;
    static constexpr int height = 116;

private:
    void finish();
    void close();

    juce::String question;
    std::function<void(const juce::String&)> answer;
    Field editor;
    juce::TextButton take;
    juce::TextButton cancel{"Cancel"};
};
} // namespace standin::desktop
