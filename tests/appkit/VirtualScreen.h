#pragma once
// A screen of the test's own: an Xvfb that nobody else uses, with a pointer and a keyboard.

namespace standin
{
/// Starts the screen at first use and names it in DISPLAY; it ends with the process.
void OpenVirtualScreen();

/// Pixels from the screen's top left.
void MovePointer(int x, int y);

/// A click of the left button where the pointer is, through the X server.
void ClickLeftButton();

/// Presses and releases the key that carries this X keysym, through the X server.
void TapKey(unsigned long keysym);

/// Returns when the screen has done all that was asked of it over this connection, an Xlib `Display*`.
void WaitUntilShown(void* connection);

constexpr int screenWidth = 1024;
constexpr int screenHeight = 768;
} // namespace standin
