#pragma once
// The name by which the panel's rows show an effect, as the kit for authors tells it: the family's default
// names are shortened.

#include <string>

namespace standin::user
{
std::string DisplayNameOf(const std::string& effectName);
} // namespace standin::user
