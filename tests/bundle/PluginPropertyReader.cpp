#include "tests/bundle/PluginPropertyReader.h"

#include "tests/bundle/ByteReader.h"

namespace standin
{
namespace
{
const Bytes& dataOf(const std::vector<Property>& list, std::size_t place, const std::string& key)
{
    const Property& property = list.at(place);
    Demand(property.vendor == "8BIM", "the vendor of " + key + " is another");
    Demand(property.key == key, key + " is not in its place");
    return property.data;
}

std::string pascalStringIn(const Bytes& data)
{
    ByteReader reader(data);
    std::string text = reader.PascalString();
    Demand(reader.IsAtEnd(), "there is something after a string");
    return text;
}
} // namespace

std::vector<Property> ReadPropertyList(const Bytes& list)
{
    ByteReader reader(list);
    Demand(reader.Number(4) == 0, "the list has another version");
    const std::uint32_t count = reader.Number(4);
    std::vector<Property> properties;
    for (std::uint32_t i = 0; i < count; ++i)
    {
        Property property;
        property.vendor = reader.Text(4);
        property.key = reader.Text(4);
        Demand(reader.Number(4) == 0, "the property has an id");
        property.data = reader.Take(reader.Number(4));
        reader.TakeZeros((4 - property.data.size() % 4) % 4, "the padding");
        properties.push_back(property);
    }
    Demand(reader.IsAtEnd(), "there is something after the properties");
    return properties;
}

Plugin ReadPlugin(const Bytes& list)
{
    const std::vector<Property> properties = ReadPropertyList(list);
    Demand(properties.size() == 6, "there are not six properties");
    const Bytes& kind = dataOf(properties, 0, "kind");
    const Bytes& version = dataOf(properties, 3, "vers");
    Demand(kind.size() == 4 && version.size() == 4, "kind and version are not four bytes each");

    Plugin plugin;
    plugin.kind = ByteReader(kind).Text(4);
    plugin.name = pascalStringIn(dataOf(properties, 1, "name"));
    plugin.category = pascalStringIn(dataOf(properties, 2, "catg"));
    plugin.version = ByteReader(version).Number(4);
    plugin.intelEntry = pascalStringIn(dataOf(properties, 4, "mi64"));
    plugin.siliconEntry = pascalStringIn(dataOf(properties, 5, "ma64"));
    return plugin;
}
} // namespace standin
