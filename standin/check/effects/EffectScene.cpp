#include "standin/check/effects/EffectScene.h"

#include <chrono>
#include <cstring>

namespace standin::check
{
namespace
{
constexpr std::uint32_t magic = 0x564F5254;
constexpr std::size_t commandAt = 4;
constexpr std::size_t payloadAt = 8;
constexpr std::size_t recordSize = 128;

template <class Value>
void put(std::vector<std::uint8_t>& bytes, std::size_t offset, const Value& value)
{
    std::memcpy(bytes.data() + offset, &value, sizeof value);
}

template <class Value>
Value valueAt(const std::vector<std::uint8_t>& bytes, std::size_t offset)
{
    Value value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::string nameOf(std::int32_t what)
{
    switch (what)
    {
    case VORTAN_TRY_APPLIED:
        return "VORTAN_TRY_APPLIED";
    case VORTAN_TRY_COPIED:
        return "VORTAN_TRY_COPIED";
    default:
        return "VORTAN_TRY_MESSAGE";
    }
}
} // namespace

Guarded::Guarded(const std::vector<std::uint8_t>& content, std::size_t shift)
    : begin(margin + shift), end(begin + content.size()), bytes(end + margin, mark)
{
    std::copy(content.begin(), content.end(), bytes.begin() + static_cast<std::ptrdiff_t>(begin));
}

std::vector<std::uint8_t> Guarded::Content() const
{
    return {bytes.begin() + static_cast<std::ptrdiff_t>(begin),
            bytes.begin() + static_cast<std::ptrdiff_t>(end)};
}

std::string Guarded::Damage() const
{
    for (std::size_t i = 0; i < margin; ++i)
    {
        if (bytes[begin - 1 - i] != mark)
            return std::to_string(i + 1) + " bytes before the beginning";
        if (bytes[end + i] != mark)
            return std::to_string(i) + " bytes past the end";
    }
    return "";
}

std::vector<std::uint8_t> RecordOf(std::uint32_t command, std::int16_t group)
{
    std::vector<std::uint8_t> record(recordSize);
    put(record, 0, magic);
    put(record, commandAt, command);
    put(record, payloadAt, group);
    return record;
}

EffectScene::EffectScene(const std::string& moduleFile) : module(moduleFile) {}

EffectScene::~EffectScene() { host.Quit(); }

void EffectScene::call(std::int32_t what, KeptBytes& kept, std::vector<std::uint8_t>* record)
{
    // Nothing stands where it stood in the call before.
    const std::size_t shift = 16 * (++callsSoFar % 16);
    Guarded guardedKept(kept, shift);
    Guarded guardedRecord(record == nullptr ? std::vector<std::uint8_t>() : *record, shift);
    const std::size_t size = record == nullptr ? 0 : record->size();
    const HookResult result =
        module.Call(host, what, guardedKept.Data(), size == 0 ? nullptr : guardedRecord.Data(), size);
    if (!result.thrown.empty())
        badReturns.push_back(nameOf(what) + " was left by " + result.thrown);
    else if (result.error != errNone)
        badReturns.push_back(nameOf(what) + " ended with error " + std::to_string(result.error));
    if (!guardedKept.Damage().empty())
        damages.push_back(nameOf(what) +
                          " has written to the kept bytes' surroundings: " + guardedKept.Damage());
    if (!guardedRecord.Damage().empty())
        damages.push_back(nameOf(what) +
                          " has written to the record's surroundings: " + guardedRecord.Damage());
    kept = guardedKept.Content();
    if (record != nullptr)
        *record = guardedRecord.Content();
}

KeptBytes EffectScene::Apply()
{
    KeptBytes kept(VORTAN_TRY_KEPT_SIZE);
    call(VORTAN_TRY_APPLIED, kept, nullptr);
    return kept;
}

KeptBytes EffectScene::Copy(const KeptBytes& original)
{
    KeptBytes kept = original;
    call(VORTAN_TRY_COPIED, kept, nullptr);
    return kept;
}

void EffectScene::Send(KeptBytes& kept, std::vector<std::uint8_t>& record)
{
    call(VORTAN_TRY_MESSAGE, kept, &record);
}

Identity EffectScene::AskIdentity(KeptBytes& kept)
{
    auto record = RecordOf(VORTAN_GET_IDENTITY);
    Send(kept, record);
    return valueAt<Identity>(record, payloadAt);
}

int EffectScene::AskGroup(KeptBytes& kept)
{
    auto record = RecordOf(VORTAN_GET_GROUP, -1);
    Send(kept, record);
    return valueAt<std::int16_t>(record, payloadAt);
}

void EffectScene::TellGroup(KeptBytes& kept, int group)
{
    auto record = RecordOf(VORTAN_SET_GROUP, static_cast<std::int16_t>(group));
    Send(kept, record);
}

void EffectScene::Idle(int passes)
{
    for (int i = 0; i < passes; ++i)
    {
        for (std::string& line : witness.RunQueued())
            escaped.push_back(std::move(line));
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void EffectScene::Exercise()
{
    KeptBytes kept = Apply();
    Idle(2);
    (void)AskIdentity(kept);
    for (const int group : {3, 10, 0, -1, 11, -2})
    {
        TellGroup(kept, group);
        (void)AskGroup(kept);
        Idle();
    }
    KeptBytes copy = Copy(kept);
    Idle(2);
    (void)AskIdentity(copy);
    for (auto& [what, record] : ForeignRecordsOf())
        Send(copy, record);
    Idle(2);
}

std::vector<std::pair<std::string, std::vector<std::uint8_t>>> ForeignRecordsOf()
{
    std::vector<std::pair<std::string, std::vector<std::uint8_t>>> records;
    for (const std::uint32_t command : {std::uint32_t{VORTAN_GET_GROUP}, std::uint32_t{VORTAN_SET_GROUP},
                                        std::uint32_t{VORTAN_GET_IDENTITY}})
    {
        const std::string named = "command " + std::to_string(command);
        auto foreign = RecordOf(command, 7);
        put(foreign, 0, std::uint32_t{0x54524F56}); // The magic's bytes the other way round.
        records.emplace_back("another magic, " + named, foreign);
        auto damaged = RecordOf(command, 7);
        damaged[0] ^= 1;
        records.emplace_back("a damaged magic, " + named, damaged);
        for (const std::size_t size : {1U, 4U, 8U, 24U, 127U, 129U, 256U})
        {
            auto other = RecordOf(command, 7);
            other.resize(size);
            records.emplace_back(std::to_string(size) + " bytes, " + named, other);
        }
    }
    for (const std::uint32_t command : {0U, 2U, 4U, 6U, 0x01000000U, 0xFFFFFFFFU})
        records.emplace_back("the unknown command " + std::to_string(command), RecordOf(command, 7));
    records.emplace_back("no record", std::vector<std::uint8_t>());
    return records;
}
} // namespace standin::check
