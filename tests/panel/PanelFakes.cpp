#include "tests/panel/PanelFakes.h"

#include "effects/EffectCatalogue.h"

#include <sstream>
#include <stdexcept>
#include <utility>

namespace standin
{
namespace
{
PanelFakes* current = nullptr;

template <class... Parts>
void record(const Parts&... parts)
{
    std::ostringstream call;
    (call << ... << parts);
    TreeLog().Add(call.str());
}

PF_Err getBgColor(PF_App_Color* colour)
{
    record("PF_AppGetBgColor");
    *colour = {};
    return 0;
}

A_Err getVersion(A_short* major, A_short* minor)
{
    record("AEGP_GetDriverPluginInitFuncVersion ", *major, ".", *minor);
    return 0;
}

const void* findTable(const std::string& name, int version)
{
    static PFAppSuite4 appSuite = {};
    static AEGP_PanelSuite1 panelSuite = {};
    static AEGP_UtilitySuite3 utilitySuite = {};
    appSuite.PF_AppGetBgColor = getBgColor;
    utilitySuite.AEGP_GetDriverPluginInitFuncVersion = getVersion;

    if (PanelFakes::Current().missingSuites.count(name) != 0)
        return nullptr;
    if (name == "PF AE App Suite" && version == 6)
        return &appSuite;
    if (name == "AEGP Workspace Panel Suite" && version == 1)
        return &panelSuite;
    if (name == "AEGP Utility Suite" && version == 7)
        return &utilitySuite;
    return nullptr;
}

SPErr acquireSuite(const char* name, std::int32_t version, const void** suite)
{
    record("AcquireSuite ", name, " ", version);
    *suite = findTable(name, version);
    return *suite == nullptr ? 0x53214664 : 0;
}

SPErr releaseSuite(const char* name, std::int32_t version)
{
    record("ReleaseSuite ", name, " ", version);
    return 0;
}

/// The catalogue's tables are told apart by their addresses.
std::string familyOf(const char** matchNames, const char** displayNames)
{
    if (matchNames == src_match_name_array && displayNames == src_display_array)
        return "src";
    if (matchNames == eff_match_name_array && displayNames == eff_display_array)
        return "eff";
    if (matchNames == ren_match_name_array && displayNames == ren_display_array)
        return "ren";
    throw std::logic_error("the two tables do not belong together");
}

std::string list(const std::vector<int>& keys)
{
    std::string text;
    for (const int key : keys)
        text += " " + std::to_string(key);
    return text;
}
} // namespace

PanelFakes::PanelFakes() : basicSuite{}
{
    basicSuite.AcquireSuite = acquireSuite;
    basicSuite.ReleaseSuite = releaseSuite;
    current = this;
    TreeLog() = {};
}

PanelFakes::~PanelFakes()
{
    current = nullptr;
    TreeLog() = {};
}

PanelFakes& PanelFakes::Current() { return *current; }

std::vector<std::string> PanelFakes::TakeCalls() { return std::exchange(TreeLog().calls, {}); }
} // namespace standin

using standin::PanelFakes;
using standin::record;

const char* src_match_name_array[] = {"src match", nullptr};
const char* src_display_array[] = {"src display", nullptr};
const char* eff_match_name_array[] = {"eff match", nullptr};
const char* eff_display_array[] = {"eff display", nullptr};
const char* ren_match_name_array[] = {"ren match", nullptr};
const char* ren_display_array[] = {"ren display", nullptr};

int FindEffectKeys(const AEGP_SuiteHandler&, std::vector<int>& keys, const char* prefix)
{
    record("FindEffectKeys ", prefix);
    const std::vector<int>& found = PanelFakes::Current().keys[prefix];
    keys.insert(keys.end(), found.begin(), found.end());
    return 1;
}

int GetEffectKeyFromMatchName(SPBasicSuite* basicSuite, const char* matchName)
{
    record("GetEffectKeyFromMatchName ", matchName);
    if (basicSuite != &PanelFakes::Current().basicSuite)
        throw std::logic_error("not the host's basic suite");
    return PanelFakes::Current().mainKey;
}

std::vector<std::string> GetObjectsPopupString(const AEGP_SuiteHandler&, const std::vector<int>& keys,
                                               const char** matchNames, const char** displayNames)
{
    const std::string family = standin::familyOf(matchNames, displayNames);
    record("GetObjectsPopupString ", family, standin::list(keys));
    return PanelFakes::Current().names[family];
}
