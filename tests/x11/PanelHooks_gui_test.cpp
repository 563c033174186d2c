// The hooks of the panel plug-in once there is a panel, and the create panel hook with a host that fails it.

#include "tests/x11/support/PanelInHost.h"

#include "standin/host/core/HostParts.h"
#include "standin/host/family/Sibling.h"
#include "standin/host/sensors/FindingIds.h"

using namespace standin;
using namespace standin::user;
using testing::HasSubstr;
using testing::Not;

namespace
{
class PanelHooks : public PanelInHost
{
protected:
    PanelState state() { return host.FindPanel(panelName)->state; }
    bool isTicked() { return host.MenuItems().at(0).ticked; }

    std::string pixelsOfTheMiddle()
    {
        const ScreenPicture picture = hands.screen();
        std::string text;
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 60; ++x)
                text += std::to_string(picture.at(PlainHost::left + 170 + x, PlainHost::top + 200 + y)) + " ";
        return text;
    }
};
} // namespace

TEST_F(PanelHooks, TheMenuEntryOpensThePanelAndTicks)
{
    EXPECT_FALSE(isTicked());
    EXPECT_EQ(OutputOf([this] { EXPECT_TRUE(host.ChooseMenuItem(panelName)); }),
              "Make Panel Visible\nView Will move to Winodw\nAdding Event Monitor\n");
    EXPECT_EQ(state(), PanelState::frontmost);
    Idle();
    EXPECT_TRUE(isTicked());
    (void)host.UpdateMenus();
    EXPECT_TRUE(isTicked());
    EXPECT_TRUE(host.MenuItems().at(0).enabled);
}

TEST_F(PanelHooks, TheMenuEntryIsUntickedBehindATab)
{
    Open();
    EXPECT_EQ(host.SetPanelState(panelName, PanelState::behind).thrown, "");
    Idle();
    EXPECT_FALSE(isTicked());
    (void)host.UpdateMenus();
    EXPECT_FALSE(isTicked());
}

TEST_F(PanelHooks, TheMenuEntryTogglesThePanel)
{
    Open();
    EXPECT_TRUE(host.ChooseMenuItem(panelName));
    EXPECT_EQ(state(), PanelState::absent);
    Idle();
    EXPECT_FALSE(isTicked());
    EXPECT_TRUE(host.ChooseMenuItem(panelName));
    EXPECT_EQ(state(), PanelState::frontmost);
    Settle();
    ClickInto(Row(1));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "b c"; })) << "the tree was filled again";
}

TEST_F(PanelHooks, ASiblingOpensThePanel)
{
    Idle();
    EXPECT_EQ(Sibling(host).OpenPanel(Force::ifNotUp), 0);
    EXPECT_EQ(state(), PanelState::absent);
    Idle();
    EXPECT_EQ(state(), PanelState::frontmost);
    EXPECT_EQ(Sibling(host).OpenPanel(Force::ifNotUp), 0);
    Idle();
    EXPECT_EQ(state(), PanelState::frontmost);
    EXPECT_EQ(Sibling(host).OpenPanel(Force::always), 0);
    Idle();
    EXPECT_EQ(state(), PanelState::absent) << "the forced request toggles";
}

TEST_F(PanelHooks, ASiblingShowsTheLastOfItsMessages)
{
    Open();
    const std::string nothing = pixelsOfTheMiddle();
    (void)Sibling(host).NotifyPanel("Hello from an effect");
    Settle();
    const std::string hello = pixelsOfTheMiddle();
    ASSERT_NE(hello, nothing);
    (void)Sibling(host).NotifyPanel("first");
    Settle();
    ASSERT_NE(pixelsOfTheMiddle(), hello);

    (void)Sibling(host).NotifyPanel("second");
    (void)Sibling(host).NotifyPanel("Hello from an effect");
    (void)Sibling(host).NotifyNobody("lost");
    Settle();
    EXPECT_EQ(pixelsOfTheMiddle(), hello);
}

TEST_F(PanelHooks, DeliversEventsInEveryState)
{
    Open();
    for (const bool behind : {true, false})
    {
        if (behind)
            EXPECT_EQ(host.SetPanelState(panelName, PanelState::behind).thrown, "");
        else
            host.User().OpenComposition(0);
        window.Map(); // The host may show the window all the same.
        ClickInto(PanelBackground());
        EXPECT_THAT(OutputUntil("Copy Button\n", [this] { PressKey("Control+c"); }),
                    HasSubstr("Copy Button\n"));
        EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
        Click(HostArea());
        EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    }
}

// ---- The create panel hook and its failures

namespace
{
class CreatePanel : public PanelInHost
{
protected:
    CreatePanel() { view = window.MakeContainer(panelName); }

    /// The integer that leaves the create hook; 0 for none.
    int thrownByCreate()
    {
        const HookResult result = CreateAgain(view);
        EXPECT_TRUE(result.thrown.empty() || result.thrownNumber.has_value()) << result.thrown;
        return result.thrownNumber.value_or(0);
    }

    void expectCreateThrows(int number, const std::string& what = "")
    {
        host.Expect(finding::exceptionLeftHook, "", "missing suites are plain integers that reach the host")
            .In("")
            .Times(1);
        EXPECT_EQ(thrownByCreate(), number) << what;
    }

    void expectPanelWorks()
    {
        host.Faults().Disarm();
        EXPECT_EQ(thrownByCreate(), 0);
        EXPECT_EQ(host.SetPanelState(panelName, PanelState::frontmost).thrown, "");
        Settle();
        ClickInto(PanelBackground());
    }

    void* view;
};
} // namespace

TEST_F(CreatePanel, WithoutOneOfItsTwoSuitesThrowsThirteen)
{
    Idle();
    host.ClearTrace();
    host.Faults().Withhold("PF AE App Suite", 6);
    expectCreateThrows(13);
    EXPECT_EQ(host.SuiteCount("PF AE App Suite", 6), 0);
    host.Faults().GiveBack("PF AE App Suite", 6);
    host.Faults().Withhold("AEGP Workspace Panel Suite", 1);
    expectCreateThrows(13);
    EXPECT_EQ(host.SuiteCount("PF AE App Suite", 6), 0) << "the first is released on the way out";
    EXPECT_EQ(window.PanelWindow(), 0u);
    host.Faults().GiveBack("AEGP Workspace Panel Suite", 1);
    expectPanelWorks();
}

TEST_F(CreatePanel, WithoutAnotherSuiteThrows516)
{
    const std::pair<const char*, A_long> suites[] = {{"AEGP Effect Suite", 1}, {"AEGP Utility Suite", 7}};
    for (const auto& [name, version] : suites)
    {
        host.Faults().Withhold(name, version);
        expectCreateThrows(516, name);
        host.Faults().GiveBack(name, version);
        EXPECT_EQ(window.PanelWindow(), 0u);
        EXPECT_EQ(host.SuiteCount("PF AE App Suite", 6), 0);
        IdleFor(20ms);
    }
    expectPanelWorks();
}

// Every call of the hook, failed one by one: an acquire is a missing suite, anything else is passed over.
TEST_F(CreatePanel, SurvivesTheFailureOfEachOfItsCalls)
{
    Idle();
    host.ClearTrace();
    EXPECT_EQ(thrownByCreate(), 0);
    std::vector<std::string> calls = host.CallTexts();
    while (calls.back().find("PF_AppGetBgColor") == std::string::npos)
        calls.pop_back();
    ASSERT_GT(calls.size(), 100u);
    host.Expect(finding::unknownKey, "AEGP_GetEffectMatchName", "a walk goes on with the key that it got");
    for (std::size_t ordinal = 1; ordinal <= calls.size(); ++ordinal)
    {
        const std::string& call = calls[ordinal - 1];
        host.Faults().Disarm();
        host.Faults().FailCall(ordinal);
        const bool isAcquire = call.rfind("Basic AcquireSuite", 0) == 0;
        const std::string what = std::to_string(ordinal) + ": " + call;
        if (isAcquire)
            expectCreateThrows(ordinal <= 2 ? 13 : 516, what);
        else
            EXPECT_EQ(thrownByCreate(), 0) << what;
        if (ordinal % 16 == 0 || isAcquire)
            Idle();
    }
    expectPanelWorks();
}

TEST_F(CreatePanel, LeavesTheHostsFunctionTableAlone)
{
    PanelFunctions functions{&functions, &functions, &functions};
    EXPECT_EQ(CreateWith(view, functions).error, errNone);
    EXPECT_EQ(functions.getSnapSizes, &functions);
    EXPECT_EQ(functions.populateFlyout, &functions);
    EXPECT_EQ(functions.doFlyoutCommand, &functions);
}

TEST_F(CreatePanel, EndsWithAWindowlessWidget)
{
    host.Faults().Withhold("AEGP Utility Suite", 7);
    expectCreateThrows(516);
    host.Faults().GiveBack("AEGP Utility Suite", 7);
    IdleFor(20ms);
    Die();
}
