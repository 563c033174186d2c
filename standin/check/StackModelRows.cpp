// What a user does in the rows of the panel. The layer learns of it in an idle pass.

#include "standin/check/StackModel.h"

#include <algorithm>
#include <utility>

namespace standin::check
{
namespace
{
constexpr int highestGroup = 10;
} // namespace

std::vector<const ModelRow*> StackModel::ShownRows() const
{
    std::vector<const ModelRow*> shown;
    if (root)
        root->ForEachShown([&](const ModelRow& row, int) { shown.push_back(&row); });
    return shown;
}

std::vector<const ModelRow*> StackModel::AllRows() const
{
    std::vector<const ModelRow*> all;
    if (root)
        root->ForEach([&](const ModelRow& row, int) { all.push_back(&row); });
    return all;
}

std::vector<ModelRow*> StackModel::shownRows()
{
    std::vector<ModelRow*> shown;
    for (const ModelRow* row : ShownRows())
        shown.push_back(const_cast<ModelRow*>(row));
    return shown;
}

const ModelRow* StackModel::FindRow(int id) const { return root ? root->Find(id) : nullptr; }

bool StackModel::IsShown(int id) const
{
    const std::vector<const ModelRow*> shown = ShownRows();
    return std::any_of(shown.begin(), shown.end(), [id](const ModelRow* row) { return row->id == id; });
}

std::vector<int> StackModel::selectedRows() const
{
    std::vector<int> selected;
    for (const ModelRow* row : ShownRows())
        if (row->isSelected)
            selected.push_back(row->id);
    return selected;
}

// The selection.

/// From the row to the far end of what is selected.
std::vector<int> StackModel::rangeTo(int id) const
{
    std::vector<int> ids;
    for (const ModelRow* row : ShownRows())
        ids.push_back(row->id);
    const std::vector<int> selected = selectedRows();
    const auto place = [&](int of) { return std::find(ids.begin(), ids.end(), of); };
    const auto clicked = place(id);
    const auto other = clicked < place(selected.back()) ? place(selected.front()) : place(selected.back());
    return {std::min(clicked, other), std::max(clicked, other) + 1};
}

void StackModel::selectAlone(int id)
{
    ClickBeside();
    root->Find(id)->isSelected = true;
}

void StackModel::selectBy(Selecting selecting, const std::vector<int>& range, int id)
{
    switch (selecting)
    {
    case Selecting::alone:
        return selectAlone(id);
    case Selecting::toggled:
        root->Find(id)->isSelected = !root->Find(id)->isSelected;
        return;
    case Selecting::range:
        for (const int each : range)
            root->Find(each)->isSelected = true;
        return;
    }
}

void StackModel::ClickRow(int id, Selecting selecting)
{
    Press(id, Part::text, selecting);
    LetGo();
}

void StackModel::ClickBeside()
{
    for (ModelRow* row : shownRows())
        row->isSelected = false;
}

void StackModel::PressSelectAll()
{
    printed.insert(printed.end(), {"Key Pressed", "Select All Button"});
    for (ModelRow* row : shownRows())
        if (row->kind != ModelRow::Kind::layer)
            row->isSelected = true;
}

void StackModel::ClickTriangle(int id)
{
    ModelRow& row = *root->Find(id);
    row.SetOpen(!row.isOpen);
}

void StackModel::DoubleClickRow(int id)
{
    ClickRow(id, Selecting::alone);
    if (!root->Find(id)->rows.empty())
        ClickTriangle(id);
}

// Changes of the rows.

void StackModel::RenameRow(int id, const std::string& name)
{
    ClickRow(id, Selecting::alone);
    printed.insert(printed.end(), {"Key Pressed", "Return Key Pressed", "Edit Button"});
    root->Find(id)->effect.name = name;
}

/// A group has no switch of its own: its box acts on the objects right below it.
void StackModel::flipBox(int id)
{
    ModelRow& row = *root->Find(id);
    if (!row.IsGroup())
    {
        Power& power = row.effect.power;
        power = power == Power::on ? Power::off : Power::on;
        return;
    }
    const bool someAreOn =
        std::any_of(row.rows.begin(), row.rows.end(),
                    [](const ModelRow& each) { return each.IsObject() && each.effect.power == Power::on; });
    for (ModelRow& each : row.rows)
        if (each.IsObject())
            each.effect.power = someAreOn ? Power::off : Power::on;
}

void StackModel::ClickBox(int id)
{
    Press(id, Part::box, Selecting::alone);
    LetGo();
}

void StackModel::takeOut(int id)
{
    ModelRow& parent = *root->FindParentOf(id);
    parent.rows.erase(parent.rows.begin() + static_cast<std::ptrdiff_t>(parent.IndexOf(id)));
    parent.Remake();
}

void StackModel::DeleteRow(int id)
{
    ClickRow(id, Selecting::alone);
    PressDelete();
}

/// A group goes with all that is below it; the layer's row stays, and of an outside effect the row alone
/// goes.
void StackModel::PressDelete()
{
    printed.emplace_back("Key Pressed");
    const std::vector<int> selected = selectedRows();
    for (auto id = selected.rbegin(); id != selected.rend(); ++id)
    {
        if (*id == 0)
            continue;
        const ModelRow row = *root->Find(*id);
        takeOut(*id);
        row.ForEach(
            [&](const ModelRow& each, int)
            {
                if (each.IsObject())
                    toBeDeleted.push_back(each.id);
            });
    }
}

/// The next number is one above the highest; only when that is taken, the lowest free one.
void StackModel::AddEmptyGroup()
{
    printed.emplace_back("button clicked");
    if (!root)
        return;
    std::set<int> taken;
    std::size_t place = 0;
    for (std::size_t i = 0; i < root->rows.size(); ++i)
    {
        if (!root->rows[i].IsGroup() || root->rows[i].number < 0)
            continue;
        taken.insert(root->rows[i].number);
        place = i + 1;
    }
    int number = taken.empty() ? 1 : *taken.rbegin() + 1;
    for (int lowest = 1; number > highestGroup && lowest <= highestGroup; ++lowest)
        if (taken.count(lowest) == 0)
            number = lowest;
    if (number > highestGroup)
        return;
    root->rows.insert(root->rows.begin() + static_cast<std::ptrdiff_t>(place),
                      ModelRow::Group(number, --lastGroupId));
    root->Remake();
}

void StackModel::AddFromMenu(ModelEffect effect) { toBeAdded.push_back(std::move(effect)); }

void StackModel::AddMain(ModelEffect effect)
{
    printed.emplace_back("button clicked");
    toBeAdded.push_back(std::move(effect));
}

// Dragging.

void StackModel::MoveRow(int id, Target target)
{
    if (!root->Find(id)->isSelected)
        ClickRow(id, Selecting::alone);
    dropSelected(target);
}

/// From the last row to the first at one place, so that they keep their order. What is moved is told the
/// number of where it goes, a group as well, which keeps its title; at the top level that is -1.
void StackModel::dropSelected(Target target)
{
    const std::vector<int> selected = selectedRows();
    printed.push_back("Items: " + std::to_string(selected.size()));
    for (auto id = selected.rbegin(); id != selected.rend(); ++id)
    {
        printed.push_back("Moving Item: " + root->Find(*id)->Name());
        // Nothing goes into itself.
        if (*id == 0 || root->Find(*id)->Find(target.parent) != nullptr)
            continue;
        const ModelRow& from = *root->FindParentOf(*id);
        if (from.id == target.parent && from.IndexOf(*id) < target.index)
            --target.index;
        ModelRow row = *root->Find(*id);
        takeOut(*id);
        ModelRow& parent = *root->Find(target.parent);
        row.number = row.effect.group = parent.IsGroup() ? parent.number : -1;
        parent.rows.insert(parent.rows.begin() + static_cast<std::ptrdiff_t>(target.index), row);
        parent.Remake();
    }
}
} // namespace standin::check
