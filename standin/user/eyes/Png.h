#pragma once
// Pictures as files.

#include "standin/user/x11/XTestInput.h"

#include <string>

namespace standin::user
{
/// Writes the picture as a PNG file, with the folder that it stands in. Throws std::runtime_error if it
/// cannot be written.
void WritePng(const ScreenPicture& picture, const std::string& file);
} // namespace standin::user
