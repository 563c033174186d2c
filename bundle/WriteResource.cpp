// Writes the resource file through which the host finds the plug-ins of a bundle:
//   write-resource FILE ENTRY...
// one property list per entry point, numbered from 16000 in the order given.

#include "bundle/PluginProperties.h"
#include "bundle/ResourceFile.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>

namespace
{
constexpr std::uint16_t firstId = 16000;

std::vector<NumberedResource> describe(int count, char** entryPoints)
{
    std::vector<NumberedResource> resources;
    resources.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        resources.push_back({static_cast<std::uint16_t>(firstId + i),
                             EncodePluginProperties(DescribeEntryPoint(entryPoints[i]))});
    return resources;
}

void write(const char* path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    for (const std::uint8_t byte : bytes)
        file.put(static_cast<char>(byte));
    file.close();
    if (!file)
        throw std::runtime_error(std::string("cannot write ") + path);
}
} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
    {
        std::fputs("usage: write-resource FILE ENTRY...\n", stderr);
        return 2;
    }
    try
    {
        write(argv[1], EncodeResourceFile("PiPL", describe(argc - 2, argv + 2)));
    }
    catch (const std::exception& failure)
    {
        std::fprintf(stderr, "write-resource: %s\n", failure.what());
        return 1;
    }
    return 0;
}
