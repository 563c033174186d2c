#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;

namespace
{
class TreeBuilding : public TreeTest
{
protected:
    void build(const std::vector<ObjectItem>& items, int activeIndex = -1)
    {
        view().deleteRootItem();
        view().setRootItem(ValueTreesDemo::CreateTreeFromItems(items, activeIndex));
    }

    void addGroup() { panel->AddNewGroup(root()); }
};
} // namespace

TEST_F(TreeBuilding, OfNothingIsABareSelectedRoot)
{
    build({});
    EXPECT_EQ(shape(), "Layer*");
    EXPECT_EQ(root()->getNode().getType().toString(), "Layer");
    EXPECT_EQ(static_cast<int>(root()->getNode()["select"]), 1);
    EXPECT_EQ(root()->getNode().getNumProperties(), 2);
}

TEST_F(TreeBuilding, LeavesTheRootUnselectedForAnyOtherIndex)
{
    build({}, 0);
    EXPECT_EQ(static_cast<int>(root()->getNode()["select"]), 0);
    build({}, -2);
    EXPECT_EQ(static_cast<int>(root()->getNode()["select"]), 0);
}

TEST_F(TreeBuilding, SelectsAndReportsTheActiveIndex)
{
    const auto output = OutputOf([this] { build({object(1, "a"), object(2, "b"), object(3, "c")}, 1); });
    EXPECT_EQ(output, "Active Effect Index Found\n");
    EXPECT_EQ(shape(), "Layer(a b* c)");
}

TEST_F(TreeBuilding, CountsOutsideEffectsButNeverSelectsThem)
{
    EXPECT_EQ(OutputOf([this] { build({external("x"), object(1, "a")}, 0); }), "");
    EXPECT_EQ(shape(), "Layer(x a)");
    EXPECT_EQ(OutputOf([this] { build({external("x"), object(1, "a")}, 1); }), "Active Effect Index Found\n");
    EXPECT_EQ(shape(), "Layer(x a*)");
}

TEST_F(TreeBuilding, WritesNothingWithoutAnActiveIndex)
{
    EXPECT_EQ(OutputOf([this] { build({object(1, "a"), object(2, "b", 2)}); }), "");
}

TEST_F(TreeBuilding, GathersAGroupWhereItsFirstObjectStands)
{
    build({object(1, "a", 3), object(2, "b", 0), object(3, "c", 3)});
    EXPECT_EQ(shape(), "Layer*(Group 3(a c) b)");
    EXPECT_EQ(static_cast<int>(node("Group 3")["group"]), 3);
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "c", "b"));
}

TEST_F(TreeBuilding, MakesEachOfTheTenGroups)
{
    std::vector<ObjectItem> items;
    for (int group = 10; group >= 1; --group)
        items.push_back(object(group, "o", group));
    build(items);
    EXPECT_EQ(root()->getNode().getNumChildren(), 10);
    for (int i = 0; i < 10; ++i)
    {
        EXPECT_EQ(root()->getNode().getChild(i)["name"].toString(), "Group " + juce::String(10 - i));
        EXPECT_EQ(root()->getNode().getChild(i).getType().toString(), "Group");
    }
    EXPECT_EQ(GetItemsFromTree(panel).size(), 10u);
}

TEST_F(TreeBuilding, KeepsANumberOutsideTheGroups)
{
    build({object(1, "a", 11), object(2, "b", -5), object(3, "c", 0)});
    EXPECT_EQ(shape(), "Layer*(a b c)");
    EXPECT_THAT(groupsOf(GetItemsFromTree(panel)), ElementsAre(11, -5, 0));
    for (const char* name : {"a", "b", "c"})
        EXPECT_FALSE(node(name).hasProperty("rigid"));
}

TEST_F(TreeBuilding, MarksAnUngroupableObjectAsRigid)
{
    build({object(1, "a", -1)});
    EXPECT_EQ(shape(), "Layer*(a)");
    EXPECT_EQ(static_cast<int>(node("a")["rigid"]), 1);
    EXPECT_EQ(static_cast<int>(node("a")["group"]), -1);
}

TEST_F(TreeBuilding, UsesOnlyAnOutsideEffectsNameAndIdentity)
{
    ObjectItem item = external("Blur");
    item.group = 2;
    item.active = 1;
    build({item});
    EXPECT_EQ(shape(), "Layer*(Blur)");
    EXPECT_EQ(node("Blur").getType().toString(), "External");
    EXPECT_EQ(node("Blur").getNumProperties(), 3);
    EXPECT_EQ(node("Blur")["uuid"].toString(), "00000000-0000-0000-0000-000000000000");
    EXPECT_FALSE(node("Blur").hasProperty("group"));
    EXPECT_FALSE(node("Blur").hasProperty("active"));
}

TEST_F(TreeBuilding, GivesAnObjectItsPropertiesInOrder)
{
    build({object(7, "a", -1, 0)});
    const juce::ValueTree a = node("a");
    std::vector<std::string> names;
    for (int i = 0; i < a.getNumProperties(); ++i)
        names.push_back(a.getPropertyName(i).toString().toStdString());
    EXPECT_THAT(names, ElementsAre("name", "select", "rigid", "uuid", "group", "active"));
    EXPECT_EQ(a["uuid"].toString().toStdString(), uuidOf(7));
    EXPECT_EQ(static_cast<int>(a["active"]), 0);
}

TEST_F(TreeBuilding, ReadsBackTheItemsItWasBuiltFrom)
{
    const std::vector<ObjectItem> items = {object(1, "a", 0, 1), object(2, "b", 4, 0), object(3, "c", -1, 1)};
    build(items);
    EXPECT_EQ(CalcItemsHash(5, GetItemsFromTree(panel)), CalcItemsHash(5, items));
}

TEST_F(TreeBuilding, DoesNotReadBackAnOutsideEffect)
{
    build({object(1, "a"), external("Blur"), object(2, "b")});
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a", "b"));
}

TEST_F(TreeBuilding, AddsTheNextGroupAfterTheLast)
{
    build({object(1, "a", 1), object(2, "b", 0), object(3, "c", 2), object(4, "d", 3), object(5, "e", 0)});
    addGroup();
    EXPECT_EQ(shape(), "Layer*(Group 1(a) b Group 2(c) Group 3(d) Group 4 e)");
    EXPECT_EQ(node("Group 4").getType().toString(), "Group");
    EXPECT_EQ(static_cast<int>(node("Group 4")["group"]), 4);
}

TEST_F(TreeBuilding, LeavesAHoleWhileHigherNumbersAreFree)
{
    build({object(1, "a", 1), object(2, "b", 3)});
    addGroup();
    EXPECT_EQ(shape(), "Layer*(Group 1(a) Group 3(b) Group 4)");
}

TEST_F(TreeBuilding, FillsTheLowestHoleAfterNumberTen)
{
    build({object(1, "a", 1), object(2, "b", 10)});
    addGroup();
    EXPECT_EQ(shape(), "Layer*(Group 1(a) Group 10(b) Group 2)");
    addGroup();
    EXPECT_EQ(shape(), "Layer*(Group 1(a) Group 10(b) Group 2 Group 3)");
}

TEST_F(TreeBuilding, FillsNumberOneAfterALoneNumberTen)
{
    build({object(1, "a", 10)});
    addGroup();
    EXPECT_EQ(shape(), "Layer*(Group 10(a) Group 1)");
}

TEST_F(TreeBuilding, PutsTheFirstGroupOnTop)
{
    build({object(1, "a"), external("x")});
    addGroup();
    EXPECT_EQ(shape(), "Layer*(Group 1 a x)");
}

TEST_F(TreeBuilding, RefusesAnEleventhGroup)
{
    std::vector<ObjectItem> items;
    for (int group = 1; group <= 10; ++group)
        items.push_back(object(group, "o", group));
    build(items);
    const std::string before = shape();
    addGroup();
    EXPECT_EQ(shape(), before);
    EXPECT_EQ(panel->notifyLabel.getText(), "Max no. of Groups reached");
    EXPECT_TRUE(panel->notifyLabel.isVisible());
}

TEST_F(TreeBuilding, DoesNotCountAGroupWithoutNumber)
{
    build({object(1, "a", 1), object(2, "b", 2)});
    node("Group 2").setProperty("group", -1, nullptr);
    addGroup();
    // After the last group that has a number.
    EXPECT_EQ(shape(), "Layer*(Group 1(a) Group 2 Group 2(b))");
}

TEST_F(TreeBuilding, CountsAGroupOfNumberZero)
{
    build({object(1, "a", 1), object(2, "b", 2), object(3, "c")});
    node("Group 2").setProperty("group", 0, nullptr);
    addGroup();
    // After the zero, which is as much a group as the one.
    EXPECT_EQ(shape(), "Layer*(Group 1(a) Group 2(b) Group 2 c)");

    build({object(1, "a", 1), object(2, "b", 2), object(3, "c", 10)});
    node("Group 2").setProperty("group", 0, nullptr);
    addGroup();
    // The zero stands where the one is looked for.
    EXPECT_EQ(shape(), "Layer*(Group 1(a) Group 2(b) Group 10(c) Group 1)");
}

TEST_F(TreeBuilding, AddsNoGroupWithoutARoot)
{
    panel->AddNewGroup(nullptr);
    EXPECT_EQ(shape(), "");
    EXPECT_FALSE(panel->notifyLabel.isVisible());
}

TEST_F(TreeBuilding, OfANewGroupChangesNoItem)
{
    build({object(1, "a", 1)});
    const auto before = CalcItemsHash(3, GetItemsFromTree(panel));
    addGroup();
    EXPECT_EQ(CalcItemsHash(3, GetItemsFromTree(panel)), before);
}

TEST_F(TreeBuilding, ForgetsAnEmptyGroup)
{
    RefreshTree(panel, {object(1, "a", 1)});
    addGroup();
    ASSERT_EQ(shape(), "Layer(Group 1(a) Group 2)");
    RefreshTree(panel, GetItemsFromTree(panel));
    EXPECT_EQ(shape(), "Layer(Group 1(a))");
}
