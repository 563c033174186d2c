#pragma once
// Compiles as much of the resource language Rez as this project's source uses: types made of long
// integers, Pascal strings, alignments and labels, and resources of such a type.

#include "tests/bundle/ResourceReader.h"

namespace standin
{
/// In the order of the source. Throws std::runtime_error at the first thing that it does not understand.
std::vector<Resource> CompileRez(const std::string& source);
} // namespace standin
