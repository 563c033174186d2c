// Which items of the two lists are compared with each other, and the order of the four steps.

#include "standin/host/family/Liars.h"
#include "tests/support/StackTest.h"

namespace standin
{
namespace
{
class LayerEffectChangesPartners : public StackTest
{
protected:
    /// The calls of a pass over the stack in which only the order's own moves touch it.
    static Calls OnlyInPlace(const TracedStack& traced)
    {
        return traced.AfterReading({traced.OrderInPlace("Reorder Effect(s)")});
    }

    /// Makes the second effect's identity the first's.
    LabelledStack& MakeTwins()
    {
        LabelledStack& stack = Make("A B");
        stack.host.Effect("B").family.uuid = stack.host.Effect("A").family.uuid;
        return stack;
    }
};

TEST_F(LayerEffectChangesPartners, AnItemIsNamedGroupedSwitchedMoved)
{
    const TracedStack traced = Make("A B").Traced();
    TracedStack switched = traced;
    switched.At("B").flags = 0;
    EXPECT_EQ(ExpectChange("B=Front@3! A",
                           Sequence({traced.AfterReading({traced.Rename("B", "Front"),
                                                          traced.TellGroup("B", 3), traced.SwitchTo("B", 0)}),
                                     switched.AfterReading({switched.Order("", "B 1>0 A 1>1")})}),
                           "B=Front@3! A", "[Rename Effect(s)][Change Group][Switch Effect Off][]"),
              "Setting Group: Front\n");
}

TEST_F(LayerEffectChangesPartners, EachStepCoversTheWholeListFirst)
{
    LabelledStack& stack = Make("A B");

    (void)stack.ChangeTo("A=One@3! B=Two@3!");

    EXPECT_EQ(stack.TakePrinted(), "Setting Group: One\nSetting Group: Two\n");
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][Rename Effect(s)][Change Group][Change Group]"
                             "[Switch Effect Off][Switch Effect Off]");
    EXPECT_TRUE(stack.UndoBringsBackTheStart());
}

TEST_F(LayerEffectChangesPartners, AZeroIdentityHasNoPartner)
{
    const TracedStack traced = Make("X A").Traced();
    EXPECT_EQ(ExpectChange("0=Front@3! A", traced.AfterReading({traced.Order("Reorder Effect(s)", "A 1>1")}),
                           "X A", ""),
              "");
}

TEST_F(LayerEffectChangesPartners, AnUnknownIdentityHasNoPartner)
{
    const TracedStack traced = Make("A").Traced();
    EXPECT_EQ(ExpectChange("A ?=Front@3!", OnlyInPlace(traced), "A", ""), "");
}

TEST_F(LayerEffectChangesPartners, AnIdentityOutsideTheListHasNoPartner)
{
    LabelledStack& stack = Make("A B");
    const TracedStack traced = stack.Traced();
    Items layerItems = stack.LayerItems();
    layerItems.pop_back();

    (void)stack.ChangeTo(layerItems, stack.Tree("A B=Front@3!"));

    ExpectCalls(OnlyInPlace(traced));
}

TEST_F(LayerEffectChangesPartners, IdentitiesAreComparedByLengthAndBytes)
{
    LabelledStack& stack = Make("A");
    const TracedStack traced = stack.Traced();
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    const std::string uuid = stack.LayerItems()[0].uuid;
    ASSERT_EQ(uuid, "01010101-0101-0101-0101-010100000001");
    for (const std::string& other :
         {uuid + " ", uuid.substr(0, 35), std::string(), std::string("01010101-0101-0101-0101-010100000002"),
          uuid + std::string(1, '\0')})
    {
        Items tree = stack.Tree("A=Front@3!");
        tree[0].uuid = other;

        (void)stack.ChangeTo(stack.LayerItems(), tree);

        ExpectCalls(traced.AfterReading({traced.Order("Reorder Effect(s)", "")}));
    }
}

TEST_F(LayerEffectChangesPartners, AnIdentityInCapitalsIsAnother)
{
    LabelledStack& stack = Make("A");
    stack.host.Effect("A").family.uuid = IdentityOf(0xAB);
    stack.host.Expect("empty-undo-group", "AEGP_EndUndoGroup", "there is nothing to put in order");
    Items tree = stack.Tree("A=Front");
    tree[0].uuid = "ABABABAB-ABAB-ABAB-ABAB-ABABABABABAB";

    (void)stack.Change(tree);

    EXPECT_EQ(stack.Text(), "A");
}

TEST_F(LayerEffectChangesPartners, OfLayerTwinsTheFirstIsThePartner)
{
    LabelledStack& stack = MakeTwins();
    (void)stack.ChangeTo("B"); // Named B, as the second; the first of this identity is named A.
    EXPECT_EQ(stack.Text(), "A=B B") << "the search takes the first effect";
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)]");
}

TEST_F(LayerEffectChangesPartners, AgreementWithTheFirstTwinIsAgreement)
{
    LabelledStack& stack = MakeTwins();
    stack.host.Effect("B").family.group = 4;
    stack.host.Effect("B").flags = 0;
    (void)stack.ChangeTo("A");
    EXPECT_EQ(stack.Text(), "A B@4!");
    EXPECT_EQ(stack.Steps(), "");
}

TEST_F(LayerEffectChangesPartners, OfEffectTwinsTheFirstIsChanged)
{
    (void)MakeTwins().ChangeTo("A=Front@3!");
    EXPECT_EQ(scene->TakePrinted(), "Setting Group: Front\n");
    EXPECT_EQ(scene->Text(), "A=Front@3! B");
}

TEST_F(LayerEffectChangesPartners, TreeTwinsAreCarriedOutInTurn)
{
    LabelledStack& stack = Make("A");
    stack.host.Expect("index-out-of-range", "AEGP_ReorderEffect", "the second item aims past the stack");

    (void)stack.ChangeTo("A=One A=Two");

    EXPECT_EQ(stack.Text(), "A=Two");
    EXPECT_EQ(stack.Steps(), "[Rename Effect(s)][Rename Effect(s)]");
}

TEST_F(LayerEffectChangesPartners, TheMatchNameIsNotCompared)
{
    LabelledStack& stack = Make("A B");
    ASSERT_EQ(stack.LayerItems()[0].tag, "QVK VORTSRC Routes");
    ASSERT_EQ(stack.Tree("A")[0].tag, "");
    (void)ExpectChange("A B", OnlyInPlace(stack.Traced()), "A B", "");
}

TEST_F(LayerEffectChangesPartners, TheLayersListServesForComparingAlone)
{
    // The list says that B is already named Front; the tree agrees with the list, so nobody is renamed.
    LabelledStack& stack = Make("A B");
    const Items both = stack.Tree("A B=Front@3!");
    const TracedStack traced = stack.Traced();

    (void)stack.ChangeTo(both, both);

    ExpectCalls(OnlyInPlace(traced));
}

TEST_F(LayerEffectChangesPartners, AnEffectHidingItsIdentityCountsAsGone)
{
    LabelledStack& stack = Make("A B");
    stack.host.Effect("B").behaviour = FailsWith(errGeneric);

    (void)stack.ChangeTo("A B=Front@3!");

    EXPECT_EQ(stack.TakePrinted(), "Setting Group: Front\n");
    EXPECT_EQ(stack.Text(), "A B");
    EXPECT_EQ(stack.Steps(), "");
}
} // namespace
} // namespace standin
