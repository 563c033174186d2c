// Scenario files: any text is refused with its line or taken apart, and what was taken apart means the same
// when it is written again, word by word and phrase by phrase.

#include "fuzz/Input.h"
#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/script/Writer.h"

#include <sstream>

namespace standin
{
using namespace script;

namespace
{
std::vector<Statement> parse(const std::string& text)
{
    std::istringstream stream(text);
    return ParseScenario(stream, "fuzzed");
}

std::string lineOf(const std::vector<Word>& words)
{
    std::string line;
    for (const Word& word : words)
        line += (line.empty() ? "" : " ") + (word.kind == Word::Kind::quoted ? Quoted(word.text) : word.text);
    return line;
}

bool areEqual(const std::vector<Word>& one, const std::vector<Word>& other)
{
    if (one.size() != other.size())
        return false;
    for (std::size_t i = 0; i < one.size(); ++i)
        if (one[i].kind != other[i].kind || one[i].text != other[i].text)
            return false;
    return true;
}

void checkWords(const Statement& statement)
{
    const std::vector<Statement> again = parse(lineOf(statement.words));
    Require(again.size() == 1 && areEqual(again[0].words, statement.words),
            "a line that is written from its words has the same words");
}

/// The blanks of the pattern, in its order, as a recorder hands them over.
std::vector<std::string> blanksOf(const Step& step)
{
    std::vector<std::string> blanks;
    std::size_t text = 0;
    std::size_t number = 0;
    std::istringstream pattern(step.phrase->pattern);
    for (std::string word; pattern >> word;)
    {
        if (word == "NUMBER")
            blanks.push_back(std::to_string(step.arguments.numbers.at(number++)));
        else if (word == "TEXT" || word == "WORD")
            blanks.push_back(step.arguments.texts.at(text++));
        else if (word == "TEXTS")
            while (text < step.arguments.texts.size())
                blanks.push_back(step.arguments.texts.at(text++));
    }
    return blanks;
}

void checkPhrase(const Step& step)
{
    std::ostringstream written;
    ScenarioWriter(written).Line(step.phrase->pattern, blanksOf(step));
    const std::vector<Statement> again = parse(written.str());
    Require(again.size() == 1, "a phrase is one line");
    const Step bound = BindPhrase(again[0]);
    Require(bound.phrase == step.phrase && bound.arguments.texts == step.arguments.texts &&
                bound.arguments.numbers == step.arguments.numbers,
            "a phrase that is written from its blanks has the same blanks");
}

void check(const std::string& text)
{
    try
    {
        for (const Statement& statement : parse(text))
        {
            Require(!statement.words.empty() && statement.line > 0, "a statement has words and a line");
            checkWords(statement);
            checkPhrase(BindPhrase(statement));
        }
    }
    catch (const ScenarioError& error)
    {
        Require(std::string(error.what()).compare(0, 7, "fuzzed:") == 0, "a complaint names the file");
    }
}
} // namespace
} // namespace standin

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    standin::check(standin::Input(data, size).Rest());
    return 0;
}
