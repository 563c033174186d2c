#pragma once
// The figures of docs/performance.md and its charts.

#include "bench/Measure.h"

#include <string>

namespace standin
{
/// Replaces what stands between the page's marks by the machine's description and by one table for each group
/// of results. Throws std::runtime_error if a mark is missing.
void WritePage(const std::string& file, const std::vector<Result>& results);

/// Draws time, calls and allocations against the number of effects, rows or items, as SVG files in the
/// folder.
void DrawCharts(const std::string& folder, const std::vector<Result>& results);
} // namespace standin
