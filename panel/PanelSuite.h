#pragma once
// The suite through which sibling effects in other bundles ask the panel for something. Nothing is done
// at once: each function leaves a request in the VnPanelRef, and the next idle pass finds it.
// All of it is called on the host's main thread; there is no lock.

#include "panel/VnPanelRef.h"

#include <cstddef>

constexpr const char* VN_PANEL_SUITE_NAME = "Vortan Panel Suite v1";

/// The table that other bundles read; its layout is fixed. A caller passes `panelRef` back as the first
/// argument of each function. Every function returns 0.
struct VnPanelSuite
{
    VnPanelRef* panelRef;
    int (*OpenPanel)(VnPanelRef*, unsigned char force);
    int (*RefreshPanel)(VnPanelRef*);
    int (*PanelNotify)(VnPanelRef*, const char* text);
};
static_assert(sizeof(VnPanelSuite) == 32 && offsetof(VnPanelSuite, panelRef) == 0 &&
                  offsetof(VnPanelSuite, OpenPanel) == 8 && offsetof(VnPanelSuite, RefreshPanel) == 16 &&
                  offsetof(VnPanelSuite, PanelNotify) == 24,
              "the layout that other bundles know");

/// What the panel is called. The index counts the rows from 0.
struct PanelString
{
    std::int64_t index;
    char text[256];
};
constexpr int PANEL_NAME_ROW = 1;
extern const PanelString PANEL_STRINGS[4];

/// Asks for the panel. With `force` 0, only unless it is shown and frontmost already; then throws the
/// integer 13 if the host has no panel suite.
int OpenPanel(VnPanelRef* ref, unsigned char force);

/// Asks for a rebuild of the tree. Kept: unlike PanelNotify it does not test `ref`.
int RefreshPanel(VnPanelRef* ref);

/// Asks for `text` to be shown; a second call before the next idle replaces the first. A null `ref` does
/// nothing.
int PanelNotify(VnPanelRef* ref, const char* text);
