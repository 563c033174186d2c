#pragma once
// What the panel's toolkit finds wrong with its use: in debug builds it tells of it on the standard error, of
// objects that were left when the process ends, and goes on.

#include <string>

namespace standin::process
{
/// The lines that tell of a failed assertion or of leaked objects, each once; empty if there are none.
std::string ComplaintsIn(const std::string& printed);

/// Ends this process so that leak reports are made. For a child whose work went well; what has been found
/// wrong already is not to be covered by how the process ends.
[[noreturn]] void LeaveWithLeakReports();
} // namespace standin::process
