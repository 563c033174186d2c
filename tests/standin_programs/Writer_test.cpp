// Recordings.

#include "standin/script/Writer.h"

#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"

#include <gtest/gtest.h>
#include <sstream>

namespace standin
{
using namespace script;

namespace
{
TEST(ScenarioWriter, WritesWhatThePlayerReads)
{
    std::ostringstream text;
    ScenarioWriter writer(text);
    writer.Comment("recorded");
    writer.Line("composition TEXT", {"Comp 1"});
    writer.BlankLine();
    writer.Line("move TEXT to place NUMBER", {"a \"b\"", "2"});
    writer.Line("expect stack TEXTS", {"one", "two"});
    writer.Line("press WORD", {"Return"});
    EXPECT_EQ(text.str(), "# recorded\n"
                          "composition \"Comp 1\"\n"
                          "\n"
                          "move \"a \\\"b\\\"\" to place 2\n"
                          "expect stack \"one\" \"two\"\n"
                          "press Return\n");
    std::istringstream back(text.str());
    EXPECT_EQ(BindPhrases(ParseScenario(back, "recorded")).size(), 4u);
}

TEST(ScenarioWriter, RefusesWhatNoPlayerReads)
{
    std::ostringstream text;
    ScenarioWriter writer(text);
    EXPECT_THROW(writer.Line("jump over TEXT", {"lamp"}), ScenarioError);
    EXPECT_THROW(writer.Line("click row TEXT", {}), ScenarioError);
    EXPECT_THROW(writer.Line("move TEXT to place NUMBER", {"lamp", "two"}), ScenarioError);
    EXPECT_EQ(text.str(), "");
}
} // namespace
} // namespace standin
