#pragma once
// Writes a scenario line by line, for a program that records what its user does.

#include <iosfwd>
#include <string>
#include <vector>

namespace standin::script
{
class ScenarioWriter
{
public:
    /// The stream outlives the writer.
    explicit ScenarioWriter(std::ostream& target) : stream(target) {}

    void Comment(const std::string& text);
    void BlankLine();

    /// A line of a phrase, its blanks filled in their order: numbers as they stand, texts in quotes. The last
    /// TEXTS takes all that are left. Throws ScenarioError if the pattern is no phrase or a blank stays
    /// empty.
    void Line(const std::string& pattern, const std::vector<std::string>& blanks = {});

private:
    std::ostream& stream;
};
} // namespace standin::script
