#include "effects/EffectRemoval.h"

#include "effects/ObjectItem.h"
#include "standin/family/Liars.h"
#include "tests/effects/LabelledStack.h"

#include <algorithm>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace standin
{
namespace
{
using Texts = std::vector<std::string>;

class EffectRemoval : public LabelledStackTest
{
protected:
    int RemoveUuids(const Texts& uuids)
    {
        return on->InHook([&]
                          { return RemoveMultipleEffectsByUUID(on->Id(), on->Basic(), uuids, on->Layer()); });
    }

    int Remove(const Texts& labels)
    {
        Texts uuids;
        for (const std::string& label : labels)
            uuids.push_back(on->Uuid(label));
        return RemoveUuids(uuids);
    }

    /// The calls behind the reading of the identities.
    Texts Sweeps() const
    {
        const Texts calls = on->host.CallTexts(SuiteTraffic::leftOut);
        const auto start =
            std::find(calls.begin(), calls.end(), "Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")");
        return {start, calls.end()};
    }

    /// Undo brings back `before`, and it was one step.
    void ExpectOneUndoStepTo(const ProjectState& before)
    {
        EXPECT_THAT(on->host.UndoNames(), ElementsAre("Delete Effect(s)"));
        EXPECT_TRUE(on->host.Undo());
        EXPECT_EQ(on->host.State(), before);
        EXPECT_THAT(on->host.UndoNames(), IsEmpty());
    }

    void ExpectNothingHappened(const ProjectState& before)
    {
        EXPECT_EQ(on->host.State(), before);
        EXPECT_THAT(on->host.UndoNames(), IsEmpty());
        EXPECT_THAT(Sweeps(), IsEmpty());
    }
};
} // namespace

// The calls.

TEST_F(EffectRemoval, EmptyListMakesNoCall)
{
    Build("A B");
    EXPECT_EQ(RemoveUuids({}), 0);
    EXPECT_EQ(RemoveMultipleEffectsByUUID(on->Id(), nullptr, {}, nullptr), 0);
    EXPECT_THAT(on->host.CallTexts(), IsEmpty());
    EXPECT_EQ(on->Stack(), "A B");
}

TEST_F(EffectRemoval, ReadsThenMovesToTheTopThenDeletes)
{
    Build("A X B");
    const ProjectState before = on->host.State();
    EXPECT_EQ(Remove({"B"}), 0);
    EXPECT_EQ(on->Stack(), "A X");
    EXPECT_THAT(
        on->host.CallTexts(),
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

TEST_F(EffectRemoval, ThirdAndFifthOfFiveGo)
{
    Build("A B C D E");
    const ProjectState before = on->host.State();
    EXPECT_EQ(Remove({"C", "E"}), 0);
    EXPECT_EQ(on->Stack(), "A B D");
    EXPECT_THAT(
        Sweeps(),
        ElementsAre("Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")",
                    "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 2) -> effect C",
                    "Effect 3 AEGP_ReorderEffect(effect C, 0)", "Effect 3 AEGP_DisposeEffect(effect C)",
                    "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 4) -> effect E",
                    "Effect 3 AEGP_ReorderEffect(effect E, 1)", "Effect 3 AEGP_DisposeEffect(effect E)",
                    "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect C",
                    "Effect 3 AEGP_DeleteLayerEffect(effect C)", "Effect 3 AEGP_DisposeEffect(effect C)",
                    "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect E",
                    "Effect 3 AEGP_DeleteLayerEffect(effect E)", "Effect 3 AEGP_DisposeEffect(effect E)",
                    "Utility 3 AEGP_EndUndoGroup()"));
    ExpectOneUndoStepTo(before);
    EXPECT_EQ(on->Stack(), "A B C D E");
}

TEST_F(EffectRemoval, MovesIgnoreTheOrderOfTheList)
{
    Build("A B C D E");
    EXPECT_EQ(Remove({"E", "A", "C"}), 0);
    EXPECT_EQ(on->Stack(), "B D");
    const Texts calls = Sweeps();
    Build("A B C D E");
    EXPECT_EQ(Remove({"A", "C", "E"}), 0);
    EXPECT_EQ(on->Stack(), "B D");
    EXPECT_EQ(Sweeps(), calls);
    ASSERT_EQ(calls.size(), 20u);
    EXPECT_EQ(calls[2], "Effect 3 AEGP_ReorderEffect(effect A, 0)");
    EXPECT_EQ(calls[5], "Effect 3 AEGP_ReorderEffect(effect C, 1)");
    EXPECT_EQ(calls[8], "Effect 3 AEGP_ReorderEffect(effect E, 2)");
}

TEST_F(EffectRemoval, AllEffectsAreTakenFromTheTop)
{
    Build("A B C");
    const ProjectState before = on->host.State();
    EXPECT_EQ(Remove({"A", "B", "C"}), 0);
    EXPECT_EQ(on->Stack(), "");
    const Texts calls = Sweeps();
    ASSERT_EQ(calls.size(), 20u);
    EXPECT_EQ(calls[10], "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A");
    EXPECT_EQ(calls[13], "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect B");
    EXPECT_EQ(calls[16], "Effect 3 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect C");
    ExpectOneUndoStepTo(before);
}

TEST_F(EffectRemoval, LeavesTheOtherEffectsAsTheyWere)
{
    Build("A B C D");
    on->host.Effect("A").customName = "First";
    on->host.Effect("A").family.group = 3;
    on->host.Effect("C").flags = 0;
    on->host.Effect("C").groupHidden = true;
    on->host.Effect("B").customName = "Doomed";
    on->host.Effect("B").family.group = 7;
    const ProjectState before = on->host.State();
    EXPECT_EQ(Remove({"B", "D"}), 0);
    const std::vector<EffectInstance>& left = on->host.State().FindLayer(on->layerId)->effects;
    const std::vector<EffectInstance>& old = before.FindLayer(on->layerId)->effects;
    EXPECT_THAT(left, ElementsAre(old[0], old[2]));
    ExpectOneUndoStepTo(before);
    EXPECT_EQ(on->host.NameOf("B"), "Doomed");
}

TEST_F(EffectRemoval, TouchesNoOtherLayer)
{
    Build("A B");
    const int other = on->host.AddLayer(on->compId, "Layer 2");
    (void)on->host.AddEffect(other, "QVK VORTSRC Lamps", "C");
    on->host.Effect("C").family.uuid = on->host.Effect("A").family.uuid;
    EXPECT_EQ(Remove({"A"}), 0);
    EXPECT_EQ(on->Stack(), "B");
    EXPECT_EQ(on->host.StackText(other), "C");
}

// What is found.

TEST_F(EffectRemoval, UnknownUuidsOpenNoUndoGroup)
{
    Build("A B");
    const ProjectState before = on->host.State();
    EXPECT_EQ(RemoveUuids({"ffffffff-ffff-ffff-ffff-ffffffffffff", "", "A"}), 0);
    ExpectNothingHappened(before);
    const Texts calls = on->host.CallTexts(SuiteTraffic::leftOut);
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const std::string& call)
                            { return call.find("AEGP_EffectCallGeneric") != std::string::npos; }),
              2)
        << "the identities are read";
}

TEST_F(EffectRemoval, UnknownUuidsAreSkipped)
{
    Build("A B C");
    EXPECT_EQ(RemoveUuids({"ffffffff-ffff-ffff-ffff-ffffffffffff", on->Uuid("B"), "nobody"}), 0);
    EXPECT_EQ(on->Stack(), "A C");
}

TEST_F(EffectRemoval, UuidIsComparedWholeAndWithCase)
{
    Build("A");
    on->host.Effect("A").family.uuid = IdentityOf(0xab);
    const ProjectState before = on->host.State();
    EXPECT_EQ(RemoveUuids({"ABABABAB-ABAB-ABAB-ABAB-ABABABABABAB", "abababab-abab-abab-abab-abababababa",
                           "abababab-abab-abab-abab-ababababababa"}),
              0);
    ExpectNothingHappened(before);
    EXPECT_EQ(RemoveUuids({"abababab-abab-abab-abab-abababababab"}), 0);
    EXPECT_EQ(on->Stack(), "");
}

TEST_F(EffectRemoval, EmptyLayerHasNothingToDelete)
{
    Build("");
    EXPECT_EQ(RemoveUuids({ZERO_UUID_TEXT}), 0);
    EXPECT_THAT(on->host.CallTexts(SuiteTraffic::leftOut),
                ElementsAre("Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0"));
}

TEST_F(EffectRemoval, UuidGivenTwiceDeletesOneEffect)
{
    Build("A B C");
    EXPECT_EQ(Remove({"B", "C", "B"}), 0);
    EXPECT_EQ(on->Stack(), "A");
    Build("A B C");
    EXPECT_EQ(Remove({"B", "B"}), 0);
    EXPECT_EQ(on->Stack(), "A C");
}

TEST_F(EffectRemoval, UpperOfTwoTwinsGoes)
{
    Build("A B C");
    on->host.Effect("C").family.uuid = on->host.Effect("B").family.uuid;
    EXPECT_EQ(Remove({"C"}), 0);
    EXPECT_EQ(on->Stack(), "A C");
    EXPECT_EQ(Remove({"C"}), 0);
    EXPECT_EQ(on->Stack(), "A");
}

TEST_F(EffectRemoval, OneTwinGoesEvenIfAskedTwice)
{
    Build("A B C");
    on->host.Effect("C").behaviour = RepeatsIdentity(on->host.Effect("B").family.uuid);
    EXPECT_EQ(Remove({"B", "B"}), 0);
    EXPECT_EQ(on->Stack(), "A C");
}

TEST_F(EffectRemoval, ZeroIdentityTakesTheFirstOutsider)
{
    Build("A X1 B X2");
    EXPECT_EQ(RemoveUuids({ZERO_UUID_TEXT}), 0);
    EXPECT_EQ(on->Stack(), "A B X2");
}

TEST_F(EffectRemoval, EffectThatDoesNotAnswerIsNotFound)
{
    Build("A B C");
    on->host.Effect("B").behaviour = AnswersLate(1);
    EXPECT_EQ(Remove({"B", "C"}), 0);
    EXPECT_EQ(on->Stack(), "A B");
    EXPECT_EQ(Remove({"B"}), 0);
    EXPECT_EQ(on->Stack(), "A");
}

TEST_F(EffectRemoval, EffectThatGivesAnErrorIsNotFound)
{
    Build("A B C");
    on->host.Effect("B").behaviour = FailsWith(4);
    EXPECT_EQ(Remove({"B", "C"}), 0);
    EXPECT_EQ(on->Stack(), "A B");
}

TEST_F(EffectRemoval, UninstalledEffectIsNotFound)
{
    Build("A B C");
    on->host.Effect("B").flags = effectMissing;
    EXPECT_EQ(Remove({"B", "C"}), 0);
    EXPECT_EQ(on->Stack(), "A B");
}

TEST_F(EffectRemoval, EffectThatThrowsIsNotFound)
{
    Build("A B C");
    on->host.Effect("B").behaviour = Throws(99);
    EXPECT_EQ(Remove({"B", "C"}), 0);
    EXPECT_EQ(on->Stack(), "A B");
}

TEST_F(EffectRemoval, EffectThatAnswersWithAnErrorIsDeleted)
{
    Build("A B C");
    on->host.Effect("B").behaviour = AnswersAndFailsWith(4);
    EXPECT_EQ(Remove({"B", "C"}), 0);
    EXPECT_EQ(on->Stack(), "A");
}

TEST_F(EffectRemoval, ScribblingEffectSpoilsOnlyItsOwnAnswer)
{
    Build("A B C");
    on->host.Effect("A").behaviour = ScribblesAll();
    on->host.Effect("B").behaviour = ScribblesReserved();
    EXPECT_EQ(Remove({"A", "B", "C"}), 0);
    EXPECT_EQ(on->Stack(), "A");
}

TEST_F(EffectRemoval, VanishingEffectDragsNoOtherWithIt)
{
    Build("A B C");
    on->host.Effect("A").behaviour = ActsInMessage([](Host& host) { host.User().Delete("C"); });
    EXPECT_EQ(Remove({"C"}), 0);
    EXPECT_EQ(on->Stack(), "A B");
    EXPECT_THAT(Sweeps(), IsEmpty());
}

// Switches of the host.

TEST_F(EffectRemoval, StrictHostDeletesAsWell)
{
    HostOptions options;
    options.disposeDeleted = DisposeDeleted::isRefused;
    Build("A B C", options);
    const ProjectState before = on->host.State();
    EXPECT_EQ(Remove({"A", "C"}), 0);
    EXPECT_EQ(on->Stack(), "B");
    ExpectOneUndoStepTo(before);
}

TEST_F(EffectRemoval, EffectWithoutIdentityGoesAsAnOutsider)
{
    HostOptions options;
    options.identityBirth = IdentityBirth::atNextIdle;
    Build("A", options);
    on->host.Effect("A").family.uuid = IdentityOf(1);
    (void)on->host.User().Apply(on->layerId, "QVK VORTSRC Lamps");
    on->LabelNewEffects();
    EXPECT_EQ(RemoveUuids({ZERO_UUID_TEXT}), 0);
    EXPECT_EQ(on->Stack(), "A");
}

TEST_F(EffectRemoval, ReorderInsideAMessageDeletesAnotherEffect)
{
    Build("A B C");
    // The place of B is known by then, and is A's from here on.
    on->host.Effect("C").behaviour = ActsInMessage([](Host& host) { host.User().Reorder("C", 0); });
    EXPECT_EQ(Remove({"B"}), 0);
    EXPECT_EQ(on->Stack(), "C B");
}
} // namespace standin
