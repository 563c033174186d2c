#include "standin/user/x11/XTestInput.h"

#include "standin/user/x11/Xvfb.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace
{
/// Pixel by pixel Xlib takes longer than the server for the whole picture.
std::vector<std::uint32_t> pixelsOf(const XImage& image)
{
    if (image.bits_per_pixel != 32)
        throw std::runtime_error("the screen has not 32 bits a pixel");
    const auto width = static_cast<std::size_t>(image.width);
    const auto height = static_cast<std::size_t>(image.height);
    std::vector<std::uint32_t> pixels(width * height);
    for (std::size_t y = 0; y < height; ++y)
        std::memcpy(&pixels[y * width], image.data + y * static_cast<std::size_t>(image.bytes_per_line),
                    width * sizeof(std::uint32_t));
    for (std::uint32_t& pixel : pixels)
        pixel &= 0xffffff;
    return pixels;
}
} // namespace

namespace standin::user
{
struct XTestInput::Connection
{
    Display* display;

    void settle() const { (void)XSync(display, False); }

    void fakeKey(const std::string& name, Bool isPress) const
    {
        const KeySym symbol = XStringToKeysym(name.c_str());
        const KeyCode code = symbol == NoSymbol ? KeyCode(0) : XKeysymToKeycode(display, symbol);
        if (code == 0)
            throw std::runtime_error("no such key: " + name);
        (void)XTestFakeKeyEvent(display, code, isPress, CurrentTime);
        settle();
    }

    void fakeButton(unsigned button, Bool isPress) const
    {
        (void)XTestFakeButtonEvent(display, button, isPress, CurrentTime);
        settle();
    }
};

XTestInput::XTestInput() : connection(new Connection{XOpenDisplay(nullptr)})
{
    int ignored = 0;
    if (connection->display != nullptr &&
        XTestQueryExtension(connection->display, &ignored, &ignored, &ignored, &ignored))
        return;
    delete connection;
    const char* const display = std::getenv("DISPLAY");
    throw DisplayMissing(std::string("display ") + (display == nullptr ? "" : display) +
                         ": no display with the test extension");
}

XTestInput::~XTestInput()
{
    (void)XCloseDisplay(connection->display);
    delete connection;
}

void XTestInput::move(int x, int y)
{
    (void)XTestFakeMotionEvent(connection->display, -1, x, y, CurrentTime);
    connection->settle();
}

void XTestInput::press(unsigned button) { connection->fakeButton(button, True); }

void XTestInput::release(unsigned button) { connection->fakeButton(button, False); }

void XTestInput::doubleClick()
{
    for (const Bool isPress : {True, False, True, False})
        (void)XTestFakeButtonEvent(connection->display, 1, isPress, CurrentTime);
    connection->settle();
}

void XTestInput::keyDown(const std::string& name) { connection->fakeKey(name, True); }

void XTestInput::keyUp(const std::string& name) { connection->fakeKey(name, False); }

void XTestInput::key(const std::string& name)
{
    keyDown(name);
    keyUp(name);
}

/// The characters of ASCII are their own names to X.
void XTestInput::type(const std::string& text)
{
    Display* const display = connection->display;
    for (const char c : text)
    {
        const auto symbol = static_cast<KeySym>(static_cast<unsigned char>(c));
        const KeyCode code = XKeysymToKeycode(display, symbol);
        if (code == 0)
            throw std::runtime_error("there is no key for the character " + std::string(1, c));
        const bool isShifted = XkbKeycodeToKeysym(display, code, 0, 0) != symbol;
        if (isShifted)
            keyDown("Shift_L");
        for (const Bool isPress : {True, False})
            (void)XTestFakeKeyEvent(display, code, isPress, CurrentTime);
        if (isShifted)
            keyUp("Shift_L");
    }
    connection->settle();
}

unsigned long XTestInput::focusedWindow()
{
    Window window = None;
    int revertTo = 0;
    (void)XGetInputFocus(connection->display, &window, &revertTo);
    return window;
}

void XTestInput::repeatHeldKeys()
{
    XAutoRepeatOn(connection->display);
    connection->settle();
}

std::vector<Area> XTestInput::popUps()
{
    Display* display = connection->display;
    Window root = None;
    Window parent = None;
    Window* children = nullptr;
    unsigned count = 0;
    std::vector<Area> found;
    // None goes away while it is looked at.
    (void)XGrabServer(display);
    (void)XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
    for (unsigned i = 0; i < count; ++i)
    {
        XWindowAttributes attributes{};
        if (XGetWindowAttributes(display, children[i], &attributes) == 0)
            continue;
        if (attributes.map_state == IsViewable && attributes.override_redirect != 0)
            found.push_back({attributes.x, attributes.y, attributes.width, attributes.height});
    }
    (void)XUngrabServer(display);
    connection->settle();
    if (children != nullptr)
        (void)XFree(children);
    return found;
}

ScreenPicture XTestInput::screen()
{
    const int screen = DefaultScreen(connection->display);
    return picture(
        {0, 0, DisplayWidth(connection->display, screen), DisplayHeight(connection->display, screen)});
}

ScreenPicture XTestInput::picture(const Area& area)
{
    Display* display = connection->display;
    ScreenPicture picture;
    picture.width = area.width;
    picture.height = area.height;
    XImage* image =
        XGetImage(display, DefaultRootWindow(display), area.x, area.y, static_cast<unsigned>(area.width),
                  static_cast<unsigned>(area.height), AllPlanes, ZPixmap);
    if (image == nullptr)
        throw std::runtime_error("no picture of the screen");
    picture.pixels = pixelsOf(*image);
    (void)XDestroyImage(image);
    return picture;
}
} // namespace standin::user
