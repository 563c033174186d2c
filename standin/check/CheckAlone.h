#pragma once
// The inside of a check's process.

#include "standin/check/Check.h"
#include "standin/process/Report.h"

namespace standin::check
{
/// In place of a check's id: only load the file and look for what it has to export.
constexpr const char* onlyLoad = "load";
/// The last place of each check that went well.
constexpr const char* endOfProcess = "the end of the process";

/// The fields of a check's report.
namespace told
{
constexpr const char* place = "place";     ///< Where the check stands.
constexpr const char* seed = "seed";       ///< Told once the seed is used.
constexpr const char* looked = "looked";   ///< How many things it has looked at.
constexpr const char* found = "found";     ///< What was found, if it is not well.
constexpr const char* verdict = "verdict"; ///< One of the exit codes. Told last.
} // namespace told

/// Throws what the check throws, and std::logic_error if it returns without having looked at anything.
void RunCheck(const Check& check, Trial& trial);

/// Runs the check, writes its report to the descriptor, and ends the process.
[[noreturn]] void RunCheckAlone(const CheckJob& job, const std::string& id,
                                int reportTo = process::reportDescriptor);
} // namespace standin::check
