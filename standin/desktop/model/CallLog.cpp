#include "standin/desktop/model/CallLog.h"

#include <algorithm>
#include <cctype>

namespace standin::desktop
{
namespace
{
std::string lowered(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string headOf(const CallGroup& group)
{
    const std::string count =
        group.calls.size() == 1 ? "1 call" : std::to_string(group.calls.size()) + " calls";
    const std::string times = group.times > 1 ? ", " + std::to_string(group.times) + " times" : "";
    return group.origin + ": " + count + times;
}

bool isTraffic(const std::string& call)
{
    return call.rfind("Basic AcquireSuite(", 0) == 0 || call.rfind("Basic ReleaseSuite(", 0) == 0;
}

/// A failed call ends in " = " and its number; see CallRecord.
CallLine::Kind kindOf(const std::string& call)
{
    const std::size_t mark = call.rfind(") = ");
    const bool isNumber =
        mark != std::string::npos && call.find_first_not_of("-0123456789", mark + 4) == std::string::npos;
    return isNumber ? CallLine::Kind::failedCall : CallLine::Kind::call;
}
} // namespace

void CallLog::Add(const std::string& origin, std::vector<std::string> calls)
{
    if (calls.empty())
        return;
    ++revision;
    if (!groups.empty() && groups.back().origin == origin && groups.back().calls == calls)
    {
        ++groups.back().times;
        return;
    }
    kept += calls.size();
    groups.push_back({origin, std::move(calls), 1});
    while (kept > limit && groups.size() > 1)
    {
        kept -= groups.front().calls.size();
        groups.pop_front();
    }
}

void CallLog::Clear()
{
    ++revision;
    kept = 0;
    groups.clear();
}

std::vector<CallLine> CallLog::Lines(const std::string& filter, SuiteTraffic traffic) const
{
    const std::string wanted = lowered(filter);
    std::vector<CallLine> lines;
    for (auto group = groups.rbegin(); group != groups.rend(); ++group)
    {
        bool hasHead = false;
        for (const std::string& call : group->calls)
        {
            const bool isLeftOut = traffic == SuiteTraffic::leftOut && isTraffic(call);
            if (isLeftOut || lowered(call).find(wanted) == std::string::npos)
                continue;
            if (!hasHead)
                lines.push_back({CallLine::Kind::head, headOf(*group)});
            hasHead = true;
            lines.push_back({kindOf(call), call});
        }
    }
    return lines;
}

std::string CallLog::Text() const
{
    std::string text;
    for (const CallGroup& group : groups)
    {
        text += headOf(group) + "\n";
        for (const std::string& call : group.calls)
            text += "  " + call + "\n";
    }
    return text;
}
} // namespace standin::desktop
