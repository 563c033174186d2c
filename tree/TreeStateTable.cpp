// The table of per-layer tree states: for each layer one document of how its tree looked when it was last
// cached, with openness, scroll position and selection.

#include "tree/Tree.h"
#include "tree/ValueTreesDemo.h"

#include <memory>
#include <unordered_map>

struct _TreeStateTable_Internal
{
    /// A value is null when the tree had no root row, and when the state has been used up.
    std::unordered_map<int, std::unique_ptr<juce::XmlElement>> states;
};

namespace
{
constexpr const char* openTag = "OPEN";
constexpr const char* closedTag = "CLOSED";
constexpr const char* idAttribute = "id";
constexpr const char* scrollAttribute = "scrollPos";

/// The first element that speaks of a row of this name and is not taken yet.
juce::XmlElement* takeElementFor(const juce::String& name, std::vector<juce::XmlElement*>& elements)
{
    for (auto*& element : elements)
        if (element != nullptr && element->getStringAttribute(idAttribute) == name)
            return std::exchange(element, nullptr);
    return nullptr;
}

/// Adds the present openness of each row below `row` that the document does not mention. JUCE leaves
/// closed rows out, and takes every row that is left out for closed; spelled out, a closed row and a row
/// that the document has never seen are two things.
void mentionEveryRow(juce::XmlElement& parent, const juce::TreeViewItem& row)
{
    std::vector<juce::XmlElement*> elements;
    for (auto* element : parent.getChildIterator())
        if (element->hasTagName(openTag) || element->hasTagName(closedTag))
            elements.push_back(element);
    for (int i = 0; i < row.getNumSubItems(); ++i)
    {
        const auto& subRow = *row.getSubItem(i);
        const juce::String name = subRow.getUniqueName();
        auto* element = takeElementFor(name, elements);
        if (element == nullptr)
        {
            element = parent.createNewChildElement(subRow.isOpen() ? openTag : closedTag);
            element->setAttribute(idAttribute, name);
        }
        if (element->hasTagName(openTag))
            mentionEveryRow(*element, subRow);
    }
}

std::unique_ptr<juce::XmlElement> currentState(ValueTreesDemo& tree)
{
    tree.treeView.layOutIfStale();
    auto state = tree.treeView.getOpennessState(true);
    if (state != nullptr)
        mentionEveryRow(*state, *tree.treeView.getRootItem());
    return state;
}
} // namespace

_TreeStateTable_Internal* CreateTreeStateTable() { return new _TreeStateTable_Internal; }

void DeleteTreeStateTable(_TreeStateTable_Internal* table) { delete table; }

void ClearTreeState(_TreeStateTable_Internal* table) { table->states.clear(); }

void CacheLayerTreeState(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    if (table != nullptr)
        table->states[layerId] = currentState(*tree);
}

void ApplyLayerTreeState(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    if (table->states.count(layerId) == 0)
        return;
    const std::unique_ptr<juce::XmlElement> state = std::move(table->states.at(layerId));
    if (state == nullptr)
        return;
    CustomTreeView& view = tree->treeView;
    if (const auto* root = view.getRootItem())
        mentionEveryRow(*state, *root);
    view.restoreOpennessState(*state, true);
    // JUCE would scroll with the next message, and the state that is cached right after this would not
    // be the state that the user sees.
    const int x = view.getViewport()->getViewPositionX();
    view.layOutNow({x, state->getIntAttribute(scrollAttribute)});
}

bool DidLayerStateChange(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    const std::unique_ptr<juce::XmlElement> now = currentState(*tree);
    const auto entry = table->states.find(layerId);
    if (entry == table->states.end() || entry->second == nullptr)
        return false;
    return !entry->second->isEquivalentTo(now.get(), false);
}
