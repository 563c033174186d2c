#include "standin/script/Writer.h"

#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"

#include <ostream>
#include <sstream>

namespace standin::script
{
namespace
{
/// Fills the blanks of a pattern.
std::string filled(const std::string& pattern, const std::vector<std::string>& blanks)
{
    std::istringstream words(pattern);
    std::string line;
    std::size_t next = 0;
    const auto take = [&]
    {
        if (next == blanks.size())
            throw ScenarioError("a blank of \"" + pattern + "\" stays empty");
        return blanks[next++];
    };
    for (std::string word; words >> word;)
    {
        line += line.empty() ? "" : " ";
        if (word == "NUMBER" || word == "WORD")
            line += take();
        else if (word == "TEXT" || word == "TEXTS")
            line += Quoted(take());
        else
            line += word;
        while (word == "TEXTS" && next < blanks.size())
            line += " " + Quoted(take());
    }
    return line;
}
} // namespace

void ScenarioWriter::Comment(const std::string& text) { stream << "# " << text << "\n"; }

void ScenarioWriter::BlankLine() { stream << "\n"; }

void ScenarioWriter::Line(const std::string& pattern, const std::vector<std::string>& blanks)
{
    const std::string line = filled(pattern, blanks);
    std::istringstream text(line);
    for (const Statement& statement : ParseScenario(text, "recording"))
    {
        if (BindPhrase(statement).phrase->pattern != pattern)
            throw ScenarioError("\"" + pattern + "\" is no phrase of a scenario");
    }
    stream << line << "\n";
    stream.flush();
}
} // namespace standin::script
