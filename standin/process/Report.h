#pragma once
// What a child process tells its parent: named fields, one JSON object a line, so that the last word of a
// process that dies is known.

#include <map>
#include <string>

namespace standin::process
{
/// The child's end of the pipe for its report.
constexpr int reportDescriptor = 3;

/// Tells the parent a field. The last value counts. Bytes that are no UTF-8 arrive as the replacement
/// character.
void Tell(const std::string& field, const std::string& value, int descriptor = reportDescriptor);

/// The report as the parent reads it.
class Report
{
public:
    /// A last line that is not whole counts for nothing, and so does one that is no JSON.
    explicit Report(const std::string& told);

    bool Has(const std::string& field) const { return fields.count(field) != 0; }
    /// Empty for a field that was not told.
    std::string Text(const std::string& field) const;
    /// 0 for a field that was not told.
    int Number(const std::string& field) const;

private:
    std::map<std::string, std::string> fields;
};

/// Writes the text whole, or as much of it as the descriptor takes.
void WriteAll(int descriptor, const std::string& text);
} // namespace standin::process
