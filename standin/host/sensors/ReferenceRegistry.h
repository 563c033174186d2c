#pragma once
// Every handle that the host gave away. A handle is unique and never used again while the host
// lives, so that null, foreign, wrong kind, disposed and stale can be told apart.

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace standin
{
enum class ReferenceKind
{
    layer,
    item,
    composition,
    effect,
    parameterStream,
    groupStream
};

enum class ReferenceState
{
    live,
    disposed,
    excused, ///< Its disposal was made to fail by a fault: the holder has done what it could.
    expired  ///< The hook in which it was handed out has returned.
};

struct Reference
{
    ReferenceKind kind = ReferenceKind::layer;
    ReferenceState state = ReferenceState::live;
    int owner = 0; ///< The id of the effect, the layer or the item.
    int layer = 0; ///< The layer whose changes make it stale; 0 for none.
    int parameter = 0;
    unsigned generation = 0;      ///< Of the layer, when it was handed out.
    int hookDepth = 0;            ///< 0 outside any hook: such a handle does not expire.
    const void* parent = nullptr; ///< The effect reference that a stream was had through.
    std::size_t ordinal = 0;      ///< The call that handed it out.
    const void* handle = nullptr; ///< Its own value.

    bool HasToBeDisposed() const { return kind >= ReferenceKind::effect; }
};

class ReferenceRegistry
{
public:
    /// Takes the kind, owner, layer and so on from `reference`; gives the new handle.
    void* HandOut(Reference reference);
    /// Null for a handle that this host never gave away. Good until the next call.
    Reference* Find(const void* handle);
    const Reference* Find(const void* handle) const;
    void Settle(Reference& reference, ReferenceState state);

    /// References of the layer that are out by now are stale.
    void LayerChanged(int layerId) { ++generations[layerId]; }
    void EverythingChanged() { ++commonGeneration; }
    bool IsStale(const Reference& reference) const;

    /// Live references that have to be disposed of and were handed out at this depth or deeper, in
    /// order of their handing out; they and the layer handles of that depth expire.
    std::vector<Reference> ExpireFrom(int hookDepth);
    /// Whether a stream that was had through this effect reference is still out.
    bool HasLiveStreams(const void* effectHandle) const;
    int CountLive() const;
    /// The notes are the one thing here that grows for as long as the host lives, by whole blocks. These lie
    /// outside the heap, and only their entries in the map, one allocation each, are in it.
    std::size_t NoteBlocks() const { return blocks.size(); }
    static constexpr std::size_t heapOfNoteBlock = 6 * sizeof(void*);

private:
    unsigned generationOf(int layerId) const;

    /// What a handle points at. It only says what the reference was once its record has been given up.
    struct Cell
    {
        std::uint64_t note; ///< 0 until the reference's record is given up.
    };
    static constexpr std::size_t cellsPerBlock = 131072;
    /// How many records of settled references are kept whole. Of older ones only the note is left, so
    /// that a run of many hours does not fill the memory.
    static constexpr std::size_t recordsKept = 4096;
    /// Whole pages of the system's. They come zeroed, and only as they are written to.
    using Block = std::array<Cell, cellsPerBlock>;
    struct Unmap
    {
        void operator()(Block* block) const;
    };
    using MappedBlock = std::unique_ptr<Block, Unmap>;

    static MappedBlock newBlock();
    Cell& newCell();
    Reference* findNote(const void* handle);
    void giveUpOldRecords();

    std::map<std::uintptr_t, MappedBlock> blocks; ///< By their addresses.
    Block* newest = nullptr;
    std::size_t usedInNewest = cellsPerBlock;
    std::deque<const void*> settled; ///< In the order of their settling.
    Reference fromNote;              ///< What findNote gives out.
    std::unordered_map<const void*, Reference> references;
    std::map<std::size_t, const void*> live; ///< By the order of handing out.
    std::unordered_map<const void*, std::size_t> liveOrder;
    std::size_t handedOut = 0;
    std::map<int, unsigned> generations;
    unsigned commonGeneration = 0;
};
} // namespace standin
