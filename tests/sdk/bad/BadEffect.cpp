// Effects with one mistake each, of the kind that authors make. The definition MISTAKE says which
// one.

#include "sdk/VortanFamilyAnswers.h"
#include "sdk/VortanTryEffect.h"

#include <cstring>
#include <map>
#include <thread>

namespace
{
enum class Mistake
{
    none,
    wrongMatchName,
    returnsAnError,
    newIdentityEachTime,
    zeroIdentity,
    identityIsACounter,
    duplicateKeepsIdentity,
    identityByAddress,
    identityChangesWithTheGroup,
    identityInMemory,
    eightGroups,
    groupInAByte,
    groupWrapsAround,
    magicIsNotRead,
    clearsTooMuch,
    refreshesWhenAsked,
    notifiesFromAThread,
    queuedFunctionThrows,
    forgetsTheReference,
    keepsTheSuite,
    trustsTheSuite
};
constexpr Mistake mistake = Mistake::MISTAKE;

constexpr bool is(Mistake one) { return mistake == one; }

VortanIdentity counted()
{
    static std::uint8_t count = 0;
    VortanIdentity identity{};
    identity.bytes[15] = ++count;
    return identity;
}

int queued(int, VortanBasicSuite* basicSuite, void*)
{
    if (is(Mistake::queuedFunctionThrows))
        throw 4711;
    if (const VortanPanelSuite* const panel = VortanAcquirePanelSuite(basicSuite))
    {
        (void)panel->RefreshPanel(is(Mistake::forgetsTheReference) ? nullptr : panel->panelRef);
        VortanReleasePanelSuite(basicSuite);
    }
    return 0;
}

void notifyFromAThread(const VortanBasicSuite* basicSuite)
{
    if (const VortanPanelSuite* const panel = VortanAcquirePanelSuite(basicSuite))
        std::thread([panel] { (void)panel->PanelNotify(panel->panelRef, "done"); }).detach();
    VortanReleasePanelSuite(basicSuite);
}

void apply(VortanKept& kept, const VortanBasicSuite* basicSuite)
{
    kept = VortanKeepNew();
    if (is(Mistake::zeroIdentity))
        kept.identity = VortanIdentity{};
    if (is(Mistake::identityIsACounter) || is(Mistake::identityInMemory))
        kept.identity = counted();
    if (is(Mistake::notifiesFromAThread))
        notifyFromAThread(basicSuite);
    const VortanIdleSuite* const idle = VortanAcquireIdleSuite(basicSuite);
    if (idle == nullptr && !is(Mistake::trustsTheSuite))
        return;
    (void)idle->AddFuncToIdleStack(idle->ref, &queued, nullptr);
    if (!is(Mistake::keepsTheSuite))
        VortanReleaseIdleSuite(basicSuite);
}

/// What the bytes hold is the number of an identity that lies elsewhere.
VortanIdentity rememberedFor(const VortanKept& kept)
{
    static std::map<int, VortanIdentity> all;
    VortanIdentity& identity = all[kept.identity.bytes[15]];
    if (VortanIsZeroIdentity(&identity) != 0)
        identity = VortanMakeIdentity();
    return identity;
}

VortanIdentity identityOf(const VortanKept& kept, const void* address)
{
    static std::map<const void*, VortanIdentity> byAddress;
    VortanIdentity identity = kept.identity;
    if (is(Mistake::newIdentityEachTime))
        return VortanMakeIdentity();
    if (is(Mistake::identityByAddress))
        identity.bytes[0] ^= static_cast<std::uint8_t>(reinterpret_cast<std::uintptr_t>(address) >> 4);
    if (is(Mistake::identityInMemory))
        identity = rememberedFor(kept);
    if (is(Mistake::identityChangesWithTheGroup))
        identity.bytes[0] ^= static_cast<std::uint8_t>(kept.group);
    return identity;
}

void takeGroup(VortanKept& kept, const void* record)
{
    std::int16_t told = 0;
    (void)VortanTakeGroup(record, VORTAN_MESSAGE_SIZE, &told);
    if (is(Mistake::eightGroups))
        kept.group = static_cast<std::int16_t>(told > 7 ? 7 : told);
    if (is(Mistake::groupInAByte))
        kept.group = static_cast<std::uint8_t>(told);
    if (is(Mistake::groupWrapsAround))
        kept.group = static_cast<std::int16_t>(told > 10 ? told % 11 : kept.group);
}

/// Answers whatever has the right size.
void answerAnything(VortanKept& kept, void* record)
{
    VortanMessage message;
    std::memcpy(&message, record, sizeof message);
    message.magic = VORTAN_MESSAGE_MAGIC;
    (void)VortanAnswer(&kept, &message, sizeof message);
    std::memcpy(static_cast<char*>(record) + offsetof(VortanMessage, payload), &message.payload,
                sizeof message.payload);
}

void answer(VortanKept& kept, const void* address, const VortanBasicSuite* basicSuite, void* record,
            std::size_t size)
{
    if (is(Mistake::magicIsNotRead) && size == VORTAN_MESSAGE_SIZE)
        return answerAnything(kept, record);
    const VortanIdentity identity = identityOf(kept, address);
    if (VortanAnswerIdentity(record, size, &identity) != 0)
        return;
    const std::uint32_t command = VortanAnswer(&kept, record, size);
    if (command == VORTAN_SET_GROUP)
        takeGroup(kept, record);
    if (command != 0 && is(Mistake::clearsTooMuch))
        std::memset(static_cast<char*>(record) + 10, 0, VORTAN_MESSAGE_SIZE);
    if (command == VORTAN_GET_GROUP && is(Mistake::refreshesWhenAsked))
        (void)queued(0, const_cast<VortanBasicSuite*>(basicSuite), nullptr);
}
} // namespace

int32_t VortanTryEffect(int32_t call, const VortanBasicSuite* basicSuite, void* kept, void* record,
                        size_t recordSize)
{
    VortanKept own{};
    if (call == VORTAN_TRY_DESCRIBE)
    {
        constexpr VortanTryDescription right = {"QVK VORTEFF Pulse Effector", "Vortan Pulse Effector"};
        constexpr VortanTryDescription wrong = {"QVK VORTEFF Pulse Efector", "Vortan Pulse Effector"};
        std::memcpy(record, is(Mistake::wrongMatchName) ? &wrong : &right, sizeof right);
        return 0;
    }
    std::memcpy(&own, kept, sizeof own);
    if (call == VORTAN_TRY_APPLIED)
        apply(own, basicSuite);
    else if (call == VORTAN_TRY_COPIED && !is(Mistake::duplicateKeepsIdentity))
        own = VortanKeepCopy(&own);
    else if (call == VORTAN_TRY_MESSAGE)
        answer(own, kept, basicSuite, record, recordSize);
    std::memcpy(kept, &own, sizeof own);
    return is(Mistake::returnsAnError) && call == VORTAN_TRY_MESSAGE ? 1 : 0;
}
