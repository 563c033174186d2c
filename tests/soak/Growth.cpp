#include "tests/soak/Growth.h"

#include <algorithm>
#include <stdexcept>

namespace standin
{
namespace
{
constexpr std::size_t leastLooks = 6;
/// Containers keep the capacity that they once needed, so that this differs from look to look.
constexpr long long slackOfHeap = 2048;

struct Kind
{
    const char* name;
    long long (*read)(const Holdings&);
    long long slack;
};

constexpr Kind kinds[] = {
    {"bytes of the heap", [](const Holdings& held) { return static_cast<long long>(held.bytes); },
     slackOfHeap},
    {"references", [](const Holdings& held) -> long long { return held.references; }, 0},
    {"suites", [](const Holdings& held) -> long long { return held.suites; }, 0},
    {"windows", [](const Holdings& held) -> long long { return held.windows; }, 0},
    {"descriptors", [](const Holdings& held) -> long long { return held.descriptors; }, 0},
    {"threads", [](const Holdings& held) -> long long { return held.threads; }, 0},
};

std::string growthOf(const Kind& kind, const std::vector<Holdings>& looks)
{
    std::vector<long long> values;
    for (const Holdings& look : looks)
        values.push_back(kind.read(look));
    const auto third = static_cast<std::ptrdiff_t>(values.size() / 3);
    const long long most = *std::max_element(values.begin(), values.begin() + third);
    const long long least = *std::min_element(values.end() - third, values.end());
    if (least <= most + kind.slack)
        return "";
    return std::string(kind.name) + " grow from at most " + std::to_string(most) + " to at least " +
           std::to_string(least) + "\n";
}
} // namespace

std::string Growth(const std::vector<Holdings>& looks)
{
    if (looks.size() < leastLooks)
        throw std::logic_error("too few looks to see growth");
    std::string grown;
    for (const Kind& kind : kinds)
        grown += growthOf(kind, looks);
    return grown;
}

std::string TextOf(const Holdings& held)
{
    std::string text;
    for (const Kind& kind : kinds)
        text += (text.empty() ? "" : ", ") + std::to_string(kind.read(held)) + " " + kind.name;
    return text;
}
} // namespace standin
