// What the two stored hashes cover: the ids and the contents on the layer's side, the layer's id and the
// contents on the tree's.

#include "tests/panel/PanelTest.h"

namespace standin
{
namespace
{
struct Ids
{
    int item;
    int layer;
    std::uint64_t layerHash; ///< Of an empty stack, so of the ids alone. Worked out by other means.
};

class PassHash : public PanelTest
{
protected:
    /// Gives the composition and the layer these ids, which no host would hand out in this order.
    void Renumber(int itemId, int layerId)
    {
        host.State().items.at(0).id = itemId;
        host.State().layers.at(0).id = layerId;
        host.State().layers.at(0).compId = itemId;
        host.User().OpenComposition(itemId);
        host.User().SelectLayers({layerId});
    }
};

class PassHashOfIds : public PassHash, public ::testing::WithParamInterface<Ids>
{
};

TEST_P(PassHashOfIds, AnEmptyStackHashesToTheIdsSeed)
{
    bench.Show();
    Renumber(GetParam().item, GetParam().layer);
    bench.Settle();
    EXPECT_EQ(bench.plugin->layerHash, GetParam().layerHash);
}

TEST_P(PassHashOfIds, AnEmptyTreeHashesToTheLayerId)
{
    bench.Show();
    Renumber(GetParam().item, GetParam().layer);
    bench.Settle();
    EXPECT_EQ(bench.plugin->treeHash,
              static_cast<std::uint64_t>(static_cast<std::int64_t>(GetParam().layer)));
}

INSTANTIATE_TEST_SUITE_P(Ids, PassHashOfIds,
                         ::testing::Values(Ids{101, 1, 0x00000028cd94a5dfu},
                                           Ids{-101, -3, 0x00000028cd94d45fu},
                                           Ids{-1, -1, 0x00000028cd94bf9eu},
                                           Ids{2147483647, 2147483647, 0x00000049ed94bf9eu},
                                           Ids{-2147483647 - 1, -2147483647 - 1, 0x00000007ad94bfdeu},
                                           Ids{1, 101, 0x00000028cd94beb6u}));

TEST_F(PassHash, WithoutALayerTheSeedUsesZero)
{
    bench.Show();
    host.User().SelectLayers({});
    bench.Settle();
    EXPECT_EQ(bench.plugin->layerHash, 0x00000028cd94a5deu);
    EXPECT_EQ(bench.plugin->treeHash, 0u);
}

TEST_F(PassHash, BothStayZeroUntilAnItemIsThere)
{
    EXPECT_EQ(bench.plugin->layerHash, 0u);
    EXPECT_EQ(bench.plugin->treeHash, 0u);
    (void)bench.Pass();
    host.User().OpenComposition(0);
    bench.Show();
    (void)bench.Pass();
    EXPECT_EQ(bench.plugin->layerHash, 0u);
    EXPECT_EQ(bench.plugin->treeHash, 0u);
}

TEST_F(PassHash, TheLayersSeedAndTheTreesDiffer)
{
    bench.AddThree();
    host.Effect("B").family.group = 4;
    host.User().SetActive("C", Switch::off);
    bench.ShowAndSettle();
    const std::vector<ObjectItem> items = {
        {a.uuid, "A", 0, 1, ""}, {b.uuid, "B", 4, 1, ""}, {c.uuid, "C", 0, 0, ""}};
    EXPECT_EQ(bench.plugin->layerHash, CalcItemsHash(0x00000028cd94a5dfu, items));
    EXPECT_EQ(bench.plugin->treeHash, CalcItemsHash(1, items));
}

TEST_F(PassHash, ANegativeLayerIdCounts)
{
    bench.AddThree();
    bench.Show();
    Renumber(-101, -3);
    bench.Settle();
    const Calls calls = bench.Pass().calls;
    EXPECT_EQ(calls.back(), "Tree DidLayerStateChange(-3)");
}

TEST_F(PassHash, AnotherItemChangesTheLayersSideAlone)
{
    bench.AddThree();
    bench.ShowAndSettle();
    const std::uint64_t layerHash = bench.plugin->layerHash;
    const std::uint64_t treeHash = bench.plugin->treeHash;
    Renumber(202, 1);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_NE(bench.plugin->layerHash, layerHash);
    EXPECT_EQ(bench.plugin->treeHash, treeHash);
}

/// Each change of one field of the middle effect must move the hash of the layer.
class PassHashOfContents : public PassHash
{
protected:
    PassHashOfContents()
    {
        bench.AddThree();
        bench.ShowAndSettle();
    }
};

struct ContentChange
{
    const char* test;
    std::function<void(Host&)> change;
};

class PassHashOfChange : public PassHashOfContents, public ::testing::WithParamInterface<ContentChange>
{
};

TEST_P(PassHashOfChange, IsAnother)
{
    GetParam().change(host);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    bench.Settle();
}

INSTANTIATE_TEST_SUITE_P(
    Of, PassHashOfChange,
    ::testing::Values(ContentChange{"ANameIsSeen", [](Host& host) { host.Effect("B").customName = "b"; }},
                      ContentChange{"AGroupIsSeen", [](Host& host) { host.Effect("B").family.group = 1; }},
                      ContentChange{"ASwitchIsSeen", [](Host& host) { host.Effect("B").flags = 0; }},
                      ContentChange{"AnIdentityIsSeen",
                                    [](Host& host) { host.Effect("B").family.uuid = IdentityOf(0x77); }},
                      ContentChange{"TheOrderIsSeen", [](Host& host) { host.User().Reorder("C", 0); }}),
    [](const auto& row) { return row.param.test; });

TEST_F(PassHashOfContents, OtherFlagsAndHiddenStreamsAreNotSeen)
{
    host.Effect("B").flags |= effectAudioToo;
    host.User().SetHidden("A", Switch::off);
    EXPECT_EQ(bench.Pass().printed, "");
}

TEST_F(PassHash, AnItemWithoutIdCountsAsZero)
{
    bench.Show();
    host.Faults().FailFunction("AEGP_GetItemID", 1, FaultLength::functionForGood);
    bench.Settle();
    EXPECT_EQ(bench.plugin->layerHash, 0x00000028cd94bfd1u);
}
} // namespace
} // namespace standin
