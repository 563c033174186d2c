#include "standin/cli/CheckPrinter.h"

#include <algorithm>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>

namespace standin
{
namespace
{
using Json = nlohmann::ordered_json;

/// What comes from a bundle may be in any encoding.
std::string asText(const Json& json) { return json.dump(2, ' ', false, Json::error_handler_t::replace); }

/// Every line of a text under the check that it belongs to.
std::string indented(const std::string& text)
{
    std::string result = "          ";
    for (const char c : text)
        result += c == '\n' ? "\n          " : std::string(1, c);
    return result;
}

std::string againText(const std::string& bundleFile, const Check& check, const CheckOutcome& outcome,
                      std::uint64_t seed)
{
    const std::string seedText = outcome.report.isSeedUsed ? " --seed " + std::to_string(seed) : "";
    return "standin check " + bundleFile + " --only " + check.id + seedText;
}

std::size_t longestId()
{
    std::size_t longest = 0;
    for (const Check& check : AllChecks())
        longest = std::max(longest, std::strlen(check.id));
    return longest;
}

std::string padded(const std::string& id)
{
    return id + std::string(std::max(longestId(), id.size()) - id.size() + 2, ' ');
}

class LinePrinter : public CheckPrinter
{
public:
    LinePrinter(std::string file, std::uint64_t theSeed) : bundleFile(std::move(file)), seed(theSeed) {}

    void Tell(const Check& check, const CheckOutcome& outcome) override
    {
        std::cout << (outcome.IsPassed() ? "passed  " : "FAILED  ") << padded(check.id) << check.sentence
                  << "\n";
        if (!outcome.IsPassed())
            std::cout << indented("found: " + outcome.found) << "\n"
                      << indented("again: " + againText(bundleFile, check, outcome, seed)) << "\n";
        std::cout << std::flush;
    }

    void End(const CheckSummary& summary) override
    {
        std::cout << summary.run - summary.failed << " passed, " << summary.failed << " failed" << std::endl;
    }

private:
    std::string bundleFile;
    std::uint64_t seed;
};

const char* endingText(Ending ending)
{
    switch (ending)
    {
    case Ending::well:
        return "returned";
    case Ending::crashed:
        return "crashed";
    case Ending::tooLate:
        return "too late";
    case Ending::early:
        return "ended early";
    }
    return "";
}

class JsonPrinter : public CheckPrinter
{
public:
    void Tell(const Check& check, const CheckOutcome& outcome) override
    {
        Json one{{"id", check.id},
                 {"sentence", check.sentence},
                 {"passed", outcome.IsPassed()},
                 {"ending", endingText(outcome.ending)},
                 {"looked", outcome.report.looked},
                 {"seconds", outcome.seconds}};
        if (!outcome.IsPassed())
            one["found"] = outcome.found;
        if (outcome.report.isSeedUsed)
            one["usesSeed"] = true;
        checks.push_back(std::move(one));
    }

    void End(const CheckSummary& summary) override
    {
        const Json document{{"bundle", summary.bundleFile},
                            {"seed", summary.seed},
                            {"listed", summary.listed},
                            {"run", summary.run},
                            {"passed", summary.run - summary.failed},
                            {"failed", summary.failed},
                            {"checks", checks}};
        std::cout << asText(document) << std::endl;
    }

private:
    Json checks = Json::array();
};
} // namespace

std::unique_ptr<CheckPrinter> MakeLinePrinter(const std::string& bundleFile, std::uint64_t seed)
{
    return std::make_unique<LinePrinter>(bundleFile, seed);
}

std::unique_ptr<CheckPrinter> MakeJsonPrinter() { return std::make_unique<JsonPrinter>(); }

std::string CheckList()
{
    std::string list;
    for (const Check& check : AllChecks())
        list += padded(check.id) + check.sentence + "\n";
    return list;
}

std::string CheckListAsJson()
{
    Json list = Json::array();
    for (const Check& check : AllChecks())
        list.push_back({{"id", check.id}, {"sentence", check.sentence}});
    return asText(list) + "\n";
}
} // namespace standin
