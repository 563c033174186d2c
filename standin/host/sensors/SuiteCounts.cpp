#include "standin/host/sensors/SuiteCounts.h"

namespace standin
{
void SuiteCounts::Acquired(const std::string& name, A_long version)
{
    Entry& entry = entries[{name, version}];
    ++entry.count;
    entry.used = false;
}

bool SuiteCounts::Released(const std::string& name, A_long version)
{
    Entry& entry = entries[{name, version}];
    if (entry.count == 0)
        return false;
    --entry.count;
    return true;
}

void SuiteCounts::Used(const std::string& name, A_long version)
{
    const auto found = entries.find({name, version});
    if (found != entries.end())
        found->second.used = true;
}

bool SuiteCounts::WasUsed(const std::string& name, A_long version) const
{
    const auto found = entries.find({name, version});
    return found != entries.end() && found->second.used;
}

int SuiteCounts::Count(const std::string& name, A_long version) const
{
    const auto found = entries.find({name, version});
    return found == entries.end() ? 0 : found->second.count;
}

std::vector<SuiteCounts::Held> SuiteCounts::AllHeld() const
{
    std::vector<Held> held;
    for (const auto& [key, entry] : entries)
        if (entry.count != 0)
            held.push_back({key.first, key.second, entry.count});
    return held;
}
} // namespace standin
