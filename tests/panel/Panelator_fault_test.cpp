// The panel plug-in's entry point with a host that fails it.

#include "standin/host/core/HostParts.h"
#include "standin/host/faults/Sweep.h"
#include "tests/panel/PanelTest.h"
#include "tests/support/OutputOf.h"

#include <memory>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A plug-in that is loaded into a host prepared by the test.
class PanelatorFault : public ::testing::Test
{
protected:
    PanelBench& LoadWith(const std::function<void(Host&)>& arm)
    {
        bench = std::make_unique<PanelBench>(HostOptions{}, arm);
        return *bench;
    }

    void TearDown() override
    {
        bench->Close();
        bench->host.CheckSuiteBalance();
        EXPECT_EQ(bench->host.FindingsReport(), "");
    }

    std::unique_ptr<PanelBench> bench;
};

TEST_F(PanelatorFault, WithoutACommandThePanelSuiteIsUnpublished)
{
    LoadWith(
        [](Host& host)
        {
            host.Expect(finding::unknownCommand, "AEGP_InsertMenuCommand", "goes on with the command 0");
            host.Faults().FailFunction("AEGP_GetUniqueCommand");
        });
    EXPECT_THAT(bench->loading.calls,
                ElementsAre(R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1))",
                            R"(Basic AcquireSuite("AEGP Command Suite", 1))",
                            "Command 1 AEGP_GetUniqueCommand() = 1",
                            R"(Command 1 AEGP_InsertMenuCommand(0, "Vortan Object Panel", 7, -2) = 3)",
                            R"(Basic AcquireSuite("AEGP Register Suite", 6))",
                            "Register 6 AEGP_RegisterCommandHook(id 8, 1, 0, hook, refcon)",
                            "Register 6 AEGP_RegisterUpdateMenuHook(id 8, hook, null)",
                            "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
                            "Register 6 AEGP_RegisterDeathHook(id 8, hook, null)",
                            "Panel 1 AEGP_RegisterCreatePanelHook(id 8, \"Vortan Object Panel\", hook, "
                            "refcon, 0)",
                            "Tree JuceGlobalInit()"));
    EXPECT_EQ(bench->loading.printed, "Command Not Found\n");
    EXPECT_EQ(bench->loading.result.error, errNone);
    ASSERT_NE(bench->plugin, nullptr);
    EXPECT_EQ(bench->Inbox().pluginId, 8) << "the table is filled all the same";
}

TEST(PanelatorWithoutCommand, SaysSoAtOnce)
{
    ProductHost on;
    on.host.Expect(finding::unknownCommand, "AEGP_InsertMenuCommand", "goes on with the command 0");
    on.host.Faults().FailFunction("AEGP_GetUniqueCommand");
    std::string flushed;
    const process::CapturedOutput printed;
    TreeLog().sink = [&](const std::string&) { flushed = printed.FlushedText(); };
    const LoadedPlugin loaded = on.host.Load(&PanelEntryPointFunc);
    TreeLog() = {};
    EXPECT_EQ(flushed, "Command Not Found\n") << "seen by the user interface's start already";
    auto* plugin = static_cast<Panelator*>(loaded.globalRefcon);
    on.host.RunInHook(
        [plugin]
        {
            delete plugin->publishedSuite.panelRef;
            delete plugin;
        });
}

struct MissingAtStart
{
    const char* name;
    A_long version;
    int number;
    std::size_t calls; ///< Made before the suite is asked for, with the traffic of suites.
};

void PrintTo(const MissingAtStart& suite, std::ostream* out) { *out << suite.name; }

class PanelatorWithoutSuite : public PanelatorFault,
                              public ::testing::WithParamInterface<std::tuple<MissingAtStart, Withheld>>
{
};

TEST_P(PanelatorWithoutSuite, ThrowsItsNumberAndUnwinds)
{
    const auto& [suite, how] = GetParam();
    LoadWith(
        [missing = suite, withheld = how](Host& host)
        {
            host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
            host.Faults().Withhold(missing.name, missing.version, withheld);
        });
    EXPECT_EQ(bench->loading.result.thrownNumber, suite.number);
    EXPECT_EQ(bench->plugin, nullptr) << "nothing is stored for the host";
    ASSERT_GT(bench->loading.calls.size(), suite.calls);
    EXPECT_EQ(
        bench->loading.calls.at(suite.calls).rfind("Basic AcquireSuite(\"" + std::string(suite.name), 0), 0u);
    for (std::size_t later = suite.calls + 1; later < bench->loading.calls.size(); ++later)
        EXPECT_EQ(bench->loading.calls.at(later).rfind("Basic ReleaseSuite", 0), 0u);
    EXPECT_EQ(bench->host.SuiteCount("AEGP Workspace Panel Suite", 1), 0);
    EXPECT_EQ(bench->host.SuiteCount("AEGP Command Suite", 1), 0);
    EXPECT_EQ(bench->host.SuiteCount("AEGP Register Suite", 6), 0);
    EXPECT_EQ(bench->host.SuiteCount("SP Suites Suite", 2), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Suites, PanelatorWithoutSuite,
    ::testing::Combine(::testing::Values(MissingAtStart{"AEGP Workspace Panel Suite", 1, 13, 0},
                                         MissingAtStart{"AEGP Command Suite", 1, 516, 1},
                                         MissingAtStart{"AEGP Register Suite", 6, 516, 4},
                                         MissingAtStart{"SP Suites Suite", 2, 516, 10}),
                       ::testing::Values(Withheld::asError, Withheld::asNullTable,
                                         Withheld::asPoisonedPointer)));

TEST_F(PanelatorFault, WithoutTheHostsPanelSuiteNothingIsRegistered)
{
    LoadWith(
        [](Host& host)
        {
            host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
            host.Faults().Withhold("AEGP Workspace Panel Suite", 1);
        });
    EXPECT_THAT(bench->loading.calls,
                ElementsAre(R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1) = 1394689636)"));
    EXPECT_THAT(bench->host.MenuItems(), IsEmpty());
    EXPECT_EQ(bench->host.FindPanel(PANEL_NAME), nullptr);
}

TEST_F(PanelatorFault, ThrowingAfterTheHooksLeavesTheirInboxAlive)
{
    LoadWith(
        [](Host& host)
        {
            host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
            host.Faults().Withhold("SP Suites Suite", 2);
            host.Options().failedEntry = FailedEntry::leavesHooks;
        });
    ASSERT_EQ(bench->loading.result.thrownNumber, 516);
    const HookTable& hooks = bench->host.PluginsView().hooks;
    ASSERT_EQ(hooks.idle.size(), 1u);
    ASSERT_EQ(hooks.command.size(), 1u);
    EXPECT_EQ(hooks.command[0].refcon, hooks.idle[0].refcon);
    auto* inbox = static_cast<VnPanelRef*>(hooks.idle[0].refcon);
    // What has been freed does not hold these any more.
    EXPECT_EQ(inbox->pluginId, 8);
    EXPECT_EQ(inbox->basicSuite, bench->on.Basic());
    EXPECT_EQ(PanelNotify(inbox, "a text that is too long for the string itself"), A_Err_NONE);
    EXPECT_EQ(RefreshPanel(inbox), A_Err_NONE);
    EXPECT_EQ(inbox->notifyText, "a text that is too long for the string itself");
    EXPECT_EQ(inbox->refreshPending, 1);
    delete inbox;
}

TEST_F(PanelatorFault, ANullBasicSuiteIsAMissingSuite)
{
    LoadWith(nullptr);
    AEGP_GlobalRefcon out = nullptr;
    try
    {
        (void)PanelEntryPointFunc(nullptr, 0, 0, 8, &out);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (int number)
    {
        EXPECT_EQ(number, 516);
    }
    EXPECT_EQ(out, nullptr);
}

// ---- Every call of the entry point

struct Loading
{
    std::unique_ptr<ProductHost> on = std::make_unique<ProductHost>();
    Host& host = on->host;
    LoadedPlugin loaded;
    std::vector<std::string> treeCalls;
};

using Entry = A_Err (*)(SPBasicSuite*, A_long major, A_long minor, AEGP_PluginID, AEGP_GlobalRefcon*);

void loadBy(Loading& loading, Entry entry)
{
    TreeLog() = {};
    (void)OutputOf([&] { loading.loaded = loading.host.Load(entry); });
    loading.treeCalls = TreeLog().calls;
}

void load(Loading& loading) { loadBy(loading, &PanelEntryPointFunc); }

/// Deletes what the plug-in keeps for the life of the host.
void unload(Loading& loading)
{
    if (auto* plugin = static_cast<Panelator*>(loading.loaded.globalRefcon))
    {
        loading.host.RunInHook(
            [&]
            {
                delete plugin->publishedSuite.panelRef;
                delete plugin;
            });
    }
    TreeLog() = {};
}

void checkLoading(Loading& loading, const SweptFault& fault)
{
    SCOPED_TRACE(fault.Text());
    const HookResult& result = loading.loaded.result;
    if (fault.call.rfind("Basic AcquireSuite", 0) == 0)
    {
        const bool isPanelSuite = fault.call.find("Workspace Panel") != std::string::npos;
        EXPECT_EQ(result.thrownNumber, isPanelSuite ? 13 : 516);
        EXPECT_EQ(loading.loaded.globalRefcon, nullptr);
        EXPECT_THAT(loading.treeCalls, IsEmpty());
    }
    else if (fault.length != FaultLength::everythingForGood)
    {
        EXPECT_EQ(result.error, errNone);
        EXPECT_THAT(loading.treeCalls, ElementsAre("JuceGlobalInit()"));
    }
    for (const Finding& found : loading.host.TakeFindings())
    {
        const bool isThrow = found.id == finding::exceptionLeftHook && result.thrownNumber.has_value();
        const bool isNoCommand = found.id == finding::unknownCommand;
        EXPECT_TRUE(fault.ordinal != 0 && (isThrow || isNoCommand)) << found.Text();
    }
    loading.host.Faults().Disarm();
    unload(loading);
    loading.host.CheckSuiteBalance();
    EXPECT_EQ(loading.host.FindingsReport(), "");
}

TEST(PanelatorFaults, TheEntryPointSurvivesEachFailedCall)
{
    EXPECT_EQ(SweepFaults([] { return std::make_unique<Loading>(); }, &load, &checkLoading), 13u);
}

// ---- Hosts of any version

template <A_long major, A_long minor>
A_Err entryInVersion(SPBasicSuite* basicSuite, A_long, A_long, AEGP_PluginID id, AEGP_GlobalRefcon* out)
{
    return PanelEntryPointFunc(basicSuite, major, minor, id, out);
}

TEST(PanelatorInAnyHost, StartsTheSameWhateverVersionTheHostNames)
{
    std::vector<std::string> usual;
    for (const Entry entry : {Entry{&PanelEntryPointFunc}, Entry{&entryInVersion<0, 0>},
                              Entry{&entryInVersion<-1, -1>}, Entry{&entryInVersion<17, 29>},
                              Entry{&entryInVersion<114, 1>}, Entry{&entryInVersion<0x7FFFFFFF, 0x7FFFFFFF>}})
    {
        Loading loading;
        loadBy(loading, entry);
        EXPECT_EQ(loading.loaded.result.error, errNone);
        EXPECT_NE(loading.loaded.globalRefcon, nullptr);
        EXPECT_THAT(loading.treeCalls, ElementsAre("JuceGlobalInit()"));
        if (usual.empty())
            usual = loading.host.CallTexts();
        EXPECT_EQ(loading.host.CallTexts(), usual);
        unload(loading);
    }
}
} // namespace
} // namespace standin
