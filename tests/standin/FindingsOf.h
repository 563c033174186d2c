#pragma once
// Findings as short lines for comparison: "id in call".

#include <string>
#include <vector>

#include "standin/host/core/Host.h"

namespace standin
{
/// Takes the findings from the host.
inline std::vector<std::string> FindingsOf(Host& host)
{
    std::vector<std::string> lines;
    for (const Finding& finding : host.TakeFindings())
        lines.push_back(finding.call.empty() ? finding.id : finding.id + " in " + finding.call);
    return lines;
}
} // namespace standin
