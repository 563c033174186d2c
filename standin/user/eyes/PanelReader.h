#pragma once
// What a person sees of the panel, read from a picture of it: rows, boxes, buttons, a notification, a menu.

#include "standin/user/eyes/TextShapes.h"

#include <optional>
#include <string>
#include <vector>

namespace standin::user
{
/// The check box of a row.
enum class Box
{
    none,
    empty,
    half,
    full
};

enum class Marked
{
    no,
    yes
};

/// The triangle in front of a row that has others below it.
enum class Triangle
{
    none,
    open,
    closed
};

struct PanelRow
{
    std::string text; ///< PanelReader::unreadable if it is none of the candidates.
    int depth = 0;    ///< 0 for the layer.
    Box box = Box::none;
    Marked selected = Marked::no;
    Triangle triangle = Triangle::none;
    int x = 0; ///< The upper left corner of what belongs to the row, in pixels of the panel.
    int y = 0;
};

struct PanelButton
{
    std::string text;
    int x = 0;
    int y = 0;
};

class PanelReader
{
public:
    static constexpr const char* unreadable = "?";
    static constexpr int rowHeight = 20;
    static constexpr int buttonWidth = 100;
    static constexpr int buttonHeight = 15;
    static constexpr int mostGroups = 10; ///< The panel offers those with the numbers from 1 to this.

    /// Whole rows from the top. Rows that are scrolled away in part or whole are not seen.
    std::vector<PanelRow> Rows(const ScreenPicture& panel, const std::vector<std::string>& candidates);
    std::vector<PanelButton> Buttons(const ScreenPicture& panel);
    /// The text of the notification; nothing if none is shown, `unreadable` if it is no candidate.
    std::optional<std::string> Notification(const ScreenPicture& panel,
                                            const std::vector<std::string>& candidates);
    /// The entries of an open menu from the top.
    std::vector<std::string> MenuEntries(const ScreenPicture& menu,
                                         const std::vector<std::string>& candidates);
    /// Whether the field for a new name lies over a row.
    static bool IsEditorOpen(const ScreenPicture& panel);
    /// Whether it does and has the keyboard.
    static bool IsEditorListening(const ScreenPicture& panel);
    /// Lets go of the texts that were drawn to compare with.
    void Forget() { shapes.Forget(); }

    /// The middle of the nth of so many entries of a menu of this height, from its upper edge.
    static int MenuEntryMiddle(std::size_t index);

private:
    void readRow(PanelRow& row, const ScreenPicture& panel, const std::vector<std::string>& candidates);
    std::optional<PanelRow> layerRow(const ScreenPicture& panel, int y);

    TextShapes shapes;
};
} // namespace standin::user
