#pragma once
// Reads a property list in XML whose values are all strings, strictly: the first line that is not one of
// this format throws std::runtime_error.

#include "tests/bundle/ResourceReader.h"

#include <utility>

namespace standin
{
using KeysAndValues = std::vector<std::pair<std::string, std::string>>;

/// In the order of the file.
KeysAndValues ReadInfoPlist(const Bytes& file);
} // namespace standin
