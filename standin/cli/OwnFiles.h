#pragma once
// What was built together with this program.

#include <string>

namespace standin::cli
{
/// The bundle of the build that this program belongs to.
std::string BuiltBundle();
} // namespace standin::cli
