// Work of the panel: its passes carry a change from one side to the other.

#include "tests/support/Agreement.h"
#include "tests/support/PanelBench.h"
#include "tests/sweep/SweptWork.h"

#include <utility>

namespace standin
{
using namespace check;

namespace
{
/// As many as a change needs, and one more, which has nothing to do.
constexpr int passesOfAChange = 3;

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
        bench.host.ForgetHistory();
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

    void Close() override
    {
        bench.Close();
        bench.host.CheckSuiteBalance();
    }
    Host& TheHost() override { return bench.host; }

private:
    void requireAgreement(Trial& trial)
    {
        const std::vector<int>& layers = bench.host.ProjectView().selection.layers;
        trial.RequireEqual<std::size_t>(layers.size(), 1, "the number of selected layers");
        trial.RequireLines(TreeLines(bench.Tree()->objects),
                           LayerLines(bench.host, *bench.host.State().FindLayer(layers.front())), "the tree");
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
        arm(on.host);
        const LoadedPlugin loaded = on.host.Load(&PanelEntryPointFunc);
        plugin = static_cast<Panelator*>(loaded.globalRefcon);
        results.push_back(loaded.result);
        results.push_back(on.host.RunIdle());
        results.push_back(on.host.UpdateMenus());
    }

    /// Nothing is tried again.
    void Recover(Trial& trial) override { trial.RequireNoFindings(on.host); }

    void Close() override
    {
        if (plugin != nullptr)
            (void)on.host.RunInHook(
                [&]
                {
                    (void)Panelator::S_DeathHook(plugin, nullptr);
                    delete plugin->publishedSuite.panelRef;
                    delete plugin;
                });
        on.host.CheckSuiteBalance();
    }
    Host& TheHost() override { return on.host; }

private:
    ProductHost on;
    Panelator* plugin = nullptr; ///< Null if the entry point was left by an exception.
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
