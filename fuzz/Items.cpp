// Item lists through the tree: built, edited as a user edits and read back. Before each edit the document is
// copied into a model, the edit is worked out there, and the document has to come out the same.

#include "fuzz/Input.h"
#include "fuzz/ItemsModel.h"
#include "tests/tree/support/Pump.h"
#include "tree/NameText.h"
#include "tree/Tree.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"
#include "tree/ValueTreesDemo.h"

#include <cstdlib>
#include <map>

namespace standin
{
namespace
{
using Kind = ModelNode::Kind;

constexpr std::size_t longestName = 24;
constexpr int mostItems = 24;
constexpr int mostEdits = 24;
constexpr int layerId = 1;

bool areEqual(const std::vector<ObjectItem>& one, const std::vector<ObjectItem>& other)
{
    return one.size() == other.size() && std::equal(one.begin(), one.end(), other.begin(),
                                                    [](const ObjectItem& a, const ObjectItem& b) {
                                                        return a.uuid == b.uuid && a.name == b.name &&
                                                               a.group == b.group && a.active == b.active;
                                                    });
}

/// Mostly one of a few, so that equal ones meet, and outside effects are among them.
std::string uuidFrom(Input& input)
{
    const int choice = input.Below(32);
    if (choice == 31)
        return input.Text(40);
    VN_UUID uuid = ZeroUUID();
    uuid.bytes[15] = static_cast<std::uint8_t>(choice);
    return GetUUIDStr(uuid).text;
}

std::vector<ObjectItem> itemsFrom(Input& input)
{
    std::vector<ObjectItem> items(static_cast<std::size_t>(input.Below(mostItems + 1)));
    for (ObjectItem& item : items)
    {
        item.uuid = uuidFrom(input);
        item.name = input.Text(longestName);
        const int choice = input.Below(16);
        item.group = choice < 13 ? choice - 1 : input.Short();
        item.active = input.Below(2);
    }
    return items;
}

Kind kindOf(const juce::ValueTree& node)
{
    if (node.hasType(TreeIds::Layer))
        return Kind::layer;
    if (node.hasType(TreeIds::Group))
        return Kind::group;
    return node.hasType(TreeIds::Object) ? Kind::object : Kind::external;
}

/// The widget and what is done with it. It lives from one input to the next, empty between them.
class Bench
{
public:
    Bench()
    {
        // Without a display, JUCE tries the machine's first one, which may be another user's.
        (void)setenv("DISPLAY", "none", 1);
        JuceGlobalInit();
        tree = CreateTreeWidget(false);
        table = CreateTreeStateTable();
    }
    ~Bench()
    {
        DeleteTreeStateTable(table);
        DeleteTreeWidget(tree);
        JuceGlobalShutDown();
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    void Run(Input& input)
    {
        build(itemsFrom(input));
        for (int i = 0; i < mostEdits && !input.IsUsedUp(); ++i)
            edit(input);
        ClearTree(tree);
        ClearTreeState(table);
        (void)GetEffectsToBeRemoved(tree);
        Require(GetItemsFromTree(tree).empty(), "a cleared tree has no objects");
        pump();
    }

private:
    void build(const std::vector<ObjectItem>& items)
    {
        RefreshTree(tree, items);
        Require((root() == nullptr) == items.empty(), "an empty list leaves no row");
        if (root() != nullptr)
            expect(BuildModel(items), "the document is made of the items");
    }

    void edit(Input& input)
    {
        const int choice = input.Below(12);
        if (root() == nullptr)
            return;
        switch (choice)
        {
        case 0:
        case 1:
        case 2:
            return select(input);
        case 3:
            return tree->treeView.selectAllItems(root());
        case 4:
            return openOrClose(input);
        case 5:
            return deleteRows();
        case 6:
        case 7:
            return drop(input);
        case 8:
            return addGroup();
        case 9:
            return rename(input);
        case 10:
            return switchNode(input);
        default:
            return rebuild(input);
        }
    }

    void select(Input& input)
    {
        const std::vector<ValueTreeItem*> all = rows();
        const bool isAdded = input.Below(2) == 1;
        ValueTreeItem* row = all[static_cast<std::size_t>(input.Below(static_cast<int>(all.size())))];
        row->setSelected(!isAdded || !row->isSelected(), !isAdded);
        checkRows();
    }

    void openOrClose(Input& input)
    {
        ValueTreeItem* row = anyRow(input);
        row->setOpen(!row->isOpen());
        checkRows();
    }

    void deleteRows()
    {
        ModelNode model = copyOfDocument();
        const std::vector<int> chosen = selectedIds();
        (void)GetEffectsToBeRemoved(tree);
        tree->treeView.deleteSelectedItems();
        Require(GetEffectsToBeRemoved(tree) == DeleteNodes(model, chosen),
                "deleted objects are told once, from below");
        expect(model, "what is deleted is gone, and nothing else");
    }

    void drop(Input& input)
    {
        ValueTreeItem* target = anyRow(input);
        ValueTreeItem* dragged = anyRow(input);
        const int place = input.Below(mostItems + 2) - 1;
        const juce::DragAndDropTarget::SourceDetails details(dragged->getDragSourceDescription(),
                                                             &tree->treeView, {});
        if (!target->isInterestedInDragSource(details))
            return;
        ModelNode model = copyOfDocument();
        MoveNodes(model, selectedIds(), ids.at(keyOf(target->getNode())), place);
        target->itemDropped(details, place);
        expect(model, "what is dropped stands in its place, in its order");
    }

    void addGroup()
    {
        ModelNode model = copyOfDocument();
        AddGroup(model);
        tree->AddNewGroup(root());
        expect(model, "a new group comes after the others");
    }

    void rename(Input& input)
    {
        std::string name = input.Text(longestName);
        ModelNode model = copyOfDocument();
        juce::OwnedArray<juce::ValueTree> selected;
        ValueTreeItem::getSelectedTreeViewItems(tree->treeView, selected);
        tree->treeView.renameEditor->onRename = nullptr;
        tree->treeView.renameItem();
        const auto& finish = tree->treeView.renameEditor->onRename;
        if (finish != nullptr)
        {
            Require(selected.size() == 1 && kindOf(*selected[0]) == Kind::object,
                    "one object is renamed at a time");
            // A name that stays as the editor shows it leaves the old one.
            const juce::String old = selected[0]->getProperty(TreeIds::name, "").toString();
            if (name == BytesFromText(EditableText(old)))
                name = BytesFromText(old);
            RenameFirst(model, nodeUuid(*selected[0]), name);
            finish(name);
        }
        tree->treeView.renameEditor->setVisible(false);
        expect(model, "a rename changes one name");
    }

    void switchNode(Input& input)
    {
        juce::ValueTree node = anyRow(input)->getNode();
        if (kindOf(node) == Kind::group)
            ValueTreeItem::flipGroupItems(node, input.Below(2) == 1);
        else if (kindOf(node) == Kind::object)
            node.setProperty(TreeIds::active, input.Below(2), nullptr);
        checkRows();
    }

    /// As the idle pass does when the layer has changed.
    void rebuild(Input& input)
    {
        CacheLayerTreeState(table, layerId, tree);
        Require(!DidLayerStateChange(table, layerId, tree), "a state that was just stored has not changed");
        std::vector<ObjectItem> items = GetItemsFromTree(tree);
        if (input.Below(2) == 1)
            for (ObjectItem& item : itemsFrom(input))
                items.push_back(std::move(item));
        build(items);
        ApplyLayerTreeState(table, layerId, tree);
        if (root() != nullptr)
            expect(BuildModel(items), "restoring the view changes no object");
    }

    ValueTreeItem* root() const { return dynamic_cast<ValueTreeItem*>(tree->treeView.getRootItem()); }

    static void appendRows(ValueTreeItem* row, std::vector<ValueTreeItem*>& out)
    {
        out.push_back(row);
        for (int i = 0; i < row->getNumSubItems(); ++i)
            appendRows(dynamic_cast<ValueTreeItem*>(row->getSubItem(i)), out);
    }

    std::vector<ValueTreeItem*> rows() const
    {
        std::vector<ValueTreeItem*> all;
        appendRows(root(), all);
        return all;
    }

    ValueTreeItem* anyRow(Input& input) const
    {
        const std::vector<ValueTreeItem*> all = rows();
        return all[static_cast<std::size_t>(input.Below(static_cast<int>(all.size())))];
    }

    /// What a node is known by while it stands in the document.
    static std::vector<int> keyOf(const juce::ValueTree& node)
    {
        std::vector<int> key;
        for (juce::ValueTree at = node; at.getParent().isValid(); at = at.getParent())
            key.insert(key.begin(), at.getParent().indexOf(at));
        return key;
    }

    ModelNode copyOf(const juce::ValueTree& node)
    {
        ModelNode copy;
        copy.kind = kindOf(node);
        copy.id = static_cast<int>(ids.size()) + 1;
        ids[keyOf(node)] = copy.id;
        copy.name = BytesFromText(node.getProperty(TreeIds::name, "").toString());
        if (copy.kind != Kind::layer && copy.kind != Kind::group)
            copy.uuid = nodeUuid(node);
        copy.group = node.getProperty(TreeIds::group, -1);
        if (copy.kind == Kind::object)
            copy.active = node.getProperty(TreeIds::active, 0);
        for (const juce::ValueTree& child : node)
            copy.children.push_back(copyOf(child));
        return copy;
    }

    ModelNode copyOfDocument()
    {
        ids.clear();
        ModelNode copy = copyOf(root()->getNode());
        copyOpenness(*root(), copy);
        return copy;
    }

    static void copyOpenness(const ValueTreeItem& row, ModelNode& copy)
    {
        copy.isOpen = row.isOpen();
        for (int i = 0; i < row.getNumSubItems(); ++i)
            copyOpenness(*dynamic_cast<ValueTreeItem*>(row.getSubItem(i)),
                         copy.children[static_cast<std::size_t>(i)]);
    }

    /// From the top. Ids are those of the last copy.
    std::vector<int> selectedIds()
    {
        juce::OwnedArray<juce::ValueTree> selected;
        ValueTreeItem::getSelectedTreeViewItems(tree->treeView, selected);
        std::vector<int> result;
        for (const juce::ValueTree* node : selected)
            result.push_back(ids.at(keyOf(*node)));
        return result;
    }

    void expect(const ModelNode& model, const char* sentence)
    {
        Require(copyOfDocument() == model, sentence);
        Require(areEqual(GetItemsFromTree(tree), ObjectsOf(model)), "the objects read back as they stand");
        checkRows();
    }

    /// Each open row has one row for each child, and a row is selected as its node says.
    void checkRows()
    {
        std::vector<ObjectItem> selected;
        for (const ValueTreeItem* row : rows())
        {
            const juce::ValueTree& node = row->getNode();
            Require(row->isSelected() == static_cast<bool>(node.getProperty(TreeIds::select, 0)),
                    "a row is selected as its node says");
            if (row->isSelected())
                getTreeItems(node, selected);
            if (row->isOpen())
                Require(row->getNumSubItems() == node.getNumChildren(), "an open row shows its children");
            for (int i = 0; i < row->getNumSubItems(); ++i)
                Require(dynamic_cast<ValueTreeItem*>(row->getSubItem(i))->getNode() == node.getChild(i),
                        "rows stand in the order of their nodes");
        }
        Require(areEqual(GetSelectedTreeItems(tree), selected),
                "the selected rows' objects are the selection");
    }

    ValueTreesDemo* tree = nullptr;
    _TreeStateTable_Internal* table = nullptr;
    std::map<std::vector<int>, int> ids; ///< Of the last copy, by the places from the root down.
};
} // namespace
} // namespace standin

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static standin::Bench bench;
    standin::Input input(data, size);
    bench.Run(input);
    return 0;
}
