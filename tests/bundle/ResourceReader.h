#pragma once
// Reads a resource file in a data fork, from the format's description. Accounts for every byte: what the
// format leaves unused has to be as the description says.

#include <cstdint>
#include <string>
#include <vector>

namespace standin
{
using Bytes = std::vector<std::uint8_t>;

struct Resource
{
    std::string type;
    int id;
    Bytes data;
};

/// In the order of the map. Throws std::runtime_error with the first thing that is not as it must be.
std::vector<Resource> ReadResourceFile(const Bytes& file);

/// Throws std::runtime_error if the file is not there.
Bytes ReadFile(const std::string& path);
} // namespace standin
