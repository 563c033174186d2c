#include "panel/PanelContents.h"

#include "effects/EffectCatalogue.h"

namespace
{
/// One menu's worth of installed effects; the two lists run in parallel.
struct EffectMenu
{
    std::vector<int> keys;
    std::vector<std::string> names;
};

struct EffectMenus
{
    EffectMenu effectors;
    EffectMenu geometry;
    EffectMenu renderers;
};

void deleteFormerPanel(_TreeStateTable_Internal** stateTable, ValueTreesDemo** tree)
{
    if (tree != nullptr && *tree != nullptr)
    {
        DeleteTreeWidget(*tree);
        *tree = nullptr;
    }
    if (stateTable != nullptr && *stateTable != nullptr)
    {
        DeleteTreeStateTable(*stateTable);
        *stateTable = nullptr;
    }
}

ValueTreesDemo* createPanel(_TreeStateTable_Internal** stateTable, ValueTreesDemo** tree)
{
    ValueTreesDemo* const widget = CreateTreeWidget(false);
    if (tree != nullptr)
        *tree = widget;
    _TreeStateTable_Internal* const table = CreateTreeStateTable();
    if (stateTable != nullptr)
        *stateTable = table;
    return widget;
}

EffectMenus collectEffectMenus(const AEGP_SuiteHandler& suites)
{
    EffectMenus menus;
    (void)FindEffectKeys(suites, menus.effectors.keys, EFFECTOR_PREFIX);
    (void)FindEffectKeys(suites, menus.geometry.keys, GEOMETRY_PREFIX);
    (void)FindEffectKeys(suites, menus.renderers.keys, RENDERER_PREFIX);
    menus.geometry.names =
        GetObjectsPopupString(suites, menus.geometry.keys, src_match_name_array, src_display_array);
    menus.effectors.names =
        GetObjectsPopupString(suites, menus.effectors.keys, eff_match_name_array, eff_display_array);
    menus.renderers.names =
        GetObjectsPopupString(suites, menus.renderers.keys, ren_match_name_array, ren_display_array);
    return menus;
}

void addMenu(ValueTreesDemo* widget, VN_OBJECT_TYPE type, const EffectMenu& menu)
{
    for (std::size_t i = 0; i < menu.keys.size(); ++i)
        AddObject(widget, type, menu.keys[i], menu.names.at(i).c_str());
}

void addMainEffect(ValueTreesDemo* widget, SPBasicSuite* basicSuite)
{
    const int key = GetEffectKeyFromMatchName(basicSuite, MAIN_MATCH_NAME);
    if (key != AEGP_InstalledEffectKey_NONE)
        AddObject(widget, VN_OBJECT_VORTAN, key, "Vortan");
}

/// Kept: the host is asked for its version and the answer is not used.
void askForVersion(const AEGP_SuiteHandler& suites)
{
    A_short major = 0;
    A_short minor = 0;
    (void)suites.UtilitySuite3()->AEGP_GetDriverPluginInitFuncVersion(&major, &minor);
}

/// The panel stays black if the host does not tell its colour.
void takeOverBackground(ValueTreesDemo* widget, const AEGP_SuiteHandler& suites)
{
    constexpr float perChannelStep = 1.0f / 65535.0f;

    PF_App_Color colour = {};
    (void)suites.AppSuite4()->PF_AppGetBgColor(&colour);
    SetBGColor(widget, static_cast<float>(colour.red) * perChannelStep,
               static_cast<float>(colour.green) * perChannelStep,
               static_cast<float>(colour.blue) * perChannelStep, 1.0f);
}
} // namespace

ValueTreesDemo* CreatePanelContents(SPBasicSuite* basicSuite, _TreeStateTable_Internal** stateTable,
                                    ValueTreesDemo** tree)
{
    deleteFormerPanel(stateTable, tree);
    ValueTreesDemo* const widget = createPanel(stateTable, tree);

    const AEGP_SuiteHandler suites(basicSuite);
    const EffectMenus menus = collectEffectMenus(suites);
    addMenu(widget, VN_OBJECT_EFFECTOR, menus.effectors);
    addMenu(widget, VN_OBJECT_GEOMETRY, menus.geometry);
    addMenu(widget, VN_OBJECT_RENDERER, menus.renderers);
    addMainEffect(widget, basicSuite);
    askForVersion(suites);
    takeOverBackground(widget, suites);
    return widget;
}
