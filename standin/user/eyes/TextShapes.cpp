#include "standin/user/eyes/TextShapes.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <stdexcept>

namespace standin::user
{
namespace
{
constexpr int letterWidth = 8;   ///< Columns in which a wrong letter shows.
constexpr double leastInk = 4;   ///< Of so many columns; below this there is nothing to compare.
constexpr int lineRoom = 4;      ///< Pixels above the ascent and below the descent of what is drawn.
constexpr int endOfCutText = 24; ///< What is cut off ends in three dots.

std::vector<char32_t> charactersOf(const std::string& text)
{
    std::vector<char32_t> characters;
    for (std::size_t i = 0; i < text.size();)
    {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : 4;
        char32_t character = length == 1 ? lead : lead & (0x7fu >> length);
        for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
            character = (character << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3f);
        characters.push_back(character);
        i += length;
    }
    return characters;
}

int channel(std::uint32_t pixel, int shift) { return static_cast<int>((pixel >> shift) & 0xff); }

/// How far the pixel has gone from the paper's colour to the ink's.
float coverOf(std::uint32_t pixel, std::uint32_t ink, std::uint32_t paper)
{
    double along = 0;
    double length = 0;
    for (const int shift : {16, 8, 0})
    {
        const double way = channel(ink, shift) - channel(paper, shift);
        along += way * (channel(pixel, shift) - channel(paper, shift));
        length += way * way;
    }
    return length == 0 ? 0 : static_cast<float>(std::clamp(along / length, 0.0, 1.0));
}

/// The greatest difference among stretches of a letter's width.
double worstLetter(const std::vector<double>& unlike, const std::vector<double>& ink)
{
    double worst = 0;
    for (std::size_t x = 0; x + letterWidth <= ink.size(); ++x)
    {
        const auto at = static_cast<std::ptrdiff_t>(x);
        const double all = std::accumulate(ink.begin() + at, ink.begin() + at + letterWidth, 0.0);
        if (all < leastInk)
            continue;
        const double wrong = std::accumulate(unlike.begin() + at, unlike.begin() + at + letterWidth, 0.0);
        worst = std::max(worst, wrong / all);
    }
    return worst;
}

/// Fills `row` with a row of the ink, and with nothing where there is none.
void copyRow(const Ink& ink, int y, std::vector<float>& row)
{
    const bool isInside = y >= 0 && y < ink.height;
    const auto count = isInside ? std::min(static_cast<std::size_t>(ink.width), row.size()) : 0;
    const auto begin = ink.cover.begin() + (isInside ? static_cast<std::ptrdiff_t>(y) * ink.width : 0);
    const auto end = std::copy_n(begin, count, row.begin());
    std::fill(end, row.end(), 0.0f);
}

void addBitmap(Ink& ink, const FT_Bitmap& bitmap, int left, int top)
{
    for (int y = 0; y < static_cast<int>(bitmap.rows); ++y)
        for (int x = 0; x < static_cast<int>(bitmap.width); ++x)
        {
            if (left + x < 0 || left + x >= ink.width || top + y < 0 || top + y >= ink.height)
                continue;
            const auto place = static_cast<std::size_t>(top + y) * static_cast<std::size_t>(ink.width) +
                               static_cast<std::size_t>(left + x);
            const auto value = static_cast<float>(bitmap.buffer[y * bitmap.pitch + x]) / 255;
            ink.cover[place] = std::min(1.0f, ink.cover[place] + value);
        }
}
} // namespace

Ink InkIn(const ScreenPicture& picture, int x, int y, int width, int height, std::uint32_t ink,
          std::uint32_t paper)
{
    Ink result;
    result.width = std::max(0, std::min(width, picture.width - x));
    result.height = std::max(0, std::min(height, picture.height - y));
    for (int row = 0; row < result.height; ++row)
        for (int column = 0; column < result.width; ++column)
            result.cover.push_back(coverOf(picture.at(x + column, y + row), ink, paper));
    return result;
}

struct TextShapes::Font
{
    FT_Library library = nullptr;
    FT_Face face = nullptr;

    Font() = default;
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;
    ~Font()
    {
        (void)FT_Done_Face(face);
        (void)FT_Done_FreeType(library);
    }

    void setHeight(double height) const
    {
        const double perEm = height * face->units_per_EM / (face->ascender - face->descender);
        (void)FT_Set_Char_Size(face, 0, static_cast<FT_F26Dot6>(std::lround(perEm * 64)), 72, 72);
    }

    double advance(FT_UInt glyph) const
    {
        (void)FT_Load_Glyph(face, glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP);
        return static_cast<double>(face->glyph->linearHoriAdvance) / 65536;
    }

    double kerning(FT_UInt before, FT_UInt glyph) const
    {
        FT_Vector way{};
        (void)FT_Get_Kerning(face, before, glyph, FT_KERNING_UNFITTED, &way);
        return static_cast<double>(way.x) / 64;
    }

    double ascent(double height) const
    {
        return height * face->ascender / (face->ascender - face->descender);
    }

    /// Calls `put` with each glyph and where it begins; gives where the text ends.
    template <class Put>
    double walk(const std::string& text, double x, Put put) const
    {
        FT_UInt before = 0;
        for (const char32_t character : charactersOf(text))
        {
            const FT_UInt glyph = FT_Get_Char_Index(face, character);
            x += before != 0 ? kerning(before, glyph) : 0;
            const double next = x + advance(glyph);
            put(x);
            x = next;
            before = glyph;
        }
        return x;
    }
};

TextShapes::TextShapes(const std::string& fontFile) : font(new Font)
{
    if (FT_Init_FreeType(&font->library) != 0 ||
        FT_New_Face(font->library, fontFile.c_str(), 0, &font->face) != 0)
        throw std::runtime_error(fontFile + " is no font: the panel cannot be read without it");
}

TextShapes::~TextShapes() = default;

double TextShapes::WidthOf(const std::string& text, double height)
{
    font->setHeight(height);
    return font->walk(text, 0, [](double) {});
}

const Ink& TextShapes::Draw(const std::string& text, double height, double x)
{
    const std::pair<int, int> sizes(static_cast<int>(std::lround(height * 100)),
                                    static_cast<int>(std::lround(x * 100)));
    const auto [entry, isNew] = drawn.try_emplace({text, sizes});
    Ink& ink = entry->second;
    if (!isNew)
        return ink;

    font->setHeight(height);
    ink.width = static_cast<int>(std::ceil(WidthOf(text, height) + x)) + 2;
    ink.height = static_cast<int>(std::ceil(height)) + 2 * lineRoom;
    ink.cover.resize(static_cast<std::size_t>(ink.width) * static_cast<std::size_t>(ink.height));
    const int baseline = lineRoom + static_cast<int>(std::lround(font->ascent(height)));
    (void)font->walk(text, x,
                     [&](double at)
                     {
                         const double whole = std::floor(at);
                         FT_GlyphSlot slot = font->face->glyph;
                         FT_Outline_Translate(&slot->outline, std::lround((at - whole) * 64), 0);
                         if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) == 0)
                             addBitmap(ink, slot->bitmap, static_cast<int>(whole) + slot->bitmap_left,
                                       baseline - slot->bitmap_top);
                     });
    return ink;
}

double TextShapes::Difference(const Ink& seen, const Ink& drawnInk, int down, TooLong tooLong)
{
    const bool isLonger = drawnInk.width > seen.width;
    const bool isCut = isLonger && tooLong == TooLong::isCut;
    const auto columns = static_cast<std::size_t>(
        std::max(0, isCut ? seen.width - endOfCutText : std::max(seen.width, drawnInk.width)));
    std::vector<double> unlike(columns);
    std::vector<double> ink(columns);
    std::vector<float> a(columns);
    std::vector<float> b(columns);
    for (int y = 0; y < seen.height; ++y)
    {
        copyRow(seen, y, a);
        copyRow(drawnInk, y - down, b);
        for (std::size_t x = 0; x < columns; ++x)
        {
            unlike[x] += std::abs(a[x] - b[x]);
            ink[x] += std::max(a[x], b[x]);
        }
    }
    const double all = std::accumulate(ink.begin(), ink.end(), 0.0);
    const double total = all == 0 ? 0 : std::accumulate(unlike.begin(), unlike.end(), 0.0) / all;
    return std::max(total, worstLetter(unlike, ink) / 2);
}

double TextShapes::bestDifference(const Ink& seen, const std::string& text, const TextPlace& place)
{
    constexpr double step = 0.25;
    double best = 1;
    const auto steps = std::lround(2 * place.slack / step);
    for (long i = 0; i <= steps; ++i)
    {
        const Ink& ink = Draw(text, place.height, place.x - place.slack + static_cast<double>(i) * step);
        const int middle = (seen.height - ink.height) / 2;
        for (int down = middle - 1; down <= middle + 1; ++down)
            best = std::min(best, Difference(seen, ink, down, place.tooLong));
    }
    return best;
}

std::optional<std::string> TextShapes::Read(const Ink& seen, const std::vector<std::string>& candidates,
                                            const TextPlace& place)
{
    std::optional<std::string> found;
    double best = place.worst;
    for (const std::string& text : candidates)
    {
        const double difference = bestDifference(seen, text, place);
        if (difference >= best)
            continue;
        best = difference;
        found = text;
    }
    return found;
}
} // namespace standin::user
