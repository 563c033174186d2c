#include "panel/platform/x11/KeyLines.h"

#include "host/PrintLine.h"

#include <X11/Xutil.h>
#include <X11/keysym.h>
#include <initializer_list>

namespace
{
KeySym symbolOf(XKeyEvent& press)
{
    KeySym symbol = NoSymbol;
    char text[32];
    (void)XLookupString(&press, text, sizeof text, &symbol, nullptr);
    return symbol;
}

struct TreeKey
{
    KeySym symbol;
    const char* line;
};

const char* lineFor(KeySym symbol, std::initializer_list<TreeKey> keys)
{
    for (const TreeKey& key : keys)
        if (symbol == key.symbol)
            return key.line;
    return nullptr;
}

/// The line for a key that is the tree's with any modifiers; null for another.
const char* lineForPlainKey(XKeyEvent& press)
{
    return lineFor(symbolOf(press), {{XK_Delete, "Delete Key Pressed"},
                                     {XK_KP_Delete, "Delete Key Pressed"},
                                     {XK_BackSpace, "Delete Key Pressed"},
                                     {XK_Return, "Return Key Pressed"},
                                     {XK_KP_Enter, "Return Key Pressed"}});
}

/// The line for a key that is the tree's with Ctrl; null for another.
const char* lineForCommandKey(XKeyEvent& press)
{
    // Kept: with Shift the key is the host's.
    if ((press.state & ControlMask) == 0 || (press.state & ShiftMask) != 0)
        return nullptr;
    return lineFor(
        XLookupKeysym(&press, 0),
        {{XK_x, "Cmd X Pressed"}, {XK_c, "Cmd C Pressed"}, {XK_v, "Cmd v Pressed"}, {XK_a, "Cmd a Pressed"}});
}
} // namespace

bool IsKeyOfTree(XKeyEvent press)
{
    return lineForPlainKey(press) != nullptr || lineForCommandKey(press) != nullptr;
}

void WriteKeyLines(XKeyEvent press)
{
    if (const char* line = lineForPlainKey(press))
        return PrintLine(line);
    if ((press.state & ControlMask) == 0 || IsModifierKey(symbolOf(press)))
        return;
    PrintLine("Command Key Pressed");
    if (const char* line = lineForCommandKey(press))
        PrintLine(line);
}
