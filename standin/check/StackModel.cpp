#include "standin/check/StackModel.h"

#include <algorithm>
#include <set>
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

} // namespace

ModelRow ModelRow::Group(int number)
{
    ModelRow row;
    row.kind = Kind::group;
    row.title = "Group " + std::to_string(number);
    row.number = number;
    return row;
}

bool ModelEffect::operator==(const ModelEffect& other) const
{
    return id == other.id && kind == other.kind && name == other.name && group == other.group &&
           power == other.power;
}

StackModel::StackModel(std::vector<ModelStack> theLayers) : layers(std::move(theLayers)) {}

std::vector<std::string> StackModel::UndoNames() const
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < done; ++i)
        names.push_back(steps[i].name);
    return names;
}

std::vector<std::string> StackModel::RedoNames() const
{
    std::vector<std::string> names;
    for (std::size_t i = done; i < steps.size(); ++i)
        names.push_back(steps[i].name);
    return names;
}

std::vector<std::string> StackModel::TakeWrites() { return std::exchange(writes, {}); }

ModelEffect* StackModel::inStack(int id)
{
    const auto found = std::find_if(stack().begin(), stack().end(), withId(id));
    return found == stack().end() ? nullptr : &*found;
}

ModelEffect* StackModel::inRows(int id)
{
    for (ModelRow& row : rows)
    {
        if (row.kind != ModelRow::Kind::group && row.effect.id == id)
            return &row.effect;
        const auto found = std::find_if(row.objects.begin(), row.objects.end(), withId(id));
        if (found != row.objects.end())
            return &*found;
    }
    return nullptr;
}

// The host's side.

void StackModel::push(const std::string& name, std::vector<ModelStack> before)
{
    if (before == layers)
        return;
    steps.resize(done);
    steps.push_back({name, std::move(before), layers});
    done = steps.size();
}

void StackModel::change(const std::string& step, const std::function<void()>& what)
{
    std::vector<ModelStack> before = layers;
    what();
    push(step, std::move(before));
}

void StackModel::Apply(ModelEffect effect)
{
    change("Apply Effect", [&] { stack().push_back(std::move(effect)); });
}

void StackModel::Rename(int id, const std::string& name)
{
    change("Rename Effect", [&] { inStack(id)->name = name; });
}

void StackModel::Move(int id, int index)
{
    change("Reorder Effect",
           [&]
           {
               const ModelEffect effect = *inStack(id);
               stack().erase(std::find_if(stack().begin(), stack().end(), withId(id)));
               stack().insert(stack().begin() + index, effect);
           });
}

void StackModel::Delete(int id)
{
    change("Delete Effect", [&] { stack().erase(std::find_if(stack().begin(), stack().end(), withId(id))); });
}

void StackModel::Duplicate(int id, int copyId)
{
    change("Duplicate Effect",
           [&]
           {
               const auto original = std::find_if(stack().begin(), stack().end(), withId(id));
               ModelEffect copy = *original;
               copy.id = copyId;
               stack().insert(original + 1, copy);
           });
}

void StackModel::Switch(int id, Power power)
{
    change(power == Power::on ? "Switch Effect On" : "Switch Effect Off",
           [&] { inStack(id)->power = power; });
}

void StackModel::PutIntoGroup(int id, int group)
{
    change("Change Group", [&] { inStack(id)->group = group; });
}

void StackModel::Undo() { layers = steps[--done].before; }

void StackModel::Redo() { layers = steps[done++].after; }

// The panel's side.

void StackModel::RenameRow(int id, const std::string& name) { inRows(id)->name = name; }

void StackModel::ClickBox(int id)
{
    Power& power = inRows(id)->power;
    power = power == Power::on ? Power::off : Power::on;
}

void StackModel::ClickGroupBox(std::size_t row)
{
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
        if (row->kind != ModelRow::Kind::group && row->effect.id == id)
        {
            rows.erase(row);
            return;
        }
    }
}

void StackModel::DeleteRow(int id)
{
    takeOut(id);
    toBeDeleted.push_back(id);
}

void StackModel::DeleteGroupRow(std::size_t row)
{
    for (const ModelEffect& object : rows[row].objects)
        toBeDeleted.push_back(object.id);
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
}

/// The next number is one above the highest; only when that is taken, the lowest free one.
void StackModel::AddEmptyGroup()
{
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
    if (number <= highestGroup)
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(place), ModelRow::Group(number));
}

void StackModel::AddFromMenu(ModelEffect effect) { toBeAdded.push_back(std::move(effect)); }

/// What is dropped at the top level is told group -1.
void StackModel::MoveRow(int id, Target target)
{
    ModelEffect object = *inRows(id);
    const auto below = [&](const ModelRow& row)
    { return row.kind != ModelRow::Kind::group && row.effect.id == id; };
    if (target.groupRow < 0)
    {
        const auto at =
            static_cast<std::size_t>(std::find_if(rows.begin(), rows.end(), below) - rows.begin());
        if (at < target.index)
            --target.index;
        takeOut(id);
        object.group = -1;
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(target.index),
                    {ModelRow::Kind::object, object, "", 0, {}});
        return;
    }
    const std::string title = rows[static_cast<std::size_t>(target.groupRow)].title;
    const ModelStack& present = rows[static_cast<std::size_t>(target.groupRow)].objects;
    const auto at =
        static_cast<std::size_t>(std::find_if(present.begin(), present.end(), withId(id)) - present.begin());
    if (at < target.index)
        --target.index;
    takeOut(id);
    ModelRow& group =
        *std::find_if(rows.begin(), rows.end(), [&](const ModelRow& row) { return row.title == title; });
    object.group = group.number;
    group.objects.insert(group.objects.begin() + static_cast<std::ptrdiff_t>(target.index), object);
}

void StackModel::MoveGroupRow(std::size_t row, std::size_t index)
{
    ModelRow group = rows[row];
    group.number = -1;
    rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(row));
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(row < index ? index - 1 : index), group);
}

} // namespace standin::check
