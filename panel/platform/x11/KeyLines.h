#pragma once
// The keys that are the tree's while the panel holds the keyboard, and the lines that it writes about them;
// the same on every platform. Ctrl stands for Command.

#include <X11/Xlib.h>

/// Whether the press is Delete, Return, Cut, Copy, Paste or Select All. The host gets none of them, even if
/// the tree has no use for the key.
bool IsKeyOfTree(XKeyEvent press);

/// Writes the lines of the key press to standard output; none for most keys.
void WriteKeyLines(XKeyEvent press);
