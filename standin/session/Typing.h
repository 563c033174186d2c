#pragma once
// Text and key names as presses of single keys of a US keyboard.

#include "standin/x11/XTestInput.h"

#include <string>

namespace standin
{
/// Types ASCII text. Throws std::runtime_error for a character that the keyboard does not have.
void TypeText(XTestInput& user, const std::string& text);

/// Presses "Return", "a", or with modifiers "Control+a", "Control+Shift+x". Throws std::runtime_error for a
/// key that there is not.
void PressKey(XTestInput& user, const std::string& keyName);

/// "Control" gives "Control_L". Throws std::runtime_error for what is no modifier.
std::string ModifierKey(const std::string& name);
} // namespace standin
