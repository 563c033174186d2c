#pragma once
// What a line of a scenario can say. Each phrase stands in one table, from which the player, the messages
// about unknown lines, and the reference for users are made.

#include "standin/script/Statement.h"

#include <functional>
#include <utility>

namespace standin::script
{
class Stage;

/// What a phrase's blanks were filled with, in their order.
struct Arguments
{
    std::vector<std::string> texts; ///< TEXT, TEXTS and WORD.
    std::vector<int> numbers;
};

/// Gives what was found instead; empty if the expectation holds.
using Look = std::function<std::string(Stage&, const Arguments&)>;
using Act = std::function<void(Stage&, const Arguments&)>;

/// Capital words of a pattern are blanks: TEXT is one quoted text, TEXTS one or more, NUMBER a whole number,
/// WORD a word without quotes. The other words are literal.
struct Phrase
{
    enum class Kind
    {
        setting, ///< Makes the scene. The host does not idle.
        action,  ///< Somebody does something. The host idles until all is quiet.
        expectation
    };

    Kind kind;
    const char* pattern;
    const char* help;
    Act act;    ///< Of a setting or an action.
    Look check; ///< Of an expectation.
};

inline Phrase Setting(const char* pattern, const char* help, Act act)
{
    return {Phrase::Kind::setting, pattern, help, std::move(act), {}};
}

inline Phrase Action(const char* pattern, const char* help, Act act)
{
    return {Phrase::Kind::action, pattern, help, std::move(act), {}};
}

inline Phrase Expectation(const char* pattern, const char* help, Look check)
{
    return {Phrase::Kind::expectation, pattern, help, {}, std::move(check)};
}

/// A chapter of the reference.
struct PhraseBook
{
    const char* title;
    std::vector<Phrase> phrases;
};

const std::vector<PhraseBook>& AllPhrases();

// The chapters, each in a file of its own.
PhraseBook ProjectPhrases();
PhraseBook HostPhrases();
PhraseBook PanelPhrases();
PhraseBook SiblingPhrases();
PhraseBook FaultPhrases();
PhraseBook IdlePhrases();
PhraseBook ExpectedPhrases();
PhraseBook ExpectedPanelPhrases();

/// A statement together with the phrase that it fits.
struct Step
{
    Statement statement;
    const Phrase* phrase = nullptr;
    Arguments arguments;
};

/// Throws ScenarioError, with the nearest phrases, for what fits none.
Step BindPhrase(const Statement& statement);
std::vector<Step> BindPhrases(const std::vector<Statement>& statements);

/// The reference of all phrases, as a part of a page in Markdown.
std::string PhraseReference();
} // namespace standin::script
