#include "standin/sensors/ReferenceRegistry.h"

#include <algorithm>

namespace standin
{
void* ReferenceRegistry::HandOut(Reference reference)
{
    Cell& cell = cells.emplace_back();
    cell.content = &cell;
    reference.state = ReferenceState::live;
    reference.generation = generationOf(reference.layer);
    reference.handle = &cell;
    live[++handedOut] = &cell;
    liveOrder[&cell] = handedOut;
    references[&cell] = reference;
    return &cell;
}

Reference* ReferenceRegistry::Find(const void* handle)
{
    const auto found = references.find(handle);
    return found == references.end() ? nullptr : &found->second;
}

void ReferenceRegistry::Settle(Reference& reference, ReferenceState state)
{
    reference.state = state;
    const auto found = liveOrder.find(reference.handle);
    if (found == liveOrder.end())
        return;
    live.erase(found->second);
    liveOrder.erase(found);
}

unsigned ReferenceRegistry::generationOf(int layerId) const
{
    const auto found = generations.find(layerId);
    return commonGeneration + (found == generations.end() ? 0 : found->second);
}

bool ReferenceRegistry::IsStale(const Reference& reference) const
{
    return reference.layer != 0 && reference.generation != generationOf(reference.layer);
}

std::vector<Reference> ReferenceRegistry::ExpireFrom(int hookDepth)
{
    std::vector<Reference> leaked;
    std::vector<const void*> expired;
    for (const auto& [order, handle] : live)
    {
        const Reference& reference = references.at(handle);
        if (reference.hookDepth < hookDepth || reference.hookDepth == 0)
            continue;
        expired.push_back(handle);
        if (reference.HasToBeDisposed())
            leaked.push_back(reference);
    }
    for (const void* handle : expired)
        Settle(references.at(handle), ReferenceState::expired);
    return leaked;
}

bool ReferenceRegistry::HasLiveStreams(const void* effectHandle) const
{
    return std::any_of(live.begin(), live.end(),
                       [&](const auto& entry) { return references.at(entry.second).parent == effectHandle; });
}

int ReferenceRegistry::CountLive() const
{
    return static_cast<int>(std::count_if(live.begin(), live.end(),
                                          [this](const auto& entry)
                                          { return references.at(entry.second).HasToBeDisposed(); }));
}
} // namespace standin
