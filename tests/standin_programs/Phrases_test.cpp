// Which phrase a statement fits, and the page that lists them all.

#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/script/Player.h"
#include "tests/support/Scratch.h"

#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <set>
#include <sstream>

using testing::ElementsAre;
using testing::HasSubstr;

namespace standin
{
using namespace script;

namespace
{
Step bind(const std::string& line)
{
    std::istringstream stream(line);
    return BindPhrase(ParseScenario(stream, "some.scenario").at(0));
}

std::string bindingErrorOf(const std::string& line)
{
    try
    {
        (void)bind(line);
    }
    catch (const ScenarioError& error)
    {
        return error.what();
    }
    return "no error";
}

TEST(Phrases, BlanksAreFilledInTheirOrder)
{
    const Step step = bind("drag row \"lamp\" into \"Group 1\"");
    EXPECT_STREQ(step.phrase->pattern, "drag row TEXT into TEXT");
    EXPECT_THAT(step.arguments.texts, ElementsAre("lamp", "Group 1"));
    EXPECT_THAT(bind("move \"lamp\" to place 2").arguments.numbers, ElementsAre(2));
    EXPECT_THAT(bind("expect stack \"a\" \"b\" \"c\"").arguments.texts, ElementsAre("a", "b", "c"));
    EXPECT_THAT(bind("press Control+a").arguments.texts, ElementsAre("Control+a"));
    EXPECT_THAT(bind("\"lamp\" is off").arguments.texts, ElementsAre("lamp"));
}

TEST(Phrases, AnUnknownLineNamesTheNearestOnes)
{
    const std::string error = bindingErrorOf("click rows \"lamp\"");
    EXPECT_THAT(error, HasSubstr("some.scenario:1: a scenario cannot say this"));
    EXPECT_THAT(error, HasSubstr("click row TEXT"));
    EXPECT_EQ(bindingErrorOf("zzz"), "some.scenario:1: a scenario cannot say this");
}

TEST(Phrases, ABlankTakesOnlyItsOwnKind)
{
    EXPECT_THAT(bindingErrorOf("click row lamp"), HasSubstr("cannot say this"));
    EXPECT_THAT(bindingErrorOf("move \"lamp\" to place \"2\""), HasSubstr("cannot say this"));
    EXPECT_THAT(bindingErrorOf("press \"Return\""), HasSubstr("cannot say this"));
    EXPECT_THAT(bindingErrorOf("expect stack"), HasSubstr("cannot say this"));
    EXPECT_THAT(bindingErrorOf("undo undo"), HasSubstr("cannot say this"));
}

TEST(Phrases, EachHasOneKindAndAnExplanation)
{
    std::set<std::string> patterns;
    for (const PhraseBook& book : AllPhrases())
        for (const Phrase& phrase : book.phrases)
        {
            const bool expects = phrase.kind == Phrase::Kind::expectation;
            EXPECT_EQ(static_cast<bool>(phrase.check), expects) << phrase.pattern;
            EXPECT_EQ(static_cast<bool>(phrase.act), !expects) << phrase.pattern;
            EXPECT_NE(std::string(phrase.help), "") << phrase.pattern;
            EXPECT_TRUE(patterns.insert(phrase.pattern).second) << phrase.pattern << " stands there twice";
        }
    EXPECT_GT(patterns.size(), 80u);
}

TEST(Phrases, ThePageListsThemAllAsTheyAre)
{
    if (std::getenv("STANDIN_WRITE_PHRASES") != nullptr)
    {
        const std::string page = FileText(VORTAN_SCENARIOS_PAGE);
        const std::size_t end = page.find("### The project");
        std::ofstream(VORTAN_SCENARIOS_PAGE) << page.substr(0, end) << PhraseReference();
    }
    EXPECT_THAT(FileText(VORTAN_SCENARIOS_PAGE), HasSubstr(PhraseReference()));
}

TEST(ReadScenario, AFileWithoutAnyExpectationIsRefused)
{
    const Scratch scratch;
    const std::string file = scratch.Path("no-expectation.scenario");
    scratch.Write("no-expectation.scenario", "composition \"C\"\nundo\n");
    EXPECT_THROW(
        {
            try
            {
                (void)ReadScenario(file);
            }
            catch (const ScenarioError& error)
            {
                EXPECT_EQ(std::string(error.what()),
                          file + ":2: the scenario ends without having expected anything");
                throw;
            }
        },
        ScenarioError);
}

TEST(ReadScenario, EmptyAndMissingFilesAreRefused)
{
    const Scratch scratch;
    scratch.Write("empty.scenario", "# nothing\n");
    EXPECT_THROW((void)ReadScenario(scratch.Path("empty.scenario")), ScenarioError);
    EXPECT_THROW((void)ReadScenario(scratch.Path("is-not-there.scenario")), ScenarioError);
}
} // namespace
} // namespace standin
