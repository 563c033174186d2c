#pragma once
// The inside of a check's process.

#include "standin/checks/Check.h"

#include <cstdint>
#include <string>

namespace standin
{
/// In place of a check's id: only load the file and look for what it has to export.
constexpr const char* onlyLoad = "load";
/// The place of a check that looks at the process's own end: it is ended by exit and not at once.
constexpr const char* endOfProcess = "the end of the process";
/// The pipe for the report.
constexpr int reportDescriptor = 3;

/// Throws what the check throws, and std::logic_error if it returns without having looked at anything.
void RunCheck(const Check& check, Trial& trial);

/// Runs the check, writes its report, and ends the process.
[[noreturn]] void RunCheckAlone(const CheckBook& book, const std::string& file, const std::string& id,
                                std::uint64_t seed);
} // namespace standin
