#pragma once
// A plain top-level X window, as a host without any toolkit would make it: what a panel is put into.

namespace standin
{
class XHostWindow
{
public:
    /// Mapped at this place of the screen when the constructor returns.
    XHostWindow(int x, int y, int width, int height);
    ~XHostWindow();

    XHostWindow(const XHostWindow&) = delete;
    XHostWindow& operator=(const XHostWindow&) = delete;

    unsigned long id() const { return window; }

    /// As a container travels through plain C interfaces.
    void* handle() const { return reinterpret_cast<void*>(window); }

    /// Takes the keyboard focus at each press that has reached this window itself since the last call, as
    /// a host does. Gives the number of such presses.
    int takeFocusOnPresses();

private:
    struct Connection;
    Connection* connection;
    unsigned long window = 0;
};
} // namespace standin
