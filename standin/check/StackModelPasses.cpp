// What an idle pass does to layer and rows, until nothing changes any more.

#include "standin/check/StackModel.h"

#include <algorithm>
#include <utility>

namespace standin::check
{
namespace
{
constexpr int highestGroup = 10;

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

bool StackModel::Seen::operator==(const Seen& other) const
{
    const auto isSame = [](ModelEffect one, const ModelEffect& two)
    {
        if (one.kind == ModelKind::outside && two.kind == ModelKind::outside)
            one.id = two.id;
        return one == two;
    };
    return layer == other.layer &&
           std::equal(list.begin(), list.end(), other.list.begin(), other.list.end(), isSame);
}

ModelStack StackModel::listOfRows() const
{
    ModelStack list;
    for (const ModelRow* row : AllRows())
        if (row->IsObject())
            list.push_back(row->effect);
    return list;
}

/// From the layer, fully open and with nothing selected.
void StackModel::makeRows()
{
    ++rebuilds;
    root.reset();
    offersObjects = !Stack().empty();
    if (Stack().empty())
        return;
    root = ModelRow::Layer();
    for (const ModelEffect& effect : Stack())
    {
        std::vector<ModelRow>& rows = root->rows;
        if (effect.kind == ModelKind::outside || effect.group < 1 || effect.group > highestGroup)
        {
            rows.push_back(ModelRow::Of(effect));
            continue;
        }
        auto group =
            std::find_if(rows.begin(), rows.end(),
                         [&](const ModelRow& row) { return row.IsGroup() && row.number == effect.group; });
        if (group == rows.end())
            group = rows.insert(rows.end(), ModelRow::Group(effect.group, --lastGroupId));
        group->rows.push_back(ModelRow::Of(effect));
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

bool StackModel::carryOutRequests()
{
    const bool isAsked = !toBeAdded.empty() || !toBeDeleted.empty();
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
        return isAsked;
    writes.insert(writes.end(), doomed.size(), "AEGP_ReorderEffect");
    writes.insert(writes.end(), doomed.size(), "AEGP_DeleteLayerEffect");
    change("Delete Effect(s)",
           [&]
           {
               for (const int id : doomed)
                   stack().erase(std::find_if(stack().begin(), stack().end(), WithId(id)));
           });
    return isAsked;
}

/// What is wanted comes first, in its order; the rest follows in its own.
void StackModel::carryOrderToLayer(const ModelStack& wanted, const char* stepName)
{
    writes.insert(writes.end(), wanted.size(), "AEGP_ReorderEffect");
    if (wanted.empty())
    {
        hasWrittenEmptyOrder = true;
        return;
    }
    change(stepName,
           [&]
           {
               ModelStack inOrder;
               for (const ModelEffect& each : wanted)
                   inOrder.push_back(*inStack(each.id));
               for (const ModelEffect& each : stack())
                   if (std::find_if(wanted.begin(), wanted.end(), WithId(each.id)) == wanted.end())
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
            const auto partner = std::find_if(former.begin(), former.end(), WithId(each.id));
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
                 [&](const ModelEffect& each)
                 {
                     printed.push_back("Setting Group: " + each.name);
                     PutIntoGroup(each.id, std::max(each.group, 0));
                 });
    forEachOther(&ModelEffect::power,
                 [&](const ModelEffect& each)
                 {
                     writes.emplace_back("AEGP_SetEffectFlags");
                     Switch(each.id, each.power);
                 });
    carryOrderToLayer(wanted, isOrderAlone ? "Reorder Effect(s)" : "");
}

/// Whether the tree says anything new. What it says is held against the layer without regard to which layer.
bool StackModel::carryTreeToLayer()
{
    const Seen rowsNow{active + 1, listOfRows()};
    if (rowsNow == rowsSeen)
        return false;
    if (rowsNow.list != Stack())
    {
        printed.emplace_back("Hash Mismatch");
        for (const ModelEffect& effect : Stack())
            printed.push_back("Layer Item - " + effect.name);
        for (const ModelEffect& effect : rowsNow.list)
            printed.push_back("Tree Item - " + effect.name);
        if (active >= 0)
            carryRowsToLayer(rowsNow.list);
    }
    rowsSeen = rowsNow;
    return true;
}

/// Objects that are selected are shown, and the others hidden. A main effect is never hidden, an outside
/// effect never touched.
void StackModel::pushSelection()
{
    std::set<int> selected;
    for (const int id : selectedRows())
        FindRow(id)->ForEach(
            [&](const ModelRow& row, int)
            {
                if (row.IsObject())
                    selected.insert(row.id);
            });
    for (const ModelEffect& effect : Stack())
    {
        if (effect.kind == ModelKind::outside)
            continue;
        if (selected.count(effect.id) != 0)
            hidden.erase(effect.id);
        else if (effect.kind != ModelKind::main)
            hidden.insert(effect.id);
    }
}

// The tab.

void StackModel::toggleTab() { tab = tab == TabPlace::inFront ? TabPlace::closed : TabPlace::inFront; }

/// The view is stored before the tab goes, and also when there is none to store.
void StackModel::ChooseEntry()
{
    printed.emplace_back("Make Panel Visible");
    if (hasItem && active >= 0)
        storeView();
    toggleTab();
    isRefreshWanted = true;
}

void StackModel::RequestOpening(bool isForced)
{
    if (isForced || tab != TabPlace::inFront)
        isOpeningWanted = true;
}

// The passes.

StackModel::PassEnd StackModel::passInFront(bool isForced)
{
    if (!hasItem)
    {
        root.reset();
        views.clear();
        printed.emplace_back("No active item");
        return PassEnd::quiet;
    }
    bool isBusy = active >= 0 && carryOutRequests();
    const Seen layerNow{active + 1, Stack()};
    bool isChanged = isForced || !layerSeen || !(layerNow == *layerSeen);
    if (isChanged)
    {
        makeRows();
        restoreView();
        storeView();
        layerSeen = layerNow;
    }
    isBusy = carryTreeToLayer() || isBusy;
    isChanged = isChanged || isViewChanged();
    if (isChanged)
    {
        printed.emplace_back("State Changed");
        if (active >= 0)
            pushSelection();
        storeView();
    }
    return isBusy || isChanged ? PassEnd::busy : PassEnd::quiet;
}

StackModel::PassEnd StackModel::pass()
{
    const bool isForced = std::exchange(isRefreshWanted, false);
    bool isBusy = isForced;
    if (std::exchange(isOpeningWanted, false))
    {
        isBusy = true;
        ChooseEntry();
    }
    if (tab == TabPlace::closed)
        root.reset();
    if (tab != TabPlace::inFront)
        return isBusy ? PassEnd::busy : PassEnd::quiet;
    return passInFront(isForced) == PassEnd::busy || isBusy ? PassEnd::busy : PassEnd::quiet;
}

int StackModel::Settle()
{
    int passes = 1;
    while (pass() == PassEnd::busy)
        ++passes;
    return passes;
}
} // namespace standin::check
