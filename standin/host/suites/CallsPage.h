#pragma once
// The page docs/host-calls.md, made from the description of the tables.

#include <string>

namespace standin
{
std::string CallsPage();
} // namespace standin
