#include "standin/check/Trial.h"

#include "standin/host/core/Host.h"

#include <algorithm>
#include <utility>

namespace standin::check
{
Trial::Trial(std::string theFile, std::uint64_t theSeed, Note notePlace, std::function<void()> noteSeed)
    : file(std::move(theFile)), seed(theSeed), onPlace(std::move(notePlace)), onSeed(std::move(noteSeed))
{
}

std::uint64_t Trial::Seed()
{
    if (!seedUsed)
        onSeed();
    seedUsed = true;
    return seed;
}

void Trial::At(const std::string& newPlace)
{
    place = newPlace;
    onPlace(place);
}

void Trial::Fail(const std::string& found) const
{
    throw CheckFailure(place.empty() ? found : found + "\nat: " + place);
}

void Trial::Require(bool holds, const std::string& otherwise)
{
    if (!holds)
        Fail(otherwise);
    ++looked;
}

void Trial::RequireLines(const std::vector<std::string>& found, const std::vector<std::string>& expected,
                         const std::string& what)
{
    if (found == expected)
    {
        ++looked;
        return;
    }
    const auto differing = std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
    const std::string here = differing.first == found.end() ? "nothing more" : "\"" + *differing.first + "\"";
    const std::string there =
        differing.second == expected.end() ? "nothing more" : "\"" + *differing.second + "\"";
    const auto number = std::to_string(differing.first - found.begin() + 1);
    Fail(what + ": number " + number + " is " + here + " and should be " + there +
         "\nall of them: " + ListText(found) + "\nexpected: " + ListText(expected));
}

void Trial::RequireNoFindings(const Host& host)
{
    constexpr std::size_t most = 3;
    std::vector<std::string> lines;
    std::size_t more = 0;
    std::istringstream report(host.FindingsReport());
    for (std::string line; std::getline(report, line);)
    {
        if (line.empty() || std::find(lines.begin(), lines.end(), line) != lines.end())
            continue;
        if (lines.size() < most)
            lines.push_back(line);
        else
            ++more;
    }
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\n") + line;
    Require(lines.empty(), more == 0 ? text : text + "\nand " + std::to_string(more) + " more");
}

std::string ListText(const std::vector<std::string>& lines)
{
    std::string list;
    for (const std::string& line : lines)
        list += (list.empty() ? "\"" : ", \"") + line + "\"";
    return list.empty() ? "nothing" : list;
}
} // namespace standin::check
