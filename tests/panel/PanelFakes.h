#pragma once
// Stands in for everything that a new panel asks: the host's suites, the catalogue of effects, the tree.
// Writes every call down in order and gives the answers that a test lays out.

#include "host/HostSuites.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

class ValueTreesDemo
{
};

struct _TreeStateTable_Internal
{
};

namespace standin
{
/// One at a time: the functions that it stands in for are free functions, and the newest answers them.
class PanelFakes
{
public:
    PanelFakes();
    ~PanelFakes();
    PanelFakes(const PanelFakes&) = delete;
    PanelFakes& operator=(const PanelFakes&) = delete;

    static PanelFakes& Current();

    /// The calls since the last time it was asked, one text each.
    std::vector<std::string> TakeCalls();

    SPBasicSuite basicSuite;

    // The answers.
    std::set<std::string> missingSuites;                   ///< By name.
    std::map<std::string, std::vector<int>> keys;          ///< By the prefix that is looked for.
    std::map<std::string, std::vector<std::string>> names; ///< By "src", "eff" and "ren".
    int mainKey = 0;
    PF_App_Color colour = {};
    PF_Err colourError = 0; ///< The colour is not written if it is not 0.
    A_Err versionError = 0;

    /// The widget and the table that the next creation hands out.
    ValueTreesDemo widget;
    _TreeStateTable_Internal table;

    std::function<void(void* embeddedView, void* nativeParent)> onAddToDesktop;
    std::function<void()> onDeleteTreeWidget;
    std::function<void()> onCreateTreeWidget;
    std::function<void()> onCreateTreeStateTable;

    float background[4] = {-1, -1, -1, -1};
    std::vector<std::string> calls;
};

std::string ToText(const void* pointer);
} // namespace standin
