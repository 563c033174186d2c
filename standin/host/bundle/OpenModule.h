#pragma once
// Loads a built file into this process, where it stays until the process ends.

#include <string>

namespace standin
{
/// What dlopen gives. Throws std::runtime_error, in words for a user, if the file is not there or is no
/// `kind`.
void* OpenModule(const std::string& file, const std::string& kind);
} // namespace standin
