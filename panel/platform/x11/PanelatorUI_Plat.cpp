#include "panel/platform/PanelatorUI_Plat.h"

#include "panel/PanelContents.h"
#include "panel/platform/x11/X11Embedding.h"

namespace
{
struct Size
{
    int width = 0;
    int height = 0;
};

/// Zero for no container, and for one that cannot be asked.
Size sizeOf(Window container)
{
    Display* const display = GetTreeDisplay();
    XWindowAttributes attributes;
    if (container == None || display == nullptr || XGetWindowAttributes(display, container, &attributes) == 0)
        return {};
    return {attributes.width, attributes.height};
}
} // namespace

PanelatorUI_Plat::PanelatorUI_Plat(SPBasicSuite* basicSuite, AEGP_PanelH hostPanel, PlatformView hostView,
                                   AEGP_PanelFunctions1* functions, _TreeStateTable_Internal** stateTable,
                                   ValueTreesDemo** tree)
    : PanelatorUI(basicSuite, hostPanel, hostView, functions)
{
    const auto container = reinterpret_cast<Window>(view);
    const Size size = sizeOf(container);
    ValueTreesDemo* const widget = CreatePanelContents(basicSuite, stateTable, tree);
    addToDesktop(widget, nullptr, size.width, size.height, view);
    if (container != None)
        X11Embedding::Attach(widget, container);
}
