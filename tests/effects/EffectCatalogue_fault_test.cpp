#include "effects/EffectCatalogue.h"

#include "standin/host/faults/Sweep.h"
#include "tests/effects/FaultOutcome.h"

#include <gtest/gtest.h>

#include <memory>

namespace standin
{
namespace
{
/// Three effects installed, two of them geometry, and the lookups that run over them.
struct SmallCatalogue
{
    SmallCatalogue()
    {
        Install(11, "QVK VORTSRC Lamps");
        Install(12, "ADBE Fill");
        Install(13, "QVK VORTSRC Routes");
    }

    void Install(A_long key, const std::string& matchName)
    {
        InstalledEffect effect;
        effect.key = key;
        effect.matchName = matchName;
        (void)host.Install(effect);
    }

    SPBasicSuite* Basic() { return static_cast<SPBasicSuite*>(host.BasicSuite()); }

    void RunFind()
    {
        int err = -1;
        const HookResult hook = host.RunInHook(
            [&]
            {
                const AEGP_SuiteHandler suites(Basic());
                err = FindEffectKeys(suites, keys, "QVK VORTSRC");
            });
        outcome = OutcomeText(hook, err);
    }

    void RunKeyOf()
    {
        int key = -1;
        const HookResult hook =
            host.RunInHook([&] { key = GetEffectKeyFromMatchName(Basic(), "QVK VORTSRC Routes"); });
        outcome = OutcomeText(hook, key);
    }

    void RunPopup()
    {
        const HookResult hook = host.RunInHook(
            [&]
            {
                const AEGP_SuiteHandler suites(Basic());
                texts = GetObjectsPopupString(suites, {13, 11}, src_match_name_array, src_display_array);
            });
        outcome = OutcomeText(hook, 0);
    }

    Host host;
    std::vector<int> keys;
    std::vector<std::string> texts;
    std::string outcome;
};

/// What the host finds as well: an integer that left the hook, and questions for the name of the key 0 by a
/// walk whose first step failed.
FindingIds expectedFindings(const std::string& outcome, const SweptFault& fault)
{
    FindingIds ids;
    if (outcome == "threw 516")
        ids.insert("exception-left-hook");
    if (fault.call == "Effect 1 AEGP_GetNextInstalledEffect(0) -> 11" &&
        fault.length != FaultLength::everythingForGood)
        ids.insert("unknown-key");
    return ids;
}

/// One row for each call of the clean run: the outcome if the call fails once, if its function fails from
/// then on, and if everything does.
template <class Value>
struct Row
{
    const char* call;
    const char* outcome;
    Value once;
    Value functionForGood;
    Value everythingForGood;
};

template <class Value>
const Value& valueOf(const Row<Value>& row, FaultLength length)
{
    if (length == FaultLength::once)
        return row.once;
    return length == FaultLength::functionForGood ? row.functionForGood : row.everythingForGood;
}

std::unique_ptr<SmallCatalogue> make() { return std::make_unique<SmallCatalogue>(); }

using Keys = std::vector<int>;
const Row<Keys> findingRows[] = {
    {"Basic AcquireSuite(\"AEGP Effect Suite\", 1)", "threw 516", {}, {}, {}},
    {"Effect 1 AEGP_GetNumInstalledEffects() -> 3", "returned 1", {}, {}, {}},
    {"Effect 1 AEGP_GetNextInstalledEffect(0) -> 11", "returned 1", {}, {}, {}},
    {"Effect 1 AEGP_GetEffectMatchName(11) -> \"QVK VORTSRC Lamps\"", "returned 0", {13}, {}, {}},
    {"Effect 1 AEGP_GetNextInstalledEffect(11) -> 12", "returned 1", {11, 11, 11}, {11, 11, 11}, {11}},
    {"Effect 1 AEGP_GetEffectMatchName(12) -> \"ADBE Fill\"", "returned 0", {11, 13}, {11}, {11}},
    {"Effect 1 AEGP_GetNextInstalledEffect(12) -> 13", "returned 1", {11}, {11}, {11}},
    {"Effect 1 AEGP_GetEffectMatchName(13) -> \"QVK VORTSRC Routes\"", "returned 0", {11}, {11}, {11}},
    {"Basic ReleaseSuite(\"AEGP Effect Suite\", 1)", "returned 0", {11, 13}, {11, 13}, {11, 13}},
};

/// A walk whose names cannot be read is no error, unless the steps fail too.
std::string outcomeOfFinding(const SweptFault& fault, const std::string& outcome)
{
    const bool stepsFailToo = fault.length == FaultLength::everythingForGood &&
                              fault.call.find("AEGP_GetEffectMatchName") != std::string::npos &&
                              fault.ordinal < 8;
    return stepsFailToo ? "returned 1" : outcome;
}
} // namespace

TEST(CatalogueWhileTheHostFails, EveryCallOfFindingKeysInTurn)
{
    const auto check = [](SmallCatalogue& catalogue, const SweptFault& fault)
    {
        SCOPED_TRACE(fault.Text());
        const bool clean = fault.ordinal == 0;
        const Row<Keys>& row = clean ? findingRows[8] : findingRows[fault.ordinal - 1];
        EXPECT_EQ(fault.call, clean ? "" : row.call);
        EXPECT_EQ(catalogue.outcome, outcomeOfFinding(fault, row.outcome));
        EXPECT_EQ(catalogue.keys, valueOf(row, fault.length));
        EXPECT_EQ(TakeDistinctFindingIds(catalogue.host), expectedFindings(catalogue.outcome, fault));
    };
    EXPECT_EQ(SweepFaults(
                  make, [](SmallCatalogue& catalogue) { catalogue.RunFind(); }, check),
              9u);
}

TEST(CatalogueWhileTheHostFails, FindsNoKeyAfterAnyFailedCall)
{
    const auto check = [](SmallCatalogue& catalogue, const SweptFault& fault)
    {
        SCOPED_TRACE(fault.Text());
        const bool acquireFails = fault.ordinal == 1;
        // The count, the three steps and the name that is looked for; other names may fail once.
        const bool losesIt = fault.ordinal == 2 || fault.ordinal == 3 || fault.ordinal == 5 ||
                             fault.ordinal == 7 || fault.ordinal == 8;
        const bool losesNames =
            fault.length != FaultLength::once && (fault.ordinal == 4 || fault.ordinal == 6);
        EXPECT_EQ(catalogue.outcome, acquireFails              ? "threw 516"
                                     : (losesIt || losesNames) ? "returned 0"
                                                               : "returned 13");
        EXPECT_EQ(TakeDistinctFindingIds(catalogue.host), expectedFindings(catalogue.outcome, fault));
    };
    EXPECT_EQ(SweepFaults(
                  make, [](SmallCatalogue& catalogue) { catalogue.RunKeyOf(); }, check),
              9u);
}

TEST(CatalogueWhileTheHostFails, EveryCallOfTheMenuTextsInTurn)
{
    using Texts = std::vector<std::string>;
    // Two keys search two rows, so that both texts are found while their names can be read.
    const Row<Texts> rows[] = {
        {"Basic AcquireSuite(\"AEGP Effect Suite\", 1)", "threw 516", {}, {}, {}},
        {"Effect 1 AEGP_GetEffectMatchName(13) -> \"QVK VORTSRC Routes\"",
         "returned 0",
         {"Not Found", "Not Found"},
         {"Not Found", "Not Found"},
         {"Not Found", "Not Found"}},
        {"Effect 1 AEGP_GetEffectMatchName(11) -> \"QVK VORTSRC Lamps\"",
         "returned 0",
         {"Routes", "Not Found"},
         {"Routes", "Not Found"},
         {"Routes", "Not Found"}},
        {"Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
         "returned 0",
         {"Routes", "Sheets"},
         {"Routes", "Sheets"},
         {"Routes", "Sheets"}},
    };
    const auto check = [&](SmallCatalogue& catalogue, const SweptFault& fault)
    {
        SCOPED_TRACE(fault.Text());
        const bool clean = fault.ordinal == 0;
        const Row<Texts>& row = clean ? rows[3] : rows[fault.ordinal - 1];
        EXPECT_EQ(fault.call, clean ? "" : row.call);
        EXPECT_EQ(catalogue.outcome, row.outcome);
        EXPECT_EQ(catalogue.texts, valueOf(row, fault.length));
        EXPECT_EQ(TakeDistinctFindingIds(catalogue.host), expectedFindings(catalogue.outcome, fault));
    };
    EXPECT_EQ(SweepFaults(
                  make, [](SmallCatalogue& catalogue) { catalogue.RunPopup(); }, check),
              4u);
}

// A host without the suite.

TEST(CatalogueWithoutTheSuite, Leaves516)
{
    for (const Withheld how : {Withheld::asError, Withheld::asNullTable, Withheld::asPoisonedPointer})
    {
        SmallCatalogue catalogue;
        catalogue.host.Faults().Withhold("AEGP Effect Suite", 1, how);
        catalogue.RunFind();
        EXPECT_EQ(catalogue.outcome, "threw 516");
        catalogue.RunKeyOf();
        EXPECT_EQ(catalogue.outcome, "threw 516");
        catalogue.RunPopup();
        EXPECT_EQ(catalogue.outcome, "threw 516");
        EXPECT_EQ(TakeDistinctFindingIds(catalogue.host), FindingIds{"exception-left-hook"});
    }
}

TEST(CatalogueWithoutTheSuite, NullBasicSuiteIsThe516)
{
    EXPECT_THROW((void)GetEffectKeyFromMatchName(nullptr, "QVK VORTAN TWO"), int);
}
} // namespace standin
