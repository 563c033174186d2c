#pragma once
// A well-behaved effect of the family: it makes up its identity when it is applied and answers the
// 128-byte message.

#include <cstddef>
#include <cstdint>

#include "standin/host/core/Behaviour.h"

namespace standin
{
/// The fields of the message that have a meaning. The record is 128 bytes long.
namespace message
{
constexpr std::uint32_t magic = 0x564F5254;
constexpr std::uint32_t getGroup = 1;
constexpr std::uint32_t setGroup = 3;
constexpr std::uint32_t getIdentity = 5;
constexpr std::size_t size = 128;

std::uint32_t MagicOf(const void* record);
std::uint32_t CommandOf(const void* record);
std::int16_t GroupOf(const void* record);
Identity IdentityOf(const void* record);
void PutGroup(void* record, std::int16_t group);
void PutIdentity(void* record, const Identity& identity);
} // namespace message

class FamilyBehaviour : public Behaviour
{
public:
    void OnApplied(const EffectCall& call) const override;
    void OnIdle(const EffectCall& call) const override;
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override;
};
} // namespace standin
