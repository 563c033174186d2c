#include "effects/EffectCatalogue.h"

#include "effects/NameBuffer.h"

#include <cstring>

// Kept: "Sheets" and "Cutter" here, and "Tiling" among the renderers, differ from the match names.
const char* src_match_name_array[] = {
    "QVK VORTSRC Lamps",  "QVK VORTSRC Routes",  "QVK VORTSRC GEO", "QVK VORTSRC Solids",
    "QVK VORTSRC Copies", "QVK VORTSRC Scanner", nullptr,
};
const char* src_display_array[] = {"Sheets", "Routes", "GEO", "Solids", "Copies", "Cutter", nullptr};

const char* eff_match_name_array[] = {
    "QVK VORTEFF Round Zone",     "QVK VORTEFF Jitter",
    "QVK VORTEFF Enclosure",      "QVK VORTEFF Placement",
    "QVK VORTEFF Tint Table",     "QVK VORTEFF Dimmer Effector",
    "QVK VORTEFF Pulse Effector", nullptr,
};
const char* eff_display_array[] = {
    "Round Zone", "Jitter",          "Enclosure",      "Placement",
    "Tint Table", "Dimmer Effector", "Pulse Effector", nullptr,
};

// Kept: the menus never reach the last row, since its match name is outside the renderers' prefix.
const char* ren_match_name_array[] = {
    "QVK VORTREN Dots",
    "QVK VORTREN Strokes",
    "QVK VORTREN Tiles",
    "QVK VORTREN Rays",
    "QVK VORTREN Panes",
    "QVK VORTAN",
    nullptr,
};
const char* ren_display_array[] = {"Dots", "Strokes", "Tiling", "Rays", "Panes", "Elder", nullptr};

bool StartsWith(const char* text, const char* prefix)
{
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

namespace
{
enum class Walk
{
    goOn,
    stop
};

/// Calls `visit` with the key of each installed effect whose match name starts with `prefix`, until it
/// says stop. Returns the first error of counting or stepping. A name that could not be read is matched as
/// the host left it in the buffer, which is empty at first.
template <class Visit>
int walkInstalledEffects(const AEGP_SuiteHandler& suites, const char* prefix, Visit visit)
{
    A_long count = 0;
    A_Err err = suites.EffectSuite1()->AEGP_GetNumInstalledEffects(&count);
    AEGP_InstalledEffectKey key = AEGP_InstalledEffectKey_NONE;
    for (A_long step = 0; step < count; ++step)
    {
        if (err == A_Err_NONE)
        {
            AEGP_InstalledEffectKey next = AEGP_InstalledEffectKey_NONE;
            err = suites.EffectSuite1()->AEGP_GetNextInstalledEffect(key, &next);
            if (err == A_Err_NONE)
                key = next;
        }
        NameBuffer name;
        (void)suites.EffectSuite1()->AEGP_GetEffectMatchName(key, name.text);
        if (StartsWith(name.text, prefix) && visit(key) == Walk::stop)
            break;
    }
    return err;
}
} // namespace

int FindEffectKeys(const AEGP_SuiteHandler& suites, std::vector<int>& keys, const char* prefix)
{
    return walkInstalledEffects(suites, prefix,
                                [&](AEGP_InstalledEffectKey key)
                                {
                                    keys.push_back(key);
                                    return Walk::goOn;
                                });
}

int GetEffectKeyFromMatchName(SPBasicSuite* basicSuite, const char* matchName)
{
    const AEGP_SuiteHandler suites(basicSuite);
    AEGP_InstalledEffectKey found = AEGP_InstalledEffectKey_NONE;
    (void)walkInstalledEffects(suites, matchName,
                               [&](AEGP_InstalledEffectKey key)
                               {
                                   found = key;
                                   return Walk::stop;
                               });
    return found;
}

std::vector<std::string> GetObjectsPopupString(const AEGP_SuiteHandler& suites, const std::vector<int>& keys,
                                               const char** matchNames, const char** displayNames)
{
    std::vector<std::string> names;
    A_Err err = A_Err_NONE;
    for (const int key : keys)
    {
        NameBuffer name;
        if (err == A_Err_NONE)
            err = suites.EffectSuite1()->AEGP_GetEffectMatchName(key, name.text);
        names.push_back(GetDisplayName(name.text, static_cast<int>(keys.size()), matchNames, displayNames));
    }
    return names;
}

std::string GetDisplayName(const char* matchName, int count, const char** matchNames,
                           const char** displayNames)
{
    for (int row = 0; row < count && matchNames[row] != nullptr; ++row)
    {
        if (std::strcmp(matchNames[row], matchName) == 0)
            return displayNames[row];
    }
    return "Not Found";
}
