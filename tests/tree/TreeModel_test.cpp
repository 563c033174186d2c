#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
juce::ValueTree makeNode(const char* type, const char* name)
{
    return ValueTreesDemo::createTree(type, name);
}

std::vector<ObjectItem> itemsOf(const juce::ValueTree& node)
{
    std::vector<ObjectItem> items;
    getTreeItems(node, items);
    return items;
}
} // namespace

TEST(TreeModel, MakesANodeWithNameAndSelect)
{
    const juce::ValueTree node = makeNode("Group", "Group 3");
    EXPECT_EQ(node.getType().toString(), "Group");
    EXPECT_EQ(node.getNumProperties(), 2);
    EXPECT_EQ(node.getPropertyName(0).toString(), "name");
    EXPECT_EQ(node["name"].toString(), "Group 3");
    EXPECT_TRUE(node["select"].isInt());
    EXPECT_EQ(static_cast<int>(node["select"]), 0);
}

TEST(TreeModel, ReadsAnObjectWithAllItsFields)
{
    juce::ValueTree node = makeNode("Object", "Dots");
    node.setProperty("uuid", "11111111-2222-3333-4444-555555555555", nullptr);
    node.setProperty("group", 7, nullptr);
    node.setProperty("active", 1, nullptr);
    const auto items = itemsOf(node);
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].uuid, "11111111-2222-3333-4444-555555555555");
    EXPECT_EQ(items[0].name, "Dots");
    EXPECT_EQ(items[0].group, 7);
    EXPECT_EQ(items[0].active, 1);
    EXPECT_EQ(items[0].tag, "");
}

TEST(TreeModel, ReadsABareObjectAsTheDefaults)
{
    const auto items = itemsOf(juce::ValueTree("Object"));
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].uuid, "00000000-0000-0000-0000-000000000000");
    EXPECT_EQ(items[0].name, "");
    EXPECT_EQ(items[0].group, -1);
    EXPECT_EQ(items[0].active, 0);
    EXPECT_EQ(items[0].tag, "");
}

TEST(TreeModel, FindsNothingInEmptyGroupsAndRoots)
{
    EXPECT_THAT(itemsOf(makeNode("Group", "Group 1")), IsEmpty());
    EXPECT_THAT(itemsOf(makeNode("Layer", "Layer")), IsEmpty());
    EXPECT_THAT(itemsOf(juce::ValueTree()), IsEmpty());
}

TEST(TreeModel, LeavesOutsideEffectsOutOfTheList)
{
    juce::ValueTree layer = makeNode("Layer", "Layer");
    layer.appendChild(makeNode("External", "Blur"), nullptr);
    layer.appendChild(makeNode("Object", "a"), nullptr);
    EXPECT_THAT(namesOf(itemsOf(layer)), ElementsAre("a"));
}

TEST(TreeModel, AppendsToTheListThatItIsGiven)
{
    std::vector<ObjectItem> items = {object(9, "before")};
    getTreeItems(makeNode("Object", "a"), items);
    EXPECT_THAT(namesOf(items), ElementsAre("before", "a"));
}

TEST(TreeModel, WalksAnyDepthInDisplayOrder)
{
    juce::ValueTree layer = makeNode("Layer", "Layer");
    juce::ValueTree outer = makeNode("Group", "Group 1");
    juce::ValueTree inner = makeNode("Group", "Group 2");
    juce::ValueTree holder = makeNode("Object", "holder");
    layer.appendChild(makeNode("Object", "first"), nullptr);
    layer.appendChild(outer, nullptr);
    outer.appendChild(inner, nullptr);
    inner.appendChild(holder, nullptr);
    holder.appendChild(makeNode("Object", "deepest"), nullptr);
    outer.appendChild(makeNode("Object", "behind"), nullptr);
    layer.appendChild(makeNode("Object", "last"), nullptr);
    EXPECT_THAT(namesOf(itemsOf(layer)), ElementsAre("first", "holder", "deepest", "behind", "last"));
}

TEST(TreeModel, DoesNotCountSelectionOrRigidity)
{
    juce::ValueTree layer = makeNode("Layer", "Layer");
    layer.appendChild(makeNode("Object", "a"), nullptr);
    const auto before = CalcItemsHash(1, itemsOf(layer));
    layer.getChild(0).setProperty("select", 1, nullptr);
    layer.getChild(0).setProperty("rigid", 1, nullptr);
    layer.setProperty("select", 1, nullptr);
    EXPECT_EQ(CalcItemsHash(1, itemsOf(layer)), before);
}

TEST(TreeModel, HasTenGroupNumbers)
{
    EXPECT_THAT(GROUP_NUMBERS, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
}
