#include "bundle/PluginProperties.h"

#include "bundle/BigEndianBytes.h"

#include <stdexcept>

namespace
{
constexpr std::uint32_t listVersion = 0;
constexpr std::uint32_t propertyCount = 6;
constexpr std::uint32_t propertyId = 0;

void appendProperty(BigEndianBytes& list, const char (&key)[5], const BigEndianBytes& data)
{
    list.AppendCode("8BIM");
    list.AppendCode(key);
    list.Append32(propertyId);
    list.Append32(data.Size());
    list.Append(data.Bytes());
    while (list.Size() % 4 != 0)
        list.Append8(0);
}

void appendText(BigEndianBytes& list, const char (&key)[5], const std::string& text)
{
    BigEndianBytes data;
    data.AppendPascalString(text);
    appendProperty(list, key, data);
}
} // namespace

PluginDescription DescribeEntryPoint(const std::string& entryPoint)
{
    constexpr std::uint32_t version = 0x00010000;
    if (entryPoint == "EffectorAEGP")
        return {entryPoint, "Vortan Idle Suite", "Vortan", version};
    if (entryPoint == "PanelEntryPointFunc")
        return {entryPoint, "Vortan Object Panel", "Vortan", version};
    throw std::invalid_argument("the bundle has no entry point " + entryPoint);
}

std::vector<std::uint8_t> EncodePluginProperties(const PluginDescription& plugin)
{
    BigEndianBytes kind;
    kind.AppendCode("AEgx");
    BigEndianBytes version;
    version.Append32(plugin.version);

    BigEndianBytes list;
    list.Append32(listVersion);
    list.Append32(propertyCount);
    appendProperty(list, "kind", kind);
    appendText(list, "name", plugin.name);
    appendText(list, "catg", plugin.category);
    appendProperty(list, "vers", version);
    appendText(list, "mi64", plugin.entryPoint);
    appendText(list, "ma64", plugin.entryPoint);
    return list.Bytes();
}
