#include "standin/checks/Trial.h"

#include "standin/core/Host.h"

#include <algorithm>
#include <utility>

namespace standin
{
Trial::Trial(std::string bundle, std::uint64_t theSeed, Note note)
    : bundleFile(std::move(bundle)), seed(theSeed), onPlace(std::move(note))
{
}

std::uint64_t Trial::Seed()
{
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
    std::string report = host.FindingsReport();
    while (!report.empty() && report.back() == '\n')
        report.pop_back();
    Require(report.empty(), report);
}

std::string ListText(const std::vector<std::string>& lines)
{
    std::string list;
    for (const std::string& line : lines)
        list += (list.empty() ? "\"" : ", \"") + line + "\"";
    return list.empty() ? "nothing" : list;
}
} // namespace standin
