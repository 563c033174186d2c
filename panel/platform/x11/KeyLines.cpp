#include "panel/platform/x11/KeyLines.h"

#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <cstdio>
#include <utility>

namespace
{
KeySym symbolOf(XKeyEvent& press)
{
    KeySym symbol = NoSymbol;
    char text[32];
    (void)XLookupString(&press, text, sizeof text, &symbol, nullptr);
    return symbol;
}

/// The line for a key that goes with Ctrl, null for a key that is not the tree's.
const char* lineForCommandKey(XKeyEvent& press)
{
    const std::pair<KeySym, const char*> commandKeys[] = {
        {XK_x, "Cmd X Pressed"}, {XK_c, "Cmd C Pressed"}, {XK_v, "Cmd v Pressed"}, {XK_a, "Cmd a Pressed"}};
    // Kept: with Shift the key is the host's.
    const KeySym symbol = (press.state & ShiftMask) != 0 ? NoSymbol : XLookupKeysym(&press, 0);
    for (const auto& [commandKey, line] : commandKeys)
        if (symbol == commandKey)
            return line;
    return nullptr;
}
} // namespace

void WriteLine(const char* line)
{
    (void)std::puts(line);
    (void)std::fflush(stdout);
}

void WriteKeyLines(XKeyEvent press)
{
    const KeySym symbol = symbolOf(press);
    if (symbol == XK_Delete || symbol == XK_KP_Delete || symbol == XK_BackSpace)
        return WriteLine("Delete Key Pressed");
    if (symbol == XK_Return || symbol == XK_KP_Enter)
        return WriteLine("Return Key Pressed");
    if ((press.state & ControlMask) == 0)
        return;
    WriteLine("Command Key Pressed");
    if (const char* line = lineForCommandKey(press))
        WriteLine(line);
}
