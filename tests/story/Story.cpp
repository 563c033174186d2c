#include "tests/story/Story.h"

#include "tests/support/KeptObjects.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace standin
{
namespace
{
constexpr int mostPasses = 6;
constexpr const char* panelName = "Vortan Object Panel";

std::string sideText(const ObjectItem& item)
{
    const std::string group = item.group > 0 ? " (group " + std::to_string(item.group) + ")" : "";
    return (item.active != 0 ? "[x] " : "[ ] ") + GetItemDisplayString(item.name) + group;
}
} // namespace

Story::Story()
{
    product.host.Expect("empty-undo-group", "AEGP_EndUndoGroup",
                        "a layer without objects of the family has no order to write");
    (void)product.host.AddEffect(product.layerId, "ADBE Gaussian Blur 2", "Blur");
    const LoadedPlugin plugin = product.host.Load(&PanelEntryPointFunc);
    panelator = static_cast<Panelator*>(plugin.globalRefcon);
    (void)product.host.SetPanelState(panelName, PanelState::frontmost);
}

Story::~Story() = default;

ObjectItem& Story::TreeItem(const std::string& name)
{
    for (ObjectItem& item : panelator->tree->objects)
    {
        if (GetItemDisplayString(item.name) == name)
            return item;
    }
    throw std::logic_error("the tree shows no object \"" + name + "\"");
}

void Story::MoveTreeItem(const std::string& name, std::size_t place)
{
    const ObjectItem moved = TreeItem(name);
    std::vector<ObjectItem>& objects = panelator->tree->objects;
    objects.erase(std::find_if(objects.begin(), objects.end(),
                               [&](const ObjectItem& item) { return item.uuid == moved.uuid; }));
    objects.insert(objects.begin() + static_cast<std::ptrdiff_t>(place), moved);
}

void Story::DeleteTreeItem(const std::string& name)
{
    const std::string uuid = TreeItem(name).uuid;
    std::vector<ObjectItem>& objects = panelator->tree->objects;
    objects.erase(std::find_if(objects.begin(), objects.end(),
                               [&](const ObjectItem& item) { return item.uuid == uuid; }));
    panelator->tree->effectsToBeRemoved.push_back(uuid);
}

void Story::SelectTreeItems(const std::vector<std::string>& names)
{
    std::vector<std::string>& selected = panelator->tree->selectedUuids;
    selected.clear();
    for (const std::string& name : names)
        selected.push_back(TreeItem(name).uuid);
}

void Story::AddFromMenu(const std::string& matchName)
{
    panelator->tree->keysToBeAdded.push_back(product.Key(matchName));
}

void Story::Say(const std::string& sentence) { std::printf("\n%d. %s\n", ++chapter, sentence.c_str()); }

std::size_t Story::IdlePass()
{
    product.host.ClearTrace();
    TreeLog().Clear();
    (void)product.host.RunIdle();
    return product.host.CallTexts().size();
}

/// A pass in which the tree is only read is one that found nothing to do.
void Story::Settle()
{
    for (int pass = 1; pass <= mostPasses; ++pass)
    {
        const std::size_t calls = IdlePass();
        const auto& tree = TreeLog().calls;
        const bool rebuilt =
            std::any_of(tree.begin(), tree.end(),
                        [](const std::string& call) { return call.rfind("RefreshTree", 0) == 0; });
        const bool pushed =
            std::any_of(tree.begin(), tree.end(),
                        [](const std::string& call) { return call.rfind("GetSelectedTreeItems", 0) == 0; });
        const bool quiet =
            !rebuilt && !pushed && std::count(tree.begin(), tree.end(), "GetItemsFromTree(tree)") == 1;
        std::printf("   pass %d: %zu host calls%s%s%s\n", pass, calls,
                    rebuilt ? ", the tree was rebuilt" : "",
                    pushed ? ", the selection went to the layer" : "", quiet ? ", nothing to do" : "");
        if (quiet)
        {
            PrintSides();
            return;
        }
    }
    atPeace = false;
}

void Story::PrintSides()
{
    std::printf("   layer:");
    for (const EffectInstance& effect : product.host.State().FindLayer(product.layerId)->effects)
        std::printf("  %s%s", product.host.NameOf(effect.label).c_str(),
                    effect.groupHidden ? " (hidden)" : "");
    std::printf("\n   panel:");
    for (const ObjectItem& item : panelator->tree->objects)
        std::printf("  %s", sideText(item).c_str());
    const std::vector<std::string> undo = product.host.UndoNames();
    std::printf("\n   undo:   %s\n", undo.empty() ? "nothing" : ("\"" + undo.back() + "\"").c_str());
}

bool Story::End()
{
    product.host.Expect("unbalanced-suite", "",
                        "the panel and its controller hold their suites until the host ends");
    product.host.Quit();
    const std::string report = product.host.FindingsReport();
    std::fprintf(stderr, "%s", report.c_str());
    DeleteKeptObjects(product.host, std::exchange(panelator, nullptr));
    if (!atPeace)
        std::fprintf(stderr, "an idle pass did not settle\n");
    return report.empty() && atPeace;
}
} // namespace standin
