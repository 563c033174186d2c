#pragma once
// Hears of what the user does in the desktop's own windows, in the words of the scenario language.

#include <string>
#include <vector>

namespace standin::script
{
class ActionRecord
{
public:
    virtual ~ActionRecord() = default;

    /// A phrase of the language, its blanks filled in their order.
    virtual void Line(const std::string& pattern, const std::vector<std::string>& blanks = {}) = 0;
    /// What the language has no words for.
    virtual void Comment(const std::string& text) = 0;
};
} // namespace standin::script
