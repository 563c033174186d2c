// Random stacks and a new effect of a random kind, against a small model of where it belongs.

#include "effects/EffectPlacement.h"
#include "tests/support/LabelledStack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace standin
{
namespace
{
using Kinds = std::string; ///< One letter for each effect, from the top; see MatchNameOf.

std::size_t firstOf(const Kinds& stack, char kind) { return stack.find(kind); }

/// After the last of its kind; else before the first effect of the first kind that follows it in the chain
/// geometry, effectors, renderers, main effect that is there at all; else at the top.
std::size_t placeInChain(const Kinds& stack, char kind)
{
    if (stack.rfind(kind) != Kinds::npos)
        return stack.rfind(kind) + 1;
    const Kinds chain = "GERM";
    for (const char next : chain.substr(chain.find(kind) + 1))
    {
        if (firstOf(stack, next) != Kinds::npos)
            return firstOf(stack, next);
    }
    return 0;
}

std::size_t modelPlace(const Kinds& stack, char kind)
{
    switch (kind)
    {
    case 'K':
        return 0;
    case 'M':
    case 'L':
        return stack.size();
    case 'X':
        return std::min({placeInChain(stack, 'G'), placeInChain(stack, 'E'), placeInChain(stack, 'R')});
    default:
        return placeInChain(stack, kind);
    }
}

std::string joined(const std::vector<std::string>& labels)
{
    std::string text;
    for (const std::string& label : labels)
        text += (text.empty() ? "" : " ") + label;
    return text;
}

void runOnce(std::uint32_t seed)
{
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const Kinds all = "GERMKLX";
    Kinds stack(random() % 8, ' ');
    for (char& kind : stack)
        kind = all[random() % all.size()];
    const char added = all[random() % all.size()];

    std::vector<std::string> labels;
    for (const char kind : stack)
        labels.push_back(kind + std::to_string(labels.size()));
    LabelledStack product(joined(labels));
    labels.insert(labels.begin() + static_cast<std::ptrdiff_t>(modelPlace(stack, added)), "new");
    const std::string expected = joined(labels);

    const int key = product.KeyOf(std::string(1, added));
    EXPECT_EQ(product.InHook(
                  [&]
                  { return ApplyEffectToLayerIdleFn(product.Id(), product.Basic(), key, product.Layer()); }),
              0);
    product.LabelNewEffects();
    EXPECT_EQ(product.Stack(), expected) << added << " into " << stack;
    product.host.CheckSuiteBalance();
    EXPECT_EQ(product.host.FindingsReport(), "");
}
} // namespace

TEST(EffectPlacementModel, RandomStacksTakeEffectsWhereTheModelSays)
{
    for (std::uint32_t seed = 1; seed <= 1000 && !HasFailure(); ++seed)
        runOnce(seed);
}
} // namespace standin
