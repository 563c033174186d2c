#pragma once
// What every platform's side of a panel has in common: the host's container and handle, and the two
// suites that are held for the panel's life.

#include "host/SuiteHelper.h"
#include "panel/platform/PlatformView.h"

/// The host keeps a pointer to it as the panel's refcon. It owns neither the view nor the handle.
class PanelatorUI
{
public:
    /// A null view is allowed: the panel then has no parent and no size. Leaves the function table as it
    /// is, so the panel has the host's own snap sizes and no flyout menu.
    /// Throws the integer 13 if either suite is missing.
    PanelatorUI(SPBasicSuite*, AEGP_PanelH, PlatformView, AEGP_PanelFunctions1*);
    ~PanelatorUI();

    PanelatorUI(const PanelatorUI&) = delete;
    PanelatorUI& operator=(const PanelatorUI&) = delete;

protected:
    PlatformView view;
    AEGP_PanelH panelH;

    // Kept: nothing calls these two. They hold their suites for as long as the panel lives.
    SuiteHelper<PFAppSuite4, AssertAndThrowOnMissingSuite<PFAppSuite4>> appSuite;
    SuiteHelper<AEGP_PanelSuite1, AssertAndThrowOnMissingSuite<AEGP_PanelSuite1>> panelSuite;
};
