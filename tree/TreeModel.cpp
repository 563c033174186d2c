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

std::string nodeUuid(const juce::ValueTree& node)
{
    return BytesFromText(node.getProperty(TreeIds::uuid, ZERO_UUID_TEXT).toString());
}

void getTreeItems(const juce::ValueTree& node, std::vector<ObjectItem>& out)
{
    if (node.hasType(TreeIds::Object))
    {
        ObjectItem item;
        item.uuid = nodeUuid(node);
        item.name = BytesFromText(node.getProperty(TreeIds::name, "").toString());
        item.group = node.getProperty(TreeIds::group, -1);
        item.active = node.getProperty(TreeIds::active, 0);
        out.push_back(std::move(item));
    }
    for (int i = 0; i < node.getNumChildren(); ++i)
        getTreeItems(node.getChild(i), out);
}
