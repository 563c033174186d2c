#include "standin/host/sensors/ReferenceRegistry.h"

#include <algorithm>
#include <new>
#include <sys/mman.h>

namespace standin
{
namespace
{
// A note is a kind, a state and what is needed to name the reference; never 0.
constexpr unsigned stateShift = 4;
constexpr unsigned parameterShift = 8;
constexpr unsigned ownerShift = 32;
constexpr std::uint64_t nibble = 15;
constexpr std::uint64_t parameterMask = 0xFFFFFF;

std::uint64_t noteOf(const Reference& reference)
{
    return (static_cast<std::uint64_t>(reference.kind) + 1) |
           static_cast<std::uint64_t>(reference.state) << stateShift |
           (static_cast<std::uint64_t>(reference.parameter) & parameterMask) << parameterShift |
           static_cast<std::uint64_t>(static_cast<std::uint32_t>(reference.owner)) << ownerShift;
}

Reference noted(std::uint64_t note)
{
    Reference reference;
    reference.kind = static_cast<ReferenceKind>((note & nibble) - 1);
    reference.state = static_cast<ReferenceState>(note >> stateShift & nibble);
    reference.parameter = static_cast<int>(note >> parameterShift & parameterMask);
    reference.owner = static_cast<int>(note >> ownerShift);
    return reference;
}
} // namespace

void ReferenceRegistry::Unmap::operator()(Block* block) const { (void)munmap(block, sizeof(Block)); }

ReferenceRegistry::MappedBlock ReferenceRegistry::newBlock()
{
    void* pages = mmap(nullptr, sizeof(Block), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED)
        throw std::bad_alloc();
    return MappedBlock(static_cast<Block*>(pages));
}

ReferenceRegistry::Cell& ReferenceRegistry::newCell()
{
    if (usedInNewest == cellsPerBlock)
    {
        MappedBlock block = newBlock();
        newest = block.get();
        usedInNewest = 0;
        blocks[reinterpret_cast<std::uintptr_t>(newest->data())] = std::move(block);
    }
    return (*newest)[usedInNewest++];
}

void* ReferenceRegistry::HandOut(Reference reference)
{
    Cell& cell = newCell();
    reference.state = ReferenceState::live;
    reference.generation = generationOf(reference.layer);
    reference.handle = &cell;
    live[++handedOut] = &cell;
    liveOrder[&cell] = handedOut;
    references[&cell] = reference;
    return &cell;
}

const Reference* ReferenceRegistry::Find(const void* handle) const
{
    return const_cast<ReferenceRegistry*>(this)->Find(handle);
}

Reference* ReferenceRegistry::Find(const void* handle)
{
    const auto found = references.find(handle);
    return found == references.end() ? findNote(handle) : &found->second;
}

Reference* ReferenceRegistry::findNote(const void* handle)
{
    const auto address = reinterpret_cast<std::uintptr_t>(handle);
    auto behind = blocks.upper_bound(address);
    if (behind == blocks.begin())
        return nullptr;
    const auto& [start, block] = *--behind;
    const std::size_t index = (address - start) / sizeof(Cell);
    const bool isCell = (address - start) % sizeof(Cell) == 0 && index < cellsPerBlock;
    if (!isCell || (*block)[index].note == 0)
        return nullptr;
    fromNote = noted((*block)[index].note);
    fromNote.handle = handle;
    return &fromNote;
}

void ReferenceRegistry::Settle(Reference& reference, ReferenceState state)
{
    reference.state = state;
    const auto found = liveOrder.find(reference.handle);
    if (found == liveOrder.end())
        return;
    live.erase(found->second);
    liveOrder.erase(found);
    settled.push_back(reference.handle);
}

void ReferenceRegistry::giveUpOldRecords()
{
    while (settled.size() > recordsKept)
    {
        const auto found = references.find(settled.front());
        const auto* cell = static_cast<const Cell*>(settled.front());
        const_cast<Cell*>(cell)->note = noteOf(found->second);
        references.erase(found);
        settled.pop_front();
    }
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
    giveUpOldRecords();
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
