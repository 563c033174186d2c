// What a user does in the rows of the panel. The layer learns of it in an idle pass.

#include "standin/check/StackModel.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace standin::check
{
namespace
{
constexpr int highestGroup = 10;

auto withId(int id)
{
    return [id](const ModelEffect& effect) { return effect.id == id; };
}

bool isRowOf(const ModelRow& row, int id) { return row.kind != ModelRow::Kind::group && row.effect.id == id; }
} // namespace

ModelRow ModelRow::Group(int number)
{
    ModelRow row;
    row.kind = Kind::group;
    row.title = "Group " + std::to_string(number);
    row.number = number;
    return row;
}

std::vector<ModelRowId> StackModel::AllRows() const
{
    std::vector<ModelRowId> all;
    if (!hasRoot)
        return all;
    all.emplace_back();
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        if (rows[i].kind != ModelRow::Kind::group)
            all.push_back({rows[i].effect.id, -1});
        else
            all.push_back({0, static_cast<int>(i)});
        for (const ModelEffect& object : rows[i].objects)
            all.push_back({object.id, -1});
    }
    return all;
}

bool& StackModel::selection(const ModelRowId& row)
{
    if (row.group >= 0)
        return rows[static_cast<std::size_t>(row.group)].isSelected;
    return row.effect == 0 ? isLayerRowSelected : inRows(row.effect)->isSelected;
}

bool StackModel::IsSelected(const ModelRowId& row) const
{
    return const_cast<StackModel*>(this)->selection(row);
}

std::vector<ModelRowId> StackModel::selectedRows()
{
    std::vector<ModelRowId> selected = AllRows();
    selected.erase(std::remove_if(selected.begin(), selected.end(),
                                  [&](const ModelRowId& row) { return !selection(row); }),
                   selected.end());
    return selected;
}

std::string StackModel::titleOf(const ModelRowId& row) const
{
    if (row.group >= 0)
        return rows[static_cast<std::size_t>(row.group)].title;
    return row.effect == 0 ? "Layer" : const_cast<StackModel*>(this)->inRows(row.effect)->name;
}

// The selection.

void StackModel::ClickRow(const ModelRowId& row, Selecting selecting)
{
    const std::vector<ModelRowId> selected = selectedRows();
    if (selecting == Selecting::toggled)
    {
        selection(row) = !selection(row);
        return;
    }
    if (selecting == Selecting::range && !selected.empty())
    {
        // From the row to the far end of what is selected, which stays so.
        const std::vector<ModelRowId> all = AllRows();
        const auto place = [&](const ModelRowId& of) { return std::find(all.begin(), all.end(), of); };
        const auto clicked = place(row);
        const auto other =
            clicked < place(selected.back()) ? place(selected.front()) : place(selected.back());
        for (auto at = std::min(clicked, other); at <= std::max(clicked, other); ++at)
            selection(*at) = true;
        return;
    }
    ClickBeside();
    selection(row) = true;
}

void StackModel::ClickBeside()
{
    for (const ModelRowId& row : AllRows())
        selection(row) = false;
}

void StackModel::PressSelectAll()
{
    printed.insert(printed.end(), {"Key Pressed", "Select All Button"});
    for (const ModelRowId& row : AllRows())
        if (!(row == ModelRowId{}))
            selection(row) = true;
}

// Changes of the rows.

void StackModel::RenameRow(int id, const std::string& name)
{
    ClickRow({id, -1}, Selecting::alone);
    printed.insert(printed.end(), {"Key Pressed", "Return Key Pressed", "Edit Button"});
    inRows(id)->name = name;
}

/// A row that is not selected is, before its box takes the click.
void StackModel::ClickBox(int id)
{
    ClickRow({id, -1}, Selecting::alone);
    Power& power = inRows(id)->power;
    power = power == Power::on ? Power::off : Power::on;
}

void StackModel::ClickGroupBox(std::size_t row)
{
    ClickRow({0, static_cast<int>(row)}, Selecting::alone);
    ModelStack& objects = rows[row].objects;
    const bool someAreOn = std::any_of(objects.begin(), objects.end(),
                                       [](const ModelEffect& object) { return object.power == Power::on; });
    for (ModelEffect& object : objects)
        object.power = someAreOn ? Power::off : Power::on;
}

void StackModel::takeOut(int id)
{
    for (auto row = rows.begin(); row != rows.end(); ++row)
    {
        row->objects.erase(std::remove_if(row->objects.begin(), row->objects.end(), withId(id)),
                           row->objects.end());
        if (isRowOf(*row, id))
        {
            rows.erase(row);
            return;
        }
    }
}

void StackModel::DeleteRow(int id)
{
    ClickRow({id, -1}, Selecting::alone);
    PressDelete();
}

void StackModel::DeleteGroupRow(std::size_t row)
{
    ClickRow({0, static_cast<int>(row)}, Selecting::alone);
    PressDelete();
}

/// A group goes with its objects; the layer's row stays, and of an outside effect the row alone goes.
void StackModel::PressDelete()
{
    printed.emplace_back("Key Pressed");
    const std::vector<ModelRowId> selected = selectedRows();
    for (auto row = selected.rbegin(); row != selected.rend(); ++row)
    {
        if (row->group >= 0)
        {
            for (const ModelEffect& object : rows[static_cast<std::size_t>(row->group)].objects)
                toBeDeleted.push_back(object.id);
            rows.erase(rows.begin() + row->group);
        }
        else if (row->effect != 0)
        {
            if (inRows(row->effect)->kind != ModelKind::outside)
                toBeDeleted.push_back(row->effect);
            takeOut(row->effect);
        }
    }
}

/// The next number is one above the highest; only when that is taken, the lowest free one.
void StackModel::AddEmptyGroup()
{
    printed.emplace_back("button clicked");
    if (!hasRoot)
        return;
    std::set<int> taken;
    std::size_t place = 0;
    for (std::size_t i = 0; i < rows.size(); ++i)
    {
        if (rows[i].kind != ModelRow::Kind::group || rows[i].number < 0)
            continue;
        taken.insert(rows[i].number);
        place = i + 1;
    }
    int number = taken.empty() ? 1 : *taken.rbegin() + 1;
    for (int lowest = 1; number > highestGroup && lowest <= highestGroup; ++lowest)
        if (taken.count(lowest) == 0)
            number = lowest;
    if (number > highestGroup)
        return;
    ModelRow group = ModelRow::Group(number);
    group.serial = ++lastSerial;
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(place), group);
}

void StackModel::AddFromMenu(ModelEffect effect) { toBeAdded.push_back(std::move(effect)); }

void StackModel::AddMain(ModelEffect effect)
{
    printed.emplace_back("button clicked");
    toBeAdded.push_back(std::move(effect));
}

// Dragging.

void StackModel::selectForDrag(const ModelRowId& row)
{
    if (!selection(row))
        ClickRow(row, Selecting::alone);
}

void StackModel::MoveRow(int id, Target target)
{
    selectForDrag({id, -1});
    dropSelected(target);
}

void StackModel::MoveGroupRow(std::size_t row, std::size_t index)
{
    selectForDrag({0, static_cast<int>(row)});
    dropSelected({-1, index});
}

std::ptrdiff_t StackModel::rowOfSerial(int serial) const
{
    return std::find_if(rows.begin(), rows.end(),
                        [serial](const ModelRow& row)
                        { return row.kind == ModelRow::Kind::group && row.serial == serial; }) -
           rows.begin();
}

/// From the last row to the first at one place, so that they keep their order. A group that is moved keeps
/// its title, and its number is -1 until the rows are made anew.
void StackModel::dropSelected(Target target)
{
    struct Moved
    {
        ModelRowId row;
        int serial;
        std::string title;
    };
    std::vector<Moved> all;
    for (const ModelRowId& row : selectedRows())
        all.push_back(
            {row, row.group < 0 ? 0 : rows[static_cast<std::size_t>(row.group)].serial, titleOf(row)});
    const int targetSerial = target.groupRow < 0 ? 0 : rows[static_cast<std::size_t>(target.groupRow)].serial;
    printed.push_back("Items: " + std::to_string(all.size()));
    std::size_t index = target.index;
    for (auto moved = all.rbegin(); moved != all.rend(); ++moved)
    {
        printed.push_back("Moving Item: " + moved->title);
        if (moved->row == ModelRowId{} || (moved->serial != 0 && moved->serial == targetSerial))
            continue;
        if (moved->serial != 0 && targetSerial != 0)
            throw std::logic_error("the model knows no group inside a group");
        if (moved->serial != 0)
            dropGroup(moved->serial, index);
        else
            dropEffect(moved->row.effect, targetSerial, index);
    }
}

void StackModel::dropGroup(int serial, std::size_t& index)
{
    const std::ptrdiff_t from = rowOfSerial(serial);
    ModelRow group = rows[static_cast<std::size_t>(from)];
    group.number = -1;
    if (static_cast<std::size_t>(from) < index)
        --index;
    rows.erase(rows.begin() + from);
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(index), group);
}

/// What is dropped at the top level is told group -1.
void StackModel::dropEffect(int id, int groupSerial, std::size_t& index)
{
    ModelEffect effect = *inRows(id);
    if (groupSerial == 0)
    {
        const auto from =
            std::find_if(rows.begin(), rows.end(), [id](const ModelRow& row) { return isRowOf(row, id); });
        if (from != rows.end() && static_cast<std::size_t>(from - rows.begin()) < index)
            --index;
        const bool isOutside = effect.kind == ModelKind::outside;
        if (!isOutside)
            effect.group = -1;
        takeOut(id);
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(index),
                    {isOutside ? ModelRow::Kind::outside : ModelRow::Kind::object, effect, "", 0, {}});
        return;
    }
    if (effect.kind == ModelKind::outside)
        throw std::logic_error("the model knows no outside effect in a group");
    const ModelStack& present = rows[static_cast<std::size_t>(rowOfSerial(groupSerial))].objects;
    const auto from = std::find_if(present.begin(), present.end(), withId(id));
    if (from != present.end() && static_cast<std::size_t>(from - present.begin()) < index)
        --index;
    takeOut(id);
    ModelRow& group = rows[static_cast<std::size_t>(rowOfSerial(groupSerial))];
    effect.group = group.number;
    group.objects.insert(group.objects.begin() + static_cast<std::ptrdiff_t>(index), effect);
}
} // namespace standin::check
