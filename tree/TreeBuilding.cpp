// Making documents: a whole one out of an item list, and a new group in a present one.

#include "tree/NameText.h"

#include "host/PrintLine.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"
#include "tree/ValueTreesDemo.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{
constexpr int lowestGroup = GROUP_NUMBERS[0];
constexpr int highestGroup = GROUP_NUMBERS[std::size(GROUP_NUMBERS) - 1];

juce::ValueTree createNode(const juce::Identifier& type, const juce::String& name)
{
    juce::ValueTree node(type);
    node.setProperty(TreeIds::name, name, nullptr);
    node.setProperty(TreeIds::select, 0, nullptr);
    return node;
}

juce::ValueTree createGroup(int number)
{
    juce::ValueTree group = createNode(TreeIds::Group, "Group " + juce::String(number));
    group.setProperty(TreeIds::group, number, nullptr);
    return group;
}

juce::ValueTree createExternal(const ObjectItem& item)
{
    juce::ValueTree node = createNode(TreeIds::External, TextFromBytes(item.name));
    node.setProperty(TreeIds::uuid, TextFromBytes(item.uuid), nullptr);
    return node;
}

/// All properties at once, which costs a good deal less than one by one.
juce::ValueTree createObject(const ObjectItem& item, bool isActiveEffect)
{
    if (isActiveEffect)
        PrintLine("Active Effect Index Found");
    const juce::var name(TextFromBytes(item.name));
    const juce::var uuid(TextFromBytes(item.uuid));
    const int select = isActiveEffect ? 1 : 0;
    if (item.group == -1)
        return {TreeIds::Object,
                {{TreeIds::name, name},
                 {TreeIds::select, select},
                 {TreeIds::rigid, 1},
                 {TreeIds::uuid, uuid},
                 {TreeIds::group, item.group},
                 {TreeIds::active, item.active}}};
    return {TreeIds::Object,
            {{TreeIds::name, name},
             {TreeIds::select, select},
             {TreeIds::uuid, uuid},
             {TreeIds::group, item.group},
             {TreeIds::active, item.active}}};
}

/// The groups of a document that is being made.
class GroupNodes
{
public:
    /// The node that takes the object: the root, or the group of that number, which is made on first need and
    /// so stands where its first object stood.
    juce::ValueTree& parentFor(int group, juce::ValueTree& root)
    {
        if (group < lowestGroup || group > highestGroup)
            return root;
        juce::ValueTree& node = nodes[static_cast<std::size_t>(group - lowestGroup)];
        if (!node.isValid())
        {
            node = createGroup(group);
            root.appendChild(node, nullptr);
        }
        return node;
    }

private:
    std::array<juce::ValueTree, highestGroup - lowestGroup + 1> nodes;
};

struct GroupsInUse
{
    std::vector<int> numbers; ///< ascending
    int highest = 0;
    int insertIndex = 0; ///< After the last group.
};

GroupsInUse findGroups(const juce::ValueTree& root)
{
    GroupsInUse found;
    for (int i = 0; i < root.getNumChildren(); ++i)
    {
        const juce::ValueTree child = root.getChild(i);
        if (!child.hasType(TreeIds::Group))
            continue;
        const int number = child.getProperty(TreeIds::group, -1);
        found.highest = std::max(found.highest, number);
        if (number < 0)
            continue;
        found.numbers.push_back(number);
        found.insertIndex = i + 1;
    }
    std::sort(found.numbers.begin(), found.numbers.end());
    return found;
}

/// The number of the next group, 0 if all are in use.
int nextGroupNumber(const GroupsInUse& groups)
{
    // Kept: a hole is filled only when no higher number is free.
    if (groups.highest < highestGroup)
        return groups.highest + 1;
    const std::size_t count = std::min(groups.numbers.size(), std::size(GROUP_NUMBERS));
    for (std::size_t i = 0; i < count; ++i)
        if (groups.numbers[i] != GROUP_NUMBERS[i])
            return GROUP_NUMBERS[i];
    return 0;
}
} // namespace

juce::ValueTree ValueTreesDemo::createTree(const juce::String& type, const juce::String& name)
{
    return createNode(juce::Identifier(type), name);
}

ValueTreeItem* ValueTreesDemo::CreateTreeFromItems(const std::vector<ObjectItem>& items, int activeIndex)
{
    juce::ValueTree root = createNode(TreeIds::Layer, "Layer");
    if (activeIndex == -1)
        root.setProperty(TreeIds::select, 1, nullptr);
    GroupNodes groups;
    for (std::size_t i = 0; i < items.size(); ++i)
    {
        const ObjectItem& item = items[i];
        if (item.uuid == ZERO_UUID_TEXT)
            root.appendChild(createExternal(item), nullptr);
        else
            groups.parentFor(item.group, root)
                .appendChild(createObject(item, static_cast<int>(i) == activeIndex), nullptr);
    }
    return new ValueTreeItem(root, false);
}

void ValueTreesDemo::AddNewGroup(ValueTreeItem* root)
{
    if (root == nullptr)
        return;
    juce::ValueTree layer = root->getNode();
    const GroupsInUse groups = findGroups(layer);
    const int number = nextGroupNumber(groups);
    if (number == 0)
        notifyLabel.setText("Max no. of Groups reached", juce::sendNotification);
    else
        layer.addChild(createGroup(number), groups.insertIndex, nullptr);
}
