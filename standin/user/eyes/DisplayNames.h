#pragma once
// Under which name the panel shows an effect: the family's default names are shortened.

#include <string>

namespace standin::user
{
std::string DisplayNameOf(const std::string& effectName);
} // namespace standin::user
