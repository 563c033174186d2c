// The suite through which sibling effects ask the panel for something, and the panel's names.

#include "panel/PanelSuite.h"
#include "standin/host/family/Sibling.h"
#include "tests/panel/PanelTest.h"

#include <algorithm>
#include <functional>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(PanelStrings, AreFourRowsOfFixedLength)
{
    EXPECT_EQ(sizeof(PanelString), 264u);
    EXPECT_EQ(offsetof(PanelString, text), 8u);
    for (std::int64_t row = 0; row < 4; ++row)
        EXPECT_EQ(PANEL_STRINGS[row].index, row);
    EXPECT_STREQ(PANEL_STRINGS[0].text, "");
    EXPECT_STREQ(PANEL_STRINGS[1].text, "Vortan Object Panel");
    EXPECT_STREQ(PANEL_STRINGS[2].text, "Object Control Panel for Vortan.");
    EXPECT_STREQ(PANEL_STRINGS[3].text, "Error enabling Vortan Object Panel.");
}

TEST(PanelSuiteTable, IsFourWords)
{
    EXPECT_STREQ(VN_PANEL_SUITE_NAME, "Vortan Panel Suite v1");
    EXPECT_EQ(sizeof(VnPanelSuite), 32u);
    EXPECT_EQ(offsetof(VnPanelSuite, panelRef), 0u);
    EXPECT_EQ(offsetof(VnPanelSuite, OpenPanel), 8u);
    EXPECT_EQ(offsetof(VnPanelSuite, RefreshPanel), 16u);
    EXPECT_EQ(offsetof(VnPanelSuite, PanelNotify), 24u);
}

TEST(PanelSuiteInbox, HoldsItsFieldsAsSiblingsExpect)
{
    EXPECT_EQ(offsetof(VnPanelRef, pluginId), 0u);
    EXPECT_EQ(sizeof(VnPanelRef::pluginId), 4u);
    EXPECT_EQ(offsetof(VnPanelRef, basicSuite), 8u);
    EXPECT_EQ(offsetof(VnPanelRef, refreshPending), 16u);
    EXPECT_EQ(offsetof(VnPanelRef, openPending), 17u);
    EXPECT_EQ(offsetof(VnPanelRef, notifyPending), 18u);
    EXPECT_EQ(offsetof(VnPanelRef, notifyText), 24u);
    EXPECT_EQ(sizeof(VnPanelRef), 24 + sizeof(std::string));
}

class PanelSuiteTest : public PanelTest
{
protected:
    PassRecord Open(unsigned char force)
    {
        bench.Inbox().openPending = 0;
        return bench.Record(SuiteTraffic::included,
                            [&] { return host.RunInHook([&] { return OpenPanel(&bench.Inbox(), force); }); });
    }

    int Pending() const { return bench.Inbox().openPending; }
};

TEST_F(PanelSuiteTest, TheControllersMembersAreInOrder)
{
    Panelator& panel = *bench.plugin;
    const std::vector<const void*> members = {
        &panel,          &panel.basicSuite, &panel.pluginId,  &panel.suites,
        &panel.command,  &panel.panelSuite, &panel.matchName, &panel.layerHash,
        &panel.treeHash, &panel.stateTable, &panel.tree,      &panel.publishedSuite,
        &panel + 1};
    EXPECT_EQ(members.at(0), members.at(1));
    EXPECT_TRUE(std::is_sorted(members.begin(), members.end(), std::less<const void*>()));
    EXPECT_EQ(members.back(), &panel.publishedSuite + 1) << "nothing follows the table";
}

// ---- OpenPanel

TEST_F(PanelSuiteTest, AForcedOpenAsksWithoutLooking)
{
    for (const unsigned char force : {static_cast<unsigned char>(1), static_cast<unsigned char>(255)})
    {
        const PassRecord record = Open(force);
        EXPECT_THAT(record.calls, IsEmpty());
        EXPECT_EQ(record.result.error, errNone);
        EXPECT_EQ(Pending(), 1);
    }
}

TEST_F(PanelSuiteTest, AnOpenAsksForAHiddenPanel)
{
    const PassRecord record = Open(0);
    EXPECT_THAT(record.calls, ElementsAre(R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1))",
                                          R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                                          R"(Basic ReleaseSuite("AEGP Workspace Panel Suite", 1))"));
    EXPECT_EQ(record.result.error, errNone);
    EXPECT_EQ(Pending(), 1);
}

TEST_F(PanelSuiteTest, AnOpenAsksForABackgroundPanel)
{
    bench.Show();
    bench.Cover();
    (void)Open(0);
    EXPECT_EQ(Pending(), 1);
}

TEST_F(PanelSuiteTest, AnOpenOfAShownPanelAsksNothing)
{
    bench.Show();
    const PassRecord record = Open(0);
    EXPECT_EQ(record.calls.at(1), R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)");
    EXPECT_EQ(record.calls.size(), 3u);
    EXPECT_EQ(Pending(), 0);
}

TEST_F(PanelSuiteTest, AnOpenKeepsEarlierRequests)
{
    bench.Show();
    bench.Inbox().openPending = 1;
    host.RunInHook([&] { return OpenPanel(&bench.Inbox(), 0); });
    EXPECT_EQ(Pending(), 1);
}

TEST_F(PanelSuiteTest, AnOpenAsksIfTheStateIsUnknown)
{
    bench.Show();
    host.Faults().FailFunction("AEGP_IsShown");
    (void)Open(0);
    EXPECT_EQ(Pending(), 1);
}

TEST_F(PanelSuiteTest, AnOpenWithoutThePanelSuiteThrows)
{
    host.Expect(finding::exceptionLeftHook, "", "goes to the sibling that called");
    for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
    {
        host.Faults().Withhold("AEGP Workspace Panel Suite", 1, how);
        const PassRecord record = Open(0);
        EXPECT_EQ(record.result.thrownNumber, 13);
        EXPECT_EQ(record.calls.size(), 1u) << "what was not acquired is not released";
        EXPECT_EQ(Pending(), 0);
        host.Faults().GiveBack("AEGP Workspace Panel Suite", 1);
    }
}

TEST_F(PanelSuiteTest, AForcedOpenNeedsNoPanelSuite)
{
    host.Faults().Withhold("AEGP Workspace Panel Suite", 1);
    EXPECT_EQ(Open(1).result.thrown, "");
    EXPECT_EQ(Pending(), 1);
}

/// A host that throws out of the question for the panel.
struct ThrowingHost
{
    static A_Err IsShown(const A_u_char*, A_Boolean*, A_Boolean*) { throw 99; }
    static SPErr Acquire(const char*, std::int32_t, const void** suite)
    {
        static AEGP_PanelSuite1 panels{};
        panels.AEGP_IsShown = &IsShown;
        *suite = &panels;
        return 0;
    }
    static SPErr Release(const char* name, std::int32_t version)
    {
        released.push_back(std::string(name) + " " + std::to_string(version));
        return 0;
    }
    static inline std::vector<std::string> released;
};

TEST(PanelSuiteOpen, ReleasesTheSuiteBeforeAnExceptionPasses)
{
    ThrowingHost::released.clear();
    SPBasicSuite basic{};
    basic.AcquireSuite = &ThrowingHost::Acquire;
    basic.ReleaseSuite = &ThrowingHost::Release;
    VnPanelRef ref;
    ref.basicSuite = &basic;
    EXPECT_THROW((void)OpenPanel(&ref, 0), int);
    EXPECT_THAT(ThrowingHost::released, ElementsAre("AEGP Workspace Panel Suite 1"));
    EXPECT_EQ(ref.openPending, 0);
}

// ---- RefreshPanel and PanelNotify

TEST_F(PanelSuiteTest, ARefreshSetsItsFlagAlone)
{
    EXPECT_EQ(RefreshPanel(&bench.Inbox()), 0);
    EXPECT_EQ(bench.Inbox().refreshPending, 1);
    EXPECT_EQ(bench.Inbox().openPending, 0);
    EXPECT_EQ(bench.Inbox().notifyPending, 0);
}

TEST_F(PanelSuiteTest, ANotificationKeepsACopyOfItsText)
{
    char text[] = "Saved";
    EXPECT_EQ(PanelNotify(&bench.Inbox(), text), 0);
    text[0] = 'W';
    EXPECT_EQ(bench.Inbox().notifyText, "Saved");
    EXPECT_EQ(bench.Inbox().notifyPending, 1);
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    EXPECT_EQ(bench.Inbox().openPending, 0);
}

TEST_F(PanelSuiteTest, ASecondNotificationReplacesTheFirst)
{
    (void)PanelNotify(&bench.Inbox(), "first");
    (void)PanelNotify(&bench.Inbox(), "2");
    EXPECT_EQ(bench.Inbox().notifyText, "2");
}

TEST_F(PanelSuiteTest, AnEmptyNotificationIsOneToo)
{
    (void)PanelNotify(&bench.Inbox(), "");
    EXPECT_EQ(bench.Inbox().notifyPending, 1);
}

TEST_F(PanelSuiteTest, ANotificationWithoutTextIsEmpty)
{
    (void)PanelNotify(&bench.Inbox(), "first");
    EXPECT_EQ(PanelNotify(&bench.Inbox(), nullptr), 0);
    EXPECT_EQ(bench.Inbox().notifyText, "");
    EXPECT_EQ(bench.Inbox().notifyPending, 1);
}

TEST(PanelSuiteWithoutRef, ANotificationDoesNothing) { EXPECT_EQ(PanelNotify(nullptr, "Saved"), 0); }

TEST(PanelSuiteWithoutRefDeathTest, ARefreshIsNotGuarded) { EXPECT_DEATH((void)RefreshPanel(nullptr), ""); }

TEST_F(PanelSuiteTest, NoneTouchesTheTreeOrTheHost)
{
    bench.AddThree();
    bench.ShowAndSettle();
    const PassRecord record = bench.Record(SuiteTraffic::included,
                                           [this]
                                           {
                                               (void)OpenPanel(&bench.Inbox(), 1);
                                               (void)RefreshPanel(&bench.Inbox());
                                               (void)PanelNotify(&bench.Inbox(), "Saved");
                                               return HookResult{};
                                           });
    EXPECT_THAT(record.calls, IsEmpty());
}

// ---- As a sibling sees it

TEST_F(PanelSuiteTest, ASiblingsRequestsAreDoneNextIdle)
{
    bench.AddThree();
    Sibling sibling(host);
    EXPECT_EQ(sibling.OpenPanel(Force::ifNotUp), 0);
    EXPECT_EQ(sibling.RefreshPanel(), 0);
    EXPECT_EQ(sibling.NotifyPanel("Saved"), 0);
    EXPECT_EQ(sibling.NotifyNobody("lost"), 0);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent) << "nothing is done inside the call";
    (void)bench.Pass();
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::frontmost);
    EXPECT_EQ(bench.TreeText(), "A B C");
    EXPECT_THAT(bench.Tree()->notifications, ElementsAre("Saved"));
}

TEST_F(PanelSuiteTest, AForcedOpenClosesAShownPanel)
{
    bench.ShowAndSettle();
    (void)Sibling(host).OpenPanel(Force::always);
    (void)bench.Pass();
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
}
} // namespace
} // namespace standin
