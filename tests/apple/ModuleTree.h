#pragma once
// The folder of a plug-in, read as the host on macOS reads it.

#include <string>
#include <vector>

namespace standin
{
/// From the property list to the executable that it names, to the resource beside it, and to the functions
/// that the resource names for each architecture. A line for each step that leads nowhere; empty if the host
/// finds all it needs. Throws std::runtime_error if a file cannot be read at all.
std::vector<std::string> FindTreeFaults(const std::string& tree);
} // namespace standin
