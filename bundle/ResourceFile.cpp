#include "bundle/ResourceFile.h"

#include "bundle/BigEndianBytes.h"

namespace
{
constexpr std::uint32_t headerSize = 16;
constexpr std::uint32_t dataOffset = 256;
constexpr std::uint32_t mapHeaderSize = 28; ///< Copy of the header, 8 reserved bytes, two offsets.
constexpr std::uint32_t typeListSize = 2 + 8;
constexpr std::uint32_t referenceSize = 12;
constexpr std::uint32_t noName = 0xFFFF;

std::uint32_t mapSize(const std::vector<NumberedResource>& resources)
{
    return mapHeaderSize + typeListSize + referenceSize * static_cast<std::uint32_t>(resources.size());
}

BigEndianBytes encodeData(const std::vector<NumberedResource>& resources)
{
    BigEndianBytes data;
    for (const NumberedResource& resource : resources)
    {
        data.Append32(static_cast<std::uint32_t>(resource.data.size()));
        data.Append(resource.data);
    }
    return data;
}

void appendHeader(BigEndianBytes& file, std::uint32_t dataSize, std::uint32_t sizeOfMap)
{
    file.Append32(dataOffset);
    file.Append32(dataOffset + dataSize);
    file.Append32(dataSize);
    file.Append32(sizeOfMap);
}

void appendReferences(BigEndianBytes& file, const std::vector<NumberedResource>& resources)
{
    std::uint32_t offset = 0;
    for (const NumberedResource& resource : resources)
    {
        file.Append16(resource.id);
        file.Append16(noName);
        file.Append32(offset); // The attributes are the topmost byte, and none is set.
        file.Append32(0);
        offset += 4 + static_cast<std::uint32_t>(resource.data.size());
    }
}

void appendMap(BigEndianBytes& file, std::uint32_t dataSize, const char (&type)[5],
               const std::vector<NumberedResource>& resources)
{
    appendHeader(file, dataSize, mapSize(resources));
    file.AppendZeros(8);
    file.Append16(mapHeaderSize);
    file.Append16(mapSize(resources)); // The list of names is empty, at the end.

    file.Append16(1 - 1);
    file.AppendCode(type);
    file.Append16(static_cast<std::uint32_t>(resources.size()) - 1);
    file.Append16(typeListSize);
    appendReferences(file, resources);
}
} // namespace

std::vector<std::uint8_t> EncodeResourceFile(const char (&type)[5],
                                             const std::vector<NumberedResource>& resources)
{
    const BigEndianBytes data = encodeData(resources);
    BigEndianBytes file;
    appendHeader(file, data.Size(), mapSize(resources));
    file.AppendZeros(dataOffset - headerSize);
    file.Append(data.Bytes());
    appendMap(file, data.Size(), type, resources);
    return file.Bytes();
}
