#include "panel/platform/PanelatorUI_Plat.h"

#include "panel/PanelContents.h"
#import "panel/platform/mac/SurfaceView.h"

#import <AppKit/AppKit.h>

namespace
{
/// The host resizes its container, AppKit the container's subviews, and JUCE follows its own view.
void followContainer(NSView* container)
{
    for (NSView* subview in [container subviews])
        [subview setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
}
} // namespace

PanelatorUI_Plat::PanelatorUI_Plat(SPBasicSuite* basicSuite, AEGP_PanelH hostPanel, PlatformView hostView,
                                   AEGP_PanelFunctions1* functions, _TreeStateTable_Internal** stateTable,
                                   ValueTreesDemo** tree)
    : PanelatorUI(basicSuite, hostPanel, hostView, functions)
{
    const NSRect bounds = view != nil ? [view bounds] : NSZeroRect;
    ValueTreesDemo* const widget = CreatePanelContents(basicSuite, stateTable, tree);

    const NSRect frame = view != nil ? [view frame] : NSZeroRect;
    SurfaceView* const surface = [[SurfaceView alloc] initWithFrame:frame];
    addToDesktop(widget, surface, static_cast<int>(bounds.size.width), static_cast<int>(bounds.size.height),
                 view);
    // The widget has retained the surface and lets it go when it is deleted.
    [surface release];
    followContainer(view);
}
