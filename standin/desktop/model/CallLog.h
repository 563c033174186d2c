#pragma once
// The calls that the bundle has made into the host, by what the host was doing: an idle pass, a menu, the
// creation of the panel. An idle pass that makes the same calls as the one before is counted and not listed
// again, so that hours of idling take up one screen.

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "standin/host/sensors/CallTrace.h"

namespace standin::desktop
{
struct CallGroup
{
    std::string origin; ///< "Idle pass", "Update menus" and so on.
    std::vector<std::string> calls;
    int times = 1;
};

/// A line as it is listed: the head of a group, or a call below it.
struct CallLine
{
    enum class Kind
    {
        head,
        call,
        failedCall ///< The host answered with an error.
    };
    Kind kind = Kind::call;
    std::string text;
};

class CallLog
{
public:
    /// Keeps the newest groups, `most` calls in all.
    explicit CallLog(std::size_t most = 20000) : limit(most) {}

    /// Nothing is added for an empty list.
    void Add(const std::string& origin, std::vector<std::string> calls);
    void Clear();
    const std::deque<CallGroup>& Groups() const { return groups; }
    /// The lines that hold the filter, whatever the case of its letters, each under the head of its group.
    /// The newest group comes first.
    std::vector<CallLine> Lines(const std::string& filter,
                                SuiteTraffic traffic = SuiteTraffic::included) const;
    /// Everything in the order of time, as it goes into a file.
    std::string Text() const;
    /// Moves with every change.
    std::size_t Revision() const { return revision; }

private:
    std::size_t limit;
    std::size_t kept = 0;
    std::deque<CallGroup> groups;
    std::size_t revision = 0;
};
} // namespace standin::desktop
