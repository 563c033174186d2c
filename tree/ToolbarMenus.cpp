// What a click on a toolbar button does: a new group, or the choice of an effect to add.

#include "tree/NameText.h"
#include "tree/ValueTreeItem.h"
#include "tree/ValueTreesDemo.h"

namespace
{
constexpr int groupButtonId = 4;

/// 0 for a button that adds no object.
int objectTypeOfButton(int radioGroupId)
{
    switch (radioGroupId)
    {
    case 1:
        return VN_OBJECT_GEOMETRY;
    case 2:
        return VN_OBJECT_EFFECTOR;
    case 3:
        return VN_OBJECT_RENDERER;
    case 5:
        return VN_OBJECT_VORTAN;
    default:
        return 0;
    }
}
} // namespace

void ValueTreesDemo::buttonClicked(juce::Button* button)
{
    const int id = button->getRadioGroupId();
    if (id == groupButtonId)
        return AddNewGroup(dynamic_cast<ValueTreeItem*>(treeView.getRootItem()));
    const int type = objectTypeOfButton(id);
    if (type == 0)
        return;

    juce::PopupMenu menu;
    std::vector<int> keys;
    for (const ObjectEntry& entry : objectEntries)
    {
        if (entry.type != type)
            continue;
        menu.addItem(static_cast<int>(keys.size()) + 1, ShownText(TextFromBytes(entry.name)), true, false);
        keys.push_back(entry.key);
    }
    if (keys.empty())
        return;
    if (keys.size() == 1)
        return addKey(keys.front());
    showMenu(std::move(menu), *button, std::move(keys));
}

void ValueTreesDemo::takeChoice(const std::vector<int>& keys, int result)
{
    if (result > 0)
        addKey(keys.at(static_cast<std::size_t>(result) - 1));
}

void ValueTreesDemo::addKey(int key)
{
    if (key != 0)
        keysToBeAdded.push_back(key);
}
