#include "standin/check/ModelRow.h"

#include <algorithm>

namespace standin::check
{
bool ModelEffect::operator==(const ModelEffect& other) const
{
    return id == other.id && kind == other.kind && name == other.name && group == other.group &&
           power == other.power;
}

ModelRow ModelRow::Layer()
{
    ModelRow row;
    row.title = "Layer";
    return row;
}

ModelRow ModelRow::Group(int number, int id)
{
    ModelRow row;
    row.kind = Kind::group;
    row.id = id;
    row.title = "Group " + std::to_string(number);
    row.number = number;
    return row;
}

ModelRow ModelRow::Of(const ModelEffect& effect)
{
    ModelRow row;
    row.kind = effect.kind == ModelKind::outside ? Kind::outside : Kind::object;
    row.id = effect.id;
    row.effect = effect;
    return row;
}

const std::string& ModelRow::Name() const { return id > 0 ? effect.name : title; }

void ModelRow::SetOpen(bool shouldBeOpen)
{
    if (shouldBeOpen && !isOpen)
        Remake();
    isOpen = shouldBeOpen;
}

void ModelRow::Remake()
{
    isOpen = true;
    for (ModelRow& row : rows)
        row.Remake();
}

void ModelRow::forEach(Which which, int depth, const std::function<void(const ModelRow&, int)>& what) const
{
    what(*this, depth);
    if (which == Which::all || isOpen)
        for (const ModelRow& row : rows)
            row.forEach(which, depth + 1, what);
}

void ModelRow::ForEach(const std::function<void(const ModelRow&, int)>& what) const
{
    forEach(Which::all, 0, what);
}

void ModelRow::ForEachShown(const std::function<void(const ModelRow&, int)>& what) const
{
    forEach(Which::shown, 0, what);
}

const ModelRow* ModelRow::Find(int wanted) const { return const_cast<ModelRow*>(this)->Find(wanted); }

ModelRow* ModelRow::Find(int wanted)
{
    if (id == wanted)
        return this;
    for (ModelRow& row : rows)
        if (ModelRow* found = row.Find(wanted))
            return found;
    return nullptr;
}

ModelRow* ModelRow::FindParentOf(int wanted)
{
    for (ModelRow& row : rows)
    {
        if (row.id == wanted)
            return this;
        if (ModelRow* found = row.FindParentOf(wanted))
            return found;
    }
    return nullptr;
}

std::size_t ModelRow::IndexOf(int child) const
{
    const auto found =
        std::find_if(rows.begin(), rows.end(), [child](const ModelRow& row) { return row.id == child; });
    return static_cast<std::size_t>(found - rows.begin());
}
} // namespace standin::check
