#pragma once
// The lines that the panel writes about keys while it holds the keyboard; the same on every platform.

#include <X11/Xlib.h>

/// Writes the lines of the key press to standard output; none for most keys. Ctrl stands for Command.
void WriteKeyLines(XKeyEvent press);

/// Writes one line to standard output.
void WriteLine(const char* line);
