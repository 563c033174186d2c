// Random stacks and random trees against a small model of what the layer must be afterwards. The seed of a
// walk is in every message; VORTAN_SEED repeats one walk.

#include "tests/support/StackTest.h"

#include <algorithm>
#include <cstdlib>
#include <random>

namespace standin
{

namespace
{
/// An effect as the model knows it.
struct ModelEffect
{
    std::string label;
    std::string uuid; ///< Empty for an outside effect.
    bool rigid = false;
    std::string name;
    int group = 0;
    bool active = true;
};

/// The layer, and what an undo would list.
class Model
{
public:
    std::vector<ModelEffect> stack;
    std::vector<std::string> steps;
    std::vector<std::string> moves; ///< The label and the position of each move that is asked for.
    std::string output;
    int refused = 0;  ///< Moves past the end of the stack.
    int downward = 0; ///< Moves after which the belief is not what the layer holds.

    void Apply(const Items& layerItems, const Items& tree)
    {
        rename(layerItems, tree);
        regroup(layerItems, tree);
        switchOnOrOff(layerItems, tree);
        reorder(tree);
    }

private:
    const std::string zero = "00000000-0000-0000-0000-000000000000";
    bool differed = false;

    const ObjectItem* partnerOf(const ObjectItem& item, const Items& layerItems) const
    {
        for (const ObjectItem& candidate : layerItems)
            if (item.uuid != zero && candidate.uuid == item.uuid)
                return &candidate;
        return nullptr;
    }

    ModelEffect* find(const std::string& uuid)
    {
        for (ModelEffect& effect : stack)
            if (effect.uuid == uuid)
                return &effect;
        return nullptr;
    }

    template <class Value>
    void put(Value& place, const Value& value, const std::string& step)
    {
        if (place == value)
            return; // The host lists no step without a change.
        place = value;
        steps.push_back(step);
    }

    void rename(const Items& layerItems, const Items& tree)
    {
        for (const ObjectItem& item : tree)
        {
            const ObjectItem* partner = partnerOf(item, layerItems);
            if (partner == nullptr || partner->name == item.name)
                continue;
            differed = true;
            if (ModelEffect* effect = find(item.uuid))
                put(effect->name, item.name, "Rename Effect(s)");
        }
    }

    void regroup(const Items& layerItems, const Items& tree)
    {
        for (const ObjectItem& item : tree)
        {
            const ObjectItem* partner = partnerOf(item, layerItems);
            if (partner == nullptr || partner->group == item.group)
                continue;
            differed = true;
            output += "Setting Group: " + item.name + "\n";
            ModelEffect* effect = find(item.uuid);
            if (effect != nullptr && !effect->rigid)
                put(effect->group, item.group == -1 ? 0 : item.group, "Change Group");
        }
    }

    void switchOnOrOff(const Items& layerItems, const Items& tree)
    {
        for (const ObjectItem& item : tree)
        {
            const ObjectItem* partner = partnerOf(item, layerItems);
            if (partner == nullptr || partner->active == item.active)
                continue;
            differed = true;
            const bool on = item.active != 0;
            if (ModelEffect* effect = find(item.uuid))
                put(effect->active, on, on ? "Switch Effect On" : "Switch Effect Off");
        }
    }

    void reorder(const Items& tree)
    {
        const std::string before = labels();
        std::vector<std::string> belief;
        for (const ModelEffect& effect : stack)
            belief.push_back(effect.uuid);
        for (int place = 0; place < static_cast<int>(tree.size()); ++place)
        {
            const std::string& uuid = tree[static_cast<std::size_t>(place)].uuid;
            const auto found = std::find(belief.begin(), belief.end(), uuid);
            if (uuid == zero || found == belief.end())
                continue;
            const int from = static_cast<int>(found - belief.begin());
            move(from, place);
            // Upwards the belief follows the move. Downwards it stops one short, or at the end of the stack.
            belief.erase(found);
            const int lands = from < place ? place - 1 : place;
            downward += from < place ? 1 : 0;
            belief.insert(belief.begin() + std::min(lands, static_cast<int>(belief.size())), uuid);
        }
        if (labels() != before)
            steps.push_back(differed ? "" : "Reorder Effect(s)");
    }

    void move(int from, int place)
    {
        const ModelEffect effect = stack.at(static_cast<std::size_t>(from));
        moves.push_back(effect.label + " to " + std::to_string(place));
        if (place >= static_cast<int>(stack.size()))
        {
            ++refused;
            return;
        }
        stack.erase(stack.begin() + from);
        stack.insert(stack.begin() + place, effect);
    }

    std::string labels() const
    {
        std::string text;
        for (const ModelEffect& effect : stack)
            text += effect.label + " ";
        return text;
    }
};

/// The lists of one walk.
class Dice
{
public:
    explicit Dice(unsigned seed) : source(seed) {}

    int Up(int limit) { return static_cast<int>(source() % static_cast<unsigned>(limit)); }
    bool Chance(int percent) { return Up(100) < percent; }

    std::string Labels()
    {
        std::string labels;
        const int count = Up(9);
        for (int i = 0; i < count; ++i)
            labels += (Chance(20) ? "X" : "A") + std::to_string(i) + " ";
        return labels;
    }

    void Shuffle(Items& items)
    {
        for (int i = static_cast<int>(items.size()) - 1; i > 0; --i)
            std::swap(items[static_cast<std::size_t>(i)], items[static_cast<std::size_t>(Up(i + 1))]);
    }

    void Edit(ObjectItem& item)
    {
        if (Chance(30))
            item.name = "name " + std::to_string(Up(4));
        if (Chance(30))
            item.group = Up(12) - 1;
        if (Chance(30))
            item.active = Up(3);
    }

private:
    std::mt19937 source;
};

void vary(LabelledStack& stack, Dice& dice)
{
    auto& effects = stack.host.State().FindLayer(stack.layerId)->effects;
    for (EffectInstance& effect : effects)
    {
        if (dice.Chance(15))
            effect.family.rigidity = Rigidity::rigid;
        else
            effect.family.group = static_cast<std::int16_t>(dice.Up(4));
        effect.flags = dice.Chance(25) ? 0 : effectActive;
        if (dice.Chance(8)) // Two effects with one identity.
            effect.family.uuid =
                effects[static_cast<std::size_t>(dice.Up(static_cast<int>(effects.size())))].family.uuid;
    }
}

Model modelOf(LabelledStack& stack)
{
    Model model;
    for (const EffectInstance& effect : stack.host.State().FindLayer(stack.layerId)->effects)
    {
        ModelEffect known;
        known.label = effect.label;
        known.uuid = effect.label[0] == 'X' ? std::string() : TextOf(effect.family.uuid);
        known.rigid = effect.family.rigidity == Rigidity::rigid;
        known.name = effect.customName.value();
        known.group = effect.family.group;
        known.active = effect.flags != 0;
        model.stack.push_back(known);
    }
    return model;
}

/// The layer's items as they were read a moment ago: mostly right.
Items staleItems(LabelledStack& stack, Dice& dice)
{
    Items items = stack.LayerItems();
    if (dice.Chance(30) && !items.empty())
        dice.Edit(items[static_cast<std::size_t>(dice.Up(static_cast<int>(items.size())))]);
    if (dice.Chance(10) && !items.empty())
        items.pop_back();
    return items;
}

Items randomTree(LabelledStack& stack, Dice& dice)
{
    Items tree;
    for (const ObjectItem& item : stack.LayerItems())
    {
        const bool isOutside = item.tag == "ADBE Fill";
        if (dice.Chance(isOutside ? 10 : 90))
            tree.push_back(item);
        if (dice.Chance(4))
            tree.push_back(item);
    }
    if (dice.Chance(20))
        tree.push_back(stack.Tree("?").front());
    if (dice.Chance(10))
        tree.push_back(stack.Tree("0").front());
    if (dice.Chance(70))
        dice.Shuffle(tree);
    for (ObjectItem& item : tree)
    {
        item.tag.clear();
        dice.Edit(item);
    }
    return tree;
}

/// The stack in the notation of LabelledStack.
std::string textOf(const Model& model)
{
    std::string text;
    for (const ModelEffect& effect : model.stack)
        text += (text.empty() ? "" : " ") + effect.label +
                (effect.name == effect.label ? "" : "=" + effect.name) +
                (effect.group == 0 ? "" : "@" + std::to_string(effect.group)) + (effect.active ? "" : "!");
    return text;
}

/// The moves that the trace shows, as the model writes them.
std::vector<std::string> movesOf(LabelledStack& stack)
{
    std::vector<std::string> moves;
    const std::string head = "Effect 1 AEGP_ReorderEffect(effect ";
    for (const CallRecord& record : stack.host.Trace().Records())
    {
        if (record.head.rfind(head, 0) != 0)
            continue;
        const std::string arguments = record.head.substr(head.size());
        const std::size_t comma = arguments.find(", ");
        moves.push_back(arguments.substr(0, comma) + " to " +
                        arguments.substr(comma + 2, arguments.size() - comma - 3));
    }
    return moves;
}

/// What the walks met, so that a walk that never comes to the odd places is seen.
struct Coverage
{
    int refused = 0;
    int downward = 0;
    int namelessSteps = 0;
    int namedOrders = 0;
};

void walk(unsigned seed, Coverage& coverage)
{
    SCOPED_TRACE("seed " + std::to_string(seed));
    Dice dice(seed);
    LabelledStack stack(dice.Labels());
    vary(stack, dice);
    const Items layerItems = staleItems(stack, dice);
    const Items tree = randomTree(stack, dice);
    Model model = modelOf(stack);
    const std::string before = stack.Stack();
    model.Apply(layerItems, tree);

    EXPECT_EQ(OutputOf([&] { EXPECT_EQ(stack.Change(layerItems, tree).thrown, ""); }), model.output);

    EXPECT_EQ(stack.Text(), textOf(model));
    EXPECT_EQ(movesOf(stack), model.moves);
    EXPECT_EQ(stack.host.UndoNames(), model.steps);
    std::vector<std::string> found(static_cast<std::size_t>(model.refused),
                                   "index-out-of-range AEGP_ReorderEffect");
    if (model.moves.empty())
        found.insert(found.begin(), "empty-undo-group AEGP_EndUndoGroup");
    EXPECT_EQ(stack.Found(), found);
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
    EXPECT_EQ(stack.Stack(), before);

    coverage.refused += model.refused;
    coverage.downward += model.downward;
    if (!model.steps.empty() && model.steps.back().empty())
        ++coverage.namelessSteps;
    if (!model.steps.empty() && model.steps.back() == "Reorder Effect(s)")
        ++coverage.namedOrders;
}
} // namespace

TEST(LayerEffectChangesModel, RandomTreesChangeTheLayerAsModelled)
{
    Coverage coverage;
    if (const char* seed = std::getenv("VORTAN_SEED"))
        return walk(static_cast<unsigned>(std::strtoul(seed, nullptr, 10)), coverage);
    constexpr unsigned firstSeed = 20240501;
    constexpr unsigned walks = 1500;
    std::printf("Seeds %u to %u; VORTAN_SEED=n repeats one.\n", firstSeed, firstSeed + walks - 1);
    for (unsigned seed = firstSeed; seed < firstSeed + walks && !::testing::Test::HasFailure(); ++seed)
        walk(seed, coverage);
    EXPECT_GT(coverage.refused, 20);
    EXPECT_GT(coverage.downward, 100);
    EXPECT_GT(coverage.namelessSteps, 200);
    EXPECT_GT(coverage.namedOrders, 20);
}
} // namespace standin
