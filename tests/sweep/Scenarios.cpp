// What is swept. Between them the scenarios reach every operation that makes host calls.

#include "tests/support/PanelBench.h"
#include "tests/sweep/SweptWork.h"

namespace standin
{
using namespace check;

namespace
{
void nothing(PanelBench&) {}

void editAll(PanelBench& bench)
{
    bench.SelectInTree({"A"});
    bench.MoveInTree("C", 0);
    bench.TreeItem("A").active = 0;
    bench.TreeItem("B").group = 2;
    bench.TreeItem("A").name = "Walls";
}

void showAnotherLayer(PanelBench& bench)
{
    const int other = bench.host.AddLayer(bench.on.compId, "Layer 2");
    bench.Add(other, "ADBE Tint", "T");
    bench.Add(other, "QVK VORTSRC Lamps", "L");
    bench.Add(other, "QVK VORTREN Dots", "D");
    bench.host.User().SelectLayers({other});
}
} // namespace

const std::vector<SweptScenario>& SweptScenarios()
{
    static const std::vector<SweptScenario> all = {
        StartOfThePanel("start"),
        StartOfTheIdleSuite("idle-start"),
        FullIdleQueue("idle-queue"),
        PanelScenario("quiet", nothing),
        PanelScenario(
            "first-showing", [](PanelBench& bench) { bench.Show(); }, ShownAtFirst::no),
        PanelScenario("reading", [](PanelBench& bench) { bench.host.User().Rename("B", "Shaker"); }),
        PanelScenario("another-layer", showAnotherLayer),
        PanelScenario("rename", [](PanelBench& bench) { bench.TreeItem("B").name = "Shaker"; }),
        PanelScenario("order", [](PanelBench& bench) { bench.MoveInTree("C", 0); }),
        PanelScenario("switch", [](PanelBench& bench) { bench.TreeItem("A").active = 0; }),
        PanelScenario("group", [](PanelBench& bench) { bench.TreeItem("A").group = 3; }),
        PanelScenario("add",
                      [](PanelBench& bench) {
                          bench.Tree()->keysToBeAdded = {bench.on.Key("QVK VORTSRC Solids"),
                                                         bench.on.Key("QVK VORTREN Panes")};
                      }),
        PanelScenario("delete",
                      [](PanelBench& bench)
                      {
                          bench.DeleteInTree("A");
                          bench.DeleteInTree("C");
                      }),
        PanelScenario("select",
                      [](PanelBench& bench) {
                          bench.SelectInTree({"A", "B"});
                      }),
        PanelScenario("hide", [](PanelBench& bench) { bench.SelectInTree({}); }),
        PanelScenario("all-edits", editAll),
        PanelScenario("requests",
                      [](PanelBench& bench)
                      {
                          (void)RefreshPanel(&bench.Inbox());
                          (void)PanelNotify(&bench.Inbox(), "Saved");
                      }),
        PanelScenario("open-request",
                      [](PanelBench& bench)
                      {
                          bench.Hide();
                          bench.Settle();
                          bench.Inbox().openPending = 1;
                      }),
        PanelScenario("menu", nothing, ShownAtFirst::yes, [](PanelBench& bench) { (void)bench.Choose(); }),
    };
    return all;
}
} // namespace standin
