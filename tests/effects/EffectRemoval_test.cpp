#include "effects/EffectRemoval.h"

#include "standin/host/family/Liars.h"
#include "tests/support/StackTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
namespace
{
using Texts = std::vector<std::string>;

class EffectRemoval : public StackTest
{
protected:
    int RemoveUuids(const Texts& uuids)
    {
        return scene->InHook(
            [&] { return RemoveMultipleEffectsByUUID(scene->Id(), scene->Basic(), uuids, scene->Layer()); });
    }

    /// Removes the effects with these labels; gives the labels of the stack then.
    std::string Remove(const std::string& labels)
    {
        Texts uuids;
        for (const std::string& label : Words(labels))
            uuids.push_back(label == "?"   ? "ffffffff-ffff-ffff-ffff-ffffffffffff"
                            : label == "0" ? zeroUuid
                                           : scene->Uuid(label));
        EXPECT_EQ(RemoveUuids(uuids), 0);
        return scene->Stack();
    }

    /// Undo brings back `before`, and it was one step.
    void ExpectOneUndoStepTo(const ProjectState& before)
    {
        EXPECT_EQ(scene->Steps(), "[Delete Effect(s)]");
        EXPECT_TRUE(scene->host.Undo());
        EXPECT_EQ(scene->host.State(), before);
        EXPECT_EQ(scene->Steps(), "");
    }

    void ExpectNothingHappened(const ProjectState& before)
    {
        EXPECT_EQ(scene->host.State(), before);
        EXPECT_EQ(scene->Steps(), "");
        EXPECT_THAT(scene->Sweep(), IsEmpty());
    }
};
} // namespace

// The calls.

TEST_F(EffectRemoval, EmptyListMakesNoCall)
{
    LabelledStack& stack = Make("A B");
    EXPECT_EQ(Remove(""), "A B");
    EXPECT_EQ(RemoveMultipleEffectsByUUID(stack.Id(), nullptr, {}, nullptr), 0);
    EXPECT_THAT(stack.host.CallTexts(), IsEmpty());
}

TEST_F(EffectRemoval, ReadsThenMovesToTheTopThenDeletes)
{
    const ProjectState before = Make("A X B").host.State();
    EXPECT_EQ(Remove("B"), "A X");
    EXPECT_THAT(
        scene->host.CallTexts(),
        ElementsAre(
            "Basic AcquireSuite(\"AEGP Effect Suite\", 1)", "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3",
            "Basic AcquireSuite(\"AEGP Layer Suite\", 5)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
            "Effect 1 AEGP_GetEffectFlags(effect A) -> 1", "Basic AcquireSuite(\"AEGP Effect Suite\", 3)",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 0/100, 17, VORT 5 uuid "
            "00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001",
            "Effect 3 AEGP_DisposeEffect(effect A)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect X",
            "Effect 1 AEGP_GetEffectFlags(effect X) -> 1",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect X, time 0/100, 17, VORT 5 uuid "
            "00000000-0000-0000-0000-000000000000) -> uuid 00000000-0000-0000-0000-000000000000",
            "Effect 3 AEGP_DisposeEffect(effect X)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect B",
            "Effect 1 AEGP_GetEffectFlags(effect B) -> 1",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect B, time 0/100, 17, VORT 5 uuid "
            "00000000-0000-0000-0000-000000000000) -> uuid 02020202-0202-0202-0202-020200000002",
            "Effect 3 AEGP_DisposeEffect(effect B)", "Basic AcquireSuite(\"AEGP Utility Suite\", 3)",
            "Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")",
            "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect B",
            "Effect 3 AEGP_ReorderEffect(effect B, 0)", "Effect 3 AEGP_DisposeEffect(effect B)",
            "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect B",
            "Effect 3 AEGP_DeleteLayerEffect(effect B)", "Effect 3 AEGP_DisposeEffect(effect B)",
            "Utility 3 AEGP_EndUndoGroup()", "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
            "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)", "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)",
            "Basic ReleaseSuite(\"AEGP Utility Suite\", 3)"));
    ExpectOneUndoStepTo(before);
}

struct CallsRow
{
    const char* test;
    const char* removed;
    const char* after;
    const char* calls; ///< See TracedStack::Delete.
};

class RemovalCalls : public EffectRemoval, public ::testing::WithParamInterface<CallsRow>
{
};

TEST_P(RemovalCalls, OfFiveEffects)
{
    const TracedStack traced = Make("A B C D E").Traced();
    const ProjectState before = scene->host.State();
    EXPECT_EQ(Remove(GetParam().removed), GetParam().after);
    EXPECT_EQ(scene->Sweep(), traced.Delete(GetParam().calls));
    ExpectOneUndoStepTo(before);
    EXPECT_EQ(scene->Stack(), "A B C D E");
}

INSTANTIATE_TEST_SUITE_P(Of, RemovalCalls,
                         ::testing::Values(CallsRow{"ThirdAndFifthOfFiveGo", "C E", "A B D", "C 2>0 E 4>1"},
                                           CallsRow{"MovesIgnoreTheOrderOfTheList", "E A C", "B D",
                                                    "A 0>0 C 2>1 E 4>2"},
                                           CallsRow{"AllEffectsAreTakenFromTheTop", "A B C D E", "",
                                                    "A 0>0 B 1>1 C 2>2 D 3>3 E 4>4"}),
                         [](const auto& row) { return row.param.test; });

TEST_F(EffectRemoval, LeavesTheOtherEffectsAsTheyWere)
{
    LabelledStack& stack = Make("A B C D");
    stack.host.Effect("A").customName = "First";
    stack.host.Effect("A").family.group = 3;
    stack.host.Effect("C").flags = 0;
    stack.host.Effect("C").groupHidden = true;
    stack.host.Effect("B").customName = "Doomed";
    stack.host.Effect("B").family.group = 7;
    const ProjectState before = stack.host.State();
    EXPECT_EQ(Remove("B D"), "A C");
    EXPECT_EQ(stack.Text(), "A=First@3 C!~");
    const std::vector<EffectInstance>& old = before.FindLayer(stack.layerId)->effects;
    EXPECT_THAT(stack.host.State().FindLayer(stack.layerId)->effects, ElementsAre(old[0], old[2]));
    ExpectOneUndoStepTo(before);
    EXPECT_EQ(stack.host.NameOf("B"), "Doomed");
}

TEST_F(EffectRemoval, TouchesNoOtherLayer)
{
    LabelledStack& stack = Make("A B");
    const int other = stack.host.AddLayer(stack.compId, "Layer 2");
    (void)stack.host.AddEffect(other, "QVK VORTSRC Lamps", "C");
    stack.host.Effect("C").family.uuid = stack.host.Effect("A").family.uuid;
    EXPECT_EQ(Remove("A"), "B");
    EXPECT_EQ(stack.host.StackText(other), "C");
}

// What is found.

TEST_F(EffectRemoval, UnknownUuidsOpenNoUndoGroup)
{
    const TracedStack traced = Make("A B").Traced();
    const ProjectState before = scene->host.State();
    EXPECT_EQ(RemoveUuids({"ffffffff-ffff-ffff-ffff-ffffffffffff", "", "A"}), 0);
    ExpectNothingHappened(before);
    ExpectCalls(traced.ReadIdentities());
}

TEST_F(EffectRemoval, UuidIsComparedWholeAndWithCase)
{
    Make("A").host.Effect("A").family.uuid = IdentityOf(0xab);
    const ProjectState before = scene->host.State();
    EXPECT_EQ(RemoveUuids({"ABABABAB-ABAB-ABAB-ABAB-ABABABABABAB", "abababab-abab-abab-abab-abababababa",
                           "abababab-abab-abab-abab-ababababababa"}),
              0);
    ExpectNothingHappened(before);
    EXPECT_EQ(RemoveUuids({"abababab-abab-abab-abab-abababababab"}), 0);
    EXPECT_EQ(scene->Stack(), "");
}

TEST_F(EffectRemoval, EmptyLayerHasNothingToDelete)
{
    (void)Make("");
    EXPECT_EQ(Remove("0"), "");
    EXPECT_THAT(scene->CallList(), ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0"));
}

namespace
{
struct FoundRow
{
    const char* test;
    const char* stack;
    const char* removed; ///< "0" is the zero identity, "?" an unknown one.
    const char* after;
    std::function<void(Host&)> prepare = [](Host&) {};
};

std::function<void(Host&)> behaves(const char* label, const std::shared_ptr<const Behaviour>& behaviour)
{
    return [=](Host& host) { host.Effect(label).behaviour = behaviour; };
}

class RemovalFinds : public EffectRemoval, public ::testing::WithParamInterface<FoundRow>
{
};
} // namespace

TEST_P(RemovalFinds, TheseEffects)
{
    GetParam().prepare(Make(GetParam().stack).host);
    EXPECT_EQ(Remove(GetParam().removed), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    If, RemovalFinds,
    ::testing::Values(FoundRow{"UnknownUuidsAreSkipped", "A B C", "? B ?", "A C"},
                      FoundRow{"UuidGivenTwiceDeletesOneEffect", "A B C", "B C B", "A"},
                      FoundRow{"OnlyOneUuidIsGivenTwice", "A B C", "B B", "A C"},
                      FoundRow{"OneTwinGoesEvenIfAskedTwice", "A B C", "B B", "A C",
                               [](Host& host) {
                                   host.Effect("C").behaviour = RepeatsIdentity(host.Effect("B").family.uuid);
                               }},
                      FoundRow{"ZeroIdentityTakesTheFirstOutsider", "A X1 B X2", "0", "A B X2"},
                      FoundRow{"EffectThatGivesAnErrorIsNotFound", "A B C", "B C", "A B",
                               behaves("B", FailsWith(4))},
                      FoundRow{"UninstalledEffectIsNotFound", "A B C", "B C", "A B",
                               [](Host& host) { host.Effect("B").flags = effectMissing; }},
                      FoundRow{"EffectThatThrowsIsNotFound", "A B C", "B C", "A B", behaves("B", Throws(99))},
                      FoundRow{"EffectThatAnswersWithAnErrorIsDeleted", "A B C", "B C", "A",
                               behaves("B", AnswersAndFailsWith(4))},
                      FoundRow{"ScribblingEffectSpoilsOnlyItsOwnAnswer", "A B C", "A B C", "A",
                               [](Host& host)
                               {
                                   host.Effect("A").behaviour = ScribblesAll();
                                   host.Effect("B").behaviour = ScribblesReserved();
                               }},
                      // The place of B is known by then, and is A's from here on.
                      FoundRow{"ReorderInsideAMessageDeletesAnotherEffect", "A B C", "B", "C B",
                               behaves("C", ActsInMessage([](Host& host) { host.User().Reorder("C", 0); }))}),
    [](const auto& row) { return row.param.test; });

TEST_F(EffectRemoval, UpperOfTwoTwinsGoes)
{
    LabelledStack& stack = Make("A B C");
    stack.host.Effect("C").family.uuid = stack.host.Effect("B").family.uuid;
    EXPECT_EQ(Remove("C"), "A C");
    EXPECT_EQ(Remove("C"), "A");
}

TEST_F(EffectRemoval, EffectThatDoesNotAnswerIsNotFound)
{
    Make("A B C").host.Effect("B").behaviour = AnswersLate(1);
    EXPECT_EQ(Remove("B C"), "A B");
    EXPECT_EQ(Remove("B"), "A");
}

TEST_F(EffectRemoval, VanishingEffectDragsNoOtherWithIt)
{
    Make("A B C").host.Effect("A").behaviour = ActsInMessage([](Host& host) { host.User().Delete("C"); });
    EXPECT_EQ(Remove("C"), "A B");
    EXPECT_THAT(scene->Sweep(), IsEmpty());
}

// Switches of the host.

TEST_F(EffectRemoval, StrictHostDeletesAsWell)
{
    HostOptions options;
    options.disposeDeleted = DisposeDeleted::isRefused;
    const ProjectState before = Make("A B C", options).host.State();
    EXPECT_EQ(Remove("A C"), "B");
    ExpectOneUndoStepTo(before);
}

TEST_F(EffectRemoval, EffectWithoutIdentityGoesAsAnOutsider)
{
    HostOptions options;
    options.identityBirth = IdentityBirth::atNextIdle;
    LabelledStack& stack = Make("A", options);
    stack.host.Effect("A").family.uuid = IdentityOf(1);
    (void)stack.host.User().Apply(stack.layerId, "QVK VORTSRC Lamps");
    EXPECT_EQ(Remove("0"), "A");
}
} // namespace standin
