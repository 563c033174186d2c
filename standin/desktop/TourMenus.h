#pragma once
// The desktop's own menus in the hands of the guided tour. The toolkit's menus take no click in their first
// quarter of a second, close by themselves when the keyboard wanders, and look at the mouse a few times a
// second: a click that came to nothing is made again, as a user does.

#include "standin/desktop/TourHands.h"

#include <optional>

namespace standin
{
class TourMenus
{
public:
    explicit TourMenus(TourHands& theHands) : hands(theHands) {}

    void Open(const std::string& menu);
    void Leave();
    /// Opens the menu and clicks the line with this index, separators counted, until `isDone` holds, which is
    /// asked on the tour's own thread.
    void Choose(const std::string& menu, int line, const std::function<bool()>& isDone);

private:
    bool isOpen();
    int middleOf(const std::string& menu);
    std::optional<juce::Point<int>> placeOf(int line);
    bool clickLine(int line);

    TourHands& hands;
};
} // namespace standin
