#include "standin/checks/StackModel.h"

#include <algorithm>
#include <set>
#include <utility>

namespace standin
{
namespace
{
constexpr int highestGroup = 10;

auto withId(int id)
{
    return [id](const ModelEffect& effect) { return effect.id == id; };
}

/// Adds the indices of the effects of a kind.
struct Extent
{
    std::size_t first = 0;
    std::size_t behindLast = 0;
};

/// Where the effects of a kind stand, or where they would stand if there are none.
Extent extentOf(const ModelStack& stack, ModelKind kind, std::size_t otherwise)
{
    Extent extent{otherwise, otherwise};
    bool isFirst = true;
    for (std::size_t i = 0; i < stack.size(); ++i)
    {
        if (stack[i].kind != kind)
            continue;
        if (std::exchange(isFirst, false))
            extent.first = i;
        extent.behindLast = i + 1;
    }
    return extent;
}

ModelRow groupRow(int number)
{
    ModelRow row;
    row.kind = ModelRow::Kind::group;
    row.title = "Group " + std::to_string(number);
    row.number = number;
    return row;
}
} // namespace

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

template <class Change>
void StackModel::change(const std::string& step, Change what)
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
        rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(place), groupRow(number));
}

void StackModel::AddFromMenu(ModelEffect effect) { toBeAdded.push_back(std::move(effect)); }

/// What is put down on the layer is told group -1.
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

// The idle passes.

ModelStack StackModel::listOfRows() const
{
    ModelStack list;
    for (const ModelRow& row : rows)
    {
        if (row.kind == ModelRow::Kind::object)
            list.push_back(row.effect);
        list.insert(list.end(), row.objects.begin(), row.objects.end());
    }
    return list;
}

void StackModel::makeRows()
{
    rows.clear();
    for (const ModelEffect& effect : Stack())
    {
        if (effect.kind == ModelKind::outside || effect.group < 1 || effect.group > highestGroup)
        {
            const bool isOutside = effect.kind == ModelKind::outside;
            rows.push_back({isOutside ? ModelRow::Kind::outside : ModelRow::Kind::object, effect, "", 0, {}});
            continue;
        }
        auto group = std::find_if(rows.begin(), rows.end(),
                                  [&](const ModelRow& row) { return row.number == effect.group; });
        if (group == rows.end())
            group = rows.insert(rows.end(), groupRow(effect.group));
        group->objects.push_back(effect);
    }
}

std::size_t StackModel::slotFor(ModelKind kind) const
{
    const Extent mains = extentOf(Stack(), ModelKind::main, 0);
    const Extent renderers = extentOf(Stack(), ModelKind::renderer, mains.first);
    const Extent effectors = extentOf(Stack(), ModelKind::effector, renderers.first);
    const Extent geometry = extentOf(Stack(), ModelKind::geometry, effectors.first);
    switch (kind)
    {
    case ModelKind::geometry:
        return geometry.behindLast;
    case ModelKind::effector:
        return effectors.behindLast;
    case ModelKind::renderer:
        return renderers.behindLast;
    default:
        return Stack().size();
    }
}

void StackModel::carryOutRequests()
{
    for (const ModelEffect& effect : std::exchange(toBeAdded, {}))
    {
        const std::size_t slot = slotFor(effect.kind);
        Apply(effect);
        Move(effect.id, static_cast<int>(slot));
        writes.insert(writes.end(), {"AEGP_ApplyEffect", "AEGP_ReorderEffect"});
    }
    const std::vector<int> doomed = std::exchange(toBeDeleted, {});
    if (doomed.empty())
        return;
    writes.insert(writes.end(), doomed.size(), "AEGP_ReorderEffect");
    writes.insert(writes.end(), doomed.size(), "AEGP_DeleteLayerEffect");
    change("Delete Effect(s)",
           [&]
           {
               for (const int id : doomed)
                   stack().erase(std::find_if(stack().begin(), stack().end(), withId(id)));
           });
}

/// What is wanted comes first, in its order; the rest follows in its own.
void StackModel::carryOrderToLayer(const ModelStack& wanted, const char* stepName)
{
    writes.insert(writes.end(), wanted.size(), "AEGP_ReorderEffect");
    change(stepName,
           [&]
           {
               ModelStack inOrder;
               for (const ModelEffect& each : wanted)
                   inOrder.push_back(*inStack(each.id));
               for (const ModelEffect& each : stack())
                   if (std::find_if(wanted.begin(), wanted.end(), withId(each.id)) == wanted.end())
                       inOrder.push_back(each);
               stack() = inOrder;
           });
}

void StackModel::carryRowsToLayer(const ModelStack& wanted)
{
    const ModelStack former = Stack();
    bool isOrderAlone = true;
    const auto forEachOther = [&](auto field, auto what)
    {
        for (const ModelEffect& each : wanted)
        {
            const auto partner = std::find_if(former.begin(), former.end(), withId(each.id));
            if ((*partner).*field == each.*field)
                continue;
            isOrderAlone = false;
            what(each);
        }
    };
    forEachOther(&ModelEffect::name,
                 [&](const ModelEffect& each)
                 {
                     writes.emplace_back("AEGP_SetStreamName");
                     change("Rename Effect(s)", [&] { inStack(each.id)->name = each.name; });
                 });
    forEachOther(&ModelEffect::group,
                 [&](const ModelEffect& each) { PutIntoGroup(each.id, std::max(each.group, 0)); });
    forEachOther(&ModelEffect::power,
                 [&](const ModelEffect& each)
                 {
                     writes.emplace_back("AEGP_SetEffectFlags");
                     Switch(each.id, each.power);
                 });
    carryOrderToLayer(wanted, isOrderAlone ? "Reorder Effect(s)" : "");
}

void StackModel::Settle()
{
    bool isQuiet = false;
    while (!isQuiet)
    {
        isQuiet = true;
        carryOutRequests();
        const Seen layerNow{active, Stack()};
        if (!(layerNow == layerSeen))
        {
            makeRows();
            layerSeen = layerNow;
            isQuiet = false;
        }
        const Seen rowsNow{active, listOfRows()};
        if (rowsNow == rowsSeen)
            continue;
        if (rowsNow.list != Stack())
            carryRowsToLayer(rowsNow.list);
        rowsSeen = rowsNow;
        isQuiet = false;
    }
}
} // namespace standin
