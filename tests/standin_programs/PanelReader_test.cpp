// Reading the panel from pictures of it, painted here after the panel's measures.

#include "standin/user/eyes/PanelReader.h"
#include "tests/standin_programs/PanelPainting.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace standin
{
using namespace user;

namespace
{
class ReadingThePanel : public testing::Test
{
protected:
    std::vector<PanelRow> rows(const std::vector<std::string>& candidates)
    {
        return reader.Rows(painting.Picture(), candidates);
    }

    PanelPainting painting{380, 460};
    PanelReader reader;
};

TEST_F(ReadingThePanel, AnEmptyPanelShowsNothing)
{
    EXPECT_THAT(rows({"lamp"}), IsEmpty());
    EXPECT_THAT(reader.Buttons(painting.Picture()), IsEmpty());
    EXPECT_FALSE(reader.Notification(painting.Picture(), {"lamp"}).has_value());
    EXPECT_FALSE(PanelReader::IsEditorOpen(painting.Picture()));
}

TEST_F(ReadingThePanel, RowsComeFromTheTopWithTheirDepth)
{
    painting.LayerRow(88);
    painting.Row("Group 3", 1, 108);
    painting.Row("lamp", 2, 128);
    painting.Row("route", 1, 148);
    const auto found = rows({"route", "Group 3", "Group 8", "lamp", "Layer"});
    ASSERT_EQ(found.size(), 4u);
    EXPECT_EQ(found[0].text, "Layer");
    EXPECT_EQ(found[0].depth, 0);
    EXPECT_EQ(found[0].box, Box::none);
    EXPECT_EQ(found[1].text, "Group 3");
    EXPECT_EQ(found[1].depth, 1);
    EXPECT_EQ(found[2].text, "lamp");
    EXPECT_EQ(found[2].depth, 2);
    EXPECT_EQ(found[2].y, 128);
    EXPECT_EQ(found[3].text, "route");
}

TEST_F(ReadingThePanel, ATextOutsideTheCandidatesIsUnreadable)
{
    painting.Row("lamp", 1, 108);
    for (const std::vector<std::string>& others :
         {std::vector<std::string>{}, {"lamps"}, {"damp"}, {"lam"}, {"lamp 2"}, {"lump"}, {"Lamp"}})
    {
        const auto found = rows(others);
        ASSERT_EQ(found.size(), 1u);
        EXPECT_EQ(found[0].text, PanelReader::unreadable) << (others.empty() ? "" : others.front());
    }
}

TEST_F(ReadingThePanel, AWrongLetterInLongNamesIsSeen)
{
    painting.Row("a rather long name of a row", 1, 108);
    EXPECT_EQ(rows({"a rather long name of a row"})[0].text, "a rather long name of a row");
    EXPECT_EQ(rows({"a rather long mame of a row"})[0].text, PanelReader::unreadable);
    EXPECT_EQ(rows({"a rather long name of a cow"})[0].text, PanelReader::unreadable);
}

TEST_F(ReadingThePanel, BoxesAreEmptyHalfFullOrFull)
{
    painting.Row("lamp", 1, 108);
    painting.Row("lamp", 1, 128);
    painting.Row("lamp", 1, 148);
    painting.FillBox(1, 128, 2);
    painting.FillBox(1, 148, 0);
    const auto found = rows({"lamp"});
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].box, Box::full);
    EXPECT_EQ(found[1].box, Box::half);
    EXPECT_EQ(found[2].box, Box::empty);
}

TEST_F(ReadingThePanel, ASelectedRowIsReadOnItsHighlight)
{
    painting.SelectedRow("dots", 1, 108);
    painting.Row("dots", 1, 128);
    const auto found = rows({"dots", "lamp"});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].text, "dots");
    EXPECT_EQ(found[0].selected, Marked::yes);
    EXPECT_EQ(found[1].selected, Marked::no);
}

TEST_F(ReadingThePanel, ASelectedRowIsReadToItsEnd)
{
    painting.SelectedRow("lamp", 1, 108);
    EXPECT_EQ(rows({"lamp that goes on and on"})[0].text, PanelReader::unreadable);
}

TEST_F(ReadingThePanel, ScrolledRowsAreRead)
{
    painting.Row("lamp", 1, 95);
    painting.Row("dots", 1, 115);
    const auto found = rows({"dots", "lamp"});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].y, 95);
    EXPECT_EQ(found[1].text, "dots");
}

TEST_F(ReadingThePanel, ButtonsAreThoseThatAreThere)
{
    painting.Fill(13, 8, 100, 15, 0x1a1a1a);
    painting.Text("Add Geometry", 18, 8, 15, 14, 0xcccccc);
    painting.Fill(13, 56, 100, 15, 0x1a1a1a);
    painting.Text("Add Group", 18, 56, 15, 14, 0xcccccc);
    const auto found = reader.Buttons(painting.Picture());
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].text, "Add Geometry");
    EXPECT_EQ(found[1].text, "Add Group");
    EXPECT_EQ(found[1].y, 56);
}

TEST_F(ReadingThePanel, TheNameFieldIsSeenFocusedOrNot)
{
    painting.Outline(48, 108, 200, 20, 0xd3d3d3);
    EXPECT_TRUE(PanelReader::IsEditorOpen(painting.Picture()));
    EXPECT_TRUE(PanelReader::IsEditorListening(painting.Picture()));
    painting.Outline(48, 108, 200, 20, 0x8e989b);
    EXPECT_TRUE(PanelReader::IsEditorOpen(painting.Picture()));
    EXPECT_FALSE(PanelReader::IsEditorListening(painting.Picture()));
    painting.Outline(48, 108, 200, 20, 0xffffff);
    EXPECT_FALSE(PanelReader::IsEditorOpen(painting.Picture()));
}
} // namespace
} // namespace standin
