#include "standin/desktop/views/Prompt.h"

namespace standin::desktop
{
Prompt::Prompt()
{
    editor.setComponentID("answer");
    editor.setFont(theme::Body());
    editor.onReturnKey = [this] { finish(); };
    editor.onEscapeKey = [this] { close(); };
    take.onClick = [this] { finish(); };
    cancel.onClick = [this] { close(); };
    for (juce::Component* child :
         {static_cast<juce::Component*>(&editor), static_cast<juce::Component*>(&take),
          static_cast<juce::Component*>(&cancel)})
        addAndMakeVisible(child);
}

void Prompt::Ask(const juce::String& asked, const juce::String& button,
                 std::function<void(const juce::String&)> taken)
{
    question = asked;
    answer = std::move(taken);
    take.setButtonText(button);
    editor.setText({}, false);
    setVisible(true);
    toFront(false);
    editor.grabKeyboardFocus();
    repaint();
}

void Prompt::finish()
{
    const juce::String text = editor.getText();
    close();
    answer(text);
}

void Prompt::close()
{
    setVisible(false);
    if (auto* around = getParentComponent())
        around->grabKeyboardFocus();
}

void Prompt::resized()
{
    auto area = getLocalBounds().reduced(14).withTrimmedTop(26);
    editor.setBounds(area.removeFromTop(28));
    area.removeFromTop(10);
    auto buttons = area.removeFromTop(26);
    take.setBounds(buttons.removeFromRight(96));
    buttons.removeFromRight(8);
    cancel.setBounds(buttons.removeFromRight(96));
}

void Prompt::paint(juce::Graphics& g)
{
    g.fillAll(theme::header);
    g.setColour(theme::faint);
    g.drawRect(getLocalBounds());
    theme::PaintText(g, question, getLocalBounds().reduced(14, 8).withHeight(24), theme::strong,
                     theme::Body());
}
} // namespace standin::desktop
