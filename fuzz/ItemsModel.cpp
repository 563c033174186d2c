#include "fuzz/ItemsModel.h"

#include <algorithm>
#include <map>
#include <set>

namespace standin
{
namespace
{
using Kind = ModelNode::Kind;

constexpr int noGroup = -1;
constexpr int mostGroups = 10;

ModelNode groupNode(int number)
{
    ModelNode node;
    node.kind = Kind::group;
    node.name = "Group " + std::to_string(number);
    node.group = number;
    return node;
}

ModelNode nodeOf(const ObjectItem& item)
{
    ModelNode node;
    node.uuid = item.uuid;
    node.name = item.name;
    node.kind = item.uuid == ZERO_UUID_TEXT ? Kind::external : Kind::object;
    if (node.kind == Kind::object)
    {
        node.group = item.group;
        node.active = item.active;
    }
    return node;
}

bool holds(const ModelNode& node, int id)
{
    return node.id == id || std::any_of(node.children.begin(), node.children.end(),
                                        [id](const ModelNode& child) { return holds(child, id); });
}

ModelNode* find(ModelNode& node, int id)
{
    if (node.id == id)
        return &node;
    for (ModelNode& child : node.children)
        if (ModelNode* found = find(child, id))
            return found;
    return nullptr;
}

ModelNode* parentOf(ModelNode& node, int id)
{
    for (ModelNode& child : node.children)
    {
        if (child.id == id)
            return &node;
        if (ModelNode* found = parentOf(child, id))
            return found;
    }
    return nullptr;
}

int placeOf(const ModelNode& parent, int id)
{
    int place = 0;
    while (parent.children[static_cast<std::size_t>(place)].id != id)
        ++place;
    return place;
}

ModelNode take(ModelNode& parent, int place)
{
    const auto at = parent.children.begin() + place;
    ModelNode taken = std::move(*at);
    parent.children.erase(at);
    return taken;
}

void moveNode(ModelNode& root, int id, int target, int& place)
{
    ModelNode* const parent = parentOf(root, id);
    if (parent == nullptr || holds(*find(root, id), target))
        return;
    const int from = placeOf(*parent, id);
    if (parent->id == target && from < place)
        --place;
    ModelNode moved = take(*parent, from);
    ModelNode& newParent = *find(root, target);
    moved.group = newParent.kind == Kind::group ? newParent.group : noGroup;
    const auto size = static_cast<int>(newParent.children.size());
    const int at = place < 0 || place > size ? size : place;
    newParent.children.insert(newParent.children.begin() + at, std::move(moved));
}

int freeNumber(const std::set<int>& inUse)
{
    const int highest = inUse.empty() ? 0 : *inUse.rbegin();
    if (highest < mostGroups)
        return std::max(highest, 0) + 1;
    for (int number = 1; number <= mostGroups; ++number)
        if (inUse.count(number) == 0)
            return number;
    return 0;
}

/// Rows of the layer and of groups have no identity, not an empty one.
bool renameFirst(ModelNode& node, const std::string& uuid, const std::string& name)
{
    const bool hasIdentity = node.kind != ModelNode::Kind::layer && node.kind != ModelNode::Kind::group;
    if (hasIdentity && node.uuid == uuid)
    {
        node.name = name;
        return true;
    }
    return node.isOpen && std::any_of(node.children.begin(), node.children.end(),
                                      [&](ModelNode& child) { return renameFirst(child, uuid, name); });
}
} // namespace

bool ModelNode::operator==(const ModelNode& other) const
{
    return kind == other.kind && uuid == other.uuid && name == other.name && group == other.group &&
           active == other.active && children == other.children;
}

ModelNode BuildModel(const std::vector<ObjectItem>& items)
{
    ModelNode root;
    root.name = "Layer";
    std::map<int, std::size_t> groups;
    for (const ObjectItem& item : items)
    {
        const ModelNode node = nodeOf(item);
        if (node.kind != Kind::object || node.group < 1 || node.group > mostGroups)
        {
            root.children.push_back(node);
            continue;
        }
        const auto [group, isNew] = groups.emplace(node.group, root.children.size());
        if (isNew)
            root.children.push_back(groupNode(node.group));
        root.children[group->second].children.push_back(node);
    }
    return root;
}

std::vector<ObjectItem> ObjectsOf(const ModelNode& node)
{
    std::vector<ObjectItem> objects;
    if (node.kind == Kind::object)
        objects.push_back({node.uuid, node.name, node.group, node.active, ""});
    for (const ModelNode& child : node.children)
        for (ObjectItem& object : ObjectsOf(child))
            objects.push_back(std::move(object));
    return objects;
}

std::vector<std::string> DeleteNodes(ModelNode& root, const std::vector<int>& ids)
{
    std::vector<std::string> gone;
    for (auto id = ids.rbegin(); id != ids.rend(); ++id)
    {
        ModelNode* const parent = parentOf(root, *id);
        if (parent == nullptr)
            continue;
        for (const ObjectItem& object : ObjectsOf(take(*parent, placeOf(*parent, *id))))
            gone.push_back(object.uuid);
    }
    return gone;
}

void MoveNodes(ModelNode& root, const std::vector<int>& ids, int target, int place)
{
    for (auto id = ids.rbegin(); id != ids.rend(); ++id)
        moveNode(root, *id, target, place);
}

void AddGroup(ModelNode& root)
{
    std::set<int> inUse;
    std::size_t place = 0;
    for (std::size_t i = 0; i < root.children.size(); ++i)
    {
        const ModelNode& child = root.children[i];
        if (child.kind != Kind::group || child.group < 0)
            continue;
        inUse.insert(child.group);
        place = i + 1;
    }
    if (const int number = freeNumber(inUse); number != 0)
        root.children.insert(root.children.begin() + static_cast<std::ptrdiff_t>(place), groupNode(number));
}

void RenameFirst(ModelNode& root, const std::string& uuid, const std::string& name)
{
    (void)renameFirst(root, uuid, name);
}
} // namespace standin
