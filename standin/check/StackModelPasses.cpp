// What an idle pass does to layer and rows, until nothing changes any more.

#include "standin/check/StackModel.h"

#include <algorithm>
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

/// Where the effects of a kind begin and end.
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
} // namespace

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
            group = rows.insert(rows.end(), ModelRow::Group(effect.group));
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
    std::vector<int> doomed = std::exchange(toBeDeleted, {});
    doomed.erase(std::remove_if(doomed.begin(), doomed.end(), [&](int id) { return inStack(id) == nullptr; }),
                 doomed.end());
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
} // namespace standin::check
