#pragma once
// Hears every press of a mouse button and of a key on an X display, whichever window gets it, without taking
// it from anybody. It runs on connections of its own.

#include <string>
#include <vector>

namespace standin::user
{
struct InputEvent
{
    enum class Kind
    {
        press,
        release,
        key ///< A press of a key that is no modifier.
    };

    Kind kind = Kind::press;
    unsigned button = 0; ///< 1 is the left one; 4 and 5 are the wheel, up and down.
    int x = 0;           ///< On the screen.
    int y = 0;
    unsigned long time = 0; ///< In milliseconds, by the server's clock.
    bool shift = false;
    bool control = false;
    bool alt = false;
    std::string key;  ///< Its name as in keysymdef.h, without modifiers: "Return", "a".
    char text = '\0'; ///< The character that it types, if it is one of ASCII.
};

class XInputRecord
{
public:
    /// Throws std::runtime_error if the display has not what it takes.
    XInputRecord();
    ~XInputRecord();
    XInputRecord(const XInputRecord&) = delete;
    XInputRecord& operator=(const XInputRecord&) = delete;

    /// What has come since the last call, in its order.
    std::vector<InputEvent> Take();

private:
    struct Connections;
    Connections* connections;
};
} // namespace standin::user
