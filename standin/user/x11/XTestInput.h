#pragma once
// A user's hands on an X display: mouse and key events that reach the windows through the server like those
// of real devices, and a look at the screen. It runs on a connection of its own.

#include "standin/user/Geometry.h"

#include <cstdint>
#include <string>
#include <vector>

namespace standin::user
{
/// What stands on the screen, row by row from the top, one 0x00rrggbb a pixel.
struct ScreenPicture
{
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

class XTestInput
{
public:
    /// Connects to the display of the environment. Throws DisplayMissing if there is none.
    XTestInput();
    ~XTestInput();

    XTestInput(const XTestInput&) = delete;
    XTestInput& operator=(const XTestInput&) = delete;

    /// Screen coordinates. Each call returns when the server has taken the event in.
    void move(int x, int y);
    void press(unsigned button = 1);
    void release(unsigned button = 1);
    /// Two clicks in one message to the server, so that on a busy machine no time goes by between them.
    void doubleClick();

    /// Key names as in keysymdef.h: "Return", "Delete", "a", "Control_L".
    void keyDown(const std::string& name);
    void keyUp(const std::string& name);
    void key(const std::string& name);
    /// ASCII text. Throws std::runtime_error for a character that the keyboard does not have.
    void type(const std::string& text);

    /// From now on the server presses a key that is held down again and again, which its own screens begin
    /// without.
    void repeatHeldKeys();

    /// The window that has the keyboard focus: a window id, 1 for the one under the pointer, 0 for none.
    unsigned long focusedWindow();

    /// Where menus and the like are, the newest last: windows on the root that no window manager tends.
    std::vector<Area> popUps();

    ScreenPicture screen();
    ScreenPicture picture(const Area& area);

private:
    struct Connection;
    Connection* connection;
};
} // namespace standin::user
