#pragma once
// The short lines that the tree writes to standard output. Each is flushed, so that they keep their order
// among the lines of the other subsystems whatever standard output is connected to.

#include <string>

/// Writes the text and a newline. The text may hold any bytes.
void PrintLine(const std::string& text);
