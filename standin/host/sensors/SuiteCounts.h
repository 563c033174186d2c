#pragma once
// Who holds what: acquires less releases, per name and version.

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
class SuiteCounts
{
public:
    void Acquired(const std::string& name, A_long version);
    /// False if the suite is not held; the count stays at 0 then.
    bool Released(const std::string& name, A_long version);
    void Used(const std::string& name, A_long version);
    /// Whether a function was called since the last acquire.
    bool WasUsed(const std::string& name, A_long version) const;
    int Count(const std::string& name, A_long version) const;
    /// Name, version and count of each suite that is held.
    struct Held
    {
        std::string name;
        A_long version;
        int count;

        /// "AEGP Item Suite 3: 1".
        std::string Text() const
        {
            return name + " " + std::to_string(version) + ": " + std::to_string(count);
        }
    };
    std::vector<Held> AllHeld() const;

private:
    struct Entry
    {
        int count = 0;
        bool used = false;
    };
    std::map<std::pair<std::string, A_long>, Entry> entries;
};
} // namespace standin
