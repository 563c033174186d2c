#include "tree/ValueTreeItem.h"

#include "tree/CustomTreeView.h"
#include "tree/NameText.h"
#include "tree/TreeModel.h"

#include <JuceText.h>

namespace
{
// JUCE finds no place in its state document for a row without a name. This noncharacter stands in for the
// empty name. An object that really has this name shares its place there, as objects of one name do.
constexpr juce::juce_wchar emptyNameMark = 0xfdd0;

juce::String nodeName(const juce::ValueTree& node) { return node[TreeIds::name].toString(); }

bool isSelectedNode(const juce::ValueTree& node) { return static_cast<int>(node[TreeIds::select]) != 0; }
} // namespace

ValueTreeItem::ValueTreeItem(const juce::ValueTree& node, bool isRowSelected)
    : rowTree(node),
      rowSelected(isRowSelected),
      textColour(juce::Colour::greyLevel(0.8f)),
      checkColour(juce::Colour::greyLevel(0.8f)),
      rowEnabled(true)
{
    rowTree.addListener(this);
    setOpen(true);
    if (isSelectedNode(rowTree))
        setSelected(true, false, juce::sendNotification);
    checkBounds = {2, 6, 8, 8};
    if (rowTree.hasType(TreeIds::Layer))
        checkBounds = {};
}

ValueTreeItem::~ValueTreeItem() = default;

bool ValueTreeItem::mightContainSubItems() { return rowTree.getNumChildren() > 0; }

juce::String ValueTreeItem::getUniqueName() const
{
    const juce::String name = nodeName(rowTree);
    return name.isNotEmpty() ? name : juce::String::charToString(emptyNameMark);
}

void ValueTreeItem::itemOpennessChanged(bool isNowOpen)
{
    noteStateChange();
    // JUCE opens a row a second time when it goes below another. Without this test each level of a tree
    // would be built twice as often as the one above it.
    if (isNowOpen && !hasRowOfEachChild())
        refreshSubItems();
    else if (!isNowOpen)
        clearSubItems();
}

bool ValueTreeItem::hasRowOfEachChild() const
{
    if (getNumSubItems() != rowTree.getNumChildren())
        return false;
    for (int i = 0; i < getNumSubItems(); ++i)
        if (dynamic_cast<ValueTreeItem*>(getSubItem(i))->rowTree != rowTree.getChild(i))
            return false;
    return true;
}

void ValueTreeItem::refreshSubItems()
{
    clearSubItems();
    for (int i = 0; i < rowTree.getNumChildren(); ++i)
    {
        const juce::ValueTree child = rowTree.getChild(i);
        addSubItem(new ValueTreeItem(child, isSelectedNode(child)));
    }
}

void ValueTreeItem::itemSelectionChanged(bool isNowSelected)
{
    noteStateChange();
    rowSelected = isNowSelected;
    textColour = isNowSelected ? juce::Colours::black : juce::Colour::greyLevel(0.8f);
    rowTree.setProperty(TreeIds::select, isNowSelected ? 1 : 0, nullptr);
}

void ValueTreeItem::paintItem(juce::Graphics& g, int width, int height)
{
    const juce::String text =
        ShownText(TextFromBytes(GetItemDisplayString(BytesFromText(nodeName(rowTree)))));
    g.setFont(15.0f);
    const int textX = checkBounds.getWidth() + 8;
    if (isSelected())
    {
        // The highlight covers the text and not the whole row.
        const int textWidth = TextWidth(g.getCurrentFont(), text) + 2 * textX;
        g.setColour(juce::Colour::greyLevel(0.6f));
        g.fillRect(0, 0, juce::jmin(textWidth, width), height);
    }
    g.setColour(textColour);
    g.drawText(text, textX, 0, juce::jmax(0, width - textX), height, juce::Justification::centredLeft, true);
    paintCheckBox(g);
}

void ValueTreeItem::paintCheckBox(juce::Graphics& g) const
{
    g.setColour(checkColour);
    g.drawRect(checkBounds, 1);
    juce::Rectangle<int> fill(checkBounds.getX() + 2, checkBounds.getY() + 2,
                              juce::jmax(0, checkBounds.getWidth() - 4),
                              juce::jmax(0, checkBounds.getHeight() - 4));
    if (rowTree.hasType(TreeIds::Group))
    {
        int total = 0;
        int active = 0;
        getGroupActiveItems(rowTree, total, active);
        if (total == 0 || active == 0)
            return;
        g.fillRect(active == total ? fill : fill.withWidth(fill.getWidth() / 2));
    }
    else if (static_cast<int>(rowTree.getProperty(TreeIds::active, 0)) != 0)
        g.fillRect(fill);
}

void ValueTreeItem::itemClicked(const juce::MouseEvent& event)
{
    // Both positions are the scrolled content's, so the difference is the row's own.
    const juce::Point<int> position = event.getMouseDownPosition() - getItemPosition(false).getPosition();
    if (!checkBounds.contains(position) || !isSelected())
        return;
    if (rowTree.hasType(TreeIds::Group))
    {
        int total = 0;
        int active = 0;
        getGroupActiveItems(rowTree, total, active);
        flipGroupItems(rowTree, active == 0);
    }
    else
    {
        rowEnabled = !rowEnabled;
        // Kept: the box of an outside effect toggles too; its node is in no item list.
        const int active = rowTree.getProperty(TreeIds::active, 0);
        rowTree.setProperty(TreeIds::active, active != 0 ? 0 : 1, nullptr);
    }
    repaintItem();
}

void ValueTreeItem::getGroupActiveItems(const juce::ValueTree& node, int& total, int& active)
{
    total = 0;
    active = 0;
    if (!node.hasType(TreeIds::Group))
        return;
    for (const auto& child : node)
    {
        if (!child.hasType(TreeIds::Object))
            continue;
        ++total;
        if (static_cast<bool>(child.getProperty(TreeIds::active, 0)))
            ++active;
    }
}

void ValueTreeItem::flipGroupItems(const juce::ValueTree& node, bool shouldBeActive)
{
    if (!node.hasType(TreeIds::Group))
        return;
    for (juce::ValueTree child : node)
        if (child.hasType(TreeIds::Object))
            child.setProperty(TreeIds::active, shouldBeActive ? 1 : 0, nullptr);
}

// Nothing registers a row on an editor: a rename goes through the tree view.
void ValueTreeItem::textEditorReturnKeyPressed(juce::TextEditor& editor)
{
    editor.removeListener(this);
    editor.setVisible(false);
    rowTree.setProperty(TreeIds::name, editor.getText(), nullptr);
}

void ValueTreeItem::textEditorFocusLost(juce::TextEditor& editor) { textEditorReturnKeyPressed(editor); }

void ValueTreeItem::valueTreePropertyChanged(juce::ValueTree&, const juce::Identifier& property)
{
    if (property == TreeIds::name)
        noteStateChange();
    repaintItem();
}

void ValueTreeItem::valueTreeChildAdded(juce::ValueTree& parent, juce::ValueTree&)
{
    childrenChanged(parent);
}

void ValueTreeItem::valueTreeChildRemoved(juce::ValueTree& parent, juce::ValueTree&, int)
{
    childrenChanged(parent);
}

void ValueTreeItem::valueTreeChildOrderChanged(juce::ValueTree& parent, int, int) { childrenChanged(parent); }

void ValueTreeItem::valueTreeParentChanged(juce::ValueTree&) {}

void ValueTreeItem::childrenChanged(const juce::ValueTree& parent)
{
    // What happens further below is the business of the row down there.
    if (parent != rowTree)
        return;
    noteStateChange();
    refreshSubItems();
    treeHasChanged();
    setOpen(true);
}

void ValueTreeItem::noteStateChange() const
{
    if (auto* view = dynamic_cast<CustomTreeView*>(getOwnerView()))
        view->noteStateChange();
}
