// A panel that is filled from a catalogue which has fewer names than keys, as the real one never has.

#include "panel/PanelContents.h"

#include "tests/panel/PanelFakes.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace standin
{
namespace
{
using Calls = std::vector<std::string>;

TEST(PanelFilling, WithTooFewNamesThrowsOutOfRange)
{
    PanelFakes fakes;
    ValueTreesDemo* tree = nullptr;
    _TreeStateTable_Internal* stateTable = nullptr;
    fakes.keys = {{"QVK VORTEFF", {21}}, {"QVK VORTSRC", {11, 12}}};
    fakes.names = {{"eff", {"Jitter"}}, {"src", {"Sheets"}}};

    EXPECT_THROW((void)CreatePanelContents(&fakes.basicSuite, &stateTable, &tree), std::out_of_range);

    EXPECT_NE(tree, nullptr);
    EXPECT_NE(stateTable, nullptr);
    EXPECT_EQ(fakes.TakeCalls(), (Calls{"CreateTreeWidget(false)", "CreateTreeStateTable()",
                                        "FindEffectKeys QVK VORTEFF", "FindEffectKeys QVK VORTSRC",
                                        "FindEffectKeys QVK VORTREN", "GetObjectsPopupString src 11 12",
                                        "GetObjectsPopupString eff 21", "GetObjectsPopupString ren",
                                        "AddObject(2, 21, \"Jitter\")", "AddObject(1, 11, \"Sheets\")"}));
    DeleteTreeWidget(tree);
    DeleteTreeStateTable(stateTable);
}
} // namespace
} // namespace standin
