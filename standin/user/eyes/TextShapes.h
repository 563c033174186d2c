#pragma once
// What a line of text looks like on the screen in the panel's font, and which of several texts a picture
// shows. A picture is not read letter by letter: it is compared with what each candidate would look like.

#include "standin/user/x11/XTestInput.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace standin::user
{
/// How much of each pixel is covered, from 0 to 1, row by row from the top.
struct Ink
{
    int width = 0;
    int height = 0;
    std::vector<float> cover;

    float At(int x, int y) const
    {
        if (x < 0 || y < 0 || x >= width || y >= height)
            return 0;
        return cover[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                     static_cast<std::size_t>(x)];
    }
};

/// The ink in a part of a picture, where the paper and the ink have these colours, 0x00rrggbb.
Ink InkIn(const ScreenPicture& picture, int x, int y, int width, int height, std::uint32_t ink,
          std::uint32_t paper);

/// What becomes of a text that is longer than the ink is wide.
enum class TooLong
{
    cannotBe, ///< The ink is as wide as its text.
    isCut     ///< It ends in dots, and is compared as far as it goes.
};

/// Where text begins and how it is cut, for TextShapes::Read.
struct TextPlace
{
    double height = 15;  ///< From the ascent to the descent, in pixels.
    double x = 0;        ///< From the left edge of the ink that is read.
    double slack = 0;    ///< How far from there it may begin, to both sides.
    double worst = 0.25; ///< The greatest TextShapes::Difference of what counts as the same.
    TooLong tooLong = TooLong::cannotBe;
};

class TextShapes
{
public:
    /// The font of the panel. Throws std::runtime_error if the file is no font.
    explicit TextShapes(const std::string& fontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    ~TextShapes();
    TextShapes(const TextShapes&) = delete;
    TextShapes& operator=(const TextShapes&) = delete;

    /// UTF-8 text. What is drawn is kept, and is drawn once.
    const Ink& Draw(const std::string& text, double height, double x);
    double WidthOf(const std::string& text, double height);
    /// Lets go of all that was drawn so far, which is otherwise kept. Drawn ink is not to be used any more.
    void Forget() { drawn.clear(); }

    /// The candidate that the ink shows; nothing if it shows none of them. Text that is too long for the
    /// ink's width is compared as far as it goes.
    std::optional<std::string> Read(const Ink& seen, const std::vector<std::string>& candidates,
                                    const TextPlace& place);

    /// How unlike they are: 0 for the same, 1 for nothing in common. A single wrong letter weighs as much in
    /// a long text as in a short one. `down` moves the drawn one.
    static double Difference(const Ink& seen, const Ink& drawn, int down,
                             TooLong tooLong = TooLong::cannotBe);

private:
    struct Font;

    double bestDifference(const Ink& seen, const std::string& text, const TextPlace& place);

    std::unique_ptr<Font> font;
    std::map<std::pair<std::string, std::pair<int, int>>, Ink> drawn;
};
} // namespace standin::user
