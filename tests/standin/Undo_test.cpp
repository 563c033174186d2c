// Undo groups, steps, and what undo brings back.

#include "tests/standin/Client.h"
#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Undo : public LayerTest
{
protected:
    Undo()
    {
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
        host.AddEffect(layer, "QVK VORTEFF Jitter", "B");
        host.AddEffect(layer, "QVK VORTREN Dots", "C");
        handle = host.LayerHandle(layer);
    }

    void reorder(Client& client, A_long from, A_long to)
    {
        void* effect = client.EffectAt(handle, from);
        (void)client.Reorder(effect, to);
        (void)client.DisposeEffect(effect);
    }

    void rename(Client& client, A_long index, const char* name)
    {
        void* effect = client.EffectAt(handle, index);
        void* stream = client.StreamOf(effect, 1);
        void* group = client.ParentOf(stream);
        (void)client.Rename(group, name);
        (void)client.DisposeStream(stream);
        (void)client.DisposeStream(group);
        (void)client.DisposeEffect(effect);
    }

    void hide(Client& client, Switch undoable, Switch on)
    {
        void* effect = client.EffectAt(handle, 0);
        void* stream = client.StreamOf(effect, 1);
        void* group = client.ParentOf(stream);
        (void)client.SetHidden(group, undoable, on);
        (void)client.DisposeStream(stream);
        (void)client.DisposeStream(group);
        (void)client.DisposeEffect(effect);
    }

    void* handle = nullptr;
};

TEST_F(Undo, AGroupIsOneStepUnderItsName)
{
    const ProjectState before = host.State();
    inHook(
        [&](Client& client)
        {
            (void)client.StartUndo("Both");
            rename(client, 0, "Lamp");
            reorder(client, 2, 0);
            EXPECT_EQ(client.EndUndo(), errNone);
        });
    const ProjectState after = host.State();
    EXPECT_THAT(host.UndoNames(), ElementsAre("Both"));
    EXPECT_EQ(host.StackText(layer), "C A B");
    EXPECT_EQ(host.NameOf("A"), "Lamp");

    EXPECT_TRUE(host.Undo());
    EXPECT_TRUE(host.State() == before);
    EXPECT_THAT(host.UndoNames(), IsEmpty());
    EXPECT_THAT(host.RedoNames(), ElementsAre("Both"));
    EXPECT_FALSE(host.Undo());

    EXPECT_TRUE(host.Redo());
    EXPECT_TRUE(host.State() == after);
    EXPECT_FALSE(host.Redo());
}

TEST_F(Undo, AnUngroupedWriteIsTheHostsStep)
{
    inHook(
        [&](Client& client)
        {
            rename(client, 0, "Lamp");
            reorder(client, 2, 0);
            void* effect = client.EffectAt(handle, 0);
            (void)client.SetActive(effect, Switch::off);
            (void)client.SetActive(effect, Switch::on);
            (void)client.Delete(effect);
            (void)client.DisposeEffect(effect);
            void* fresh = client.Apply(handle, host.FindInstalled("ADBE Tint")->key);
            (void)client.DisposeEffect(fresh);
        });
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect", "Reorder Effect", "Switch Effect Off",
                                              "Switch Effect On", "Delete Effect", "Apply Effect"));
    const ProjectState end = host.State();
    while (host.Undo())
    {
    }
    EXPECT_EQ(host.StackText(layer), "A B C");
    EXPECT_EQ(host.NameOf("A"), "Vortan Sheets Object");
    while (host.Redo())
    {
    }
    EXPECT_TRUE(host.State() == end);
}

TEST_F(Undo, ADeletedEffectComesBackComplete)
{
    host.Effect("B").family = {IdentityOf(0x0b), 3, Rigidity::rigid};
    host.Effect("B").customName = "Shaker";
    host.Effect("B").flags = 0;
    host.Effect("B").parameters[1].hidden = true;
    const EffectInstance before = host.Effect("B");
    host.User().Delete("B");
    EXPECT_EQ(host.StackText(layer), "A C");
    EXPECT_TRUE(host.Undo());
    EXPECT_TRUE(host.Effect("B") == before);
}

TEST_F(Undo, ANewStepEndsWhatCouldBeRedone)
{
    host.User().Rename("A", "One");
    (void)host.Undo();
    host.User().Rename("A", "Two");
    EXPECT_THAT(host.RedoNames(), IsEmpty());
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect"));
}

TEST_F(Undo, AGroupWithoutAChangeLeavesNothing)
{
    const auto openAndClose = [&]
    {
        inHook(
            [&](Client& client)
            {
                (void)client.StartUndo("Reorder Effect(s)");
                reorder(client, 1, 1);
                (void)client.EndUndo();
            });
    };
    openAndClose();
    EXPECT_THAT(host.UndoNames(), IsEmpty());
    host.Options().unchangedGroup = UnchangedGroup::leavesPhantomEntry;
    openAndClose();
    EXPECT_THAT(host.UndoNames(), ElementsAre("Reorder Effect(s)"));
}

TEST_F(Undo, AnEmptyGroupNameMakesAnUnnamedStep)
{
    inHook(
        [&](Client& client)
        {
            (void)client.StartUndo("");
            reorder(client, 2, 0);
            (void)client.EndUndo();
        });
    EXPECT_THAT(host.UndoNames(), ElementsAre(""));
    EXPECT_TRUE(host.Undo());
    EXPECT_EQ(host.StackText(layer), "A B C");
}

TEST_F(Undo, AnInnerGroupJoinsTheOuterOne)
{
    host.Expect("nested-undo-group", "AEGP_StartUndoGroup", "the test opens a group inside another");
    inHook(
        [&](Client& client)
        {
            (void)client.StartUndo("Outer");
            (void)client.StartUndo("Inner");
            reorder(client, 2, 0);
            (void)client.EndUndo();
            EXPECT_EQ(host.OpenUndoGroups(), 1);
            rename(client, 0, "Lamp");
            (void)client.EndUndo();
            EXPECT_EQ(host.OpenUndoGroups(), 0);
        });
    EXPECT_THAT(host.UndoNames(), ElementsAre("Outer"));
}

TEST_F(Undo, ANullNameIsRefusedAndReported)
{
    inHook(
        [&](Client& client)
        {
            EXPECT_EQ(client.StartUndo(nullptr), errParameter);
            EXPECT_EQ(host.OpenUndoGroups(), 0);
        });
    EXPECT_THAT(FindingsOf(host), ElementsAre("null-undo-name in Utility 3 AEGP_StartUndoGroup(null)"));
}

TEST_F(Undo, AnEndWithoutStartIsRefusedAndReported)
{
    inHook([&](Client& client) { EXPECT_NE(client.EndUndo(), errNone); });
    EXPECT_THAT(FindingsOf(host), ElementsAre("undo-group-mismatch in Utility 3 AEGP_EndUndoGroup()"));
}

TEST_F(Undo, AGroupLeftOpenClosesWithItsHook)
{
    inHook(
        [&](Client& client)
        {
            (void)client.StartUndo("Delete Effect(s)");
            reorder(client, 2, 0);
            (void)client.StartUndo("Another");
            rename(client, 1, "Lamp");
            (void)client.EndUndo();
            host.User().Rename("B", "Shaker");
        });
    EXPECT_EQ(host.OpenUndoGroups(), 0);
    EXPECT_THAT(host.UndoNames(), ElementsAre("Delete Effect(s)"));
    const std::vector<Finding> findings = host.TakeFindings();
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0].id, "nested-undo-group");
    EXPECT_EQ(findings[1].Text(),
              "undo-group-left-open: The undo group \"Delete Effect(s)\" is still open when the "
              "hook returns. [Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")]");
    (void)host.Undo();
    EXPECT_EQ(host.StackText(layer), "A B C");
    EXPECT_EQ(host.NameOf("B"), "Vortan Jitter Effector");
}

TEST_F(Undo, AnEndPreventedByFaultIsExcused)
{
    host.Faults().FailFunction("AEGP_EndUndoGroup");
    inHook(
        [&](Client& client)
        {
            (void)client.StartUndo("Both");
            reorder(client, 2, 0);
            EXPECT_EQ(client.EndUndo(), errGeneric);
            EXPECT_EQ(host.OpenUndoGroups(), 1);
        });
    EXPECT_EQ(host.OpenUndoGroups(), 0);
    EXPECT_THAT(host.UndoNames(), ElementsAre("Both"));
}

TEST_F(Undo, AFaultExcusesOnlyItsOwnGroup)
{
    host.Faults().FailFunction("AEGP_EndUndoGroup");
    inHook(
        [&](Client& client)
        {
            (void)client.StartUndo("Excused");
            (void)client.EndUndo();
            (void)client.StartUndo("Forgotten");
        });
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("undo-group-left-open in Utility 3 AEGP_StartUndoGroup(\"Excused\")"));
    inHook([&](Client& client) { (void)client.StartUndo("Forgotten"); });
    EXPECT_THAT(FindingsOf(host),
                ElementsAre("undo-group-left-open in Utility 3 AEGP_StartUndoGroup(\"Forgotten\")"));
}

TEST_F(Undo, AnUndoableFlagIsAStep)
{
    inHook([&](Client& client) { hide(client, Switch::on, Switch::on); });
    EXPECT_THAT(host.UndoNames(), ElementsAre("Hide Stream"));
    EXPECT_TRUE(host.Effect("A").groupHidden);
    (void)host.Undo();
    EXPECT_FALSE(host.Effect("A").groupHidden);
}

TEST_F(Undo, ANonUndoableFlagSurvivesUndoAndRedo)
{
    host.User().Rename("A", "Lamp");
    inHook(
        [&](Client& client)
        {
            (void)client.StartUndo("");
            hide(client, Switch::off, Switch::on);
            (void)client.EndUndo();
        });
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect"));
    (void)host.Undo();
    EXPECT_TRUE(host.Effect("A").groupHidden);
    EXPECT_EQ(host.NameOf("A"), "Vortan Sheets Object");
    (void)host.Redo();
    EXPECT_TRUE(host.Effect("A").groupHidden);
    EXPECT_EQ(host.NameOf("A"), "Lamp");
}

TEST_F(Undo, ApplyAndReorderUndoSoundlyOrNot)
{
    const A_long key = host.FindInstalled("QVK VORTEFF Jitter")->key;
    const auto applyOnTop = [&]
    {
        inHook(
            [&](Client& client)
            {
                (void)client.StartUndo("Add");
                void* effect = client.Apply(handle, key);
                (void)client.Reorder(effect, 0);
                (void)client.DisposeEffect(effect);
                (void)client.EndUndo();
            });
    };
    applyOnTop();
    EXPECT_EQ(host.StackText(layer), "e4 A B C");
    (void)host.Undo();
    EXPECT_EQ(host.StackText(layer), "A B C");

    host.Options().twinUndo = TwinUndo::deletesOlderTwin;
    applyOnTop();
    EXPECT_EQ(host.StackText(layer), "e5 A B C");
    (void)host.Undo();
    EXPECT_EQ(host.StackText(layer), "e5 A C");
    (void)host.Redo();
    EXPECT_EQ(host.StackText(layer), "e5 A B C");
}

TEST_F(Undo, TheOldestOfTooManyStepsGo)
{
    host.Options().undoLevels = 2;
    host.User().Rename("A", "1");
    host.User().Reorder("A", 1);
    host.User().Delete("C");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Reorder Effect", "Delete Effect"));
}

TEST_F(Undo, WhatTheUserDoesIsAStepEach)
{
    host.User().Rename("A", "Lamp");
    host.User().Reorder("A", 2);
    (void)host.User().Duplicate("B");
    host.User().SetActive("C", Switch::off);
    host.User().SetHidden("C", Switch::on);
    host.User().SetGroup("C", 3);
    host.User().Delete("A");
    (void)host.User().Apply(layer, "ADBE Fill");
    EXPECT_THAT(host.UndoNames(),
                ElementsAre("Rename Effect", "Reorder Effect", "Duplicate Effect", "Switch Effect Off",
                            "Hide Stream", "Change Group", "Delete Effect", "Apply Effect"));
    EXPECT_EQ(host.StackText(layer), "B e4 C e5");
    EXPECT_THAT(host.CallTexts(), IsEmpty());
}
} // namespace
} // namespace standin
