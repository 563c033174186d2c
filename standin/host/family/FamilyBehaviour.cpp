#include "standin/host/family/FamilyBehaviour.h"

#include <cstring>

#include "standin/host/core/Host.h"
#include "standin/host/core/StackChanges.h"

namespace standin
{
namespace message
{
namespace
{
template <class T>
T read(const void* record, std::size_t offset)
{
    T value;
    std::memcpy(&value, static_cast<const char*>(record) + offset, sizeof value);
    return value;
}

template <class T>
void write(void* record, std::size_t offset, const T& value)
{
    std::memcpy(static_cast<char*>(record) + offset, &value, sizeof value);
}

constexpr std::size_t commandOffset = 4;
constexpr std::size_t payloadOffset = 8;
} // namespace

std::uint32_t MagicOf(const void* record) { return read<std::uint32_t>(record, 0); }
std::uint32_t CommandOf(const void* record) { return read<std::uint32_t>(record, commandOffset); }
std::int16_t GroupOf(const void* record) { return read<std::int16_t>(record, payloadOffset); }
Identity IdentityOf(const void* record) { return read<Identity>(record, payloadOffset); }
void PutGroup(void* record, std::int16_t group) { write(record, payloadOffset, group); }
void PutIdentity(void* record, const Identity& identity) { write(record, payloadOffset, identity); }
} // namespace message

namespace
{
void makeIdentity(const EffectCall& call)
{
    SetEffectIdentity(PartsOf(call.host), call.effectId, call.host.MakeIdentity());
}

void takeGroup(const EffectCall& call, std::int16_t group)
{
    if (call.Instance().family.rigidity == Rigidity::rigid)
        return;
    const HostOptions& options = call.host.Options();
    const std::int16_t kept =
        group == -1 && options.groupMinusOne == GroupMinusOne::answersZero ? std::int16_t{0} : group;
    SetEffectGroup(PartsOf(call.host), call.effectId, kept,
                   options.groupUndo == GroupUndo::isOwnStep ? Undoable::yes : Undoable::no);
}
} // namespace

void FamilyBehaviour::OnApplied(const EffectCall& call) const
{
    call.Instance().family.uuid = {};
    if (call.host.Options().identityBirth == IdentityBirth::atOnce)
        makeIdentity(call);
}

void FamilyBehaviour::OnIdle(const EffectCall& call) const
{
    if (call.Instance().family.uuid == Identity{})
        makeIdentity(call);
}

A_Err FamilyBehaviour::OnGeneralCommand(const EffectCall& call, A_Time, void* extra) const
{
    if (extra == nullptr || message::MagicOf(extra) != message::magic)
        return errNone;
    const FamilyData& data = call.Instance().family;
    switch (message::CommandOf(extra))
    {
    case message::getGroup:
        message::PutGroup(extra, data.rigidity == Rigidity::rigid ? std::int16_t{-1} : data.group);
        break;
    case message::setGroup:
        takeGroup(call, message::GroupOf(extra));
        break;
    case message::getIdentity:
        message::PutIdentity(extra, data.uuid);
        break;
    default:
        break;
    }
    return errNone;
}
} // namespace standin
