#pragma once
// What the generations of JUCE say in different words about fonts. Whoever links `juce` has it.

#include <juce_graphics/juce_graphics.h>

#include <cmath>

/// The default typeface, of the height in pixels by which Graphics::setFont takes it too.
inline juce::Font FontOfHeight(float height)
{
#if JUCE_MAJOR_VERSION < 8
    return juce::Font(height);
#else
    return juce::FontOptions(height).withMetricsKind(juce::TypefaceMetricsKind::legacy);
#endif
}

/// In pixels, rounded up.
inline int TextWidth(const juce::Font& font, const juce::String& text)
{
    juce::GlyphArrangement glyphs;
    glyphs.addLineOfText(font, text, 0.0f, 0.0f);
    return static_cast<int>(std::ceil(glyphs.getBoundingBox(0, -1, true).getWidth()));
}
