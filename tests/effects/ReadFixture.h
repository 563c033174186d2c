#pragma once
// Common ground of the tests that read a layer: one read in a hook, its items as lines of text, and a
// stack as the expected calls want it.

#include "effects/LayerItems.h"
#include "standin/family/Liars.h"
#include "tests/support/HostCalls.h"
#include "tests/support/ProductHost.h"

#include <string>
#include <vector>

namespace standin
{
/// "UUID NAME group GROUP active ACTIVE tag TAG".
inline std::string LineOf(const ObjectItem& item)
{
    return item.uuid + " " + item.name + " group " + std::to_string(item.group) + " active " +
           std::to_string(item.active) + " tag " + item.tag;
}

inline std::vector<std::string> LinesOf(const std::vector<ObjectItem>& items)
{
    std::vector<std::string> lines;
    for (const ObjectItem& item : items)
        lines.push_back(LineOf(item));
    return lines;
}

/// What a read gave, and how its hook came back.
struct ReadOutcome
{
    std::vector<ObjectItem> items;
    HookResult result;

    std::vector<std::string> Lines() const { return LinesOf(items); }
};

inline ReadOutcome ReadOver(ProductHost& product, SPBasicSuite* basic, int ignored = -1)
{
    ReadOutcome outcome;
    AEGP_LayerH layer = product.Layer();
    product.host.ClearTrace();
    outcome.result = product.host.RunInHook(
        [&] { outcome.items = CreateItemsFromLayer(product.Id(), basic, layer, ignored); });
    return outcome;
}

inline ReadOutcome Read(ProductHost& product, int ignored = -1)
{
    return ReadOver(product, product.Basic(), ignored);
}
} // namespace standin
