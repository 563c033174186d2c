// The table of per-layer tree states: for each layer one document of how its tree looked when it was last
// cached, with openness, scroll position and selection.

#include "tree/Tree.h"
#include "tree/ValueTreesDemo.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <vector>

namespace
{
// JUCE's words, which its TreeView::getOpennessState writes and restoreOpennessState reads.
const juce::Identifier openTag("OPEN");
const juce::Identifier closedTag("CLOSED");
const juce::Identifier selectedTag("SELECTED");
const juce::Identifier idAttribute("id");
const juce::Identifier scrollAttribute("scrollPos");

/// Knows whether a tree still looks as it did at some time.
class Look
{
public:
    Look() = default;
    explicit Look(ValueTreesDemo& widget)
        : tree(&widget),
          root(widget.treeView.getRootItem()),
          changes(widget.treeView.getStateChanges()),
          scrolledTo(widget.treeView.getViewport()->getViewPositionY())
    {
    }

    bool isThatOf(ValueTreesDemo& widget) const
    {
        const Look now(widget);
        return tree == now.tree && root == now.root && changes == now.changes && scrolledTo == now.scrolledTo;
    }

private:
    juce::Component::SafePointer<juce::Component> tree; ///< Another one may come to stand at its place.
    const juce::TreeViewItem* root = nullptr;
    std::uint64_t changes = 0;
    int scrolledTo = 0;
};

struct LayerState
{
    /// Null when the tree had no root row, and when the state has been used up.
    std::unique_ptr<juce::XmlElement> document;
    Look look; ///< Of a tree that the document is known to describe.
};
} // namespace

struct _TreeStateTable_Internal
{
    std::unordered_map<int, LayerState> states;
};

namespace
{
/// The row with its openness, and in it all rows below.
std::unique_ptr<juce::XmlElement> opennessOf(const juce::TreeViewItem& row)
{
    auto element = std::make_unique<juce::XmlElement>(row.isOpen() ? openTag : closedTag);
    element->setAttribute(idAttribute, row.getUniqueName());
    for (int i = row.getNumSubItems(); --i >= 0;)
        element->prependChildElement(opennessOf(*row.getSubItem(i)).release());
    return element;
}

/// From the bottom of the tree up, since an element is put quickly at the front alone.
void prependSelected(juce::XmlElement& parent, const juce::TreeViewItem& row)
{
    for (int i = row.getNumSubItems(); --i >= 0;)
        prependSelected(parent, *row.getSubItem(i));
    if (!row.isSelected())
        return;
    auto element = std::make_unique<juce::XmlElement>(selectedTag);
    element->setAttribute(idAttribute, row.getItemIdentifierString());
    parent.prependChildElement(element.release());
}

/// The document that TreeView::getOpennessState makes, but with each row in it. JUCE leaves closed rows out,
/// and takes every row that is left out for closed; spelled out, a closed row and a row that the document has
/// never seen are two things.
std::unique_ptr<juce::XmlElement> currentState(ValueTreesDemo& tree)
{
    // Of the tree this changes at most what JUCE would with its next message; the document is to say where
    // the view stands then.
    tree.treeView.layOutIfStale();
    const auto* root = tree.treeView.getRootItem();
    if (root == nullptr)
        return nullptr;
    auto state = std::make_unique<juce::XmlElement>(root->isOpen() ? openTag : closedTag);
    state->setAttribute(idAttribute, root->getUniqueName());
    state->setAttribute(scrollAttribute, tree.treeView.getViewport()->getViewPositionY());
    prependSelected(*state, *root);
    for (int i = root->getNumSubItems(); --i >= 0;)
        state->prependChildElement(opennessOf(*root->getSubItem(i)).release());
    return state;
}

void restoreOpenness(const juce::XmlElement&, juce::TreeViewItem&);

bool isRow(const juce::XmlElement& element)
{
    return element.hasTagName(openTag) || element.hasTagName(closedTag);
}

/// What is left of rows and elements once those that stand at one place under one name have found each other.
struct Unmatched
{
    std::vector<juce::TreeViewItem*> rows;
    std::vector<const juce::XmlElement*> elements;
    std::vector<juce::String> names; ///< Of both. Their rows and elements may be shifted from here on.

    /// With many of them there is no use in looking.
    bool isTouched(const juce::String& name) const
    {
        constexpr std::size_t most = 8;
        return names.size() > most || std::find(names.begin(), names.end(), name) != names.end();
    }
};

Unmatched matchInPlace(const juce::XmlElement& parent, juce::TreeViewItem& row)
{
    Unmatched left;
    const auto* next = parent.getFirstChildElement();
    for (int i = 0; i < row.getNumSubItems() || next != nullptr; ++i)
    {
        auto* subRow = row.getSubItem(i);
        const auto* element = next != nullptr && isRow(*next) ? next : nullptr;
        next = next != nullptr ? next->getNextElement() : nullptr;
        const juce::String name = subRow != nullptr ? subRow->getUniqueName() : juce::String();
        if (subRow != nullptr && element != nullptr && element->getStringAttribute(idAttribute) == name &&
            !left.isTouched(name))
        {
            restoreOpenness(*element, *subRow);
            continue;
        }
        if (subRow != nullptr)
        {
            left.rows.push_back(subRow);
            left.names.push_back(name);
        }
        if (element != nullptr)
        {
            left.elements.push_back(element);
            left.names.push_back(element->getStringAttribute(idAttribute));
        }
    }
    return left;
}

/// Each row takes the first element of its name that is left; a row that the document has never seen stays
/// as it is.
void restoreSubRows(const juce::XmlElement& parent, juce::TreeViewItem& row)
{
    const Unmatched left = matchInPlace(parent, row);
    std::unordered_map<juce::String, std::vector<const juce::XmlElement*>> waiting; // The first one last.
    for (auto element = left.elements.rbegin(); element != left.elements.rend(); ++element)
        waiting[(*element)->getStringAttribute(idAttribute)].push_back(*element);
    for (auto* subRow : left.rows)
    {
        const auto seen = waiting.find(subRow->getUniqueName());
        if (seen == waiting.end() || seen->second.empty())
            continue;
        restoreOpenness(*seen->second.back(), *subRow);
        seen->second.pop_back();
    }
}

void restoreOpenness(const juce::XmlElement& element, juce::TreeViewItem& row)
{
    row.setOpen(element.hasTagName(openTag));
    if (row.isOpen())
        restoreSubRows(element, row);
}

/// By JUCE's path, the first row that has it.
using RowsByPath = std::unordered_map<juce::String, juce::TreeViewItem*>;

enum class Rows
{
    all,
    someAreHidden ///< Below a closed row there are none.
};

Rows addRows(RowsByPath& rows, juce::TreeViewItem& row)
{
    rows.emplace(row.getItemIdentifierString(), &row);
    bool areAll = row.isOpen();
    for (int i = 0; i < row.getNumSubItems(); ++i)
        areAll = addRows(rows, *row.getSubItem(i)) == Rows::all && areAll;
    return areAll ? Rows::all : Rows::someAreHidden;
}

/// As JUCE does it, which looks through the whole tree for every path. It opens closed rows to look behind
/// them, so where there are some, the search is left to it.
void restoreSelection(const juce::XmlElement& state, juce::TreeView& view)
{
    view.clearSelectedItems();
    if (state.getChildByName(selectedTag) == nullptr)
        return;
    RowsByPath rows;
    const Rows added = addRows(rows, *view.getRootItem());
    for (const auto* element : state.getChildWithTagNameIterator(selectedTag))
    {
        const juce::String path = element->getStringAttribute(idAttribute);
        const auto known = rows.find(path);
        auto* row = added == Rows::someAreHidden ? view.findItemFromIdentifierString(path)
                    : known != rows.end()        ? known->second
                                                 : nullptr;
        if (row != nullptr)
            row->setSelected(true, false);
    }
}
} // namespace

_TreeStateTable_Internal* CreateTreeStateTable() { return new _TreeStateTable_Internal; }

void DeleteTreeStateTable(_TreeStateTable_Internal* table) { delete table; }

void ClearTreeState(_TreeStateTable_Internal* table) { table->states.clear(); }

void CacheLayerTreeState(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    if (table == nullptr)
        return;
    LayerState& state = table->states[layerId];
    if (state.document != nullptr && state.look.isThatOf(*tree))
        return;
    state.document = currentState(*tree);
    state.look = Look(*tree);
}

void ApplyLayerTreeState(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    if (table->states.count(layerId) == 0)
        return;
    const std::unique_ptr<juce::XmlElement> state = std::move(table->states.at(layerId).document);
    CustomTreeView& view = tree->treeView;
    if (state == nullptr || view.getRootItem() == nullptr)
        return;
    const std::uint64_t changesBefore = view.getStateChanges();
    restoreOpenness(*state, *view.getRootItem());
    const bool isLaidOut = view.getStateChanges() == changesBefore;
    restoreSelection(*state, view);
    // JUCE would scroll with the next message, and the state that is cached right after this would not
    // be the state that the user sees.
    const juce::Point<int> position(view.getViewport()->getViewPositionX(),
                                    state->getIntAttribute(scrollAttribute));
    if (isLaidOut)
        view.scrollNow(position);
    else
        view.layOutNow(position);
}

bool DidLayerStateChange(_TreeStateTable_Internal* table, int layerId, ValueTreesDemo* tree)
{
    const auto entry = table->states.find(layerId);
    if (entry == table->states.end() || entry->second.document == nullptr)
        return false;
    LayerState& state = entry->second;
    if (state.look.isThatOf(*tree))
        return false;
    const std::unique_ptr<juce::XmlElement> now = currentState(*tree);
    if (!state.document->isEquivalentTo(now.get(), false))
        return true;
    state.look = Look(*tree);
    return false;
}
