// What the user does in the host's own windows comes back into the tree.

#include "standin/host/family/Liars.h"
#include "tests/panel/PanelTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FromHost : public PanelTest
{
protected:
    FromHost()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }

    /// The change has to arrive with the next pass, and the pass after it has to be quiet.
    void ExpectTree(const std::string& names)
    {
        EXPECT_EQ(bench.Pass().printed, "State Changed\n");
        EXPECT_EQ(bench.TreeText(), names);
        EXPECT_EQ(bench.Pass().printed, "");
    }
};

struct HostChange
{
    const char* test;
    std::function<void(UserActions&)> change;
    const char* tree;
};

class FromHostChange : public FromHost, public ::testing::WithParamInterface<HostChange>
{
};

TEST_P(FromHostChange, ArrivesInOnePass)
{
    GetParam().change(host.User());
    ExpectTree(GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(
    Of, FromHostChange,
    ::testing::Values(HostChange{"ARename", [](auto& user) { user.Rename("B", "Shaker"); }, "A Shaker C"},
                      HostChange{"AReorder", [](auto& user) { user.Reorder("C", 0); }, "C A B"},
                      HostChange{"ADeletion", [](auto& user) { user.Delete("B"); }, "A C"},
                      HostChange{"AnAppliedEffect",
                                 [](auto& user) { (void)user.Apply(1, "QVK VORTEFF Enclosure"); },
                                 "A B C Vortan Enclosure"},
                      HostChange{"ADuplicate", [](auto& user) { (void)user.Duplicate("A"); }, "A A B C"},
                      HostChange{"SeveralChangesBetweenTwoPasses",
                                 [](auto& user)
                                 {
                                     user.Delete("A");
                                     user.Rename("C", "Points");
                                     user.Reorder("C", 0);
                                 },
                                 "Points B"}),
    [](const auto& row) { return row.param.test; });

TEST_F(FromHost, TheDeletionOfTheLastEffect)
{
    for (const char* label : {"A", "B", "C"})
        host.User().Delete(label);
    ExpectTree("");
    EXPECT_FALSE(bench.Tree()->hasRoot);
}

TEST_F(FromHost, ASwitch)
{
    host.User().SetActive("B", Switch::off);
    ExpectTree("A B C");
    EXPECT_EQ(bench.TreeItem("B").active, 0);
}

TEST_F(FromHost, AGroup)
{
    host.User().SetGroup("B", 3);
    ExpectTree("A B C");
    EXPECT_EQ(bench.TreeItem("B").group, 3);
}

TEST_F(FromHost, AnUndoAndARedo)
{
    host.User().Rename("B", "Shaker");
    host.User().Delete("A");
    ExpectTree("Shaker C");
    host.Undo();
    ExpectTree("A Shaker C");
    host.Undo();
    ExpectTree("A B C");
    host.Redo();
    ExpectTree("A Shaker C");
}

TEST_F(FromHost, AChangeTakenBackIsNotSeen)
{
    host.User().Rename("B", "Shaker");
    host.Undo();
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(FromHost, NothingButTheSelectionIsWritten)
{
    host.User().Rename("B", "Shaker");
    ExpectTree("A Shaker C");
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect"));
}

TEST_F(FromHost, AnIdentityMadeAtIdleCountsAtOnce)
{
    host.Options().identityBirth = IdentityBirth::atNextIdle;
    (void)host.User().Apply(bench.on.layerId, "QVK VORTEFF Enclosure");
    ExpectTree("A B C Vortan Enclosure");
}

TEST_F(FromHost, ASilentEffectCountsAsOutside)
{
    bench.Add("QVK VORTEFF Enclosure", "D");
    host.Effect("D").behaviour = AnswersLate(1000);
    ExpectTree("A B C");
    host.RuntimeOf(host.Effect("D").id).messages = 1000;
    ExpectTree("A B C D");
}

TEST_F(FromHost, AFailingEffectCountsAsOutside)
{
    const std::shared_ptr<const Behaviour> ordinary = host.Effect("C").behaviour;
    host.Effect("C").behaviour = FailsWith(A_Err_GENERIC);
    (void)bench.Pass();
    EXPECT_EQ(bench.TreeText(), "A B");
    EXPECT_EQ(bench.Pass().printed, "");
    host.Effect("C").behaviour = ordinary;
    ExpectTree("A B C");
}

// ---- Two layers

class TwoLayers : public FromHost
{
protected:
    TwoLayers()
    {
        second = host.AddLayer(bench.on.compId, "Layer 2");
        bench.Add(second, "QVK VORTSRC Lamps", "A2");
        bench.Add(second, "QVK VORTEFF Jitter", "B2");
        bench.Add(second, "QVK VORTREN Dots", "C2");
    }

    /// Makes the second stack the same as the first to the last byte that an item holds.
    void MakeTwins()
    {
        for (const std::string label : {"A", "B", "C"})
        {
            host.Effect(label + "2").customName = label;
            host.Effect(label + "2").family.uuid = host.Effect(label).family.uuid;
        }
    }

    void Select(int layer)
    {
        host.User().SelectLayers({layer});
        bench.Settle();
    }

    int second = 0;
};

TEST_F(TwoLayers, TheTreeFollowsTheActiveLayer)
{
    Select(second);
    EXPECT_EQ(bench.TreeText(), "A2 B2 C2");
    Select(bench.on.layerId);
    EXPECT_EQ(bench.TreeText(), "A B C");
}

TEST_F(TwoLayers, EachLayerGetsItsOwnStateBack)
{
    bench.SelectInTree({"B"});
    bench.Tree()->openness = "first";
    bench.Settle();
    Select(second);
    bench.SelectInTree({"C2"});
    bench.Tree()->openness = "second";
    bench.Settle();
    Select(bench.on.layerId);
    EXPECT_EQ(bench.Tree()->openness, "first");
    EXPECT_THAT(bench.Tree()->selectedUuids, ElementsAre(b.uuid));
    Select(second);
    EXPECT_EQ(bench.Tree()->openness, "second");
    EXPECT_THAT(bench.Tree()->selectedUuids, ElementsAre(TextOf(host.Effect("C2").family.uuid)));
}

TEST_F(TwoLayers, TwinStacksAreTwoLayersAllTheSame)
{
    MakeTwins();
    host.User().SelectLayers({second});
    const std::uint64_t treeHash = bench.plugin->treeHash;
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.printed, "State Changed\n") << "no mismatch is found, and no layer is changed";
    EXPECT_THAT(pass.calls, ::testing::Contains("Tree RefreshTree([A B C])"));
    EXPECT_THAT(pass.calls, ::testing::Contains("Tree ApplyLayerTreeState(2)"));
    EXPECT_NE(bench.plugin->treeHash, treeHash) << "taken over in silence";
    EXPECT_THAT(host.UndoNames(), IsEmpty());
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(TwoLayers, AnEditBeforeALayerChangeIsGone)
{
    bench.TreeItem("B").name = "Shaker";
    host.User().SelectLayers({second});
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(host.NameOf("B"), "B");
    EXPECT_EQ(bench.TreeText(), "A2 B2 C2");
}
} // namespace
} // namespace standin
