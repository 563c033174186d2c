#pragma once
// How the desktop looks: its colours, sizes and fonts, and the look of JUCE's own widgets. Dark and calm,
// with one accent; greys step by what lies in front of what.

#include <juce_gui_basics/juce_gui_basics.h>

namespace standin::desktop::theme
{
// The panel's own background is what the host tells plug-ins, so that the panel and the desktop are one.
const juce::Colour gap{0xff141414};
const juce::Colour surface{0xff232323};
const juce::Colour header{0xff2c2c2c};
const juce::Colour line{0xff363636};
const juce::Colour hover{0xff2d2d2d};
const juce::Colour selection{0xff3c4654};
const juce::Colour accent{0xff5a9ee6};
const juce::Colour ink{0xffcdcdcd};
const juce::Colour strong{0xffededed};
const juce::Colour dim{0xff8f8f8f};
const juce::Colour faint{0xff707070};
const juce::Colour warning{0xffe0b050};
const juce::Colour alarm{0xffe5746c};

constexpr int margin = 10;
constexpr int headerHeight = 28;
constexpr int rowHeight = 26;
constexpr int lineHeight = 20; ///< Of logs.
constexpr int split = 3;       ///< The gap between two areas.

juce::Font Body();
juce::Font Heading();
juce::Font Small();
juce::Font Mono();

/// Text of the stand-in, which is UTF-8 if it is well-formed and shown byte by byte if not.
juce::String Text(const std::string& bytes);

/// The title bar of an area: a heading, and something less important at its right.
void PaintHeader(juce::Graphics& g, juce::Rectangle<int> area, const juce::String& heading,
                 const juce::String& aside = {});
/// A line of text between left and right, shortened at its end if need be.
void PaintText(juce::Graphics& g, const juce::String& text, juce::Rectangle<int> area, juce::Colour colour,
               const juce::Font& font, juce::Justification where = juce::Justification::centredLeft);

class Look : public juce::LookAndFeel_V4
{
public:
    Look();
    void drawMenuBarBackground(juce::Graphics&, int width, int height, bool,
                               juce::MenuBarComponent&) override;
    void drawMenuBarItem(juce::Graphics&, int width, int height, int itemIndex, const juce::String& itemText,
                         bool isMouseOverItem, bool isMenuOpen, bool isMouseOverBar,
                         juce::MenuBarComponent&) override;
    juce::Font getMenuBarFont(juce::MenuBarComponent&, int, const juce::String&) override { return Body(); }
    int getMenuBarItemWidth(juce::MenuBarComponent&, int itemIndex, const juce::String& itemText) override;
    juce::Font getPopupMenuFont() override { return Body(); }
    void drawPopupMenuBackground(juce::Graphics&, int width, int height) override;
    void drawDocumentWindowTitleBar(juce::DocumentWindow&, juce::Graphics&, int width, int height, int, int,
                                    const juce::Image*, bool) override;
    juce::Button* createDocumentWindowButton(int) override;
    void drawButtonBackground(juce::Graphics&, juce::Button&, const juce::Colour&, bool isOver,
                              bool isDown) override;
    juce::Font getTextButtonFont(juce::TextButton&, int) override { return Small(); }
    int getDefaultScrollbarWidth() override { return 10; }
};
} // namespace standin::desktop::theme
