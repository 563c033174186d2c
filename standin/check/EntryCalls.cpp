// What the two entry points ask of the host, call by call.

#include "standin/check/Scene.h"
#include "standin/check/Trial.h"

namespace standin::check::bundles
{
namespace
{
void requireWell(Trial& trial, const LoadedPlugin& plugin)
{
    trial.RequireEqual(plugin.result.thrown, std::string(), "what left the entry point");
    trial.RequireEqual(plugin.result.error, errNone, "the result of the entry point");
    trial.Require(plugin.globalRefcon != nullptr, "the entry point gave the host no global refcon");
}
} // namespace

void IdleSuiteEntryCalls(Trial& trial)
{
    Scene scene(trial.File());
    requireWell(trial, scene.bundle.LoadIdleSuite(scene.host));
    trial.RequireLines(
        scene.TakeCalls(),
        {R"(Basic AcquireSuite("SP Suites Suite", 2))",
         R"(Suites 2 AddSuite(null, null, "Vortan Idle Suite v1", 1, 1, table))",
         R"(Basic ReleaseSuite("SP Suites Suite", 2))",
         // Kept: it is acquired and released once more without use.
         R"(Basic AcquireSuite("SP Suites Suite", 2))", R"(Basic ReleaseSuite("SP Suites Suite", 2))",
         R"(Basic AcquireSuite("AEGP Register Suite", 6))", R"(Basic AcquireSuite("AEGP Utility Suite", 7))",
         "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
         R"(Basic ReleaseSuite("AEGP Register Suite", 6))", R"(Basic ReleaseSuite("AEGP Utility Suite", 7))"},
        "the calls of EffectorAEGP");
    scene.Quit();
    trial.RequireNoFindings(scene.host);
}

void PanelEntryCalls(Trial& trial)
{
    Scene scene(trial.File());
    requireWell(trial, scene.bundle.LoadPanel(scene.host));
    trial.RequireLines(
        scene.TakeCalls(),
        {R"(Basic AcquireSuite("AEGP Workspace Panel Suite", 1))",
         R"(Basic AcquireSuite("AEGP Command Suite", 1))", "Command 1 AEGP_GetUniqueCommand() -> 1001",
         R"(Command 1 AEGP_InsertMenuCommand(1001, "Vortan Object Panel", 7, -2))",
         R"(Basic AcquireSuite("AEGP Register Suite", 6))",
         "Register 6 AEGP_RegisterCommandHook(id 8, 1, 1001, hook, refcon)",
         "Register 6 AEGP_RegisterUpdateMenuHook(id 8, hook, null)",
         "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
         "Register 6 AEGP_RegisterDeathHook(id 8, hook, null)",
         R"(Panel 1 AEGP_RegisterCreatePanelHook(id 8, "Vortan Object Panel", hook, refcon, 0))",
         R"(Basic AcquireSuite("SP Suites Suite", 2))",
         R"(Suites 2 AddSuite(null, null, "Vortan Panel Suite v1", 1, 1, table))",
         R"(Basic ReleaseSuite("SP Suites Suite", 2))"},
        "the calls of PanelEntryPointFunc");
    scene.Quit();
    trial.RequireNoFindings(scene.host);
}
} // namespace standin::check::bundles
