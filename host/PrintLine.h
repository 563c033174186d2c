#pragma once
// The short lines that the panel writes to standard output, for whoever looks for a fault.

#include <string_view>

/// Writes the text, which may hold any bytes, and a newline, and flushes: whoever watches sees the line when
/// it is due, and it is not lost with a host that ends without the C library's own clean-up.
void PrintLine(std::string_view text);
