// How each layer's tree looked, which is stored and brought back by the names of the rows.

#include "standin/check/StackModel.h"

#include <algorithm>

namespace standin::check
{
bool StackModel::View::Row::operator==(const Row& other) const
{
    return name == other.name && isOpen == other.isOpen && rows == other.rows;
}

std::string StackModel::pathPart(const ModelRow& row)
{
    std::string name = row.Name();
    std::replace(name.begin(), name.end(), '/', '\\');
    return "/" + name;
}

StackModel::View::Row StackModel::viewOf(const ModelRow& row)
{
    View::Row view{row.Name(), row.isOpen, {}};
    if (row.isOpen)
        for (const ModelRow& each : row.rows)
            view.rows.push_back(viewOf(each));
    return view;
}

void StackModel::addSelectedPaths(const ModelRow& row, const std::string& above,
                                  std::vector<std::string>& paths) const
{
    const std::string path = above + pathPart(row);
    if (row.isSelected)
        paths.push_back(path);
    if (row.isOpen)
        for (const ModelRow& each : row.rows)
            addSelectedPaths(each, path, paths);
}

std::optional<StackModel::View> StackModel::viewNow() const
{
    if (!root)
        return {};
    View view{viewOf(*root), {}};
    addSelectedPaths(*root, "", view.selected);
    return view;
}

/// Each row takes the first of its name that is left; a row that the view does not know stays open.
void StackModel::restoreOpenness(const View::Row& view, ModelRow& row)
{
    row.SetOpen(view.isOpen);
    if (!row.isOpen)
        return;
    std::vector<const View::Row*> left;
    for (const View::Row& each : view.rows)
        left.push_back(&each);
    for (ModelRow& each : row.rows)
    {
        const auto found = std::find_if(left.begin(), left.end(),
                                        [&](const View::Row* known) { return known->name == each.Name(); });
        if (found == left.end())
            continue;
        restoreOpenness(**found, each);
        left.erase(found);
    }
}

/// The first row of this path. A closed row is opened to look behind it, and stays open if it is there.
ModelRow* StackModel::findPath(ModelRow& row, const std::string& path)
{
    const std::string part = pathPart(row);
    if (part == path)
        return &row;
    if (path.rfind(part + "/", 0) != 0)
        return nullptr;
    const bool wasOpen = row.isOpen;
    row.SetOpen(true);
    for (ModelRow& each : row.rows)
        if (ModelRow* found = findPath(each, path.substr(part.size())))
            return found;
    row.SetOpen(wasOpen);
    return nullptr;
}

/// A view is used up by it.
void StackModel::restoreView()
{
    const auto entry = views.find(active + 1);
    if (entry == views.end() || !entry->second)
        return;
    const View view = *entry->second;
    entry->second.reset();
    if (!root)
        return;
    restoreOpenness(view.root, *root);
    ClickBeside();
    for (const std::string& path : view.selected)
        if (ModelRow* row = findPath(*root, path))
            row->isSelected = true;
}

bool StackModel::isViewChanged() const
{
    const auto entry = views.find(active + 1);
    return active >= 0 && entry != views.end() && entry->second && !(entry->second == viewNow());
}
} // namespace standin::check
