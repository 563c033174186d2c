#include "tests/standin_programs/PanelPainting.h"

namespace standin
{
using namespace user;

namespace
{
constexpr std::uint32_t paper = 0x242424;
constexpr std::uint32_t light = 0xcccccc;
constexpr int rowHeight = 20;

int leftOf(int depth) { return 8 + 20 * (depth + 1); }

std::uint32_t mix(std::uint32_t below, std::uint32_t above, float cover)
{
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0})
    {
        const auto from = static_cast<float>((below >> shift) & 0xff);
        const auto to = static_cast<float>((above >> shift) & 0xff);
        result |= static_cast<std::uint32_t>(from + (to - from) * cover) << shift;
    }
    return result;
}
} // namespace

PanelPainting::PanelPainting(int width, int height)
{
    picture.width = width;
    picture.height = height;
    picture.pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), paper);
}

void PanelPainting::Fill(int x, int y, int width, int height, std::uint32_t colour)
{
    for (int row = y; row < y + height; ++row)
        for (int column = x; column < x + width; ++column)
            picture.pixels[static_cast<std::size_t>(row * picture.width + column)] = colour;
}

void PanelPainting::Outline(int x, int y, int width, int height, std::uint32_t colour)
{
    Fill(x, y, width, 1, colour);
    Fill(x, y + height - 1, width, 1, colour);
    Fill(x, y, 1, height, colour);
    Fill(x + width - 1, y, 1, height, colour);
}

void PanelPainting::Text(const std::string& text, int x, int y, int boxHeight, double fontHeight,
                         std::uint32_t colour)
{
    const Ink& ink = shapes.Draw(text, fontHeight, 0);
    const int down = (boxHeight - ink.height) / 2;
    for (int row = 0; row < ink.height; ++row)
        for (int column = 0; column < ink.width; ++column)
        {
            const auto at = static_cast<std::size_t>((y + down + row) * picture.width + x + column);
            picture.pixels[at] = mix(picture.pixels[at], colour, ink.At(column, row));
        }
}

void PanelPainting::box(int depth, int y) { Outline(leftOf(depth) + 2, y + 6, 8, 8, light); }

void PanelPainting::Row(const std::string& text, int depth, int y)
{
    box(depth, y);
    FillBox(depth, y, 4);
    Text(text, leftOf(depth) + 16, y, rowHeight, 15, light);
}

void PanelPainting::LayerRow(int y) { Text("Layer", leftOf(0) + 8, y, rowHeight, 15, light); }

void PanelPainting::FillBox(int depth, int y, int width)
{
    Fill(leftOf(depth) + 4, y + 8, 4, 4, paper);
    Fill(leftOf(depth) + 4, y + 8, width, 4, light);
}

void PanelPainting::SelectedRow(const std::string& text, int depth, int y)
{
    const int width = static_cast<int>(shapes.WidthOf(text, 15)) + 32;
    Fill(leftOf(depth), y, width, rowHeight, 0x999999);
    box(depth, y);
    Text(text, leftOf(depth) + 16, y, rowHeight, 15, 0x000000);
}
} // namespace standin
