#pragma once
// Where this program is, and what was built beside it.

#include <string>

namespace standin
{
/// The file of this program.
std::string OwnProgram();
/// The bundle of the build that this program belongs to.
std::string BuiltBundle();
} // namespace standin
