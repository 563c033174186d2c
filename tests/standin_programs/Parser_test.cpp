// From lines to statements.

#include "standin/script/Parser.h"

#include <gmock/gmock.h>
#include <sstream>

using testing::ElementsAre;

namespace standin
{
using namespace script;

namespace
{
std::vector<Statement> parse(const std::string& text)
{
    std::istringstream stream(text);
    return ParseScenario(stream, "some.scenario");
}

std::vector<std::string> wordsOf(const std::string& line)
{
    const Statement statement = parse(line).at(0);
    std::vector<std::string> words;
    for (const Word& word : statement.words)
        words.push_back(word.text);
    return words;
}

std::string errorOf(const std::string& text)
{
    try
    {
        (void)parse(text);
    }
    catch (const ScenarioError& error)
    {
        return error.what();
    }
    return "no error";
}

TEST(Parser, EmptyLinesAndCommentsAreNoStatements)
{
    const auto statements = parse("\n  # only a comment\n\t\nundo # and why\n\"a # b\" is off\n");
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_EQ(statements[0].line, 4);
    EXPECT_EQ(statements[0].words.size(), 1u);
    EXPECT_EQ(statements[0].Place(), "some.scenario:4: ");
    EXPECT_EQ(statements[1].line, 5);
    EXPECT_EQ(statements[1].words[0].text, "a # b");
}

TEST(Parser, WordsArePlainNumbersOrQuoted)
{
    const auto words = parse("move \"12\" to place -3 x7").at(0).words;
    ASSERT_EQ(words.size(), 6u);
    EXPECT_EQ(words[0].kind, Word::Kind::plain);
    EXPECT_EQ(words[1].kind, Word::Kind::quoted);
    EXPECT_EQ(words[4].kind, Word::Kind::number);
    EXPECT_EQ(words[5].kind, Word::Kind::plain);
}

TEST(Parser, AQuoteCarriesQuotesAndBackslashes)
{
    EXPECT_THAT(wordsOf(R"(type "a \"b\" \\ c" )"), ElementsAre("type", R"(a "b" \ c)"));
    EXPECT_THAT(wordsOf(R"(type "")"), ElementsAre("type", ""));
    EXPECT_EQ(Quoted(R"(a "b" \ c)"), R"("a \"b\" \\ c")");
}

TEST(Parser, WindowsLineEndsDoNotMatter)
{
    EXPECT_THAT(wordsOf("press Return\r"), ElementsAre("press", "Return"));
}

TEST(Parser, AnOpenQuoteIsReportedWithItsLine)
{
    EXPECT_EQ(errorOf("undo\nclick row \"lamp\n"),
              "some.scenario:2: a text begins with a quote and does not end with one");
    EXPECT_EQ(errorOf("click row \"lamp\\\"\n"),
              "some.scenario:1: a text begins with a quote and does not end with one");
}

TEST(Parser, TextsThatStickTogetherAreRefused)
{
    EXPECT_EQ(errorOf("expect stack \"a\"\"b\""), "some.scenario:1: a blank is missing after \"a\"");
}
} // namespace
} // namespace standin
