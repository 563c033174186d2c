#include "standin/process/CapturedOutput.h"

#include <cstdio>
#include <gmock/gmock.h>
#include <iostream>

using testing::ElementsAre;
using testing::IsEmpty;

namespace standin::process
{
namespace
{
TEST(CapturedOutput, ComesInWholeLinesInOrder)
{
    CapturedOutput printed;
    std::cout << "from a stream\nand ";
    std::printf("half a line");
    EXPECT_THAT(printed.TakeLines(), ElementsAre("from a stream"));
    std::puts(" more");
    EXPECT_THAT(printed.TakeLines(), ElementsAre("and half a line more"));
    EXPECT_THAT(printed.TakeLines(), IsEmpty());
    EXPECT_EQ(printed.Text(), "from a stream\nand half a line more\n");
}

TEST(CapturedOutput, HasNoLimitThatBlocksTheProgram)
{
    CapturedOutput printed;
    const std::string line(999, 'x');
    for (int i = 0; i < 2000; ++i)
        std::puts(line.c_str());
    EXPECT_EQ(printed.TakeLines().size(), 2000u);
}

TEST(CapturedOutput, TellsFlushedFromBuffered)
{
    const CapturedOutput printed;
    std::printf("waits");
    EXPECT_EQ(printed.FlushedText(), "");
    EXPECT_EQ(printed.Text(), "waits");
    EXPECT_EQ(printed.FlushedText(), "waits");
}

TEST(CapturedOutput, GivesStandardOutputBack)
{
    const CapturedOutput outer;
    {
        const CapturedOutput inner;
        std::printf("inner");
        inner.WriteToTerminal("past it, ");
    }
    std::printf("outer");
    EXPECT_EQ(outer.Text(), "past it, outer");
}
} // namespace
} // namespace standin::process
