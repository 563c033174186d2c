#pragma once
// How `standin check` tells what it found: as lines for a person, or as one JSON document.

#include "standin/checks/CheckRun.h"

#include <cstdint>
#include <memory>
#include <string>

namespace standin
{
struct CheckSummary
{
    std::string bundleFile;
    std::uint64_t seed = 1;
    std::size_t listed = 0;
    std::size_t run = 0;
    std::size_t failed = 0;
};

class CheckPrinter
{
public:
    virtual ~CheckPrinter() = default;
    virtual void Tell(const Check& check, const CheckOutcome& outcome) = 0;
    /// Called once, behind the last check.
    virtual void End(const CheckSummary& summary) = 0;
};

std::unique_ptr<CheckPrinter> MakeLinePrinter(const std::string& bundleFile, std::uint64_t seed);
std::unique_ptr<CheckPrinter> MakeJsonPrinter();
/// Ids and sentences of the table.
std::string CheckList();
std::string CheckListAsJson();
} // namespace standin
