// What sibling effects leave in the inbox of the pass: when it is taken out, and what becomes of it when
// the pass ends early.

#include "tests/panel/PanelTest.h"

#include <algorithm>
#include <utility>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PassRequests : public PanelTest
{
protected:
    PassRequests()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }

    std::vector<std::string> Notifications() const { return bench.Tree()->notifications; }
};

// ---- Refresh

TEST_F(PassRequests, ARefreshRebuildsTheTreeAndIsConsumed)
{
    bench.Inbox().refreshPending = 1;
    (void)bench.Pass();
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    const Calls& tree = TreeLog().calls;
    EXPECT_EQ(std::count(tree.begin(), tree.end(), "RefreshTree([A B C])"), 1);
    EXPECT_EQ(bench.Pass().printed, "") << "once";
}

TEST_F(PassRequests, AnyNonZeroValueAsksForARefresh)
{
    bench.Inbox().refreshPending = 0x80;
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
}

TEST_F(PassRequests, ARefreshWhileHiddenIsLost)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.Hide();
    bench.Inbox().refreshPending = 1;
    (void)bench.Pass();
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    bench.Show();
    (void)bench.Pass();
    EXPECT_EQ(bench.TreeText(), "") << "nothing asks for a rebuild any more";
}

TEST_F(PassRequests, ARefreshInTheBackgroundIsLost)
{
    bench.Cover();
    bench.Inbox().refreshPending = 1;
    (void)bench.Pass();
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    bench.Show();
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(PassRequests, ARefreshWithoutAnItemIsLost)
{
    host.User().OpenComposition(0);
    bench.Inbox().refreshPending = 1;
    EXPECT_EQ(bench.Pass().printed, "No active item\n");
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
}

TEST_F(PassRequests, ARefreshWithoutATreeIsLost)
{
    ValueTreesDemo* const tree = std::exchange(bench.plugin->tree, nullptr);
    bench.Inbox().refreshPending = 1;
    EXPECT_EQ(bench.Pass().printed, "no tree found\n");
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    bench.plugin->tree = tree;
}

// ---- Open

TEST_F(PassRequests, AnOpenRunsItsCommandBeforeTheLook)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.Hide();
    (void)bench.Pass();
    bench.Inbox().openPending = 1;
    const PassRecord pass = bench.Pass();
    const Calls head = {
        "Tree DispatchPlatformEvents()",
        "Command 1 AEGP_DoCommand(1001)",
        R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
        "Layer 5 AEGP_GetActiveLayer() -> layer 1",
        "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
        "Tree CacheLayerTreeState(1)",
        R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel"))",
        R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
        "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)",
    };
    ASSERT_GT(pass.calls.size(), head.size());
    EXPECT_EQ(Calls(pass.calls.begin(), pass.calls.begin() + static_cast<std::ptrdiff_t>(head.size())), head);
    EXPECT_EQ(bench.Inbox().openPending, 0);
}

TEST_F(PassRequests, TheCommandsRefreshBelongsToTheNextPass)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.Hide();
    (void)bench.Pass();
    bench.Inbox().openPending = 1;
    EXPECT_EQ(bench.Pass().printed, "Make Panel Visible\n"
                                    "Hash Mismatch\n"
                                    "Layer Item - A\nLayer Item - B\nLayer Item - C\n");
    EXPECT_EQ(bench.TreeText(), "") << "this pass has passed the place where a refresh is taken out";
    EXPECT_EQ(bench.Inbox().refreshPending, 1);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A B C");
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
}

TEST_F(PassRequests, AnOpenOfAShownPanelClosesIt)
{
    bench.Inbox().openPending = 1;
    EXPECT_EQ(bench.Pass().printed, "Make Panel Visible\n");
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
    EXPECT_FALSE(bench.Tree()->hasRoot);
}

TEST_F(PassRequests, AnOpenIsConsumedIfTheCommandFails)
{
    host.Faults().FailFunction("AEGP_DoCommand");
    bench.Inbox().openPending = 1;
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls.at(1), "Command 1 AEGP_DoCommand(1001) = 1");
    EXPECT_EQ(pass.printed, "");
    EXPECT_EQ(bench.Inbox().openPending, 0);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::frontmost);
}

/// Another plug-in, which lets the host idle inside the first command that it hears of.
class IdlesInsideACommand
{
public:
    explicit IdlesInsideACommand(PanelBench& owner) : bench(owner)
    {
        current = this;
        (void)bench.host.Load(&entry);
    }

private:
    static A_Err entry(SPBasicSuite* basic, A_long, A_long, AEGP_PluginID id, AEGP_GlobalRefcon* out)
    {
        *out = current;
        const void* table = nullptr;
        EXPECT_EQ(basic->AcquireSuite("AEGP Register Suite", 6, &table), 0);
        const auto* registering = static_cast<const AEGP_RegisterSuite5*>(table);
        EXPECT_EQ(registering->AEGP_RegisterCommandHook(id, AEGP_HP_BeforeAE, 1001, &commandHook, nullptr),
                  A_Err_NONE);
        return basic->ReleaseSuite("AEGP Register Suite", 6);
    }

    static A_Err commandHook(AEGP_GlobalRefcon global, AEGP_CommandRefcon, AEGP_Command, AEGP_HookPriority,
                             A_Boolean, A_Boolean*)
    {
        auto& self = *static_cast<IdlesInsideACommand*>(global);
        if (std::exchange(self.hasIdled, true))
            return A_Err_NONE;
        A_long maxSleep = 0;
        return Panelator::S_IdleHook(self.bench.plugin, &self.bench.Inbox(), &maxSleep);
    }

    static inline IdlesInsideACommand* current = nullptr;
    PanelBench& bench;
    bool hasIdled = false;
};

TEST_F(PassRequests, AnIdlingCommandRunsOnceMoreNextPass)
{
    const IdlesInsideACommand neighbour(bench);
    bench.Hide();
    (void)bench.Pass();
    bench.Inbox().openPending = 1;
    const PassRecord pass = bench.Pass();
    const auto command = [](const std::string& shown)
    {
        return Calls{"Tree DispatchPlatformEvents()",
                     "Command 1 AEGP_DoCommand(1001)",
                     R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> )" + shown,
                     "Layer 5 AEGP_GetActiveLayer() -> layer 1",
                     "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
                     "Tree CacheLayerTreeState(1)",
                     R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel"))"};
    };
    const Calls lookAtAHiddenPanel = {R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                                      "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)", "Tree ClearTree(tree)"};
    EXPECT_EQ(pass.calls,
              Sequence({command("0, 0"), command("1, 1"), lookAtAHiddenPanel, lookAtAHiddenPanel}));
    EXPECT_EQ(pass.printed, "Make Panel Visible\nMake Panel Visible\n");
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
    EXPECT_EQ(bench.Inbox().openPending, 1) << "cleared by the inner pass, and flipped by the outer one";
    EXPECT_EQ(bench.Pass().printed.rfind("Make Panel Visible\n", 0), 0u);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::frontmost);
    EXPECT_EQ(bench.Inbox().openPending, 0);
}

TEST_F(PassRequests, WithoutAnOpenTheCommandIsNotRun)
{
    const Calls calls = bench.Pass().calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Command 1 AEGP_DoCommand(1001)"), 0);
    EXPECT_EQ(bench.Inbox().openPending, 0);
}

// ---- Notify

TEST_F(PassRequests, ANotificationIsShownOnceAndConsumed)
{
    bench.Inbox().notifyText = "Saved";
    bench.Inbox().notifyPending = 1;
    const Calls calls = bench.Pass().calls;
    EXPECT_EQ(calls.at(3), R"(Tree NotifyMsg("Saved"))") << "after the look at the panel";
    EXPECT_EQ(calls.at(4), "Item 3 AEGP_GetActiveItem() -> item 101") << "and before the item";
    EXPECT_EQ(bench.Inbox().notifyPending, 0);
    EXPECT_EQ(bench.Inbox().notifyText, "");
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), ElementsAre("Saved"));
}

TEST_F(PassRequests, ATextWithoutTheFlagIsNotShown)
{
    bench.Inbox().notifyText = "Saved";
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), IsEmpty());
    EXPECT_EQ(bench.Inbox().notifyText, "Saved");
}

TEST_F(PassRequests, ANotificationIsShownWithoutAnItem)
{
    host.User().OpenComposition(0);
    PanelNotify(&bench.Inbox(), "Saved");
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), ElementsAre("Saved"));
}

TEST_F(PassRequests, ANotificationWaitsWhileThePanelIsHidden)
{
    host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    bench.Hide();
    PanelNotify(&bench.Inbox(), "first");
    (void)bench.Pass();
    PanelNotify(&bench.Inbox(), "second");
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), IsEmpty());
    EXPECT_EQ(bench.Inbox().notifyPending, 1);
    EXPECT_EQ(bench.Inbox().notifyText, "second") << "the later text takes the place of the first";
    bench.Show();
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), ElementsAre("second"));
}

TEST_F(PassRequests, ANotificationWaitsInTheBackground)
{
    bench.Cover();
    PanelNotify(&bench.Inbox(), "Saved");
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), IsEmpty());
    bench.Show();
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), ElementsAre("Saved"));
}

TEST_F(PassRequests, ANotificationWaitsWhileThereIsNoTree)
{
    ValueTreesDemo* const tree = std::exchange(bench.plugin->tree, nullptr);
    PanelNotify(&bench.Inbox(), "Saved");
    (void)bench.Pass();
    EXPECT_EQ(bench.Inbox().notifyText, "Saved");
    bench.plugin->tree = tree;
    (void)bench.Pass();
    EXPECT_THAT(Notifications(), ElementsAre("Saved"));
}

// ---- All together, and the panel not open yet

class PassRequestsBeforeThePanel : public PanelTest
{
};

TEST_F(PassRequestsBeforeThePanel, TheFirstOpenCreatesThePanel)
{
    bench.AddThree();
    bench.Inbox().openPending = 1;
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.calls.at(6), R"(Panel 1 AEGP_ToggleVisibility("Vortan Object Panel"))");
    EXPECT_EQ(pass.calls.at(7), "Tree CreateTreeWidget(false)");
    EXPECT_EQ(pass.printed, "Make Panel Visible\nState Changed\n");
    ASSERT_NE(bench.Tree(), nullptr);
    EXPECT_EQ(bench.TreeText(), "A B C");
}

TEST_F(PassRequestsBeforeThePanel, AllThreeAreCarriedOutInOnePass)
{
    bench.AddThree();
    bench.Inbox().openPending = 1;
    bench.Inbox().refreshPending = 1;
    PanelNotify(&bench.Inbox(), "Saved");
    (void)bench.Pass();
    EXPECT_EQ(bench.Inbox().openPending, 0);
    EXPECT_EQ(bench.Inbox().notifyPending, 0);
    EXPECT_EQ(bench.Inbox().refreshPending, 1) << "asked for again by the command";
    EXPECT_THAT(bench.Tree()->notifications, ElementsAre("Saved"));
}
} // namespace
} // namespace standin
