// How a drag begins and what it carries along. JUCE would open a window of its own for the picture; its
// function is the linker's to lead here.

#include "tests/tree/support/HeadlessHands.h"

#include <gtest/gtest.h>

#include <optional>

namespace
{
struct Start
{
    juce::String description;
    juce::Component* source;
    juce::ScaledImage picture;
    bool leavesTheWindow;
    juce::Point<int> fromPointer;
    bool isOfTheMouse;
};

std::vector<Start> starts;
} // namespace

extern "C" void
__wrap__ZN4juce20DragAndDropContainer13startDraggingERKNS_3varEPNS_9ComponentERKNS_11ScaledImageEbPKNS_5PointIiEEPKNS_16MouseInputSourceE(
    juce::DragAndDropContainer*, const juce::var&, juce::Component*, const juce::ScaledImage&, bool,
    const juce::Point<int>*, const juce::MouseInputSource*);

extern "C" void
__wrap__ZN4juce20DragAndDropContainer13startDraggingERKNS_3varEPNS_9ComponentERKNS_11ScaledImageEbPKNS_5PointIiEEPKNS_16MouseInputSourceE(
    juce::DragAndDropContainer*, const juce::var& description, juce::Component* source,
    const juce::ScaledImage& picture, bool leavesTheWindow, const juce::Point<int>* fromPointer,
    const juce::MouseInputSource* mouse)
{
    starts.push_back({description.toString(), source, picture, leavesTheWindow, *fromPointer,
                      *mouse == juce::Desktop::getInstance().getMainMouseSource()});
}

namespace standin
{
namespace
{
class DragStart : public PressTable<HeadlessHands>
{
protected:
    ~DragStart() override { starts.clear(); }

    void dragTo(juce::Point<int> inView)
    {
        moveTo(inView);
        pump();
    }

    juce::DragAndDropTarget::SourceDetails below(const std::string& name)
    {
        return {"Object", &view(), placeOf({Part::text, name}).translated(0, 8)};
    }

    const juce::Point<int> far{3, 30};
};

/// The row as it paints itself, drawn at a scale.
juce::Image pictureOf(ValueTreeItem& row, float scale)
{
    const int width = row.getItemPosition(false).getWidth();
    const auto scaled = [scale](int length) { return juce::roundToInt(static_cast<float>(length) * scale); };
    juce::Image image(juce::Image::ARGB, scaled(width), scaled(20), true);
    {
        juce::Graphics g(image);
        g.addTransform(juce::AffineTransform::scale(scale));
        row.paintItem(g, width, 20);
    }
    image.multiplyAllAlphas(0.6f);
    return image;
}

void expectSamePicture(const juce::Image& one, const juce::Image& other)
{
    ASSERT_EQ(one.getBounds(), other.getBounds());
    for (int y = 0; y < one.getHeight(); ++y)
        for (int x = 0; x < one.getWidth(); ++x)
            ASSERT_EQ(one.getPixelAt(x, y), other.getPixelAt(x, y)) << x << ", " << y;
}
} // namespace

TEST_F(DragStart, CarriesAPictureOfTheRow)
{
    begin(Press(Part::text, "c", Key::none, {}), Clicks::one);
    dragTo(place + far);
    dragTo(place + far + far);
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].description, "Object");
    EXPECT_EQ(starts[0].source, &view());
    EXPECT_TRUE(starts[0].leavesTheWindow);
    EXPECT_EQ(starts[0].fromPointer, juce::Point<int>(-20 - 3, -10 - 30));
    EXPECT_TRUE(starts[0].isOfTheMouse);
    EXPECT_EQ(starts[0].picture.getScale(), 2.0);
    expectSamePicture(starts[0].picture.getImage(), pictureOf(row("c"), 2.0f));
    finish();
}

TEST_F(DragStart, DrawsAsSharpAsThePanelIsShown)
{
    panel->setTransform(juce::AffineTransform::scale(0.5f));
    begin(Press(Part::text, "c", Key::none, {}), Clicks::one);
    dragTo(place + far);
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].picture.getImage().getHeight(), 20);
    finish();
}

TEST_F(DragStart, DrawsARowWithoutWidth)
{
    begin(Press(Part::text, "c", Key::none, {}), Clicks::one);
    panel->setSize(20, 420);
    ASSERT_EQ(row("c").getItemPosition(false).getWidth(), 0);
    dragTo(place + far);
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].picture.getImage().getWidth(), 2);
    finish();
}

TEST_F(DragStart, TakesFivePixelsOnTheItem)
{
    struct
    {
        int column; ///< of the press, from the row's first
        int way;
        std::size_t starts;
    } const cases[] = {{20, 4, 0}, {20, 5, 1}, {0, 30, 1}, {-1, 30, 0}};
    for (const auto& each : cases)
    {
        starts.clear();
        arrange(Press(Part::text, "b", Key::none, {}));
        press(place.translated(each.column - 20, 0));
        dragTo(place.translated(each.column - 20 + each.way, 0));
        EXPECT_EQ(starts.size(), each.starts) << each.column << ", " << each.way;
        finish();
        passTime();
    }
}

TEST_F(DragStart, KnowsThePlaceInAScrolledRow)
{
    std::vector<ObjectItem> many;
    for (int i = 1; i <= 60; ++i)
        many.push_back(object(i, "row " + std::to_string(i)));
    panel->setSize(80, 420); // Too narrow for the rows, so that they scroll both ways.
    show(many);
    view().getViewport()->setViewPosition(7, 205);
    place = placeOf({Part::text, "row 15"});
    press(place);
    dragTo(place + far);
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].fromPointer, juce::Point<int>(-20 - 3, -10 - 30));
    letGo();
}

TEST_F(DragStart, SelectsItsRowInARebuiltTree)
{
    struct
    {
        std::vector<std::string> before;
        std::vector<std::string> meanwhile;
        std::string after;
    } const cases[] = {
        {{"a", "b"}, {"e"}, "Layer(a b* Group 1(c d) x e*)"},
        {{"a"}, {"e"}, "Layer(a b* Group 1(c d) x e)"},
        {{"a"}, {"b", "e"}, "Layer(a b* Group 1(c d) x e*)"},
    };
    for (const auto& each : cases)
    {
        begin(Press(Part::text, "b", Key::none, each.before), Clicks::one);
        show(items);
        select(each.meanwhile);
        dragTo(place + far);
        EXPECT_EQ(shape(), each.after);
        EXPECT_EQ(starts.back().description, "Object");
        expectSamePicture(starts.back().picture.getImage(), pictureOf(row("b"), 2.0f));
        finish();
        passTime();
    }
}

TEST_F(DragStart, LeavesTheSelectionOfItsOwnTree)
{
    begin(Press(Part::text, "b", Key::none, {"a"}), Clicks::one);
    select({"e"});
    dragTo(place + far);
    EXPECT_EQ(shape(), "Layer(a b Group 1(c d) x e*)");
    EXPECT_EQ(starts.size(), 1u);
    finish();
}

TEST_F(DragStart, WaitsForARowThatHasGone)
{
    begin(Press(Part::text, "b", Key::none, {}), Clicks::one);
    show({object(1, "a"), object(5, "e")});
    dragTo(place + far);
    EXPECT_TRUE(starts.empty());
    show(items);
    dragTo(place + far + far);
    EXPECT_EQ(starts.size(), 1u);
    finish();
}

TEST_F(DragStart, DropsWhatWasDraggedAfterARebuild)
{
    begin(Press(Part::text, "b", Key::none, {"a", "b"}), Clicks::one);
    dragTo(place + far);
    show(items);
    select({"d"});
    view().itemDropped(below("e"));
    EXPECT_EQ(shape(), "Layer(a Group 1(c) x e b* d*)");
    finish();
}

TEST_F(DragStart, DropsOnlyWhatIsStillThere)
{
    begin(Press(Part::text, "b", Key::none, {}), Clicks::one);
    dragTo(place + far);
    EXPECT_TRUE(view().isInterestedInDragSource(below("e")));
    show({object(1, "a"), object(5, "e")});
    EXPECT_FALSE(view().isInterestedInDragSource(below("e")));
    finish();
    EXPECT_TRUE(view().isInterestedInDragSource(below("e")));
}
} // namespace standin
