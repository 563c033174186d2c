// "AEGP Item Suite" 3 and "AEGP Layer Suite" 5: what is active, and whose it is.

#include "standin/host/suites/Entry.h"
#include "standin/host/suites/Resolve.h"
#include "standin/host/suites/Suites.h"

namespace standin
{
namespace
{
void* handOut(HostParts& parts, ReferenceKind kind, int id)
{
    if (id == 0)
        return nullptr;
    Reference reference;
    reference.kind = kind;
    reference.owner = id;
    return parts.HandOut(reference);
}

A_Err getActiveItem(HostParts& parts, OutHandle<ItemH> out)
{
    const int item = parts.project.selection.ActiveItem(parts.project.state, parts.options.focusInPanel);
    out.Give(handOut(parts, ReferenceKind::item, item));
    return errNone;
}

A_Err getItemId(HostParts& parts, HandleArg<ItemH> item, OutNumber<A_long> id)
{
    const Item* found = ResolveItem(parts, item.value);
    if (found == nullptr)
        return errParameter;
    *id.value = found->id;
    return errNone;
}

A_Err getActiveLayer(HostParts& parts, OutHandle<LayerH> out)
{
    const int layer = parts.project.selection.ActiveLayer(parts.project.state, parts.options.focusInPanel);
    out.Give(handOut(parts, ReferenceKind::layer, layer));
    return errNone;
}

A_Err getLayerParentComp(HostParts& parts, HandleArg<LayerH> layer, OutHandle<CompH> out)
{
    const Layer* found = ResolveLayer(parts, layer.value);
    if (found == nullptr)
        return errParameter;
    out.Give(handOut(parts, ReferenceKind::composition, found->compId));
    return errNone;
}

A_Err convertLayerToCompTime(HostParts& parts, HandleArg<LayerH> layer, TimeArg in, OutTime out)
{
    const Layer* found = ResolveLayer(parts, layer.value);
    if (!CheckTime(parts, *in.value) || found == nullptr)
        return errParameter;
    constexpr std::int64_t unitsPerSecond = 100;
    const std::int64_t start = std::int64_t{found->startTime} * in.value->scale / unitsPerSecond;
    *out.value = {static_cast<A_long>(in.value->value + start), in.value->scale};
    return errNone;
}

A_Err getLayerId(HostParts& parts, HandleArg<LayerH> layer, OutNumber<A_long> id)
{
    const Layer* found = ResolveLayer(parts, layer.value);
    if (found == nullptr)
        return errParameter;
    *id.value = found->id;
    return errNone;
}
} // namespace

SuiteDescription DescribeItemSuite()
{
    return SuiteBuilder<SuiteId::item3, 20>("AEGP Item Suite", 3, "AEGP_ItemSuite1")
        .Slot<1, getActiveItem>("AEGP_GetActiveItem", Access::reads)
        .Slot<7, getItemId>("AEGP_GetItemID", Access::reads)
        .Done();
}

SuiteDescription DescribeLayerSuite()
{
    return SuiteBuilder<SuiteId::layer5, 39>("AEGP Layer Suite", 5, "AEGP_LayerSuite1")
        .Slot<2, getActiveLayer>("AEGP_GetActiveLayer", Access::reads)
        .Slot<5, getLayerParentComp>("AEGP_GetLayerParentComp", Access::reads)
        .Slot<33, convertLayerToCompTime>("AEGP_ConvertLayerToCompTime", Access::reads)
        .Slot<35, getLayerId>("AEGP_GetLayerID", Access::reads)
        .Done();
}
} // namespace standin
