#pragma once
// What the panel knows about the family's effects by name, and the lookups over the host's list of
// installed effects. An installed effect is named by its key, 0 for none.

#include "host/SuiteHandler.h"

#include <string>
#include <vector>

// Match-name families. A family is a prefix, tested without a word boundary: the legacy prefix is also
// the start of the main effect's name.
constexpr const char* GEOMETRY_PREFIX = "QVK VORTSRC";
constexpr const char* EFFECTOR_PREFIX = "QVK VORTEFF";
constexpr const char* RENDERER_PREFIX = "QVK VORTREN";
constexpr const char* MAIN_MATCH_NAME = "QVK VORTAN TWO";
constexpr const char* LEGACY_MATCH_NAME = "QVK VORTAN";
constexpr const char* KIT_MATCH_NAME = "QVK VORTKIT";

// The names of the toolbar's menus: row i of a match-name table has its text in row i of the display
// table. Each table ends with a null entry.
extern const char* src_match_name_array[];
extern const char* src_display_array[];
extern const char* eff_match_name_array[];
extern const char* eff_display_array[];
extern const char* ren_match_name_array[];
extern const char* ren_display_array[];

/// Case-sensitive, over the whole length of `prefix`.
bool StartsWith(const char* text, const char* prefix);

/// Appends to `keys`, in the host's order, every installed effect whose match name starts with `prefix`.
/// Returns the host error, 0 for none. After an error the walk runs to its end on the last good key, which
/// may therefore be appended again.
int FindEffectKeys(const AEGP_SuiteHandler& suites, std::vector<int>& keys, const char* prefix);

/// The first installed effect whose match name starts with `matchName`, or 0.
int GetEffectKeyFromMatchName(SPBasicSuite* basicSuite, const char* matchName);

/// One menu text for each key, in the order of `keys`; "Not Found" for an effect that the tables do not
/// know. The tables are searched as GetDisplayName does, with the number of keys as the bound.
std::vector<std::string> GetObjectsPopupString(const AEGP_SuiteHandler& suites, const std::vector<int>& keys,
                                               const char** matchNames, const char** displayNames);

/// The text of the first of the rows 0 to `count` - 1 that holds exactly `matchName`, else "Not Found".
/// The search also ends at a null row.
/// Kept: `count` is the number of keys found, not the length of the table, so that with only part of a
/// family installed a known effect can come out as "Not Found".
std::string GetDisplayName(const char* matchName, int count, const char** matchNames,
                           const char** displayNames);
