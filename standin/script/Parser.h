#pragma once
// From the text of a scenario to its statements. A line is one statement; "#" begins a comment; a text stands
// in double quotes, in which \" and \\ stand for the quote and the backslash.

#include "standin/script/Statement.h"

#include <iosfwd>

namespace standin::script
{
/// Throws ScenarioError.
std::vector<Statement> ParseScenario(std::istream& text, const std::string& file);

/// A text as it is written in a scenario.
std::string Quoted(const std::string& text);
} // namespace standin::script
