#include "bench/Benchmarks.h"
#include "bench/Measure.h"

#include <memory>

namespace standin
{

namespace
{
/// What a row of a tree view needs at the least in order to show a name.
class BareRow : public juce::TreeViewItem
{
public:
    explicit BareRow(const juce::String& rowText) : text(rowText) {}

    bool mightContainSubItems() override { return getNumSubItems() > 0; }
    void paintItem(juce::Graphics& g, int width, int height) override
    {
        g.drawText(text, 0, 0, width, height, juce::Justification::centredLeft);
    }

private:
    juce::String text;
};

/// A tree view with nothing around it, on the desktop if it has a window.
class BareTree
{
public:
    BareTree(void* window, juce::Rectangle<int> bounds)
    {
        view.setBounds(bounds);
        view.setVisible(true);
        if (window != nullptr)
            view.addToDesktop(0, window);
    }
    ~BareTree() { view.deleteRootItem(); }

    void Build(const std::vector<ObjectItem>& items)
    {
        view.deleteRootItem();
        auto* root = new BareRow("Layer");
        root->setOpen(true);
        for (const ObjectItem& item : items)
            root->addSubItem(new BareRow(juce::String::fromUTF8(item.name.c_str())));
        view.setRootItem(root);
    }

private:
    juce::TreeView view;
};

struct Scene
{
    Scene(FastPanel& thePanel, int count, std::shared_ptr<BareTree> bareTree)
        : panel(thePanel), items(MadeUpItems(count)), bare(std::move(bareTree))
    {
    }

    FastPanel& panel;
    std::vector<ObjectItem> items;
    std::shared_ptr<BareTree> bare;

    void rebuild() { RefreshTree(&panel.Tree(), items); }
    _TreeStateTable_Internal* table() { return panel.plugin->stateTable; }
};

/// What the table does with a tree of which nothing is known yet.
void registerTable(const std::shared_ptr<Scene>& scene, int count)
{
    constexpr int layerId = 77;
    const auto add = [&](const char* name, std::function<void()> run, std::function<void()> prepare)
    {
        Measurement step = {"State table", name, count, {}, {}, Calls::none};
        step.subject = {std::move(run), std::move(prepare)};
        step.samples = 31;
        Register(scene->panel.host, step);
    };
    const auto store = [scene] { CacheLayerTreeState(scene->table(), layerId, &scene->panel.Tree()); };
    const auto touch = [scene]
    {
        auto& root = *scene->panel.Tree().treeView.getRootItem();
        root.setSelected(!root.isSelected(), false);
    };
    add("store", store,
        [scene, touch]
        {
            scene->rebuild();
            touch();
        });
    add(
        "apply", [scene] { ApplyLayerTreeState(scene->table(), layerId, &scene->panel.Tree()); },
        [scene, store]
        {
            scene->rebuild();
            store();
            scene->rebuild();
        });
    add(
        "compare, changed",
        [scene] { (void)DidLayerStateChange(scene->table(), layerId, &scene->panel.Tree()); },
        [scene, store, touch]
        {
            scene->rebuild();
            store();
            touch();
        });
    add(
        "compare, unchanged",
        [scene] { (void)DidLayerStateChange(scene->table(), layerId, &scene->panel.Tree()); },
        [scene, store]
        {
            scene->rebuild();
            store();
        });
}

/// The same of two trees without a window, so that no server is asked anything on either side.
void registerWithoutWindow(FastPanel& panel, int count)
{
    const juce::Rectangle<int> bounds = panel.Tree().treeView.getBounds();
    const auto bare = std::make_shared<BareTree>(nullptr, bounds);
    const std::shared_ptr<ValueTreesDemo> tree(CreateTreeWidget(false), &DeleteTreeWidget);
    tree->setBounds(panel.Tree().getBounds());
    const auto items = std::make_shared<std::vector<ObjectItem>>(MadeUpItems(count));
    Measurement rebuild = {"Rebuild", "tree without a window", count, {}, {}, Calls::none};
    rebuild.subject = {[tree, items] { RefreshTree(tree.get(), *items); }};
    rebuild.floor = {[bare, items] { bare->Build(*items); }};
    rebuild.samples = count > 1000 ? 21 : 101;
    Register(panel.host, rebuild);
}
} // namespace

void RegisterTree(FastPanel& panel, void* window)
{
    const auto bare = std::make_shared<BareTree>(window, panel.Tree().treeView.getBounds());
    for (const int count : {10, 100, 1000, 10000})
    {
        const auto scene = std::make_shared<Scene>(panel, count, bare);
        Measurement rebuild = {"Rebuild", "tree", count, {}, {}, Calls::none};
        rebuild.subject = {[scene] { scene->rebuild(); }};
        rebuild.floor = {[scene] { scene->bare->Build(scene->items); }};
        rebuild.samples = count > 1000 ? 21 : 101;
        Register(panel.host, rebuild);
    }
    for (const int count : {10, 100, 1000, 10000})
        registerWithoutWindow(panel, count);
    for (const int count : {10, 100, 1000, 10000})
        registerTable(std::make_shared<Scene>(panel, count, bare), count);
}
} // namespace standin
