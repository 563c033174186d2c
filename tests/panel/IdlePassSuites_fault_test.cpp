// Passes over a host that lacks a suite. The integer 516 leaves towards the host; what the pass had taken
// from the inbox stays taken, and no reference leaks that could have been disposed of.

#include "tests/panel/PanelTest.h"

#include <algorithm>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAreArray;

struct MissingSuite
{
    const char* name;
    A_long version;
    const char* lastTreeCall; ///< How far the first pass of a panel gets.
    std::vector<std::string> findings;
};

void PrintTo(const MissingSuite& suite, std::ostream* out) { *out << suite.name << " " << suite.version; }

const char* const shown = R"(Tree NotifyMsg("Saved"))";
const char* const asked = "Tree GetEffectsToBeRemoved(tree)";
const char* const selecting = "Tree GetSelectedTreeItems(tree)";

const MissingSuite missingSuites[] = {
    {"AEGP Item Suite", 3, shown, {}},
    {"AEGP Layer Suite", 5, shown, {}},
    {"AEGP Effect Suite", 1, asked, {}},
    // A message's effect is disposed of through the suite that is missing.
    {"AEGP Effect Suite", 3, asked, {finding::leakedReference}},
    {"AEGP Stream Suite", 4, asked, {}},
    {"AEGP Dynamic Stream Suite", 2, asked, {}},
    // So are the two streams, before whose disposal the effect's has to come now.
    {"AEGP Stream Suite",
     7,
     asked,
     {finding::leakedReference, finding::leakedReference, finding::disposeOrder}},
    {"AEGP Utility Suite", 3, selecting, {}},
    // The first hiding has opened its undo group by then.
    {"AEGP Dynamic Stream Suite", 5, selecting, {finding::undoGroupLeftOpen}},
};

using Case = std::tuple<MissingSuite, Withheld>;

class PassWithoutSuite : public PanelTest, public ::testing::WithParamInterface<Case>
{
protected:
    PassWithoutSuite()
    {
        bench.AddThree();
        bench.Show();
        bench.Inbox().refreshPending = 1;
        PanelNotify(&bench.Inbox(), "Saved");
        host.Faults().Withhold(suite.name, suite.version, std::get<Withheld>(GetParam()));
    }

    std::string LastTreeCall(const Calls& calls) const
    {
        std::string last;
        for (const std::string& call : calls)
            last = call.rfind("Tree ", 0) == 0 ? call : last;
        return last;
    }

    const MissingSuite suite = std::get<MissingSuite>(GetParam());
};

TEST_P(PassWithoutSuite, ThrowsItsNumberWithRequestsConsumed)
{
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.result.thrownNumber, 516);
    EXPECT_EQ(LastTreeCall(pass.calls), suite.lastTreeCall);
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    EXPECT_EQ(bench.Inbox().notifyPending, 0);
    EXPECT_EQ(bench.Inbox().notifyText, "");
    EXPECT_THAT(bench.Tree()->notifications, ElementsAre("Saved"));

    std::vector<std::string> expected = suite.findings;
    expected.push_back(finding::exceptionLeftHook);
    EXPECT_THAT(host.TakeFindingIds(), UnorderedElementsAreArray(expected));
}

TEST_P(PassWithoutSuite, ReleasesTheSuitesThatItHad)
{
    const int commands = host.SuiteCount("AEGP Command Suite", 1);
    (void)bench.Pass();
    (void)host.TakeFindings();
    for (const MissingSuite& other : missingSuites)
    {
        // The item suite is kept from the first use on, like the command suite.
        const int kept = std::string(other.name) == "AEGP Item Suite" ? 1 : 0;
        EXPECT_LE(host.SuiteCount(other.name, other.version), kept) << other.name << " " << other.version;
    }
    EXPECT_EQ(host.SuiteCount("AEGP Command Suite", 1), commands);
    EXPECT_EQ(host.LeakedReferences(),
              std::count(suite.findings.begin(), suite.findings.end(), finding::leakedReference))
        << "what the suite would have disposed of";
}

TEST_P(PassWithoutSuite, RecoversWhenTheSuiteIsBack)
{
    (void)bench.Pass();
    (void)host.TakeFindings();
    host.Faults().GiveBack(suite.name, suite.version);
    bench.Settle();
    EXPECT_EQ(bench.TreeText(), "A B C");
    EXPECT_EQ(bench.Pass().calls, Sequence({PassHead(), NoAddsAndDeletes(), three.Read(), QuietTree()}));
}

INSTANTIATE_TEST_SUITE_P(Suites, PassWithoutSuite,
                         ::testing::Combine(::testing::ValuesIn(missingSuites),
                                            ::testing::Values(Withheld::asError, Withheld::asNullTable,
                                                              Withheld::asPoisonedPointer)));

// ---- A suite that goes missing inside a pass

class PassThatLosesASuite : public PanelTest
{
protected:
    PassThatLosesASuite()
    {
        bench.AddThree();
        bench.ShowAndSettle();
        host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
    }

    void LoseInMessage(int nth, const std::string& name, A_long version)
    {
        bench.ActInMessage("A", nth, [this, name, version] { host.Faults().Withhold(name, version); });
    }
};

TEST_F(PassThatLosesASuite, BetweenReadingsLeavesTheRebuildToTheNext)
{
    host.User().Rename("B", "X");
    const std::uint64_t layerHash = bench.plugin->layerHash;
    LoseInMessage(3, "AEGP Stream Suite", 4);
    EXPECT_EQ(bench.Pass().result.thrownNumber, 516);
    EXPECT_EQ(bench.plugin->layerHash, layerHash);
    EXPECT_EQ(bench.TreeText(), "A B C");

    host.Faults().GiveBack("AEGP Stream Suite", 4);
    EXPECT_EQ(bench.Pass().printed, "State Changed\n");
    EXPECT_EQ(bench.TreeText(), "A X C");
}

TEST_F(PassThatLosesASuite, AfterTheRebuildLosesOnlyTheSelection)
{
    host.User().Rename("B", "X");
    LoseInMessage(5, "AEGP Stream Suite", 4);
    const std::uint64_t treeHash = bench.plugin->treeHash;
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.result.thrownNumber, 516);
    EXPECT_EQ(pass.printed, "");
    EXPECT_EQ(bench.TreeText(), "A X C");
    EXPECT_EQ(bench.plugin->treeHash, treeHash);

    host.Faults().GiveBack("AEGP Stream Suite", 4);
    EXPECT_EQ(bench.Pass().printed, "") << "the layer counts as mirrored, and the two agree";
    EXPECT_NE(bench.plugin->treeHash, treeHash);
}

TEST_F(PassThatLosesASuite, BeforeAnEditTriesAgainNextPass)
{
    bench.TreeItem("B").name = "X";
    host.Faults().Withhold("AEGP Utility Suite", 3);
    const std::uint64_t treeHash = bench.plugin->treeHash;
    EXPECT_EQ(bench.Pass().result.thrownNumber, 516);
    EXPECT_EQ(bench.plugin->treeHash, treeHash);
    EXPECT_EQ(host.NameOf("B"), "B");

    host.Faults().GiveBack("AEGP Utility Suite", 3);
    (void)bench.Pass();
    EXPECT_EQ(host.NameOf("B"), "X");
}

TEST_F(PassThatLosesASuite, DuringTheAddsLosesTheKeys)
{
    const int solids = bench.on.Key("QVK VORTSRC Solids");
    bench.Tree()->keysToBeAdded = {solids, solids};
    bench.Tree()->effectsToBeRemoved = {b.uuid};
    host.Faults().Withhold("AEGP Effect Suite", 1);
    EXPECT_EQ(bench.Pass().result.thrownNumber, 516);
    EXPECT_TRUE(bench.Tree()->keysToBeAdded.empty());
    EXPECT_EQ(bench.Tree()->effectsToBeRemoved.size(), 1u) << "the deletes had not been asked for";

    host.Faults().GiveBack("AEGP Effect Suite", 1);
    bench.Settle();
    EXPECT_EQ(StackText(), "A C");
}

TEST_F(PassThatLosesASuite, DuringTheDeletesLeavesTheLayer)
{
    bench.DeleteInTree("B");
    host.Faults().Withhold("AEGP Utility Suite", 3);
    EXPECT_EQ(bench.Pass().result.thrownNumber, 516);
    EXPECT_EQ(StackText(), "A B C");
    EXPECT_TRUE(bench.Tree()->effectsToBeRemoved.empty()) << "taken, and so lost";
}

// ---- The panel's command inside a pass

class OpenWithoutSuite : public PanelTest
{
};

TEST_F(OpenWithoutSuite, AThrowingCommandConsumesTheRequest)
{
    host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
    host.Faults().Withhold("AEGP Layer Suite", 5);
    bench.Inbox().openPending = 1;
    const PassRecord pass = bench.Pass();
    EXPECT_EQ(pass.result.thrown, "") << "the host stops it at the hook that it left";
    EXPECT_EQ(pass.printed, "Make Panel Visible\n");
    EXPECT_EQ(bench.Inbox().openPending, 0);
    EXPECT_EQ(bench.Inbox().refreshPending, 0);
    EXPECT_EQ(host.FindPanel(PANEL_NAME)->state, PanelState::absent);
}
} // namespace
} // namespace standin
