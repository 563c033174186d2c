#pragma once
// The names that a shared object offers to others, read from its file and not from memory.

#include <string>
#include <vector>

namespace standin::check
{
/// Sorted. Throws std::runtime_error, in words for a user, if the file is no 64-bit ELF file.
std::vector<std::string> ExportedNames(const std::string& file);
} // namespace standin::check
