#include "standin/cli/CheckPrinter.h"

#include <algorithm>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>

namespace standin::cli
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

std::string againText(const check::CheckJob& job, const check::Check& check,
                      const check::CheckOutcome& outcome)
{
    const std::string seedText = outcome.isSeedUsed ? " --seed " + std::to_string(job.seed) : "";
    return std::string("standin ") + job.book->command + " " + job.file + " --only " + check.id + seedText;
}

std::string padded(const std::string& id, const check::CheckBook& book)
{
    std::size_t longest = id.size();
    for (const check::Check& check : book.checks)
        longest = std::max(longest, std::strlen(check.id));
    return id + std::string(longest - id.size() + 2, ' ');
}

class LinePrinter : public CheckPrinter
{
public:
    explicit LinePrinter(check::CheckJob theJob) : job(std::move(theJob)) {}

    void Tell(const check::Check& check, const check::CheckOutcome& outcome) override
    {
        std::cout << (outcome.IsPassed() ? "passed  " : "FAILED  ") << padded(check.id, *job.book)
                  << check.sentence << "\n";
        if (!outcome.IsPassed())
            std::cout << indented("found: " + outcome.found) << "\n"
                      << indented("again: " + againText(job, check, outcome)) << "\n";
        std::cout << std::flush;
    }

    void End(const CheckSummary& summary) override
    {
        std::cout << summary.run - summary.failed << " passed, " << summary.failed << " failed" << std::endl;
    }

private:
    check::CheckJob job;
};

class JsonPrinter : public CheckPrinter
{
public:
    explicit JsonPrinter(check::CheckJob theJob) : job(std::move(theJob)) {}

    void Tell(const check::Check& check, const check::CheckOutcome& outcome) override
    {
        Json one{{"id", check.id},           {"sentence", check.sentence}, {"passed", outcome.IsPassed()},
                 {"ending", outcome.ending}, {"looked", outcome.looked},   {"seconds", outcome.seconds}};
        if (!outcome.IsPassed())
            one["found"] = outcome.found;
        if (outcome.isSeedUsed)
            one["usesSeed"] = true;
        checks.push_back(std::move(one));
    }

    void End(const CheckSummary& summary) override
    {
        const Json document{{job.book->kind, job.file},
                            {"seed", job.seed},
                            {"listed", summary.listed},
                            {"run", summary.run},
                            {"passed", summary.run - summary.failed},
                            {"failed", summary.failed},
                            {"checks", checks}};
        std::cout << asText(document) << std::endl;
    }

private:
    check::CheckJob job;
    Json checks = Json::array();
};
} // namespace

std::unique_ptr<CheckPrinter> MakeLinePrinter(const check::CheckJob& job)
{
    return std::make_unique<LinePrinter>(job);
}

std::unique_ptr<CheckPrinter> MakeJsonPrinter(const check::CheckJob& job)
{
    return std::make_unique<JsonPrinter>(job);
}

std::string CheckList(const check::CheckBook& book)
{
    std::string list;
    for (const check::Check& check : book.checks)
        list += padded(check.id, book) + check.sentence + "\n";
    return list;
}

std::string CheckListAsJson(const check::CheckBook& book)
{
    Json list = Json::array();
    for (const check::Check& check : book.checks)
        list.push_back({{"id", check.id}, {"sentence", check.sentence}});
    return asText(list) + "\n";
}
} // namespace standin::cli
