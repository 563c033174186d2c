#include "tests/bundle/ResourceReader.h"

#include "tests/bundle/ByteReader.h"

#include <fstream>
#include <iterator>

namespace standin
{
namespace
{
struct Header
{
    std::uint32_t dataOffset;
    std::uint32_t mapOffset;
    std::uint32_t dataLength;
    std::uint32_t mapLength;
};

Header readHeader(ByteReader& reader)
{
    Header header = {};
    header.dataOffset = reader.Number(4);
    header.mapOffset = reader.Number(4);
    header.dataLength = reader.Number(4);
    header.mapLength = reader.Number(4);
    return header;
}

Header readFileHeader(const Bytes& file)
{
    ByteReader reader(file);
    const Header header = readHeader(reader);
    reader.TakeZeros(240, "the room between header and data");
    Demand(header.dataOffset == 256, "the data does not start at 256");
    Demand(header.mapOffset == 256 + header.dataLength, "the map does not follow the data");
    Demand(file.size() == std::size_t{header.mapOffset} + header.mapLength, "the map is not the file's end");
    return header;
}

void readMapHeader(ByteReader& map, const Header& header)
{
    const Header copy = readHeader(map);
    Demand(copy.dataOffset == header.dataOffset && copy.mapOffset == header.mapOffset &&
               copy.dataLength == header.dataLength && copy.mapLength == header.mapLength,
           "the map's copy of the header differs");
    map.TakeZeros(8, "the map's reserved room");
    Demand(map.Number(2) == 28, "the list of types does not follow the map's header");
    Demand(map.Number(2) == header.mapLength, "there is a list of names");
}

/// Reads one reference, and the data that it points at, which must lie where the former data ended.
Resource readReference(ByteReader& map, const Bytes& file, const std::string& type, std::size_t& dataEnd)
{
    const int id = static_cast<int>(map.Number(2));
    Demand(map.Number(2) == 0xFFFF, "the resource has a name");
    Demand(map.Number(1) == 0, "the resource has attributes");
    const std::size_t offset = 256 + map.Number(3);
    map.TakeZeros(4, "the reference's reserved room");
    Demand(offset == dataEnd, "there is a gap in the data, or an overlap");
    ByteReader data(file, offset);
    Resource resource = {type, id, data.Take(data.Number(4))};
    dataEnd = data.Position();
    return resource;
}
} // namespace

std::vector<Resource> ReadResourceFile(const Bytes& file)
{
    const Header header = readFileHeader(file);
    ByteReader map(file, header.mapOffset);
    readMapHeader(map, header);

    Demand(map.Number(2) == 0, "there is more than one type");
    const std::string type = map.Text(4);
    const std::uint32_t count = map.Number(2) + 1;
    Demand(map.Number(2) == 10, "the references do not follow the list of types");

    std::vector<Resource> resources;
    std::size_t dataEnd = header.dataOffset;
    for (std::uint32_t i = 0; i < count; ++i)
        resources.push_back(readReference(map, file, type, dataEnd));
    Demand(dataEnd == header.mapOffset, "there is data that no reference points at");
    Demand(map.IsAtEnd(), "there is something after the references");
    return resources;
}

Bytes ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    Demand(file.is_open(), path + " is not there");
    return Bytes(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}
} // namespace standin
