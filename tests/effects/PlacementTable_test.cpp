#include "effects/EffectPlacement.h"
#include "tests/support/StackTest.h"

#include <cctype>
#include <ostream>

namespace standin
{
namespace
{
/// One effect added to one stack: the place that is worked out, and the stack with the effect really in it.
struct Cell
{
    const char* stack;
    const char* added; ///< Label of the effect that is added; see MatchNameOf.
    int index;
    const char* after;
};

void PrintTo(const Cell& cell, std::ostream* out) { *out << cell.added << " into \"" << cell.stack << "\""; }

constexpr Cell cells[] = {
    {"", "G", 0, "new"},
    {"", "E", 0, "new"},
    {"", "R", 0, "new"},
    {"", "M", 0, "new"},
    {"", "K", 0, "new"},
    {"G1 G2 E R M", "G", 2, "G1 G2 new E R M"},
    {"G1 G2 E R M", "E", 3, "G1 G2 E new R M"},
    {"G1 G2 E R M", "R", 4, "G1 G2 E R new M"},
    {"G1 G2 E R M", "M", 5, "G1 G2 E R M new"},
    {"G1 G2 E R M", "K", 0, "new G1 G2 E R M"},
    {"R M", "G", 0, "new R M"},
    {"R M", "E", 0, "new R M"},
    {"R M", "R", 1, "R new M"},
    {"R M", "M", 2, "R M new"},
    {"R M", "K", 0, "new R M"},
    {"E M", "G", 0, "new E M"},
    {"E M", "E", 1, "E new M"},
    {"E M", "R", 1, "E new M"},
    {"E M", "M", 2, "E M new"},
    {"E M", "K", 0, "new E M"},
    {"G M", "G", 1, "G new M"},
    {"G M", "E", 1, "G new M"},
    {"G M", "R", 1, "G new M"},
    {"G M", "M", 2, "G M new"},
    {"G M", "K", 0, "new G M"},
    {"M", "G", 0, "new M"},
    {"M", "E", 0, "new M"},
    {"M", "R", 0, "new M"},
    {"M", "M", 1, "M new"},
    {"M", "K", 0, "new M"},
    {"X M", "G", 1, "X new M"},
    {"X M", "E", 1, "X new M"},
    {"X M", "R", 1, "X new M"},
    {"X M", "M", 2, "X M new"},
    {"X M", "K", 0, "new X M"},
    {"X", "G", 0, "new X"},
    {"X", "E", 0, "new X"},
    {"X", "R", 0, "new X"},
    {"X", "M", 1, "X new"},
    {"X", "K", 0, "new X"},
    {"K", "G", 0, "new K"},
    {"K", "E", 0, "new K"},
    {"K", "R", 0, "new K"},
    {"K", "M", 1, "K new"},
    {"K", "K", 0, "new K"},
    {"K M", "G", 1, "K new M"},
    {"K M", "E", 1, "K new M"},
    {"K M", "R", 1, "K new M"},
    {"K M", "M", 2, "K M new"},
    {"K M", "K", 0, "new K M"},
    {"G1 R G2", "G", 3, "G1 R G2 new"},
    {"G1 R G2", "E", 1, "G1 new R G2"},
    {"G1 R G2", "R", 2, "G1 R new G2"},
    {"G1 R G2", "M", 3, "G1 R G2 new"},
    {"G1 R G2", "K", 0, "new G1 R G2"},
    // Without a main effect an object goes to the top only where no other kind tells it its place, and then
    // also above kinds that belong above it.
    {"X R", "G", 1, "X new R"},
    {"X R", "E", 1, "X new R"},
    {"X R", "R", 2, "X R new"},
    {"X G", "G", 2, "X G new"},
    {"X G", "E", 0, "new X G"},
    {"X G", "R", 0, "new X G"},
    {"G", "R", 0, "new G"},
    {"G E", "R", 0, "new G E"},
    // Two main effects: the upper one anchors, and a third goes to the end.
    {"X M1 X2 M2", "G", 1, "X new M1 X2 M2"},
    {"X M1 X2 M2", "R", 1, "X new M1 X2 M2"},
    {"M1 M2", "M", 2, "M1 M2 new"},
    // The legacy effect anchors nothing, and is itself placed like a main effect.
    {"X L", "G", 0, "new X L"},
    {"X L", "R", 0, "new X L"},
    {"X L M", "R", 2, "X L new M"},
    {"G R M", "L", 3, "G R M new"},
    {"", "L", 0, "new"},
    // An effect from outside the family goes where the uppermost of the objects' slots is.
    {"", "X", 0, "new"},
    {"G1 G2 E R M", "X", 2, "G1 G2 new E R M"},
    {"R M", "X", 0, "new R M"},
    {"G M", "X", 1, "G new M"},
    {"X M", "X2", 1, "X new M"},
    {"G1 R G2", "X", 1, "G1 new R G2"},
    {"K M", "X", 1, "K new M"},
    {"R G", "X", 0, "new R G"},
    {"R E G", "X", 1, "R new E G"},
    {"R G E", "X", 1, "R new G E"},
    {"E R G", "X", 1, "E new R G"},
    // A stack that is out of order stays out of order.
    {"M R E G", "G", 4, "M R E G new"},
    {"M R E G", "E", 3, "M R E new G"},
    {"M R E G", "R", 2, "M R new E G"},
    {"M G", "R", 0, "new M G"},
    {"E1 G R E2 M", "E", 4, "E1 G R E2 new M"},
    {"E1 G R E2 M", "R", 3, "E1 G R new E2 M"},
    {"R1 G R2 M", "E", 0, "new R1 G R2 M"},
};

class Placement : public StackTest, public ::testing::WithParamInterface<Cell>
{
};

std::string nameOf(const ::testing::TestParamInfo<Cell>& info)
{
    std::string name = std::string(info.param.added) + "Into";
    for (const char* letter = info.param.stack; *letter != '\0'; ++letter)
    {
        if (std::isspace(static_cast<unsigned char>(*letter)) == 0)
            name += *letter;
    }
    return *info.param.stack == '\0' ? name + "Nothing" : name;
}
} // namespace

TEST_P(Placement, IsWorkedOutAndChangesNothing)
{
    const Cell& cell = GetParam();
    LabelledStack& product = Make(cell.stack);
    const ProjectState before = product.host.State();
    const int index = product.InHook(
        [&]
        {
            return GetIndexOfNewEffectToLayer(product.Id(), product.Basic(), product.KeyOf(cell.added),
                                              product.Layer(), Idle_Cmd_Apply);
        });
    EXPECT_EQ(index, cell.index);
    EXPECT_EQ(product.host.State(), before);
    EXPECT_THAT(product.host.UndoNames(), ::testing::IsEmpty());
}

TEST_P(Placement, IsTheFinalIndexInTheStack)
{
    const Cell& cell = GetParam();
    for (const ApplyPlace place : {ApplyPlace::end, ApplyPlace::afterSelected, ApplyPlace::start})
    {
        SCOPED_TRACE(static_cast<int>(place));
        HostOptions options;
        options.applyPlace = place;
        LabelledStack& product = Make(cell.stack, options);
        const ProjectState before = product.host.State();
        if (*cell.stack != '\0')
            product.host.User().SelectEffect(before.layers.front().effects.front().label);
        const A_long key = product.KeyOf(cell.added);
        EXPECT_EQ(
            product.InHook(
                [&]
                { return ApplyEffectToLayerIdleFn(product.Id(), product.Basic(), key, product.Layer()); }),
            0);
        product.LabelNewEffects();
        EXPECT_EQ(product.Stack(), cell.after);
        EXPECT_EQ(product.host.Effect("new").key, key);
        while (product.host.Undo())
        {
        }
        EXPECT_EQ(product.host.State(), before);
        product.host.CheckSuiteBalance();
        EXPECT_EQ(product.host.FindingsReport(), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Of, Placement, ::testing::ValuesIn(cells), nameOf);
} // namespace standin
