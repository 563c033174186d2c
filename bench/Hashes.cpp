#include "bench/Benchmarks.h"
#include "bench/Measure.h"
#include "effects/CityHash.h"

#include <absl/hash/internal/city.h>

#include <memory>
#include <utility>

namespace standin
{
namespace
{
constexpr int itemCount = 1000;

/// One text after the other.
template <class Hash>
std::function<void()> hashTexts(const std::shared_ptr<std::vector<std::string>>& texts, Hash hash)
{
    return [texts, hash]
    {
        std::uint64_t sum = 0;
        for (const std::string& text : *texts)
            sum += hash(text.data(), text.size());
        benchmark::DoNotOptimize(sum);
    };
}

// As functions that a compiler cannot look into, which the foreign one is anyway.
[[gnu::noinline]] std::uint64_t ownHash(const char* bytes, std::size_t length)
{
    return CityHash64(bytes, length);
}

std::uint64_t foreignHash(const char* bytes, std::size_t length)
{
    return absl::hash_internal::CityHash64(bytes, length);
}

void registerTexts(FastPanel& panel, std::size_t length)
{
    const auto texts = std::make_shared<std::vector<std::string>>();
    for (std::size_t i = 0; i < itemCount; ++i)
        texts->push_back(std::string(length - 1, 'a') + static_cast<char>('a' + i % 26));
    Measurement hash = {"String hash", "texts of so many bytes", static_cast<int>(length), {}, {},
                        Calls::none};
    hash.subject = {hashTexts(texts, &ownHash), [] {}, itemCount};
    hash.floor = {hashTexts(texts, &foreignHash), [] {}, itemCount};
    Register(panel.host, hash);
}
} // namespace

void RegisterHashes(FastPanel& panel)
{
    const auto items = std::make_shared<std::vector<ObjectItem>>(MadeUpItems(itemCount));
    const auto texts = std::make_shared<std::vector<std::string>>();
    for (const ObjectItem& item : *items)
    {
        texts->push_back(item.uuid);
        texts->push_back(item.name);
    }
    const auto compiledIn = [](const char* bytes, std::size_t length) { return CityHash64(bytes, length); };
    const std::pair<const char*, std::function<void()>> floors[] = {
        {"items, beside the hash as a function", hashTexts(texts, &ownHash)},
        {"items, beside the hash compiled into its loop", hashTexts(texts, compiledIn)}};
    for (const auto& [name, floor] : floors)
    {
        Measurement fold = {"Item hash", name, itemCount, {}, {}, Calls::none};
        fold.subject = {[items] { benchmark::DoNotOptimize(CalcItemsHash(1, *items)); }, [] {}, itemCount};
        fold.floor = {floor, [] {}, itemCount};
        Register(panel.host, fold);
    }
    for (const std::size_t length : {8u, 24u, 36u, 64u, 128u, 1024u})
        registerTexts(panel, length);
}
} // namespace standin
