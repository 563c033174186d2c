#pragma once
// Reads the property list of one plug-in, from the format's description.

#include "tests/bundle/ResourceReader.h"

namespace standin
{
struct Property
{
    std::string vendor;
    std::string key;
    Bytes data;
};

/// Every byte is accounted for. Throws std::runtime_error with the first thing that is not as it must be.
std::vector<Property> ReadPropertyList(const Bytes& list);

/// A plug-in as the host sees it.
struct Plugin
{
    std::string kind;
    std::string name;
    std::string category;
    std::uint32_t version;
    std::string intelEntry;
    std::string siliconEntry;
};

/// Each of the six properties must be there once, in this order, and hold nothing but its value.
Plugin ReadPlugin(const Bytes& list);
} // namespace standin
