// Reading a layer whose effects do not behave.

#include "effects/LayerItems.h"

#include "tests/effects/ReadFixture.h"

namespace standin
{
namespace
{
using Prepare = std::function<void(Host&)>;

/// What the reads of A E R, which are in the groups 1, 2 and 3, give one after the other.
struct LiarRow
{
    const char* test;
    Prepare prepare;
    std::vector<std::string> reads;
    const char* stack = "A E R";
};

Prepare behaves(const char* label, const std::shared_ptr<const Behaviour>& behaviour)
{
    return [=](Host& host) { host.Effect(label).behaviour = behaviour; };
}

/// The effect does this inside its nth message.
Prepare acts(const char* label, std::function<void(Host&)> action, int nth = 1)
{
    return behaves(label, ActsInMessage(std::move(action), nth));
}

void expectShorterStack(Host& host)
{
    host.Expect("index-out-of-range", "AEGP_GetLayerEffectByIndex",
                "the stack has become shorter than it was when it was counted");
}

const std::string sound = "A@1 E@2 R@3";
const std::string jitter = "#QVK VORTEFF Jitter";
const std::string dots = "#QVK VORTREN Dots";

class ItemsOfLiars : public ReadTest, public ::testing::WithParamInterface<LiarRow>
{
};

TEST_P(ItemsOfLiars, AreThese)
{
    LabelledStack& stack = MakeInGroups("A E R");
    GetParam().prepare(stack.host);
    for (const std::string& expected : GetParam().reads)
        EXPECT_EQ(stack.Text(Read(stack).items), expected);
    EXPECT_EQ(stack.Stack(), GetParam().stack);
}

const LiarRow rows[] = {
    {"OfALateEffectGetTheirGroupLater", behaves("E", AnswersLate(1)), {"A@1 E@-1 R@3", sound}},
    {"OfAnUnfinishedEffectLookLikeAnOutsiders",
     behaves("E", AnswersLate(2)),
     {"A@1 0=E@-1" + jitter + " R@3", sound}},
    {"OfAFailingEffectLookLikeAnOutsiders", behaves("E", FailsWith(4)), {"A@1 0=E@-1" + jitter + " R@3"}},
    {"OfAThrowingEffectLookLikeAnOutsiders", behaves("E", Throws(13)), {"A@1 0=E@-1" + jitter + " R@3"}},
    {"TakeAnAnswerThatComesWithAnError", behaves("A", AnswersAndFailsWith(4)), {sound}},
    {"DoNotMindScribblesInTheReservedBytes", behaves("A", ScribblesReserved()), {sound}},
    {"TakeScribblesInTheAnswerForTheAnswer",
     behaves("E", ScribblesAll()),
     {"A@1 a5a5a5a5-a5a5-a5a5-a5a5-a5a5a5a5a5a5=E@-23131" + jitter + " R@3"}},
    {"RepeatAnIdentityThatTwoEffectsBear",
     [](Host& host) { host.Effect("R").behaviour = RepeatsIdentity(host.Effect("A").family.uuid); },
     {"A@1 E@2 A=R@3" + dots}},
    {"OfAnUninstalledEffectHaveNoIdentity",
     [](Host& host) { host.Effect("E").flags = effectActive | effectMissing; },
     {"A@1 0=E@-1" + jitter + " R@3"}},

    // The stack changes inside a message. Each part of an item is what stood at its index when it was asked.
    {"KeepTheirNumberAfterADeletionInside",
     [](Host& host)
     {
         expectShorterStack(host);
         acts("A", [](Host& inside) { inside.User().Delete("R"); })(host);
     },
     {"A@1 E@2 0=E@-1!" + jitter},
     "A E"},
    {"KeepTheirNumberAfterASelfDeletionInside",
     [](Host& host)
     {
         expectShorterStack(host);
         acts("A", [](Host& inside) { inside.User().Delete("A"); })(host);
     },
     {"E@1 R@3 0=R@-1!" + dots},
     "E R"},
    {"DoNotGrowAfterAnAddInside",
     acts("R", [](Host& inside) { inside.User().Apply(1, "ADBE Fill"); }),
     {sound, sound + " 0=Fill@-1#ADBE Fill"},
     "A E R e4"},
    // The fourth message of the read is the first one about an identity.
    {"AreMixedAfterAReorderBetweenQuestions",
     acts(
         "A", [](Host& inside) { inside.User().Reorder("R", 0); }, 2),
     {"A=R@1" + dots + " A@2 E@3"},
     "R A E"},
};

INSTANTIATE_TEST_SUITE_P(LayerItems, ItemsOfLiars, ::testing::ValuesIn(rows),
                         [](const auto& row) { return row.param.test; });

TEST(LayerItemsOfLiars, OfANewEffectHaveAZeroIdentity)
{
    HostOptions options;
    options.identityBirth = IdentityBirth::atNextIdle;
    LabelledStack stack("", options);
    (void)stack.host.User().Apply(stack.layerId, "QVK VORTSRC Lamps");
    EXPECT_EQ(stack.Text(Read(stack).items), "0=Vortan Sheets Object#QVK VORTSRC Lamps");
    (void)stack.host.RunIdle();
    EXPECT_EQ(stack.Text(Read(stack).items), "e1=Vortan Sheets Object");
}
} // namespace
} // namespace standin
