#include "tree/NameText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
void expectBytesSurvive(const std::string& bytes)
{
    const juce::String text = TextFromBytes(bytes);
    EXPECT_EQ(BytesFromText(text), bytes);
    EXPECT_TRUE(
        juce::CharPointer_UTF8::isValidString(text.toRawUTF8(), static_cast<int>(text.getNumBytesAsUTF8())));
}
} // namespace

TEST(NameText, KeepsValidUtf8AsItIs)
{
    for (const std::string bytes : {"", "plain", "gr\xc3\xbc\xc3\x9f", "\xe2\x82\xac", "\xf0\x9f\x98\x80",
                                    "\xef\xbb\xbf"
                                    "bom"})
    {
        EXPECT_EQ(TextFromBytes(bytes).toStdString(), bytes);
        expectBytesSurvive(bytes);
    }
}

TEST(NameText, KeepsTheFirstAndLastOfEachLength)
{
    for (const std::string bytes :
         {"\x01", "\x7f", "\xc2\x80", "\xdf\xbf", "\xe0\xa0\x80", "\xed\x9f\xbf", "\xee\x80\x80",
          "\xef\xbf\xbf", "\xf0\x90\x80\x80", "\xf4\x8f\xb7\xbf", "\xf4\x8f\xbc\x80", "\xf4\x8f\xbf\xbf"})
    {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(TextFromBytes(bytes).length(), 1);
        EXPECT_EQ(TextFromBytes(bytes + "\xff").length(), 2);
        EXPECT_EQ(BytesFromText(TextFromBytes(bytes + "\xff")), bytes + "\xff");
        EXPECT_EQ(EditableText(TextFromBytes(bytes)).toStdString(), bytes);
        expectBytesSurvive(bytes);
    }
}

TEST(NameText, EscapesEachByteThatIsNotText)
{
    for (const std::string bytes :
         {"\xed\xa0\x80", "\xed\xbf\xbf", "\xe0\x9f\xbf", "\xf4\x90\x80\x80", "\xf0\x8f\xbf\xbf",
          "\xf4\x8f\xb8\x80", "\xf4\x8f\xbb\xbf", "\xc1\xbf", "\x84\x80\x80\x80"})
        EXPECT_EQ(TextFromBytes(bytes).length(), static_cast<int>(bytes.size())) << bytes;
}

TEST(NameText, KeepsEverySingleByte)
{
    for (int byte = 0; byte < 256; ++byte)
        expectBytesSurvive(std::string(1, static_cast<char>(byte)));
}

TEST(NameText, KeepsEveryPairOfBytes)
{
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second)
            ASSERT_EQ(BytesFromText(TextFromBytes({static_cast<char>(first), static_cast<char>(second)})),
                      std::string({static_cast<char>(first), static_cast<char>(second)}));
}

TEST(NameText, KeepsBytesThatAreNotText)
{
    const std::vector<std::string> names = {
        "\xff",                             // no lead byte
        "a\x80",                            // a lone continuation
        "\xc0\xaf",                         // overlong
        "\xe0\x80\xaf",                     // overlong
        "\xf0\x80\x80\xaf",                 // overlong
        "\xed\xa0\x80",                     // a lone surrogate
        "\xed\xb0\x80",                     // the other lone surrogate
        "\xf4\x90\x80\x80",                 // after the last character
        "\xf5\x80\x80\x80",                 // no lead byte
        "cut \xe2\x82",                     // cut short
        "\xe2(\xa1",                        // broken in the middle
        "\xf4\x8f\xb8\x80\xf4\x8f\xbb\xbf", // the characters that escapes are made of
        std::string("a\0b\0", 4),
    };
    for (const auto& name : names)
        expectBytesSurvive(name);
}

TEST(NameText, KeepsNamesThatDifferApart)
{
    EXPECT_NE(TextFromBytes("\xff"), TextFromBytes("\xfe"));
    EXPECT_NE(TextFromBytes("\xff"), TextFromBytes(BytesFromText(TextFromBytes("\xff")) + "x"));
    // The escape of ff, given as bytes, is not the escape of ff.
    EXPECT_NE(TextFromBytes(TextFromBytes("\xff").toStdString()), TextFromBytes("\xff"));
}

TEST(NameText, ShowsNonTextAsTheReplacementCharacter)
{
    EXPECT_EQ(ShownText(TextFromBytes("a\xff"
                                      "b"))
                  .toStdString(),
              "a\xef\xbf\xbd"
              "b");
    EXPECT_EQ(ShownText(TextFromBytes(std::string(1, '\0'))).toStdString(), "\xef\xbf\xbd");
    EXPECT_EQ(ShownText(TextFromBytes("gr\xc3\xbc\xc3\x9f")).toStdString(), "gr\xc3\xbc\xc3\x9f");
}

TEST(NameText, ShowsNoMoreThanARowCanHold)
{
    EXPECT_EQ(ShownText(TextFromBytes(std::string(1000000, 'a'))).length(), 4000);
    EXPECT_EQ(ShownText(TextFromBytes(std::string(4000, 'a'))).length(), 4000);
}

TEST(NameText, EditsLineEndsAsBlanks)
{
    EXPECT_EQ(EditableText(TextFromBytes("a\r\nb\nc")).toStdString(), "a  b c");
    EXPECT_EQ(EditableText(TextFromBytes(std::string(100000, 'a'))).length(), 32000);
}

TEST(NameText, TypedCharactersAreUtf8UnlessEscaped)
{
    const auto typed = [](const char* utf8) { return juce::String(juce::CharPointer_UTF8(utf8)); };
    EXPECT_EQ(BytesFromText(typed("\xf4\x8f\xb7\xbf")), "\xf4\x8f\xb7\xbf"); // U+10FDFF
    EXPECT_EQ(BytesFromText(typed("\xf4\x8f\xb9\xa1")), "a");                // U+10FE61
    EXPECT_EQ(BytesFromText(typed("\xf4\x8f\xbb\xbf")), "\xff");             // U+10FEFF
    EXPECT_EQ(BytesFromText(typed("\xf4\x8f\xbc\x80")), "\xf4\x8f\xbc\x80"); // U+10FF00
}
