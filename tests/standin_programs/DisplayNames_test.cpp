// The display names that the stand-in expects, compared with the plug-in's.

#include "effects/ObjectItem.h"
#include "sdk/VortanFamily.h"
#include "standin/user/eyes/DisplayNames.h"

#include <gtest/gtest.h>

using standin::user::DisplayNameOf;

TEST(DisplayNames, AreThoseThatThePlugInShows)
{
    std::vector<std::string> names{"Vortan", "lamp", "", "A Vortan Placement", "Vortan Cutter"};
    for (const VortanRowName& row : VORTAN_ROW_NAMES)
        names.insert(names.end(), {row.defaultName, row.defaultName + std::string(" 2")});
    for (const std::string& name : names)
        EXPECT_EQ(DisplayNameOf(name), GetItemDisplayString(name)) << name;
    EXPECT_EQ(DisplayNameOf("Vortan Route Object"), "Routes");
}
