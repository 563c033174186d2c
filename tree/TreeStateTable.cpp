// The table of per-layer tree states: for each layer one document of how its tree looked when it was last
// cached, with openness, scroll position and selection.

#include "tree/Tree.h"
#include "tree/ValueTreesDemo.h"

#include <map>
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

std::unique_ptr<juce::XmlElement> opennessOf(const juce::TreeViewItem&);

/// Puts the openness of each row below `row` ahead of what `parent` holds, in the order of the rows.
void prependRows(juce::XmlElement& parent, const juce::TreeViewItem& row)
{
    for (int i = row.getNumSubItems(); --i >= 0;)
        parent.prependChildElement(opennessOf(*row.getSubItem(i)).release());
}

std::unique_ptr<juce::XmlElement> opennessOf(const juce::TreeViewItem& row)
{
    auto element = std::make_unique<juce::XmlElement>(row.isOpen() ? openTag : closedTag);
    element->setAttribute(idAttribute, row.getUniqueName());
    prependRows(*element, row);
    return element;
}

/// JUCE's document of how the tree looks, with each row in its place. JUCE leaves closed rows out, and
/// takes every row that is left out for closed; spelled out, a closed row and a row that the document has
/// never seen are two things.
std::unique_ptr<juce::XmlElement> currentState(ValueTreesDemo& tree)
{
    // Of the tree this changes at most what JUCE would with its next message; the document is to say where
    // the view stands then.
    tree.treeView.layOutIfStale();
    auto state = tree.treeView.getOpennessState(true);
    if (state == nullptr)
        return nullptr;
    state->deleteAllChildElementsWithTagName(openTag);
    state->deleteAllChildElementsWithTagName(closedTag);
    prependRows(*state, *tree.treeView.getRootItem());
    return state;
}

/// Adds the present openness of each row below `row` that the document has never seen, so that a restore
/// leaves those rows as they are. Of equal names, the first row takes the first element, as in a restore.
void mentionUnseenRows(juce::XmlElement& parent, const juce::TreeViewItem& row)
{
    std::multimap<juce::String, juce::XmlElement*> elements;
    for (auto* element : parent.getChildIterator())
        if (element->hasTagName(openTag) || element->hasTagName(closedTag))
            elements.emplace(element->getStringAttribute(idAttribute), element);
    for (int i = 0; i < row.getNumSubItems(); ++i)
    {
        const auto& subRow = *row.getSubItem(i);
        const juce::String name = subRow.getUniqueName();
        const auto seen = elements.lower_bound(name);
        if (seen == elements.end() || seen->first != name)
            parent.addChildElement(opennessOf(subRow).release());
        else
        {
            if (seen->second->hasTagName(openTag))
                mentionUnseenRows(*seen->second, subRow);
            elements.erase(seen);
        }
    }
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
        mentionUnseenRows(*state, *root);
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
