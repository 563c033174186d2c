// A second pass inside a pass, which an effect brings about that lets the host idle inside its message.
// The inner pass does its whole work; the outer one goes on with what it holds.

#include "tests/panel/PanelTest.h"

#include <algorithm>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* shakerMismatch = "Hash Mismatch\n"
                                       "Layer Item - A\nLayer Item - B\nLayer Item - C\n"
                                       "Tree Item - A\nTree Item - Shaker\nTree Item - C\n";
const Calls writesOfTheRename = {
    R"(DynamicStream 2 AEGP_SetStreamName(stream B, "Shaker"))", "Effect 1 AEGP_ReorderEffect(effect A, 0)",
    "Effect 1 AEGP_ReorderEffect(effect B, 1)", "Effect 1 AEGP_ReorderEffect(effect C, 2)"};

class PassInside : public PanelTest
{
protected:
    PassInside()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }

    /// Lets the host idle inside the `nth` message from now on that the effect gets.
    void IdleInMessage(const std::string& label, int nth)
    {
        bench.ActInMessage(label, nth,
                           [this]
                           {
                               A_long maxSleep = 0;
                               before = bench.PrintedSoFar();
                               EXPECT_EQ(Panelator::S_IdleHook(bench.plugin, &bench.Inbox(), &maxSleep),
                                         A_Err_NONE);
                               inner = bench.PrintedSoFar().substr(before.size());
                           });
    }

    /// What was written to the stack.
    static Calls Writes(const PassRecord& pass)
    {
        Calls writes;
        for (const std::string& call : pass.calls)
        {
            for (const char* write : {"AEGP_SetStreamName", "AEGP_ReorderEffect", "AEGP_DeleteLayerEffect"})
            {
                if (call.find(write) != std::string::npos)
                    writes.push_back(call);
            }
        }
        return writes;
    }

    std::string before; ///< What the outer pass had printed when the inner one began.
    std::string inner;  ///< What the inner pass printed.
};

TEST_F(PassInside, AQuietPassStaysQuietAroundAnother)
{
    IdleInMessage("B", 1);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.printed, "");
    EXPECT_EQ(std::count(pass.calls.begin(), pass.calls.end(), "Tree DispatchPlatformEvents()"), 2);
    EXPECT_THAT(Writes(pass), IsEmpty());
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(PassInside, AnEditIsWrittenByTheInnerPassAndReadBackByTheOuterOne)
{
    bench.TreeItem("B").name = "Shaker";
    IdleInMessage("A", 1);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(before, "") << "the outer pass reads the layer for the first time";
    EXPECT_EQ(inner, shakerMismatch);
    EXPECT_EQ(pass.printed, before + inner + "State Changed\n") << "the outer pass reads the new name";
    EXPECT_EQ(Writes(pass), writesOfTheRename);
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect(s)"));
    EXPECT_EQ(host.NameOf("B"), "Shaker");
    EXPECT_EQ(bench.TreeText(), "A Shaker C");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(PassInside, AnEditThatTheInnerPassWroteWhileTheOuterOneComparesIsNoMismatchAnyMore)
{
    bench.TreeItem("B").name = "Shaker";
    IdleInMessage("A", 3);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(before, "");
    EXPECT_EQ(inner, shakerMismatch);
    EXPECT_EQ(pass.printed, inner);
    EXPECT_EQ(Writes(pass), writesOfTheRename);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n")
        << "the layer that the outer pass hashed is not this one";
    EXPECT_EQ(bench.TreeText(), "A Shaker C");
}

TEST_F(PassInside, AnEditIsWrittenByBothIfTheInnerPassComesWhenTheOuterOneHasCompared)
{
    bench.TreeItem("B").name = "Shaker";
    IdleInMessage("A", 5);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(before, shakerMismatch);
    EXPECT_EQ(inner, shakerMismatch) << "the outer pass has not noted the tree's hash yet";
    EXPECT_EQ(pass.printed, before + inner);
    EXPECT_EQ(Writes(pass), Sequence({writesOfTheRename, writesOfTheRename}));
    EXPECT_EQ(host.NameOf("B"), "Shaker");
    EXPECT_EQ(StackText(), "A B C");
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A Shaker C");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(PassInside, ADeletionIsCarriedOutOnceByTheOuterPass)
{
    bench.DeleteInTree("C");
    IdleInMessage("A", 1);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(before, "");
    EXPECT_EQ(inner, "Hash Mismatch\n"
                     "Layer Item - A\nLayer Item - B\nLayer Item - C\n"
                     "Tree Item - A\nTree Item - B\n")
        << "the request is the outer pass's, and the tree shows the object no more";
    EXPECT_EQ(pass.printed, inner + "State Changed\n");
    EXPECT_THAT(Writes(pass), ElementsAre("Effect 1 AEGP_ReorderEffect(effect A, 0)",
                                          "Effect 1 AEGP_ReorderEffect(effect B, 1)",
                                          "Effect 3 AEGP_ReorderEffect(effect C, 0)",
                                          "Effect 3 AEGP_DeleteLayerEffect(effect C)"));
    EXPECT_THAT(host.UndoNames(), ElementsAre("Delete Effect(s)"));
    EXPECT_EQ(StackText(), "A B");
    EXPECT_EQ(bench.TreeText(), "A B");
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(PassInside, AChangeOfTheLayerIsTakenOverByTheInnerPassAndIsNoneToTheOuterOne)
{
    host.User().Rename("B", "Shaker");
    IdleInMessage("C", 1);
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(before, "");
    EXPECT_EQ(inner, "State Changed\n");
    EXPECT_EQ(pass.printed, inner);
    EXPECT_THAT(Writes(pass), IsEmpty());
    EXPECT_EQ(bench.TreeText(), "A Shaker C");
    EXPECT_EQ(bench.Pass().printed, "");
}
} // namespace
} // namespace standin
