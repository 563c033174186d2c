// Work of the panel: its passes carry a change from one side to the other.

#include "effects/LayerItems.h"
#include "standin/core/HostParts.h"
#include "tests/support/PanelBench.h"
#include "tests/sweep/SweptWork.h"

#include <optional>

namespace standin
{
namespace
{
/// As many as a change needs, and one more, which has nothing to do.
constexpr int passesOfAChange = 3;

std::string textOf(const std::vector<ObjectItem>& items)
{
    std::string text;
    for (const ObjectItem& item : items)
        if (item.uuid != ZERO_UUID_TEXT)
            text += item.uuid + " " + item.name + " " + std::to_string(item.group) + " " +
                    std::to_string(item.active) + "\n";
    return text;
}

/// Ends the plug-in, with all it holds.
void closeBench(PanelBench& bench)
{
    bench.Close();
    bench.host.CheckSuiteBalance();
}

class PanelWork : public SweptWork
{
public:
    PanelWork(const PanelAction& begin, ShownAtFirst shown, PanelAction toRun) : run(std::move(toRun))
    {
        bench.AddThree();
        bench.Add("ADBE Fill", "X");
        bench.host.Effect("B").family.group = 1;
        if (shown == ShownAtFirst::yes)
        {
            bench.ShowAndSettle();
            bench.SelectInTree({"C"});
            bench.Settle();
        }
        begin(bench);
        bench.host.Parts().undo.Forget();
        (void)bench.host.TakeFindings();
    }

    void Run(const ArmFaults& arm, std::vector<HookResult>& results) override
    {
        const process::CapturedOutput quiet;
        arm(bench.host);
        if (run)
            run(bench);
        for (int i = 0; i < passesOfAChange; ++i)
            results.push_back(bench.host.RunIdle());
    }

    /// One refresh brings the tree to the truth, and two passes both sides together. Kept: without the
    /// refresh, an edit that was refused and a tree that was emptied stay.
    void Recover(Trial& trial) override
    {
        if (bench.Tree() == nullptr)
            bench.Show();
        bench.Inbox().refreshPending = 1;
        bench.Inbox().openPending = 0;
        if (bench.host.FindPanel(PANEL_NAME)->state != PanelState::frontmost)
            (void)bench.host.SetPanelState(PANEL_NAME, PanelState::frontmost);
        for (int i = 0; i < 2; ++i)
            trial.RequireEqual(bench.Pass().result.thrown, std::string(), "what left a hook without a fault");
        requireAgreement(trial);
        trial.RequireEqual(bench.Pass().printed, std::string(), "what the third pass without a fault prints");
        requireAgreement(trial);
        trial.RequireNoFindings(bench.host);
    }

    void Close() override { closeBench(bench); }
    Host& TheHost() override { return bench.host; }

private:
    void requireAgreement(Trial& trial)
    {
        std::vector<ObjectItem> items;
        (void)bench.host.RunInHook(
            [&] { items = CreateItemsFromLayer(8, bench.on.Basic(), activeLayer(), -1); });
        trial.RequireEqual(textOf(bench.Tree()->objects), textOf(items), "the tree");
    }

    AEGP_LayerH activeLayer()
    {
        const std::vector<int>& layers = bench.host.Parts().selection.layers;
        return layers.size() == 1 ? bench.on.Layer(layers.front()) : nullptr;
    }

    PanelBench bench;
    PanelAction run;
};

class PanelStart : public SweptWork
{
public:
    void Run(const ArmFaults& arm, std::vector<HookResult>& results) override
    {
        const process::CapturedOutput quiet;
        bench.emplace(HostOptions{}, arm);
        results.push_back(bench->loading.result);
        results.push_back(bench->host.RunIdle());
        results.push_back(bench->host.UpdateMenus());
    }

    /// Nothing is tried again.
    void Recover(Trial& trial) override
    {
        trial.Require((bench->plugin == nullptr) == !bench->loading.result.thrown.empty(),
                      "the controller lives although its entry point was left by an exception, or not");
        trial.RequireNoFindings(bench->host);
    }

    void Close() override { closeBench(*bench); }
    Host& TheHost() override { return bench->host; }

private:
    std::optional<PanelBench> bench;
};
} // namespace

SweptScenario PanelScenario(const char* name, PanelAction begin, ShownAtFirst shown, PanelAction run)
{
    return {name, [=] { return std::make_unique<PanelWork>(begin, shown, run); }};
}

SweptScenario StartOfThePanel(const char* name)
{
    return {name, [] { return std::make_unique<PanelStart>(); }};
}
} // namespace standin
