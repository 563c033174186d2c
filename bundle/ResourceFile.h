#pragma once
// A resource file in a data fork, with resources of one type that have no names.

#include <cstdint>
#include <vector>

struct NumberedResource
{
    std::uint16_t id;
    std::vector<std::uint8_t> data;
};

/// At least one resource must be given; they stand in the file in this order.
std::vector<std::uint8_t> EncodeResourceFile(const char (&type)[5], const std::vector<NumberedResource>&);
