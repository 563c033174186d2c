#pragma once
// Pictures as the panel would paint them, drawn without it.

#include "standin/user/eyes/TextShapes.h"

#include <string>

namespace standin
{
class PanelPainting
{
public:
    PanelPainting(int width, int height);

    void Fill(int x, int y, int width, int height, std::uint32_t colour);
    void Outline(int x, int y, int width, int height, std::uint32_t colour);
    void Text(const std::string& text, int x, int y, int boxHeight, double fontHeight, std::uint32_t colour);

    /// A row that is on and not selected.
    void Row(const std::string& text, int depth, int y);
    /// The row of the layer.
    void LayerRow(int y);
    /// The fill of a row's box, so many pixels wide.
    void FillBox(int depth, int y, int width);
    /// The same row, selected.
    void SelectedRow(const std::string& text, int depth, int y);

    const user::ScreenPicture& Picture() const { return picture; }

private:
    void box(int depth, int y);

    user::ScreenPicture picture;
    user::TextShapes shapes;
};
} // namespace standin
