// Comparing what is seen with what a text would look like.

#include "standin/user/eyes/TextShapes.h"

#include <gtest/gtest.h>

namespace standin
{
using namespace user;

namespace
{
TEST(TextShapes, ATextIsLikeItselfAndUnlikeAnother)
{
    TextShapes shapes;
    const Ink lamp = shapes.Draw("lamp", 15, 0);
    EXPECT_LT(TextShapes::Difference(lamp, shapes.Draw("lamp", 15, 0), 0), 0.001);
    EXPECT_GT(TextShapes::Difference(lamp, shapes.Draw("route", 15, 0), 0), 0.3);
    EXPECT_GT(TextShapes::Difference(lamp, shapes.Draw("lamp", 15, 0), 3), 0.3);
}

TEST(TextShapes, TheNearestCandidateIsRead)
{
    TextShapes shapes;
    const Ink seen = shapes.Draw("Group 3", 15, 0);
    EXPECT_EQ(shapes.Read(seen, {"Group 8", "Group 3", "Group 13"}, {15, 0, 0, 0.17, TooLong::cannotBe}),
              "Group 3");
    EXPECT_EQ(shapes.Read(seen, {"Group 8", "Group 13"}, {15, 0, 0, 0.17, TooLong::cannotBe}), std::nullopt);
}

TEST(TextShapes, AShiftedTextIsReadWithinItsSlack)
{
    TextShapes shapes;
    const Ink seen = shapes.Draw("Routes", 15, 1.25);
    EXPECT_EQ(shapes.Read(seen, {"Routes"}, {15, 0, 1.5, 0.17, TooLong::cannotBe}), "Routes");
    EXPECT_EQ(shapes.Read(seen, {"Routes"}, {15, 0, 0, 0.17, TooLong::cannotBe}), std::nullopt);
}

TEST(TextShapes, ACutTextIsReadByItsBeginning)
{
    TextShapes shapes;
    Ink seen = shapes.Draw("a name without an end that is too long", 15, 0);
    Ink cut;
    cut.width = 120;
    cut.height = seen.height;
    for (int y = 0; y < cut.height; ++y)
        for (int x = 0; x < cut.width; ++x)
            cut.cover.push_back(seen.At(x, y));
    const std::vector<std::string> texts{"a name without an end that is too long"};
    EXPECT_EQ(shapes.Read(cut, texts, {15, 0, 0, 0.17, TooLong::isCut}), texts.front());
    EXPECT_EQ(shapes.Read(cut, texts, {15, 0, 0, 0.17, TooLong::cannotBe}), std::nullopt);
}

TEST(TextShapes, InkIsMeasuredFromPaperToInk)
{
    ScreenPicture picture;
    picture.width = 3;
    picture.height = 1;
    picture.pixels = {0x202020, 0xa0a0a0, 0x606060};
    const Ink ink = InkIn(picture, 0, 0, 3, 1, 0xa0a0a0, 0x202020);
    EXPECT_FLOAT_EQ(ink.At(0, 0), 0);
    EXPECT_FLOAT_EQ(ink.At(1, 0), 1);
    EXPECT_FLOAT_EQ(ink.At(2, 0), 0.5);
    EXPECT_FLOAT_EQ(ink.At(3, 0), 0);
}

TEST(TextShapes, AFileThatIsNoFontIsRefused)
{
    EXPECT_THROW(TextShapes("/etc/passwd"), std::runtime_error);
    EXPECT_THROW(TextShapes("/nowhere"), std::runtime_error);
}
} // namespace
} // namespace standin
