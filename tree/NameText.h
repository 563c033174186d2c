#pragma once
// Names come from the host as bytes of any kind, and the idle pass compares them byte by byte with what
// the tree gives back. JUCE's text is UTF-8 and breaks on bytes that are not. So each byte that is no
// part of valid UTF-8 travels as one private character, and comes back as the byte that it was.

#include <juce_core/juce_core.h>

#include <string>

/// Any bytes as valid text. Bytes in valid UTF-8 become the same text; a zero byte and every byte outside
/// valid UTF-8 become one private character each.
juce::String TextFromBytes(const std::string& bytes);

/// The bytes that `TextFromBytes` was given; the UTF-8 of any other text. Only the 256 private characters
/// that escapes are made of never come back as their UTF-8, also if a user types them: each is one byte.
std::string BytesFromText(const juce::String& text);

/// The text for the eye: private characters show as U+FFFD, and no more than the first few thousand
/// characters are kept, which is more than any row can show.
juce::String ShownText(const juce::String& text);

/// What a single-line editor can hold: line ends become blanks, and the length is limited.
juce::String EditableText(const juce::String& text);
