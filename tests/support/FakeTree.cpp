#include "tests/support/FakeTree.h"

#include "tree/Tree.h"

#include <algorithm>
#include <sstream>

void FakeTreeLog::Add(const std::string& call)
{
    calls.push_back(call);
    if (sink)
        sink("Tree " + call);
}

FakeTreeLog& TreeLog()
{
    static FakeTreeLog log;
    return log;
}

namespace
{
std::string nameOf(const void* pointer, const char* what) { return pointer == nullptr ? "null" : what; }

std::string namesOf(const std::vector<ObjectItem>& items)
{
    std::string names;
    for (const ObjectItem& item : items)
        names += (names.empty() ? "" : " ") + item.name;
    return "[" + names + "]";
}
} // namespace

std::string ValueTreesDemo::State() const
{
    if (!hasRoot)
        return "";
    std::string state = "open:" + openness + "\n";
    for (const std::string& uuid : selectedUuids)
        state += uuid + "\n";
    return state;
}

void ValueTreesDemo::Restore(const std::string& state)
{
    std::istringstream lines(state);
    std::string line;
    std::getline(lines, line);
    openness = line.substr(std::string("open:").size());
    selectedUuids.clear();
    while (std::getline(lines, line))
        selectedUuids.push_back(line);
}

ValueTreesDemo* CreateTreeWidget(bool hideToolbar)
{
    TreeLog().Add(std::string("CreateTreeWidget(") + (hideToolbar ? "true" : "false") + ")");
    return new ValueTreesDemo;
}

void DeleteTreeWidget(ValueTreesDemo* tree)
{
    TreeLog().Add("DeleteTreeWidget(" + nameOf(tree, "tree") + ")");
    delete tree;
}

void ClearTree(ValueTreesDemo* tree)
{
    TreeLog().Add("ClearTree(" + nameOf(tree, "tree") + ")");
    if (tree == nullptr)
        return;
    tree->hasRoot = false;
    tree->objects.clear();
    tree->selectedUuids.clear();
}

void RefreshTree(ValueTreesDemo* tree, const std::vector<ObjectItem>& items)
{
    TreeLog().Add("RefreshTree(" + namesOf(items) + ")");
    if (tree == nullptr)
        return;
    tree->hasRoot = !items.empty();
    tree->objects.clear();
    tree->selectedUuids.clear();
    for (ObjectItem item : items)
    {
        item.tag.clear();
        if (item.uuid != ZERO_UUID_TEXT)
            tree->objects.push_back(item);
    }
}

void NotifyMsg(ValueTreesDemo* tree, const std::string& text)
{
    TreeLog().Add("NotifyMsg(\"" + text + "\")");
    tree->notifications.push_back(text);
}

void addToDesktop(ValueTreesDemo*, void* embeddedView, int width, int height, void* nativeParent)
{
    TreeLog().Add("addToDesktop(" + std::to_string(width) + ", " + std::to_string(height) + ")");
    if (TreeLog().onAddToDesktop)
        TreeLog().onAddToDesktop(embeddedView, nativeParent);
}

void SetBGColor(ValueTreesDemo* tree, float red, float green, float blue, float alpha)
{
    std::ostringstream text;
    text << "SetBGColor(" << red << ", " << green << ", " << blue << ", " << alpha << ")";
    TreeLog().Add(text.str());
    tree->background = {red, green, blue, alpha};
}

std::vector<ObjectItem> GetItemsFromTree(ValueTreesDemo* tree)
{
    TreeLog().Add("GetItemsFromTree(" + nameOf(tree, "tree") + ")");
    return tree == nullptr ? std::vector<ObjectItem>() : tree->objects;
}

std::uint64_t HashTreeItems(ValueTreesDemo* tree, std::uint64_t seed)
{
    return CalcItemsHash(seed, GetItemsFromTree(tree));
}

std::vector<ObjectItem> GetSelectedTreeItems(ValueTreesDemo* tree)
{
    TreeLog().Add("GetSelectedTreeItems(" + nameOf(tree, "tree") + ")");
    std::vector<ObjectItem> selected;
    for (const ObjectItem& item : tree->objects)
    {
        if (std::count(tree->selectedUuids.begin(), tree->selectedUuids.end(), item.uuid) != 0)
            selected.push_back(item);
    }
    return selected;
}

void AddObject(ValueTreesDemo* tree, VN_OBJECT_TYPE type, int key, const char* name)
{
    TreeLog().Add("AddObject(" + std::to_string(type) + ", " + std::to_string(key) + ", \"" + name + "\")");
    if (tree != nullptr)
        tree->entries.emplace_back(type, key, name);
}

std::vector<int> GetKeysToBeAddedToLayer(ValueTreesDemo* tree)
{
    TreeLog().Add("GetKeysToBeAddedToLayer(" + nameOf(tree, "tree") + ")");
    return tree == nullptr ? std::vector<int>() : std::exchange(tree->keysToBeAdded, {});
}

std::vector<std::string> GetEffectsToBeRemoved(ValueTreesDemo* tree)
{
    TreeLog().Add("GetEffectsToBeRemoved(" + nameOf(tree, "tree") + ")");
    return tree == nullptr ? std::vector<std::string>() : std::exchange(tree->effectsToBeRemoved, {});
}

void JuceGlobalInit() { TreeLog().Add("JuceGlobalInit()"); }

void JuceGlobalShutDown() { TreeLog().Add("JuceGlobalShutDown()"); }

_TreeStateTable_Internal* CreateTreeStateTable()
{
    TreeLog().Add("CreateTreeStateTable()");
    TreeLog().lastTable = new _TreeStateTable_Internal;
    return TreeLog().lastTable;
}

void DeleteTreeStateTable(_TreeStateTable_Internal* table)
{
    TreeLog().Add("DeleteTreeStateTable(" + nameOf(table, "table") + ")");
    delete table;
}

void ClearTreeState(_TreeStateTable_Internal* table)
{
    TreeLog().Add("ClearTreeState(" + nameOf(table, "table") + ")");
    table->states.clear();
}

void CacheLayerTreeState(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    TreeLog().Add("CacheLayerTreeState(" + std::to_string(layerId) + ")");
    if (table != nullptr)
        table->states[layerId] = tree->State();
}

void ApplyLayerTreeState(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    TreeLog().Add("ApplyLayerTreeState(" + std::to_string(layerId) + ")");
    const auto entry = table->states.find(layerId);
    if (entry == table->states.end() || entry->second.empty())
        return;
    tree->Restore(std::exchange(entry->second, {}));
}

bool DidLayerStateChange(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    TreeLog().Add("DidLayerStateChange(" + std::to_string(layerId) + ")");
    const auto entry = table->states.find(layerId);
    return entry != table->states.end() && !entry->second.empty() && entry->second != tree->State();
}
