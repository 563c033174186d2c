// A pass that finds nothing to do makes exactly these calls.

#include "tests/panel/PanelTest.h"

namespace standin
{
namespace
{
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;
using ::testing::StartsWith;
using ::testing::UnorderedElementsAre;

class QuietPass : public PanelTest
{
};

TEST_F(QuietPass, OverAnEmptyStackReadsBothOnce)
{
    bench.ShowAndSettle();
    EXPECT_THAT(
        bench.Pass(SuiteTraffic::included).calls,
        ElementsAre("Tree DispatchPlatformEvents()", R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
                    "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)", "Item 3 AEGP_GetActiveItem() -> item 101",
                    "Item 3 AEGP_GetItemID(item 101) -> 101", R"(Basic AcquireSuite("AEGP Layer Suite", 5))",
                    "Layer 5 AEGP_GetActiveLayer() -> layer 1", "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
                    "Tree GetKeysToBeAddedToLayer(tree)", "Tree GetEffectsToBeRemoved(tree)",
                    R"(Basic AcquireSuite("AEGP Effect Suite", 1))",
                    "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0",
                    R"(Basic ReleaseSuite("AEGP Effect Suite", 1))", "Tree GetItemsFromTree(tree)",
                    "Tree DidLayerStateChange(1)", R"(Basic ReleaseSuite("AEGP Layer Suite", 5))"));
}

TEST_F(QuietPass, OverOneEffectSendsTwoMessagesAndReads)
{
    bench.Add("QVK VORTSRC Lamps", "A");
    bench.ShowAndSettle();
    const Calls expected = {
        "Tree DispatchPlatformEvents()",
        R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
        "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)",
        "Item 3 AEGP_GetActiveItem() -> item 101",
        "Item 3 AEGP_GetItemID(item 101) -> 101",
        R"(Basic AcquireSuite("AEGP Layer Suite", 5))",
        "Layer 5 AEGP_GetActiveLayer() -> layer 1",
        "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
        "Tree GetKeysToBeAddedToLayer(tree)",
        "Tree GetEffectsToBeRemoved(tree)",
        // The reading, with a suite handler of its own.
        R"(Basic AcquireSuite("AEGP Effect Suite", 1))",
        "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1",
        // Its group.
        R"(Basic AcquireSuite("AEGP Layer Suite", 5))",
        "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
        "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1",
        "Effect 1 AEGP_GetLayerEffectByIndex(id 8, layer 1, 0) -> effect A",
        "Effect 1 AEGP_GetEffectFlags(effect A) -> 1",
        R"(Basic AcquireSuite("AEGP Effect Suite", 3))",
        "Effect 3 AEGP_EffectCallGeneric(id 8, effect A, time 0/100, 17, VORT 1 group -1) -> group 0",
        "Effect 3 AEGP_DisposeEffect(effect A)",
        // Its identity.
        "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
        "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 1",
        "Effect 1 AEGP_GetLayerEffectByIndex(id 8, layer 1, 0) -> effect A",
        "Effect 1 AEGP_GetEffectFlags(effect A) -> 1",
        "Effect 3 AEGP_EffectCallGeneric(id 8, effect A, time 0/100, 17, VORT 5 uuid "
        "00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001",
        "Effect 3 AEGP_DisposeEffect(effect A)",
        // The host's own facts.
        "Effect 1 AEGP_GetLayerEffectByIndex(id 8, layer 1, 0) -> effect A",
        "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect A) -> 201",
        R"(Effect 1 AEGP_GetEffectMatchName(201) -> "QVK VORTSRC Lamps")",
        R"(Basic AcquireSuite("AEGP Stream Suite", 4))",
        "Stream 4 AEGP_GetNewEffectStreamByIndex(id 8, effect A, 1) -> stream A.1",
        R"(Basic AcquireSuite("AEGP Dynamic Stream Suite", 2))",
        "DynamicStream 2 AEGP_GetNewParentStreamRef(id 8, stream A.1) -> stream A",
        "Effect 1 AEGP_GetEffectFlags(effect A) -> 1",
        R"(Stream 4 AEGP_GetStreamName(stream A, 1) -> "A")",
        R"(Basic AcquireSuite("AEGP Stream Suite", 7))",
        "Stream 7 AEGP_DisposeStream(stream A.1)",
        "Stream 7 AEGP_DisposeStream(stream A)",
        "Effect 1 AEGP_DisposeEffect(effect A)",
        R"(Basic ReleaseSuite("AEGP Dynamic Stream Suite", 2))",
        R"(Basic ReleaseSuite("AEGP Effect Suite", 1))",
        R"(Basic ReleaseSuite("AEGP Effect Suite", 3))",
        R"(Basic ReleaseSuite("AEGP Layer Suite", 5))",
        R"(Basic ReleaseSuite("AEGP Stream Suite", 4))",
        R"(Basic ReleaseSuite("AEGP Stream Suite", 7))",
        // The tree.
        "Tree GetItemsFromTree(tree)",
        "Tree DidLayerStateChange(1)",
        R"(Basic ReleaseSuite("AEGP Layer Suite", 5))",
    };
    EXPECT_EQ(bench.Pass(SuiteTraffic::included).calls, expected);
}

/// A message's first calls acquire what the later ones find held.
Calls withFirstAcquires(Calls message)
{
    message.insert(message.begin() + 4, R"(Basic AcquireSuite("AEGP Effect Suite", 3))");
    message.insert(message.begin(), R"(Basic AcquireSuite("AEGP Layer Suite", 5))");
    return message;
}

TEST_F(QuietPass, OverThreeEffectsAsksGroupsIdentitiesFacts)
{
    bench.AddThree();
    bench.ShowAndSettle();
    const Calls expected = Sequence({
        {"Tree DispatchPlatformEvents()", R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 1)",
         "Command 1 AEGP_CheckMarkMenuCommand(1001, 1)", "Item 3 AEGP_GetActiveItem() -> item 101",
         "Item 3 AEGP_GetItemID(item 101) -> 101", R"(Basic AcquireSuite("AEGP Layer Suite", 5))",
         "Layer 5 AEGP_GetActiveLayer() -> layer 1", "Layer 5 AEGP_GetLayerID(layer 1) -> 1",
         "Tree GetKeysToBeAddedToLayer(tree)", "Tree GetEffectsToBeRemoved(tree)",
         R"(Basic AcquireSuite("AEGP Effect Suite", 1))", "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 3"},
        withFirstAcquires(three.AskGroup(0)),
        three.AskGroup(1),
        three.AskGroup(2),
        three.AskIdentity(0),
        three.AskIdentity(1),
        three.AskIdentity(2),
        {"Effect 1 AEGP_GetLayerEffectByIndex(id 8, layer 1, 0) -> effect A",
         "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect A) -> 201",
         R"(Effect 1 AEGP_GetEffectMatchName(201) -> "QVK VORTSRC Lamps")",
         R"(Basic AcquireSuite("AEGP Stream Suite", 4))",
         "Stream 4 AEGP_GetNewEffectStreamByIndex(id 8, effect A, 1) -> stream A.1",
         R"(Basic AcquireSuite("AEGP Dynamic Stream Suite", 2))",
         "DynamicStream 2 AEGP_GetNewParentStreamRef(id 8, stream A.1) -> stream A",
         "Effect 1 AEGP_GetEffectFlags(effect A) -> 1", R"(Stream 4 AEGP_GetStreamName(stream A, 1) -> "A")",
         R"(Basic AcquireSuite("AEGP Stream Suite", 7))", "Stream 7 AEGP_DisposeStream(stream A.1)",
         "Stream 7 AEGP_DisposeStream(stream A)", "Effect 1 AEGP_DisposeEffect(effect A)"},
        three.ReadEffect(1),
        three.ReadEffect(2),
        {R"(Basic ReleaseSuite("AEGP Dynamic Stream Suite", 2))",
         R"(Basic ReleaseSuite("AEGP Effect Suite", 1))", R"(Basic ReleaseSuite("AEGP Effect Suite", 3))",
         R"(Basic ReleaseSuite("AEGP Layer Suite", 5))", R"(Basic ReleaseSuite("AEGP Stream Suite", 4))",
         R"(Basic ReleaseSuite("AEGP Stream Suite", 7))", "Tree GetItemsFromTree(tree)",
         "Tree DidLayerStateChange(1)", R"(Basic ReleaseSuite("AEGP Layer Suite", 5))"},
    });
    EXPECT_EQ(bench.Pass(SuiteTraffic::included).calls, expected);
}

TEST_F(QuietPass, CostsSevenCallsAndTwentyTwoPerEffect)
{
    bench.ShowAndSettle();
    for (int count = 0; count <= 12; ++count)
    {
        bench.Settle();
        const Calls calls = bench.Pass().calls;
        const auto ofTree = std::count_if(
            calls.begin(), calls.end(), [](const std::string& call) { return call.rfind("Tree ", 0) == 0; });
        EXPECT_EQ(ofTree, 5);
        EXPECT_EQ(static_cast<int>(calls.size() - 5), 7 + 22 * count) << count << " effects";
        bench.Add("QVK VORTSRC Lamps", "E" + std::to_string(count));
    }
}

TEST_F(QuietPass, IsTheSameEveryTimeAndChangesNothing)
{
    bench.AddThree();
    bench.ShowAndSettle();
    const ProjectState before = host.State();
    const std::uint64_t layerHash = bench.plugin->layerHash;
    const std::uint64_t treeHash = bench.plugin->treeHash;
    const PassRecord first = bench.Pass(SuiteTraffic::included);
    for (int pass = 0; pass < 50; ++pass)
    {
        const PassRecord next = bench.Pass(SuiteTraffic::included);
        EXPECT_EQ(next.calls, first.calls);
        EXPECT_EQ(next.printed, "");
        EXPECT_EQ(next.result.error, errNone);
    }
    EXPECT_EQ(host.State(), before);
    EXPECT_THAT(host.UndoNames(), ElementsAre());
    EXPECT_EQ(bench.plugin->layerHash, layerHash);
    EXPECT_EQ(bench.plugin->treeHash, treeHash);
}

TEST_F(QuietPass, LeavesTheHostsMaxSleepAlone)
{
    bench.ShowAndSettle();
    A_long maxSleep = 4321;
    const PassRecord record =
        bench.Record(SuiteTraffic::leftOut,
                     [&] {
                         return host.RunInHook(
                             [&] { return Panelator::S_IdleHook(bench.plugin, &bench.Inbox(), &maxSleep); });
                     });
    EXPECT_EQ(record.result.error, errNone);
    EXPECT_EQ(maxSleep, 4321);
}

TEST_F(QuietPass, OfAHiddenPanelReadsNoLayer)
{
    bench.AddThree();
    bench.ShowAndSettle();
    bench.Hide();
    EXPECT_THAT(bench.Pass(SuiteTraffic::included).calls,
                ElementsAre("Tree DispatchPlatformEvents()",
                            R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 0, 0)",
                            "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)", "Tree ClearTree(tree)"));
}

TEST_F(QuietPass, InTheBackgroundReadsNoLayer)
{
    bench.AddThree();
    bench.ShowAndSettle();
    bench.Cover();
    EXPECT_THAT(bench.Pass(SuiteTraffic::included).calls,
                ElementsAre("Tree DispatchPlatformEvents()",
                            R"(Panel 1 AEGP_IsShown("Vortan Object Panel") -> 1, 0)",
                            "Command 1 AEGP_CheckMarkMenuCommand(1001, 0)"));
    EXPECT_EQ(bench.TreeText(), "A B C");
}
} // namespace
} // namespace standin
