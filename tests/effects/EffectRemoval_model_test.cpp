// Random stacks and random lists of identities, against a small model of what has to remain.

#include "effects/EffectRemoval.h"
#include "effects/ObjectItem.h"
#include "standin/host/family/Liars.h"
#include "tests/support/LabelledStack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace standin
{
namespace
{
/// An effect as the model knows it: its label, and the identity that it answers.
struct Modelled
{
    std::string label;
    std::string answer;
};

using Model = std::vector<Modelled>;
using Random = std::mt19937;

/// From 0 to `below` - 1. The same on every platform, unlike the library's distributions.
std::size_t pick(Random& random, std::size_t below) { return random() % below; }

/// Adds one effect to the layer and to the model: an ordinary one, an outsider, a twin of one above, one that
/// answers too late, one that only fails, one that answers and fails.
void addRandomEffect(LabelledStack& product, Model& model, Random& random)
{
    const std::string number = std::to_string(model.size());
    const std::size_t character = pick(random, 8);
    const std::string label = (character == 0 ? "X" : "A") + number;
    Modelled effect = {label, product.Add(MatchNameOf(label), label)};
    EffectInstance& instance = product.host.Effect(label);
    if (character == 0 || character == 2 || character == 3)
        effect.answer = ZERO_UUID_TEXT;
    if (character == 1 && !model.empty())
    {
        const EffectInstance& twin = product.host.Effect(model[pick(random, model.size())].label);
        instance.family.uuid = twin.family.uuid;
        effect.answer = TextOf(twin.family.uuid);
    }
    if (character == 2)
        instance.behaviour = AnswersLate(1);
    if (character == 3)
        instance.behaviour = FailsWith(4);
    if (character == 4)
        instance.behaviour = AnswersAndFailsWith(4);
    model.push_back(effect);
}

std::vector<std::string> randomUuids(const Model& model, Random& random)
{
    std::vector<std::string> uuids(pick(random, 7));
    for (std::string& uuid : uuids)
    {
        const std::size_t choice = pick(random, 8);
        if (choice == 0)
            uuid = ZERO_UUID_TEXT;
        else if (choice == 1 || model.empty())
            uuid = "ffffffff-ffff-ffff-ffff-fffffffffff" + std::to_string(pick(random, 10));
        else
            uuid = model[pick(random, model.size())].answer;
    }
    return uuids;
}

/// An effect stays if its identity was not asked for, or if one above it has the same.
std::string expectedStack(const Model& model, const std::vector<std::string>& uuids)
{
    std::string labels;
    std::vector<std::string> answersAbove;
    for (const Modelled& effect : model)
    {
        const bool isWanted = std::count(uuids.begin(), uuids.end(), effect.answer) != 0;
        const bool isFirst = std::count(answersAbove.begin(), answersAbove.end(), effect.answer) == 0;
        answersAbove.push_back(effect.answer);
        if (!isWanted || !isFirst)
            labels += (labels.empty() ? "" : " ") + effect.label;
    }
    return labels;
}

/// Gives whether anything was deleted.
bool runOnce(std::uint32_t seed)
{
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    LabelledStack product;
    Model model;
    for (std::size_t count = pick(random, 9); model.size() < count;)
        addRandomEffect(product, model, random);
    const std::vector<std::string> uuids = randomUuids(model, random);
    const std::string expected = expectedStack(model, uuids);
    const ProjectState before = product.host.State();
    const std::string stackBefore = product.Stack();

    EXPECT_EQ(
        product.InHook(
            [&]
            { return RemoveMultipleEffectsByUUID(product.Id(), product.Basic(), uuids, product.Layer()); }),
        0);
    EXPECT_EQ(product.Stack(), expected);
    const bool hasDeleted = expected != stackBefore;
    EXPECT_EQ(product.host.UndoNames(),
              hasDeleted ? std::vector<std::string>{"Delete Effect(s)"} : std::vector<std::string>{});
    EXPECT_EQ(product.host.Undo(), hasDeleted);
    EXPECT_EQ(product.host.State(), before);
    product.host.CheckSuiteBalance();
    EXPECT_EQ(product.host.FindingsReport(), "");
    return hasDeleted;
}
} // namespace

TEST(EffectRemovalModel, RandomStacksLeaveWhatTheModelLeaves)
{
    int deletions = 0;
    constexpr std::uint32_t runs = 500;
    for (std::uint32_t seed = 1; seed <= runs && !HasFailure(); ++seed)
        deletions += runOnce(seed) ? 1 : 0;
    EXPECT_GT(deletions, 200) << "most runs have something to delete";
    EXPECT_LT(deletions, 480) << "some have nothing";
}
} // namespace standin
