#include "standin/check/StackModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
using namespace check;

namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

ModelEffect effect(int id, ModelKind kind, const std::string& name, int group = 0)
{
    return {id, kind, name, group, Power::on};
}

std::vector<std::string> names(const ModelStack& stack)
{
    std::vector<std::string> all;
    for (const ModelEffect& each : stack)
        all.push_back(each.name);
    return all;
}

/// "a", or "Group 1: b c", as far as it is to be seen.
std::vector<std::string> rows(const StackModel& model)
{
    std::vector<std::string> all;
    if (!model.HasRoot())
        return all;
    model.Root().ForEachShown(
        [&](const ModelRow& row, int depth)
        {
            if (depth == 1)
                all.push_back(row.Name() + (row.IsGroup() ? ":" : ""));
            else if (depth > 1)
                all.back() += " " + row.Name();
        });
    return all;
}

/// The id of the nth row below the layer.
int rowAt(const StackModel& model, std::size_t index) { return model.Root().rows[index].id; }

StackModel modelOf(ModelStack stack)
{
    StackModel model({std::move(stack), {}});
    (void)model.Settle();
    (void)model.TakeWrites();
    return model;
}

StackModel threeObjects()
{
    return modelOf({effect(1, ModelKind::geometry, "a"), effect(2, ModelKind::effector, "b"),
                    effect(3, ModelKind::renderer, "c")});
}

TEST(StackModelTest, ALayerOfObjectsIsOnlyRead)
{
    StackModel model({{effect(1, ModelKind::geometry, "a"), effect(2, ModelKind::geometry, "b")}, {}});
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("a", "b"));
    EXPECT_THAT(model.UndoNames(), IsEmpty());
    EXPECT_THAT(model.TakeWrites(), IsEmpty());
}

TEST(StackModelTest, AnOutsideEffectIsPushedBelowTheFamily)
{
    StackModel model({{effect(9, ModelKind::outside, "blur"), effect(1, ModelKind::geometry, "a"),
                       effect(2, ModelKind::geometry, "b")},
                      {}});
    (void)model.Settle();
    EXPECT_THAT(names(model.Stack()), ElementsAre("a", "b", "blur"));
    EXPECT_THAT(model.UndoNames(), ElementsAre("Reorder Effect(s)"));
    EXPECT_THAT(model.TakeWrites(), ElementsAre("AEGP_ReorderEffect", "AEGP_ReorderEffect"));
}

TEST(StackModelTest, AGroupGathersAtItsFirstObject)
{
    const StackModel model =
        modelOf({effect(1, ModelKind::geometry, "a", 3), effect(2, ModelKind::geometry, "b"),
                 effect(3, ModelKind::geometry, "c", 3)});
    EXPECT_THAT(rows(model), ElementsAre("Group 3: a c", "b"));
    EXPECT_THAT(names(model.Stack()), ElementsAre("a", "c", "b"));
}

TEST(StackModelTest, APanelsRenameIsOneStep)
{
    StackModel model = threeObjects();
    model.RenameRow(2, "new");
    EXPECT_THAT(names(model.Stack()), ElementsAre("a", "b", "c"))
        << "the layer learns of it at the next idle";
    (void)model.Settle();
    EXPECT_THAT(names(model.Stack()), ElementsAre("a", "new", "c"));
    EXPECT_THAT(model.UndoNames(), ElementsAre("Rename Effect(s)"));
    EXPECT_THAT(model.TakeWrites(), ElementsAre("AEGP_SetStreamName", "AEGP_ReorderEffect",
                                                "AEGP_ReorderEffect", "AEGP_ReorderEffect"));
}

TEST(StackModelTest, APanelsEditLosesAgainstTheLayer)
{
    StackModel model = threeObjects();
    model.RenameRow(2, "new");
    model.Switch(1, Power::off);
    (void)model.Settle();
    EXPECT_THAT(names(model.Stack()), ElementsAre("a", "b", "c"));
    EXPECT_THAT(model.UndoNames(), ElementsAre("Switch Effect Off"));
}

TEST(StackModelTest, AGroupDragIsChangeAndUnnamedReorder)
{
    StackModel model = threeObjects();
    model.AddEmptyGroup();
    EXPECT_THAT(rows(model), ElementsAre("Group 1:", "a", "b", "c"));
    model.MoveRow(3, {rowAt(model, 0), 0});
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("Group 1: c", "a", "b"));
    EXPECT_THAT(names(model.Stack()), ElementsAre("c", "a", "b"));
    EXPECT_EQ(model.Stack()[0].group, 1);
    EXPECT_THAT(model.UndoNames(), ElementsAre("Change Group", ""));
}

TEST(StackModelTest, ARowBelowItsNeighbourTakesItsPlace)
{
    StackModel model = threeObjects();
    model.MoveRow(1, {0, 2});
    (void)model.Settle();
    EXPECT_THAT(names(model.Stack()), ElementsAre("b", "a", "c"));
    EXPECT_THAT(model.UndoNames(), ElementsAre(""));
}

TEST(StackModelTest, AnEmptyGroupVanishesWithTheNextRows)
{
    StackModel model = threeObjects();
    model.AddEmptyGroup();
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("Group 1:", "a", "b", "c")) << "nothing on the layer has changed";
    model.Rename(1, "new");
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("new", "b", "c"));
}

TEST(StackModelTest, TheNextGroupTakesTheNextHigherNumber)
{
    StackModel model =
        modelOf({effect(1, ModelKind::geometry, "a", 1), effect(2, ModelKind::geometry, "b", 3)});
    model.AddEmptyGroup();
    EXPECT_THAT(rows(model), ElementsAre("Group 1: a", "Group 3: b", "Group 4:"));
    StackModel full =
        modelOf({effect(1, ModelKind::geometry, "a", 1), effect(2, ModelKind::geometry, "b", 10)});
    full.AddEmptyGroup();
    EXPECT_THAT(rows(full), ElementsAre("Group 1: a", "Group 10: b", "Group 2:"));
}

TEST(StackModelTest, ANewEffectFollowsItsKindsLast)
{
    StackModel model = modelOf({effect(1, ModelKind::geometry, "a"), effect(2, ModelKind::renderer, "r"),
                                effect(3, ModelKind::main, "main")});
    model.AddFromMenu(effect(4, ModelKind::geometry, "new geometry"));
    (void)model.Settle();
    model.AddFromMenu(effect(5, ModelKind::effector, "new effector"));
    (void)model.Settle();
    model.AddFromMenu(effect(6, ModelKind::renderer, "new renderer"));
    (void)model.Settle();
    EXPECT_THAT(names(model.Stack()),
                ElementsAre("a", "new geometry", "new effector", "r", "new renderer", "main"));
    EXPECT_THAT(model.UndoNames(), ElementsAre("Apply Effect", "Reorder Effect", "Apply Effect",
                                               "Reorder Effect", "Apply Effect", "Reorder Effect"));
}

TEST(StackModelTest, DeletingAGroupIsOneStep)
{
    StackModel model = modelOf({effect(1, ModelKind::geometry, "a", 2),
                                effect(2, ModelKind::geometry, "b", 2), effect(3, ModelKind::geometry, "c")});
    model.DeleteRow(rowAt(model, 0));
    (void)model.Settle();
    EXPECT_THAT(names(model.Stack()), ElementsAre("c"));
    EXPECT_THAT(model.UndoNames(), ElementsAre("Delete Effect(s)"));
    EXPECT_THAT(model.TakeWrites(), ElementsAre("AEGP_ReorderEffect", "AEGP_ReorderEffect",
                                                "AEGP_DeleteLayerEffect", "AEGP_DeleteLayerEffect"));
    model.Undo();
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("Group 2: a b", "c"));
    EXPECT_THAT(model.RedoNames(), ElementsAre("Delete Effect(s)"));
}

TEST(StackModelTest, AHalfFullGroupIsTurnedOff)
{
    StackModel model =
        modelOf({effect(1, ModelKind::geometry, "a", 1), effect(2, ModelKind::geometry, "b", 1)});
    model.Switch(1, Power::off);
    (void)model.Settle();
    model.ClickBox(rowAt(model, 0));
    (void)model.Settle();
    EXPECT_EQ(model.Stack()[1].power, Power::off);
    EXPECT_THAT(model.UndoNames(), ElementsAre("Switch Effect Off", "Switch Effect Off"));
    model.ClickBox(rowAt(model, 0));
    (void)model.Settle();
    EXPECT_EQ(model.Stack()[0].power, Power::on);
    EXPECT_EQ(model.Stack()[1].power, Power::on);
}

/// The names of what is hidden on the active layer.
std::vector<std::string> hiddenNames(const StackModel& model)
{
    std::vector<std::string> all;
    for (const ModelEffect& each : model.Stack())
        if (model.IsHidden(each.id))
            all.push_back(each.name);
    return all;
}

TEST(StackModelTest, WhatIsNotSelectedIsHidden)
{
    StackModel model = threeObjects();
    EXPECT_THAT(hiddenNames(model), ElementsAre("a", "b", "c"));
    model.ClickRow(1, Selecting::alone);
    model.ClickRow(3, Selecting::toggled);
    EXPECT_EQ(model.Settle(), 2);
    EXPECT_THAT(hiddenNames(model), ElementsAre("b"));
    EXPECT_THAT(model.TakePrinted(), testing::Contains("State Changed"));
}

TEST(StackModelTest, ADragTakesAllThatIsSelected)
{
    StackModel model = threeObjects();
    model.ClickRow(1, Selecting::alone);
    model.ClickRow(2, Selecting::range);
    model.MoveRow(2, {0, 3});
    (void)model.Settle();
    EXPECT_THAT(names(model.Stack()), ElementsAre("c", "a", "b"));
}

TEST(StackModelTest, ARigidObjectStaysInNoGroup)
{
    StackModel model = modelOf(
        {effect(1, ModelKind::geometry, "a", 1), {2, ModelKind::geometry, "rail", -1, Power::on, true}});
    model.PutIntoGroup(2, 1);
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("Group 1: a", "rail"));
}

TEST(StackModelTest, AnItemThatComesBackShowsNothing)
{
    StackModel model = threeObjects();
    model.CloseItem();
    (void)model.Settle();
    model.OpenItem();
    (void)model.Settle();
    EXPECT_FALSE(model.HasRoot());
    model.RequestRefresh();
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("a", "b", "c"));
}

TEST(StackModelTest, TwinsFromOutsideChangePlacesUnseen)
{
    StackModel model = modelOf({effect(1, ModelKind::geometry, "a"), effect(2, ModelKind::outside, "blur"),
                                effect(3, ModelKind::outside, "blur")});
    model.Move(2, 2);
    EXPECT_EQ(model.Settle(), 1);
    EXPECT_THAT(model.UndoNames(), ElementsAre("Reorder Effect"));
}
StackModel twoGroups()
{
    return modelOf({effect(1, ModelKind::geometry, "a", 1), effect(2, ModelKind::geometry, "b", 2),
                    effect(3, ModelKind::geometry, "c"), effect(4, ModelKind::outside, "blur")});
}

TEST(StackModelTest, AClosedGroupStaysClosedThroughARebuild)
{
    StackModel model = twoGroups();
    model.ClickTriangle(rowAt(model, 0));
    EXPECT_THAT(rows(model), ElementsAre("Group 1:", "Group 2: b", "c", "blur"));
    (void)model.Settle();
    model.Rename(3, "new");
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("Group 1:", "Group 2: b", "new", "blur"));
}

TEST(StackModelTest, AChangeRightBelowTheLayerOpensAllGroups)
{
    StackModel model = twoGroups();
    model.ClickTriangle(rowAt(model, 0));
    model.MoveRow(3, {0, 0});
    EXPECT_THAT(rows(model), ElementsAre("c", "Group 1: a", "Group 2: b", "blur"));
}

TEST(StackModelTest, ADragTakesGroupsAndOutsideEffectsAlong)
{
    StackModel model = twoGroups();
    model.ClickRow(3, Selecting::alone);
    model.ClickRow(4, Selecting::toggled);
    model.ClickRow(rowAt(model, 0), Selecting::toggled);
    model.MoveRow(3, {rowAt(model, 1), 0});
    EXPECT_THAT(rows(model), ElementsAre("Group 2: Group 1 a c blur b"));
    (void)model.Settle();
    EXPECT_THAT(rows(model), ElementsAre("Group 1: a", "Group 2: c b", "blur"));
}

TEST(StackModelTest, ARowIsSelectedForAsLongAsItIsPressed)
{
    StackModel model = threeObjects();
    model.Press(2, StackModel::Part::text, Selecting::alone);
    model.Rename(1, "new");
    (void)model.Settle();
    EXPECT_FALSE(model.FindRow(2)->isSelected) << "the view that is restored is older than the press";
    model.LetGo();
    EXPECT_TRUE(model.FindRow(2)->isSelected);
}

TEST(StackModelTest, APressedRowThatIsGoneSelectsNothing)
{
    StackModel model = threeObjects();
    model.Press(2, StackModel::Part::text, Selecting::alone);
    model.Delete(2);
    (void)model.Settle();
    model.LetGo();
    EXPECT_FALSE(model.FindRow(1)->isSelected || model.FindRow(3)->isSelected);
}
} // namespace
} // namespace standin
