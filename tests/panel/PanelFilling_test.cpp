#include "panel/PanelContents.h"

#include "tests/panel/PanelFakes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

namespace standin
{
namespace
{
using Calls = std::vector<std::string>;

class PanelFilling : public testing::Test
{
protected:
    ValueTreesDemo* Create() { return CreatePanelContents(&fakes.basicSuite, &stateTable, &tree); }

    /// The integer that the creation throws.
    int CreateAndCatch()
    {
        try
        {
            (void)Create();
        }
        catch (int thrown)
        {
            return thrown;
        }
        return 0;
    }

    PanelFakes fakes;
    ValueTreesDemo* tree = nullptr;
    _TreeStateTable_Internal* stateTable = nullptr;
};

const Calls lookups = {"CreateTreeWidget 0", "CreateTreeStateTable", "FindEffectKeys QVK VORTEFF",
                       "FindEffectKeys QVK VORTSRC", "FindEffectKeys QVK VORTREN"};

Calls operator+(Calls first, const Calls& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST_F(PanelFilling, AreFilledInOneFixedOrder)
{
    fakes.keys = {{"QVK VORTEFF", {21, 22}}, {"QVK VORTSRC", {13, 11}}, {"QVK VORTREN", {31}}};
    fakes.names = {{"eff", {"Jitter", "Placement"}}, {"src", {"Routes", "Sheets"}}, {"ren", {"Dots"}}};
    fakes.mainKey = 9;

    EXPECT_EQ(Create(), &fakes.widget);

    EXPECT_EQ(tree, &fakes.widget);
    EXPECT_EQ(stateTable, &fakes.table);
    EXPECT_EQ(
        fakes.TakeCalls(),
        (lookups + Calls{"GetObjectsPopupString src 13 11", "GetObjectsPopupString eff 21 22",
                         "GetObjectsPopupString ren 31", "AddObject 2 21 Jitter", "AddObject 2 22 Placement",
                         "AddObject 1 13 Routes", "AddObject 1 11 Sheets", "AddObject 3 31 Dots",
                         "GetEffectKeyFromMatchName QVK VORTAN TWO", "AddObject 4 9 Vortan",
                         "AcquireSuite AEGP Utility Suite 7", "AEGP_GetDriverPluginInitFuncVersion 0.0",
                         "AcquireSuite PF AE App Suite 6", "PF_AppGetBgColor", "SetBGColor",
                         "ReleaseSuite AEGP Utility Suite 7", "ReleaseSuite PF AE App Suite 6"}));
}

const Calls nothingInstalled = {"GetObjectsPopupString src", "GetObjectsPopupString eff",
                                "GetObjectsPopupString ren", "GetEffectKeyFromMatchName QVK VORTAN TWO"};
const Calls ending = {"AcquireSuite AEGP Utility Suite 7",
                      "AEGP_GetDriverPluginInitFuncVersion 0.0",
                      "AcquireSuite PF AE App Suite 6",
                      "PF_AppGetBgColor",
                      "SetBGColor",
                      "ReleaseSuite AEGP Utility Suite 7",
                      "ReleaseSuite PF AE App Suite 6"};

TEST_F(PanelFilling, OfferNothingInAHostWithoutTheFamily)
{
    (void)Create();

    EXPECT_EQ(fakes.TakeCalls(), lookups + nothingInstalled + ending);
}

TEST_F(PanelFilling, ReplaceTheWidgetThenTheTable)
{
    ValueTreesDemo formerTree;
    _TreeStateTable_Internal formerTable;
    tree = &formerTree;
    stateTable = &formerTable;

    (void)Create();

    EXPECT_EQ(tree, &fakes.widget);
    EXPECT_EQ(stateTable, &fakes.table);
    EXPECT_EQ(fakes.TakeCalls(), (Calls{"DeleteTreeWidget " + ToText(&formerTree),
                                        "DeleteTreeStateTable " + ToText(&formerTable)} +
                                  lookups + nothingInstalled + ending));
}

TEST_F(PanelFilling, ClearTheFormerPointersFirst)
{
    ValueTreesDemo formerTree;
    _TreeStateTable_Internal formerTable;
    tree = &formerTree;
    stateTable = &formerTable;
    fakes.onCreateTreeWidget = [this] { EXPECT_EQ(tree, nullptr); };
    fakes.onCreateTreeStateTable = [this] { EXPECT_EQ(stateTable, nullptr); };

    (void)Create();

    EXPECT_EQ(tree, &fakes.widget);
    EXPECT_EQ(stateTable, &fakes.table);
}

TEST_F(PanelFilling, ReplaceAFormerTableAlone)
{
    _TreeStateTable_Internal formerTable;
    stateTable = &formerTable;

    (void)Create();

    EXPECT_EQ(fakes.TakeCalls(),
              Calls{"DeleteTreeStateTable " + ToText(&formerTable)} + lookups + nothingInstalled + ending);
}

TEST_F(PanelFilling, AreMadeWithoutAPlaceToStoreThem)
{
    EXPECT_EQ(CreatePanelContents(&fakes.basicSuite, nullptr, nullptr), &fakes.widget);

    EXPECT_EQ(fakes.TakeCalls(), lookups + nothingInstalled + ending);
}

TEST_F(PanelFilling, WithTooFewNamesThrowOutOfRange)
{
    fakes.keys = {{"QVK VORTEFF", {21}}, {"QVK VORTSRC", {11, 12}}};
    fakes.names = {{"eff", {"Jitter"}}, {"src", {"Sheets"}}};

    EXPECT_THROW((void)Create(), std::out_of_range);

    EXPECT_EQ(tree, &fakes.widget);
    EXPECT_EQ(stateTable, &fakes.table);
    EXPECT_EQ(fakes.TakeCalls(), (lookups + Calls{"GetObjectsPopupString src 11 12",
                                                  "GetObjectsPopupString eff 21", "GetObjectsPopupString ren",
                                                  "AddObject 2 21 Jitter", "AddObject 1 11 Sheets"}));
}

TEST_F(PanelFilling, WithoutTheUtilitySuiteThrow516AndStayStored)
{
    fakes.missingSuites = {"AEGP Utility Suite"};

    EXPECT_EQ(CreateAndCatch(), 516);

    EXPECT_EQ(tree, &fakes.widget);
    EXPECT_EQ(stateTable, &fakes.table);
    EXPECT_EQ(fakes.TakeCalls(), (lookups + nothingInstalled + Calls{"AcquireSuite AEGP Utility Suite 7"}));
}

TEST_F(PanelFilling, WithoutTheAppSuiteThrow516AndRelease)
{
    fakes.missingSuites = {"PF AE App Suite"};

    EXPECT_EQ(CreateAndCatch(), 516);

    EXPECT_EQ(tree, &fakes.widget);
    EXPECT_EQ(fakes.TakeCalls(),
              (lookups + nothingInstalled +
               Calls{"AcquireSuite AEGP Utility Suite 7", "AEGP_GetDriverPluginInitFuncVersion 0.0",
                     "AcquireSuite PF AE App Suite 6", "ReleaseSuite AEGP Utility Suite 7"}));
}

TEST_F(PanelFilling, WithoutABasicSuiteThrow516WithTheWidget)
{
    EXPECT_THROW((void)CreatePanelContents(nullptr, &stateTable, &tree), int);

    EXPECT_EQ(tree, &fakes.widget);
    EXPECT_EQ(fakes.TakeCalls(), (Calls{"CreateTreeWidget 0", "CreateTreeStateTable"}));
}

TEST_F(PanelFilling, TakeOverTheHostsColourChannelByChannel)
{
    fakes.colour = {65535, 12345, 256};

    (void)Create();

    const std::uint32_t stepBits = 0x37800080;
    float step = 0;
    std::memcpy(&step, &stepBits, sizeof step);
    EXPECT_EQ(fakes.background[0], 65535.0f * step);
    EXPECT_EQ(fakes.background[1], 12345.0f * step);
    EXPECT_EQ(fakes.background[2], 256.0f * step);
    EXPECT_EQ(fakes.background[3], 1.0f);
}

TEST_F(PanelFilling, StayBlackWithoutTheHostsColour)
{
    fakes.colour = {65535, 65535, 65535};
    fakes.colourError = 1;

    (void)Create();

    EXPECT_EQ(fakes.background[0], 0.0f);
    EXPECT_EQ(fakes.background[1], 0.0f);
    EXPECT_EQ(fakes.background[2], 0.0f);
    EXPECT_EQ(fakes.background[3], 1.0f);
}

TEST_F(PanelFilling, IgnoreAHostWithoutItsVersion)
{
    fakes.versionError = 1;

    EXPECT_EQ(Create(), &fakes.widget);
    EXPECT_EQ(fakes.TakeCalls(), lookups + nothingInstalled + ending);
}

} // namespace
} // namespace standin
