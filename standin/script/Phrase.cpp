#include "standin/script/Phrase.h"

#include <algorithm>
#include <optional>
#include <sstream>

namespace standin::script
{
namespace
{
std::vector<std::string> wordsOf(const std::string& pattern)
{
    std::istringstream stream(pattern);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

/// A phrase with its pattern taken apart, which is done once.
struct KnownPhrase
{
    const Phrase* phrase;
    std::vector<std::string> pattern;
};

const std::vector<KnownPhrase>& knownPhrases()
{
    static const std::vector<KnownPhrase> known = []
    {
        std::vector<KnownPhrase> all;
        for (const PhraseBook& book : AllPhrases())
            for (const Phrase& phrase : book.phrases)
                all.push_back({&phrase, wordsOf(phrase.pattern)});
        return all;
    }();
    return known;
}

/// Takes the words that the blank can hold. False if it can hold none.
bool fillBlank(const std::string& blank, const std::vector<Word>& words, std::size_t& at,
               Arguments& arguments)
{
    if (at == words.size())
        return false;
    const Word& word = words[at];
    const bool isQuoted = word.kind == Word::Kind::quoted;
    if (blank == "NUMBER")
    {
        if (word.kind != Word::Kind::number)
            return false;
        arguments.numbers.push_back(std::stoi(word.text));
    }
    else if (blank == "WORD" ? !isQuoted : isQuoted && (blank == "TEXT" || blank == "TEXTS"))
        arguments.texts.push_back(word.text);
    else
        return false;
    ++at;
    while (blank == "TEXTS" && at < words.size() && words[at].kind == Word::Kind::quoted)
        arguments.texts.push_back(words[at++].text);
    return true;
}

bool isBlankName(const std::string& word)
{
    return word == "TEXT" || word == "TEXTS" || word == "NUMBER" || word == "WORD";
}

std::optional<Arguments> match(const std::vector<std::string>& pattern, const std::vector<Word>& words)
{
    Arguments arguments;
    std::size_t at = 0;
    for (const std::string& expected : pattern)
    {
        if (isBlankName(expected))
        {
            if (!fillBlank(expected, words, at, arguments))
                return {};
            continue;
        }
        if (at == words.size() || words[at].kind == Word::Kind::quoted || words[at].text != expected)
            return {};
        ++at;
    }
    if (at != words.size())
        return {};
    return arguments;
}

/// How many words of the statement are in the pattern, the first counting most.
int likeness(const std::vector<std::string>& pattern, const std::vector<Word>& words)
{
    constexpr int firstWord = 3;
    int score = words.front().text == pattern.front() ? firstWord : 0;
    for (const Word& word : words)
        if (word.kind != Word::Kind::quoted &&
            std::find(pattern.begin(), pattern.end(), word.text) != pattern.end())
            ++score;
    return score;
}

std::string nearestPhrases(const std::vector<Word>& words)
{
    std::vector<std::pair<int, const char*>> scored;
    for (const KnownPhrase& known : knownPhrases())
        if (const int score = likeness(known.pattern, words); score > 0)
            scored.emplace_back(score, known.phrase->pattern);
    std::stable_sort(scored.begin(), scored.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    constexpr std::size_t most = 4;
    std::string text;
    for (std::size_t i = 0; i < scored.size() && i < most; ++i)
        text += std::string(i == 0 ? "; near it are:" : ",") + "\n    " + scored[i].second;
    return text;
}
} // namespace

const std::vector<PhraseBook>& AllPhrases()
{
    static const std::vector<PhraseBook> books{ProjectPhrases(),  HostPhrases(),         PanelPhrases(),
                                               SiblingPhrases(),  FaultPhrases(),        IdlePhrases(),
                                               ExpectedPhrases(), ExpectedPanelPhrases()};
    return books;
}

Step BindPhrase(const Statement& statement)
{
    for (const KnownPhrase& known : knownPhrases())
        if (std::optional<Arguments> arguments = match(known.pattern, statement.words))
            return {statement, known.phrase, *arguments};
    throw ScenarioError(statement.Place() + "a scenario cannot say this" + nearestPhrases(statement.words));
}

std::vector<Step> BindPhrases(const std::vector<Statement>& statements)
{
    std::vector<Step> steps;
    steps.reserve(statements.size());
    for (const Statement& statement : statements)
        steps.push_back(BindPhrase(statement));
    return steps;
}

std::string PhraseReference()
{
    std::string page;
    for (const PhraseBook& book : AllPhrases())
    {
        page += std::string("### ") + book.title + "\n\n| Line | Meaning |\n|---|---|\n";
        for (const Phrase& phrase : book.phrases)
            page += std::string("| `") + phrase.pattern + "` | " + phrase.help + " |\n";
        page += "\n";
    }
    return page;
}
} // namespace standin::script
