// Which item and which layer are active: by the panel that has the focus and what is selected.

#include "tests/standin/Client.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
class Active : public HostTest
{
protected:
    Active()
    {
        comp = host.AddComposition("Comp");
        other = host.AddComposition("Other");
        footage = host.AddFootage("Clip");
        folder = host.AddFolder("Folder");
        upper = host.AddLayer(comp);
        lower = host.AddLayer(comp);
        elsewhere = host.AddLayer(other);
        host.User().OpenFootage(footage);
        host.User().OpenLayer(lower);
        host.User().ShowEffectControls(elsewhere);
    }

    /// "item layer", with 0 for none.
    std::string active()
    {
        A_long itemId = 0;
        A_long layerId = 0;
        inHook(
            [&](Client& client)
            {
                if (void* item = client.ActiveItem())
                    (void)client.Call(itemSuite, 3, 7, item, &itemId);
                EXPECT_EQ(client.error, errNone);
                if (void* layer = client.ActiveLayer())
                    (void)client.Call(layerSuite, 5, 35, layer, &layerId);
                EXPECT_EQ(client.error, errNone);
            });
        return std::to_string(itemId) + " " + std::to_string(layerId);
    }

    std::string activeIn(ActivePanel panel, std::vector<int> items, std::vector<int> layers)
    {
        host.User().Activate(panel);
        host.User().SelectItems(std::move(items));
        host.User().SelectLayers(std::move(layers));
        host.User().ShowEffectControls(elsewhere); // The selection of one layer would show that one.
        return active();
    }

    int comp = 0;
    int other = 0;
    int footage = 0;
    int folder = 0;
    int upper = 0;
    int lower = 0;
    int elsewhere = 0;
};

TEST_F(Active, IdsCountFromTheirStarts)
{
    EXPECT_EQ(comp, 101);
    EXPECT_EQ(folder, 104);
    EXPECT_EQ(upper, 1);
    EXPECT_EQ(elsewhere, 3);
}

TEST_F(Active, ProjectPanelsActivateTheirSelectedItem)
{
    EXPECT_EQ(activeIn(ActivePanel::project, {}, {1}), "0 0");
    EXPECT_EQ(activeIn(ActivePanel::project, {other}, {1}), "102 0");
    EXPECT_EQ(activeIn(ActivePanel::project, {folder}, {1}), "104 0");
    EXPECT_EQ(activeIn(ActivePanel::project, {comp, footage}, {1}), "0 0");
}

TEST_F(Active, CompPanelsActivateTheFrontCompsLayer)
{
    for (const ActivePanel panel : {ActivePanel::timeline, ActivePanel::comp})
    {
        EXPECT_EQ(activeIn(panel, {other}, {}), "101 0");
        EXPECT_EQ(activeIn(panel, {other}, {2}), "101 2");
        EXPECT_EQ(activeIn(panel, {other}, {1, 2}), "101 0");
        EXPECT_EQ(activeIn(panel, {other}, {2, 3}), "101 2"); // Layer 3 is in another composition.
    }
    host.User().OpenComposition(other);
    EXPECT_EQ(active(), "102 3");
    host.User().OpenComposition(0);
    EXPECT_EQ(active(), "0 0");
}

TEST_F(Active, InTheFootagePanelTheFootageIsActive)
{
    EXPECT_EQ(activeIn(ActivePanel::footage, {}, {1}), "103 0");
    host.User().OpenFootage(0);
    EXPECT_EQ(active(), "0 0");
}

TEST_F(Active, InLayerPanelsTheTabsLayerIsActive)
{
    EXPECT_EQ(activeIn(ActivePanel::layer, {}, {1}), "101 2");
    EXPECT_EQ(activeIn(ActivePanel::effectControls, {}, {1, 2}), "102 3");
    host.User().ShowEffectControls(0);
    EXPECT_EQ(active(), "0 0");
}

TEST_F(Active, InTheRenderQueueNothingIsActive)
{
    EXPECT_EQ(activeIn(ActivePanel::renderQueue, {comp}, {1}), "0 0");
    EXPECT_EQ(activeIn(ActivePanel::none, {comp}, {1}), "0 0");
}

TEST_F(Active, OurPanelLeavesTheFrontCompItsLayer)
{
    (void)activeIn(ActivePanel::project, {footage}, {2});
    host.User().Activate(ActivePanel::ours);
    EXPECT_EQ(active(), "101 2");
}

TEST_F(Active, OurPanelCanLeaveThePreviousPanelActive)
{
    host.Options().focusInPanel = FocusInPanel::keepsActivePanel;
    (void)activeIn(ActivePanel::project, {footage}, {2});
    host.User().Activate(ActivePanel::ours);
    host.User().Activate(ActivePanel::ours);
    EXPECT_EQ(active(), "103 0");
}

TEST_F(Active, OurPanelCanLeaveNothingActive)
{
    host.Options().focusInPanel = FocusInPanel::activatesNothing;
    EXPECT_EQ(activeIn(ActivePanel::ours, {comp}, {2}), "0 0");
}

TEST_F(Active, WhatHasLeftTheProjectIsNotActive)
{
    EXPECT_EQ(activeIn(ActivePanel::timeline, {}, {1, 2}), "101 0");
    host.State().layers.erase(host.State().layers.begin());
    EXPECT_EQ(active(), "101 2");
    EXPECT_EQ(activeIn(ActivePanel::project, {comp, 999}, {}), "101 0");
    host.State().items.clear();
    EXPECT_EQ(active(), "0 0");
}

TEST_F(Active, ApplyingAnEffectActivatesEffectControls)
{
    InstallFamily(host);
    host.User().Activate(ActivePanel::effectControls);
    (void)host.User().Apply(upper, "ADBE Tint");
    EXPECT_EQ(active(), "101 1");
}

TEST_F(Active, LayerTimeIsMovedByTheLayersStart)
{
    host.State().FindLayer(upper)->startTime = 250; // 2.5 s
    inHook(
        [&](Client& client)
        {
            const A_Time time{10, 30};
            A_Time converted{};
            EXPECT_EQ(client.Call(layerSuite, 5, 33, host.LayerHandle(upper), &time, &converted), errNone);
            EXPECT_EQ(converted.value, 85);
            EXPECT_EQ(converted.scale, 30u);
        });
}
} // namespace
} // namespace standin
