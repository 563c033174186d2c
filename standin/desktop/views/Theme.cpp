#include "standin/desktop/views/Theme.h"

#include <JuceText.h>

namespace standin::desktop::theme
{
juce::Font Body() { return FontOfHeight(14.5f); }
juce::Font Heading() { return FontOfHeight(13.5f).boldened(); }
juce::Font Small() { return FontOfHeight(13.0f); }

juce::Font Mono()
{
    juce::Font font = Small();
    font.setTypefaceName(juce::Font::getDefaultMonospacedFontName());
    return font;
}

juce::String Text(const std::string& bytes)
{
    const int size = static_cast<int>(bytes.size());
    if (juce::CharPointer_UTF8::isValidString(bytes.data(), size))
        return juce::String::fromUTF8(bytes.data(), size);
    juce::String shown;
    for (const char c : bytes)
        shown += juce::String::charToString(static_cast<juce::juce_wchar>(static_cast<unsigned char>(c)));
    return shown;
}

void PaintHeader(juce::Graphics& g, juce::Rectangle<int> area, const juce::String& heading,
                 const juce::String& aside)
{
    g.setColour(header);
    g.fillRect(area);
    const auto inner = area.reduced(margin, 0);
    PaintText(g, heading, inner, strong, Heading());
    if (aside.isEmpty())
        return;
    const int used = TextWidth(Heading(), heading) + 2 * margin;
    PaintText(g, aside, inner.withTrimmedLeft(used), dim, Small(), juce::Justification::centredRight);
}

void PaintText(juce::Graphics& g, const juce::String& text, juce::Rectangle<int> area, juce::Colour colour,
               const juce::Font& font, juce::Justification where)
{
    g.setColour(colour);
    g.setFont(font);
    g.drawText(text, area, where, true);
}

Look::Look()
{
    auto scheme = getDarkColourScheme();
    using UI = ColourScheme::UIColour;
    scheme.setUIColour(UI::windowBackground, surface);
    scheme.setUIColour(UI::widgetBackground, gap);
    scheme.setUIColour(UI::menuBackground, header);
    scheme.setUIColour(UI::outline, line);
    scheme.setUIColour(UI::defaultText, ink);
    scheme.setUIColour(UI::defaultFill, faint);
    scheme.setUIColour(UI::highlightedText, strong);
    scheme.setUIColour(UI::highlightedFill, selection);
    scheme.setUIColour(UI::menuText, ink);
    setColourScheme(scheme);
    setColour(juce::TextEditor::focusedOutlineColourId, accent);
    setColour(juce::TextEditor::outlineColourId, line);
    setColour(juce::TextEditor::highlightColourId, accent.withAlpha(0.45f));
    setColour(juce::CaretComponent::caretColourId, accent);
    setColour(juce::ListBox::backgroundColourId, surface);
    setColour(juce::ScrollBar::thumbColourId, faint);
    setColour(juce::PopupMenu::highlightedBackgroundColourId, selection);
    setColour(juce::TextButton::buttonColourId, header.brighter(0.1f));
    setColour(juce::TextButton::buttonOnColourId, selection);
    setColour(juce::TextButton::textColourOffId, dim);
    setColour(juce::TextButton::textColourOnId, strong);
    setColour(juce::ComboBox::outlineColourId, line);
}

void Look::drawMenuBarBackground(juce::Graphics& g, int width, int height, bool, juce::MenuBarComponent&)
{
    g.setColour(header);
    g.fillRect(0, 0, width, height);
}

void Look::drawMenuBarItem(juce::Graphics& g, int width, int height, int, const juce::String& itemText,
                           bool isMouseOverItem, bool isMenuOpen, bool, juce::MenuBarComponent&)
{
    if (isMouseOverItem || isMenuOpen)
    {
        g.setColour(selection);
        g.fillRect(0, 0, width, height);
    }
    PaintText(g, itemText, {0, 0, width, height}, ink, Body(), juce::Justification::centred);
}

int Look::getMenuBarItemWidth(juce::MenuBarComponent&, int, const juce::String& itemText)
{
    return TextWidth(Body(), itemText) + 2 * margin + 4;
}

void Look::drawButtonBackground(juce::Graphics& g, juce::Button& button, const juce::Colour& colour,
                                bool isOver, bool isDown)
{
    const auto area = button.getLocalBounds().toFloat().reduced(0.5f);
    g.setColour(isDown ? colour.darker(0.2f) : isOver ? colour.brighter(0.1f) : colour);
    g.fillRoundedRectangle(area, 2.0f);
    g.setColour(line);
    g.drawRoundedRectangle(area, 2.0f, 1.0f);
}

void Look::drawDocumentWindowTitleBar(juce::DocumentWindow& window, juce::Graphics& g, int width, int height,
                                      int, int, const juce::Image*, bool)
{
    PaintHeader(g, {0, 0, width, height}, window.getName());
}

/// A window of ours has a close button and no other.
juce::Button* Look::createDocumentWindowButton(int)
{
    juce::Path cross;
    cross.addLineSegment({0.0f, 0.0f, 1.0f, 1.0f}, 0.16f);
    cross.addLineSegment({0.0f, 1.0f, 1.0f, 0.0f}, 0.16f);
    auto* button = new juce::ShapeButton("close", dim, strong, strong);
    button->setShape(cross, false, true, false);
    button->setBorderSize(juce::BorderSize<int>(9));
    return button;
}

void Look::drawPopupMenuBackground(juce::Graphics& g, int width, int height)
{
    g.fillAll(header);
    g.setColour(line);
    g.drawRect(0, 0, width, height);
}
} // namespace standin::desktop::theme
