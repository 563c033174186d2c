#pragma once
// What the programs `standin` and `standin-desktop` tell the shell. The first failure decides.

#include <string>
#include <vector>

namespace standin::exit_code
{
constexpr int well = 0;
constexpr int failed = 1;
constexpr int usage = 2;
constexpr int noFile = 3;
constexpr int badInput = 4;
constexpr int noBundle = 5;
constexpr int crashed = 6;
constexpr int timeOut = 7;
constexpr int noDisplay = 8;
constexpr int noRecording = 9;

/// What each of them means, in their order.
const std::vector<std::string>& Meanings();
/// For the end of a program's help.
std::string Help();
} // namespace standin::exit_code
