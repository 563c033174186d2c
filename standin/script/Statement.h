#pragma once
// One line of a scenario, taken apart into words, and the error of one that cannot be understood.

#include <stdexcept>
#include <string>
#include <vector>

namespace standin::script
{
struct Word
{
    enum class Kind
    {
        plain,
        number, ///< A plain word that reads as a whole number.
        quoted
    };

    Kind kind = Kind::plain;
    std::string text; ///< Without quotes.
};

struct Statement
{
    std::string file;
    int line = 0; ///< From 1.
    std::string text;
    std::vector<Word> words;

    /// "FILE:LINE: ", as compilers begin their messages.
    std::string Place() const { return file + ":" + std::to_string(line) + ": "; }
};

/// A scenario that cannot be read. The message begins with file and line.
class ScenarioError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
} // namespace standin::script
