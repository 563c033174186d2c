#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <JuceText.h>
#include <gtest/gtest.h>

using namespace standin;

namespace
{
const juce::Colour ground(0xff203040);
const juce::Colour lightGrey = juce::Colour::greyLevel(0.8f);
const juce::Colour highlight = juce::Colour::greyLevel(0.6f);

/// Rows painted by the tree itself, at 300 by 400.
class RowPainting : public TreeTest
{
protected:
    void build(const std::vector<ObjectItem>& items)
    {
        SetBGColor(panel, ground.getFloatRed(), ground.getFloatGreen(), ground.getFloatBlue(), 1.0f);
        panel->setSize(300, 400);
        RefreshTree(panel, items);
    }

    /// The row as it stands on the panel, from its indent to the right edge of the tree.
    juce::Image picture(const std::string& name)
    {
        pump();
        const auto bounds =
            row(name).getItemPosition(true).withHeight(20).getIntersection(view().getLocalBounds());
        return view().createComponentSnapshot(bounds);
    }

    /// The row's check box, "#" where it is light and "." where it is not.
    std::vector<std::string> box(const std::string& name)
    {
        const auto image = picture(name);
        std::vector<std::string> lines;
        for (int y = 6; y < 14; ++y)
        {
            lines.emplace_back();
            for (int x = 2; x < 10; ++x)
                lines.back() += image.getPixelAt(x, y) == lightGrey ? '#' : '.';
        }
        return lines;
    }
};

using Lines = std::vector<std::string>;

const Lines emptyBox = {"########", "#......#", "#......#", "#......#",
                        "#......#", "#......#", "#......#", "########"};
const Lines fullBox = {"########", "#......#", "#.####.#", "#.####.#",
                       "#.####.#", "#.####.#", "#......#", "########"};
const Lines halfBox = {"########", "#......#", "#.##...#", "#.##...#",
                       "#.##...#", "#.##...#", "#......#", "########"};

/// Records which parts of a component are to be repainted.
class Repaints : public juce::CachedComponentImage
{
public:
    explicit Repaints(juce::RectangleList<int>& list) : areas(list) {}

    void paint(juce::Graphics&) override {}
    bool invalidateAll() override { return invalidate({0, 0, 10000, 10000}); }
    bool invalidate(const juce::Rectangle<int>& area) override
    {
        areas.add(area);
        return true;
    }
    void releaseResources() override {}

private:
    juce::RectangleList<int>& areas;
};

/// Whether any pixel of the area has another colour than the background.
bool hasInk(const juce::Image& image, juce::Rectangle<int> area)
{
    for (int y = area.getY(); y < area.getBottom(); ++y)
        for (int x = area.getX(); x < area.getRight(); ++x)
            if (image.getPixelAt(x, y) != ground)
                return true;
    return false;
}

/// How many dots follow the last letter: runs of inked columns that have nothing above the foot of the line.
int dotsAtTheEnd(const juce::Image& image)
{
    int dots = 0;
    bool inDot = false;
    for (int x = image.getWidth(); --x >= 0;)
    {
        if (hasInk(image, {x, 0, 1, 12}))
            break;
        const bool isInked = hasInk(image, {x, 12, 1, 8});
        dots += isInked && !inDot ? 1 : 0;
        inDot = isInked;
    }
    return dots;
}

int inkWidth(const juce::Image& image)
{
    for (int x = image.getWidth(); --x >= 0;)
        if (hasInk(image, {x, 0, 1, image.getHeight()}))
            return x + 1;
    return 0;
}
} // namespace

TEST_F(RowPainting, FillsTheBoxOfAnActiveObject)
{
    build({object(1, "on", 0, 1), object(2, "off", 0, 0), object(3, "five", 0, 5)});
    EXPECT_EQ(box("on"), fullBox);
    EXPECT_EQ(box("off"), emptyBox);
    EXPECT_EQ(box("five"), fullBox);
}

TEST_F(RowPainting, ShowsTheThreeStatesOfAGroup)
{
    build({object(1, "a", 1, 1), object(2, "b", 1, 1), object(3, "c", 1, 1)});
    EXPECT_EQ(box("Group 1"), fullBox);
    node("b").setProperty("active", 0, nullptr);
    EXPECT_EQ(box("Group 1"), halfBox);
    node("a").setProperty("active", 0, nullptr);
    EXPECT_EQ(box("Group 1"), halfBox);
    node("c").setProperty("active", 0, nullptr);
    EXPECT_EQ(box("Group 1"), emptyBox);
}

TEST_F(RowPainting, FillsTheBoxOfAGroupOfOne)
{
    build({object(1, "a", 1, 1)});
    EXPECT_EQ(box("Group 1"), fullBox);
    node("a").setProperty("active", 0, nullptr);
    EXPECT_EQ(box("Group 1"), emptyBox);
}

TEST_F(RowPainting, LeavesTheBoxOfAnEmptyGroupEmpty)
{
    build({object(1, "a")});
    panel->AddNewGroup(root());
    EXPECT_EQ(box("Group 1"), emptyBox);
}

TEST_F(RowPainting, ShowsAnOutsideEffectWithAnEmptyBox)
{
    build({external("Blur"), object(1, "a")});
    EXPECT_EQ(box("Blur"), emptyBox);
    node("Blur").setProperty("active", 1, nullptr);
    EXPECT_EQ(box("Blur"), fullBox);
}

TEST_F(RowPainting, GivesTheLayerRowNoBox)
{
    build({object(1, "a")});
    const auto image = picture("Layer");
    EXPECT_FALSE(hasInk(image, {0, 0, 8, 20}));
    EXPECT_TRUE(hasInk(image, {8, 0, 30, 20}));
}

TEST_F(RowPainting, StartsTheTextBehindTheBox)
{
    build({object(1, "MMM", 0, 0)});
    const auto image = picture("MMM");
    EXPECT_FALSE(hasInk(image, {10, 0, 6, 20}));
    EXPECT_TRUE(hasInk(image, {16, 0, 10, 20}));
}

TEST_F(RowPainting, WritesTheTextInTheMiddle)
{
    build({object(1, "MMM", 0, 0)});
    const auto image = picture("MMM");
    juce::Image expected(juce::Image::ARGB, image.getWidth(), 20, true);
    juce::Graphics g(expected);
    g.fillAll(ground);
    g.setFont(15.0f);
    g.setColour(lightGrey);
    g.drawText("MMM", 16, 0, image.getWidth() - 16, 20, juce::Justification::centredLeft, true);
    for (int x = 16; x < image.getWidth(); ++x)
        for (int y = 0; y < 20; ++y)
            ASSERT_EQ(image.getPixelAt(x, y), expected.getPixelAt(x, y)) << x << ", " << y;
}

TEST_F(RowPainting, HugsTheTextOfASelectedRow)
{
    build({object(1, "MMM", 0, 0), object(2, "b")});
    select({"MMM"});
    const auto image = picture("MMM");
    const int textWidth = TextWidth(FontOfHeight(15.0f), "MMM");
    EXPECT_EQ(image.getPixelAt(0, 0), highlight);
    EXPECT_EQ(image.getPixelAt(textWidth + 31, 19), highlight);
    EXPECT_EQ(inkWidth(image), textWidth + 32);
    select({});
    EXPECT_LT(inkWidth(picture("MMM")), textWidth + 20);
}

TEST_F(RowPainting, HugsTheTextOfTheSelectedLayerRow)
{
    build({object(1, "a")});
    select({"Layer"});
    EXPECT_EQ(inkWidth(picture("Layer")), TextWidth(FontOfHeight(15.0f), "Layer") + 16);
}

TEST_F(RowPainting, LimitsTheHighlightToTheRow)
{
    const std::string name(300, 'M');
    build({object(1, name)});
    select({name});
    const auto image = picture(name);
    EXPECT_EQ(image.getPixelAt(image.getWidth() - 1, 0), highlight);
}

TEST_F(RowPainting, WritesSelectedRowsInBlack)
{
    build({object(1, "MMM", 0, 0)});
    const auto darkest = [](const juce::Image& image)
    {
        int value = 255;
        for (int y = 0; y < 20; ++y)
            for (int x = 16; x < 50; ++x)
                value = std::min<int>(value, image.getPixelAt(x, y).getGreen());
        return value;
    };
    const auto lightest = [](const juce::Image& image)
    {
        int value = 0;
        for (int y = 0; y < 20; ++y)
            for (int x = 16; x < 50; ++x)
                value = std::max<int>(value, image.getPixelAt(x, y).getGreen());
        return value;
    };
    EXPECT_GT(lightest(picture("MMM")), 180);
    EXPECT_LE(lightest(picture("MMM")), 204);
    select({"MMM"});
    EXPECT_LT(darkest(picture("MMM")), 30);
    select({});
    EXPECT_GT(lightest(picture("MMM")), 180);
    EXPECT_LE(lightest(picture("MMM")), 204);
}

TEST_F(RowPainting, KeepsTheBoxLightOnASelectedRow)
{
    build({object(1, "on", 0, 1)});
    select({"on"});
    EXPECT_EQ(box("on"), fullBox);
}

TEST_F(RowPainting, WritesDefaultNamesShort)
{
    build({object(1, "Vortan Jitter Effector"), object(2, "Jitter")});
    const auto shortened = picture("Vortan Jitter Effector");
    const auto plain = picture("Jitter");
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < plain.getWidth(); ++x)
            ASSERT_EQ(shortened.getPixelAt(x, y), plain.getPixelAt(x, y));
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), testing::ElementsAre("Vortan Jitter Effector", "Jitter"));
}

TEST_F(RowPainting, WritesNothingForAnEmptyName)
{
    build({object(1, "", 0, 1)});
    EXPECT_EQ(inkWidth(picture("")), 10);
    select({""});
    EXPECT_EQ(inkWidth(picture("")), 32);
}

TEST_F(RowPainting, EndsALongNameWithThreeDots)
{
    const std::string name(300, 'M');
    build({object(1, name, 0, 0), object(2, "MMM", 0, 0)});
    EXPECT_EQ(dotsAtTheEnd(picture(name)), 3);
    EXPECT_EQ(dotsAtTheEnd(picture("MMM")), 0);
}

TEST_F(RowPainting, EndsNoNameWithDotsThatFits)
{
    build({object(1, "M", 0, 0)});
    const int room = picture("M").getWidth() - 16; // The text begins right of the box.
    const juce::Font font = FontOfHeight(15.0f);
    std::string longest = "M";
    while (TextWidth(font, longest + "M") <= room)
        longest += 'M';
    build({object(1, longest, 0, 0), object(2, longest + "M", 0, 0)});
    EXPECT_EQ(dotsAtTheEnd(picture(longest)), 0);
    EXPECT_EQ(dotsAtTheEnd(picture(longest + "M")), 3);
}

TEST_F(RowPainting, RepaintsTheGroupWithItsObjects)
{
    build({object(1, "a", 1, 1), object(2, "b", 1, 1), object(3, "c")});
    pump();
    const auto placeOf = [this](const std::string& name)
    { return row(name).getItemPosition(true).withHeight(20).getIntersection(view().getLocalBounds()); };
    juce::RectangleList<int> repainted;
    view().setCachedComponentImage(new Repaints(repainted));
    repainted.clear();
    node("a").setProperty("active", 0, nullptr);
    EXPECT_TRUE(repainted.containsRectangle(placeOf("Group 1")));
    EXPECT_TRUE(repainted.containsRectangle(placeOf("a")));
    EXPECT_FALSE(repainted.intersectsRectangle(placeOf("b")));
    EXPECT_FALSE(repainted.intersectsRectangle(placeOf("c")));
    view().setCachedComponentImage(nullptr); // The view outlives the list.
}

TEST_F(RowPainting, FillsNothingBehindTheRows)
{
    build({object(1, "a"), object(2, "b"), object(3, "c")});
    select({"b"});
    pump();
    const auto image = view().createComponentSnapshot(view().getLocalBounds());
    for (int y = 0; y < 80; ++y)
        EXPECT_EQ(image.getPixelAt(image.getWidth() - 2, y), ground);
}
