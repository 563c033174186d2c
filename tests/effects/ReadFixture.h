#pragma once
// Common ground of the tests that read a layer: one read in a hook.

#include "effects/LayerItems.h"
#include "standin/host/family/Liars.h"
#include "tests/support/StackTest.h"

#include <string>
#include <vector>

namespace standin
{
/// What a read gave, and how its hook came back.
struct ReadOutcome
{
    Items items;
    HookResult result;
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

class ReadTest : public StackTest
{
protected:
    /// The effects of the family are in the groups 1, 2, 3 ..., from the top.
    LabelledStack& MakeInGroups(const std::string& labels)
    {
        LabelledStack& stack = Make(labels);
        std::int16_t group = 0;
        for (const std::string& label : Words(labels))
            stack.host.Effect(label).family.group = ++group;
        return stack;
    }

    /// The items of one read over another basic suite than the host's.
    std::string TextOver(SPBasicSuite* basic) { return scene->Text(ReadOver(*scene, basic).items); }

    /// The last calls of the read.
    Calls LastCalls(std::ptrdiff_t count) const
    {
        const Calls calls = scene->CallList();
        return {calls.end() - count, calls.end()};
    }
};
} // namespace standin
