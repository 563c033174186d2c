// What the user of the desktop does, and what the windows then show.

#include "standin/desktop/model/Workbench.h"
#include "standin/host/core/HostParts.h"
#include "standin/script/record/Shown.h"
#include "tests/support/Scratch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
using namespace desktop;
using namespace script;

namespace
{
using testing::ElementsAre;

class WorkbenchTest : public testing::Test
{
protected:
    WorkbenchTest()
    {
        (void)bench.User().NewComposition();
        layer = bench.User().NewLayer();
        lamps = bench.User().Apply("QVK VORTSRC Lamps");
        fill = bench.User().Apply("ADBE Fill");
        dots = bench.User().Apply("QVK VORTREN Dots");
    }

    Shown Now() { return ShowHost(bench.TheHost()); }

    std::vector<std::string> EffectNames()
    {
        std::vector<std::string> names;
        for (const ShownEffect& effect : Now().effects)
            names.push_back(effect.name);
        return names;
    }

    ContainerProvider containers;
    Workbench bench{containers};
    int layer = 0;
    int lamps = 0;
    int fill = 0;
    int dots = 0;
};
} // namespace

TEST_F(WorkbenchTest, AllTheUsersStepsCanBeUndone)
{
    EXPECT_THAT(bench.TheHost().UndoNames(),
                ElementsAre("New Composition", "New Layer", "Apply Effect", "Apply Effect", "Apply Effect"));
    EXPECT_EQ(Now().undoName, "Apply Effect");
    for (int i = 0; i < 5; ++i)
        bench.User().Undo();
    const Shown shown = Now();
    EXPECT_TRUE(shown.items.empty());
    EXPECT_TRUE(shown.layers.empty());
    EXPECT_FALSE(shown.canUndo);
    EXPECT_EQ(shown.redoName, "New Composition");
    EXPECT_EQ(shown.whyNothingIsActive, "No composition is open.");
    for (int i = 0; i < 5; ++i)
        bench.User().Redo();
    EXPECT_THAT(EffectNames(), ElementsAre("Vortan Sheets Object", "Fill", "Vortan Dots Renderer"));
}

TEST_F(WorkbenchTest, NewThingsGetTheFirstUnusedName)
{
    (void)bench.User().NewLayer();
    bench.TheHost().State().FindLayer(layer)->name = "Renamed";
    (void)bench.User().NewLayer();
    const Shown shown = Now();
    EXPECT_EQ(shown.layers.at(1).name, "Layer 2");
    EXPECT_EQ(shown.layers.at(2).name, "Layer 1");
}

TEST_F(WorkbenchTest, OnlyASingleSelectedLayerIsActive)
{
    EXPECT_EQ(Now().activeLayer, layer);
    const int second = bench.User().NewLayer();
    bench.User().ClickLayer(layer, Click::toggle);
    EXPECT_EQ(Now().whyNothingIsActive, "Several layers are selected: none is the active one.");
    EXPECT_TRUE(Now().effects.empty());
    bench.User().ClickLayer(second, Click::toggle);
    EXPECT_EQ(Now().activeLayer, layer);
    bench.User().SelectNoLayer();
    EXPECT_EQ(Now().whyNothingIsActive, "No layer is selected.");
    EXPECT_EQ(bench.User().Apply("ADBE Tint"), 0) << "there is nothing to apply to";
}

TEST_F(WorkbenchTest, SelectedFootageLeavesNoLayerActive)
{
    const int footage = bench.TheHost().AddFootage("plate.mov");
    bench.User().ClickItem(footage);
    EXPECT_EQ(Now().activeLayer, 0);
    EXPECT_TRUE(Now().items.at(1).isFront);
    bench.User().ClickItem(Now().items.at(0).id);
    EXPECT_EQ(Now().activeLayer, layer);
}

TEST_F(WorkbenchTest, AnEffectIsDraggedIntoAGap)
{
    bench.User().MoveToGap(lamps, 3);
    EXPECT_THAT(EffectNames(), ElementsAre("Fill", "Vortan Dots Renderer", "Vortan Sheets Object"));
    bench.User().MoveToGap(dots, 0);
    EXPECT_THAT(EffectNames(), ElementsAre("Vortan Dots Renderer", "Fill", "Vortan Sheets Object"));
    const std::size_t steps = bench.TheHost().UndoNames().size();
    bench.User().MoveToGap(fill, 1);
    bench.User().MoveToGap(fill, 2);
    EXPECT_EQ(bench.TheHost().UndoNames().size(), steps) << "the gaps beside it are where it is";
}

TEST_F(WorkbenchTest, ControlsShowSwitchNameHidingAndTwirl)
{
    bench.User().ToggleSwitch(lamps);
    bench.User().Rename(lamps, "lamp");
    bench.User().Rename(lamps, "lamp");
    bench.User().ToggleHidden(fill);
    bench.User().ToggleTwirl(dots);
    const std::vector<ShownEffect> effects = Now().effects;
    EXPECT_FALSE(effects.at(0).isOn);
    EXPECT_EQ(effects.at(0).name, "lamp");
    EXPECT_TRUE(effects.at(1).isHidden);
    EXPECT_TRUE(effects.at(2).isOpen);
    EXPECT_EQ(effects.at(2).parameters.size(), 2u) << "the input layer is none of the list";
    EXPECT_THAT(bench.TheHost().UndoNames(),
                ElementsAre("New Composition", "New Layer", "Apply Effect", "Apply Effect", "Apply Effect",
                            "Switch Effect Off", "Rename Effect", "Hide Stream"))
        << "a twirl is no step, and neither is a name that stays";
}

TEST_F(WorkbenchTest, ADuplicateIsSelectedAndDeletedAgain)
{
    bench.User().Duplicate(lamps);
    ASSERT_THAT(EffectNames(),
                ElementsAre("Vortan Sheets Object", "Vortan Sheets Object", "Fill", "Vortan Dots Renderer"));
    EXPECT_EQ(bench.User().SelectedEffect(), Now().effects.at(1).id);
    bench.User().Delete(bench.User().SelectedEffect());
    EXPECT_EQ(bench.User().SelectedEffect(), 0);
    EXPECT_THAT(EffectNames(), ElementsAre("Vortan Sheets Object", "Fill", "Vortan Dots Renderer"));
}

TEST_F(WorkbenchTest, ClicksOnWhatHasGoneDoNothing)
{
    bench.User().Delete(lamps);
    const ProjectState before = bench.TheHost().State();
    bench.User().ClickEffect(lamps);
    bench.User().ToggleSwitch(lamps);
    bench.User().ToggleHidden(lamps);
    bench.User().ToggleTwirl(lamps);
    bench.User().Rename(lamps, "x");
    bench.User().MoveToGap(lamps, 0);
    bench.User().Duplicate(lamps);
    bench.User().Delete(lamps);
    bench.User().ClickLayer(77, Click::alone);
    EXPECT_EQ(bench.TheHost().State(), before);
    EXPECT_EQ(Now().activeLayer, layer);
}

TEST_F(WorkbenchTest, EffectsAreListedByCategory)
{
    const EffectCategories categories = CategoriesOf(bench.TheHost());
    ASSERT_EQ(categories.size(), 2u);
    EXPECT_EQ(categories.at("Vortan").size(), 21u);
    std::vector<std::string> outside;
    for (const EffectEntry& entry : categories.at("Outside"))
        outside.push_back(entry.name);
    EXPECT_THAT(outside, ElementsAre("Fill", "Gaussian Blur", "Tint"));
}

TEST_F(WorkbenchTest, AWrongFileIsReportedInTheMessages)
{
    const Scratch scratch;
    EXPECT_FALSE(bench.Open(scratch.Path("none.json")));
    EXPECT_EQ(bench.Messages().All().back().kind, MessageKind::failure);
    EXPECT_TRUE(bench.Save(scratch.Path("p.json")));
    bench.User().Delete(lamps);
    EXPECT_TRUE(bench.Open(scratch.Path("p.json")));
    EXPECT_EQ(EffectNames().size(), 3u);
}

TEST_F(WorkbenchTest, ABundlelessSiblingIsReportedInTheMessages)
{
    bench.SiblingNotifies("hello");
    EXPECT_EQ(bench.Messages().All().back().kind, MessageKind::failure);
    EXPECT_EQ(bench.Messages().All().back().text, "A sibling notifies the panel: no bundle is loaded");
}

TEST_F(WorkbenchTest, AHeldButtonKeepsTheHostFromIdling)
{
    bench.Idle(1.0, IdleMode::starved);
    EXPECT_EQ(bench.IdlesPerSecond(1.0), 0);
    bench.Idle(1.0);
    EXPECT_EQ(bench.IdlesPerSecond(1.0), 1);
}
} // namespace standin
