// Message records both ways. What the product sends, the kit for authors of effects answers, and each reads
// what the other wrote; what an effect may write of its own, up to the record's last byte, the product reads
// without harm. Records lie at the end of their block, so that a byte too many is found.

#include "effects/EffectMessages.h"
#include "fuzz/Input.h"
#include "fuzz/SmallHost.h"
#include "sdk/VortanFamilyAnswers.h"

#include <cstring>
#include <memory>

namespace standin
{
namespace
{
constexpr int pluginId = 8;

VortanKept keptFrom(Input& input)
{
    VortanKept kept{};
    for (std::uint8_t& byte : kept.identity.bytes)
        byte = input.Byte();
    kept.group = input.Short();
    return kept;
}

std::string textOf(const VortanIdentity& identity)
{
    char text[VORTAN_IDENTITY_TEXT_SIZE];
    VortanFormatIdentity(&identity, text);
    return text;
}

/// By hand, as the header for authors tells it.
std::int16_t groupAfter(std::int16_t before, std::int16_t told)
{
    if (before == VORTAN_GROUP_RIGID)
        return before;
    return told >= 1 && told <= 10 ? told : std::int16_t{0};
}

struct Conversation
{
    explicit Conversation(SmallHost& smallHost) : host(smallHost), suites(smallHost.Basic()) {}

    int Group()
    {
        std::vector<int> index = {0};
        std::vector<int> groups;
        (void)GetEffectGroups(pluginId, &suites, host.Layer(), MESSAGE_TIME, &index, &groups, 0);
        Require(groups.size() == 1, "one effect has one group");
        return groups[0];
    }

    std::string Uuid()
    {
        const auto uuids = ReadStackUuids(pluginId, &suites, host.Layer());
        Require(uuids.size() == 1, "one effect has one identity");
        return uuids[0];
    }

    void SetGroup(const std::string& uuid, int group)
    {
        (void)SetEffectGroupByUUID(pluginId, &suites, host.Layer(), MESSAGE_TIME, uuid, group);
    }

    SmallHost& host;
    AEGP_SuiteHandler suites;
};

/// An effect that answers with the kit.
void converse(Input& input)
{
    SmallHost host;
    VortanKept kept = keptFrom(input);
    const int told = input.Short() + 65536 * (input.Byte() % 3);
    host.onMessage = [&](void* record) { (void)VortanAnswer(&kept, record, VORTAN_MESSAGE_SIZE); };
    {
        Conversation with(host);
        Require(with.Group() == kept.group, "the group arrives");
        Require(with.Uuid() == textOf(kept.identity), "the identity arrives");
        const std::int16_t expected = groupAfter(kept.group, static_cast<std::int16_t>(told));
        with.SetGroup(textOf(kept.identity), told);
        Require(kept.group == expected, "the group that is told is taken");
        Require(with.Group() == expected, "and comes back");
    }
    Require(host.IsBalanced(), "suites and references come back");
}

/// An effect that writes what it likes, as far as it may.
void scribble(Input& input)
{
    SmallHost host;
    std::uint8_t written[VORTAN_MESSAGE_SIZE] = {};
    for (std::uint8_t& byte : written)
        byte = input.Byte();
    host.onMessage = [&](void* record) { std::memcpy(record, written, sizeof written); };
    VortanMessage message;
    std::memcpy(&message, written, sizeof message);
    {
        Conversation with(host);
        Require(with.Group() == message.payload.group, "the group is read where it stands");
        Require(with.Uuid() == textOf(message.payload.identity), "the identity is read where it stands");
        with.SetGroup(textOf(message.payload.identity), 3);
    }
    Require(host.IsBalanced(), "suites and references come back");
}

/// Any record, of any length, at any address, before an effect that answers with the kit.
void answerAnything(Input& input)
{
    VortanKept kept = keptFrom(input);
    const VortanKept before = kept;
    const std::size_t size = input.Below(4) == 0 ? input.Byte() : VORTAN_MESSAGE_SIZE;
    const bool isPanels = input.Below(2) == 0;
    const std::uint32_t command = input.Byte();
    std::string bytes = input.Rest();
    bytes.resize(size);
    if (isPanels && size >= 8)
    {
        const std::uint32_t magic = VORTAN_MESSAGE_MAGIC;
        std::memcpy(bytes.data(), &magic, sizeof magic);
        std::memcpy(bytes.data() + sizeof magic, &command, sizeof command);
    }
    const std::unique_ptr<char[]> block(new char[size + 1]);
    char* const record = block.get() + 1;
    std::memcpy(record, bytes.data(), size);

    const std::uint32_t answered = VortanAnswer(&kept, record, size);
    std::string expected = bytes;
    if (answered == VORTAN_GET_GROUP)
        std::memcpy(expected.data() + 8, &before.group, sizeof before.group);
    if (answered == VORTAN_GET_IDENTITY)
        std::memcpy(expected.data() + 8, &before.identity, sizeof before.identity);
    Require(std::memcmp(record, expected.data(), size) == 0,
            "an answer is written in its place and no other");
    Require(std::memcmp(&kept.identity, &before.identity, sizeof kept.identity) == 0, "an identity stays");
    Require(answered == VORTAN_SET_GROUP || kept.group == before.group, "a group changes only when told");
    Require(size == VORTAN_MESSAGE_SIZE || answered == 0, "a record of another length is left alone");
}
} // namespace
} // namespace standin

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    standin::Input input(data, size);
    switch (input.Below(3))
    {
    case 0:
        standin::converse(input);
        break;
    case 1:
        standin::scribble(input);
        break;
    default:
        standin::answerAnything(input);
    }
    return 0;
}
