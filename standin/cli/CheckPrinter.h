#pragma once
// How `standin check` reports what it found: as lines for a person, or as one JSON document.

#include "standin/check/CheckRun.h"

#include <memory>
#include <string>

namespace standin::cli
{
struct CheckSummary
{
    std::size_t listed = 0;
    std::size_t run = 0;
    std::size_t failed = 0;
};

class CheckPrinter
{
public:
    virtual ~CheckPrinter() = default;
    virtual void Tell(const check::Check& check, const check::CheckOutcome& outcome) = 0;
    /// Called once, after the last check.
    virtual void End(const CheckSummary& summary) = 0;
};

std::unique_ptr<CheckPrinter> MakeLinePrinter(const check::CheckJob& job);
std::unique_ptr<CheckPrinter> MakeJsonPrinter(const check::CheckJob& job);
/// Ids and sentences of the table.
std::string CheckList(const check::CheckBook& book);
std::string CheckListAsJson(const check::CheckBook& book);
} // namespace standin::cli
