#pragma once
// What the process of a check tells the process that judges, line by line through a pipe, so that the last
// word of a process that dies is known.

#include "standin/checks/Trial.h"

#include <string>

namespace standin
{
/// How the check's own code ended, as far as it said so.
enum class Word
{
    none, ///< The process ended before it could say.
    passed,
    failed,
    noFile,
    noBundle,
    noDisplay
};

struct CheckReport
{
    Word word = Word::none;
    std::string found; ///< What was found, if it is not well.
    std::string place; ///< Where it stood last.
    int looked = 0;
    bool isSeedUsed = false;
};

/// The end of the pipe that is written to.
class ReportWriter
{
public:
    explicit ReportWriter(int descriptor) : pipe(descriptor) {}

    void Place(const std::string& place) const;
    void End(const Trial& trial, Word word, const std::string& found) const;

private:
    void line(const std::string& key, const std::string& text) const;

    int pipe;
};

/// A last line that is not whole counts for nothing.
CheckReport ReadReport(const std::string& text);
} // namespace standin
