#include "standin/checks/CheckReport.h"

#include <cstdlib>
#include <sstream>
#include <unistd.h>

namespace standin
{
namespace
{
constexpr const char* words[] = {"none", "passed", "failed", "no-file", "no-bundle", "no-display"};

/// A text of several lines on one.
std::string folded(const std::string& text)
{
    std::string line;
    for (const char c : text)
    {
        if (c == '\n')
            line += "\\n";
        else if (c == '\\')
            line += "\\\\";
        else
            line += c;
    }
    return line;
}

std::string unfolded(const std::string& line)
{
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i)
    {
        if (line[i] != '\\' || i + 1 == line.size())
            text += line[i];
        else
            text += line[++i] == 'n' ? '\n' : line[i];
    }
    return text;
}

void take(CheckReport& report, const std::string& key, const std::string& text)
{
    if (key == "place")
        report.place = unfolded(text);
    else if (key == "looked")
        report.looked = std::atoi(text.c_str());
    else if (key == "seed")
        report.isSeedUsed = true;
    else
        for (std::size_t i = 0; i < std::size(words); ++i)
            if (key == words[i])
            {
                report.word = static_cast<Word>(i);
                report.found = unfolded(text);
            }
}
} // namespace

void ReportWriter::line(const std::string& key, const std::string& text) const
{
    const std::string whole = key + " " + folded(text) + "\n";
    std::size_t written = 0;
    while (written < whole.size())
    {
        const ssize_t count = write(pipe, whole.data() + written, whole.size() - written);
        if (count <= 0)
            return;
        written += static_cast<std::size_t>(count);
    }
}

void ReportWriter::Place(const std::string& place) const { line("place", place); }

void ReportWriter::End(const Trial& trial, Word word, const std::string& found) const
{
    line("looked", std::to_string(trial.Looked()));
    if (trial.IsSeedUsed())
        line("seed", "");
    line(words[static_cast<std::size_t>(word)], found);
}

CheckReport ReadReport(const std::string& text)
{
    CheckReport report;
    std::istringstream stream(text);
    std::string line;
    while (std::getline(stream, line) && !stream.eof())
    {
        const std::size_t blank = line.find(' ');
        if (blank != std::string::npos)
            take(report, line.substr(0, blank), line.substr(blank + 1));
    }
    return report;
}
} // namespace standin
