// The stand-in's own table of display names, held against the plug-in's.

#include "effects/ObjectItem.h"
#include "standin/user/eyes/DisplayNames.h"

#include <gtest/gtest.h>

TEST(DisplayNames, AreThoseThatThePlugInShows)
{
    for (const char* name : {"Vortan Sheets Object",
                             "Vortan Route Object",
                             "Vortan GEO Object",
                             "Vortan Solids Object",
                             "Vortan Copies Object",
                             "Vortan Cutter Object",
                             "Vortan Round Zone",
                             "Vortan Jitter Effector",
                             "Vortan Enclosure",
                             "Vortan Placement",
                             "Vortan Tint Table",
                             "Vortan Dimmer Effector",
                             "Vortan Pulse Effector",
                             "Vortan Dots Renderer",
                             "Vortan Strokes Renderer",
                             "Vortan Tiling Renderer",
                             "Vortan Rays Renderer",
                             "Vortan Panes Renderer",
                             "Vortan Elder Renderer",
                             "Vortan",
                             "lamp",
                             "",
                             "Vortan Jitter Effector 2",
                             "A Vortan Placement",
                             "Vortan Cutter"})
        EXPECT_EQ(standin::user::DisplayNameOf(name), GetItemDisplayString(name)) << name;
    EXPECT_EQ(standin::user::DisplayNameOf("Vortan Route Object"), "Routes");
}
