// What a new panel is filled with: the effects that the user may add, in the host's order, and the host's
// background colour.
//
// Fewer names than keys cannot occur here: the catalogue gives one name for each key, "Not Found" if it knows
// none.

#include "panel/PanelContents.h"
#include "standin/host/core/Host.h"
#include "standin/host/faults/Sweep.h"
#include "standin/host/sensors/FindingIds.h"
#include "tests/support/FakeTree.h"
#include "tests/support/PassCalls.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A host, and the panel that is filled.
struct Filling
{
    Filling() { TreeLog() = {}; }
    ~Filling()
    {
        DeleteTreeWidget(tree);
        DeleteTreeStateTable(table);
        TreeLog() = {};
    }

    void Install(const char* matchName)
    {
        InstalledEffect effect;
        effect.matchName = matchName;
        (void)host.Install(effect);
    }

    SPBasicSuite* Basic() { return static_cast<SPBasicSuite*>(host.BasicSuite()); }

    void Fill()
    {
        record.clear();
        host.ClearTrace();
        TreeLog().sink = [this](const std::string& call)
        {
            TakeHostCalls();
            record.push_back(call);
        };
        result = host.RunInHook([&] { (void)CreatePanelContents(Basic(), &table, &tree); });
        TakeHostCalls();
        TreeLog().sink = nullptr;
    }

    void TakeHostCalls()
    {
        for (std::string& call : host.CallTexts())
            record.push_back(std::move(call));
        host.ClearTrace();
    }

    Host host;
    _TreeStateTable_Internal* table = nullptr;
    ValueTreesDemo* tree = nullptr;
    HookResult result;
    Calls record;
};

class PanelContents : public ::testing::Test, protected Filling
{
protected:
    void TearDown() override
    {
        host.CheckSuiteBalance();
        EXPECT_EQ(host.FindingsReport(), "");
    }

    Calls Entries() const
    {
        Calls entries;
        for (const auto& [type, key, name] : tree->entries)
            entries.push_back(std::to_string(type) + " " + host.FindInstalled(key)->matchName + " as " +
                              name);
        return entries;
    }
};

/// One walk over the installed effects, of which there are five with these keys.
Calls walk()
{
    return {"Effect 1 AEGP_GetNumInstalledEffects() -> 5",
            "Effect 1 AEGP_GetNextInstalledEffect(0) -> 201",
            R"(Effect 1 AEGP_GetEffectMatchName(201) -> "QVK VORTREN Dots")",
            "Effect 1 AEGP_GetNextInstalledEffect(201) -> 204",
            R"(Effect 1 AEGP_GetEffectMatchName(204) -> "QVK VORTSRC Lamps")",
            "Effect 1 AEGP_GetNextInstalledEffect(204) -> 207",
            R"(Effect 1 AEGP_GetEffectMatchName(207) -> "QVK VORTEFF Round Zone")",
            "Effect 1 AEGP_GetNextInstalledEffect(207) -> 210",
            R"(Effect 1 AEGP_GetEffectMatchName(210) -> "QVK VORTAN TWO")",
            "Effect 1 AEGP_GetNextInstalledEffect(210) -> 213",
            R"(Effect 1 AEGP_GetEffectMatchName(213) -> "ADBE Fill")"};
}

/// The walk that stops at the main effect.
Calls walkToMain()
{
    Calls calls = walk();
    calls.resize(9);
    return calls;
}

TEST_F(PanelContents, AreCollectedAndHandedOverInThisOrder)
{
    for (const char* name :
         {"QVK VORTREN Dots", "QVK VORTSRC Lamps", "QVK VORTEFF Round Zone", "QVK VORTAN TWO", "ADBE Fill"})
        Install(name);
    host.SetBackgroundColour({0xffff, 0, 0xffff});
    Fill();
    EXPECT_EQ(result.thrown, "");
    EXPECT_EQ(
        record,
        Sequence({
            {"Tree CreateTreeWidget(false)", "Tree CreateTreeStateTable()",
             R"(Basic AcquireSuite("AEGP Effect Suite", 1))"},
            walk(), // Effectors.
            walk(), // Geometry.
            walk(), // Renderers.
            // The names: geometry, effectors, renderers.
            {R"(Effect 1 AEGP_GetEffectMatchName(204) -> "QVK VORTSRC Lamps")",
             R"(Effect 1 AEGP_GetEffectMatchName(207) -> "QVK VORTEFF Round Zone")",
             R"(Effect 1 AEGP_GetEffectMatchName(201) -> "QVK VORTREN Dots")"},
            {R"(Tree AddObject(2, 207, "Round Zone"))", R"(Tree AddObject(1, 204, "Sheets"))",
             R"(Tree AddObject(3, 201, "Dots"))"},
            {R"(Basic AcquireSuite("AEGP Effect Suite", 1))"},
            walkToMain(),
            {R"(Basic ReleaseSuite("AEGP Effect Suite", 1))", R"(Tree AddObject(4, 210, "Vortan"))",
             R"(Basic AcquireSuite("AEGP Utility Suite", 7))",
             "Utility 7 AEGP_GetDriverPluginInitFuncVersion() -> 114, 0",
             R"(Basic AcquireSuite("PF AE App Suite", 6))", "App 6 PF_AppGetBgColor() -> 65535, 0, 65535",
             "Tree SetBGColor(1, 0, 1, 1)", R"(Basic ReleaseSuite("AEGP Effect Suite", 1))",
             R"(Basic ReleaseSuite("AEGP Utility Suite", 7))", R"(Basic ReleaseSuite("PF AE App Suite", 6))"},
        }));
}

TEST_F(PanelContents, ListEachKindInTheHostsOrder)
{
    for (const char* name :
         {"QVK VORTSRC GEO", "QVK VORTSRC Lamps", "QVK VORTEFF Jitter", "QVK VORTSRC Routes",
          "QVK VORTEFF Round Zone", "QVK VORTAN", "QVK VORTKIT", "QVK VORTREN Dots"})
        Install(name);
    Fill();
    EXPECT_THAT(Entries(),
                ElementsAre("2 QVK VORTEFF Jitter as Jitter", "2 QVK VORTEFF Round Zone as Round Zone",
                            "1 QVK VORTSRC GEO as GEO", "1 QVK VORTSRC Lamps as Sheets",
                            "1 QVK VORTSRC Routes as Routes", "3 QVK VORTREN Dots as Dots"))
        << "neither the legacy effect nor the kit effect is offered";
}

TEST_F(PanelContents, OfferUnsearchedEffectsAsNotFound)
{
    Install("QVK VORTSRC Routes");
    Fill();
    EXPECT_THAT(Entries(), ElementsAre("1 QVK VORTSRC Routes as Not Found"));
}

TEST_F(PanelContents, WithoutTheFamilyOfferNothing)
{
    Install("ADBE Fill");
    Fill();
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(PanelContents, OfAHostWithNothingInstalledOfferNothing)
{
    Fill();
    EXPECT_EQ(result.thrown, "");
    EXPECT_THAT(Entries(), IsEmpty());
}

TEST_F(PanelContents, DoNotOfferAMainEffectWithoutName)
{
    Install("QVK VORTAN TWO");
    host.Faults().FailFunction("AEGP_GetEffectMatchName", 4); // Each of the three menus has asked once.
    Fill();
    EXPECT_EQ(result.thrown, "");
    EXPECT_THAT(Entries(), IsEmpty());
    host.Faults().Disarm();
    Fill();
    EXPECT_THAT(Entries(), ElementsAre("4 QVK VORTAN TWO as Vortan"));
}

// ---- The colour

std::uint32_t bitsOf(float value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

TEST_F(PanelContents, MultiplyEachChannelInSinglePrecision)
{
    host.SetBackgroundColour({1, 0x8000, 0xffff});
    Fill();
    EXPECT_EQ(bitsOf(tree->background[0]), 0x37800080u) << "the factor itself";
    EXPECT_EQ(bitsOf(tree->background[1]), 0x3f000080u);
    EXPECT_EQ(bitsOf(tree->background[2]), 0x3f800000u);
    EXPECT_EQ(bitsOf(tree->background[3]), 0x3f800000u);
}

TEST_F(PanelContents, DoNotDivideTheChannels)
{
    host.SetBackgroundColour({257, 4112, 64640});
    Fill();
    EXPECT_EQ(bitsOf(tree->background[0]), 0x3b808080u);
    EXPECT_EQ(bitsOf(tree->background[1]), 0x3d808080u);
    EXPECT_EQ(bitsOf(tree->background[2]), 0x3f7c80fcu);
}

TEST_F(PanelContents, AreBlackWithoutTheHostsColour)
{
    host.Faults().FailFunction("PF_AppGetBgColor");
    Fill();
    EXPECT_THAT(tree->background, ElementsAre(0.0f, 0.0f, 0.0f, 1.0f));
}

// ---- Former panels, and addresses that are not there

TEST_F(PanelContents, ReplaceTheFormerWidgetAndTable)
{
    Fill();
    table->states[1] = "former";
    Install("QVK VORTAN TWO");
    Fill();
    EXPECT_EQ(Calls(record.begin(), record.begin() + 4),
              (Calls{"Tree DeleteTreeWidget(tree)", "Tree DeleteTreeStateTable(table)",
                     "Tree CreateTreeWidget(false)", "Tree CreateTreeStateTable()"}));
    EXPECT_THAT(table->states, IsEmpty());
    EXPECT_EQ(tree->entries.size(), 1u);
}

TEST_F(PanelContents, ClearTheFormerPointersFirst)
{
    Fill();
    int created = 0;
    TreeLog().sink = [&](const std::string& call)
    {
        if (call.rfind("Tree Create", 0) != 0)
            return;
        ++created;
        EXPECT_EQ(call == "Tree CreateTreeWidget(false)" ? static_cast<void*>(tree) : table, nullptr);
    };
    host.RunInHook([&] { (void)CreatePanelContents(Basic(), &table, &tree); });
    TreeLog().sink = nullptr;
    EXPECT_EQ(created, 2);
}

TEST_F(PanelContents, ReplaceAFormerTableAlone)
{
    Fill();
    DeleteTreeWidget(std::exchange(tree, nullptr));
    Fill();
    EXPECT_EQ(record.at(0), "Tree DeleteTreeStateTable(table)");
    EXPECT_EQ(record.at(1), "Tree CreateTreeWidget(false)");
}

TEST_F(PanelContents, WithoutBasicSuiteThrow516WithTheWidget)
{
    EXPECT_THROW((void)CreatePanelContents(nullptr, &table, &tree), int);
    EXPECT_NE(tree, nullptr);
    EXPECT_THAT(TreeLog().calls, ElementsAre("CreateTreeWidget(false)", "CreateTreeStateTable()"));
}

TEST_F(PanelContents, GiveTheWidgetBackThatTheyStore)
{
    ValueTreesDemo* widget = nullptr;
    host.RunInHook([&] { widget = CreatePanelContents(Basic(), &table, &tree); });
    EXPECT_EQ(widget, tree);
    EXPECT_NE(widget, nullptr);
}

TEST_F(PanelContents, DoWithoutAnAddressForTheWidget)
{
    Install("QVK VORTAN TWO");
    ValueTreesDemo* widget = nullptr;
    host.RunInHook([&] { widget = CreatePanelContents(Basic(), &table, nullptr); });
    EXPECT_NE(table, nullptr);
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->entries.size(), 1u);
    DeleteTreeWidget(widget);
}

TEST_F(PanelContents, DoWithoutAnAddressForTheTable)
{
    host.RunInHook([&] { (void)CreatePanelContents(Basic(), nullptr, &tree); });
    EXPECT_NE(tree, nullptr);
    EXPECT_EQ(table, nullptr);
    EXPECT_EQ(TreeLog().calls.at(1), "CreateTreeStateTable()");
    DeleteTreeStateTable(TreeLog().lastTable); // It is stored nowhere.
}

// ---- Faults

TEST_F(PanelContents, IgnoreAHostWithoutAVersion)
{
    host.Faults().FailFunction("AEGP_GetDriverPluginInitFuncVersion");
    Fill();
    EXPECT_EQ(result.thrown, "");
    EXPECT_EQ(record.back(), R"(Basic ReleaseSuite("PF AE App Suite", 6))");
}

TEST_F(PanelContents, WithoutASuiteThrowWithBothStored)
{
    host.Expect(finding::exceptionLeftHook, "", "a missing suite is the host's business");
    struct Missing
    {
        const char* name;
        A_long version;
    };
    for (const Missing& suite :
         {Missing{"AEGP Effect Suite", 1}, Missing{"AEGP Utility Suite", 7}, Missing{"PF AE App Suite", 6}})
    {
        for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
        {
            host.Faults().Withhold(suite.name, suite.version, how);
            Fill();
            EXPECT_EQ(result.thrownNumber, 516) << suite.name;
            EXPECT_NE(tree, nullptr);
            EXPECT_NE(table, nullptr);
            EXPECT_EQ(host.SuiteCount("AEGP Effect Suite", 1), 0);
            host.Faults().Disarm();
        }
    }
}

std::unique_ptr<Filling> withThree()
{
    auto filling = std::make_unique<Filling>();
    for (const char* name : {"QVK VORTREN Dots", "QVK VORTSRC Lamps", "QVK VORTAN TWO"})
        filling->Install(name);
    return filling;
}

void fillPlainly(Filling& filling)
{
    filling.result = filling.host.RunInHook(
        [&] { (void)CreatePanelContents(filling.Basic(), &filling.table, &filling.tree); });
}

void checkFilling(Filling& filling, const SweptFault& fault)
{
    SCOPED_TRACE(fault.Text());
    const bool wasAcquire = fault.call.rfind("Basic AcquireSuite", 0) == 0;
    EXPECT_EQ(filling.result.thrownNumber.has_value(),
              wasAcquire ||
                  (fault.length == FaultLength::everythingForGood && !filling.result.thrown.empty()));
    EXPECT_NE(filling.tree, nullptr);
    EXPECT_NE(filling.table, nullptr);
    for (const Finding& found : filling.host.TakeFindings())
    {
        // A walk that cannot step asks for the name of the key 0.
        EXPECT_TRUE(found.id == finding::exceptionLeftHook || found.id == finding::unknownKey)
            << found.Text();
    }
    filling.host.CheckSuiteBalance();
    EXPECT_EQ(filling.host.FindingsReport(), "");
}

TEST(PanelContentsFaults, FillingSurvivesEachFailedCall)
{
    EXPECT_EQ(SweepFaults(&withThree, &fillPlainly, &checkFilling), 40u);
}
} // namespace
} // namespace standin
