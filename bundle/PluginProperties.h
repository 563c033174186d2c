#pragma once
// The property list ("PiPL") through which the host finds one plug-in of a bundle: what it is, what it is
// called, and which exported function is its entry point.

#include <cstdint>
#include <string>
#include <vector>

struct PluginDescription
{
    std::string entryPoint; ///< The exported name, without the underscore that the linker puts before it.
    std::string name;
    std::string category;
    std::uint32_t version; ///< 1.0 as 0x00010000.
};

/// The plug-in behind one of the bundle's entry points. Throws std::invalid_argument for any other name.
PluginDescription DescribeEntryPoint(const std::string& entryPoint);

/// The data of one resource of type "PiPL". The entry point is the same for Intel and for Apple silicon.
std::vector<std::uint8_t> EncodePluginProperties(const PluginDescription&);
