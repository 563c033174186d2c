#pragma once
// What a project holds, as plain values that can be copied and compared: the undo history keeps
// whole copies. Tests may read and write it directly; such a write is no undo step, is not traced
// and makes no reference stale.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
class Behaviour;

/// 16 raw bytes. All zero means that there is none.
using Identity = std::array<std::uint8_t, 16>;

/// The 36-character text of an identity: lower-case hexadecimal in memory order.
std::string TextOf(const Identity& identity);

/// The identity whose 16 bytes all have this value.
Identity IdentityOf(std::uint8_t byte);

enum class Rigidity
{
    movable,
    rigid ///< Answers group -1 whatever it is told.
};

/// What a simulated effect keeps for itself. Outside effects have it too and never show it.
struct FamilyData
{
    Identity uuid{};
    std::int16_t group = 0;
    Rigidity rigidity = Rigidity::movable;
    /// What an effect that comes in a module keeps by itself; empty for a simulated one.
    std::vector<std::uint8_t> kept{};

    bool operator==(const FamilyData& other) const;
};

/// One parameter of an effect. Index 0 of an effect's list is the input layer.
struct Parameter
{
    std::string name;
    bool hidden = false;

    bool operator==(const Parameter& other) const;
};

/// Whether the host's windows open and scroll to a stream of the effect when it is un-hidden.
enum class Revealing
{
    isWanted,
    isNotWanted ///< Each of its streams bears the flag that says so.
};

/// One effect in a layer's stack.
struct EffectInstance
{
    int id = 0;        ///< Stays with the instance over all moves, and is never used twice.
    std::string label; ///< How tests and the trace call it, "e<id>" unless set.
    A_long key = 0;    ///< The installed effect's.
    std::optional<std::string> customName;
    A_long flags = effectActive;
    std::vector<Parameter> parameters;
    bool groupHidden = false; ///< The hidden flag of the effect's own stream group.
    Revealing revealing = Revealing::isWanted;
    FamilyData family;
    /// Takes the place of the installed effect's behaviour for this instance; null for none.
    std::shared_ptr<const Behaviour> behaviour;

    bool operator==(const EffectInstance& other) const;
};

struct Layer
{
    int id = 0; ///< Not 0, and unique in the project.
    int compId = 0;
    std::string name;
    A_long startTime = 0;                ///< Where the layer's time 0 lies in the composition, in 1/100 s.
    std::vector<EffectInstance> effects; ///< From the top of the stack down.

    bool operator==(const Layer& other) const;
};

enum class ItemKind
{
    composition,
    footage,
    folder
};

struct Item
{
    int id = 0;
    ItemKind kind = ItemKind::composition;
    std::string name;

    bool operator==(const Item& other) const;
};

struct ProjectState
{
    std::vector<Item> items;
    std::vector<Layer> layers;

    const Item* FindItem(int itemId) const;
    Layer* FindLayer(int layerId);
    const Layer* FindLayer(int layerId) const;
    /// The layer that holds the effect, or null.
    Layer* FindLayerOfEffect(int effectId);
    EffectInstance* FindEffect(int effectId);
    const EffectInstance* FindEffect(int effectId) const;
    /// The first effect with this label, or null.
    EffectInstance* FindEffect(const std::string& label);

    bool operator==(const ProjectState& other) const;
    bool operator!=(const ProjectState& other) const { return !(*this == other); }
};

/// An effect that the host has installed.
struct InstalledEffect
{
    enum class MatchNameEnding
    {
        terminated,
        notTerminated ///< The host fills 128 characters and writes no zero.
    };

    A_long key = 0; ///< 0 on installing lets the host choose the next one.
    std::string matchName;
    std::string category;
    std::string defaultName;
    int parameterCount = 3; ///< With the input layer. 1 means that the effect has none of its own.
    std::shared_ptr<const Behaviour> behaviour; ///< Null answers nothing, as most effects do.
    MatchNameEnding matchNameEnding = MatchNameEnding::terminated;
};
} // namespace standin
