#pragma once
// Findings by their ids alone, for tests that hold them against a computed list.

#include "standin/host/core/Host.h"

#include <algorithm>
#include <string>
#include <vector>

namespace standin
{
/// The ids of all findings so far, sorted; the host forgets the findings.
inline std::vector<std::string> TakeFindingIds(Host& host)
{
    std::vector<std::string> ids;
    for (const Finding& finding : host.TakeFindings())
        ids.push_back(finding.id);
    std::sort(ids.begin(), ids.end());
    return ids;
}
} // namespace standin
