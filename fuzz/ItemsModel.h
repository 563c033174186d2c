#pragma once
// The tree's document as plain values, and what building it and editing it make of it, worked out without
// JUCE.

#include "effects/ObjectItem.h"

#include <string>
#include <vector>

namespace standin
{
struct ModelNode
{
    enum class Kind
    {
        layer,
        group,
        object,
        external
    };

    Kind kind = Kind::layer;
    int id = 0; ///< Stays with the node when it moves. Not compared.
    std::string uuid;
    std::string name;
    int group = -1;
    int active = 0;
    bool isOpen = true; ///< Not compared.
    std::vector<ModelNode> children;

    bool operator==(const ModelNode& other) const;
};

/// The document that is made of a layer's items. All ids are 0.
ModelNode BuildModel(const std::vector<ObjectItem>& items);

/// The objects of the node and of everything below it, in display order.
std::vector<ObjectItem> ObjectsOf(const ModelNode& node);

/// Takes the nodes away; gives the identities of their objects in the order in which they go, from below.
std::vector<std::string> DeleteNodes(ModelNode& root, const std::vector<int>& ids);

/// Moves the nodes, in their order, below another. `place` counts the children that it has before.
void MoveNodes(ModelNode& root, const std::vector<int>& ids, int target, int place);

/// After the last group. Nothing happens if all numbers are in use.
void AddGroup(ModelNode& root);

/// Gives the first node with this identity its name, of those that no closed node hides.
void RenameFirst(ModelNode& root, const std::string& uuid, const std::string& name);
} // namespace standin
