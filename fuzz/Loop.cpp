// Sequences of what users, siblings and the host do, through the whole loop: layer, idle pass, tree, and back
// to the layer. The host's sensors watch every call; in the end the loop comes to rest, tree and layer agree,
// and undo leads back to where it began.

#include "effects/LayerItems.h"
#include "fuzz/Input.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/sensors/FindingIds.h"
#include "tests/support/PanelBench.h"
#include "tree/Tree.h"

#include <map>

namespace standin
{
namespace
{
constexpr std::size_t longestName = 40;
constexpr int mostSteps = 12;
constexpr int mostPasses = 8;

const char* const matchNames[] = {
    "QVK VORTSRC Lamps", "QVK VORTSRC Solids", "QVK VORTEFF Jitter", "QVK VORTEFF Enclosure",
    "QVK VORTREN Dots",  "QVK VORTAN TWO",     "QVK VORTAN",         "ADBE Fill",
};

/// In a text of the host a zero ends the name.
std::string nameFrom(Input& input)
{
    std::string name = input.Text(longestName);
    return name.substr(0, name.find('\0'));
}

template <class Value>
void choose(unsigned bit, unsigned bits, Value& option, Value second)
{
    if ((bits >> bit & 1u) != 0)
        option = second;
}

HostOptions optionsFrom(Input& input)
{
    const auto bits = static_cast<std::uint16_t>(input.Short());
    HostOptions options;
    options.traceLimit = 1;
    options.undoLevels = 100000;
    choose(0, bits, options.applyPlace, ApplyPlace::afterSelected);
    choose(1, bits, options.applyPlace, ApplyPlace::start);
    choose(2, bits, options.nameLimit, NameLimit::published);
    choose(3, bits, options.emptyName, EmptyName::resetsToDefault);
    choose(4, bits, options.identityBirth, IdentityBirth::atNextIdle);
    choose(5, bits, options.groupMinusOne, GroupMinusOne::isStored);
    choose(7, bits, options.tabBehind, TabBehind::isNotShown);
    choose(8, bits, options.focusInPanel, FocusInPanel::keepsActivePanel);
    choose(9, bits, options.unchangedGroup, UnchangedGroup::leavesPhantomEntry);
    choose(10, bits, options.walkEnd, WalkEnd::isError);
    choose(11, bits, options.disposeDeleted, DisposeDeleted::isRefused);
    return options;
}

class Loop
{
public:
    explicit Loop(Input& bytes) : input(bytes), bench(optionsFrom(bytes))
    {
        layers = {bench.on.layerId, bench.host.AddLayer(bench.on.compId, "Layer 2")};
        for (const int layer : layers)
            for (int count = input.Below(5); count > 0; --count)
                (void)bench.host.AddEffect(layer, anyMatchName());
        for (const int layer : layers)
            for (const std::string& label : labelsOf(layer))
                bench.host.Effect(label).family.group = static_cast<std::int16_t>(input.Below(4));
        before = bench.host.State();
        bench.Show();
    }

    void Run()
    {
        for (int step = 0; step < mostSteps && !input.IsUsedUp(); ++step)
        {
            act();
            for (int idles = input.Below(3); idles > 0; --idles)
                idleAsInputSays();
        }
        comeToRest();
        compareTreeAndLayer();
        undoEverything();
        bench.Close();
        bench.host.CheckSuiteBalance();
        requireNoFinding();
    }

private:
    const char* anyMatchName() { return matchNames[static_cast<std::size_t>(input.Below(8))]; }

    std::vector<std::string> labelsOf(int layer)
    {
        std::vector<std::string> labels;
        for (const EffectInstance& effect : bench.host.State().FindLayer(layer)->effects)
            labels.push_back(effect.label);
        return labels;
    }

    void act()
    {
        const int choice = input.Below(30);
        if (choice < 10)
            return actInHost(choice);
        if (choice < 20)
            return actInTree(choice - 10);
        actAround(choice - 20);
    }

    /// What the user does to an effect in the host's own windows.
    void actInHost(int choice)
    {
        UserActions& user = bench.host.User();
        const int layer = layers[static_cast<std::size_t>(input.Below(2))];
        const std::vector<std::string> labels = labelsOf(layer);
        if (choice == 0)
            return (void)user.Apply(layer, anyMatchName());
        if (labels.empty())
            return;
        const auto count = static_cast<int>(labels.size());
        const std::string& label = labels[static_cast<std::size_t>(input.Below(count))];
        switch (choice)
        {
        case 1:
            return user.Rename(label, nameFrom(input));
        case 2:
            return user.Reorder(label, input.Below(count));
        case 3:
            return user.Delete(label);
        case 4:
            return (void)user.Duplicate(label);
        case 5:
            return user.SetActive(label, anySwitch());
        case 6:
            return user.SetHidden(label, anySwitch());
        case 7:
            return user.SetGroup(label, static_cast<std::int16_t>(input.Below(14) - 1));
        case 8:
            return user.SelectEffect(label);
        default:
            return user.SelectNoEffect();
        }
    }

    Switch anySwitch() { return input.Below(2) == 1 ? Switch::on : Switch::off; }

    /// What the user does in the panel.
    void actInTree(int choice)
    {
        ValueTreesDemo* const tree = bench.Tree();
        if (tree == nullptr)
            return;
        if (choice == 0)
            return tree->keysToBeAdded.push_back(bench.on.Key(anyMatchName()));
        if (tree->objects.empty())
            return;
        const auto count = static_cast<int>(tree->objects.size());
        const auto place = static_cast<std::size_t>(input.Below(count));
        ObjectItem& object = tree->objects[place];
        switch (choice)
        {
        case 1:
            object.name = nameFrom(input);
            return;
        case 2:
        case 3:
            return move(*tree, place, static_cast<std::size_t>(input.Below(count)));
        case 4:
            tree->effectsToBeRemoved.push_back(object.uuid);
            tree->objects.erase(tree->objects.begin() + static_cast<std::ptrdiff_t>(place));
            return;
        case 5:
            object.active = input.Below(2);
            return;
        case 6:
            object.group = input.Below(12) - 1;
            return;
        case 7:
            return tree->selectedUuids.push_back(object.uuid);
        case 8:
            return tree->selectedUuids.clear();
        default:
            tree->openness = std::to_string(input.Byte());
        }
    }

    static void move(ValueTreesDemo& tree, std::size_t from, std::size_t to)
    {
        const ObjectItem moved = tree.objects[from];
        tree.objects.erase(tree.objects.begin() + static_cast<std::ptrdiff_t>(from));
        tree.objects.insert(tree.objects.begin() + static_cast<std::ptrdiff_t>(to), moved);
    }

    /// What happens to the panel, to the selection of layers and to the history.
    void actAround(int choice)
    {
        switch (choice)
        {
        case 0:
            return bench.Show();
        case 1:
            return bench.Hide();
        case 2:
            return bench.Cover();
        case 3:
            return (void)bench.host.RunCommand(bench.plugin->command);
        case 4:
            return (void)bench.host.User().Undo();
        case 5:
            return (void)bench.host.User().Redo();
        case 6:
            return bench.host.User().SelectLayers({layers[static_cast<std::size_t>(input.Below(2))]});
        case 7:
            return bench.host.User().OpenComposition(input.Below(2) * bench.on.compId);
        case 8:
            return (void)RefreshPanel(&bench.Inbox());
        default:
            return (void)PanelNotify(&bench.Inbox(), nameFrom(input).c_str());
        }
    }

    /// Now and then the host idles inside one of the calls that the pass makes.
    void idleAsInputSays()
    {
        if (const int ordinal = input.Below(128); ordinal > 64)
            bench.host.Idles().InCall(static_cast<std::size_t>(4 * (ordinal - 64)));
        idle();
        bench.host.Idles().Clear();
    }

    void idle()
    {
        Host& host = bench.host;
        const HookResult result = host.RunIdle();
        Require(result.thrown.empty() && result.error == A_Err_NONE, "an idle pass ends well");
        Require(host.LeakedReferences() == 0, "a pass disposes of all references");
        Require(host.OpenUndoGroups() == 0 && host.UndoGroupsLeftOpen() == 0,
                "a pass closes its undo groups");
        requireNoFinding();
        TreeLog().Clear();
    }

    /// An order without an object is an empty undo group, which the panel keeps and a strict host reports.
    void requireNoFinding()
    {
        for (const Finding& each : bench.host.TakeFindings())
            Require(each.id == finding::emptyUndoGroup, each.Text().c_str());
    }

    void showTheLayer()
    {
        bench.host.User().OpenComposition(bench.on.compId);
        bench.host.User().SelectLayers({bench.on.layerId});
        bench.host.User().Activate(ActivePanel::timeline);
        bench.Show();
        (void)RefreshPanel(&bench.Inbox());
    }

    /// What still waits is done first: a deletion of the effect that is selected in the host clears the
    /// host's selection, and then no layer is active.
    void comeToRest()
    {
        showTheLayer();
        idle();
        showTheLayer();
        for (int pass = 0; pass < mostPasses; ++pass)
        {
            const ProjectState state = bench.host.State();
            const std::uint64_t hashes[] = {bench.plugin->layerHash, bench.plugin->treeHash};
            idle();
            const bool isQuiet = hashes[0] == bench.plugin->layerHash &&
                                 hashes[1] == bench.plugin->treeHash && state == bench.host.State();
            if (isQuiet && pass > 0)
                return;
        }
        Found("the loop comes to rest");
    }

    void compareTreeAndLayer()
    {
        std::vector<ObjectItem> items;
        (void)bench.host.RunInHook(
            [&] { items = CreateItemsFromLayer(bench.on.Id(), bench.on.Basic(), bench.on.Layer(), -1); });
        std::vector<ObjectItem> objects = bench.Tree()->objects;
        std::size_t at = 0;
        for (const ObjectItem& item : items)
        {
            if (item.uuid == ZERO_UUID_TEXT)
                continue;
            Require(at < objects.size(), "each effect of the family is in the tree");
            const ObjectItem& object = objects[at++];
            Require(object.uuid == item.uuid, "the tree stands in the order of the layer");
            Require(object.name == item.name, "an object has the name of its effect");
            Require(object.group == item.group, "an object has the group of its effect");
            Require(object.active == item.active, "an object is switched as its effect is");
        }
        Require(at == objects.size(), "nothing else is in the tree");
    }

    /// Hidden flags, and identities that were made since, are no part of undo.
    void undoEverything()
    {
        while (bench.host.Undo())
        {
        }
        const ProjectState& now = bench.host.State();
        for (const Layer& layer : before.layers)
        {
            const std::vector<EffectInstance>& effects = now.FindLayer(layer.id)->effects;
            Require(effects.size() == layer.effects.size(), "undo brings the effects back");
            for (std::size_t i = 0; i < effects.size(); ++i)
            {
                const EffectInstance& was = layer.effects[i];
                Require(effects[i].id == was.id, "undo brings the order back");
                Require(effects[i].customName == was.customName, "undo brings the names back");
                Require(effects[i].flags == was.flags, "undo brings the switches back");
                Require(effects[i].family.group == was.family.group, "undo brings the groups back");
            }
        }
    }

    Input& input;
    PanelBench bench;
    std::vector<int> layers;
    ProjectState before;
};
} // namespace
} // namespace standin

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    standin::Input input(data, size);
    standin::Loop(input).Run();
    return 0;
}
