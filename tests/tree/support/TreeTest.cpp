#include "tests/tree/support/TreeTest.h"

#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeShape.h"

#include <cstdlib>
#include <stdexcept>

namespace standin
{
std::string uuidOf(int number)
{
    const std::string digits = std::to_string(number);
    return std::string(ZERO_UUID_TEXT).replace(36 - digits.size(), digits.size(), digits);
}

ObjectItem object(int number, const std::string& name, int group, int active)
{
    ObjectItem item;
    item.uuid = uuidOf(number);
    item.name = name;
    item.group = group;
    item.active = active;
    item.tag = "a match name";
    return item;
}

ObjectItem external(const std::string& name)
{
    ObjectItem item;
    item.uuid = ZERO_UUID_TEXT;
    item.name = name;
    return item;
}

std::vector<std::string> namesOf(const std::vector<ObjectItem>& items)
{
    std::vector<std::string> result;
    for (const auto& item : items)
        result.push_back(item.name);
    return result;
}

std::vector<int> groupsOf(const std::vector<ObjectItem>& items)
{
    std::vector<int> result;
    for (const auto& item : items)
        result.push_back(item.group);
    return result;
}

std::vector<int> activesOf(const std::vector<ObjectItem>& items)
{
    std::vector<int> result;
    for (const auto& item : items)
        result.push_back(item.active);
    return result;
}

juce::KeyPress commandKey(int letter)
{
    return juce::KeyPress(letter, juce::ModifierKeys::commandModifier, 0);
}

TreeTest::TreeTest(Screen screen)
{
    // Without a display, JUCE tries the machine's first one, which may be another user's.
    if (screen == Screen::none)
        (void)setenv("DISPLAY", "none", 1);
    JuceGlobalInit();
    panel = CreateTreeWidget(false);
}

TreeTest::~TreeTest()
{
    deleteWidget();
    JuceGlobalShutDown();
}

void TreeTest::deleteWidget()
{
    ClearTree(panel);
    DeleteTreeWidget(panel);
    panel = nullptr;
}

ValueTreeItem* TreeTest::root() { return dynamic_cast<ValueTreeItem*>(view().getRootItem()); }

std::string TreeTest::shape() { return ShapeOf(view()); }

ValueTreeItem& TreeTest::row(const std::string& name)
{
    auto* found = FindRow(view(), name);
    if (found == nullptr)
        throw std::runtime_error("no row " + name + " in " + shape());
    return *found;
}

void TreeTest::select(const std::vector<std::string>& names)
{
    view().clearSelectedItems();
    for (const auto& name : names)
        row(name).setSelected(true, false);
}

std::vector<std::string> TreeTest::selectedNames()
{
    std::vector<std::string> names;
    for (int i = 0; i < view().getNumSelectedItems(); ++i)
        names.push_back(NameOf(dynamic_cast<ValueTreeItem&>(*view().getSelectedItem(i))));
    return names;
}

void TreeTest::drop(const std::string& target, int insertIndex, const std::string& description)
{
    const juce::DragAndDropTarget::SourceDetails details(juce::String(description), &view(), {});
    ASSERT_TRUE(row(target).isInterestedInDragSource(details)) << description << " on " << target;
    row(target).itemDropped(details, insertIndex);
}
} // namespace standin
