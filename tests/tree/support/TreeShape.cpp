#include "tests/tree/support/TreeShape.h"

#include "tree/TreeModel.h"

namespace standin
{
namespace
{
ValueTreeItem& rowBelow(const ValueTreeItem& row, int index)
{
    return dynamic_cast<ValueTreeItem&>(*row.getSubItem(index));
}

std::string shapeOf(const ValueTreeItem& row)
{
    std::string text = NameOf(row) + (row.isSelected() ? "*" : "");
    if (!row.isOpen() && row.getNode().getNumChildren() > 0)
        text += "+";
    if (row.getNumSubItems() == 0)
        return text;
    text += "(";
    for (int i = 0; i < row.getNumSubItems(); ++i)
        text += (i > 0 ? " " : "") + shapeOf(rowBelow(row, i));
    return text + ")";
}

ValueTreeItem* findRow(ValueTreeItem& row, const std::string& name)
{
    if (NameOf(row) == name)
        return &row;
    for (int i = 0; i < row.getNumSubItems(); ++i)
        if (auto* found = findRow(rowBelow(row, i), name))
            return found;
    return nullptr;
}

ValueTreeItem* rootOf(const juce::TreeView& view) { return dynamic_cast<ValueTreeItem*>(view.getRootItem()); }
} // namespace

std::string NameOf(const ValueTreeItem& row) { return row.getNode()[TreeIds::name].toString().toStdString(); }

std::string ShapeOf(const juce::TreeView& view)
{
    return rootOf(view) == nullptr ? "" : shapeOf(*rootOf(view));
}

ValueTreeItem* FindRow(const juce::TreeView& view, const std::string& name)
{
    return rootOf(view) == nullptr ? nullptr : findRow(*rootOf(view), name);
}
} // namespace standin
