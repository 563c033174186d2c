// What hooks and entry points give back to the host.

#include "tests/standin/PluginTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A plug-in of which one hook at a time, or the entry point, returns an error.
class HookResults : public HostTest
{
protected:
    HookResults() { failing = {}; }

    static A_Err resultOf(const std::string& hook) { return hook == failing ? errStruct : errNone; }

    static A_Err entry(void*, A_long, A_long, A_long id, void** refcon)
    {
        Client client(*Host::Current());
        *refcon = nullptr;
        A_long command = 0;
        void* none = nullptr;
        (void)client.Call(commandSuite, 1, 0, &command);
        (void)client.Call(commandSuite, 1, 1, command, "Failing", A_char{7}, A_long{-2});
        (void)client.Call(registerSuite, 6, 0, id, A_u_long{1}, command, &commandHook, none);
        (void)client.Call(registerSuite, 6, 1, id, &updateHook, none);
        (void)client.Call(registerSuite, 6, 2, id, &deathHook, none);
        (void)client.Call(registerSuite, 6, 8, id, &idleHook, none);
        (void)client.Call(panelSuite, 1, 0, id, panelName, &createHook, none, A_Boolean{0});
        enabled = command;
        return resultOf("entry");
    }
    static A_Err commandHook(void*, void*, A_long, A_u_long, A_Boolean, A_Boolean* handled)
    {
        *handled = 1;
        return resultOf("command");
    }
    static A_Err updateHook(void*, void*, A_char)
    {
        Client client(*Host::Current());
        (void)client.Call(commandSuite, 1, 4, enabled);
        return resultOf("update");
    }
    static A_Err deathHook(void*, void*) { return resultOf("death"); }
    static A_Err idleHook(void*, void*, A_long*) { return resultOf("idle"); }
    static A_Err createHook(void*, void*, void*, PanelH, PanelFunctions* functions, void**)
    {
        *functions = toSet;
        return resultOf("create");
    }

    std::vector<std::string> findings()
    {
        std::vector<std::string> lines;
        for (const Finding& finding : host.TakeFindings())
            lines.push_back(finding.id + " in " + finding.function);
        return lines;
    }

    /// Opens the panel with these functions, 1 for one that is set.
    std::vector<std::string> findingsWithFunctions(int snap, int fill, int command)
    {
        static int function = 0;
        const auto pointer = [](int isSet) -> void* { return isSet != 0 ? &function : nullptr; };
        toSet = {pointer(snap), pointer(fill), pointer(command)};
        (void)host.Load(&entry);
        (void)host.SetPanelState("Test Panel", PanelState::frontmost);
        toSet = {};
        return findings();
    }

    static inline std::string failing;
    static inline A_long enabled = 0;
    static inline PanelFunctions toSet{};
};

TEST_F(HookResults, NothingIsReportedOfHooksThatGoWell)
{
    (void)host.Load(&entry);
    (void)host.RunIdle();
    (void)host.ChooseMenuItem("Failing");
    (void)host.SetPanelState("Test Panel", PanelState::frontmost);
    host.Quit();
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(HookResults, ErrorsOfEntryPointsAreReported)
{
    failing = "entry";
    EXPECT_EQ(host.Load(&entry).result.error, errStruct);
    EXPECT_THAT(findings(), ElementsAre("error-left-hook in EntryPoint"));
}

TEST_F(HookResults, AHookThatReturnsAnErrorIsReported)
{
    (void)host.Load(&entry);
    failing = "idle";
    EXPECT_EQ(host.RunIdle().error, errStruct);
    EXPECT_THAT(findings(), ElementsAre("error-left-hook in IdleHook"));
    failing = "update";
    EXPECT_EQ(host.UpdateMenus().error, errStruct);
    EXPECT_THAT(findings(), ElementsAre("error-left-hook in UpdateMenuHook"));
    failing = "command";
    EXPECT_TRUE(host.ChooseMenuItem("Failing"));
    EXPECT_THAT(findings(), ElementsAre("error-left-hook in CommandHook"));
    failing = "create";
    EXPECT_EQ(host.SetPanelState("Test Panel", PanelState::frontmost).error, errStruct);
    EXPECT_THAT(findings(), ElementsAre("error-left-hook in CreatePanelHook"));
    failing = "death";
    host.Quit();
    EXPECT_THAT(findings(), ElementsAre("error-left-hook in DeathHook"));
}

TEST_F(HookResults, TheFindingNamesPluginAndError)
{
    (void)host.Load(&entry);
    failing = "idle";
    (void)host.RunIdle();
    EXPECT_EQ(host.TakeFindings().at(0).sentence, "The IdleHook of plug-in 8 returned the error 2.");
}

TEST_F(HookResults, ErrorsOfTestBodiesAreNotReported)
{
    EXPECT_EQ(host.RunInHook([] { return errStruct; }).error, errStruct);
    EXPECT_THAT(findings(), IsEmpty());
}

TEST_F(HookResults, PanelFunctionsAreSetAllOrNone) { EXPECT_THAT(findingsWithFunctions(0, 0, 0), IsEmpty()); }

TEST_F(HookResults, ACompleteSetOfPanelFunctionsIsWell)
{
    EXPECT_THAT(findingsWithFunctions(1, 1, 1), IsEmpty());
}

TEST_F(HookResults, HalfAPanelsFunctionsAreReported)
{
    EXPECT_THAT(findingsWithFunctions(0, 1, 1), ElementsAre("panel-functions in CreatePanelHook"));
}

TEST_F(HookResults, AStricterHostWantsPanelFunctionsSet)
{
    host.Options().unsetPanelFunctions = UnsetPanelFunctions::areFinding;
    EXPECT_THAT(findingsWithFunctions(0, 0, 0), ElementsAre("panel-functions in CreatePanelHook"));
}
} // namespace
} // namespace standin
