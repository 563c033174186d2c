// The two entry points of the built bundle in one host. What each of them does by itself is tested in
// tests/host and tests/panel, and judged on the built bundle by standin check.

#include "tests/bundle_linux/BundleTest.h"

#include <cstring>

using namespace standin;

namespace
{
int countCall(int, void*, void* refcon) { return ++*static_cast<int*>(refcon); }

using EntryOutput = BundleTest;

enum class First
{
    idleSuite,
    panel
};

class BothEntries : public BundleTest, public testing::WithParamInterface<First>
{
protected:
    BothEntries()
    {
        if (GetParam() == First::panel)
            panelPlugin = LoadPanel();
        idlePlugin = LoadIdleSuite();
        if (GetParam() == First::idleSuite)
            panelPlugin = LoadPanel();
    }

    /// The record of the idle suite, and the panel suite's up to its text.
    static constexpr std::size_t idleRecordSize = 16 + 32 * 16;
    static constexpr std::size_t panelRecordSize = 19;

    static std::string bytesAt(const void* record, std::size_t size)
    {
        return {static_cast<const char*>(record), size};
    }

    LoadedPlugin idlePlugin;
    LoadedPlugin panelPlugin;
};
} // namespace

TEST_P(BothEntries, StartWhicheverTheHostCallsFirst)
{
    EXPECT_EQ(idlePlugin.result.error, errNone);
    EXPECT_EQ(panelPlugin.result.error, errNone);
    EXPECT_NE(idlePlugin.globalRefcon, panelPlugin.globalRefcon);
    EXPECT_NE(Idle().ref, PanelTable().panelRef);
    std::int32_t id = 0;
    std::memcpy(&id, Idle().ref, sizeof id);
    EXPECT_EQ(id, idlePlugin.id);
    std::memcpy(&id, PanelTable().panelRef, sizeof id);
    EXPECT_EQ(id, panelPlugin.id);
}

TEST_P(BothEntries, LeaveEachOthersRecordsAlone)
{
    const IdleWords& idle = Idle();
    const PanelWords& panel = PanelTable();
    int calls = 0;
    std::string before = bytesAt(panel.panelRef, panelRecordSize);
    (void)idle.addFuncToIdleStack(idle.ref, &countCall, &calls);
    EXPECT_EQ(bytesAt(panel.panelRef, panelRecordSize), before);

    before = bytesAt(idle.ref, idleRecordSize);
    (void)panel.refreshPanel(panel.panelRef);
    (void)panel.panelNotify(panel.panelRef, "text");
    (void)panel.openPanel(panel.panelRef, 1);
    EXPECT_EQ(bytesAt(idle.ref, idleRecordSize), before);

    // One idle of the host serves both.
    host.Faults().FailFunction("AEGP_DoCommand");
    (void)TakeCalls();
    EXPECT_EQ(host.RunIdle().thrown, "");
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(TakeCalls(SuiteTraffic::leftOut).at(0), "Command 1 AEGP_DoCommand(1001) = 1");
}

INSTANTIATE_TEST_SUITE_P(Orders, BothEntries, testing::Values(First::idleSuite, First::panel));

TEST_F(EntryOutput, IsEmptyWhileThePanelIsClosed)
{
    EXPECT_EQ(OutputOf(
                  [this]
                  {
                      (void)LoadIdleSuite();
                      (void)LoadPanel();
                      (void)host.UpdateMenus();
                      (void)host.RunIdle();
                      int calls = 0;
                      (void)Idle().addFuncToIdleStack(Idle().ref, &countCall, &calls);
                      const PanelWords& table = PanelTable();
                      (void)host.RunInHook([&] { (void)table.openPanel(table.panelRef, 0); });
                      (void)table.refreshPanel(table.panelRef);
                      (void)table.panelNotify(table.panelRef, "text");
                      host.Faults().FailFunction("AEGP_DoCommand");
                      (void)host.RunIdle();
                      EXPECT_EQ(calls, 1);
                  }),
              "");
}
