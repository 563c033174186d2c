#include "standin/user/eyes/PanelReader.h"

#include <algorithm>
#include <cmath>

namespace standin::user
{
namespace
{
// Colours and measures of the panel, as it shows itself.
constexpr std::uint32_t light = 0xcccccc;
constexpr std::uint32_t black = 0x000000;
constexpr std::uint32_t white = 0xffffff;
constexpr std::uint32_t highlight = 0x999999;
constexpr std::uint32_t buttonFace = 0x1a1a1a;
constexpr std::uint32_t lightBlue = 0xadd8e6;
constexpr std::uint32_t listeningEdge = 0xd3d3d3; // Of the field for a new name, with the keyboard.
constexpr std::uint32_t deafEdge = 0x8e989b;
constexpr int treeLeft = 8;
constexpr int treeTop = 88;
constexpr int treeBelow = 12;
constexpr int scrollBar = 8;
constexpr int indent = 20;
constexpr int boxSize = 8;
constexpr int boxX = 2;
constexpr int boxY = 6;
constexpr int textX = 16;
constexpr int layerTextX = 8;
constexpr int buttonX = 13;
constexpr int editorWidth = 200;
constexpr int menuEdge = 2;
constexpr int menuEntryHeight = 22;
constexpr int menuTextX = 18;
constexpr TextPlace buttonText{14, 0, 0.5, 0.25, TooLong::cannotBe};
constexpr TextPlace menuText{20 / 1.3, 2.5, 1.5, 0.3, TooLong::cannotBe};

std::uint32_t paperOf(const ScreenPicture& panel) { return panel.at(2, 2); }

bool isInside(const ScreenPicture& picture, int x, int y)
{
    return x >= 0 && y >= 0 && x < picture.width && y < picture.height;
}

std::uint32_t at(const ScreenPicture& picture, int x, int y)
{
    return isInside(picture, x, y) ? picture.at(x, y) : 0xff000000;
}

bool isBox(const ScreenPicture& panel, int x, int y)
{
    for (int i = 0; i < boxSize; ++i)
    {
        const int last = boxSize - 1;
        if (at(panel, x + i, y) != light || at(panel, x + i, y + last) != light ||
            at(panel, x, y + i) != light || at(panel, x + last, y + i) != light)
            return false;
    }
    // A block of the same colour is no outline.
    return at(panel, x + 1, y + 1) != light;
}

Box fillOf(const ScreenPicture& panel, int x, int y)
{
    const bool left = at(panel, x + 2, y + 3) == light;
    const bool right = at(panel, x + 5, y + 3) == light;
    return left ? right ? Box::full : Box::half : Box::empty;
}

int rowLeft(int depth) { return treeLeft + indent * (depth + 1); }

/// Rows that have a box, with nothing but depth, place and box known.
std::vector<PanelRow> boxedRows(const ScreenPicture& panel)
{
    std::vector<PanelRow> rows;
    for (int y = treeTop + boxY; y + boxSize < panel.height - treeBelow; ++y)
    {
        for (int depth = 1; rowLeft(depth) + textX < panel.width - treeLeft; ++depth)
        {
            if (!isBox(panel, rowLeft(depth) + boxX, y))
                continue;
            PanelRow row;
            row.depth = depth;
            row.x = rowLeft(depth);
            row.y = y - boxY;
            row.box = fillOf(panel, row.x + boxX, y);
            rows.push_back(row);
        }
    }
    return rows;
}

/// Pixels other than paper in a row of them.
int inkWidth(const ScreenPicture& panel, int left, int y)
{
    int count = 0;
    for (int x = left; x < left + indent; ++x)
        count += at(panel, x, y) != paperOf(panel) ? 1 : 0;
    return count;
}

/// An open one points down and is broad at its top.
Triangle triangleOf(const ScreenPicture& panel, int x, int y)
{
    std::vector<int> widths;
    for (int line = 1; line < PanelReader::rowHeight - 1; ++line)
    {
        const int width = inkWidth(panel, x - indent, y + line);
        if (width > 0)
            widths.push_back(width);
    }
    if (widths.size() < 4)
        return Triangle::none;
    return widths.front() > widths[widths.size() - 2] ? Triangle::open : Triangle::closed;
}

int highlightWidth(const ScreenPicture& panel, int x, int y)
{
    int width = 0;
    while (at(panel, x + width, y + 1) == highlight)
        ++width;
    return width;
}

std::uint32_t blend(std::uint32_t above, std::uint32_t below, double alpha)
{
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0})
    {
        const double value = alpha * ((above >> shift) & 0xff) + (1 - alpha) * ((below >> shift) & 0xff);
        result |= static_cast<std::uint32_t>(std::lround(value)) << shift;
    }
    return result;
}

bool isNear(std::uint32_t a, std::uint32_t b)
{
    constexpr int tolerance = 3;
    for (const int shift : {16, 8, 0})
        if (std::abs(static_cast<int>((a >> shift) & 0xff) - static_cast<int>((b >> shift) & 0xff)) >
            tolerance)
            return false;
    return true;
}

bool hasEditorEdge(const ScreenPicture& panel, std::uint32_t edge)
{
    for (int y = 0; y < panel.height; ++y)
    {
        int run = 0;
        for (int x = 0; x < panel.width; ++x)
        {
            run = panel.at(x, y) == edge ? run + 1 : 0;
            if (run == editorWidth)
                return true;
        }
    }
    return false;
}
} // namespace

void PanelReader::readRow(PanelRow& row, const ScreenPicture& panel,
                          const std::vector<std::string>& candidates)
{
    const int marked = highlightWidth(panel, row.x, row.y);
    row.selected = marked > 0 ? Marked::yes : Marked::no;
    row.triangle = triangleOf(panel, row.x, row.y);
    const int begin = row.box == Box::none ? layerTextX : textX;
    const int room = panel.width - treeLeft - scrollBar - row.x;
    const int width = (marked > 0 ? marked : room) - begin;
    const Ink ink = InkIn(panel, row.x + begin, row.y, width, rowHeight, marked > 0 ? black : light,
                          marked > 0 ? highlight : paperOf(panel));
    const TooLong tooLong = marked > 0 && marked < room ? TooLong::cannotBe : TooLong::isCut;
    row.text = shapes.Read(ink, candidates, {15, 0, 0, 0.17, tooLong}).value_or(unreadable);
}

std::optional<PanelRow> PanelReader::layerRow(const ScreenPicture& panel, int y)
{
    PanelRow row;
    row.x = rowLeft(0);
    row.y = y;
    readRow(row, panel, {"Layer"});
    if (row.text == unreadable)
        return {};
    return row;
}

std::vector<PanelRow> PanelReader::Rows(const ScreenPicture& panel,
                                        const std::vector<std::string>& candidates)
{
    std::vector<PanelRow> rows = boxedRows(panel);
    for (PanelRow& row : rows)
        readRow(row, panel, candidates);
    const int layerY = rows.empty() ? treeTop : rows.front().y - rowHeight;
    if (layerY >= treeTop)
    {
        if (const std::optional<PanelRow> layer = layerRow(panel, layerY))
            rows.insert(rows.begin(), *layer);
    }
    return rows;
}

std::vector<PanelButton> PanelReader::Buttons(const ScreenPicture& panel)
{
    const std::vector<std::string> texts{"Add Vortan", "Add Geometry", "Add Effector", "Add Renderer",
                                         "Add Group"};
    constexpr int tops[] = {8, 24, 40, 56};
    constexpr int insideX = 5;
    std::vector<PanelButton> buttons;
    for (const int y : tops)
    {
        if (at(panel, buttonX + buttonWidth - 1, y + 2) != buttonFace ||
            at(panel, buttonX, y + 2) != buttonFace)
            continue;
        const Ink ink =
            InkIn(panel, buttonX + insideX, y, buttonWidth - insideX, buttonHeight, light, buttonFace);
        buttons.push_back({shapes.Read(ink, texts, buttonText).value_or(unreadable), buttonX, y});
    }
    return buttons;
}

std::optional<std::string> PanelReader::Notification(const ScreenPicture& panel,
                                                     const std::vector<std::string>& candidates)
{
    const std::uint32_t face = blend(lightBlue, paperOf(panel), 0.8);
    int left = panel.width;
    int right = -1;
    int top = panel.height;
    int bottom = -1;
    for (int y = 0; y < panel.height; ++y)
        for (int x = 0; x < panel.width; ++x)
            if (isNear(panel.at(x, y), face))
            {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
    constexpr int leastWidth = 6;
    if (right - left < leastWidth)
        return {};
    // The corners are round.
    const Ink ink = InkIn(panel, left + 1, top + 1, right - left - 1, bottom - top - 1, black, face);
    return shapes.Read(ink, candidates, {14, 1.5, 2, 0.25, TooLong::cannotBe}).value_or(unreadable);
}

std::vector<std::string> PanelReader::MenuEntries(const ScreenPicture& menu,
                                                  const std::vector<std::string>& candidates)
{
    std::vector<std::string> entries;
    for (int y = menuEdge; y + menuEntryHeight <= menu.height; y += menuEntryHeight)
    {
        const Ink ink = InkIn(menu, menuTextX, y, menu.width - menuTextX - menuEdge, menuEntryHeight, white,
                              menu.at(menuEdge + 3, y + 1));
        entries.push_back(shapes.Read(ink, candidates, menuText).value_or(unreadable));
    }
    return entries;
}

bool PanelReader::IsEditorOpen(const ScreenPicture& panel)
{
    return hasEditorEdge(panel, listeningEdge) || hasEditorEdge(panel, deafEdge);
}

bool PanelReader::IsEditorListening(const ScreenPicture& panel)
{
    return hasEditorEdge(panel, listeningEdge);
}

int PanelReader::MenuEntryMiddle(std::size_t index)
{
    return menuEdge + menuEntryHeight * static_cast<int>(index) + menuEntryHeight / 2;
}
} // namespace standin::user
