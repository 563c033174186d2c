#pragma once
// Places and areas in pixels, on the screen or in a window, from the upper left corner.

namespace standin::user
{
struct Place
{
    int x = 0;
    int y = 0;

    friend Place operator+(Place a, Place b) { return {a.x + b.x, a.y + b.y}; }
};

struct Area
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    Place Middle() const { return {x + width / 2, y + height / 2}; }
    bool Holds(Place at) const { return at.x >= x && at.y >= y && at.x < x + width && at.y < y + height; }
    friend bool operator==(const Area& a, const Area& b)
    {
        return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
    }
};
} // namespace standin::user
