#include "tree/TreeModel.h"

#include "tree/NameText.h"

namespace TreeIds
{
const juce::Identifier Layer("Layer");
const juce::Identifier Group("Group");
const juce::Identifier Object("Object");
const juce::Identifier External("External");

const juce::Identifier name("name");
const juce::Identifier select("select");
const juce::Identifier uuid("uuid");
const juce::Identifier group("group");
const juce::Identifier active("active");
const juce::Identifier rigid("rigid");
} // namespace TreeIds

namespace
{
int numberOf(const juce::ValueTree& node, const juce::Identifier& property, int otherwise)
{
    const juce::var* number = node.getPropertyPointer(property);
    return number != nullptr ? static_cast<int>(*number) : otherwise;
}
} // namespace

std::string nodeUuid(const juce::ValueTree& node)
{
    const juce::var* uuid = node.getPropertyPointer(TreeIds::uuid);
    return uuid != nullptr ? BytesFromText(uuid->toString()) : ZERO_UUID_TEXT;
}

void getTreeItems(const juce::ValueTree& node, std::vector<ObjectItem>& out)
{
    if (node.hasType(TreeIds::Object))
    {
        ObjectItem item;
        item.uuid = nodeUuid(node);
        item.name = BytesFromText(node[TreeIds::name].toString());
        item.group = numberOf(node, TreeIds::group, -1);
        item.active = numberOf(node, TreeIds::active, 0);
        out.push_back(std::move(item));
    }
    for (int i = 0; i < node.getNumChildren(); ++i)
        getTreeItems(node.getChild(i), out);
}
