#pragma once
// The panel in the hands of the guided tour, docked and in front. What it shows is read from the screen; a
// click is made once, where and when a user would make it, so that one which the panel misses ends the tour.

#include "standin/desktop/TourHands.h"
#include "standin/screen/PanelReader.h"

namespace standin
{
class TourPanel
{
public:
    TourPanel(TourHands& hands, Workbench& bench);

    // All wait until what they act on is to be seen, and throw if it does not come.
    void ClickButton(const std::string& button);
    /// Opens the menu of a button and points at an entry of it, from 0.
    void PointAtEntry(const std::string& button, int entry);
    /// Clicks where the pointer is, in a menu.
    void ClickEntry();
    void ClickBox(const std::string& name);
    /// Selects a row and gives it another name.
    void Rename(const std::string& name, const std::string& newName);
    /// Into a row that takes others in, a group without any.
    void DragRowInto(const std::string& name, const std::string& target);
    /// Behind a row, to the same depth.
    void DragRowBelow(const std::string& name, const std::string& target);

    /// Whether its rows are those of the active layer.
    bool Agrees();
    bool ShowsNotification(const std::string& text);

private:
    ScreenPicture picture() { return hands.input.picture(area()); }
    ScreenArea area();
    juce::Point<int> onScreen(int x, int y);
    std::vector<PanelRow> rows();
    std::vector<std::string> rowsOfLayer();
    PanelRow row(const std::string& name);
    void clickRow(const std::string& name);
    void drag(const std::string& name, juce::Point<int> target);
    void await(const std::function<bool()>& condition, const std::string& otherwise);

    TourHands& hands;
    Workbench& bench;
    PanelReader reader;
};
} // namespace standin
