// Undo groups that should not have been opened: with nothing inside, or inside another.

#include "tests/standin/ReferenceTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UndoGroups : public ReferenceTest
{
protected:
    void reorder(Client& client, A_long from, A_long to)
    {
        void* effect = client.EffectAt(handle, from);
        (void)client.Reorder(effect, to);
        (void)client.DisposeEffect(effect);
    }

    std::vector<std::string> findingsOfGroupWith(A_long from, A_long to)
    {
        return findingsOf(
            [&](Client& client)
            {
                (void)client.StartUndo("Order");
                reorder(client, from, to);
                (void)client.EndUndo();
            });
    }
};

TEST_F(UndoGroups, AGroupWithNothingInsideIsReported)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            (void)client.StartUndo("Look");
            (void)client.NumEffects(handle);
            EXPECT_EQ(client.EndUndo(), errNone);
        });
    EXPECT_THAT(found, ElementsAre("empty-undo-group in Utility 3 AEGP_EndUndoGroup()"));
}

TEST_F(UndoGroups, AGroupWithAChangeIsWell) { EXPECT_THAT(findingsOfGroupWith(2, 0), IsEmpty()); }

TEST_F(UndoGroups, UnchangedGroupsAreReportedByStricterHosts)
{
    EXPECT_THAT(findingsOfGroupWith(1, 1), IsEmpty());
    host.Options().emptyGroup = EmptyGroup::changesNothing;
    EXPECT_THAT(findingsOfGroupWith(1, 1), ElementsAre("empty-undo-group in Utility 3 AEGP_EndUndoGroup()"));
    EXPECT_THAT(findingsOfGroupWith(1, 0), IsEmpty());
}

TEST_F(UndoGroups, AChangeThroughAMessageFillsAGroup)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            (void)client.StartUndo("Group");
            host.User().SetGroup("A", 3);
            (void)client.EndUndo();
        });
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(UndoGroups, AGroupEmptiedByFaultIsExcused)
{
    host.Faults().FailFunction("AEGP_GetLayerEffectByIndex");
    const auto found = findingsOf(
        [&](Client& client)
        {
            (void)client.StartUndo("Order");
            EXPECT_EQ(client.EffectAt(handle, 0), nullptr);
            (void)client.EndUndo();
        });
    EXPECT_THAT(found, IsEmpty());
}

TEST_F(UndoGroups, AGroupInsideAnotherIsReported)
{
    const auto found = findingsOf(
        [&](Client& client)
        {
            (void)client.StartUndo("Outer");
            (void)client.StartUndo("Inner");
            reorder(client, 2, 0);
            (void)client.EndUndo();
            (void)client.EndUndo();
        });
    EXPECT_THAT(found, ElementsAre("nested-undo-group in Utility 3 AEGP_StartUndoGroup(\"Inner\")"));
}

TEST_F(UndoGroups, NestingCausedByFaultIsExcused)
{
    host.Faults().FailFunction("AEGP_EndUndoGroup");
    const auto found = findingsOf(
        [&](Client& client)
        {
            (void)client.StartUndo("First");
            reorder(client, 2, 0);
            EXPECT_EQ(client.EndUndo(), errGeneric);
            (void)client.StartUndo("Second");
            reorder(client, 2, 0);
            (void)client.EndUndo();
        });
    EXPECT_THAT(found, IsEmpty());
}
} // namespace
} // namespace standin
