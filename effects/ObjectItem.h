#pragma once
// The one record that crosses the line between a layer's effect stack and the panel's tree, with
// the identity that names an effect and the names under which the panel shows it.
// All of it is pure logic that runs without a host.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The identity of one effect of the family, whatever its place in the stack. Copied by value, never
/// interpreted. Every family effect owns one and reports it; the panel never makes one.
struct VN_UUID
{
    std::array<std::uint8_t, 16> bytes;
};
static_assert(sizeof(VN_UUID) == 16, "the identity travels as 16 raw bytes");

constexpr std::size_t UUID_TEXT_LENGTH = 36;

/// The text form of an identity with its terminating zero.
struct VN_UUIDStr
{
    char text[UUID_TEXT_LENGTH + 1];
};

/// What an effect from outside the family is known by: a row that the panel shows but does not own.
constexpr const char* ZERO_UUID_TEXT = "00000000-0000-0000-0000-000000000000";

/// One effect of a layer, or one object of the tree.
struct ObjectItem
{
    std::string uuid;        ///< 36 characters; ZERO_UUID_TEXT for an effect from outside the family.
    std::string name;        ///< The bytes that the host gave, or that the user typed.
    std::int32_t group = -1; ///< 0 at the top level, 1 to 10 in that group. -1: no part in grouping.
    std::int32_t active = 0; ///< 0 or 1.
    std::string tag;         ///< The match name, on the layer side only. Carried along, never read.
};

/// The kinds of object that the panel can add. 0 is none.
enum VN_OBJECT_TYPE : int
{
    VN_OBJECT_GEOMETRY = 1,
    VN_OBJECT_EFFECTOR = 2,
    VN_OBJECT_RENDERER = 3,
    VN_OBJECT_VORTAN = 4
};

/// The identity whose 16 bytes are all zero.
VN_UUID ZeroUUID();

/// Lower-case hexadecimal digits in memory order, with a "-" after the 4th, 6th, 8th and 10th byte.
VN_UUIDStr GetUUIDStr(VN_UUID uuid);

/// Folds uuid, name, group and active of each item, in order, into `seed`. An empty list gives `seed`
/// back. The value is good for comparing with others of the same run only.
std::uint64_t CalcItemsHash(std::uint64_t seed, const std::vector<ObjectItem>& items);

/// One step of the fold: mixes `value` into `hash`.
std::uint64_t CombineHash(std::uint64_t hash, std::uint64_t value);

/// The value as the fold takes it.
constexpr std::uint64_t SignExtend(std::int32_t value)
{
    return static_cast<std::uint64_t>(std::int64_t{value});
}

/// The name as the tree paints it: an effect's default name gives way to a short one, with whatever
/// follows it kept. Any other name comes back unchanged.
std::string GetItemDisplayString(std::string name);
