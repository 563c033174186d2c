#include "standin/script/Parser.h"

#include <algorithm>
#include <cctype>
#include <istream>

namespace standin::script
{
namespace
{
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

bool isNumber(const std::string& text)
{
    const std::size_t sign = text.rfind('-', 0) == 0 ? 1 : 0;
    constexpr std::size_t mostDigits = 9;
    return text.size() > sign && text.size() - sign <= mostDigits &&
           std::all_of(text.begin() + static_cast<std::ptrdiff_t>(sign), text.end(),
                       [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; });
}

class Line
{
public:
    explicit Line(Statement& target) : statement(target), text(target.text) {}

    void Parse()
    {
        while (true)
        {
            while (at < text.size() && isBlank(text[at]))
                ++at;
            if (at == text.size() || text[at] == '#')
                return;
            statement.words.push_back(text[at] == '"' ? quoted() : plain());
        }
    }

private:
    Word plain()
    {
        Word word;
        while (at < text.size() && !isBlank(text[at]) && text[at] != '#' && text[at] != '"')
            word.text += text[at++];
        word.kind = isNumber(word.text) ? Word::Kind::number : Word::Kind::plain;
        return word;
    }

    Word quoted()
    {
        Word word;
        word.kind = Word::Kind::quoted;
        for (++at; at < text.size() && text[at] != '"'; ++at)
        {
            const bool isEscape = text[at] == '\\' && at + 1 < text.size();
            at += isEscape ? 1 : 0;
            word.text += text[at];
        }
        if (at == text.size())
            throw ScenarioError(statement.Place() + "a text begins with a quote and does not end with one");
        ++at;
        if (at < text.size() && !isBlank(text[at]) && text[at] != '#')
            throw ScenarioError(statement.Place() + "a blank is missing after " + Quoted(word.text));
        return word;
    }

    Statement& statement;
    const std::string& text;
    std::size_t at = 0;
};
} // namespace

std::vector<Statement> ParseScenario(std::istream& text, const std::string& file)
{
    std::vector<Statement> statements;
    Statement statement;
    statement.file = file;
    while (std::getline(text, statement.text))
    {
        ++statement.line;
        statement.words.clear();
        Line(statement).Parse();
        if (!statement.words.empty())
            statements.push_back(statement);
    }
    return statements;
}

std::string Quoted(const std::string& text)
{
    std::string result = "\"";
    for (const char c : text)
        result += (c == '"' || c == '\\' ? std::string("\\") : std::string()) + c;
    return result + "\"";
}
} // namespace standin::script
