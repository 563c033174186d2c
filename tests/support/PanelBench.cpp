#include "tests/support/PanelBench.h"

#include "panel/platform/PanelatorUI_Plat.h"
#include "standin/host/core/Behaviour.h"
#include "standin/host/family/Liars.h"

#include <algorithm>
#include <stdexcept>

namespace standin
{
PanelBench::PanelBench(HostOptions options, const std::function<void(Host&)>& arm) : on(options)
{
    TreeLog() = {};
    if (arm)
        arm(host);
    loading = Record(SuiteTraffic::included,
                     [this]
                     {
                         const LoadedPlugin loaded = host.Load(&PanelEntryPointFunc);
                         plugin = static_cast<Panelator*>(loaded.globalRefcon);
                         return loaded.result;
                     });
}

PanelBench::~PanelBench()
{
    Close();
    TreeLog() = {};
}

void PanelBench::Add(const std::string& matchName, const std::string& label)
{
    Add(on.layerId, matchName, label);
}

void PanelBench::Add(int layerId, const std::string& matchName, const std::string& label)
{
    (void)host.AddEffect(layerId, matchName, label);
    host.Effect(label).customName = label;
}

void PanelBench::AddThree()
{
    Add("QVK VORTSRC Lamps", "A");
    Add("QVK VORTEFF Jitter", "B");
    Add("QVK VORTREN Dots", "C");
}

void PanelBench::Show()
{
    (void)host.SetPanelState(PANEL_NAME, PanelState::frontmost);
    notePanel();
}

void PanelBench::Hide() { (void)host.SetPanelState(PANEL_NAME, PanelState::absent); }

void PanelBench::Cover() { (void)host.SetPanelState(PANEL_NAME, PanelState::behind); }

bool PanelBench::Choose()
{
    const process::CapturedOutput quiet;
    const bool taken = host.ChooseMenuItem(PANEL_NAME);
    notePanel();
    return taken;
}

void PanelBench::Settle()
{
    for (int pass = 0; pass < 4; ++pass)
    {
        const std::uint64_t layerHash = plugin->layerHash;
        const std::uint64_t treeHash = plugin->treeHash;
        const process::CapturedOutput quiet;
        (void)host.RunIdle();
        host.ClearTrace();
        if (quiet.Text().empty() && plugin->layerHash == layerHash && plugin->treeHash == treeHash)
            return;
    }
    throw std::logic_error("the panel does not come to rest");
}

void PanelBench::ShowAndSettle()
{
    Show();
    Settle();
}

PassRecord PanelBench::Pass(SuiteTraffic traffic)
{
    return Record(traffic, [this] { return host.RunIdle(); });
}

void PanelBench::startRecording(SuiteTraffic traffic)
{
    record.clear();
    host.ClearTrace();
    TreeLog().Clear();
    TreeLog().sink = [this, traffic](const std::string& call)
    {
        moveHostCalls(traffic);
        record.push_back(call);
    };
    printed.emplace();
}

PassRecord PanelBench::stopRecording(SuiteTraffic traffic, HookResult result)
{
    moveHostCalls(traffic);
    TreeLog().sink = nullptr;
    notePanel();
    const std::string text = printed->Text();
    printed.reset();
    return {std::move(record), text, std::move(result)};
}

void PanelBench::moveHostCalls(SuiteTraffic traffic)
{
    for (std::string& call : host.CallTexts(traffic))
        record.push_back(std::move(call));
    host.ClearTrace();
}

void PanelBench::ActInMessage(const std::string& label, int nth, std::function<void()> action)
{
    EffectInstance& effect = host.Effect(label);
    host.RuntimeOf(effect.id).messages = 0;
    effect.behaviour = ActsInMessage([act = std::move(action)](Host&) { act(); }, nth);
}

std::string PanelBench::PrintedSoFar() const { return printed->Text(); }

void PanelBench::notePanel()
{
    const Panel* panel = host.FindPanel(PANEL_NAME);
    if (panel == nullptr || panel->panelRefcon == nullptr)
        return;
    if (std::find(panels.begin(), panels.end(), panel->panelRefcon) == panels.end())
        panels.push_back(panel->panelRefcon);
}

std::string PanelBench::TreeText() const
{
    std::string text;
    for (const ObjectItem& item : Tree()->objects)
        text += (text.empty() ? "" : " ") + item.name;
    return text;
}

namespace
{
std::vector<ObjectItem>::iterator find(ValueTreesDemo& tree, const std::string& name)
{
    const auto found = std::find_if(tree.objects.begin(), tree.objects.end(),
                                    [&](const ObjectItem& item) { return item.name == name; });
    if (found == tree.objects.end())
        throw std::logic_error("the tree has no object " + name);
    return found;
}
} // namespace

ObjectItem& PanelBench::TreeItem(const std::string& name) const { return *find(*Tree(), name); }

void PanelBench::DeleteInTree(const std::string& name) const
{
    const auto found = find(*Tree(), name);
    Tree()->effectsToBeRemoved.push_back(found->uuid);
    Tree()->objects.erase(found);
}

void PanelBench::MoveInTree(const std::string& name, std::size_t place) const
{
    const auto found = find(*Tree(), name);
    const ObjectItem item = *found;
    Tree()->objects.erase(found);
    Tree()->objects.insert(Tree()->objects.begin() + static_cast<std::ptrdiff_t>(place), item);
}

void PanelBench::SelectInTree(const std::vector<std::string>& names) const
{
    Tree()->selectedUuids.clear();
    for (const std::string& name : names)
        Tree()->selectedUuids.push_back(find(*Tree(), name)->uuid);
}

void PanelBench::Close()
{
    if (plugin == nullptr)
        return;
    notePanel();
    TreeLog().sink = nullptr;
    host.Faults().Disarm();
    host.Idles().Clear();
    host.Options().idleInCalls = IdleInCalls::never;
    (void)host.RunInHook(
        [&]
        {
            (void)Panelator::S_DeathHook(plugin, nullptr);
            for (void* panel : panels)
                delete static_cast<PanelatorUI_Plat*>(panel);
            delete plugin->publishedSuite.panelRef;
            delete plugin;
        });
    plugin = nullptr;
    panels.clear();
}
} // namespace standin
